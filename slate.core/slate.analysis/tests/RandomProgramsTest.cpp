// The tables and memos of the analysis against plain walks, over generated programs: what models know by
// name, operator overloads, conflicts of traits, empty models.

#include "RandomPrograms.h"

#include "PlainModels.h"
#include "slate/Document.h"
#include "slate/EmptyModels.h"
#include "slate/InheritedNames.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/ModelHierarchy.h"
#include "slate/OperatorIndex.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace Slate {

namespace {

using namespace Testing;
using Analysis::InheritedNames;
using Analysis::ModelHierarchy;
using Analysis::OperatorIndex;

/// Up to so many of them, each once.
template <typename Item>
std::vector<Item> someOf(std::vector<Item> items, std::size_t count, Dice& dice) {
    for (std::size_t i = 0; i < items.size(); ++i)
        std::swap(items[i], items[dice.number(i, items.size() - 1)]);
    if (items.size() > count)
        items.resize(count);
    return items;
}

/// A segment, and behind it some that join to the path, though not always those that it was joined from.
TokenVector segmentsOf(std::string const& path, Dice& dice) {
    TokenVector segments{{TokenType::Identifier, "x", 1, 1}};
    for (std::size_t begin = 0; begin <= path.size();) {
        auto const end = std::min(dice.happens(95) ? path.find('.', begin) : path.size(), path.size());
        segments.emplace_back(TokenType::Identifier, path.substr(begin, end - begin), 1, 1);
        begin = end + 1;
    }
    return segments;
}

/// Symbol paths and names of methods, some longer or cut, and some that nobody has.
std::vector<std::string> drawPaths(vec<ModelDeclPtr> const& models, Dice& dice) {
    std::set<std::string> all;
    for (auto const& model : models) {
        for (auto const& [path, symbol] : model->getNewSymbols().entries())
            all.insert(path.toString());
        all.insert(model->getExtendedSymbols().begin(), model->getExtendedSymbols().end());
        for (auto const& member : model->getMembers()) {
            if (auto const attribute = member->asVarAssignment())
                all.insert(attribute->getName());
        }
    }
    auto paths = someOf(std::vector<std::string>(all.begin(), all.end()), 14, dice);
    for (auto const& name : {"a", "b", "a.b", "run", "stop", "absent", "a.b.c.d.e.f"})
        paths.emplace_back(name);
    return paths;
}

/// The errors of all trait lists, each entry compared with each other one.
class PlainTraitErrors {
  public:
    std::string of(Analyzed const& program) {
        for (auto const& model : modelsOf(program)) {
            if (model->isTrait())
                checkTrait(model);
            else
                checkModel(model);
        }
        return text_;
    }

    std::size_t countConflicts() const { return conflicts_; }

  private:
    void checkTrait(ModelDeclPtr const& trait) {
        if (trait->getExtends() && !trait->getExtends()->isTrait())
            report(ErrExpectedTrait, *trait, trait->getExtendsSegments().front());
        for (auto const& entry : trait->getTraits())
            report(ErrTraitWithTraits, *trait, entry->getSegments().front());
    }

    void checkModel(ModelDeclPtr const& model) {
        for (auto const& entry : model->getTraits()) {
            auto const target = entry->getTraitDeclaration();
            if (!target)
                continue;
            auto const& token = entry->getSegments().front();
            if (!target->isTrait()) {
                report(ErrExpectedTrait, *model, token);
                continue;
            }
            for (auto const& at : chainOf(model)) {
                for (auto const& other : at->getTraits()) {
                    if (other != entry && conflict(target, other->getTraitDeclaration())) {
                        report(ErrTraitConflict, *model, token);
                        ++conflicts_;
                    }
                }
            }
        }
    }

    static bool conflict(ModelDeclPtr const& some, ModelDeclPtr const& other) {
        auto const ancestors = chainOf(some);
        auto const others = chainOf(other);
        return std::ranges::any_of(others, [&](auto const& at) {
            return std::find(ancestors.begin() + 1, ancestors.end(), at) != ancestors.end();
        });
    }

    void report(ErrorCode code, ModelDeclaration const& model, Token const& token) {
        text_ += std::to_string(code) + " " + model.getSourceIdOrDefault() + " " +
                 std::to_string(token.line) + ":" + std::to_string(token.column) + "\n";
    }

