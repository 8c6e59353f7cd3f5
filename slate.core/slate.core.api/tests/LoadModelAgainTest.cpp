// Several loads on one context: what a later one sees of the earlier ones, and what it leaves of them.

#include "ModelLoading.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

/// The names of the objects that were told of the end of their evaluation. Factories are plain functions, so
/// it is kept for all of them.
Strings& initialisedObjects() {
    static Strings names;
    return names;
}

class Noting : public Object {
  public:
    void triggerOnInit() override {
        initialisedObjects().push_back(getName());
        Object::triggerOnInit();
    }
};

ObjectPtr makeNoting() { return std::make_shared<Noting>(); }

class LoadModelAgain : public ModelLoading {
  protected:
    void SetUp() override { initialisedObjects().clear(); }

    SlateContext context = SlateContext(StringVector{});
};

constexpr auto shaft = "Shaft:\n    length is Int: 1\n";
constexpr auto mill = "Mill:\n    shaft is Shaft\n    twice is Int: shaft.length * 2\n";
constexpr auto wheel = "Wheel:\n    size is Int: 5\n";

} // namespace

TEST_F(LoadModelAgain, OfASecondTextEvaluatesTheFirstOne) {
    auto const first = loadText(shaft, context);
    auto const second = loadText(wheel, context);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(second->getName(), "Shaft");
    EXPECT_EQ(second->getNumber("length"), 1);
    EXPECT_NE(first, second);
    EXPECT_TRUE(isInitialised(second));
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_EQ(loadText(wheel, context, "Wheel"), nullptr) << "no model of the first text";
    EXPECT_EQ(errors(context).front(), "<no file>: 30008 1:1 'Wheel'");
}

TEST_F(LoadModelAgain, OfASecondTextSeesBoth) {
    EXPECT_EQ(nameOf(loadText(mill, context)), "Mill");
    EXPECT_THAT(errors(context),
                ElementsAre("<no file>: 20001 2:14 'Shaft'", "<no file>: 20002 3:19 'shaft'"))
        << "the model comes with the second text";
    auto const second = loadText(shaft, context);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->getName(), "Mill");
    EXPECT_EQ(second->getNumber("twice"), 2);
    EXPECT_THAT(errors(context), SizeIs(2)) << "no new ones";
    EXPECT_FALSE(isInitialised(second)) << "but the old ones count";
}

TEST_F(LoadModelAgain, OfASecondFileSeesTheFirstOne) {
    tree.write("shaft.slate", shaft);
    tree.write("mill.slate", mill);
    EXPECT_EQ(nameOf(loadFile("shaft.slate", context)), "Shaft");
    auto const root = loadFile("mill.slate", context);
    ASSERT_TRUE(root);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_EQ(root->getNumber("twice"), 2);
    EXPECT_TRUE(isInitialised(root));
}

TEST_F(LoadModelAgain, OfOneFileMeetsItsModelsTwice) {
    tree.write("mill.slate", std::string(shaft) + mill);
    EXPECT_EQ(nameOf(loadFile("mill.slate", context)), "Mill");
    EXPECT_THAT(errors(context), IsEmpty());
    auto const again = loadFile("mill.slate", context);
    std::string const first = "ROOT/mill.slate: 20006 1:1 'Shaft'";
    std::string const second = "ROOT/mill.slate: 20006 3:1 'Mill'";
    EXPECT_THAT(errors(context), ElementsAre(first, second, first, second));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->getNumber("twice"), 2) << "the first of two models of one name stands";
    EXPECT_FALSE(isInitialised(again));
}

TEST_F(LoadModelAgain, OfADocumentThatIsKnownMeetsItsModelsTwice) {
    auto const document = parseFromString(mill + std::string(shaft), context).first;
    EXPECT_THAT(errors(context), IsEmpty());
    auto const root = loadModelFromDocument(document, "Mill", context);
    std::string const first = "<no file>: 20006 1:1 'Mill'";
    std::string const second = "<no file>: 20006 4:1 'Shaft'";
    EXPECT_THAT(errors(context), ElementsAre(first, second, first, second));
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumber("twice"), 2);
    EXPECT_FALSE(isInitialised(root));
}

TEST_F(LoadModelAgain, OfASecondDocumentParsesAnotherTextInPlaceOfTheFirst) {
    auto const first = loadModelFromDocument(Testing::parse(shaft, "a").document, std::nullopt, context);
    EXPECT_TRUE(isInitialised(first));
    auto const second = loadModelFromDocument(Testing::parse(wheel, "b").document, std::nullopt, context);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->getNumber("size"), 5);
    EXPECT_THAT(errors(context), ElementsAre("<document>: 10004 1:2", "<document>: 10004 1:10",
                                             "<document>: 10006 1:3", "<document>: 10007 1:5"));
    EXPECT_FALSE(isInitialised(second));
}

TEST_F(LoadModelAgain, OfEachKindOnOneContext) {
    tree.write("shaft.slate", shaft);
    EXPECT_EQ(nameOf(loadFile("shaft.slate", context)), "Shaft");
    EXPECT_EQ(loadText(mill, context)->getNumber("twice"), 2);
    auto const root = loadModelFromDocument(
        Testing::parse("Plant:\n    mill is Mill:\n        shaft.length: 4\n", "by hand").document,
        std::nullopt, context);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumber("mill.twice"), 8);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_TRUE(isInitialised(root->getObject("mill.shaft")));
    EXPECT_THAT(context.getRegisteredObjects(), SizeIs(1 + 2 + 3));
}

