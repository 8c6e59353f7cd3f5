#include "slate/Annotation.h"
#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

namespace Slate::Testing {

namespace {

std::string typeName(TypePtr const& type) { return type ? type->toString() : "?"; }

std::string mark(Node const& node) { return node.isValid() ? "" : "!"; }

std::string dumpList(vec<ExpressionPtr> const& elements) {
    std::string text;
    for (auto const& element : elements)
        text += (text.empty() ? "" : ", ") + dumpTypes(element);
    return text;
}

/// An expression without its own type.
class ExpressionVisitor : public NodeVisitor {
  public:
    std::string takeText() { return std::move(text_); }

    void visitConstant(ConstantPtr const& node) override { text_ = node->getToken().lexeme; }

    void visitCall(CallPtr const& node) override {
        text_ = dumpTypes(node->getCallee()) + "(" + dumpList(node->getArguments()) + ")";
        if (auto const method = node->getMethod())
            text_ += "->" + method->toKey();
    }

    void visitMemberAccess(MemberAccessPtr const& node) override {
        text_ = dumpTypes(node->getLhs()) + "." + node->getNameToken().lexeme;
    }

    void visitArray(ArrayPtr const& node) override { text_ = "[" + dumpList(node->getElements()) + "]"; }

    void visitInitializer(InitializerPtr const& node) override {
        text_ = "{" + dumpList(node->getElements()) + "}";
    }

    void visitUnary(UnaryPtr const& node) override {
        text_ = "(" + node->getOperatorToken().lexeme + dumpTypes(node->getOperand()) + ")" +
                overload(node->getOverload());
    }

    void visitBinaryOp(BinaryOpPtr const& node) override {
        text_ = "(" + dumpTypes(node->getLhs()) + " " + node->getOperatorToken().lexeme + " " +
                dumpTypes(node->getRhs()) + ")" + overload(node->getOverload());
    }

    void visitIndexing(IndexingPtr const& node) override {
        text_ = dumpTypes(node->getLhs()) + "[" + dumpTypes(node->getIndex()) + "]";
    }

  private:
    static std::string overload(OpOverloadPtr const& node) {
        return node ? "->" + node->getOverloadName() : "";
    }

    std::string text_;
};

class BindingVisitor : public NodeVisitor {
  public:
    std::string takeText() { return std::move(text_); }

    void visitDocument(DocPtr const& node) override { acceptAll(node->getMembers()); }

    void visitModelDeclaration(ModelDeclPtr const& node) override {
        auto line = "model " + node->getNameWithNamespace(".");
        if (auto const extended = node->getExtends())
            line += " is " + extended->getNameWithNamespace(".");
        write(*node, line);
        indentation_ += "  ";
        acceptAll(node->getAnnotations());
        acceptAll(node->getTraits());
        acceptAll(node->getMembers());
        indentation_.resize(indentation_.size() - 2);
    }

    void visitTraitImpl(TraitImplPtr const& node) override {
        auto const trait = node->getTraitDeclaration();
        write(*node, "with " + (trait ? trait->getNameWithNamespace(".") : "?"));
        indentation_ += "  ";
        if (node->getNestedTrait())
            node->getNestedTrait()->accept(*this);
        acceptAll(node->getAnnotations());
        acceptAll(node->getMembers());
        indentation_.resize(indentation_.size() - 2);
    }

    void visitVarAssignment(VarAssignPtr const& node) override {
        auto line = node->getName() + ": " + typeName(node->getType());
        std::string targets;
        for (auto const& target : node->getTargetDeclarations())
            targets += (targets.empty() ? "" : " ") + ownerOf(target);
        if (!targets.empty())
            line += " [" + targets + "]";
        if (node->getValue())
            line += (node->isValueSupplied() ? " supplied " : " = ") + dumpTypes(node->getValue());
        write(*node, line);
        indentation_ += "  ";
        acceptAll(node->getAnnotations());
        acceptAll(node->getMembers());
        indentation_.resize(indentation_.size() - 2);
    }

    void visitAnnotation(AnnotationPtr const& node) override {
        write(*node, "." + node->getName() + " = " + dumpTypes(node->getValue()));
    }

    void visitMethodDeclaration(MethodDeclPtr const& node) override {
        write(*node,
              "fn " + node->toKey() + parameters(node->getParameters()) + typeName(node->getReturnType()));
    }

    void visitOperatorOverload(OpOverloadPtr const& node) override {
        write(*node, "operator " + node->getOperatorToken().lexeme + parameters(node->getParameters()) +
                         typeName(node->getReturnType()));
    }

  private:
    static std::string ownerOf(VarAssignPtr const& target) {
        if (!target)
            return "?";
        auto const model = target->getOwningModel();
        return (model ? model->getNameWithNamespace(".") + "." : "") + target->getName();
    }

    static std::string parameters(vec<ParamPtr> const& nodes) {
        std::string text;
        for (auto const& node : nodes)
            text += (text.empty() ? "" : ", ") + mark(*node) + typeName(node->getType());
        return "(" + text + ") -> ";
    }

    void write(Node const& node, std::string const& line) {
        text_ += indentation_ + mark(node) + line + "\n";
    }

    template <typename Element>
    void acceptAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }

    std::string text_;
    std::string indentation_;
};

} // namespace

std::string dumpTypes(ExpressionPtr const& expression) {
    if (!expression)
        return "none";
    ExpressionVisitor visitor;
    expression->accept(visitor);
    return mark(*expression) + visitor.takeText() + ":" + typeName(expression->getType());
}

std::string dumpBindings(Document& document) {
    BindingVisitor visitor;
    document.accept(visitor);
    return visitor.takeText();
}

} // namespace Slate::Testing
