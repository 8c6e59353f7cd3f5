#include "slate/AnalysisContext.h"

#include "slate/ArrayType.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/SymbolTree.h"
#include "slate/VarAssignment.h"

#include <unordered_map>

namespace Slate::Analysis {

namespace {

/// The name under which a top-level member is visible; none for imports and overloads.
std::optional<std::string> visibleName(Node& member) {
    if (auto const model = member.asModelDeclaration())
        return model->getName();
    if (auto const variable = member.asVarAssignment())
        return variable->getName();
    return std::nullopt;
}

void addNames(NameTable& names, Document const& document) {
    for (auto const& member : document.getMembers()) {
        if (auto const name = visibleName(*member))
            names.add(document.getNamespace(), *name, member);
    }
}

std::string globalName(Node& member) {
    if (auto const model = member.asModelDeclaration())
        return model->getNameWithNamespace(".");
    auto const variable = member.asVarAssignment();
    return variable ? variable->getNameWithNamespace(".") : std::string();
}

bool endsInArrayMarker(TokenVector const& segments) {
    return segments.size() > 2 && segments.back().type == TokenType::RightBracket;
}

/// The attribute that a walk along a path can step on.
VarAssignPtr findStep(ModelDeclaration const& model, std::string const& name) {
    auto const attribute = model.findFirstMemberWithType(name);
    return attribute && attribute->isTopDeclaration() ? attribute : nullptr;
}

ModelDeclPtr modelIn(NodePtr const& node) { return node ? node->asModelDeclaration() : nullptr; }

ModelDeclPtr modelTypeOf(VarAssignPtr const& attribute) {
    auto const type = attribute ? attribute->getType() : nullptr;
    return type ? type->asModelDeclaration() : nullptr;
}

} // namespace

AnalysisContext::AnalysisContext(std::vector<BundleLookup> bundles,
                                 std::shared_ptr<ErrorReporter> error_reporter)
    : bundles_(std::move(bundles)), error_reporter_(std::move(error_reporter)) {}

template <typename Visit>
void AnalysisContext::forEachDocument(Visit visit) const {
    for (auto const& bundle : bundles_) {
        for (auto const& context : bundle.documents) {
            if (context && context->document)
                visit(context->document);
        }
    }
}

std::vector<DocPtr> AnalysisContext::findAllDocuments() const {
    std::vector<DocPtr> documents;
    forEachDocument([&](DocPtr const& document) { documents.push_back(document); });
    return documents;
}

// One table serves all documents. A document that was cached before goes on from the table that it had then.
void AnalysisContext::cacheNsLookups() {
    auto const fresh = std::make_shared<NameTable>();
    forEachDocument([&](DocPtr const& document) { addNames(*fresh, *document); });

    std::unordered_map<NameTable const*, std::shared_ptr<NameTable const>> continued{{nullptr, fresh}};
    auto const go_on_from = [&](NameTable const* earlier) {
        auto& names = continued[earlier];
        if (!names) {
            auto longer = std::make_shared<NameTable>(*earlier);
            forEachDocument([&](DocPtr const& document) { addNames(*longer, *document); });
            names = std::move(longer);
        }
        return names;
    };

    StringMap<DocPtr> first_of_namespace;
    forEachDocument([&](DocPtr const& document) {
        auto const [first, is_new] = first_of_namespace.try_emplace(document->joinNamespace("."), document);
        if (is_new)
            document->setNames(go_on_from(document->getNames().get()), *fresh);
        else
            document->copyNsCacheFrom(*first->second);
    });
}

void AnalysisContext::clearNsLookups() {
    forEachDocument([](DocPtr const& document) { document->clearNsCache(); });
}

std::vector<std::string> AnalysisContext::resolveNsPaths(Document const& target, Document const& source) {
    return NameTable::reachablePrefixes(target.getNamespace(), source.getNamespace());
}

ModelDeclPtr AnalysisContext::findModelDeclaration(DocPtr const& document,
                                                   TokenVector const& segments) const {
    if (!document)
        return {};
    return modelIn(segments.size() == 1 ? document->nsLookup(segments.front().lexeme)
                                        : document->nsLookup(Node::segmentsAsString(segments)));
}

TypePtr AnalysisContext::findType(DocPtr const& document, TokenVector const& segments) const {
    if (!endsInArrayMarker(segments))
        return findElementType(document, segments);
    auto element = segments;
    std::size_t dimensions = 0;
    for (; endsInArrayMarker(element); ++dimensions)
        element.resize(element.size() - 2);
    auto type = findElementType(document, element);
    for (; type && dimensions > 0; --dimensions)
        type = ArrayType::create(type);
    return type;
}

TypePtr AnalysisContext::findType(DocPtr const& document, CompactPath const& path) const {
    return path.size() == 1 ? findTypeOfName(document, path.front().lexeme())
                            : findType(document, path.getTokens());
}

TypePtr AnalysisContext::findElementType(DocPtr const& document, TokenVector const& segments) const {
    return segments.size() == 1 ? findTypeOfName(document, segments.front().lexeme)
                                : findModelDeclaration(document, segments);
}

TypePtr AnalysisContext::findTypeOfName(DocPtr const& document, std::string_view name) const {
    for (auto const* primitive :
         {&primitive_type_real, &primitive_type_bool, &primitive_type_string, &primitive_type_int}) {
        if (name == (*primitive)->getName())
            return *primitive;
    }
    return modelIn(document ? document->nsLookup(name) : nullptr);
}

ModelDeclPtr AnalysisContext::findModelDeclarationByNameIn(std::string const& name,
                                                           DocPtr const& document) const {
    auto const node = document ? document->findFirstMemberOfType(name, NodeType::ModelDeclaration) : nullptr;
    return node ? node->asModelDeclaration() : nullptr;
}

vec<NodePtr> AnalysisContext::findMembersInAllDocuments(Token const& name_token,
                                                        DocPtr const& document) const {
    vec<NodePtr> found;
    if (!document)
        return found;
    forEachDocument([&](DocPtr const& other) {
        if (!other->compareNamespace(*document))
            return;
        auto const members = other->findMembers(name_token.lexeme);
        found.insert(found.end(), members.begin(), members.end());
    });
    return found;
}

vec<VarAssignPtr> AnalysisContext::findTypeOf(TokenVector const& segments, ModelDeclPtr const& model) const {
    vec<VarAssignPtr> chain;
    auto current = model;
    for (auto const& segment : segments) {
        auto attribute = current ? findStep(*current, segment.lexeme) : nullptr;
        if (!attribute)
            return {};
        current = modelTypeOf(attribute);
        chain.push_back(std::move(attribute));
    }
    return chain;
}

Token AnalysisContext::findFirstMissingType(TokenVector const& segments, ModelDeclPtr const& model) {
    if (segments.empty())
        return Token::Invalid();
    auto current = model;
    for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
        current = current ? modelTypeOf(findStep(*current, segments[i].lexeme)) : nullptr;
        if (!current)
            return segments[i];
    }
    return segments.back();
}

