#include "Loading.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using Testing::WorkingDirectory;

using LoadFile = Loading;

/// A bundle "Shapes" with one source at the top and one below.
class LoadShapes : public Loading {
  protected:
    LoadShapes() {
        bundle("shapes", "Shapes");
        tree.write("shapes/body.slate", "");
        tree.write("shapes/sub/deep/face.slate", "");
    }
};

class LoadByRelativePath : public LoadShapes, public testing::WithParamInterface<char const*> {};

} // namespace

TEST_F(LoadShapes, NamespacesAreTheBundlesNameAndTheDirectoriesBelowIt) {
    SlateContext context(paths({}));
    auto const [document, all] = load("shapes/sub/deep/face.slate", context);
    ASSERT_NE(document, nullptr);
    EXPECT_THAT(document->getNamespace(), ElementsAre("Shapes", "sub", "deep"));
    EXPECT_EQ(inTree(document->getSourceId()), "ROOT/shapes/sub/deep/face.slate");
    EXPECT_THAT(sources(context), UnorderedElementsAre("ROOT/shapes/body.slate: Shapes",
                                                       "ROOT/shapes/sub/deep/face.slate: Shapes.sub.deep"));
    EXPECT_THAT(all, testing::Contains(document));
    EXPECT_FALSE(context.hasErrors());
}

TEST_P(LoadByRelativePath, IsFoundInItsBundle) {
    WorkingDirectory const here(tree.path("shapes/sub"));
    SlateContext context(paths({}));
    auto const document = parseFromFile(GetParam(), context).first;
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(inTree(document->getSourceId()), "ROOT/shapes/sub/deep/face.slate");
}

INSTANTIATE_TEST_SUITE_P(All, LoadByRelativePath,
                         testing::Values("deep/face.slate", "./deep/face.slate", "../sub/deep/face.slate",
                                         "nowhere/../deep/.//face.slate", "deep/../../sub/deep/face.slate"));

TEST_F(LoadFile, AFileOutsideEveryBundleStandsFirstAndHasNoNamespace) {
    tree.write("folder/main.slate", "x is Real: 1\n");
    tree.write("folder/other.slate", "");
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    SlateContext context(paths({"shapes"}));
    auto const [document, all] = load("folder/main.slate", context);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/folder/main.slate: ", "ROOT/shapes/body.slate: Shapes"));
    ASSERT_THAT(all, SizeIs(2));
    EXPECT_EQ(all.front(), document);
    EXPECT_THAT(document->findMembers("x"), SizeIs(1));
    EXPECT_EQ(bundles(context)[0]->name, "<default>");
    EXPECT_THAT(names(bundles(context)[0]->resolved_dependencies), ElementsAre("Shapes"));
}

TEST_F(LoadFile, AFileThatDoesNotExistLeavesTheDocumentsAsTheyStood) {
    SlateContext context(paths({}));
    auto const before = parseFromString("", context).second;
    auto const [document, all] = load("nowhere.slate", context);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(all, before) << "nothing is parsed anew";
}

TEST_F(LoadFile, ARelativePathThatIsNotFoundIsReportedAsAnAbsoluteOne) {
    WorkingDirectory const here(tree.root());
    SlateContext context(paths({}));
    EXPECT_EQ(parseFromFile("./folder/../nowhere.slate", context).first, nullptr);
    EXPECT_THAT(errors(context), ElementsAre("ROOT/nowhere.slate: 30009 0:0 'ROOT/nowhere.slate'"));
}

TEST_F(LoadFile, AnEmptyPathIsNotFound) {
    SlateContext context(paths({}));
    EXPECT_EQ(parseFromFile("", context).first, nullptr);
    EXPECT_THAT(errors(context), ElementsAre(": 30009 0:0 ''"));
}

TEST_F(LoadFile, APathWithANulByteIsNotFound) {
    tree.write("main.slate", "");
    SlateContext context(paths({}));
    auto const path = tree.path("main.slate").string() + std::string("\0.slate", 7);
    EXPECT_EQ(parseFromFile(path, context).first, nullptr);
    ASSERT_THAT(context.getErrors(), SizeIs(1));
    EXPECT_EQ(context.getErrors()[0]->getSourceId(), path);
    EXPECT_THAT(sources(context), IsEmpty());
}

