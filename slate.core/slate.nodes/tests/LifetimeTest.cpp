// Links back and across never keep a tree alive; types that the analysis makes live through the nodes that
// hold them.

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

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

/// Drops the pointer, which must be the only owner, and says whether the node went with it.
template <typename Owned>
bool goesWith(std::shared_ptr<Owned> owner) {
    std::weak_ptr<Owned> const observer = owner;
    owner.reset();
    return observer.expired();
}

/// A model as deep in a document's rings as the analysis can put it.
struct Ringed {
    VarAssignPtr mass = typed("mass", realType());
    MethodDeclPtr grow = method("grow");
    AnnotationPtr unit = annotation("unit");
    TraitImplPtr trait = TraitImpl::create(segments("Body"));
    DeletionPtr deletion = Deletion::create(segments("mass"));
    ModelDeclPtr body = ModelDeclaration::create(Token::None(), token("Body"), Token::None(), {}, {unit},
                                                 {trait}, {deletion}, {mass, grow});
    DocPtr shapes = document("Shapes", {body});
};

std::vector<std::pair<std::string, void (*)(Ringed&)>> const rings = {
    {"owning models", [](Ringed& ringed) {
         ringed.mass->setOwningModel(ringed.body);
         ringed.grow->setOwningModel(ringed.body);
         ringed.trait->setOwningModel(ringed.body);
         ringed.unit->setOwningModel(ringed.body);
     }},
    {"owning documents", [](Ringed& ringed) {
         ringed.mass->setOwningDocument(ringed.shapes);
         ringed.unit->setOwningDocument(ringed.shapes);
     }},
    {"owner of an annotation", [](Ringed& ringed) { ringed.unit->setOwner(ringed.mass); }},
    {"parent of an attribute", [](Ringed& ringed) { ringed.mass->setParent(ringed.mass); }},
    {"declaration as its own target", [](Ringed& ringed) { ringed.mass->setTargetDeclarations({ringed.mass}); }},
    {"attribute of the type of its model", [](Ringed& ringed) { ringed.mass->setType(ringed.body); }},
    {"attribute of an array of its model",
     [](Ringed& ringed) { ringed.mass->setType(ArrayType::create(ringed.body)); }},
    {"method that returns its model", [](Ringed& ringed) { ringed.grow->setReturnType(ringed.body); }},
    {"attribute of the type of a method", [](Ringed& ringed) { ringed.mass->setType(ringed.grow); }},
    {"model that extends itself", [](Ringed& ringed) { ringed.body->setExtends(ringed.body); }},
    {"model that mixes itself in", [](Ringed& ringed) { ringed.trait->setTraitDeclaration(ringed.body); }},
    {"methods in a trait entry", [](Ringed& ringed) { ringed.trait->appendToMembers(ringed.grow); }},
    {"what a deletion takes away", [](Ringed& ringed) { ringed.deletion->setDeclaration(ringed.mass); }},
    {"new symbols", [](Ringed& ringed) {
         ringed.body->setIsNewSymbol("mass", ringed.mass);
         ringed.body->setIsNewSymbol("body", ringed.body);
     }},
    {"names that the document sees",
     [](Ringed& ringed) { ringed.shapes->cacheNsLookup("Body", ringed.body, ringed.shapes); }},
};

} // namespace

TEST(Lifetime, TreeGoesWithItsDocumentWhateverRingItHolds) {
    for (auto const& [name, close] : rings) {
        std::weak_ptr<Document> document;
        std::weak_ptr<ModelDeclaration> body;
        std::weak_ptr<VarAssignment> mass;
        {
            Ringed ringed;
            close(ringed);
            document = ringed.shapes;
            body = ringed.body;
            mass = ringed.mass;
        }
        EXPECT_TRUE(document.expired() && body.expired() && mass.expired()) << name;
    }
}

TEST(Lifetime, TreeWithAllItsRingsGoesWithItsDocument) {
    auto ringed = std::make_unique<Ringed>();
    for (auto const& ring : rings)
        ring.second(*ringed);
    std::weak_ptr<ModelDeclaration> const body = ringed->body;
    ringed.reset();
    EXPECT_TRUE(body.expired());
}

TEST(Lifetime, DeclarationThatIsItsOwnTargetGoes) {
    auto mass = declaration("mass");
    mass->setTargetDeclarations({mass});
    EXPECT_TRUE(goesWith(std::move(mass)));
}

TEST(Lifetime, ArrayAndItsTypeGo) {
    auto array = Array::create({number("1")}, {}, {});
    auto const type = std::weak_ptr<ArrayType>([&array] {
        auto made = ArrayType::create(array);
        array->setType(made);
        return made;
    }());
    EXPECT_FALSE(type.expired());
    EXPECT_TRUE(goesWith(std::move(array)));
    EXPECT_TRUE(type.expired());
}

TEST(Lifetime, InitializerAndItsTypeGo) {
    auto initializer = Initializer::create({number("1")}, {}, {});
    initializer->setType(InitializerType::create(initializer));
    std::weak_ptr<Type> const type = initializer->getType();
    EXPECT_FALSE(type.expired());
    EXPECT_TRUE(goesWith(std::move(initializer)));
    EXPECT_TRUE(type.expired());
}

