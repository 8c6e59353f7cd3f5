// From a file, a text or a document to the objects of one model.

#include "ModelLoading.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using LoadModel = ModelLoading;

constexpr auto mill = "Shaft:\n"
                      "    length is Real: 1.5\n"
                      "factor is Real: 2\n"
                      "const Steel:\n"
                      "    density is Int: 7850\n"
                      "Mill:\n"
                      "    shaft is Shaft\n"
                      "    double is Real: shaft.length * factor\n"
                      "operator + (a: Shaft, b: Shaft) -> Shaft\n"
                      "scale is Real: 4\n";

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

/// Has a method "times".
class NativeVector : public Object {
  public:
    NativeVector() { appendToTypeList("NativeVector"); }

    Any callDynamic(std::string const& key, std::vector<Any> const& arguments) override {
        return key == "times" ? Any(getNumber("x") * arguments.at(0).asReal())
                              : Object::callDynamic(key, arguments);
    }
};

ObjectPtr makeVector() { return std::make_shared<NativeVector>(); }

Any vectorOf(double x) {
    auto const vector = makeVector();
    vector->setDynamic("x", Any(x));
    return Any(vector);
}

Any makeFrom(std::vector<Any> arguments) { return vectorOf(arguments.at(0).asReal()); }

Any add(Any lhs, Any rhs) {
    return vectorOf(lhs.asObject()->getNumber("x") + rhs.asObject()->getNumber("x"));
}

Any negate(Any operand) { return vectorOf(-operand.asObject()->getNumber("x")); }

// NOLINTEND(performance-unnecessary-value-param)

/// A name to load a model by, and the name of the object that it leads to.
struct Pick {
    char const* description;
    std::optional<std::string> model;
    char const* object;
};

void PrintTo(Pick const& pick, std::ostream* out) { *out << pick.description; }

class LoadModelByName : public ModelLoading, public testing::WithParamInterface<Pick> {
  protected:
    /// The object, or the one error and the one line that tell of the missing model; `source` is where it
    /// was looked for.
    void check(ObjectPtr const& object, SlateContext const& context, std::string const& source) const {
        EXPECT_EQ(nameOf(object), GetParam().object);
        if (object) {
            EXPECT_THAT(errors(context), IsEmpty());
            EXPECT_TRUE(isInitialised(object));
            return;
        }
        auto const& name = GetParam().model;
        EXPECT_THAT(errors(context), ElementsAre(source + ": 30008 1:1 '" + name.value_or("") + "'"));
        EXPECT_EQ(context.getInternal().getAnalysisContext(), nullptr);
        EXPECT_THAT(context.getRegisteredObjects(), IsEmpty());
    }
};

} // namespace

TEST_P(LoadModelByName, OfAText) {
    SlateContext context(paths({}));
    check(loadText(mill, context, GetParam().model), context, "<no file>");
}

TEST_P(LoadModelByName, OfAFile) {
    tree.write("mill.slate", mill);
    SlateContext context(paths({}));
    check(loadFile("mill.slate", context, GetParam().model), context, "ROOT/mill.slate");
}

TEST_P(LoadModelByName, OfADocument) {
    SlateContext context(paths({}));
    auto const document = Testing::parse(mill, "by hand").document;
    check(loadModelFromDocument(document, GetParam().model, context), context, "by hand");
}

TEST_P(LoadModelByName, OfADocumentThatTheContextKnows) {
    SlateContext context(paths({}));
    auto const document = parseFromString(mill, context).first;
    check(analyzeAndEvaluate(context, document, GetParam().model), context, "<no file>");
}

INSTANTIATE_TEST_SUITE_P(
    All, LoadModelByName,
    testing::Values(Pick{"WithoutNameTheLastModel", std::nullopt, "Mill"},
                    Pick{"TheNamedOne", "Shaft", "Shaft"}, Pick{"AConstOne", "Steel", "Steel"},
                    Pick{"TheEmptyNameIsAName", "", "none"}, Pick{"AVariableIsNoModel", "scale", "none"},
                    Pick{"AnAttributeIsNoModel", "shaft", "none"}, Pick{"ACaseOfItsOwn", "mill", "none"},
                    Pick{"APath", "Mill.shaft", "none"}),
    [](auto const& instance) { return std::string(instance.param.description); });

