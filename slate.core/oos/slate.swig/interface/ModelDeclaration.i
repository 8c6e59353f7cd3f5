%nodefaultctor Slate::ModelDeclaration;

namespace Slate {

class ModelDeclaration : public Node {
  public:
    static ModelDeclPtr create(Token qualifier_token, Token name_token, Token extends_qualifier_token,
                               TokenVector parent_segments, vec<AnnotationPtr> const & annotations,
                               vec<TraitImplPtr> const & traits, vec<DeletionPtr> const & deletions,
                               vec<NodePtr> const & members);

    ModelDeclPtr asModelDeclaration() override;
    TypePtr asType() override;
    void accept(NodeVisitor & visitor) override;
    bool isAssignableTo(TypePtr const & other) const;
    std::string toString() const;
    std::string toKey() const;
    void unbind() override;

    Token const & getQualifierToken() const;
    bool isConst() const;
    bool isTrait() const;
    Token const & getNameToken() const;
    std::string getName() const;
    std::string getNameWithNamespace(std::string const & separator) const;
    std::string getNameWithNamespaceWithPrefix(std::string const & separator,
                                               std::string const & prefix = "Slate") const;
    std::string getNameWithNamespaceSkipFirst(std::string const & separator) const;

    Token const & getExtendsQualifierToken() const;
    bool isExternal() const;
    std::string extendsSegmentsAsString() const;
    TokenVector const & getExtendsSegments() const;
    void replaceExternalExtendsSegments(TokenVector new_segments);
    ModelDeclPtr getExtends() const;
    void setExtends(ModelDeclPtr extends);

    void appendToAnnotations(AnnotationPtr annotation);
    vec<AnnotationPtr> const & getAnnotations() const;
    vec<AnnotationPtr> findModelAnnotations(std::string const & name) const;
    void appendToTraits(TraitImplPtr trait);
    vec<TraitImplPtr> const & getTraits() const;
    void appendToDeletions(DeletionPtr deletion);
    vec<DeletionPtr> const & getDeletions() const;

    void appendToMembers(NodePtr member);
    void extendMembers(vec<NodePtr> const & members);
    vec<NodePtr> const & getMembers() const;
    vec<NodePtr> getOuterMembers() const;
    vec<NodePtr> collapseMembers() const;
    void removeMember(NodePtr const & member);
    void removeInvalidMembers();
    vec<NodePtr> findMembers(std::string const & name) const;
    vec<NodePtr> findMembersOfType(NodeType type) const;
    vec<VarAssignPtr> findAttributesInOrder() const;
    NodePtr findFirstMemberOfType(std::string const & name, NodeType type) const;
    VarAssignPtr findFirstMemberWithType(std::string const & name) const;
    NodePtr findFirstMemberExcludeType(std::string const & name, NodeType type) const;
    NodePtr findFirstMember(std::string const & name) const;
    size_t countMembers() const;
    bool isEmpty() const;
    bool isInitializable() const;

    void setIsNewSymbol(std::string const & symbol_path, NodePtr symbol);
    VarAssignPtr lookupDeclaration(std::string const & symbol_path) const;
    VarAssignPtr lookupDeclarationFromSegments(TokenVector const & segments, size_t first_ix, size_t last_ix) const;
    bool hasNewSymbol(std::string const & symbol_path) const;
    void setIsExtendedSymbol(std::string const & symbol_path);
    bool isExtendedSymbol(std::string const & symbol_path) const;

    DocPtr getOwningDocument() const;
    void setOwningDocument(DocPtr owning_document);
    std::string getSourceIdOrDefault() const;
    std::vector<TopoPathPtr> const & getTopologicalSort() const;
    void setTopologicalSort(std::vector<TopoPathPtr> topological_sort);
};

} // namespace Slate