TEST_F(LoadModelAgain, OfADocumentOnAnotherContextStillSeesTheModelsThatItWasBoundToAndTheirTraits) {
    tree.write("base.slate", "trait Marked:\n    mark is Int: 1\n\nBase:\n    with Marked\n");
    EXPECT_EQ(nameOf(loadFile("base.slate", context)), "Base");
    auto const derived = Testing::parse("Derived is Base:\n    next is Int: mark + 1\n", "derived").document;
    EXPECT_EQ(loadModelFromDocument(derived, std::nullopt, context)->getNumber("next"), 2);

    SlateContext other(StringVector{});
    auto const root = loadModelFromDocument(derived, std::nullopt, other);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumber("next"), 2);
    EXPECT_THAT(errors(other), IsEmpty());
}

TEST_F(LoadModelAgain, InitialisesAllObjectsOfTheContextAgain) {
    context.getEvaluatorContext()->registerFactory("Shaft", makeNoting);
    auto const first = loadText(std::string(shaft) + mill, context, "Shaft");
    EXPECT_THAT(initialisedObjects(), ElementsAre("Shaft"));
    auto const uuid = first->getUuid();
    initialisedObjects().clear();
    auto const second = loadText("", context);
    EXPECT_THAT(initialisedObjects(), UnorderedElementsAre("Shaft", "Mill.shaft"));
    EXPECT_EQ(first->getUuid(), uuid) << "each has its uuid from the first time";
    EXPECT_NE(second->getObject("shaft")->getUuid(), uuid);
}

TEST_F(LoadModelAgain, InitialisesNothingOnceThereIsAnError) {
    context.getEvaluatorContext()->registerFactory("Shaft", makeNoting);
    EXPECT_EQ(loadText(shaft, context, "Mill"), nullptr);
    EXPECT_THAT(errors(context), SizeIs(1));
    auto const second = loadText("", context);
    ASSERT_TRUE(second);
    EXPECT_THAT(errors(context), SizeIs(1)) << "no fault of this one";
    EXPECT_EQ(second->getNumber("length"), 1);
    EXPECT_THAT(context.getRegisteredObjects(), ElementsAre(second));
    EXPECT_THAT(initialisedObjects(), IsEmpty());
    EXPECT_FALSE(isInitialised(second));

    SlateContext fresh(StringVector{});
    EXPECT_TRUE(isInitialised(loadText(shaft, fresh)));
}

TEST_F(LoadModelAgain, CountsAFileThatWasNotThere) {
    EXPECT_EQ(loadFile("none.slate", context), nullptr);
    EXPECT_FALSE(isInitialised(loadText(shaft, context)));
    EXPECT_THAT(errors(context), ElementsAre("ROOT/none.slate: 30009 0:0 'ROOT/none.slate'"));
}

TEST_F(LoadModelAgain, ReportsTheMistakesOfAnEarlierTextAgain) {
    loadText("Shaft:\n    length is Real: 1 / 0\n", context);
    loadText("", context);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 30001 2:25", "<no file>: 30001 2:25"));
}

TEST_F(LoadModelAgain, HasAnInstanceOfAConstModelForEachLoad) {
    constexpr auto text =
        "const Steel:\n    density is Int: 2\nMill:\n    steel is Steel\n    same is Steel\n";
    auto const first = loadText(text, context);
    auto const second = loadText("", context);
    EXPECT_EQ(first->getObject("steel"), first->getObject("same"));
    EXPECT_EQ(second->getObject("steel"), second->getObject("same"));
    EXPECT_NE(first->getObject("steel"), second->getObject("steel"));
}

TEST_F(LoadModelAgain, LeavesTheObjectsOfTheEarlierOneAndTakesTheirModelsApart) {
    bundle("plant", "plant");
    tree.write("plant/small/mill.slate", "Base:\n"
                                         "    count is Int: 3\n"
                                         "Mill is Base:\n"
                                         "    .unit: \"mm\"\n"
                                         "    length is Int: count * 2\n");
    auto const root = loadFile("plant/small/mill.slate", context);
    ASSERT_TRUE(root);
    auto const json = root->toJson(true);
    auto const model = root->getType();
    EXPECT_TRUE(model->getExtends());
    std::weak_ptr<Document> const document = model->getOwningDocument();
    ASSERT_FALSE(document.expired());

    loadText("Wheel\n", context);
    EXPECT_TRUE(document.expired()) << "every load parses all sources anew";
    EXPECT_EQ(root->toJson(true), json);
    EXPECT_EQ(root->getType(), model);
    EXPECT_EQ(model->getNameWithNamespace("."), "plant.small.Mill");
    EXPECT_TRUE(model->findFirstMember("length"));
    EXPECT_FALSE(model->findFirstMember("count"));
    EXPECT_FALSE(model->getExtends());
    EXPECT_FALSE(model->getOwningDocument());
    EXPECT_THAT(root->findAnnotations("unit"), SizeIs(1));
    EXPECT_EQ(root->getString(".unit"), "mm");
}

} // namespace Slate::Core::Api
