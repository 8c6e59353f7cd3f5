#include "NodeClasses.h"

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/InitializerType.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

namespace Slate::Testing {

namespace {

template <auto As>
NodePtr as(Node& node) {
    return (node.*As)();
}

NodePtr makeBinaryOp() { return BinaryOp::create(number("1"), number("2"), token("+")); }

NodePtr makeOverload() { return OperatorOverload::create(token("+"), {}, {}); }

std::vector<NodeClass> makeDeclarationClasses() {
    return {
        {"Document", 0, [] { return NodePtr(document("")); }, &Node::isDocument, as<&Node::asDocument>},
        {"ModelDeclaration", 1, [] { return NodePtr(model("Body")); }, &Node::isModelDeclaration,
         as<&Node::asModelDeclaration>},
        {"VarAssignment", 3, [] { return NodePtr(declaration("mass")); }, &Node::isVarAssignment,
         as<&Node::asVarAssignment>},
        {"MethodDeclaration", 5, [] { return NodePtr(method("grow")); }, &Node::isMethodDeclaration,
         as<&Node::asMethodDeclaration>},
        {"Parameter", 6, [] { return NodePtr(Parameter::create(token("size"), {})); }, &Node::isParameter,
         as<&Node::asParameter>},
        {"OperatorOverload", 15, makeOverload, &Node::isOperatorOverload, as<&Node::asOperatorOverload>},
        {"Annotation", 16, [] { return NodePtr(annotation("unit")); }, &Node::isAnnotation,
         as<&Node::asAnnotation>},
        {"Import", 17, [] { return NodePtr(Import::create(Token::String("a"), {}, {})); }, &Node::isImport,
         as<&Node::asImport>},
        {"TraitImpl", 18, [] { return NodePtr(TraitImpl::create({})); }, &Node::isTraitImpl,
         as<&Node::asTraitImpl>},
        {"Deletion", 21, [] { return NodePtr(Deletion::create({})); }, &Node::isDeletion,
         as<&Node::asDeletion>},
    };
}

std::vector<NodeClass> makeExpressionAndTypeClasses() {
    return {
        {"BinaryOp", 4, makeBinaryOp, &Node::isBinaryOp, as<&Node::asBinaryOp>},
        {"Array", 7, [] { return NodePtr(Array::create({}, {}, {})); }, &Node::isArray, as<&Node::asArray>},
        {"ArrayType", 8, [] { return NodePtr(ArrayType::create({})); }, &Node::isArrayType,
         as<&Node::asArrayType>},
        {"Constant", 9, [] { return NodePtr(number("1")); }, &Node::isConstant, as<&Node::asConstant>},
        {"Call", 10, [] { return NodePtr(Call::create(constant("f"), {})); }, &Node::isCall,
         as<&Node::asCall>},
        {"MemberAccess", 11, [] { return NodePtr(MemberAccess::create(constant("a"), token("b"))); },
         &Node::isMemberAccess, as<&Node::asMemberAccess>},
        {"PrimitiveType", 12, [] { return NodePtr(realType()); }, &Node::isPrimitiveType,
         as<&Node::asPrimitiveType>},
        {"Unary", 13, [] { return NodePtr(Unary::create(token("-"), number("1"))); }, &Node::isUnary,
         as<&Node::asUnary>},
        {"Indexing", 14, [] { return NodePtr(Indexing::create(constant("a"), number("1"))); },
         &Node::isIndexing, as<&Node::asIndexing>},
        {"Initializer", 19, [] { return NodePtr(Initializer::create({}, {}, {})); }, &Node::isInitializer,
         as<&Node::asInitializer>},
        {"InitializerType", 20, [] { return NodePtr(InitializerType::create({})); }, &Node::isInitializerType,
         as<&Node::asInitializerType>},
    };
}

} // namespace

std::vector<NodeClass> const& nodeClasses() {
    static std::vector<NodeClass> const classes = [] {
        auto all = makeDeclarationClasses();
        auto const others = makeExpressionAndTypeClasses();
        all.insert(all.end(), others.begin(), others.end());
        return all;
    }();
    return classes;
}

void RecordingVisitor::visitDocument(DocPtr const& node) { visits.emplace_back("Document", node); }

void RecordingVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    visits.emplace_back("ModelDeclaration", node);
}

void RecordingVisitor::visitVarDeclaration(VarDeclPtr const& /*node*/) {
    visits.emplace_back("VarDeclaration", nullptr);
}

void RecordingVisitor::visitVarAssignment(VarAssignPtr const& node) {
    visits.emplace_back("VarAssignment", node);
}

void RecordingVisitor::visitMethodDeclaration(MethodDeclPtr const& node) {
    visits.emplace_back("MethodDeclaration", node);
}

void RecordingVisitor::visitConstant(ConstantPtr const& node) { visits.emplace_back("Constant", node); }

void RecordingVisitor::visitCall(CallPtr const& node) { visits.emplace_back("Call", node); }

void RecordingVisitor::visitMemberAccess(MemberAccessPtr const& node) {
    visits.emplace_back("MemberAccess", node);
}

void RecordingVisitor::visitArray(ArrayPtr const& node) { visits.emplace_back("Array", node); }

void RecordingVisitor::visitUnary(UnaryPtr const& node) { visits.emplace_back("Unary", node); }

void RecordingVisitor::visitBinaryOp(BinaryOpPtr const& node) { visits.emplace_back("BinaryOp", node); }

void RecordingVisitor::visitPrimitiveType(PrimitiveTypePtr const& node) {
    visits.emplace_back("PrimitiveType", node);
}

void RecordingVisitor::visitArrayType(ArrayTypePtr const& node) { visits.emplace_back("ArrayType", node); }

void RecordingVisitor::visitParameter(ParamPtr const& node) { visits.emplace_back("Parameter", node); }

void RecordingVisitor::visitIndexing(IndexingPtr const& node) { visits.emplace_back("Indexing", node); }

void RecordingVisitor::visitOperatorOverload(OpOverloadPtr const& node) {
    visits.emplace_back("OperatorOverload", node);
}

void RecordingVisitor::visitAnnotation(AnnotationPtr const& node) { visits.emplace_back("Annotation", node); }

void RecordingVisitor::visitImport(ImportPtr const& node) { visits.emplace_back("Import", node); }

void RecordingVisitor::visitTraitImpl(TraitImplPtr const& node) { visits.emplace_back("TraitImpl", node); }

void RecordingVisitor::visitInitializer(InitializerPtr const& node) {
    visits.emplace_back("Initializer", node);
}

void RecordingVisitor::visitInitializerType(InitializerTypePtr const& node) {
    visits.emplace_back("InitializerType", node);
}

void RecordingVisitor::visitDeletion(DeletionPtr const& node) { visits.emplace_back("Deletion", node); }

} // namespace Slate::Testing