TEST_F(LoadModel, GivesTheWholeTree) {
    SlateContext context(paths({}));
    auto const root = loadText(mill, context);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumber("double"), 3);
    EXPECT_EQ(root->getNumber("scale") + root->getNumber("factor"), 6);
    EXPECT_EQ(root->getObject("shaft")->getName(), "Mill.shaft");
    EXPECT_TRUE(isInitialised(root->getObject("shaft")));
    EXPECT_THAT(context.getRegisteredObjects(), UnorderedElementsAre(root, root->getObject("shaft")));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(LoadModel, OfATextWithoutModelFindsNone) {
    for (auto const* const text : {"", "# nothing\n", "size is Real: 2\n"}) {
        SlateContext context(paths({}));
        EXPECT_EQ(loadText(text, context), nullptr);
        EXPECT_THAT(errors(context), ElementsAre("<no file>: 30008 1:1 ''")) << text;
    }
}

TEST_F(LoadModel, ThatIsMissingIsLoggedAndNothingIsAnalysed) {
    SlateContext context(paths({}));
    EXPECT_EQ(loadText("Shaft:\n    length is Rael\n", context, "Mill"), nullptr);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 30008 1:1 'Mill'"));
    EXPECT_THAT(logged(),
                ElementsAre("error Slate::Core::Api::analyzeAndEvaluate: No model declaration could be found "
                            "for model named \"Mill\"  in <no file> "
                            "(slate.core/slate.core.api/src/slate/SlateCoreApi.cpp)"));
}

TEST_F(LoadModel, OfAnotherSourceIsNotFound) {
    bundle("plant", "plant");
    tree.write("plant/mill.slate", "Mill:\n    shaft is Shaft\n");
    tree.write("plant/shaft.slate", "Shaft:\n    length is Real: 1\n");
    SlateContext context(paths({}));
    EXPECT_EQ(loadFile("plant/mill.slate", context, "Shaft"), nullptr);
    EXPECT_EQ(loadFile("plant/mill.slate", context, "plant.Mill"), nullptr);
    EXPECT_THAT(errors(context), ElementsAre("ROOT/plant/mill.slate: 30008 1:1 'Shaft'",
                                             "ROOT/plant/mill.slate: 30008 1:1 'plant.Mill'"));
}

TEST_F(LoadModel, OfAFileThatDoesNotExistIsNothing) {
    SlateContext context(paths({}));
    EXPECT_EQ(loadFile("none.slate", context), nullptr);
    EXPECT_THAT(errors(context), ElementsAre("ROOT/none.slate: 30009 0:0 'ROOT/none.slate'"));
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(context.getInternal().getAnalysisContext(), nullptr);
}

TEST_F(LoadModel, UsesTheBundlesThatItsOwnDependsOn) {
    bundle("plant", "plant", R"("parts")");
    tree.write("plant/oil.slate", "const Oil:\n    density is Real: 0.5\n");
    tree.write("plant/stages/mill.slate", "Mill:\n"
                                          "    gear is parts.Gear:\n"
                                          "        teeth: 30\n"
                                          "    load is Real: gear.weight * Oil.density\n");
    bundle("libraries/parts", "parts");
    tree.write("libraries/parts/gear.slate", "Gear:\n"
                                             "    teeth is Int: 20\n"
                                             "    weight is Real: teeth * 2\n");
    SlateContext context(paths({"libraries"}));
    auto const root = loadFile("plant/stages/mill.slate", context);
    ASSERT_TRUE(root);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_EQ(root->getNumber("load"), 30);
    EXPECT_EQ(root->getType()->getNameWithNamespace("."), "plant.stages.Mill");
    EXPECT_EQ(root->getObject("gear")->getType()->getNameWithNamespace("."), "parts.Gear");
}

