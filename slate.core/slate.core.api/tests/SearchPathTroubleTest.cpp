#include "Loading.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::thrownBy;

using SearchPathTrouble = Loading;

} // namespace

TEST_F(SearchPathTrouble, ASearchPathThatDoesNotExistEndsEveryLoadThatSearchesIt) {
    tree.write("main.slate", "");
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    bundle("users", "Users", R"("Nowhere")");
    tree.write("users/user.slate", "");
    SlateContext searching(paths({"later"}));
    auto const complaint = "directory_iterator::directory_iterator " + tree.path("later").string();
    EXPECT_EQ(thrownBy([&] { parseFromString("", searching); }), complaint);
    EXPECT_EQ(thrownBy([&] { load("main.slate", searching); }), complaint);
    EXPECT_EQ(thrownBy([&] { load("users/user.slate", searching); }), complaint);
    EXPECT_EQ(thrownBy([&] { load("shapes/body.slate", searching); }), "nothing") << "it depends on nothing";

    tree.makeDirectory("later");
    EXPECT_EQ(thrownBy([&] { parseFromString("", searching); }), "nothing");
}

TEST_F(SearchPathTrouble, AnEmptySearchPathIsMetOnlyIfTheSearchGetsThatFar) {
    bundle("shapes", "Shapes");
    bundle("users", "Users", R"("Shapes")");
    tree.write("users/user.slate", "");
    SlateContext searching(StringVector{tree.path("shapes").string(), ""});
    EXPECT_EQ(thrownBy([&] { load("users/user.slate", searching); }), "nothing");
    EXPECT_EQ(thrownBy([&] { parseFromString("", searching); }), "directory_iterator::directory_iterator ");
}

TEST_F(SearchPathTrouble, ATextOfAFailedLoadIsKnownWithoutDocument) {
    SlateContext searching(paths({"later"}));
    EXPECT_THROW(parseFromString("x is Real: 1\n", searching), std::filesystem::filesystem_error);
    EXPECT_THAT(load("nowhere.slate", searching).second, ElementsAre(nullptr));

    searching.getInternal().rebuildAnalysisContext();
    searching.getInternal().getAnalysisContext()->cacheNsLookups();
    EXPECT_THAT(sources(searching), ElementsAre("<no file> not parsed"));

    tree.makeDirectory("later");
    EXPECT_EQ(parseFromString("", searching).first->findMembers("x").size(), 1U);
}

TEST_F(SearchPathTrouble, ABadConfigurationOnTheSearchPathsEndsTheLoad) {
    tree.write("libraries/bad/config.slate", "// nothing\n");
    SlateContext searching(paths({"libraries"}));
    EXPECT_EQ(inTree(thrownBy([&] { parseFromString("", searching); })),
              "ROOT/libraries/bad/config.slate:1:1 Missing \"config is BundleConfig:\"");
    EXPECT_THAT(errors(searching), IsEmpty());
    bundle("libraries/bad", "Good");
    EXPECT_EQ(thrownBy([&] { parseFromString("", searching); }), "nothing");
}

} // namespace Slate::Core::Api
