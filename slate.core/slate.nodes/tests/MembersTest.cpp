#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Deletion.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/Parameter.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

ParamPtr parameter(TypePtr const& type) {
    auto result = Parameter::create(token("operand"), segments("Body"));
    result->setType(type);
    return result;
}

OpOverloadPtr overload(std::string const& symbol, vec<ParamPtr> parameters) {
    return OperatorOverload::create(token(symbol), std::move(parameters), segments("Body"));
}

} // namespace

TEST(MethodDeclaration, AccessorsGiveWhatWasParsed) {
    auto const size = Parameter::create(token("size"), segments("Real"));
    auto const grow = MethodDeclaration::create(Token::Keyword(TokenType::Static), token("grow"), {size},
                                                segments("Shapes.Body"));
    EXPECT_EQ(grow->getStaticToken(), Token::Keyword(TokenType::Static));
    EXPECT_EQ(grow->getNameToken(), token("grow"));
    EXPECT_EQ(grow->getName(), "grow");
    EXPECT_THAT(grow->getParameters(), ElementsAre(size));
    EXPECT_EQ(grow->getReturnSegments(), segments("Shapes.Body"));
    EXPECT_EQ(grow->getReturnType(), nullptr);
    EXPECT_EQ(grow->getOwningModel(), nullptr);
}

TEST(MethodDeclaration, IsStaticByItsQualifier) {
    EXPECT_TRUE(MethodDeclaration::create(Token::Keyword(TokenType::Static), token("f"), {}, {})->isStatic());
    EXPECT_FALSE(method("f")->isStatic());
}

TEST(MethodDeclaration, PrintsItsNameAndHasTheModelInItsKey) {
    auto const grow = method("grow");
    EXPECT_EQ(grow->toString(), "grow");
    EXPECT_EQ(grow->toKey(), "grow");

    auto const body = model("Body", {grow});
    EXPECT_EQ(grow->toKey(), "Body_grow");
    auto const shapes = document("Shapes.Solids", {body});
    EXPECT_EQ(grow->toKey(), "Shapes_Solids_Body_grow");
    EXPECT_EQ(grow->toString(), "grow");
}

TEST(MethodDeclaration, IsAssignableToNothing) {
    auto const grow = method("grow");
    for (auto const& other : std::vector<TypePtr>{grow, realType(), model("grow"), nullptr})
        EXPECT_FALSE(grow->isAssignableTo(other));
}

TEST(MethodDeclaration, UnbindClearsOwnerAndTypesAndKeepsTheSignature) {
    auto const size = parameter(realType());
    auto const grow =
        MethodDeclaration::create(Token::Keyword(TokenType::Static), token("grow"), {size}, segments("Real"));
    auto const body = model("Body", {grow});
    grow->setReturnType(realType());

    grow->unbind();
    EXPECT_EQ(grow->getOwningModel(), nullptr);
    EXPECT_EQ(grow->getReturnType(), nullptr);
    EXPECT_EQ(size->getType(), nullptr);
    EXPECT_TRUE(grow->isStatic());
    EXPECT_EQ(grow->getNameToken(), token("grow"));
    EXPECT_THAT(grow->getParameters(), ElementsAre(size));
    EXPECT_EQ(grow->getReturnSegments(), segments("Real"));
}

TEST(OperatorOverload, AccessorsGiveWhatWasParsed) {
    auto const operand = parameter({});
    auto const minus = overload("-", {operand});
    EXPECT_EQ(minus->getOperatorToken(), token("-"));
    EXPECT_THAT(minus->getParameters(), ElementsAre(operand));
    EXPECT_EQ(minus->getReturnSegments(), segments("Body"));
    EXPECT_EQ(minus->getReturnType(), nullptr);
    EXPECT_EQ(minus->getOwningDocument(), nullptr);
}

TEST(OperatorOverload, NameHoldsNamespaceOperatorAndTheTypesOfTwoOperands) {
    auto const body = model("Body");
    auto const shapes = document("Shapes", {body});
    auto const bodies = parameter(body);
    auto const reals = parameter(realType());

    for (auto const& [parameters, name] : std::vector<std::pair<vec<ParamPtr>, std::string>>{
             {{bodies, bodies}, "Shapes::operator_+::Shapes.Body::Shapes.Body"},
             {{bodies, reals}, "Shapes::operator_+::Shapes.Body::Real"},
             {{bodies}, "Shapes::operator_+::Shapes.Body"},
             {{reals, bodies, reals}, "Shapes::operator_+::Real::Shapes.Body"},
         }) {
        auto const plus = overload("+", parameters);
        EXPECT_EQ(plus->getOverloadName(), "");
        plus->setOwningDocument(shapes);
        EXPECT_EQ(plus->getOverloadName(), name);
    }
}

TEST(OperatorOverload, NameWithOneParameterHasOneType) {
    auto const shapes = document("Shapes.Solids");
    auto const minus = overload("-", {parameter(realType())});
    minus->setOwningDocument(shapes);
    EXPECT_EQ(minus->getOverloadName(), "Shapes::Solids::operator_-::Real");
}

TEST(OperatorOverload, NameHoldsNothingForAnUnboundTypeAndInAnEmptyNamespace) {
    auto const unnamed = document("");
    auto const times = overload("*", {parameter({}), parameter(realType())});
    times->setOwningDocument(unnamed);
    EXPECT_EQ(times->getOverloadName(), "::operator_*::::Real");
}

