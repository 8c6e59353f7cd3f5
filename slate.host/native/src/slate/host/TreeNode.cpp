#include "slate/host/TreeNode.h"

#include "slate/Annotation.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/host/TreeView.h"

#include <functional>

namespace Slate::Host {

namespace {

std::string_view kindOfWhole(Node& node) {
    switch (node.getNodeType()) {
    case NodeType::Document: return "document";
    case NodeType::ModelDeclaration: return "model";
    case NodeType::VarDeclaration:
    case NodeType::VarAssignment: return node.asVarAssignment()->isDeclaration() ? "attribute" : "assignment";
    case NodeType::BinaryOp: return "binary";
    case NodeType::MethodDeclaration: return "method";
    case NodeType::Parameter: return "parameter";
    case NodeType::Array: return "array";
    case NodeType::Constant:
        return node.asConstant()->getToken().type == TokenType::Identifier ? "name" : "constant";
    case NodeType::Call: return "call";
    case NodeType::MemberAccess: return "member";
    case NodeType::Unary: return "unary";
    case NodeType::Indexing: return "index";
    case NodeType::OperatorOverload: return "operator";
    case NodeType::Annotation: return "annotation";
    case NodeType::Import: return "import";
    case NodeType::TraitImpl: return "trait";
    case NodeType::Initializer: return "initializer";
    case NodeType::Deletion: return "delete";
    case NodeType::ArrayType:
    case NodeType::PrimitiveType:
    case NodeType::InitializerType: break;
    }
    return "type";
}

/// By value: some nodes keep their tokens in a shorter form.
TokenVector nameTokensOf(Node& node) {
    if (auto const model = node.asModelDeclaration())
        return {model->getNameToken()};
    if (auto const method = node.asMethodDeclaration())
        return {method->getNameToken()};
    if (auto const parameter = node.asParameter())
        return {parameter->getNameToken()};
    if (auto const annotation = node.asAnnotation())
        return {annotation->getNameToken()};
    if (auto const overload = node.asOperatorOverload())
        return {overload->getOperatorToken()};
    if (auto const import_node = node.asImport())
        return {import_node->getPathToken()};
    if (auto const constant = node.asConstant())
        return {constant->getToken()};
    if (auto const access = node.asMemberAccess())
        return {access->getNameToken()};
    if (auto const binary = node.asBinaryOp())
        return {binary->getOperatorToken()};
    if (auto const unary = node.asUnary())
        return {unary->getOperatorToken()};
    return {};
}

std::string qualifiedMember(ModelDeclPtr const& model, std::string const& name) {
    return model ? model->getNameWithNamespace(".") + "." + name : std::string();
}

} // namespace

std::optional<TreeNode> viewDocument(DocPtr const& document, std::shared_ptr<SourceTexts> texts) {
    if (!document)
        return {};
    return TreeNode(std::make_shared<TreeView>(std::move(texts)), document, document);
}

TreeNode viewNode(NodePtr const& node, std::shared_ptr<SourceTexts> texts) {
    return {std::make_shared<TreeView>(std::move(texts)), documentOf(*node), node};
}

TreeNode::TreeNode(std::shared_ptr<TreeView> view, DocPtr document, NodePtr node, Part part,
                   std::size_t index)
    : view_(std::move(view)),
      document_(std::move(document)),
      node_(std::move(node)),
      part_(part),
      index_(index) {}

std::string_view TreeNode::getKind() const {
    switch (part_) {
    case Part::TypePath: {
        auto const model = node_->asModelDeclaration();
        return model && model->isExternal() ? "external" : "type";
    }
    case Part::TypeSegment: return index_ + 1 < typePathOf(*node_).size ? "namespace" : "name";
    case Part::Segment: return node_->isImport() ? "namespace" : "name";
    case Part::NamespacePath: return "namespace";
    case Part::Whole:
    case Part::Callee:
    case Part::ModelPath: break;
    }
    return kindOfWhole(*subject());
}

std::string TreeNode::getName() const {
    auto const tokens = nameTokens();
    if (node_->isImport() && part_ == Part::Whole)
        return Token::extractString(tokens.front());
    return Node::segmentsAsString(tokens);
}

SourceRange TreeNode::getNameRange() const {
    auto const tokens = nameTokens();
    if (tokens.empty())
        return rangeOf({}, {});
    return rangeOf(tokens.front().position(), view_->endOf(tokens.back(), document_.get()));
}

SourceRange TreeNode::getRange() const {
    if (part_ == Part::Segment || part_ == Part::TypeSegment)
        return getNameRange();
    if (part_ == Part::TypePath) {
        // The brackets of an array stand behind the path.
        auto const tokens = typePathOf(*node_).tokens;
        return rangeOf(tokens.front().position(), view_->endOf(tokens.back(), document_.get()));
    }
    auto const node = subject();
    auto const last = lastTokenOf(*node);
    auto end = last ? view_->endOf(*last, document_.get()) : Position();
    if (auto const document = node->asDocument()) {
        auto const end_of_text = view_->endOfText(*document);
        end = end_of_text.line == 0 ? end : end_of_text;
    }
    return rangeOf(beginOf(*node), end);
}

std::string TreeNode::getSourceId() const {
    if (document_)
        return document_->getSourceId();
    auto const attribute = node_->asVarAssignment();
    return attribute ? attribute->getSourceId() : std::string();
}

std::string TreeNode::getQualifiedName() const {
    if (part_ != Part::Whole)
        return {};
    if (auto const model = node_->asModelDeclaration())
        return model->getNameWithNamespace(".");
    if (auto const method = node_->asMethodDeclaration())
        return qualifiedMember(method->getOwningModel(), method->getName());
    if (auto const attribute = node_->asVarAssignment())
        return qualifiedMember(attribute->getOwningModel(), attribute->getName());
    return {};
}

std::string TreeNode::getNativeKey() const {
    if (part_ != Part::Whole)
        return {};
    if (auto const model = node_->asModelDeclaration())
        return model->getNameWithNamespace("::");
    if (auto const overload = node_->asOperatorOverload())
        return overload->getOverloadName();
    auto const method = node_->asMethodDeclaration();
    auto const owner = method && method->isStatic() ? method->getOwningModel() : nullptr;
    return owner ? owner->getNameWithNamespace("::") + "::" + method->getName() : std::string();
}

bool TreeNode::isTrait() const {
    return part_ == Part::Whole && node_->isModelDeclaration() && node_->asModelDeclaration()->isTrait();
}

bool TreeNode::isConst() const {
    return part_ == Part::Whole && node_->isModelDeclaration() && node_->asModelDeclaration()->isConst();
}

bool TreeNode::isExternal() const {
    return part_ == Part::Whole && node_->isModelDeclaration() && node_->asModelDeclaration()->isExternal();
}

bool TreeNode::isStatic() const {
    return part_ == Part::Whole && node_->isMethodDeclaration() && node_->asMethodDeclaration()->isStatic();
}

bool TreeNode::isRedeclaration() const {
    auto const attribute = part_ == Part::Whole ? node_->asVarAssignment() : nullptr;
    return attribute && attribute->getOperatorType() == TokenType::Becomes;
}

bool TreeNode::isValid() const { return subject()->isValid(); }

bool TreeNode::isSame(TreeNode const& other) const {
    return node_ == other.node_ && part_ == other.part_ && index_ == other.index_;
}

std::size_t TreeNode::hash() const {
    constexpr std::size_t spread = 31;
    return (std::hash<NodePtr>()(node_) * spread + static_cast<std::size_t>(part_)) * spread + index_;
}

NodePtr TreeNode::subject() const {
    auto const call = part_ == Part::Callee ? node_->asCall() : nullptr;
    return call ? NodePtr(call->getCallee()) : node_;
}

TokenVector TreeNode::pathTokens() const {
    bool const is_type = part_ == Part::TypePath || part_ == Part::TypeSegment;
    return is_type ? typePathOf(*node_).tokens : segmentsOf(*node_);
}

TokenVector TreeNode::nameTokens() const {
    if (part_ == Part::Segment || part_ == Part::TypeSegment)
        return {pathTokens()[index_]};
    auto const type_path = typePathOf(*node_);
    if (part_ == Part::TypePath || node_->isTraitImpl()) {
        auto const& tokens = type_path.tokens;
        return {tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(type_path.size)};
    }
    if (node_->isVarAssignment() || node_->isDeletion())
        return segmentsOf(*node_);
    return nameTokensOf(*subject());
}

SourceRange TreeNode::rangeOf(Position begin, Position end) const {
    if (begin.line == 0 || end.line == 0)
        return {getSourceId(), 0, 0, 0, 0};
    return {getSourceId(), begin.line, begin.column, end.line, end.column};
}

std::optional<TreeNode> TreeNode::viewElsewhere(NodePtr const& node) const {
    if (!node)
        return {};
    auto const original = originalOf(node);
    return TreeNode(view_, documentOf(*original), original);
}

} // namespace Slate::Host
