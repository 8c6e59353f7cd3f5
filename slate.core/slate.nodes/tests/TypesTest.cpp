#include "Build.h"
#include "slate/Array.h"
#include "slate/ArrayType.h"
#include "slate/Constant.h"
#include "slate/Initializer.h"
#include "slate/InitializerType.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using Kind = PrimitiveType::Kind;

ExpressionPtr valueOf(TypePtr const& type) {
    auto value = constant("value");
    value->setType(type);
    return value;
}

/// `[...]` whose entries have the given types.
ArrayPtr arrayOf(std::vector<TypePtr> const& types) {
    vec<ExpressionPtr> entries;
    for (auto const& type : types)
        entries.push_back(valueOf(type));
    return Array::create(entries, token("["), token("]"));
}

InitializerPtr initializerOf(std::vector<TypePtr> const& types) {
    vec<ExpressionPtr> entries;
    for (auto const& type : types)
        entries.push_back(valueOf(type));
    return Initializer::create(entries, token("{"), token("}"));
}

ArrayTypePtr typeOfEmptyArray() {
    auto type = ArrayType::create({});
    type->setIsEmptyArray(true);
    return type;
}

bool fits(InitializerPtr const& initializer, TypePtr const& type) {
    return InitializerType::create(initializer)->isAssignableTo(type);
}

} // namespace

TEST(PrimitiveType, PrintsItsKind) {
    std::vector<std::string> const names = {"Real", "Int", "Bool", "String", "<Unknown primitive type>"};
    for (std::size_t kind = 0; kind < names.size(); ++kind) {
        auto const type = PrimitiveType::create(static_cast<Kind>(kind));
        EXPECT_EQ(type->toString(), names[kind]);
        EXPECT_EQ(type->toKey(), names[kind]);
        EXPECT_EQ(static_cast<std::size_t>(type->getKind()), kind);
    }
    EXPECT_EQ(PrimitiveType::create(static_cast<Kind>(-1))->toString(), "<Unknown primitive type>");
    static_assert(sizeof(Kind) == 4);
}

TEST(PrimitiveType, IsAssignableToItsOwnKindAndIntToRealToo) {
    for (auto const from : {Kind::Real, Kind::Int, Kind::Bool, Kind::String}) {
        for (auto const to : {Kind::Real, Kind::Int, Kind::Bool, Kind::String}) {
            bool const expected = from == to || (from == Kind::Int && to == Kind::Real);
            EXPECT_EQ(PrimitiveType::create(from)->isAssignableTo(PrimitiveType::create(to)), expected)
                << static_cast<int>(from) << static_cast<int>(to);
        }
    }
}

TEST(PrimitiveType, IntIsAssignableToRealAndRealNotToInt) {
    EXPECT_TRUE(intType()->isAssignableTo(realType()));
    EXPECT_FALSE(realType()->isAssignableTo(intType()));
}

TEST(PrimitiveType, BoolIsNotAssignableToInt) {
    EXPECT_FALSE(PrimitiveType::create(Kind::Bool)->isAssignableTo(intType()));
}

TEST(PrimitiveType, IsAssignableToNoOtherClassOfTypes) {
    for (auto const& other : std::vector<TypePtr>{model("Real"), ArrayType::create(realType()),
                                                  InitializerType::create({}), method("Real"), nullptr})
        EXPECT_FALSE(realType()->isAssignableTo(other));
}

TEST(PrimitiveType, UnbindDoesNothing) {
    auto const type = intType();
    type->unbind();
    EXPECT_EQ(type->getKind(), Kind::Int);
}

TEST(ArrayType, PrintsItsElementWithBrackets) {
    auto const reals = ArrayType::create(realType());
    EXPECT_EQ(reals->toString(), "Real[]");
    EXPECT_EQ(reals->toKey(), "Real_arr");

    auto const matrix = ArrayType::create(reals);
    EXPECT_EQ(matrix->toString(), "Real[][]");
    EXPECT_EQ(matrix->toKey(), "Real_arr_arr");

    auto const body = model("Body");
    auto const shapes = document("Shapes.Solids", {body});
    EXPECT_EQ(ArrayType::create(body)->toString(), "Shapes.Solids.Body[]");
    EXPECT_EQ(ArrayType::create(body)->toKey(), "Shapes_Solids_Body_arr");
}

