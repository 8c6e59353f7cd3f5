#pragma once

#include "slate/Node.h"

namespace Slate {

/// A foreign file that a plug-in turns into a document: `import "shapes.step" as Shapes`.
class Import : public Node, public std::enable_shared_from_this<Import> {
  public:
    static ImportPtr create(Token path_token, TokenVector alias_segments, vec<AnnotationPtr> annotations);

    Import(CreateKey, Token&& path_token, TokenVector&& alias_segments, vec<AnnotationPtr>&& annotations);

    ImportPtr asImport() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    /// A `String`, with its quotes; the parser has resolved at-strings.
    Token const& getPathToken() const { return path_token_; }

    /// The path behind `as`; empty without one.
    TokenVector const& getAliasSegments() const { return alias_segments_; }

    vec<AnnotationPtr> const& getAnnotations() const { return annotations_; }

    /// The imported document; empty until bound.
    DocPtr getDocument() const { return document_.lock(); }

    void setDocument(DocPtr const& document) { document_ = document; }

    /// The document in which this stands.
    DocPtr getOwningDocument() const { return owning_document_.lock(); }

    void setOwningDocument(DocPtr const& owning_document) { owning_document_ = owning_document; }

  private:
    Token const path_token_;
    TokenVector const alias_segments_;
    vec<AnnotationPtr> const annotations_;
    std::weak_ptr<Document> document_;
    std::weak_ptr<Document> owning_document_;
};

} // namespace Slate
