#include "slate/FindBundle.h"

#include "BundleText.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Bundle {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

/// Keeps the search's progress out of the tests' output.
class FindBundleTest : public testing::Test {
  protected:
    std::string search(std::string const& relative_path) const { return tree.path(relative_path).string(); }

    void writeBundle(std::string const& directory, std::string const& name) const {
        tree.write(directory + "/config.slate", configText(name));
    }

    /// Which bundle of that name was found, by its directory in the tree; "none" without one.
    std::string find(std::string const& name, std::vector<std::string> const& paths) const {
        return directoryOf(FindBundle::findBundle(name, paths));
    }

    std::string findFrom(fs::path const& path) const { return directoryOf(FindBundle::findBundleFrom(path)); }

    std::vector<std::string> resolve(std::vector<std::string> const& paths) const {
        std::vector<std::string> directories;
        for (auto const& bundle : FindBundle::resolveBundleConfigFromPaths(paths))
            directories.push_back(directoryOf(bundle));
        return directories;
    }

    std::vector<std::string> traverse(std::string const& directory, fs::path const& config_path = {}) const {
        BundleConfig bundle;
        bundle.config_file_path = config_path;
        traverseBundleDirectory(bundle, tree.path(directory));
        std::vector<std::string> files;
        for (auto const& file : bundle.slate_files)
            files.push_back(file.lexically_relative(tree.path(directory)).string());
        return files;
    }

    TemporaryTree const tree;

  private:
    std::string directoryOf(std::optional<BundleConfig> const& bundle) const {
        if (!bundle)
            return "none";
        return bundle->config_file_path.parent_path().lexically_relative(tree.root()).string();
    }

    LogCapture const log_;
};

using FindConfig = FindBundleTest;
using Traverse = FindBundleTest;
using FindFrom = FindBundleTest;
using Resolve = FindBundleTest;

} // namespace

TEST_F(FindConfig, IsTheFileOfThatNameInTheDirectoryItself) {
    writeBundle("shapes", "Shapes");
    tree.write("other/config.slate.old", "");
    tree.write("other/Config.slate", "");
    EXPECT_EQ(findSlateConfigInDirectory(tree.path("shapes")), tree.path("shapes/config.slate"));
    EXPECT_EQ(findSlateConfigInDirectory(tree.path("other")), std::nullopt);
    EXPECT_EQ(findSlateConfigInDirectory(tree.root()), std::nullopt);
}

TEST_F(FindConfig, IsMissingWhereThereIsNoDirectory) {
    EXPECT_EQ(findSlateConfigInDirectory(""), std::nullopt);
    EXPECT_EQ(findSlateConfigInDirectory(tree.path("nowhere")), std::nullopt);
    EXPECT_EQ(findSlateConfigInDirectory(tree.write("file", "")), std::nullopt);
}

TEST_F(FindConfig, IsTakenWhateverItsType) {
    tree.makeDirectory("shapes/config.slate");
    EXPECT_EQ(findSlateConfigInDirectory(tree.path("shapes")), tree.path("shapes/config.slate"));
}

TEST_F(Traverse, TakesFilesByTheirExtensionToTheLetter) {
    for (auto const* name : {"a.slate", "b.c.slate", "A.Slate", "b.SLATE", "c.slate2", "d.slat", "e",
                             ".slate", "slate", "f.slate.txt", "..slate", "g h ü.slate"})
        tree.write(std::string("bundle/") + name, "");
    EXPECT_THAT(traverse("bundle"), UnorderedElementsAre("a.slate", "b.c.slate", "..slate", "g h ü.slate"));
}

TEST_F(Traverse, EntersDirectoriesWhateverTheirName) {
    tree.write("bundle/deep/deeper/a.slate", "");
    tree.write("bundle/folder.slate/b.slate", "");
    tree.write("bundle/.hidden/c.slate", "");
    tree.makeDirectory("bundle/empty.slate");
    EXPECT_THAT(traverse("bundle"),
                UnorderedElementsAre("deep/deeper/a.slate", "folder.slate/b.slate", ".hidden/c.slate"));
}

TEST_F(Traverse, FollowsLinksToDirectories) {
    tree.write("elsewhere/a.slate", "");
    fs::create_directory_symlink(tree.path("elsewhere"), tree.makeDirectory("bundle") / "link");
    EXPECT_THAT(traverse("bundle"), ElementsAre("link/a.slate"));
}

TEST_F(Traverse, PassesOverTheBundlesOwnConfigurationAlone) {
    writeBundle("bundle", "Outer");
    writeBundle("bundle/inner", "Inner");
    tree.write("bundle/inner/a.slate", "");
    EXPECT_THAT(traverse("bundle", tree.path("bundle/config.slate")),
                UnorderedElementsAre("inner/config.slate", "inner/a.slate"));
    EXPECT_THAT(traverse("bundle"),
                UnorderedElementsAre("config.slate", "inner/config.slate", "inner/a.slate"));
}

TEST_F(Traverse, AppendsToWhatTheBundleHas) {
    tree.write("bundle/a.slate", "");
    BundleConfig bundle;
    bundle.slate_files = {"before.slate"};
    traverseBundleDirectory(bundle, tree.path("bundle"));
    EXPECT_THAT(bundle.slate_files, ElementsAre("before.slate", tree.path("bundle/a.slate")));
}

