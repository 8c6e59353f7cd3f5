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
    explicit OpeningVisitor(std::string& out) : out_(out) {}

    void visitConstant(ConstantPtr const& node) override {
        out_ += dumpToken(node->getToken());
        auto const& first = node->getFirstToken();
        auto const& last = node->getLastToken();
        if (first != node->getToken() || last != node->getToken())
            fmt::format_to(std::back_inserter(out_), "[{}:{}-{}:{}]", first.line, first.column, last.line,
                           last.column);
    }

    void visitUnary(UnaryPtr const& node) override {
        fmt::format_to(std::back_inserter(out_), "({} {})", node->getOperatorToken().lexeme,
                       dumpExpression(node->getOperand()));
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
            out_ += " " + dumpExpression(element);
        out_ += ")";
    }

    std::string& out_;
};

/// Writes the part of a link that stands behind its chain operand.
class ClosingVisitor : public NodeVisitor {
  public:
    explicit ClosingVisitor(std::string& out) : out_(out) {}

    void visitBinaryOp(BinaryOpPtr const& node) override {
        out_ += " " + dumpExpression(node->getRhs()) + ")";
    }

    void visitCall(CallPtr const& node) override {
        for (auto const& argument : node->getArguments())
            out_ += " " + dumpExpression(argument);
        out_ += ")";
    }

    void visitMemberAccess(MemberAccessPtr const& node) override {
        out_ += " " + dumpToken(node->getNameToken()) + ")";
    }

    void visitIndexing(IndexingPtr const& node) override {
        out_ += " " + dumpExpression(node->getIndex()) + ")";
    }

  private:
    std::string& out_;
};

void writeSpan(std::string& out, Expression const& expression) {
    auto const& first = expression.getFirstToken();
    auto const& last = expression.getLastToken();
    fmt::format_to(std::back_inserter(out), "@{}:{}-{}:{}", first.line, first.column, last.line, last.column);
}

} // namespace

std::string dumpExpression(ExpressionPtr const& expression) {
    std::string out;
    OpeningVisitor opening(out);
    ClosingVisitor closing(out);

    vec<Expression*> chain;
    for (auto* link = expression.get(); link != nullptr; link = link->getChainOperand().get()) {
        link->accept(opening);
        chain.push_back(link);
    }
    for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
        (*link)->accept(closing);
        if (!(*link)->isConstant())
            writeSpan(out, **link);
    }
    return out;
}

} // namespace Slate::Testing
