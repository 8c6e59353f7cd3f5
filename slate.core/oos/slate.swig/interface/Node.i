%nodefaultctor Slate::Node;

namespace Slate {

class Node {
  public:
    virtual ~Node();

    NodeType getNodeType() const;
    bool isValid() const;
    void setValid(bool valid);

    bool isDocument() const;
    bool isModelDeclaration() const;
    bool isVarDeclaration() const;
    bool isVarAssignment() const;
    bool isMethodDeclaration() const;
    bool isParameter() const;
    bool isConstant() const;
    bool isBinaryOp() const;
    bool isUnary() const;
    bool isArray() const;
    bool isArrayType() const;
    bool isMemberAccess() const;
    bool isCall() const;
    bool isPrimitiveType() const;
    bool isType() const;
    bool isIndexing() const;
    bool isOperatorOverload() const;
    bool isAnnotation() const;
    bool isImport() const;
    bool isTraitImpl() const;
    bool isInitializer() const;
    bool isInitializerType() const;
    bool isDeletion() const;

    virtual DocPtr asDocument();
    virtual ModelDeclPtr asModelDeclaration();
    virtual VarDeclPtr asVarDeclaration();
    virtual VarAssignPtr asVarAssignment();
    virtual MethodDeclPtr asMethodDeclaration();
    virtual ParamPtr asParameter();
    virtual ConstantPtr asConstant();
    virtual BinaryOpPtr asBinaryOp();
    virtual UnaryPtr asUnary();
    virtual ArrayPtr asArray();
    virtual ArrayTypePtr asArrayType();
    virtual MemberAccessPtr asMemberAccess();
    virtual CallPtr asCall();
    virtual PrimitiveTypePtr asPrimitiveType();
    virtual TypePtr asType();
    virtual IndexingPtr asIndexing();
    virtual OpOverloadPtr asOperatorOverload();
    virtual AnnotationPtr asAnnotation();
    virtual ImportPtr asImport();
    virtual TraitImplPtr asTraitImpl();
    virtual InitializerPtr asInitializer();
    virtual InitializerTypePtr asInitializerType();
    virtual DeletionPtr asDeletion();

    virtual void accept(NodeVisitor & visitor) = 0;
    virtual void unbind() = 0;

    static std::string segmentsAsString(TokenVector const & segments);
    static std::string segmentsAsStringSkipLast(TokenVector const & segments);
    static std::string segmentsUpToAsString(TokenVector const & segments, size_t index);
};

} // namespace Slate