OpOverloadPtr AnalysisContext::findBinaryOperator(TokenType op, TypePtr const& lhs,
                                                  TypePtr const& rhs) const {
    return operatorIndex().findBinary(op, lhs, rhs);
}

OpOverloadPtr AnalysisContext::findUnaryOperator(TokenType op, TypePtr const& operand) const {
    return operatorIndex().findUnary(op, operand);
}

OperatorIndex const& AnalysisContext::operatorIndex() const {
    std::size_t position = 0;
    bool is_up_to_date = true;
    forEachDocument([&](DocPtr const& document) {
        is_up_to_date = is_up_to_date && operator_index_.isReadAt(position++, document);
    });
    if (!is_up_to_date || position != operator_index_.countDocuments())
        operator_index_ = OperatorIndex(findAllDocuments());
    return operator_index_;
}

vec<NodePtr> AnalysisContext::findTopoNodesFor(ModelDeclPtr const& model) const {
    vec<NodePtr> roots;
    forEachDocument([&](DocPtr const& document) {
        for (auto const& member : document->getMembers()) {
            auto const declaration = member->asModelDeclaration();
            if (member->isVarAssignment() ||
                (declaration && (declaration->isConst() || declaration == model)))
                roots.push_back(member);
        }
    });
    return roots;
}

void AnalysisContext::initSymbolTree(vec<NodePtr> const& root_nodes) {
    symbol_tree_ = SymbolTree::create(root_nodes, error_reporter_);
}

StringMap<std::size_t> AnalysisContext::countSymbols() const {
    StringMap<std::size_t> counts;
    forEachDocument([&](DocPtr const& document) {
        for (auto const& member : document->getMembers()) {
            if (auto name = globalName(*member); !name.empty())
                ++counts[std::move(name)];
        }
    });
    return counts;
}

void AnalysisContext::release() {
    bundles_ = {};
    operator_index_ = {};
}

} // namespace Slate::Analysis
