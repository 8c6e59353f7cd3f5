// Everything that the examples declare, renamed and back.

#include "Refactoring.h"
#include "RoundTrip.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/refactor/QualifiedName.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace Slate::Refactor {

namespace {

using namespace Testing;

constexpr auto root = "conveyor.InfeedLine";

std::vector<Source> readExamples() {
    std::vector<Source> sources;
    for (auto const* const bundle : {"quantities", "drives", "conveyor"}) {
        auto const directory = std::filesystem::path(SLATE_EXAMPLES) / bundle;
        for (auto const& entry : std::filesystem::recursive_directory_iterator(directory)) {
            auto const& path = entry.path();
            if (path.extension() == ".slate" && path.filename() != "config.slate")
                sources.push_back({path.lexically_relative(SLATE_EXAMPLES).generic_string(), readFile(path)});
        }
    }
    std::ranges::sort(sources, {}, &Source::path);
    return sources;
}

/// The full names of what the examples declare, but for what no refactoring follows everywhere.
struct Names {
    std::vector<std::string> models;
    std::vector<std::string> attributes;
    std::vector<std::string> methods;
    std::set<std::string> redeclared;
};

void collectMember(Node& member, std::string const& model_name, Names& names) {
    if (auto const method = member.asMethodDeclaration())
        names.methods.push_back(model_name + "." + method->getName());
    auto const attribute = member.asVarAssignment();
    if (!attribute || !attribute->isDeclaration())
        return;
    auto const name = model_name + "." + attribute->getName();
    names.attributes.push_back(name);
    if (attribute->getOperatorType() != TokenType::Becomes)
        return;
    // Some read the one declaration of the attribute, and some the other.
    auto const redeclared = attribute->getTargetDeclarations().front();
    names.redeclared.insert(name);
    names.redeclared.insert(redeclared->getOwningModel()->getNameWithNamespace(".") + "." +
                            redeclared->getName());
}

Names collectNames(vec<DocPtr> const& documents) {
    Names names;
    for (auto const& document : documents) {
        for (auto const& member : document->getMembers()) {
            auto const model = member->asModelDeclaration();
            // Neither `with` nor what stands in the body of a trait is followed.
            if (!model || model->isTrait())
                continue;
            auto const full_name = model->getNameWithNamespace(".");
            names.models.push_back(full_name);
            for (auto const& inner : model->getMembers())
                collectMember(*inner, full_name, names);
        }
    }
    std::erase_if(names.attributes, [&](auto const& name) { return names.redeclared.contains(name); });
    return names;
}

/// Without a model to unfold.
Analyzed analyzeAlone(std::vector<Source> const& sources) {
    AnalysisInput input;
    input.sources = sources;
    input.unfolds_model = false;
    return analyze(std::move(input));
}

class RefactorExamples : public testing::Test {
  protected:
    std::vector<Source> const sources = readExamples();
    Analyzed const analyzed = analyzeAlone(sources);
    Names const names = collectNames(analyzed.documents);
};

std::string dotted(std::string path) {
    std::ranges::replace(path, '/', '.');
    return path;
}

/// Renames a directory with all below it, and each of its namespaces.
Step renameDirectory(std::string const& old_directory, std::string const& new_directory) {
    auto const renamed = [old_directory, new_directory](std::string const& path) {
        return new_directory + path.substr(old_directory.size());
    };
    auto const directories_of = [old_directory](std::vector<Source> const& all) {
        std::set<std::string> directories;
        for (auto const& source : all) {
            if (source.path.starts_with(old_directory + "/"))
                directories.insert(source.path.substr(0, source.path.rfind('/')));
        }
        return directories;
    };
    return {[=](vec<DocPtr> const& documents) {
                std::vector<Source> all;
                for (auto const& document : documents)
                    all.push_back({document->getSourceId(), ""});
                std::vector<ReplaceOp> ops;
                for (auto const& directory : directories_of(all)) {
                    auto const more =
                        Toolkit::renameNamespace(documents, dotted(directory), dotted(renamed(directory)));
                    ops.insert(ops.end(), more.begin(), more.end());
                }
                return ops;
            },
            [=](std::vector<Source>& all) {
                for (auto const& directory : directories_of(all))
                    moveDirectory(all, directory, renamed(directory));
            }};
}

} // namespace

TEST_F(RefactorExamples, HaveNoMistakes) {
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_GT(names.models.size(), 20U);
    EXPECT_GT(names.attributes.size(), 60U);
    EXPECT_GT(names.methods.size(), 1U);
}

TEST_F(RefactorExamples, EveryModelCanBeRenamed) {
    for (auto const& name : names.models) {
        SCOPED_TRACE(name);
        auto const new_name = joinName(spaceOf(name), "Renamed");
        auto const edits = checkRoundTrip(sources, root,
                                          {.there = {[&](auto const& documents) {
                                               return Toolkit::renameModel(documents, name, "Renamed");
                                           }},
                                           .back = {[&](auto const& documents) {
                                               return Toolkit::renameModel(documents, new_name, lastOf(name));
                                           }},
                                           .new_root = name == root ? new_name : root,
                                           .names = {{"Renamed", lastOf(name)}},
                                           .restores_bytes = false});
        EXPECT_GT(edits, 0U);
    }
}

TEST_F(RefactorExamples, EveryAttributeCanBeRenamed) {
    for (auto const& name : names.attributes) {
        SCOPED_TRACE(name);
        auto const edits = checkRoundTrip(sources, root,
                                          {.there = {[&](auto const& documents) {
                                               return Toolkit::renameAttribute(documents, name, "renamed");
                                           }},
                                           .back = {[&](auto const& documents) {
                                               return Toolkit::renameAttribute(
                                                   documents, spaceOf(name) + ".renamed", lastOf(name));
                                           }},
                                           .new_root = root,
                                           .names = {{"renamed", lastOf(name)}}});
        EXPECT_GT(edits, 0U);
    }
}

TEST_F(RefactorExamples, EveryMethodCanBeRenamed) {
    for (auto const& name : names.methods) {
        SCOPED_TRACE(name);
        auto const edits = checkRoundTrip(sources, root,
                                          {.there = {[&](auto const& documents) {
                                               return Toolkit::renameMethod(documents, name, "renamed");
                                           }},
                                           .back = {[&](auto const& documents) {
                                               return Toolkit::renameMethod(
                                                   documents, spaceOf(name) + ".renamed", lastOf(name));
                                           }},
                                           .new_root = root,
                                           .names = {{"renamed", lastOf(name)}}});
        EXPECT_GT(edits, 0U);
    }
}

// Those of which only types are used elsewhere: what values name is not followed.
TEST_F(RefactorExamples, NamespacesAndABundleCanBeRenamed) {
    for (std::string const directory : {"conveyor/sections", "drives/gears", "conveyor"}) {
        SCOPED_TRACE(directory);
        auto const slash = directory.rfind('/');
        auto const new_directory =
            (slash == std::string::npos ? "" : directory.substr(0, slash + 1)) + "renamed";
        auto const edits = checkRoundTrip(sources, root,
                                          {.there = renameDirectory(directory, new_directory),
                                           .back = renameDirectory(new_directory, directory),
                                           .new_root = directory == "conveyor" ? "renamed.InfeedLine" : root,
                                           .names = {{dotted(new_directory), dotted(directory)}}});
        EXPECT_GT(edits, 0U);
    }
}

} // namespace Slate::Refactor
