#include "Loading.h"
#include "TestPlugin.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using LoadString = Loading;

} // namespace

TEST_F(LoadString, AnEmptyTextIsADocumentWithoutMembers) {
    SlateContext context(paths({}));
    auto const [document, all] = parseFromString("", context);
    ASSERT_NE(document, nullptr);
    EXPECT_THAT(document->getMembers(), IsEmpty());
    EXPECT_THAT(document->getNamespace(), IsEmpty());
    EXPECT_EQ(document->getSourceId(), "<no file>");
    EXPECT_THAT(all, ElementsAre(document));
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(LoadString, FaultsAreReportedAndTheRestIsInTheDocument) {
    SlateContext context(paths({}));
    auto const document = parseFromString("A:\n    x is Real\n1\nC:\n    z is Int\n", context).first;
    ASSERT_NE(document, nullptr);
    EXPECT_THAT(document->findMembers("A"), SizeIs(1));
    EXPECT_THAT(document->findMembers("C"), SizeIs(1));
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 10007 3:1"));
}

TEST_F(LoadString, ATextKeepsItsByteOrderMark) {
    SlateContext context(paths({}));
    parseFromString("\xEF\xBB\xBFx is Real: 1\n", context);
    EXPECT_TRUE(context.hasErrors()); // only files have theirs skipped
}

TEST_F(LoadString, StandsFirstAndBringsAllSourcesOfAllBundlesOnThePaths) {
    bundle("libraries/units", "Units");
    tree.write("libraries/units/metre.slate", "");
    tree.write("libraries/units/deep/second.slate", "");
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    tree.write("libraries/stray.slate", "");
    SlateContext context(paths({"shapes", "libraries"}));
    auto const [document, all] = parseFromString("x is Real: 1\n", context);
    auto const known = sources(context);
    ASSERT_THAT(known, SizeIs(4));
    EXPECT_EQ(known[0], "<no file>: ");
    EXPECT_EQ(known[1], "ROOT/shapes/body.slate: Shapes");
    EXPECT_THAT(Strings(known.begin() + 2, known.end()),
                testing::UnorderedElementsAre("ROOT/libraries/units/metre.slate: Units",
                                              "ROOT/libraries/units/deep/second.slate: Units.deep"));
    ASSERT_THAT(all, SizeIs(4));
    EXPECT_EQ(all.front(), document);
}

TEST_F(LoadString, IsParsedBeforeTheBundles) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "1\n");
    SlateContext context(paths({"shapes"}));
    parseFromString("1\n", context);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 10007 1:1", "ROOT/shapes/body.slate: 10007 1:1"));
}

TEST_F(LoadString, ASecondTextIsParsedButTheFirstOneIsAnswered) {
    SlateContext context(paths({}));
    auto const first = parseFromString("A:\n    x is Real\n", context).first;
    auto const [second, all] = parseFromString("B:\n    x is Real\n", context);
    ASSERT_THAT(all, SizeIs(2));
    EXPECT_EQ(second, all[0]);
    EXPECT_NE(second, first) << "it is parsed anew";
    EXPECT_THAT(all[0]->findMembers("A"), SizeIs(1));
    EXPECT_THAT(all[1]->findMembers("B"), SizeIs(1));
}

TEST_F(LoadString, ASecondLoadBringsTheBundlesAgainAndReportsFaultsAgain) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "1\n");
    SlateContext context(paths({"shapes"}));
    parseFromString("", context);
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/shapes/body.slate: Shapes",
                                              "<no file>: ", "ROOT/shapes/body.slate: Shapes"));
    EXPECT_THAT(errors(context), SizeIs(3)) << "one after the first load, two more after the second";
}

TEST_F(LoadString, TheTextsBundleIsCopiedBeforeItsDependenciesAreKnown) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    auto const data = tree.write("data.step", "").string();
    SlateContext context(paths({"shapes"}));
    registerPlugin(std::make_shared<TestPlugin>(StringVector{".step"}), context);
    parseFromString("import \"" + data + "\"\n", context);

    auto const known = bundles(context);
    ASSERT_THAT(known, SizeIs(3));
    EXPECT_EQ(known[0]->name, "<default>");
    EXPECT_THAT(known[0]->resolved_dependencies, IsEmpty());
    EXPECT_EQ(known[1]->name, "Shapes");
    EXPECT_EQ(known[2]->name, "<default>");
    EXPECT_THAT(names(known[2]->resolved_dependencies), ElementsAre("Shapes"));
}

TEST_F(LoadString, TheMadeUpBundleHasNothingButItsName) {
    SlateContext context(paths({}));
    parseFromString("", context);
    auto const& made_up = *bundles(context).at(0);
    EXPECT_TRUE(made_up.config_file_path.empty());
    EXPECT_THAT(made_up.slate_files, IsEmpty());
    EXPECT_THAT(made_up.version, IsEmpty());
    EXPECT_THAT(made_up.dependencies, IsEmpty());
}

TEST_F(LoadString, BundlesOnThePathsDoNotHaveTheirDependenciesResolved) {
    bundle("shapes", "Shapes", R"("Nowhere")");
    tree.write("shapes/body.slate", "");
    SlateContext context(paths({"shapes"}));
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/shapes/body.slate: Shapes"));
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(LoadString, TheSourcesOfABundleShareOneDescriptionALoad) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    tree.write("shapes/deep/face.slate", "");
    SlateContext context(paths({"shapes"}));
    parseFromString("", context);
    parseFromString("", context);
    auto const known = bundles(context);
    ASSERT_THAT(known, SizeIs(6));
    EXPECT_EQ(known[1], known[2]);
    EXPECT_EQ(known[4], known[5]);
    EXPECT_NE(known[1], known[4]);
    EXPECT_THAT(known[1]->slate_files, SizeIs(2));
}

TEST_F(LoadString, ABundleThatALoadedFileLiesInIsSearchedFromThenOn) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    SlateContext context(paths({}));
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: "));
    load("shapes/body.slate", context);
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/shapes/body.slate: Shapes",
                                              "<no file>: ", "ROOT/shapes/body.slate: Shapes"));
}

TEST_F(LoadString, ABundleOnTwoPathsIsReadOnce) {
    bundle("libraries/shapes", "Shapes");
    tree.write("libraries/shapes/body.slate", "");
    SlateContext context(paths({"libraries", "libraries/shapes", "libraries"}));
    parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/libraries/shapes/body.slate: Shapes"));
}

} // namespace Slate::Core::Api
