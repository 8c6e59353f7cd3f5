#pragma once

#include "slate/BundleLookup.h"
#include "slate/CompactPath.h"
#include "slate/ErrorReporter.h"
#include "slate/Fnv1a.h"
#include "slate/NodeTypes.h"
#include "slate/OperatorIndex.h"
#include "slate/PrimitiveType.h"
#include "slate/Token.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate {
class SymbolTree;
} // namespace Slate

namespace Slate::Analysis {

/// The shared state of one analysis: the primitive types, the documents by bundle, the reporter, and the
/// look-ups that cross the border of a document.
///
/// A look-up reports nothing and throws nothing: a miss is an empty pointer or list. Documents are walked
/// bundle by bundle, and within a bundle in order; a source without document is passed over.
class AnalysisContext {
  public:
    AnalysisContext(std::vector<BundleLookup> bundles, std::shared_ptr<ErrorReporter> error_reporter);

    /// The only primitive types that `findType` hands out. Compare primitive types by kind all the same.
    PrimitiveTypePtr const primitive_type_real = PrimitiveType::create(PrimitiveType::Kind::Real);
    PrimitiveTypePtr const primitive_type_string = PrimitiveType::create(PrimitiveType::Kind::String);
    PrimitiveTypePtr const primitive_type_bool = PrimitiveType::create(PrimitiveType::Kind::Bool);
    PrimitiveTypePtr const primitive_type_int = PrimitiveType::create(PrimitiveType::Kind::Int);

    std::vector<DocPtr> findAllDocuments() const;

    std::vector<BundleLookup> getBundles() const { return bundles_; }

    std::shared_ptr<ErrorReporter> getErrorReporter() const { return error_reporter_; }

    /// Makes the models and variables of all documents visible in all documents, see `Document::nsLookup`.
    /// What is cached then stays as it is, whatever becomes of the members, until the caches are cleared.
    void cacheNsLookups();

    /// `Document::clearNsCache` on every document.
    void clearNsLookups();

    /// The prefixes under which the names of `source` are visible in `target`, nearest first.
    static std::vector<std::string> resolveNsPaths(Document const& target, Document const& source);

    ModelDeclPtr findModelDeclaration(DocPtr const& document, TokenVector const& segments) const;

    /// The type that the segments name: one of the primitives, which no model can shadow, a model, or an
    /// array of what stands in front of the two tokens `[` and `]` at the end.
    TypePtr findType(DocPtr const& document, TokenVector const& segments) const;
    TypePtr findType(DocPtr const& document, CompactPath const& path) const;

    /// The first model of that name in that one document.
    ModelDeclPtr findModelDeclarationByNameIn(std::string const& name, DocPtr const& document) const;

    /// The members of that name in all documents of the document's namespace.
    vec<NodePtr> findMembersInAllDocuments(Token const& name_token, DocPtr const& document) const;

    /// The chain of attributes along a path from a model; empty if it does not reach the end.
    vec<VarAssignPtr> findTypeOf(TokenVector const& segments, ModelDeclPtr const& model) const;

    /// The first segment at which the walk of `findTypeOf` cannot go on, or the last; `Invalid` without
    /// segments.
    static Token findFirstMissingType(TokenVector const& segments, ModelDeclPtr const& model);

    /// The first overload of the operator whose parameters accept the operands.
    OpOverloadPtr findBinaryOperator(TokenType op, TypePtr const& lhs, TypePtr const& rhs) const;
    OpOverloadPtr findUnaryOperator(TokenType op, TypePtr const& operand) const;

    /// What a symbol tree grows from: all const models, the given model, and all top-level variables.
    vec<NodePtr> findTopoNodesFor(ModelDeclPtr const& model) const;

    /// Grows the symbol tree and keeps it.
    void initSymbolTree(vec<NodePtr> const& root_nodes);

    /// Empty until `initSymbolTree`.
    std::shared_ptr<SymbolTree> getSymbolTree() const { return symbol_tree_; }

    /// How often each global name is declared.
    StringMap<std::size_t> countSymbols() const;

    /// Lets the documents go: all look-ups miss from now on.
    void release();

  private:
    TypePtr findElementType(DocPtr const& document, TokenVector const& segments) const;
    TypePtr findTypeOfName(DocPtr const& document, std::string_view name) const;

    template <typename Visit>
    void forEachDocument(Visit visit) const;

    /// As the documents are now.
    OperatorIndex const& operatorIndex() const;

    std::vector<BundleLookup> bundles_;
    std::shared_ptr<ErrorReporter> error_reporter_;
    std::shared_ptr<SymbolTree> symbol_tree_;
    mutable OperatorIndex operator_index_; // read when first asked for, and again when a document has changed
};

} // namespace Slate::Analysis