TEST_F(FindFrom, StartsAtTheDirectoryItselfOrThatOfTheFile) {
    writeBundle("outer", "Outer");
    writeBundle("outer/inner", "Inner");
    EXPECT_EQ(findFrom(tree.path("outer/inner")), "outer/inner");
    EXPECT_EQ(findFrom(tree.path("outer/inner/")), "outer/inner");
    EXPECT_EQ(findFrom(tree.path("outer/inner/config.slate")), "outer/inner");
    EXPECT_EQ(findFrom(tree.path("outer/inner/not.there")), "outer/inner");
}

TEST_F(FindFrom, TakesTheNearestHoweverFarUp) {
    writeBundle("outer", "Outer");
    writeBundle("outer/beside", "Beside");
    auto const file = tree.write("outer/a/b/c/d/body.slate", "");
    EXPECT_EQ(findFrom(file), "outer");
    EXPECT_EQ(findFrom(tree.path("outer/gone/for/good.slate")), "outer");
    writeBundle("outer/a/b", "Nearer");
    EXPECT_EQ(findFrom(file), "outer/a/b");
}

TEST_F(FindFrom, GivesTheWholeConfiguration) {
    writeBundle("outer", "Outer");
    auto const file = tree.write("outer/deep/body.slate", "");
    auto const bundle = FindBundle::findBundleFrom(file);
    ASSERT_TRUE(bundle.has_value());
    EXPECT_EQ(bundle->name, "Outer");
    EXPECT_THAT(bundle->slate_files, ElementsAre(file));
}

TEST_F(FindFrom, GivesNothingOutsideEveryBundle) {
    writeBundle("beside", "Beside");
    EXPECT_EQ(findFrom(tree.write("alone/body.slate", "")), "none");
    EXPECT_EQ(findFrom("/"), "none");
    EXPECT_EQ(findFrom("nowhere.slate"), "none");
    EXPECT_EQ(findFrom(""), "none");
}

TEST_F(FindBundleTest, FindsByNameAtThePathAndOneLevelBelow) {
    writeBundle("libraries/folder", "Shapes");
    writeBundle("libraries/other", "Units");
    tree.write("libraries/body.slate", "");
    EXPECT_EQ(find("Shapes", {search("libraries")}), "libraries/folder");
    EXPECT_EQ(find("Shapes", {search("libraries/folder")}), "libraries/folder");
    EXPECT_EQ(find("Units", {search("libraries/folder"), search("libraries")}), "libraries/other");
    EXPECT_EQ(find("folder", {search("libraries")}), "none");
    EXPECT_EQ(find("shapes", {search("libraries")}), "none");
    EXPECT_EQ(find("Shapes", {}), "none");
}

TEST_F(FindBundleTest, FindsNothingTwoLevelsBelow) {
    writeBundle("libraries/group/shapes", "Shapes");
    EXPECT_EQ(find("Shapes", {search("libraries")}), "none");
    EXPECT_THAT(resolve({search("libraries")}), IsEmpty());
}

TEST_F(FindBundleTest, SeesOnlyTheTopOfAPathThatIsItselfABundle) {
    writeBundle("top", "Top");
    writeBundle("top/inner", "Inner");
    EXPECT_EQ(find("Inner", {search("top")}), "none");
    EXPECT_EQ(find("Top", {search("top")}), "top");
    EXPECT_THAT(resolve({search("top")}), ElementsAre("top"));
}

TEST_F(FindBundleTest, TakesTheEarlierOfTwoPathsForOneName) {
    writeBundle("first/shapes", "Shapes");
    writeBundle("second", "Shapes");
    EXPECT_EQ(find("Shapes", {search("first"), search("second")}), "first/shapes");
    EXPECT_EQ(find("Shapes", {search("second"), search("first")}), "second");
    EXPECT_THAT(resolve({search("second"), search("first")}), ElementsAre("second", "first/shapes"));
}

TEST_F(Resolve, GivesAllBundlesInTheOrderOfThePaths) {
    writeBundle("one/shapes", "Shapes");
    writeBundle("two/units", "Units");
    writeBundle("two/base", "Base");
    tree.makeDirectory("two/empty");
    tree.write("two/config.txt", "");
    EXPECT_THAT(resolve({search("one"), search("two")}), testing::SizeIs(3));
    EXPECT_EQ(resolve({search("one"), search("two")}).front(), "one/shapes");
    EXPECT_THAT(resolve({search("two")}), UnorderedElementsAre("two/units", "two/base"));
    EXPECT_THAT(resolve({}), IsEmpty());
}

TEST_F(Resolve, TakesEachConfigurationOnceHoweverItsPathIsWritten) {
    writeBundle("libraries/shapes", "Shapes");
    EXPECT_THAT(resolve({search("libraries"), search("libraries/shapes"), search("libraries/shapes/"),
                         search("libraries//shapes"), search("libraries/shapes//"), search("libraries")}),
                ElementsAre("libraries/shapes"));
}

TEST_F(Resolve, TakesOneBundleOfTwoPathsTwice) {
    writeBundle("libraries/shapes", "Shapes");
    fs::create_directory_symlink(tree.path("libraries"), tree.path("link"));
    EXPECT_THAT(resolve({search("libraries"), search("link"), search("libraries/../libraries")}),
                ElementsAre("libraries/shapes", "link/shapes", "libraries/../libraries/shapes"));
}

TEST_F(Resolve, LeavesTheDependenciesOfEachUnresolved) {
    tree.write("libraries/shapes/config.slate", configText("Shapes", R"("Units")"));
    tree.write("libraries/units/config.slate", configText("Units"));
    for (auto const& bundle : FindBundle::resolveBundleConfigFromPaths({search("libraries")}))
        EXPECT_THAT(bundle.resolved_dependencies, IsEmpty()) << bundle.name;
}

} // namespace Slate::Bundle
