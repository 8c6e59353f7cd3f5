#include "slate/FindEdgesVisitor.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/NamePath.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <utility>

namespace Slate {

namespace {

/// A global name that names begin with: how many of them, and what it means.
struct GlobalPrefix {
    std::size_t name_count = 0;
    NodePtr node;
};

/// The shortest one; no names if there is none.
GlobalPrefix findGlobalPrefix(Document const* document, vec<CompactToken const*> const& names) {
    if (document == nullptr)
        return {};
    auto const longest = document->countDotsOfLongestName() + 1;
    std::string text;
    for (std::size_t count = 1; count <= std::min(longest, names.size()); ++count) {
        text.append(count > 1 ? "." : "").append(names[count - 1]->lexeme());
        if (auto node = document->nsLookupConstOrVar(text))
            return {count, std::move(node)};
    }
    return {};
}

/// Null if there is no such branch.
SymbolTreeNode const* childOf(SymbolTreeNode const& branch, std::string_view name) {
    auto const* const* const child = branch.getChildren().find(name);
    return child == nullptr ? nullptr : *child;
}

/// The branches that names lead to one after the other, as far as there are any; "this" stays where it is.
std::vector<SymbolTreeNode const*> branchesAlong(SymbolTreeNode const* branch,
                                                 vec<CompactToken const*> const& names, std::size_t offset) {
    std::vector<SymbolTreeNode const*> branches;
    for (auto i = offset; branch != nullptr && i < names.size(); ++i) {
        if (names[i]->lexeme() != "this")
            branch = childOf(*branch, names[i]->lexeme());
        if (branch != nullptr)
            branches.push_back(branch);
    }
    return branches;
}

} // namespace

FindEdgesVisitor::FindEdgesVisitor(std::shared_ptr<SymbolTree> tree) : tree_(std::move(tree)) {}

void FindEdgesVisitor::findEdges(TopoPathPtr const& path, SymbolTreeNode const* outer_branch) {
    auto const node = path->getLastStep()->getNode();
    auto const* const attribute = attributeIn(node.get());
    if (attribute == nullptr || !attribute->getValue())
        return;
    current_path_ = path;
    current_document_ = attribute->getOwningDocument();
    outer_branch_ = outer_branch;
    walk(attribute->getValue());
}

void FindEdgesVisitor::walk(ExpressionPtr const& expression) {
    for (auto next = expression; next;) {
        if (next->isConstant()) {
            readName(static_cast<Constant const&>(*next));
            return;
        }
        ahead_.reset();
        next->accept(*this);
        next = std::exchange(ahead_, nullptr);
    }
}

void FindEdgesVisitor::addEdgesFrom(SymbolTreeNode const& branch) {
    SymbolTree::forEachMaxPath(branch, [this](TopoPathPtr const& path) { path->addEdge(current_path_); });
}

void FindEdgesVisitor::visitConstant(ConstantPtr const& node) { readName(*node); }

void FindEdgesVisitor::readName(Constant const& node) {
    if (node.getTokenType() != TokenType::Identifier)
        return;
    auto const name = node.getLexeme();
    auto const global = current_document_ ? current_document_->nsLookupConstOrVar(name) : nullptr;
    if (global) {
        if (auto const root = tree_->findRoot(*global))
            addEdgesFrom(*root);
    } else if (auto const* sibling = outer_branch_ == nullptr ? nullptr : childOf(*outer_branch_, name)) {
        addEdgesFrom(*sibling);
    }
}

// The longest run of names that leads to something with a value is what is read. A name that is looked up
// globally goes before the attributes around.
void FindEdgesVisitor::visitMemberAccess(MemberAccessPtr const& node) {
    auto const names = namePathOf(*node);
    if (!names) {
        ahead_ = node->getLhs();
        return;
    }
    tree_->noteMaxPaths();
    auto const global = findGlobalPrefix(current_document_.get(), *names);
    auto const root = global.node ? tree_->findRoot(*global.node) : nullptr;
    auto const from_global = branchesAlong(root.get(), *names, global.name_count);
    auto const from_outer = branchesAlong(outer_branch_, *names, 0);
    for (auto count = names->size(); count > 1; --count) {
        bool const is_global = global.node && count >= global.name_count;
        if (is_global && count == global.name_count) {
            if (root && root->hasMaxPaths()) {
                addEdgesFrom(*root);
                return;
            }
            continue;
        }
        auto const& branches = is_global ? from_global : from_outer;
        auto const taken = is_global ? count - global.name_count : count;
        if (taken <= branches.size() && branches[taken - 1]->hasMaxPaths()) {
            addEdgesFrom(*branches[taken - 1]);
            return;
        }
    }
    // The first name alone.
    ahead_ = node->getLhs();
    while (auto const access = ahead_->asMemberAccess())
        ahead_ = access->getLhs();
}

void FindEdgesVisitor::visitCall(CallPtr const& node) {
    for (auto const& argument : node->getArguments())
        walk(argument);
    auto const method = node->getMethod();
    auto const callee = node->getCallee() ? node->getCallee()->asMemberAccess() : nullptr;
    if (callee && !(method && method->isStatic()))
        ahead_ = callee->getLhs();
}

void FindEdgesVisitor::visitArray(ArrayPtr const& node) {
    for (auto const& element : node->getElements())
        walk(element);
}

void FindEdgesVisitor::visitUnary(UnaryPtr const& node) { ahead_ = node->getOperand(); }

void FindEdgesVisitor::visitBinaryOp(BinaryOpPtr const& node) {
    walk(node->getRhs());
    ahead_ = node->getLhs();
}

void FindEdgesVisitor::visitIndexing(IndexingPtr const& node) {
    walk(node->getIndex());
    ahead_ = node->getLhs();
}

} // namespace Slate
