#include "slate/testing/PrintSource.h"

#include "slate/Annotation.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/testing/PrintExpression.h"

namespace Slate::Testing {

namespace {

std::string printPath(TokenVector const& segments) {
    std::string text;
    for (auto const& segment : segments) {
        if (segment.type != TokenType::Identifier)
            text += segment.lexeme; // a bracket
        else
            text += (text.empty() ? "" : ".") + printName(segment);
    }
    return text;
}

class PrintVisitor : public NodeVisitor {
  public:
    std::string takeText() { return std::move(text_); }

    void visitDocument(DocPtr const& node) override { printAll(node->getMembers()); }

    void visitModelDeclaration(ModelDeclPtr const& node) override {
        auto line = word(node->getQualifierToken()) + printName(node->getNameToken());
        if (!node->getExtendsSegments().empty())
            line += " is " + word(node->getExtendsQualifierToken()) + printPath(node->getExtendsSegments());
        bool const has_body = !node->getAnnotations().empty() || !node->getTraits().empty() ||
                              !node->getDeletions().empty() || !node->getMembers().empty();
        printLine(line + (has_body ? ":" : ""));
        Body const body(*this);
        printAll(node->getAnnotations());
        printAll(node->getTraits());
        printAll(node->getDeletions());
        printAll(node->getMembers());
    }

    void visitVarAssignment(VarAssignPtr const& node) override {
        auto line = printPath(node->getSegments());
        if (node->isDeclaration())
            line += " " + word(node->getOperatorToken()) + printPath(node->getTypeSegments());
        bool const has_body = !node->getAnnotations().empty() || !node->getMembers().empty();
        if (node->getValue())
            line += ": " + printExpression(node->getValue());
        else if (has_body)
            line += ":";
        else if (indentation_.empty())
            line += ": )"; // what is no expression leaves the variable without a value
        printLine(line);
        Body const body(*this);
        printAll(node->getAnnotations());
        printAll(node->getMembers());
    }

    void visitMethodDeclaration(MethodDeclPtr const& node) override {
        printLine(word(node->getStaticToken()) + "fn " + printName(node->getNameToken()) +
                  printSignature(node->getParameters(), node->getReturnSegments()));
    }

    void visitOperatorOverload(OpOverloadPtr const& node) override {
        printLine("operator " + node->getOperatorToken().lexeme + " " +
                  printSignature(node->getParameters(), node->getReturnSegments()));
    }

    void visitAnnotation(AnnotationPtr const& node) override {
        printLine("." + printName(node->getNameToken()) + ": " + printExpression(node->getValue()));
    }

    void visitImport(ImportPtr const& node) override {
        auto const& alias = node->getAliasSegments();
        printLine("import " + node->getPathToken().lexeme + (alias.empty() ? "" : " as " + printPath(alias)) +
                  (node->getAnnotations().empty() ? "" : ":"));
        Body const body(*this);
        printAll(node->getAnnotations());
    }

    void visitTraitImpl(TraitImplPtr const& node) override {
        printLine("with " + printPath(node->getSegments()));
    }

    void visitDeletion(DeletionPtr const& node) override {
        printLine("delete " + printPath(node->getSegments()));
    }

  private:
    /// Further to the right, for as long as it lives. One column a level, for levels may be many.
    class Body {
      public:
        explicit Body(PrintVisitor& visitor) : indentation_(visitor.indentation_) { indentation_ += ' '; }

        ~Body() { indentation_.pop_back(); }

        Body(Body const&) = delete;
        Body& operator=(Body const&) = delete;

      private:
        std::string& indentation_;
    };

    /// An optional keyword and the blank behind it.
    static std::string word(Token const& keyword) {
        return keyword.type == TokenType::None ? "" : keyword.lexeme + " ";
    }

    static std::string printSignature(vec<ParamPtr> const& parameters, TokenVector const& return_segments) {
        std::string text;
        for (auto const& parameter : parameters) {
            text += (text.empty() ? "" : ", ") + printName(parameter->getNameToken()) + ": " +
                    printPath(parameter->getTypeSegments());
        }
        return "(" + text + ")" + (return_segments.empty() ? "" : " -> " + printPath(return_segments));
    }

    void printLine(std::string const& line) { text_ += indentation_ + line + "\n"; }

    template <typename Element>
    void printAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }

    std::string text_;
    std::string indentation_;
};

} // namespace

std::string printSource(Document& document) {
    PrintVisitor visitor;
    document.accept(visitor);
    return visitor.takeText();
}

} // namespace Slate::Testing
