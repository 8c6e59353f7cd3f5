#pragma once

// Internal to the view of trees.

#include "slate/NodeTypes.h"
#include "slate/Position.h"
#include "slate/Token.h"
#include "slate/host/SourceTexts.h"

#include <memory>
#include <optional>
#include <string_view>

namespace Slate::Host {

/// The texts behind a view, and where tokens end in them.
class TreeView {
  public:
    explicit TreeView(std::shared_ptr<SourceTexts> texts);

    /// Just behind a token of that document (or of none).
    Position endOf(Token const& token, Document const* document) const;

    /// Just behind the text of the document; 0 if there is no text.
    Position endOfText(Document const& document) const;

  private:
    /// The line of a token from the token on; empty without a text.
    std::string_view textAt(Token const& token, Document const* document) const;

    std::shared_ptr<SourceTexts> texts_;
};

/// The document in which a node is written; empty for expressions, which do not know it.
DocPtr documentOf(Node& node);

/// What a trait declares is copied into the models that mix it in: the declaration that a copy was made of,
/// and for all else the node itself.
NodePtr originalOf(NodePtr const& node);

/// The path to a type that is written in a declaration, without the brackets of an array; empty if none is.
struct TypePath {
    TokenVector tokens; // with the brackets
    std::size_t size = 0;
};

TypePath typePathOf(Node& node);

/// The target path of an attribute or deletion, the alias of an import.
TokenVector segmentsOf(Node& node);

/// The type that is bound to the path of `typePathOf`.
TypePtr typeAtPath(Node& node);

/// Where a node begins; 0 if it has no place.
Position beginOf(Node& node);

/// The last token of a node, that of its body included; none if it has none.
std::optional<Token> lastTokenOf(Node& node);

/// What stands in the body of a model, attribute, import or document, in source order.
vec<NodePtr> bodyOf(Node& node);

} // namespace Slate::Host
