// The walk along a chain, and names.

#include "slate/ExpressionBinder.h"

#include "slate/AnalysisErrors.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/ModelType.h"
#include "slate/NamePath.h"
#include "slate/Unary.h"

#include <utility>

namespace Slate::Analysis {

namespace {

/// The type that a global name stands for: that of a variable, or a const model itself.
TypePtr typeOfGlobal(Node& node) {
    auto const variable = node.asVarAssignment();
    return variable ? variable->getOwnType() : node.asType();
}

bool isIntegerLiteral(std::string_view number) {
    return number.find_first_of(".eE") == std::string_view::npos;
}

} // namespace

ExpressionBinder::ExpressionBinder(std::shared_ptr<AnalysisContext> context, InheritedNames const& names)
    : context_(std::move(context)), names_(names), operators_(context_->findAllDocuments()) {}

void ExpressionBinder::setScope(DocPtr const& document, TypePtr const& outer_type) {
    document_ = document;
    outer_type_ = outer_type;
}

void ExpressionBinder::bind(ExpressionPtr const& expression) {
    if (expression && expression->isConstant()) {
        if (expression->isValid())
            bindConstant(static_cast<Constant&>(*expression));
        return;
    }
    Chain chain;
    auto const opened_around = opened_.size();
    for (auto link = expression; link && link->isValid();)
        link = open(chain, link);
    while (opened_.size() > opened_around) {
        auto const link = std::move(opened_.back());
        opened_.pop_back();
        close(chain, link);
    }
}

ExpressionPtr ExpressionBinder::open(Chain& chain, ExpressionPtr const& link) {
    switch (link->getNodeType()) {
    case NodeType::MemberAccess: return openMemberAccess(chain, link->asMemberAccess());
    case NodeType::Call: return openCall(chain, link->asCall());
    case NodeType::BinaryOp:
    case NodeType::Indexing: opened_.push_back({link, 0}); return link->getChainOperand();
    case NodeType::Constant: bindConstant(*link->asConstant()); break;
    case NodeType::Unary: bindUnary(*link->asUnary()); break;
    case NodeType::Array: bindArray(link->asArray()); break;
    case NodeType::Initializer: bindInitializer(link->asInitializer()); break;
    default: break;
    }
    return {};
}

void ExpressionBinder::close(Chain const& chain, Link const& link) {
    auto const& expression = link.expression;
    if (auto const access = expression->asMemberAccess())
        closeMemberAccess(chain, *access, link.name_count);
    else if (auto const call = expression->asCall())
        closeCall(*call);
    else if (auto const binary = expression->asBinaryOp())
        closeBinaryOp(*binary);
    else if (auto const indexing = expression->asIndexing())
        closeIndexing(*indexing);
}

void ExpressionBinder::bindConstant(Constant& node) {
    switch (node.getTokenType()) {
    case TokenType::Number: node.setType(isIntegerLiteral(node.getLexeme()) ? int_ : real_); break;
    case TokenType::String:
    case TokenType::MultilineString: node.setType(string_); break;
    case TokenType::True:
    case TokenType::False: node.setType(bool_); break;
    case TokenType::Identifier: bindName(node); break;
    default: break;
    }
}

void ExpressionBinder::bindName(Constant& node) {
    auto const name = node.getLexeme();
    TypePtr type;
    if (name == "this") {
        type = outer_type_;
    } else if (auto const global = document_ ? document_->nsLookupConstOrVar(name) : nullptr) {
        type = typeOfGlobal(*global);
        node.setDeclaration(global);
    } else if (auto const model = outerModel()) {
        if (auto const attribute = names_.lookupDeclaration(*model, name)) {
            type = attribute->getOwnType();
            node.setDeclaration(attribute);
        }
    }
    if (type) {
        node.setType(type);
        return;
    }
    report(ErrVariableNotFound, node.getToken());
    node.setValid(false);
}

// A global name goes before a member.
ExpressionPtr ExpressionBinder::openMemberAccess(Chain& chain, MemberAccessPtr const& node) {
    auto const count = countNames(chain, *node);
    auto const global = findGlobal(chain, count);
    if (auto const type = global ? typeOfGlobal(*global) : nullptr) {
        node->setType(type);
        return {};
    }
    opened_.push_back({node, count});
    chain.name_count = count > 0 ? count - 1 : 0;
    return node->getLhs();
}

std::size_t ExpressionBinder::countNames(Chain& chain, MemberAccess const& node) const {
    if (chain.name_count == 0) {
        chain.names = namePathOf(node).value_or(vec<CompactToken const*>());
        chain.name_count = chain.names.size();
    }
    return chain.name_count;
}

/// What the first names of the chain mean to the document.
NodePtr ExpressionBinder::findGlobal(Chain const& chain, std::size_t name_count) const {
    if (!document_ || name_count == 0 || name_count - 1 > document_->countDotsOfLongestName())
        return {};
    return document_->nsLookupConstOrVar(joinNames(chain.names, name_count));
}

void ExpressionBinder::closeMemberAccess(Chain const& chain, MemberAccess& node, std::size_t name_count) {
    auto const& lhs = node.getLhs();
    auto const model = lhs ? asModel(lhs->getType()) : nullptr;
    if (!model) {
        if (lhs && lhs->isValid())
            report(ErrMemberNotFound, node.getNameToken());
        node.setValid(false);
        return;
    }
    auto member = names_.findFirstMemberWithType(*model, node.getName());
    if (!member && !lhs->isValid())
        return;
    if (!member && name_count > 0)
        member = findByPath(chain, node, name_count);
    if (!member) {
        reportMissingMember(node, node.getNameToken());
        return;
    }
    node.setType(member->getOwnType());
    node.setDeclaration(member);
}

/// What is declared by a path of names, or in a trait.
VarAssignPtr ExpressionBinder::findByPath(Chain const& chain, MemberAccess const& node,
                                          std::size_t name_count) const {
    auto const first_ix = chain.names.front()->lexeme() == "this" ? 1U : 0U;
    auto const model = outerModel();
    if (model && name_count - first_ix <= names_.countSegmentsOfLongestSymbol()) {
        if (auto member = names_.lookupDeclaration(*model, joinNames(chain.names, first_ix, name_count)))
            return member;
    }

    // From the operand of the operand by two names, then from the operand by one.
    auto const outer_access = node.getLhs()->asMemberAccess();
    auto const name = node.getName();
    if (outer_access && names_.countSegmentsOfLongestSymbol() > 1) {
        auto const outer_operand = asModel(outer_access->getLhs()->getType());
        auto const path = std::string(outer_access->getName()).append(".").append(name);
        if (auto member = outer_operand ? names_.lookupDeclaration(*outer_operand, path) : nullptr)
            return member;
    }
    return names_.lookupDeclaration(*asModel(node.getLhs()->getType()), name);
}

ModelDeclPtr ExpressionBinder::outerModel() const { return asModel(outer_type_); }

void ExpressionBinder::rejectType(Expression& expression) {
    report(ErrTypeMismatch, expression.getFirstToken());
    expression.setValid(false);
}

void ExpressionBinder::reportMissingMember(Expression& node, Token const& token) {
    report(ErrMemberNotFound, token);
    node.setValid(false);
}

void ExpressionBinder::report(ErrorCode code, Token const& token) {
    auto const source_id = document_ ? document_->getSourceId() : std::string();
    auto const& reporter = context_->getErrorReporter();
    if (code == ErrVariableNotFound)
        reporter->reportError(VariableNotFound::create(token.line, token.column, source_id, token.lexeme));
    else if (code == ErrMemberNotFound)
        reporter->reportError(MemberNotFound::create(token, source_id));
    else
        reporter->reportError(Error::create(code, token.line, token.column, source_id));
}

} // namespace Slate::Analysis
