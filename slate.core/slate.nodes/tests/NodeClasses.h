#pragma once

#include "slate/Node.h"
#include "slate/NodeVisitor.h"

#include <string>
#include <utility>
#include <vector>

namespace Slate::Testing {

/// One class of nodes: how to make one, and which operation of each kind is its own.
struct NodeClass {
    std::string name;
    int number;
    NodePtr (*create)();
    bool (Node::*is)() const;
    NodePtr (*as)(Node& node);
};

/// All classes that nodes have, by number.
std::vector<NodeClass> const& nodeClasses();

/// Writes down which operations were called, by class name, and with which node.
class RecordingVisitor : public NodeVisitor {
  public:
    using Visit = std::pair<std::string, NodePtr>;

    std::vector<Visit> visits;

    void visitDocument(DocPtr const& node) override;
    void visitModelDeclaration(ModelDeclPtr const& node) override;
    void visitVarDeclaration(VarDeclPtr const& node) override;
    void visitVarAssignment(VarAssignPtr const& node) override;
    void visitMethodDeclaration(MethodDeclPtr const& node) override;
    void visitConstant(ConstantPtr const& node) override;
    void visitCall(CallPtr const& node) override;
    void visitMemberAccess(MemberAccessPtr const& node) override;
    void visitArray(ArrayPtr const& node) override;
    void visitUnary(UnaryPtr const& node) override;
    void visitBinaryOp(BinaryOpPtr const& node) override;
    void visitPrimitiveType(PrimitiveTypePtr const& node) override;
    void visitArrayType(ArrayTypePtr const& node) override;
    void visitParameter(ParamPtr const& node) override;
    void visitIndexing(IndexingPtr const& node) override;
    void visitOperatorOverload(OpOverloadPtr const& node) override;
    void visitAnnotation(AnnotationPtr const& node) override;
    void visitImport(ImportPtr const& node) override;
    void visitTraitImpl(TraitImplPtr const& node) override;
    void visitInitializer(InitializerPtr const& node) override;
    void visitInitializerType(InitializerTypePtr const& node) override;
    void visitDeletion(DeletionPtr const& node) override;
};

} // namespace Slate::Testing