    std::string text_;
    std::size_t conflicts_ = 0;
};

std::string traitErrors(ErrorReporter const& reporter) {
    std::string text;
    for (auto const& error : reporter) {
        auto const code = error->getErrorCode();
        if (code == ErrExpectedTrait || code == ErrTraitWithTraits || code == ErrTraitConflict)
            text += std::to_string(code) + " " + error->getSourceId() + " " +
                    std::to_string(error->getLine()) + ":" + std::to_string(error->getColumn()) + "\n";
    }
    return text;
}

vec<OpOverloadPtr> overloadsOf(Analyzed const& program) {
    vec<OpOverloadPtr> overloads;
    for (auto const& document : program.documents) {
        for (auto const& member : document->getMembers()) {
            if (auto const overload = member->asOperatorOverload())
                overloads.push_back(overload);
        }
    }
    return overloads;
}

/// With operands that each are assignable to their parameter.
OpOverloadPtr plainFindOverload(vec<OpOverloadPtr> const& overloads, TokenType op,
                                vec<TypePtr> const& operands) {
    for (auto const& overload : overloads) {
        auto const& parameters = overload->getParameters();
        bool fits = overload->getOperatorToken().type == op && parameters.size() == operands.size();
        for (std::size_t i = 0; fits && i < operands.size(); ++i)
            fits = parameters[i]->getType() && plainIsAssignable(operands[i], parameters[i]->getType());
        if (fits)
            return overload;
    }
    return {};
}

bool plainAreEqual(OperatorOverload const& some, OperatorOverload const& other) {
    if (some.getParameters().size() != other.getParameters().size())
        return false;
    for (std::size_t i = 0; i < some.getParameters().size(); ++i) {
        auto const a = some.getParameters()[i]->getType();
        auto const b = other.getParameters()[i]->getType();
        if (!a || !b || some.getOperatorToken().type != other.getOperatorToken().type ||
            (!plainIsAssignable(a, b) && !plainIsAssignable(b, a)))
            return false;
    }
    return true;
}

/// Of parameters, attributes and values, and some models.
vec<TypePtr> drawOperandTypes(Analyzed const& program, Dice& dice) {
    vec<TypePtr> types;
    for (auto const& overload : overloadsOf(program)) {
        for (auto const& parameter : overload->getParameters())
            types.push_back(parameter->getType());
    }
    vec<TypePtr> more;
    for (auto const& model : modelsOf(program)) {
        more.push_back(model);
        for (auto const& member : model->getMembers()) {
            auto const attribute = member->asVarAssignment();
            if (attribute && attribute->getOwnType() && !attribute->getOwnType()->asModelDeclaration())
                more.push_back(attribute->getOwnType());
            if (attribute && attribute->getValue())
                types.push_back(attribute->getValue()->getType());
        }
    }
    types = someOf(types, 8, dice);
    more = someOf(more, 10, dice);
    types.insert(types.end(), more.begin(), more.end());
    std::erase(types, nullptr);
    return types;
}

} // namespace

TEST(RandomPrograms, NamesOfModelsAreThoseThatAPlainWalkFinds) {
    std::size_t with_places = 0;
    std::size_t with_rings = 0;
    std::size_t found_in_traits = 0;
    std::size_t found_above = 0;
    forEachRandomProgram(150, [&](Analyzed& program, Dice& dice) {
        auto const models = modelsOf(program);
        InheritedNames const names(program.documents);
        ModelHierarchy const hierarchy(program.documents);
        with_places += std::ranges::any_of(
            models, [&](ModelDeclPtr const& model) { return hierarchy.placeOf(*model).has_value(); });
        with_rings += std::ranges::any_of(models, isInRing);
        for (auto const& path : drawPaths(models, dice)) {
            for (auto const& model : models) {
                SCOPED_TRACE("'" + path + "' in " + model->getNameWithNamespace("."));
                EXPECT_EQ(names.hasNewSymbol(*model, path), plainHasNewSymbol(model, path));
                EXPECT_EQ(names.isExtendedSymbol(*model, path), plainIsExtendedSymbol(model, path));
                auto const segments = segmentsOf(path, dice);
                auto const declaration = plainLookupDeclaration(model, path);
                EXPECT_EQ(names.lookupDeclaration(*model, path), declaration);
                EXPECT_EQ(model->lookupDeclarationFromSegments(segments, 1, segments.size() - 1),
                          declaration);
                EXPECT_EQ(names.findFirstMemberWithType(*model, path), plainFindMemberWithType(model, path));
                auto const method = plainFindMethod(model, path);
                EXPECT_EQ(names.findMethod(*model, path), method);
                found_above += method && method->getOwningModel() != model;
                found_in_traits +=
                    declaration && declaration->getOwningModel()->isTrait() && !model->isTrait();
            }
        }
    });
    EXPECT_GE(with_places, 80);
    EXPECT_GE(with_rings, 20);
    EXPECT_GE(found_in_traits, 1000);
    EXPECT_GE(found_above, 1000);
}