TEST(OperatorOverload, UnbindClearsOwnerAndTypesAndKeepsTheSignature) {
    auto const operand = parameter(realType());
    auto const minus = overload("-", {operand});
    auto const shapes = document("Shapes");
    minus->setOwningDocument(shapes);
    minus->setReturnType(realType());

    minus->unbind();
    EXPECT_EQ(minus->getOwningDocument(), nullptr);
    EXPECT_EQ(minus->getReturnType(), nullptr);
    EXPECT_EQ(operand->getType(), nullptr);
    EXPECT_EQ(minus->getOverloadName(), "");
    EXPECT_EQ(minus->getOperatorToken(), token("-"));
    EXPECT_THAT(minus->getParameters(), ElementsAre(operand));
    EXPECT_EQ(minus->getReturnSegments(), segments("Body"));
}

TEST(Parameter, UnbindClearsTheTypeAlone) {
    auto const size = Parameter::create(token("size"), segments("Shapes.Body"));
    EXPECT_EQ(size->getType(), nullptr);
    auto const real = realType();
    size->setType(real);
    EXPECT_EQ(size->getType(), real);

    size->unbind();
    EXPECT_EQ(size->getType(), nullptr);
    EXPECT_EQ(size->getNameToken(), token("size"));
    EXPECT_EQ(size->getTypeSegments(), segments("Shapes.Body"));
}

TEST(Annotation, UnbindClearsItsPlaceAndUnbindsItsValue) {
    auto const value = number("1");
    auto const unit = Annotation::create(token("unit"), value);
    auto const body = model("Body");
    auto const shapes = document("Shapes", {body});
    auto const mass = declaration("mass");
    unit->setOwningDocument(shapes);
    unit->setOwningModel(body);
    unit->setOwner(mass);
    value->setType(realType());
    EXPECT_EQ(unit->getOwningDocument(), shapes);
    EXPECT_EQ(unit->getOwningModel(), body);
    EXPECT_EQ(unit->getOwner(), mass);

    unit->unbind();
    EXPECT_EQ(unit->getOwningDocument(), nullptr);
    EXPECT_EQ(unit->getOwningModel(), nullptr);
    EXPECT_EQ(unit->getOwner(), nullptr);
    EXPECT_EQ(value->getType(), nullptr);
    EXPECT_EQ(unit->getNameToken(), token("unit"));
    EXPECT_EQ(unit->getName(), "unit");
    EXPECT_EQ(unit->getValue(), value);
}

TEST(Annotation, WithoutValueIsUnbound) {
    auto const unit = Annotation::create(token("unit"), {});
    EXPECT_NO_THROW(unit->unbind());
    EXPECT_EQ(unit->getValue(), nullptr);
}

TEST(Import, UnbindClearsBothDocumentsAndUnbindsItsAnnotations) {
    auto const unit = annotation("unit");
    auto const import = Import::create(Token::String("\"a.step\""), segments("Shapes.Solids"), {unit});
    EXPECT_EQ(import->getDocument(), nullptr);
    auto const imported = document("a");
    auto const owning = document("b", {import});
    import->setDocument(imported);
    import->setOwningDocument(owning);
    unit->setOwningDocument(owning);
    EXPECT_EQ(import->getDocument(), imported);
    EXPECT_EQ(import->getOwningDocument(), owning);

    import->unbind();
    EXPECT_EQ(import->getDocument(), nullptr);
    EXPECT_EQ(import->getOwningDocument(), nullptr);
    EXPECT_EQ(unit->getOwningDocument(), nullptr);
    EXPECT_EQ(import->getPathToken(), Token::String("\"a.step\""));
    EXPECT_EQ(import->getAliasSegments(), segments("Shapes.Solids"));
    EXPECT_THAT(import->getAnnotations(), ElementsAre(unit));
}

TEST(TraitImpl, UnbindClearsAllButItsSegments) {
    auto const named = traitModel("Named");
    auto const body = model("Body");
    auto const trait = TraitImpl::create(segments("Shapes.Named"));
    auto const nested = with(named);
    auto const member = declaration("name");
    auto const unit = annotation("unit");
    trait->setTraitDeclaration(named);
    trait->setOwningModel(body);
    trait->setNestedTrait(nested);
    trait->appendToMembers(member);
    trait->appendToAnnotations(unit);
    EXPECT_EQ(trait->getTraitDeclaration(), named);
    EXPECT_EQ(trait->getOwningModel(), body);
    EXPECT_EQ(trait->getNestedTrait(), nested);
    EXPECT_THAT(trait->getMembers(), ElementsAre(member));
    EXPECT_THAT(trait->getAnnotations(), ElementsAre(unit));

    trait->unbind();
    EXPECT_EQ(trait->getTraitDeclaration(), nullptr);
    EXPECT_EQ(trait->getOwningModel(), nullptr);
    EXPECT_EQ(trait->getNestedTrait(), nullptr);
    EXPECT_THAT(trait->getMembers(), IsEmpty());
    EXPECT_THAT(trait->getAnnotations(), IsEmpty());
    EXPECT_EQ(trait->getSegments(), segments("Shapes.Named"));
}

TEST(Deletion, UnbindClearsTheDeclarationAlone) {
    auto const tag = declaration("tag");
    auto const deletion = Deletion::create(segments("tag"));
    EXPECT_EQ(deletion->getDeclaration(), nullptr);
    deletion->setDeclaration(tag);
    EXPECT_EQ(deletion->getDeclaration(), tag);

    deletion->unbind();
    EXPECT_EQ(deletion->getDeclaration(), nullptr);
    EXPECT_EQ(deletion->getSegments(), segments("tag"));
}

} // namespace Slate
