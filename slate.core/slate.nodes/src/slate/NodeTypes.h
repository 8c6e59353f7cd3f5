#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace Slate {

/// The class of a node. The numbers are part of the interface to hosts.
enum class NodeType : std::int32_t {
    Document = 0,
    ModelDeclaration = 1,
    /// A slot without a class: no node has this type.
    VarDeclaration = 2,
    VarAssignment = 3,
    BinaryOp = 4,
    MethodDeclaration = 5,
    Parameter = 6,
    Array = 7,
    ArrayType = 8,
    Constant = 9,
    Call = 10,
    MemberAccess = 11,
    PrimitiveType = 12,
    Unary = 13,
    Indexing = 14,
    OperatorOverload = 15,
    Annotation = 16,
    Import = 17,
    TraitImpl = 18,
    Initializer = 19,
    InitializerType = 20,
    Deletion = 21,
};

class Node;
class NodeVisitor;
class Document;
class Type;
class ModelDeclaration;
class PrimitiveType;
class ArrayType;
class InitializerType;
class MethodDeclaration;
class VarDeclaration; // has no definition
class VarAssignment;
class OperatorOverload;
class Parameter;
class Annotation;
class Import;
class TraitImpl;
class Deletion;
class Expression;
class Constant;
class Array;
class Initializer;
class BinaryOp;
class Unary;
class Call;
class MemberAccess;
class Indexing;
class TopologicalPath;
class ObjectPool;

using NodePtr = std::shared_ptr<Node>;
using DocPtr = std::shared_ptr<Document>;
using TypePtr = std::shared_ptr<Type>;
using ModelDeclPtr = std::shared_ptr<ModelDeclaration>;
using PrimitiveTypePtr = std::shared_ptr<PrimitiveType>;
using ArrayTypePtr = std::shared_ptr<ArrayType>;
using InitializerTypePtr = std::shared_ptr<InitializerType>;
using MethodDeclPtr = std::shared_ptr<MethodDeclaration>;
using VarDeclPtr = std::shared_ptr<VarDeclaration>; // always empty
using VarAssignPtr = std::shared_ptr<VarAssignment>;
using OpOverloadPtr = std::shared_ptr<OperatorOverload>;
using ParamPtr = std::shared_ptr<Parameter>;
using AnnotationPtr = std::shared_ptr<Annotation>;
using ImportPtr = std::shared_ptr<Import>;
using TraitImplPtr = std::shared_ptr<TraitImpl>;
using DeletionPtr = std::shared_ptr<Deletion>;
using ExpressionPtr = std::shared_ptr<Expression>;
using ConstantPtr = std::shared_ptr<Constant>;
using ArrayPtr = std::shared_ptr<Array>;
using InitializerPtr = std::shared_ptr<Initializer>;
using BinaryOpPtr = std::shared_ptr<BinaryOp>;
using UnaryPtr = std::shared_ptr<Unary>;
using CallPtr = std::shared_ptr<Call>;
using MemberAccessPtr = std::shared_ptr<MemberAccess>;
using IndexingPtr = std::shared_ptr<Indexing>;
using TopoPathPtr = std::shared_ptr<TopologicalPath>;

/// A list of nodes, spelled `vec<NodePtr>` and so on.
template <typename Element>
using vec = std::vector<Element>;

} // namespace Slate
