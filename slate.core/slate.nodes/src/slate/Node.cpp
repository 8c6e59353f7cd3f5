#include "slate/Node.h"

#include <algorithm>

namespace Slate {

namespace {

std::string joinLexemes(TokenVector const& segments, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0)
            text += '.';
        text += segments[i].lexeme;
    }
    return text;
}

} // namespace

DocPtr Node::asDocument() { return {}; }

ModelDeclPtr Node::asModelDeclaration() { return {}; }

VarDeclPtr Node::asVarDeclaration() { return {}; }

VarAssignPtr Node::asVarAssignment() { return {}; }

MethodDeclPtr Node::asMethodDeclaration() { return {}; }

ParamPtr Node::asParameter() { return {}; }

ConstantPtr Node::asConstant() { return {}; }

BinaryOpPtr Node::asBinaryOp() { return {}; }

UnaryPtr Node::asUnary() { return {}; }

ArrayPtr Node::asArray() { return {}; }

ArrayTypePtr Node::asArrayType() { return {}; }

MemberAccessPtr Node::asMemberAccess() { return {}; }

CallPtr Node::asCall() { return {}; }

PrimitiveTypePtr Node::asPrimitiveType() { return {}; }

TypePtr Node::asType() { return {}; }

IndexingPtr Node::asIndexing() { return {}; }

OpOverloadPtr Node::asOperatorOverload() { return {}; }

AnnotationPtr Node::asAnnotation() { return {}; }

ImportPtr Node::asImport() { return {}; }

TraitImplPtr Node::asTraitImpl() { return {}; }

InitializerPtr Node::asInitializer() { return {}; }

InitializerTypePtr Node::asInitializerType() { return {}; }

DeletionPtr Node::asDeletion() { return {}; }

std::string Node::segmentsAsString(TokenVector const& segments) {
    return joinLexemes(segments, segments.size());
}

std::string Node::segmentsAsStringSkipLast(TokenVector const& segments) {
    return joinLexemes(segments, segments.empty() ? 0 : segments.size() - 1);
}

std::string Node::segmentsUpToAsString(TokenVector const& segments, std::size_t index) {
    return joinLexemes(segments, std::min(index, segments.size()));
}

} // namespace Slate
