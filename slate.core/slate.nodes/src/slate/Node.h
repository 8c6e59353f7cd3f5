#pragma once

#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <string>

namespace Slate {

/// The base of everything in a syntax tree.
///
/// The parser builds the nodes, the analysis binds fields on them (types, owners, what a name refers to), and
/// `unbind` takes that away again. Nodes live in shared pointers made by the static `create` of each class,
/// and own their children. A link to a node that another one owns (upward or across the tree) is weak: it
/// never keeps a tree alive, and reads as empty once that tree is gone. Nodes are not synchronised.
class Node {
  public:
    Node(Node const&) = delete;
    Node& operator=(Node const&) = delete;

    // Each class answers its own with itself, all others with an empty pointer: test and cast in one.
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

    /// Answered by models and by primitive, array and initializer types; not by methods, though they are a
    /// `Type`.
    virtual TypePtr asType();
    virtual IndexingPtr asIndexing();
    virtual OpOverloadPtr asOperatorOverload();
    virtual AnnotationPtr asAnnotation();
    virtual ImportPtr asImport();
    virtual TraitImplPtr asTraitImpl();
    virtual InitializerPtr asInitializer();
    virtual InitializerTypePtr asInitializerType();
    virtual DeletionPtr asDeletion();

    /// Calls the visitor's operation for this class and does not descend: that is the visitor's business.
    /// Throws `std::bad_weak_ptr` if no shared pointer owns this node.
    virtual void accept(NodeVisitor& visitor) = 0;

    /// Drops what the analysis has written into this node and its children; what the parser wrote stays.
    virtual void unbind() = 0;

    virtual ~Node() = default;

    NodeType getNodeType() const { return node_type_; }

    /// False once the analysis wants this node dropped; the node stays where it is until
    /// `removeInvalidMembers`.
    bool isValid() const { return valid_; }

    void setValid(bool valid) { valid_ = valid; }

    bool isDocument() const { return node_type_ == NodeType::Document; }

    bool isModelDeclaration() const { return node_type_ == NodeType::ModelDeclaration; }

    bool isVarDeclaration() const { return node_type_ == NodeType::VarDeclaration; }

    bool isVarAssignment() const { return node_type_ == NodeType::VarAssignment; }

    bool isMethodDeclaration() const { return node_type_ == NodeType::MethodDeclaration; }

    bool isParameter() const { return node_type_ == NodeType::Parameter; }

    bool isConstant() const { return node_type_ == NodeType::Constant; }

    bool isBinaryOp() const { return node_type_ == NodeType::BinaryOp; }

    bool isArray() const { return node_type_ == NodeType::Array; }

    bool isArrayType() const { return node_type_ == NodeType::ArrayType; }

    bool isUnary() const { return node_type_ == NodeType::Unary; }

    bool isMemberAccess() const { return node_type_ == NodeType::MemberAccess; }

    bool isCall() const { return node_type_ == NodeType::Call; }

    bool isPrimitiveType() const { return node_type_ == NodeType::PrimitiveType; }

    /// True for models, arrays and primitives alone: an `InitializerType` says no here and still answers
    /// `asType`.
    bool isType() const { return isModelDeclaration() || isArrayType() || isPrimitiveType(); }

    bool isIndexing() const { return node_type_ == NodeType::Indexing; }

    bool isOperatorOverload() const { return node_type_ == NodeType::OperatorOverload; }

    bool isAnnotation() const { return node_type_ == NodeType::Annotation; }

    bool isImport() const { return node_type_ == NodeType::Import; }

    bool isTraitImpl() const { return node_type_ == NodeType::TraitImpl; }

    bool isInitializer() const { return node_type_ == NodeType::Initializer; }

    bool isInitializerType() const { return node_type_ == NodeType::InitializerType; }

    bool isDeletion() const { return node_type_ == NodeType::Deletion; }

    /// The lexemes joined by "."; an array marker counts as two segments: "a.[.]".
    static std::string segmentsAsString(TokenVector const& segments);

    /// The same without the last segment.
    static std::string segmentsAsStringSkipLast(TokenVector const& segments);

    /// The first `index` lexemes joined by "."; `index` must not be above the number of segments.
    static std::string segmentsUpToAsString(TokenVector const& segments, std::size_t index);

  protected:
    /// What every constructor asks for and only a class of nodes can give: it lets `std::make_shared` call
    /// constructors that are private in effect.
    struct CreateKey {
        explicit CreateKey() = default;
    };

    explicit Node(NodeType node_type) : node_type_(node_type) {}

  private:
    NodeType const node_type_;
    bool valid_ = true;
};

} // namespace Slate