TEST(ArrayType, WithoutElementTypeIsAnonymous) {
    auto const literal = arrayOf({realType()});
    for (auto const& type : {ArrayType::create({}), ArrayType::create(literal), typeOfEmptyArray()}) {
        EXPECT_EQ(type->toString(), "<anonymous array - no type known>");
        EXPECT_EQ(type->toKey(), "anon_array");
    }
}

TEST(ArrayType, ElementMayBeSetLaterAndUnbindClearsIt) {
    auto const type = ArrayType::create({});
    EXPECT_EQ(type->getElement(), nullptr);
    EXPECT_FALSE(type->isEmptyArray());

    auto const real = realType();
    type->setElement(real);
    type->setIsEmptyArray(true);
    EXPECT_EQ(type->getElement(), real);

    type->unbind();
    EXPECT_EQ(type->getElement(), nullptr);
    EXPECT_TRUE(type->isEmptyArray());
}

TEST(ArrayType, EmptyArrayFitsEveryArrayTypeAndIsFittedByEvery) {
    auto const literal = arrayOf({realType()});
    auto const empty = typeOfEmptyArray();
    for (auto const& type : {ArrayType::create(PrimitiveType::create(Kind::String)),
                             ArrayType::create(ArrayType::create(realType())), ArrayType::create({}),
                             ArrayType::create(literal), typeOfEmptyArray()}) {
        EXPECT_TRUE(empty->isAssignableTo(type)) << type->toString();
        EXPECT_TRUE(type->isAssignableTo(empty)) << type->toString();
    }
}

TEST(ArrayType, EmptyArrayFitsNothingButArrays) {
    for (auto const& type :
         std::vector<TypePtr>{realType(), model("Body"), InitializerType::create({}), nullptr})
        EXPECT_FALSE(typeOfEmptyArray()->isAssignableTo(type));
}

TEST(ArrayType, IsAssignableWhereItsElementTypeIs) {
    auto const reals = ArrayType::create(realType());
    auto const ints = ArrayType::create(intType());
    EXPECT_TRUE(reals->isAssignableTo(ArrayType::create(realType())));
    EXPECT_TRUE(ints->isAssignableTo(reals));
    EXPECT_FALSE(reals->isAssignableTo(ints));
    EXPECT_TRUE(ArrayType::create(ints)->isAssignableTo(ArrayType::create(reals)));
    EXPECT_FALSE(ArrayType::create(ints)->isAssignableTo(reals));
    EXPECT_FALSE(ints->isAssignableTo(realType()));

    auto const solid = model("Solid");
    auto const body = child("Body", solid);
    EXPECT_TRUE(ArrayType::create(body)->isAssignableTo(ArrayType::create(solid)));
    EXPECT_FALSE(ArrayType::create(solid)->isAssignableTo(ArrayType::create(body)));
}

TEST(ArrayType, WithoutAnElementOnEitherSideNothingIsAssignable) {
    auto const literal = arrayOf({realType()});
    auto const reals = ArrayType::create(realType());
    auto const unknown = ArrayType::create({});
    EXPECT_FALSE(unknown->isAssignableTo(reals));
    EXPECT_FALSE(reals->isAssignableTo(unknown));
    EXPECT_FALSE(unknown->isAssignableTo(unknown));
    EXPECT_FALSE(reals->isAssignableTo(ArrayType::create(literal)));
    EXPECT_FALSE(ArrayType::create(literal)->isAssignableTo(ArrayType::create(literal)));
}

TEST(ArrayType, EntriesOfALiteralAreTestedOneByOne) {
    auto const reals = ArrayType::create(realType());
    auto const ints = ArrayType::create(intType());
    auto const mixed = arrayOf({intType(), realType()});
    EXPECT_TRUE(ArrayType::create(mixed)->isAssignableTo(reals));
    EXPECT_FALSE(ArrayType::create(mixed)->isAssignableTo(ints));

    auto const partly_bound = arrayOf({intType(), nullptr});
    EXPECT_FALSE(ArrayType::create(partly_bound)->isAssignableTo(reals));

    auto const without_entries = arrayOf({});
    EXPECT_TRUE(ArrayType::create(without_entries)->isAssignableTo(reals));
}

