#pragma once

#include "slate/ModelHierarchy.h"
#include "slate/NodeTypes.h"
#include "slate/ScopedTable.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Slate::Analysis {

/// What models know by name through what they extend and mix in, and what they are assignable to.
///
/// The answers are those of the models themselves, which go up step by step; in high trees they come from
/// tables. To be made when parents, traits and symbols are bound, and dropped before they change.
class InheritedNames {
  public:
    /// Of the models of these documents.
    explicit InheritedNames(std::vector<DocPtr> const& documents);

    /// `ModelDeclaration::hasNewSymbol`.
    bool hasNewSymbol(ModelDeclaration const& model, std::string_view symbol_path) const;

    /// `ModelDeclaration::isExtendedSymbol`.
    bool isExtendedSymbol(ModelDeclaration const& model, std::string_view symbol_path) const;

    /// `ModelDeclaration::lookupDeclarationWithTraits`. No symbol has more segments than
    /// `countSegmentsOfLongestSymbol`: there is no need to ask for a longer path.
    VarAssignPtr lookupDeclaration(ModelDeclaration const& model, std::string_view symbol_path) const;

    /// `ModelDeclaration::findFirstMemberWithType`.
    VarAssignPtr findFirstMemberWithType(ModelDeclaration const& model, std::string_view name) const;

    /// The first method of that name among the model's own members, then in its traits, in order and each
    /// with what it extends, then in the model that it extends, and so on.
    MethodDeclPtr findMethod(ModelDeclaration const& model, std::string_view name) const;

    /// `Type::isAssignableTo`.
    bool isAssignable(TypePtr const& type, TypePtr const& other) const;

    /// The number of segments of the longest symbol path.
    std::size_t countSegmentsOfLongestSymbol() const { return segments_of_longest_symbol_; }

  private:
    template <typename Value>
    using NameScopes = ScopedTable<std::string_view, Value>;

    void measureSymbols(vec<NodePtr> const& members);
    void addModel(ModelDeclaration const& model, std::size_t place);
    void addMembers(ModelDeclaration const& model, std::size_t place);
    void addTrait(ModelDeclaration const& trait, std::size_t place);
    void addSymbols(ModelDeclaration const& model, std::size_t place);
    void addMethods(ModelDeclaration const& model, std::size_t place);

    ModelHierarchy hierarchy_;
    std::size_t segments_of_longest_symbol_ = 0;

    // Of the models that have places.
    NameScopes<bool> symbols_;
    NameScopes<bool> extended_symbols_;
    NameScopes<VarAssignPtr> declarations_; // those of traits too
    NameScopes<VarAssignPtr> typed_members_;
    NameScopes<MethodDeclPtr> methods_;                   // those of traits too
    ScopedTable<ModelDeclaration const*, bool> mixed_in_; // traits, and what they are assignable to
};

} // namespace Slate::Analysis
