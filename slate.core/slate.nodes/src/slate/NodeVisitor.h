#pragma once

#include "slate/NodeTypes.h"

namespace Slate {

/// An operation over nodes by class. A visitor overrides what it cares about and calls `accept` on the
/// children that it wants to see; along a chain of expressions it loops (`Expression::getChainOperand`)
/// instead of descending.
class NodeVisitor {
  public:
    NodeVisitor() = default;
    NodeVisitor(NodeVisitor const&) = default;
    NodeVisitor& operator=(NodeVisitor const&) = default;

    virtual void visitDocument(DocPtr const& /*node*/) {}

    virtual void visitModelDeclaration(ModelDeclPtr const& /*node*/) {}

    /// Never called: no node is a `VarDeclaration`.
    virtual void visitVarDeclaration(VarDeclPtr const& /*node*/) {}

    virtual void visitVarAssignment(VarAssignPtr const& /*node*/) {}

    virtual void visitMethodDeclaration(MethodDeclPtr const& /*node*/) {}

    virtual void visitConstant(ConstantPtr const& /*node*/) {}

    virtual void visitCall(CallPtr const& /*node*/) {}

    virtual void visitMemberAccess(MemberAccessPtr const& /*node*/) {}

    virtual void visitArray(ArrayPtr const& /*node*/) {}

    virtual void visitUnary(UnaryPtr const& /*node*/) {}

    virtual void visitBinaryOp(BinaryOpPtr const& /*node*/) {}

    virtual void visitPrimitiveType(PrimitiveTypePtr const& /*node*/) {}

    virtual void visitArrayType(ArrayTypePtr const& /*node*/) {}

    virtual void visitParameter(ParamPtr const& /*node*/) {}

    virtual void visitIndexing(IndexingPtr const& /*node*/) {}

    virtual void visitOperatorOverload(OpOverloadPtr const& /*node*/) {}

    virtual void visitAnnotation(AnnotationPtr const& /*node*/) {}

    virtual void visitImport(ImportPtr const& /*node*/) {}

    virtual void visitTraitImpl(TraitImplPtr const& /*node*/) {}

    virtual void visitInitializer(InitializerPtr const& /*node*/) {}

    virtual void visitInitializerType(InitializerTypePtr const& /*node*/) {}

    virtual void visitDeletion(DeletionPtr const& /*node*/) {}

    virtual ~NodeVisitor() = default;
};

} // namespace Slate
