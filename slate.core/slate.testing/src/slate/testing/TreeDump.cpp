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

class DumpVisitor : public NodeVisitor {
  public:
    explicit DumpVisitor(Positions positions) : positions_(positions) {}

    std::string takeText() { return std::move(text_); }

    void visitDocument(DocPtr const& node) override { writeAll(node->getMembers()); }

    void visitModelDeclaration(ModelDeclPtr const& node) override {
        auto line = "model " + optional("", node->getQualifierToken(), " ") + dump(node->getNameToken());
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
            line += ": " + dumpExpression(node->getValue(), positions_);
        writeLine(line);
        Indentation const indentation(*this);
        writeAll(node->getAnnotations());
        writeAll(node->getMembers());
    }

    void visitMethodDeclaration(MethodDeclPtr const& node) override {
        writeLine("method " + optional("", node->getStaticToken(), " ") + dump(node->getNameToken()) +
                  returnType(node->getReturnSegments()));
        Indentation const indentation(*this);
        writeAll(node->getParameters());
    }

    void visitOperatorOverload(OpOverloadPtr const& node) override {
        writeLine("operator " + dump(node->getOperatorToken()) + returnType(node->getReturnSegments()));
        Indentation const indentation(*this);
        writeAll(node->getParameters());
    }

    void visitParameter(ParamPtr const& node) override {
        writeLine("parameter " + dump(node->getNameToken()) + ": " + dumpSegments(node->getTypeSegments()));
    }

    void visitAnnotation(AnnotationPtr const& node) override {
        writeLine("annotation " + dump(node->getNameToken()) + ": " +
                  dumpExpression(node->getValue(), positions_));
    }

    void visitImport(ImportPtr const& node) override {
        auto const& alias = node->getAliasSegments();
        writeLine("import " + dump(node->getPathToken()) +
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

    std::string dump(Token const& token) const { return dumpToken(token, positions_); }

    std::string dumpSegments(TokenVector const& segments) const {
        std::string text;
        for (auto const& segment : segments)
            text += (text.empty() ? "" : ".") + dump(segment);
        return text;
    }

    std::string optional(char const* before, Token const& token, char const* behind) const {
        return token.type == TokenType::None ? "" : before + dump(token) + behind;
    }

    std::string returnType(TokenVector const& segments) const {
        return segments.empty() ? "" : " -> " + dumpSegments(segments);
    }

    void writeLine(std::string const& line) { text_ += indentation_ + line + "\n"; }

    template <typename Element>
    void writeAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }

    Positions const positions_;
    std::string text_;
    std::string indentation_;
};

} // namespace

std::string dumpTree(Document& document, Positions positions) {
    DumpVisitor visitor(positions);
    document.accept(visitor);
    return visitor.takeText();
}

} // namespace Slate::Testing