TEST(Lifetime, DocumentsThatSeeAndImportOneAnotherGo) {
    auto const first_import = Import::create(Token::String("second"), {}, {});
    auto const second_import = Import::create(Token::String("first"), {}, {});
    auto first_body = model("First");
    auto second_body = model("Second");
    auto first = document("a", {first_import, first_body});
    auto second = document("b", {second_import, second_body});
    first->cacheNsLookup("Second", second_body, second);
    second->cacheNsLookup("First", first_body, first);
    first_import->setDocument(second);
    first_import->setOwningDocument(first);
    second_import->setDocument(first);
    second_import->setOwningDocument(second);
    first_body.reset();
    second_body.reset();

    EXPECT_TRUE(goesWith(std::move(second)));
    EXPECT_EQ(first->nsLookup("Second"), nullptr);
    EXPECT_EQ(first_import->getDocument(), nullptr);
    EXPECT_TRUE(goesWith(std::move(first)));
}

TEST(Lifetime, ModelsThatExtendAndHoldOneAnotherGo) {
    auto first = model("First");
    auto second = model("Second");
    first->setExtends(second);
    second->setExtends(first);
    first->appendToMembers(typed("next", second));
    second->appendToMembers(typed("next", first));
    EXPECT_TRUE(goesWith(std::move(first)));
    EXPECT_EQ(second->getExtends(), nullptr);
    EXPECT_EQ(second->findFirstMemberWithType("next")->getType(), nullptr);
    EXPECT_TRUE(goesWith(std::move(second)));
}

TEST(Lifetime, ExpressionsHoldNothingTheyAreBoundTo) {
    auto mass = declaration("mass");
    auto grow = method("grow");
    auto plus = OperatorOverload::create(token("+"), {}, {});
    auto body = model("Body");
    auto const name = constant("mass");
    auto const access = MemberAccess::create(name, token("mass"));
    auto const call = Call::create(access, {});
    auto const sum = BinaryOp::create(call, name, token("+"));
    auto const negation = Unary::create(token("-"), sum);
    name->setDeclaration(mass);
    name->setType(body);
    access->setDeclaration(mass);
    call->setMethod(grow);
    sum->setOverload(plus);
    negation->setOverload(plus);

    EXPECT_TRUE(goesWith(std::move(mass)));
    EXPECT_TRUE(goesWith(std::move(grow)));
    EXPECT_TRUE(goesWith(std::move(plus)));
    EXPECT_TRUE(goesWith(std::move(body)));
    EXPECT_EQ(name->getDeclaration(), nullptr);
    EXPECT_EQ(name->getType(), nullptr);
    EXPECT_EQ(access->getDeclaration(), nullptr);
    EXPECT_EQ(call->getMethod(), nullptr);
    EXPECT_EQ(sum->getOverload(), nullptr);
    EXPECT_EQ(negation->getOverload(), nullptr);
}

TEST(Lifetime, OverloadOfOperandsOfADocumentGoesWithIt) {
    auto const body = model("Body");
    auto const operand = Parameter::create(token("operand"), segments("Body"));
    auto const plus = OperatorOverload::create(token("+"), {operand}, segments("Body"));
    auto shapes = document("Shapes", {body, plus});
    plus->setOwningDocument(shapes);
    plus->setReturnType(body);
    operand->setType(body);
    EXPECT_TRUE(goesWith(std::move(shapes)));
    EXPECT_EQ(plus->getOverloadName(), "");
}

TEST(Lifetime, TypesMadeByTheAnalysisLiveThroughTheNodeThatHoldsThem) {
    auto const initializer = Initializer::create({}, {}, {});
    auto const name = constant("mass");
    auto const mass = declaration("mass");
    auto const grow = method("grow");
    auto const size = Parameter::create(token("size"), {});
    auto const plus = OperatorOverload::create(token("+"), {}, {});

    name->setType(realType());
    mass->setType(ArrayType::create(ArrayType::create(realType())));
    grow->setReturnType(InitializerType::create(initializer));
    size->setType(intType());
    plus->setReturnType(realType());

    ASSERT_TRUE(name->getType() && mass->getType() && grow->getReturnType());
    EXPECT_EQ(name->getType()->toString(), "Real");
    EXPECT_EQ(mass->getType()->toString(), "Real[][]");
    EXPECT_EQ(grow->getReturnType()->toString(), "{ ... }");
    EXPECT_EQ(size->getType()->toString(), "Int");
    EXPECT_EQ(plus->getReturnType()->toString(), "Real");

    std::weak_ptr<Type> const type = mass->getType();
    mass->unbind();
    EXPECT_TRUE(type.expired());
}

TEST(Lifetime, TypeThatIsAModelOfADroppedDocumentReadsAsNone) {
    auto const mass = declaration("mass");
    auto const bodies = ArrayType::create({});
    auto shapes = document("Shapes", {model("Body")});
    mass->setType(shapes->findFirstMember("Body")->asModelDeclaration());
    bodies->setElement(shapes->findFirstMember("Body"));
    EXPECT_EQ(mass->getType()->toString(), "Shapes.Body");
    shapes.reset();
    EXPECT_EQ(mass->getType(), nullptr);
    EXPECT_EQ(bodies->toKey(), "anon_array");
}

} // namespace Slate