TEST(ArrayType, LiteralOfLiteralsFitsAnArrayOfArrays) {
    auto const row = arrayOf({intType(), realType()});
    auto const matrix = arrayOf({ArrayType::create(row), typeOfEmptyArray()});
    auto const type = ArrayType::create(matrix);
    EXPECT_TRUE(type->isAssignableTo(ArrayType::create(ArrayType::create(realType()))));
    EXPECT_FALSE(type->isAssignableTo(ArrayType::create(realType())));
}

TEST(ArrayType, ElementThatIsNeitherTypeNorArrayFitsNothing) {
    auto const value = valueOf(realType());
    EXPECT_FALSE(ArrayType::create(value)->isAssignableTo(ArrayType::create(realType())));
}

TEST(InitializerType, PrintsBracesAndHasOneKey) {
    auto const type = InitializerType::create({});
    EXPECT_EQ(type->toString(), "{ ... }");
    EXPECT_EQ(type->toKey(), "initializer_type");
}

TEST(InitializerType, InitializerMayBeSetLaterAndUnbindClearsIt) {
    auto const initializer = initializerOf({});
    auto const type = InitializerType::create({});
    type->setInitializer(initializer);
    EXPECT_EQ(type->getInitializer(), initializer);
    type->unbind();
    EXPECT_EQ(type->getInitializer(), nullptr);
    EXPECT_FALSE(type->isAssignableTo(model("Empty")));
}

TEST(InitializerType, FitsAModelWhoseAttributesItsEntriesMatchInOrder) {
    auto const two_ints = initializerOf({intType(), intType()});
    EXPECT_TRUE(fits(two_ints, model("Body", {typed("a", realType()), typed("b", intType())})));
    EXPECT_FALSE(fits(two_ints, model("Body", {typed("a", realType())})));
    EXPECT_FALSE(fits(two_ints,
                      model("Body", {typed("a", realType()), typed("b", intType()), typed("c", intType())})));
    auto const int_and_real = initializerOf({intType(), realType()});
    EXPECT_FALSE(fits(int_and_real, model("Body", {typed("a", realType()), typed("b", intType())})));
}

TEST(InitializerType, DoesNotFitAModelWithTraitsWhateverTheyAre) {
    auto const named = traitModel("Named");
    EXPECT_FALSE(fits(initializerOf({}), model("Body", {}, {with(named)})));
    EXPECT_FALSE(fits(initializerOf({intType()}), model("Body", {typed("a", intType())}, {with(named)})));
    EXPECT_TRUE(fits(initializerOf({}), named));
}

TEST(InitializerType, OfNoEntriesFitsAModelWithoutAttributes) {
    EXPECT_TRUE(fits(initializerOf({}), model("Empty")));
    EXPECT_TRUE(fits(initializerOf({}), model("Methods", {method("grow")})));
    EXPECT_FALSE(fits(initializerOf({}), model("Body", {typed("a", intType())})));
}

TEST(InitializerType, InheritedAttributesComeFirst) {
    auto const bools = PrimitiveType::create(Kind::Bool);
    auto const solid = model("Solid", {typed("a", bools)});
    auto const body = child("Body", solid, {typed("b", intType())});
    EXPECT_TRUE(fits(initializerOf({bools, intType()}), body));
    EXPECT_FALSE(fits(initializerOf({intType(), bools}), body));
}

TEST(InitializerType, EntryAndAttributeMustBothBeBound) {
    EXPECT_FALSE(fits(initializerOf({nullptr}), model("Body", {typed("a", realType())})));
    EXPECT_FALSE(fits(initializerOf({realType()}), model("Body", {declaration("a")})));
}

TEST(InitializerType, NestedInitializerFitsAnAttributeOfModelType) {
    auto const point = model("Point", {typed("x", realType()), typed("y", realType())});
    auto const corner = initializerOf({intType(), intType()});
    auto const outer = initializerOf({InitializerType::create(corner)});
    EXPECT_TRUE(fits(outer, model("Body", {typed("position", point)})));
    EXPECT_FALSE(fits(outer, model("Body", {typed("position", realType())})));
}

TEST(InitializerType, FitsNothingButModels) {
    auto const empty = initializerOf({});
    for (auto const& type : std::vector<TypePtr>{realType(), ArrayType::create(realType()),
                                                 InitializerType::create(empty), method("f"), nullptr})
        EXPECT_FALSE(fits(empty, type));
}

} // namespace Slate
