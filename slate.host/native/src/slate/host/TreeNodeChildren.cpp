// What stands below what.

#include "slate/Annotation.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/host/TreeNode.h"
#include "slate/host/TreeView.h"

#include <algorithm>
#include <iterator>

namespace Slate::Host {

namespace {

vec<NodePtr> parametersOf(Node& node) {
    auto const method = node.asMethodDeclaration();
    auto const overload = node.asOperatorOverload();
    if (!method && !overload)
        return {};
    auto const& parameters = method ? method->getParameters() : overload->getParameters();
    return {parameters.begin(), parameters.end()};
}

/// Does the first name of a target path only declare what it names?
bool onlyDeclares(VarAssignment const& attribute) {
    return attribute.getOperatorType() == TokenType::Is && attribute.getPath().size() == 1;
}

vec<NodePtr> operandsOf(Node& node) {
    if (auto const binary = node.asBinaryOp())
        return {binary->getLhs(), binary->getRhs()};
    if (auto const unary = node.asUnary())
        return {unary->getOperand()};
    if (auto const indexing = node.asIndexing())
        return {indexing->getLhs(), indexing->getIndex()};
    if (auto const call = node.asCall())
        return {call->getArguments().begin(), call->getArguments().end()};
    if (auto const array = node.asArray())
        return {array->getElements().begin(), array->getElements().end()};
    if (auto const initializer = node.asInitializer())
        return {initializer->getElements().begin(), initializer->getElements().end()};
    return {};
}

/// The expression that belongs to a declaration and stands in the source.
ExpressionPtr valueOf(Node& node) {
    if (auto const annotation = node.asAnnotation())
        return annotation->getValue();
    auto const attribute = node.asVarAssignment();
    return attribute && !attribute->isValueSupplied() ? attribute->getValue() : nullptr;
}

/// The call of a static method whose model is named in front of it; the analysis binds no type to these
/// names, and the method to the last one.
bool isCallThroughModel(Call const& call) {
    auto const method = call.getMethod();
    return method && method->isStatic() && call.getCallee()->getType() == method;
}

/// Is the access the name of a variable or const model of another namespace? These have a type, and are no
/// member of anything.
bool isGlobalPath(MemberAccess const& access) { return access.getType() && !access.getDeclaration(); }

} // namespace

TreeNode TreeNode::partOf(NodePtr const& node, Part part, std::size_t index) const {
    TreeNode child(view_, document_, node, part, index);
    auto const attribute = part_ == Part::Whole ? node_->asVarAssignment() : nullptr;
    auto const model = attribute ? attribute->getOwningModel() : nullptr;
    child.trait_ = model && model->isTrait() ? model : trait_;
    return child;
}

std::vector<TreeNode> TreeNode::getChildren() const {
    std::vector<TreeNode> children;
    auto const add = [&](NodePtr const& node, Part part, std::size_t index = 0) {
        if (node)
            children.push_back(partOf(node, part, index));
    };
    auto const add_names = [&](Part part, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            add(node_, part, i);
    };
    if (part_ == Part::Segment || part_ == Part::TypeSegment)
        return children;
    if (part_ == Part::TypePath) {
        add_names(Part::TypeSegment, typePathOf(*node_).size);
        return children;
    }

    auto const node = subject();
    auto const attribute = node->asVarAssignment();
    if (!attribute || !onlyDeclares(*attribute))
        add_names(Part::Segment, segmentsOf(*node).size());
    for (auto const& parameter : parametersOf(*node))
        add(parameter, Part::Whole);
    if (typePathOf(*node).size > 0)
        add(node, Part::TypePath);
    add(valueOf(*node), Part::Whole);
    for (auto const& member : bodyOf(*node))
        add(member, Part::Whole);

    if (auto const call = node->asCall())
        add(call->getCallee() ? NodePtr(call) : nullptr, Part::Callee);
    if (auto const access = node->asMemberAccess())
        add(access->getLhs(), partOfOperand(*access));
    for (auto const& operand : operandsOf(*node))
        add(operand, Part::Whole);
    return children;
}

TreeNode::Part TreeNode::partOfOperand(MemberAccess const& access) const {
    if (part_ == Part::Callee)
        return isCallThroughModel(*node_->asCall()) ? Part::ModelPath : Part::Whole;
    bool const is_namespace =
        part_ == Part::ModelPath || part_ == Part::NamespacePath || isGlobalPath(access);
    return is_namespace ? Part::NamespacePath : Part::Whole;
}

std::vector<TreeNode> TreeNode::getDescendants() const {
    std::vector<TreeNode> found;
    auto next = getChildren(); // the next one is the last
    std::ranges::reverse(next);
    while (!next.empty()) {
        found.push_back(std::move(next.back()));
        next.pop_back();
        auto children = found.back().getChildren();
        next.insert(next.end(), std::make_move_iterator(children.rbegin()),
                    std::make_move_iterator(children.rend()));
    }
    return found;
}

} // namespace Slate::Host
