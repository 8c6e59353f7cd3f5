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

#include <fmt/format.h>

#include <iterator>

namespace Slate::Testing {

namespace {

/// Writes the part of a link that stands in front of its chain operand, or the whole of what is no link.
class OpeningVisitor : public NodeVisitor {
  public:
    OpeningVisitor(std::string& out, Positions positions) : out_(out), positions_(positions) {}

    void visitConstant(ConstantPtr const& node) override {
        out_ += dumpToken(node->getToken(), positions_);
        auto const& first = node->getFirstToken();
        auto const& last = node->getLastToken();
        if (positions_ == Positions::Shown && (first != node->getToken() || last != node->getToken()))
            fmt::format_to(std::back_inserter(out_), "[{}:{}-{}:{}]", first.line, first.column, last.line,
                           last.column);
    }

    void visitUnary(UnaryPtr const& node) override {
        fmt::format_to(std::back_inserter(out_), "({} {})", node->getOperatorToken().lexeme,
                       dumpExpression(node->getOperand(), positions_));
    }

    void visitArray(ArrayPtr const& node) override { writeList("(array", node->getElements()); }

    void visitInitializer(InitializerPtr const& node) override { writeList("(init", node->getElements()); }

    void visitBinaryOp(BinaryOpPtr const& node) override {
        out_ += "(" + node->getOperatorToken().lexeme + " ";
    }

    void visitCall(CallPtr const& /*node*/) override { out_ += "(call "; }

    void visitMemberAccess(MemberAccessPtr const& /*node*/) override { out_ += "(. "; }

    void visitIndexing(IndexingPtr const& /*node*/) override { out_ += "(index "; }

  private:
    void writeList(char const* opening, vec<ExpressionPtr> const& elements) {
        out_ += opening;
        for (auto const& element : elements)
            out_ += " " + dumpExpression(element, positions_);
        out_ += ")";
    }

    std::string& out_;
    Positions const positions_;
};

/// Writes the part of a link that stands behind its chain operand.
class ClosingVisitor : public NodeVisitor {
  public:
    ClosingVisitor(std::string& out, Positions positions) : out_(out), positions_(positions) {}

    void visitBinaryOp(BinaryOpPtr const& node) override {
        out_ += " " + dumpExpression(node->getRhs(), positions_) + ")";
    }

    void visitCall(CallPtr const& node) override {
        for (auto const& argument : node->getArguments())
            out_ += " " + dumpExpression(argument, positions_);
        out_ += ")";
    }

    void visitMemberAccess(MemberAccessPtr const& node) override {
        out_ += " " + dumpToken(node->getNameToken(), positions_) + ")";
    }

    void visitIndexing(IndexingPtr const& node) override {
        out_ += " " + dumpExpression(node->getIndex(), positions_) + ")";
    }

  private:
    std::string& out_;
    Positions const positions_;
};

void writeSpan(std::string& out, Expression const& expression) {
    auto const& first = expression.getFirstToken();
    auto const& last = expression.getLastToken();
    fmt::format_to(std::back_inserter(out), "@{}:{}-{}:{}", first.line, first.column, last.line, last.column);
}

} // namespace

std::string dumpExpression(ExpressionPtr const& expression, Positions positions) {
    std::string out;
    OpeningVisitor opening(out, positions);
    ClosingVisitor closing(out, positions);

    vec<Expression*> chain;
    for (auto* link = expression.get(); link != nullptr; link = link->getChainOperand().get()) {
        link->accept(opening);
        chain.push_back(link);
    }
    for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
        (*link)->accept(closing);
        if (positions == Positions::Shown && !(*link)->isConstant())
            writeSpan(out, **link);
    }
    return out;
}

} // namespace Slate::Testing
