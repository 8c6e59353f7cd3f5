#include "BundlePathVariable.h"
#include "Loading.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

#include <type_traits>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::thrownBy;

struct Split {
    std::string path;
    StringVector pieces;
};

std::ostream& operator<<(std::ostream& out, Split const& split) { return out << '"' << split.path << '"'; }

class BundlePaths : public testing::TestWithParam<Split> {};

class Context : public Loading {
  protected:
    Strings bundlesOf(SlateContext const& context) const {
        Strings all;
        for (auto const& bundle : context.getInternal().getAnalysisContext()->getBundles()) {
            auto text = bundle.bundle_name + ":";
            for (auto const& source : bundle.documents)
                text += " " + source->path.string();
            all.push_back(inTree(text));
        }
        return all;
    }
};

static_assert(!std::is_copy_constructible_v<SlateContext> && !std::is_copy_assignable_v<SlateContext>);

} // namespace

TEST_P(BundlePaths, AreCutAtEachSemicolonAndNothingElse) {
    Testing::LogCapture const log;
    EXPECT_EQ(SlateContext::deriveBundlePaths(GetParam().path), GetParam().pieces);
    BundlePathVariable const variable(GetParam().path);
    EXPECT_EQ(SlateContext::deriveBundlePaths(), GetParam().pieces);
}

INSTANTIATE_TEST_SUITE_P(All, BundlePaths,
                         testing::Values(Split{"", {""}}, Split{"a", {"a"}}, Split{"a;b", {"a", "b"}},
                                         Split{"a;;b", {"a", "", "b"}}, Split{"a;", {"a", ""}},
                                         Split{";a", {"", "a"}}, Split{";", {"", ""}},
                                         Split{" a ; b:c,d ", {" a ", " b:c,d "}}));

TEST_F(Context, WithoutTheVariableThereAreNoPathsAndTheContextIsUsable) {
    BundlePathVariable const variable(std::nullopt);
    EXPECT_THAT(SlateContext::deriveBundlePaths(), IsEmpty());
    SlateContext context;
    EXPECT_NE(parseFromString("x is Real: 1\n", context).first, nullptr);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: "));
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(Context, AnEmptyVariableIsOneEmptyPathThatEndsTheFirstLoad) {
    BundlePathVariable const variable("");
    SlateContext context;
    EXPECT_EQ(thrownBy([&] { parseFromString("", context); }), "directory_iterator::directory_iterator ");
}

TEST_F(Context, TakesItsPathsFromTheVariable) {
    bundle("one/shapes", "Shapes");
    tree.write("one/shapes/body.slate", "");
    bundle("two", "Units");
    tree.write("two/metre.slate", "");
    BundlePathVariable const variable(tree.path("one").string() + ";" + tree.path("two").string());
    SlateContext context;
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/one/shapes/body.slate: Shapes",
                                              "ROOT/two/metre.slate: Units"));
}

TEST_F(Context, DoesNotLookAtThePathsItIsGiven) {
    SlateContext const context(StringVector{"/nowhere", "", "a;b"});
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_THAT(context.getInternal().getDocuments(), IsEmpty());
}

TEST_F(Context, BeginsWithoutErrorsObjectsPluginsAndAnalysis) {
    SlateContext context(paths({}));
    EXPECT_FALSE(context.hasErrors());
    EXPECT_THAT(context.getErrors(), IsEmpty());
    EXPECT_THAT(context.getRegisteredObjects(), IsEmpty());
    EXPECT_THAT(getRegisteredPlugins(context), IsEmpty());
    EXPECT_EQ(context.getInternal().getAnalysisContext(), nullptr);
    EXPECT_NE(context.getEvaluatorContext(), nullptr);
    EXPECT_EQ(context.getEvaluatorContext(), context.getInternal().getEvaluatorContext());
}

TEST_F(Context, GivesTheSameErrorsEachTimeAndKeepsThem) {
    SlateContext context(paths({}));
    load("one.slate", context);
    auto const errors = context.getErrors();
    EXPECT_THAT(errors, testing::SizeIs(1));
    EXPECT_EQ(context.getErrors(), errors);

    load("two.slate", context);
    parseFromString("", context);
    EXPECT_TRUE(context.hasErrors());
    EXPECT_THAT(context.getErrors(), ElementsAre(errors.front(), testing::_));
    EXPECT_THAT(errors, testing::SizeIs(1));
}

TEST_F(Context, AllowsNestedDeclarationsUntilToldOtherwise) {
    SlateContext context(paths({}));
    for (bool const allowed : {true, false, true}) {
        context.setNestedDeclarationsAllowed(allowed);
        EXPECT_EQ(context.isNestedDeclarationsAllowed(), allowed);
        EXPECT_EQ(context.getInternal().isNestedDeclarationsAllowed(), allowed);
    }
    EXPECT_TRUE(SlateContext(paths({})).isNestedDeclarationsAllowed());
}

TEST_F(Context, ReleasesNothingWithoutAnalysis) {
    SlateContext context(paths({}));
    context.release();
    parseFromString("", context);
    context.release();
    EXPECT_THAT(sources(context), ElementsAre("<no file>: "));
}

TEST_F(Context, ReleaseEmptiesTheAnalysisAndKeepsTheDocuments) {
    SlateContext context(paths({}));
    auto const document = parseFromString("", context).first;
    context.getInternal().rebuildAnalysisContext();
    auto const analysis = context.getInternal().getAnalysisContext();
    ASSERT_THAT(analysis->findAllDocuments(), ElementsAre(document));
    context.release();
    EXPECT_THAT(analysis->getBundles(), IsEmpty());
    EXPECT_EQ(context.getInternal().getAnalysisContext(), analysis);
    EXPECT_THAT(parseFromString("", context).second, testing::SizeIs(2));
}

TEST_F(Context, AnalysesBundlesInTheOrderOfTheirFirstAppearance) {
    bundle("shapes", "Shapes", R"("Units")");
    tree.write("shapes/body.slate", "");
    bundle("libraries/units", "Units");
    tree.write("libraries/units/metre.slate", "");
    SlateContext context(paths({"libraries"}));
    load("shapes/body.slate", context);
    parseFromString("", context);

    context.getInternal().rebuildAnalysisContext();
    EXPECT_THAT(bundlesOf(context),
                ElementsAre("Units: ROOT/libraries/units/metre.slate ROOT/libraries/units/metre.slate",
                            "Shapes: ROOT/shapes/body.slate ROOT/shapes/body.slate", "<default>: <no file>"));
}

TEST_F(Context, AnalysisHasTheDocumentsAndErrorsOfTheContextItself) {
    SlateContext context(paths({}));
    parseFromString("", context);
    auto& internal = context.getInternal();
    internal.rebuildAnalysisContext();
    auto const analysis = internal.getAnalysisContext();
    EXPECT_EQ(analysis->getBundles().at(0).documents, internal.getDocuments());
    EXPECT_EQ(analysis->getErrorReporter(), internal.getErrorReporter());
}

TEST_F(Context, EachRebuildMakesANewAnalysisAndKeepsNoneOfTheOld) {
    SlateContext const context(paths({}));
    auto& internal = context.getInternal();
    internal.rebuildAnalysisContext();
    EXPECT_THAT(bundlesOf(context), IsEmpty());
    std::weak_ptr<Analysis::AnalysisContext> const first = internal.getAnalysisContext();
    auto const held_by_host = first.lock();
    internal.rebuildAnalysisContext();
    EXPECT_NE(internal.getAnalysisContext(), held_by_host);
    EXPECT_EQ(held_by_host.use_count(), 1);
}

} // namespace Slate::Core::Api