TEST_F(LoadModel, CallsTheNativesOfTheContext) {
    SlateContext context(paths({}));
    auto const natives = context.getEvaluatorContext();
    natives->registerFactory("V", makeVector);
    natives->registerStaticMethod("V::make", makeFrom);
    natives->registerBinaryOperatorMethod("::operator_+::.V::.V", add);
    natives->registerUnaryOperatorMethod("::operator_-::.V", negate);
    auto const root = loadText("V:\n"
                               "    x is Real: 1\n"
                               "    fn times(factor: Real) -> Real\n"
                               "    static fn make(x: Real) -> V\n"
                               "Place is V\n"
                               "operator + (a: V, b: V) -> V\n"
                               "operator - (a: V) -> V\n"
                               "Mill:\n"
                               "    place is Place\n"
                               "    made is V: V.make(2.5)\n"
                               "    sum is V: made + -place\n"
                               "    length is Real: sum.times(4)\n",
                               context);
    ASSERT_TRUE(root);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_EQ(root->getNumber("length"), 6);
    for (auto const* const key : {"place", "made", "sum"}) {
        auto const vector = root->getObject(key);
        ASSERT_TRUE(vector) << key;
        EXPECT_THAT(vector->getTypeList(), ElementsAre("Slate::Core::Object", "NativeVector"));
        EXPECT_EQ(vector->getName(), "Mill." + std::string(key));
        EXPECT_TRUE(isInitialised(vector));
    }
    EXPECT_THAT(context.getRegisteredObjects(), testing::SizeIs(4)) << "what is made on the way is not";
}

TEST_F(LoadModel, WithMistakesIsEvaluatedAsFarAsItGoes) {
    SlateContext context(paths({}));
    auto const root = loadText("Mill:\n"
                               "    first is Real: 1 2\n"
                               "    second is Rael\n"
                               "    third is Real: 1 / 0\n"
                               "    fourth is Real: 4\n",
                               context);
    ASSERT_TRUE(root);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 10016 2:22", "<no file>: 20001 3:15 'Rael'",
                                             "<no file>: 30003 2:5 'Mill.first'", "<no file>: 30001 4:24"));
    EXPECT_EQ(root->toJson(), R"({"__name":"Mill","__uuid":"","__type_list":["Slate::Core::Object"],)"
                              R"("fourth":4})");
    EXPECT_THAT(context.getRegisteredObjects(), ElementsAre(root));
}

TEST_F(LoadModel, GivenUpIsNothing) {
    SlateContext context(paths({}));
    EXPECT_EQ(loadText("Mill:\n    shaft is Real:\n        .unit: \"mm\"\n", context), nullptr);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 30003 2:5 'Mill.shaft'"));
    EXPECT_THAT(context.getRegisteredObjects(), IsEmpty());
}

TEST_F(LoadModel, WithASourceWithoutDocumentIsNothing) {
    SlateContext context(paths({}));
    auto const document = parseFromString(mill, context).first;
    context.getInternal().getDocuments().front()->document = nullptr;
    EXPECT_EQ(analyzeAndEvaluate(context, document, std::nullopt), nullptr);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_THAT(logged(), ElementsAre("error Slate::Core::Api::analyze: Corrupt slate context "
                                      "(slate.core/slate.core.api/src/slate/SlateCoreApi.cpp)"));
}

TEST_F(LoadModel, OfAnEmptyDocumentIsNothing) {
    SlateContext context(paths({}));
    EXPECT_EQ(loadModelFromDocument({}, std::nullopt, context), nullptr);
    EXPECT_EQ(analyzeAndEvaluate(context, {}, "Mill"), nullptr);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_THAT(logged(), testing::ElementsAreArray(
                              Strings(2, "error Slate::Core::Api::analyzeAndEvaluate: Corrupt slate context "
                                         "(slate.core/slate.core.api/src/slate/SlateCoreApi.cpp)")));
}

TEST_F(LoadModel, MayDeclareInsideOfAttributesUnlessToldOtherwise) {
    constexpr auto nested = "Shaft:\n    length is Real: 1\n"
                            "Mill:\n    shaft is Shaft:\n        width is Real: 2\n";
    SlateContext allowed(paths({}));
    EXPECT_EQ(loadText(nested, allowed)->getNumber("shaft.width"), 2);
    SlateContext refused(paths({}));
    refused.setNestedDeclarationsAllowed(false);
    auto const root = loadText(nested, refused);
    EXPECT_THAT(errors(refused), ElementsAre("<no file>: 20014 5:9"));
    ASSERT_TRUE(root);
    EXPECT_EQ(root->getNumber("shaft.length"), 1);
    EXPECT_TRUE(root->getObject("shaft")->getDynamic("width").isUndefined());
}

} // namespace Slate::Core::Api
