#include "slate/testing/TreeDump.h"

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

namespace Slate::Testing {

namespace {

std::string dumpSegments(TokenVector const& segments) {
    std::string text;
    for (auto const& segment : segments)
        text += (text.empty() ? "" : ".") + dumpToken(segment);
    return text;
}

class DumpVisitor : public NodeVisitor {
  public:
    std::string takeText() { return std::move(text_); }

    void visitDocument(DocPtr const& node) override { writeAll(node->getMembers()); }

    void visitModelDeclaration(ModelDeclPtr const& node) override {
        auto line = "model " + optional("", node->getQualifierToken(), " ") + dumpToken(node->getNameToken());
        auto const qualifier = optional("", node->getExtendsQualifierToken(), " ");
        if (!qualifier.empty() || !node->getExtendsSegments().empty())
            line += " is " + qualifier + dumpSegments(node->getExtendsSegments());
        writeLine(line);
        Indentation const indentation(*this);
        writeAll(node->getAnnotations());
        writeAll(node->getTraits());
        writeAll(node->getDeletions());
        writeAll(node->getMembers());
    }

    void visitVarAssignment(VarAssignPtr const& node) override {
        auto line =
            "attribute " + dumpSegments(node->getSegments()) + optional(" ", node->getOperatorToken(), "");
        if (node->isDeclaration())
            line += " " + dumpSegments(node->getTypeSegments());
        if (node->getValue())
            line += ": " + dumpExpression(node->getValue());
        writeLine(line);
        Indentation const indentation(*this);
        writeAll(node->getAnnotations());
        writeAll(node->getMembers());
    }

    void visitMethodDeclaration(MethodDeclPtr const& node) override {
        writeLine("method " + optional("", node->getStaticToken(), " ") + dumpToken(node->getNameToken()) +
                  returnType(node->getReturnSegments()));
        Indentation const indentation(*this);
        writeAll(node->getParameters());
    }

    void visitOperatorOverload(OpOverloadPtr const& node) override {
        writeLine("operator " + dumpToken(node->getOperatorToken()) + returnType(node->getReturnSegments()));
        Indentation const indentation(*this);
        writeAll(node->getParameters());
    }

    void visitParameter(ParamPtr const& node) override {
        writeLine("parameter " + dumpToken(node->getNameToken()) + ": " +
                  dumpSegments(node->getTypeSegments()));
    }

    void visitAnnotation(AnnotationPtr const& node) override {
        writeLine("annotation " + dumpToken(node->getNameToken()) + ": " + dumpExpression(node->getValue()));
    }

    void visitImport(ImportPtr const& node) override {
        auto const& alias = node->getAliasSegments();
        writeLine("import " + dumpToken(node->getPathToken()) +
                  (alias.empty() ? "" : " as " + dumpSegments(alias)));
        Indentation const indentation(*this);
        writeAll(node->getAnnotations());
    }

    void visitTraitImpl(TraitImplPtr const& node) override {
        writeLine("with " + dumpSegments(node->getSegments()));
    }

    void visitDeletion(DeletionPtr const& node) override {
        writeLine("delete " + dumpSegments(node->getSegments()));
    }

  private:
    /// One level of indentation, for as long as it lives.
    class Indentation {
      public:
        explicit Indentation(DumpVisitor& visitor) : indentation_(visitor.indentation_) {
            indentation_ += "  ";
        }

        ~Indentation() { indentation_.resize(indentation_.size() - 2); }

        Indentation(Indentation const&) = delete;
        Indentation& operator=(Indentation const&) = delete;

      private:
        std::string& indentation_;
    };

    static std::string optional(char const* before, Token const& token, char const* behind) {
        return token.type == TokenType::None ? "" : before + dumpToken(token) + behind;
    }

    static std::string returnType(TokenVector const& segments) {
        return segments.empty() ? "" : " -> " + dumpSegments(segments);
    }

    void writeLine(std::string const& line) { text_ += indentation_ + line + "\n"; }

    template <typename Element>
    void writeAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }

    std::string text_;
    std::string indentation_;
};

} // namespace

std::string dumpTree(Document& document) {
    DumpVisitor visitor;
    document.accept(visitor);
    return visitor.takeText();
}

} // namespace Slate::Testing
