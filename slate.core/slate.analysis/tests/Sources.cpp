#include "Sources.h"

#include "slate/AnalysisContext.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

void bindNested(VarAssignPtr const& attribute) {
    for (auto const& nested : attribute->getMembers()) {
        nested->setParent(attribute);
        bindNested(nested);
    }
}

void bindMembers(ModelDeclPtr const& model) {
    for (auto const& member : model->getMembers()) {
        if (auto const attribute = member->asVarAssignment()) {
            attribute->setOwningModel(model);
            bindNested(attribute);
        }
        if (auto const method = member->asMethodDeclaration())
            method->setOwningModel(model);
    }
}

void bindOwners(DocPtr const& document) {
    for (auto const& member : document->getMembers()) {
        if (auto const model = member->asModelDeclaration()) {
            model->setOwningDocument(document);
            bindMembers(model);
        }
        if (auto const variable = member->asVarAssignment())
            variable->setOwningDocument(document);
        if (auto const overload = member->asOperatorOverload())
            overload->setOwningDocument(document);
    }
}

TokenType typeOf(std::string const& lexeme) {
    if (lexeme == "[")
        return TokenType::LeftBracket;
    return lexeme == "]" ? TokenType::RightBracket : TokenType::Identifier;
}

} // namespace

std::vector<std::string> words(std::string_view text, char separator) {
    std::vector<std::string> result;
    for (std::size_t begin = 0; begin < text.size();) {
        auto const end = std::min(text.find(separator, begin), text.size());
        result.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return result;
}

TokenVector path(std::string_view tokens) {
    TokenVector result;
    for (auto& lexeme : words(tokens, ' ')) {
        auto const type = typeOf(lexeme);
        result.emplace_back(type, std::move(lexeme), 1, result.size() + 1);
    }
    return result;
}

DocPtr document(std::vector<std::string> const& name_space, std::string const& raw_source) {
    auto const parsed = parse(raw_source.find('\n') == 0 ? unindent(raw_source) : raw_source);
    EXPECT_EQ(parsed.errors(), "");
    for (auto const& segment : name_space)
        parsed.document->appendToNamespace(segment);
    bindOwners(parsed.document);
    return parsed.document;
}

DocPtr document(char const* dotted_namespace, std::string const& raw_source) {
    return document(words(dotted_namespace), raw_source);
}

Analysis::BundleLookup bundle(std::string const& name, vec<DocPtr> const& documents) {
    auto config = std::make_shared<Bundle::BundleConfig>();
    config->name = name;
    Analysis::BundleLookup result{name, {}};
    for (auto const& document : documents)
        result.documents.push_back(std::make_shared<DocumentContext>("", "test.slate", config, document));
    return result;
}

std::unique_ptr<Analysis::AnalysisContext> contextOf(vec<DocPtr> const& documents) {
    return std::make_unique<Analysis::AnalysisContext>(
        std::vector<Analysis::BundleLookup>{bundle("Shapes", documents)}, std::make_shared<ErrorReporter>());
}

ModelDeclPtr modelAt(DocPtr const& document, std::size_t position) {
    return document->getMembers().at(position)->asModelDeclaration();
}

VarAssignPtr variableAt(DocPtr const& document, std::size_t position) {
    return document->getMembers().at(position)->asVarAssignment();
}

OpOverloadPtr overloadAt(DocPtr const& document, std::size_t position) {
    return document->getMembers().at(position)->asOperatorOverload();
}

VarAssignPtr attributeAt(ModelDeclPtr const& model, std::size_t position) {
    return model->getMembers().at(position)->asVarAssignment();
}

} // namespace Slate::Testing
