#pragma once

#include "slate/ModelHierarchy.h"
#include "slate/NodeTypes.h"
#include "slate/ScopedTable.h"

#include <cstddef>
#include <cstdint>
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
    /// An attribute, which its document keeps, and the place that it is from.
    class Attribute {
      public:
        /// What is set first at a place stays; null sets nothing.
        void setFirst(VarAssignment* attribute, std::size_t place) {
            auto const number = static_cast<std::uint32_t>(place + 1);
            if (attribute == nullptr || number == place_number_)
                return;
            attribute_ = attribute;
            place_number_ = number;
        }

        VarAssignPtr get() const;

      private:
        VarAssignment* attribute_ = nullptr;
        std::uint32_t place_number_ = 0;
    };

    /// What a name, or a path of names, is to a model.
    struct Meaning {
        Attribute declaration; // those of traits too
        Attribute typed_member;
        bool is_symbol = false;
        bool is_extended_symbol = false;
    };

    void measureSymbols(vec<NodePtr> const& members);
    void addModel(ModelDeclaration const& model, std::size_t place);
    void addMembers(ModelDeclaration const& model, std::size_t place);
    void addTrait(ModelDeclaration const& trait, std::size_t place);
    void addDeclarations(ModelDeclaration const& trait, std::size_t place);
    void addMethods(ModelDeclaration const& model, std::size_t place);

    ModelHierarchy hierarchy_;
    std::size_t segments_of_longest_symbol_ = 0;

    // Of the models that have places.
    ScopedTable<std::string_view, Meaning> meanings_;
    ScopedTable<std::string_view, MethodDeclPtr> methods_; // those of traits too
    ScopedTable<ModelDeclaration const*, bool> mixed_in_;  // traits, and what they are assignable to
};

} // namespace Slate::Analysis
