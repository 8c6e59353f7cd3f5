#include "slate/testing/PrintExpression.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/NodeVisitor.h"
#include "slate/Unary.h"
#include "slate/testing/TreeDump.h"

namespace Slate::Testing {

namespace {

bool isAdditive(BinaryOp const& operation) {
    auto const type = operation.getOperatorToken().type;
    return type == TokenType::Plus || type == TokenType::Minus;
}

/// Must a left operand of this link stand in parentheses?
bool encloses(Expression& link, Expression& operand) {
    auto const inner = operand.asBinaryOp();
    if (auto const outer = link.asBinaryOp())
        return inner && !isAdditive(*outer) && isAdditive(*inner);
    return inner || operand.asUnary();
}

bool isRightOperandEnclosed(BinaryOp const& operation) {
    auto const inner = operation.getRhs()->asBinaryOp();
    return inner && (!isAdditive(operation) || isAdditive(*inner));
}

std::string inParentheses(ExpressionPtr const& expression) { return "(" + printExpression(expression) + ")"; }

std::string printList(vec<ExpressionPtr> const& elements) {
    std::string text;
    for (auto const& element : elements)
        text += (text.empty() ? "" : ", ") + printExpression(element);
    return text;
}

/// Writes the innermost link of a chain, and all of what is no link.
class InnermostVisitor : public NodeVisitor {
  public:
    explicit InnermostVisitor(std::string& out) : out_(out) {}

    void visitConstant(ConstantPtr const& node) override {
        auto const& token = node->getToken();
        out_ += token.type == TokenType::Identifier ? printName(token) : token.lexeme;
    }

    void visitUnary(UnaryPtr const& node) override {
        auto const& operand = node->getOperand();
        out_ += "-" + (operand->asBinaryOp() ? inParentheses(operand) : printExpression(operand));
    }

    void visitArray(ArrayPtr const& node) override { out_ += "[" + printList(node->getElements()) + "]"; }

    void visitInitializer(InitializerPtr const& node) override {
        out_ += "{" + printList(node->getElements()) + "}";
    }

  private:
    std::string& out_;
};

/// Writes the part of a link that stands behind its chain operand.
class RestVisitor : public NodeVisitor {
  public:
    explicit RestVisitor(std::string& out) : out_(out) {}

    void visitBinaryOp(BinaryOpPtr const& node) override {
        auto const& rhs = node->getRhs();
        out_ += " " + node->getOperatorToken().lexeme + " " +
                (isRightOperandEnclosed(*node) ? inParentheses(rhs) : printExpression(rhs));
    }

    void visitCall(CallPtr const& node) override { out_ += "(" + printList(node->getArguments()) + ")"; }

    void visitMemberAccess(MemberAccessPtr const& node) override {
        // A dot behind a number would be one of its digits.
        auto const constant = node->getLhs()->asConstant();
        bool const is_behind_number = constant && constant->getTokenType() == TokenType::Number;
        out_ += (is_behind_number ? " ." : ".") + printName(node->getNameToken());
    }

    void visitIndexing(IndexingPtr const& node) override {
        out_ += "[" + printExpression(node->getIndex()) + "]";
    }

  private:
    std::string& out_;
};

} // namespace

std::string printName(Token const& name) {
    return isPlainName(name.lexeme) ? name.lexeme : "`" + name.lexeme + "`";
}

std::string printExpression(ExpressionPtr const& expression) {
    std::string out;
    vec<Expression*> chain;
    for (auto* link = expression.get(); link != nullptr; link = link->getChainOperand().get()) {
        if (!chain.empty() && encloses(*chain.back(), *link))
            out += "(";
        chain.push_back(link);
    }
    InnermostVisitor innermost(out);
    chain.back()->accept(innermost);
    RestVisitor rest(out);
    for (auto link = chain.rbegin() + 1; link != chain.rend(); ++link) {
        if (encloses(**link, **(link - 1)))
            out += ")";
        (*link)->accept(rest);
    }
    return out;
}

} // namespace Slate::Testing
