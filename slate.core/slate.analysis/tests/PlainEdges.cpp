#include "PlainEdges.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/Unary.h"

#include <algorithm>
#include <optional>

namespace Slate::Testing {

namespace {

std::optional<std::vector<std::string>> namesOf(MemberAccess const& node) {
    std::vector<std::string> names{node.getNameToken().lexeme};
    auto lhs = node.getLhs();
    for (; lhs && lhs->isMemberAccess(); lhs = lhs->asMemberAccess()->getLhs())
        names.insert(names.begin(), lhs->asMemberAccess()->getNameToken().lexeme);
    auto const constant = lhs ? lhs->asConstant() : nullptr;
    if (!constant || constant->getToken().type != TokenType::Identifier)
        return std::nullopt;
    names.insert(names.begin(), constant->getToken().lexeme);
    return names;
}

} // namespace

std::size_t plainOuterLength(TopologicalPath const& path) {
    auto const steps = path.getSteps();
    if (steps.empty() || (steps.size() == 1 && steps.front().getNode()->isVarAssignment()))
        return 0;
    bool has_member = false;
    std::size_t stop = 0;
    for (auto i = steps.size() - 1; i > 0 && stop == 0; --i) {
        has_member = has_member || steps[i].isMember();
        if (has_member && !steps[i].isMember())
            stop = i;
    }
    if (!has_member)
        return steps.size();
    for (auto i = stop; i > 0; --i) {
        if (steps[i].isMember())
            return i + 1;
    }
    return stop + 1;
}

void PlainEdges::addAll(Paths const& paths) {
    for (auto const& path : paths) {
        auto const steps = path->getSteps();
        if (auto const value = steps.back().getExpression()) {
            current_ = path;
            document_ = steps.back().getDocument();
            auto const outer_length = plainOuterLength(*path);
            outer_ = outer_length == 0 ? TopologicalPath::create() : path->prefix(outer_length);
            visit(value);
        }
        for (auto const& below : tree_.pathsUnder(*path)) {
            if (below != path)
                add(path, below);
        }
    }
}

void PlainEdges::visit(ExpressionPtr const& expression) {
    if (!expression)
        return;
    if (auto const constant = expression->asConstant())
        visitConstant(*constant);
    else if (auto const access = expression->asMemberAccess())
        visitAccess(*access);
    else if (auto const call = expression->asCall())
        visitCall(*call);
    else if (auto const array = expression->asArray())
        std::ranges::for_each(array->getElements(), [this](auto const& element) { visit(element); });
    else if (auto const unary = expression->asUnary())
        visit(unary->getOperand());
    else if (auto const binary = expression->asBinaryOp())
        visit(binary->getLhs()), visit(binary->getRhs());
    else if (auto const indexing = expression->asIndexing())
        visit(indexing->getLhs()), visit(indexing->getIndex());
}

NodePtr PlainEdges::global(std::string const& name) const {
    return document_ ? document_->nsLookupConstOrVar(name) : nullptr;
}

void PlainEdges::visitConstant(Constant const& node) {
    auto const& token = node.getToken();
    if (token.type != TokenType::Identifier)
        return;
    if (auto const found = global(token.lexeme))
        addEach(tree_.pathsUnder(*TopologicalPath::create(found)));
    else
        addEach(tree_.pathsUnderMember(*outer_, token));
}

void PlainEdges::visitAccess(MemberAccess const& node) {
    auto const names = namesOf(node);
    if (!names)
        return visit(node.getLhs());
    Paths results;
    NodePtr found;
    std::string text;
    std::size_t count = 0;
    while (!found && count < names->size()) {
        text += (count > 0 ? "." : "") + (*names)[count];
        ++count;
        found = global(text);
    }
    if (found)
        results = tree_.pathsForMemberAccess(*TopologicalPath::create(found), node, count);
    else
        results = tree_.pathsForMemberAccess(*outer_, node, 0);
    global_prefixes_ += found ? 1 : 0;
    addEach(results);
    if (results.empty()) {
        ++retries_;
        visit(node.getLhs());
    }
}

void PlainEdges::visitCall(Call const& node) {
    auto const access = node.getCallee() ? node.getCallee()->asMemberAccess() : nullptr;
    bool const is_static = node.getMethod() && node.getMethod()->isStatic();
    if (access && !is_static)
        visit(access->getLhs());
    for (auto const& argument : node.getArguments())
        visit(argument);
}

void PlainEdges::addEach(Paths const& before) {
    for (auto const& path : before)
        add(path, current_);
}

void PlainEdges::add(TopoPathPtr const& before, TopoPathPtr const& after) {
    auto& edges = edges_[before];
    if (std::ranges::find(edges, after) == edges.end())
        edges.push_back(after);
}

} // namespace Slate::Testing
