#pragma once

// Symbol trees of analysed sources, as text.

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/SymbolTree.h"
#include "slate/SymbolTreeNode.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Slate::Testing {

/// The full strings of paths, a line each.
inline std::string linesOf(std::vector<TopoPathPtr> const& paths) {
    std::string text;
    for (auto const& path : paths)
        text += path->toFullString() + "\n";
    return text;
}

/// The branches below a node, a line each: "size@2:5 = Machine.part.size", the place being that of the
/// declaration and the path the max path, as far as there are any.
inline std::string branchesOf(SymbolTreeNode const& node, std::string const& indent = "") {
    std::string text;
    for (auto const& [name, child] : node.getChildren().entries()) {
        text += indent;
        text += name;
        if (auto const& declaration = child->getDeclaration()) {
            auto const place = declaration->getSegments().back().position();
            text += "@" + std::to_string(place.line) + ":" + std::to_string(place.column);
        }
        text += (child->getMaxPath() ? " = " + child->getMaxPath()->toFullString() : "") + "\n";
        text += branchesOf(*child, indent + "  ");
    }
    return text;
}

/// Sources that went through the passes, and the tree of a model of them, with errors of its own.
struct Grown {
    Analyzed analyzed;
    std::shared_ptr<ErrorReporter> reporter;
    std::shared_ptr<SymbolTree> tree;
    ModelDeclPtr model;

    /// Those of the tree alone.
    std::string errors() const { return dumpErrors(*reporter); }

    /// As `branchesOf`, for the model.
    std::string branches() const {
        auto const root = tree->findRoot(*model);
        return root ? branchesOf(*root) : "no root";
    }
};

/// For a text as `analyze` takes it. The tree's completion step has not run.
inline Grown grow(std::string const& raw_text) {
    auto input = readAnalysisInput(raw_text.starts_with('\n') ? unindent(raw_text) : raw_text);
    input.unfolds_model = false;
    Grown grown{analyze(input), std::make_shared<ErrorReporter>(), {}, {}};
    grown.model = grown.analyzed.findModel(input.model);
    if (grown.model)
        grown.tree =
            SymbolTree::create(grown.analyzed.context->findTopoNodesFor(grown.model), grown.reporter);
    return grown;
}

/// The path from a root along attributes; where a type has the attribute, it stands in between: "Machine",
/// {"part", "size"} gives Machine.part.Part.size.
inline TopoPathPtr pathTo(NodePtr const& root, std::vector<std::string> const& names) {
    auto path = TopologicalPath::create(root);
    auto type = root->asModelDeclaration();
    for (auto const& name : names) {
        if (type && path->countSteps() > 1)
            path->append(type);
        auto const member = type ? type->findFirstMemberWithType(name) : nullptr;
        if (!member) {
            ADD_FAILURE() << "no attribute " << name;
            return path;
        }
        path->append(member);
        type = member->getType() ? member->getType()->asModelDeclaration() : nullptr;
    }
    return path;
}

} // namespace Slate::Testing
