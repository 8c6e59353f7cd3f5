%nodefaultctor Slate::Analysis::AnalysisContext;

namespace Slate::Analysis {

class AnalysisContext {
  public:
    %immutable;
    Slate::PrimitiveTypePtr primitive_type_real;
    Slate::PrimitiveTypePtr primitive_type_string;
    Slate::PrimitiveTypePtr primitive_type_int;
    Slate::PrimitiveTypePtr primitive_type_bool;
    %mutable;

    std::vector<std::shared_ptr<Slate::Document>> findAllDocuments() const;
    std::vector<Slate::Analysis::BundleLookup> getBundles() const;
    void cacheNsLookups();
    void clearNsLookups();
    static std::vector<std::string> resolveNsPaths(Slate::Document const & target, Slate::Document const & source);

    void initSymbolTree(Slate::vec<NodePtr> const & root_nodes);
    std::shared_ptr<Slate::SymbolTree> getSymbolTree() const;

    Slate::ModelDeclPtr findModelDeclaration(DocPtr const & document, TokenVector const & segments) const;
    Slate::TypePtr findType(DocPtr const & document, TokenVector const & segments) const;
    Slate::ModelDeclPtr findModelDeclarationByNameIn(std::string const & name, DocPtr const & document) const;
    Slate::vec<NodePtr> findMembersInAllDocuments(Token const & name_token, DocPtr const & document) const;
    Slate::vec<VarAssignPtr> findTypeOf(TokenVector const & segments, ModelDeclPtr const & model) const;
    static Slate::Token findFirstMissingType(TokenVector const & segments, ModelDeclPtr const & model);
    Slate::OpOverloadPtr findBinaryOperator(TokenType op, TypePtr const & lhs, TypePtr const & rhs) const;
    Slate::OpOverloadPtr findUnaryOperator(TokenType op, TypePtr const & operand) const;
    Slate::vec<NodePtr> findTopoNodesFor(ModelDeclPtr const & model) const;

    std::shared_ptr<Slate::ErrorReporter> getErrorReporter() const;
    StringMap<size_t> countSymbols() const;
    void release();
};

} // namespace Slate::Analysis
