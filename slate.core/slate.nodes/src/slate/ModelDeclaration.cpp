#include "slate/ModelDeclaration.h"

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate {

namespace {

std::optional<std::string> nameOf(Node& member) {
    if (auto const method = member.asMethodDeclaration())
        return method->getName();
    auto const* const attribute = attributeIn(&member);
    if (attribute != nullptr && attribute->getPath().size() == 1)
        return std::string(attribute->getPath().front().lexeme());
    return std::nullopt;
}

template <typename Item>
void append(vec<Item>& list, Item item) {
    if (item)
        list.push_back(std::move(item));
}

std::string joinBehindEach(std::vector<std::string> const& segments, std::string const& separator) {
    std::string text;
    for (auto const& segment : segments)
        text += segment + separator;
    return text;
}

} // namespace

ModelDeclPtr ModelDeclaration::create(Token qualifier_token, Token name_token, Token extends_qualifier_token,
                                      TokenVector parent_segments, vec<AnnotationPtr> annotations,
                                      vec<TraitImplPtr> traits, vec<DeletionPtr> deletions,
                                      vec<NodePtr> members) {
    return std::make_shared<ModelDeclaration>(CreateKey(), std::move(qualifier_token), std::move(name_token),
                                              std::move(extends_qualifier_token), std::move(parent_segments),
                                              std::move(annotations), std::move(traits), std::move(deletions),
                                              std::move(members));
}

ModelDeclaration::ModelDeclaration(CreateKey, Token&& qualifier_token, Token&& name_token,
                                   Token&& extends_qualifier_token, TokenVector&& parent_segments,
                                   vec<AnnotationPtr>&& annotations, vec<TraitImplPtr>&& traits,
                                   vec<DeletionPtr>&& deletions, vec<NodePtr>&& members)
    : Type(NodeType::ModelDeclaration),
      qualifier_token_(std::move(qualifier_token)),
      name_token_(std::move(name_token)),
      extends_qualifier_token_(std::move(extends_qualifier_token)),
      extends_segments_(std::move(parent_segments)),
      annotations_(std::move(annotations)),
      traits_(std::move(traits)),
      deletions_(std::move(deletions)),
      members_(std::move(members), nameOf) {}

std::vector<TopoPathPtr> const& ModelDeclaration::getTopologicalSort() const {
    static std::vector<TopoPathPtr> const none;
    return topological_sort_ ? *topological_sort_ : none;
}

void ModelDeclaration::setTopologicalSort(std::vector<TopoPathPtr> topological_sort) {
    topological_sort_ = std::make_shared<std::vector<TopoPathPtr> const>(std::move(topological_sort));
}

void ModelDeclaration::accept(NodeVisitor& visitor) { visitor.visitModelDeclaration(shared_from_this()); }

void ModelDeclaration::unbind() {
    if (auto const document = owning_document_.lock())
        namespace_snapshot_ = document->getNamespace();
    owning_document_.reset();
    extends_.reset();
    for (auto const& annotation : annotations_)
        annotation->unbind();
    for (auto const& member : members_.getAll())
        member->unbind();
}

std::string ModelDeclaration::toString() const {
    if (auto const document = owning_document_.lock())
        return document->joinNamespace(".") + "." + getName();
    return joinBehindEach(namespace_snapshot_, ".") + getName();
}

std::string ModelDeclaration::toKey() const { return getNameWithNamespace("_"); }

std::string ModelDeclaration::getNameWithNamespace(std::string const& separator) const {
    auto const document = owning_document_.lock();
    return joinBehindEach(document ? document->getNamespace() : namespace_snapshot_, separator) + getName();
}

std::string ModelDeclaration::getNameWithNamespaceWithPrefix(std::string const& separator,
                                                             std::string const& prefix) const {
    return prefix + separator + getNameWithNamespace(separator);
}

std::string ModelDeclaration::getNameWithNamespaceSkipFirst(std::string const& separator) const {
    auto const document = owning_document_.lock();
    auto segments = document ? document->getNamespace() : namespace_snapshot_;
    if (!segments.empty())
        segments.erase(segments.begin());
    return joinBehindEach(segments, separator) + getName();
}

std::string ModelDeclaration::getSourceIdOrDefault() const {
    auto const document = owning_document_.lock();
    return document ? document->getSourceId() : std::string();
}

void ModelDeclaration::appendToAnnotations(AnnotationPtr annotation) {
    append(annotations_, std::move(annotation));
}

void ModelDeclaration::appendToTraits(TraitImplPtr trait) { append(traits_, std::move(trait)); }

void ModelDeclaration::appendToDeletions(DeletionPtr deletion) { append(deletions_, std::move(deletion)); }

void ModelDeclaration::extendMembers(vec<NodePtr> const& members) {
    // By index and up to the size it has now: the list given may be this model's own, which grows meanwhile.
    auto const count = members.size();
    for (std::size_t i = 0; i < count; ++i)
        members_.append(members[i]);
}

vec<AnnotationPtr> ModelDeclaration::findModelAnnotations(std::string_view name) const {
    vec<AnnotationPtr> found;
    std::ranges::copy_if(annotations_, std::back_inserter(found),
                         [name](AnnotationPtr const& annotation) { return annotation->getName() == name; });
    return found;
}

void ModelDeclaration::setIsNewSymbol(std::string_view symbol_path, NodePtr const& symbol) {
    if (new_symbols_.empty())
        new_symbols_.reserve(members_.getAll().size()); // most members are such symbols
    new_symbols_.findOrAdd(symbol_path) = symbol;
}

bool ModelDeclaration::hasNewSymbol(std::string_view symbol_path) const {
    return findAlongExtends(
        [&](ModelDeclaration const& model) { return model.new_symbols_.contains(symbol_path); });
}

void ModelDeclaration::setIsExtendedSymbol(std::string const& symbol_path) {
    extended_symbols_.add(symbol_path);
}

bool ModelDeclaration::isExtendedSymbol(std::string_view symbol_path) const {
    return findAlongExtends(
        [&](ModelDeclaration const& model) { return model.extended_symbols_.contains(symbol_path); });
}

VarAssignPtr ModelDeclaration::findNewAttribute(std::string_view symbol_path) const {
    auto const* const entry = new_symbols_.find(symbol_path);
    auto symbol = entry == nullptr ? nullptr : entry->lock();
    return attributeIn(symbol.get()) == nullptr ? nullptr
                                                : std::static_pointer_cast<VarAssignment>(std::move(symbol));
}

VarAssignPtr ModelDeclaration::lookupDeclaration(std::string_view symbol_path) const {
    return findAlongExtends(
        [&](ModelDeclaration const& model) { return model.findNewAttribute(symbol_path); });
}

VarAssignPtr ModelDeclaration::lookupDeclarationFromSegments(TokenVector const& segments,
                                                             std::size_t first_ix,
                                                             std::size_t last_ix) const {
    if (first_ix > last_ix || last_ix >= segments.size())
        return {};
    std::string path = segments[first_ix].lexeme;
    for (auto i = first_ix + 1; i <= last_ix; ++i)
        path += "." + segments[i].lexeme;
    return lookupDeclarationWithTraits(path);
}

VarAssignPtr ModelDeclaration::lookupDeclarationWithTraits(std::string_view symbol_path) const {
    return findAlongExtends([&](ModelDeclaration const& model) {
        auto declaration = model.findNewAttribute(symbol_path);
        for (auto trait = model.traits_.begin(); !declaration && trait != model.traits_.end(); ++trait) {
            if (auto const trait_model = (*trait)->getTraitDeclaration())
                declaration = trait_model->lookupDeclaration(symbol_path);
        }
        return declaration;
    });
}

} // namespace Slate