TEST(RandomPrograms, ModelsAreAssignableToWhatAPlainWalkReaches) {
    std::size_t mixed_in = 0;
    forEachRandomProgram(150, [&](Analyzed& program, Dice& dice) {
        auto const models = modelsOf(program);
        InheritedNames const names(program.documents);
        for (auto const& model : someOf(models, 25, dice)) {
            for (auto const& wanted : someOf(models, 25, dice)) {
                bool const expected = plainIsAssignable(TypePtr(model), TypePtr(wanted));
                EXPECT_EQ(names.isAssignable(model, wanted), expected)
                    << model->getName() << " to " << wanted->getName();
                EXPECT_EQ(model->isAssignableTo(wanted), expected)
                    << model->getName() << " to " << wanted->getName();
                mixed_in += expected && wanted->isTrait() && !model->isTrait();
            }
        }
    });
    EXPECT_GE(mixed_in, 500);
}

TEST(RandomPrograms, OverloadsAreTheFirstThatAllOperandsFit) {
    std::size_t found = 0;
    std::size_t found_through_ancestors = 0;
    std::size_t equal = 0;
    forEachRandomProgram(150, [&](Analyzed& program, Dice& dice) {
        auto const overloads = overloadsOf(program);
        OperatorIndex const index(program.documents);
        for (auto const& overload : overloads) {
            bool const expected = std::ranges::any_of(overloads, [&](auto const& other) {
                return other != overload && plainAreEqual(*overload, *other);
            });
            EXPECT_EQ(index.hasEqual(*overload), expected) << "at line " << overload->getOperatorToken().line;
            equal += expected;
        }
        auto const types = drawOperandTypes(program, dice);
        for (auto const op : {TokenType::Plus, TokenType::Minus, TokenType::Star}) {
            for (auto const& lhs : types) {
                EXPECT_EQ(index.findUnary(op, lhs), plainFindOverload(overloads, op, {lhs}))
                    << lhs->toString();
                for (auto const& rhs : types) {
                    auto const expected = plainFindOverload(overloads, op, {lhs, rhs});
                    EXPECT_EQ(index.findBinary(op, lhs, rhs), expected) << lhs->toString() << rhs->toString();
                    found += expected != nullptr;
                    found_through_ancestors += expected && expected->getParameters()[0]->getType() != lhs;
                }
            }
        }
    });
    EXPECT_GE(found, 1000);
    EXPECT_GE(found_through_ancestors, 500);
    EXPECT_GE(equal, 50);
}

TEST(RandomPrograms, TraitErrorsAreThoseOfComparingEachTwoEntries) {
    std::size_t with_conflicts = 0;
    std::size_t with_errors = 0;
    forEachRandomProgram(300, [&](Analyzed& program, Dice&) {
        PlainTraitErrors plain;
        auto const expected = plain.of(program);
        EXPECT_EQ(traitErrors(*program.reporter), expected);
        with_conflicts += plain.countConflicts() > 0;
        with_errors += !expected.empty();
    });
    EXPECT_GE(with_conflicts, 30);
    EXPECT_GE(with_errors, 60);
}

TEST(RandomPrograms, EmptyModelsAreThoseThatLeadToNothing) {
    std::size_t empty = 0;
    std::size_t not_empty_by_others = 0;
    forEachRandomProgram(200, [&](Analyzed& program, Dice& dice) {
        EmptyModels empty_models;
        auto const models = modelsOf(program);
        for (auto const& model : someOf(models, models.size(), dice)) {
            bool const expected = plainIsEmpty(model);
            EXPECT_EQ(empty_models.isEmpty(model), expected) << model->getName();
            EXPECT_EQ(model->isEmpty(), expected) << model->getName();
            empty += expected;
            not_empty_by_others += !expected && model->isValid() && model->getMembers().empty();
        }
    });
    EXPECT_GE(empty, 500);
    EXPECT_GE(not_empty_by_others, 500);
}

} // namespace Slate