TEST_F(LoadFile, AByteOrderMarkIsNoPartOfTheText) {
    tree.write("main.slate", "\xEF\xBB\xBFx is Real: 1\n");
    tree.write("mark.slate", "\xEF\xBB\xBF");
    SlateContext context(paths({}));
    auto const document = load("main.slate", context).first;
    ASSERT_THAT(document->findMembers("x"), SizeIs(1));
    EXPECT_EQ(context.getInternal().getDocuments()[0]->source, "x is Real: 1\n");
    EXPECT_THAT(load("mark.slate", context).first->getMembers(), IsEmpty());
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(LoadFile, AConfigurationBelowIsASourceOfTheOuterBundle) {
    bundle("outer", "Outer");
    tree.write("outer/main.slate", "");
    bundle("outer/inner", "Inner");
    SlateContext context(paths({}));
    load("outer/main.slate", context);
    EXPECT_THAT(sources(context), UnorderedElementsAre("ROOT/outer/main.slate: Outer",
                                                       "ROOT/outer/inner/config.slate: Outer.inner"));
}

TEST_F(LoadFile, TheNearestConfigurationAboveWins) {
    bundle("outer", "Outer");
    tree.write("outer/main.slate", "");
    bundle("outer/inner", "Inner");
    tree.write("outer/inner/deep/face.slate", "");
    SlateContext context(paths({}));
    load("outer/inner/deep/face.slate", context);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/outer/inner/deep/face.slate: Inner.deep"));
}

TEST_F(LoadFile, ADirectoryNamedAsASourceIsEntered) {
    bundle("shapes", "Shapes");
    tree.write("shapes/folder.slate/zwei Körper/größer als.slate", "");
    SlateContext context(paths({}));
    EXPECT_NE(load("shapes/folder.slate/zwei Körper/größer als.slate", context).first, nullptr);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/shapes/folder.slate/zwei Körper/größer als.slate: "
                                              "Shapes.folder.slate.zwei Körper"));
    EXPECT_THAT(context.getInternal().getDocuments()[0]->document->getNamespace(),
                ElementsAre("Shapes", "folder.slate", "zwei Körper"));
}

TEST_F(LoadFile, ABundleCalledAsTheMadeUpOneGivesNoNameToTheNamespace) {
    bundle("shapes", "<default>");
    tree.write("shapes/sub/face.slate", "");
    SlateContext context(paths({}));
    load("shapes/sub/face.slate", context);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/shapes/sub/face.slate: sub"));
}

TEST_F(LoadFile, ABundleWithoutNameGivesAnEmptySegment) {
    tree.write("shapes/config.slate", "config is BundleConfig:\n    name: 5\n");
    tree.write("shapes/body.slate", "");
    SlateContext context(paths({}));
    EXPECT_THAT(load("shapes/body.slate", context).first->getNamespace(), ElementsAre(""));
}

TEST_F(LoadFile, ASecondLoadBringsEverythingAgainAndParsesAllAnew) {
    bundle("shapes", "Shapes", R"("Units")");
    tree.write("shapes/body.slate", "");
    bundle("libraries/units", "Units");
    tree.write("libraries/units/metre.slate", "");
    SlateContext context(paths({"libraries"}));
    auto const first = load("shapes/body.slate", context);
    tree.write("shapes/body.slate", "x is Real: 1\n");
    auto const second = load("shapes/body.slate", context);

    Strings const once = {"ROOT/libraries/units/metre.slate: Units", "ROOT/shapes/body.slate: Shapes"};
    EXPECT_THAT(sources(context), ElementsAre(once[0], once[1], once[0], once[1]));
    EXPECT_EQ(second.first, second.second[1]) << "the first entry of that path is the answer";
    EXPECT_THAT(second.first->getMembers(), IsEmpty());
    EXPECT_THAT(second.second[3]->findMembers("x"), SizeIs(1));
    for (auto const& document : first.second)
        EXPECT_THAT(second.second, testing::Not(testing::Contains(document)));
}

TEST_F(LoadFile, AFileThatComesIntoABundleBetweenTwoLoadsIsAnsweredAsThatBundlesSource) {
    tree.write("shapes/body.slate", "");
    SlateContext context(paths({}));
    load("shapes/body.slate", context);
    bundle("shapes", "Shapes");
    auto const [document, all] = load("shapes/body.slate", context);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/shapes/body.slate: ", "ROOT/shapes/body.slate: Shapes"));
    EXPECT_EQ(document, all[1]);
}

} // namespace Slate::Core::Api
