#pragma once

#include "slate/NodeTypes.h"
#include "slate/Token.h"
#include "slate/host/SourceRange.h"
#include "slate/host/SourceTexts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Slate::Host {

/// What the parts of one view share.
class TreeView;

/// Something that is written in a document: a node of its syntax tree, or a part of one that stands at a
/// place of its own, such as each name of a path. For tools that read; nothing changes the tree.
///
/// A small value that keeps its document alive. It answers as the document is now: what something refers to,
/// and its type, are known once the document is analysed. What the analysis took out of a model (the second
/// of two attributes of one name, say) is not there any more.
///
/// | kind | what | children |
/// |---|---|---|
/// | document | a source | what it declares |
/// | model | a model or trait | `type` or `external`, annotations, `trait`, `delete`, attributes, methods |
/// | attribute | declared with `is` or `becomes` | names, `type`, annotations, value or body |
/// | assignment | gives a value to what is declared elsewhere | names, annotations, value or body |
/// | annotation | `.unit: "mm"` | its literal |
/// | method, operator | a signature | parameters, `type` |
/// | parameter | of a signature | `type` |
/// | import | of a foreign file | names of its alias, annotations |
/// | trait | `with Named` | `type` |
/// | delete | `delete tag` | names |
/// | type, external | a path to a type; behind `external`, to something outside the language | names |
/// | namespace | a name in front of another in a path | |
/// | name | a name that refers to something; `this` too | |
/// | member | `lhs.name` | the operand |
/// | constant | a literal | |
/// | binary, unary, index, array, initializer | operators and brackets | operands |
/// | call | a call | what is called, arguments |
///
/// Every name that can refer to something is the name of a `name` or `member`; names that only declare stand
/// in the declaring node.
class TreeNode {
  public:
    std::string_view getKind() const;

    /// The name, a path with its dots, an operator's sign, a literal as written; the path of an import. Empty
    /// where there is none.
    std::string getName() const;

    /// Where that name is written, backquotes included; no place if there is none.
    SourceRange getNameRange() const;

    /// From the first to the last thing written that the tree keeps. It does not keep the words `with`,
    /// `delete`, `fn`, `operator` and `import`, nor brackets around parameters.
    SourceRange getRange() const;

    /// The type as text, "Real", "mill.Gear[]"; empty if none is bound, and for arrays and initializers, the
    /// types of which have no names. Values in traits have none: they have types where they are mixed in.
    std::string getTypeText() const;

    /// The declaration that a name refers to, the model of a type or trait, the method of a call, the
    /// overload of an operator, the document of an import. Of a `becomes` and an assignment: what they
    /// change. For what a trait declares it is the declaration in the trait. Empty if nothing is bound.
    std::optional<TreeNode> getTarget() const;

    /// In source order.
    std::vector<TreeNode> getChildren() const;

    /// All below, each in front of its children. Sources may hold chains of any length: prefer this to a
    /// recursion over `getChildren`.
    std::vector<TreeNode> getDescendants() const;

    std::string getSourceId() const;

    /// Of a model its name with namespace, of an attribute or method the same with its model in front, as the
    /// refactorings ask for them. Empty for all else, and for members of no model.
    std::string getQualifiedName() const;

    /// The key under which hosts register what a model, static method or operator does; empty for all else.
    std::string getNativeKey() const;

    // False for everything but models (methods for `isStatic`).

    bool isTrait() const;
    bool isConst() const;
    bool isExternal() const;
    bool isStatic() const;

    /// Is it an attribute that is declared anew, with `becomes`?
    bool isRedeclaration() const;

    /// False for what the analysis has found to be wrong in itself.
    bool isValid() const;

    /// Do both stand for the same thing in the same tree?
    bool isSame(TreeNode const& other) const;

    bool operator==(TreeNode const& other) const { return isSame(other); }

    std::size_t hash() const;

    /// Of the tree of the core; for a part, that which it is a part of.
    NodePtr const& getNode() const { return node_; }

  private:
    friend class TreeView;

    enum class Part : std::uint8_t {
        Whole,
        Callee,        // of a call
        ModelPath,     // an expression that names the model of a static method
        NamespacePath, // an expression in front of a name with a namespace
        TypePath,      // the one path to a type
        Segment,       // a name of a target path
        TypeSegment,   // a name of the path to a type
    };

    TreeNode(std::shared_ptr<TreeView> view, DocPtr document, NodePtr node, Part part = Part::Whole,
             std::size_t index = 0);

    /// Another part of the same document.
    TreeNode partOf(NodePtr const& node, Part part, std::size_t index) const;

    /// A node of any document; empty for none.
    std::optional<TreeNode> viewElsewhere(NodePtr const& node) const;

    /// The node itself, for a callee the expression that is called.
    NodePtr subject() const;

    /// The names of the path that this is, or that this is a name of.
    TokenVector pathTokens() const;

    TokenVector nameTokens() const;
    SourceRange rangeOf(Position begin, Position end) const;
    /// What the operand of this access is.
    Part partOfOperand(MemberAccess const& access) const;
    std::optional<TreeNode> targetOfWhole() const;
    std::optional<TreeNode> targetOfSegment() const;
    std::optional<TreeNode> targetOfModelPath() const;
    TypePtr getType() const;

    std::shared_ptr<TreeView> view_;
    DocPtr document_; // in which this is written; may be empty
    NodePtr node_;
    Part part_;
    std::size_t index_;  // of a segment
    ModelDeclPtr trait_; // in which an expression stands; empty outside of traits

    friend std::optional<TreeNode> viewDocument(DocPtr const& document, std::shared_ptr<SourceTexts> texts);
    friend TreeNode viewNode(NodePtr const& node, std::shared_ptr<SourceTexts> texts);
};

/// The root of a document's tree; empty for no document. The ends of names in backquotes and of `@"paths"`
/// are found in the source text, which is read from the file unless `texts` has it.
std::optional<TreeNode> viewDocument(DocPtr const& document, std::shared_ptr<SourceTexts> texts = nullptr);

/// A node of which the document is not at hand; it must not be empty.
TreeNode viewNode(NodePtr const& node, std::shared_ptr<SourceTexts> texts = nullptr);

} // namespace Slate::Host

template <>
struct std::hash<Slate::Host::TreeNode> {
    std::size_t operator()(Slate::Host::TreeNode const& node) const noexcept { return node.hash(); }
};
