#include "Loading.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Testing::thrownBy;

/// Bundles of one source each below `libraries`.
class LoadDependencies : public Loading {
  protected:
    void library(std::string const& name, std::string const& dependencies,
                 std::string const& version = "") const {
        bundle("libraries/" + name, name, dependencies, version);
        tree.write("libraries/" + name + "/source.slate", "");
    }

    static std::string source(std::string const& name) {
        return "ROOT/libraries/" + name + "/source.slate: " + name;
    }

    SlateContext context = SlateContext(paths({"libraries"}));
};

} // namespace

TEST_F(LoadDependencies, StandInTheOrderOfDiscoveryBeforeTheBundleItself) {
    library("Main", R"("A", "B")");
    library("A", R"("C")");
    library("B", R"("D")");
    library("C", "");
    library("D", R"("A")");
    load("libraries/Main/source.slate", context);
    EXPECT_THAT(sources(context),
                ElementsAre(source("A"), source("B"), source("D"), source("C"), source("Main")));
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(LoadDependencies, InACycleTheBundleIsItsOwnDependencyToo) {
    library("Main", R"("Units==2")", "1");
    library("Units", R"("Main==1")", "2");
    auto const [document, all] = load("libraries/Main/source.slate", context);
    EXPECT_THAT(sources(context), ElementsAre(source("Units"), source("Main"), source("Main")));
    EXPECT_EQ(document, all[1]);
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(LoadDependencies, ThatAreMissingOrOfAnotherVersionAreReportedAndLeftOut) {
    library("Main", R"("Units==3", "Gone", "Shapes==1")");
    library("Units", "", "2");
    library("Shapes", R"("Units==2", "Shapes==5")", "1");
    EXPECT_NE(load("libraries/Main/source.slate", context).first, nullptr);
    EXPECT_THAT(sources(context), ElementsAre(source("Shapes"), source("Units"), source("Main")));
    EXPECT_THAT(errors(context), ElementsAre("ROOT/libraries/Main/config.slate: 30011 3:20 'Units==3'",
                                             "ROOT/libraries/Main/config.slate: 30011 3:32 'Gone'",
                                             "ROOT/libraries/Shapes/config.slate: 30011 3:32 'Shapes==5'"));
}

TEST_F(LoadDependencies, ShareOneDescriptionABundleWithItsFilesAndDependencies) {
    library("Main", R"("Units")");
    tree.write("libraries/Main/second.slate", "");
    library("Units", "", "2");
    tree.write("libraries/Units/deep/second.slate", "");
    load("libraries/Main/source.slate", context);
    auto const known = bundles(context);
    ASSERT_THAT(known, SizeIs(4));
    EXPECT_EQ(known[0], known[1]);
    EXPECT_EQ(known[2], known[3]);
    EXPECT_EQ(known[0]->version, "2");
    EXPECT_THAT(known[0]->slate_files, SizeIs(2));
    EXPECT_THAT(known[0]->resolved_dependencies, IsEmpty());
    EXPECT_THAT(names(known[2]->resolved_dependencies), ElementsAre("Units"));
    EXPECT_EQ(inTree(known[2]->config_file_path.string()), "ROOT/libraries/Main/config.slate");
}

TEST_F(LoadDependencies, ABundlesOwnDirectoryIsSearchedFromTheNextLoadOn) {
    bundle("shapes", "Shapes", R"("Shapes")");
    tree.write("shapes/body.slate", "");
    SlateContext alone(paths({}));
    load("shapes/body.slate", alone);
    EXPECT_THAT(sources(alone), SizeIs(1));
    EXPECT_THAT(errors(alone), ElementsAre("ROOT/shapes/config.slate: 30011 3:20 'Shapes'"));
    load("shapes/body.slate", alone);
    EXPECT_THAT(sources(alone), SizeIs(3));
    EXPECT_THAT(errors(alone), SizeIs(1)) << "it is its own dependency now";
}

TEST_F(LoadDependencies, ABundleWithoutFilesBringsItsDependenciesAlone) {
    auto const config = bundle("empty", "Empty", R"("Shapes")");
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "");
    SlateContext searching(paths({"shapes"}));
    EXPECT_EQ(inTree(thrownBy([&] { parseFromFile(config, searching); })),
              "Unexpected error - could not find file ROOT/empty/config.slate in parsed bundle");
    EXPECT_THAT(sources(searching), ElementsAre("ROOT/shapes/body.slate: Shapes"));
}

} // namespace Slate::Core::Api
