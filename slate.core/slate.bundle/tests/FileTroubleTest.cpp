#include "FileTrouble.h"

#include "BundleText.h"
#include "slate/FindBundle.h"
#include "slate/SourceFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Bundle {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

using SourceTrouble = FileTrouble;
using ConfigTrouble = FileTrouble;
using SearchTrouble = FileTrouble;
using BundleTrouble = FileTrouble;

} // namespace

TEST_F(SourceTrouble, WhateverIsNoReadableFileCannotBeOpened) {
    tree.makeDirectory("folder.slate");
    makePipe("pipe.slate");
    link("loop.slate", "loop.slate");
    link("nowhere.slate", "dangling.slate");
    link("pipe.slate", "to pipe.slate");
    for (auto const* name : {"nowhere.slate", "deep/nowhere.slate", "folder.slate", "pipe.slate",
                             "loop.slate", "dangling.slate", "to pipe.slate", "schön, aber weg.slate"})
        EXPECT_EQ(readSource(name), cannotOpen(name));
    EXPECT_EQ(thrownBy([] { readSourceFile(""); }), "Failed to open file \"\"");
    EXPECT_EQ(thrownBy([] { readSourceFile("/dev/null"); }), "Failed to open file \"/dev/null\"");
}

TEST_F(SourceTrouble, AFileWithoutRightsCannotBeOpened) {
    auto const file = tree.write("deep/body.slate", "");
    {
        Denied const denied(file);
        EXPECT_EQ(readSource("deep/body.slate"), cannotOpen("deep/body.slate"));
    }
    {
        Denied const denied(tree.path("deep"));
        EXPECT_EQ(readSource("deep/body.slate"), cannotOpen("deep/body.slate"));
    }
    EXPECT_EQ(readSource("deep/body.slate"), "nothing");
}

TEST_F(SourceTrouble, AFileThatOpensButFailsToReadCannotBeOpened) {
    std::string const memory = "/proc/self/mem";
    ASSERT_TRUE(fs::is_regular_file(memory));
    EXPECT_EQ(thrownBy([&] { readSourceFile(memory); }), "Failed to open file \"" + memory + "\"");
}

TEST_F(ConfigTrouble, AConfigurationThatIsNoFileCannotBeOpened) {
    tree.makeDirectory("folder/config.slate");
    tree.makeDirectory("pipe");
    makePipe("pipe/config.slate");
    for (std::string const directory : {"folder", "pipe"}) {
        EXPECT_EQ(findFrom(directory + "/body.slate"), cannotOpen(directory + "/config.slate"));
        EXPECT_EQ(search(text(directory)), cannotOpen(directory + "/config.slate"));
    }
}

TEST_F(ConfigTrouble, AConfigurationWithoutRightsCannotBeOpened) {
    Denied const denied(tree.path("shapes/config.slate"));
    EXPECT_EQ(findFrom("shapes"), cannotOpen("shapes/config.slate"));
    EXPECT_EQ(search(tree.root().string()), cannotOpen("shapes/config.slate"));
}

TEST_F(ConfigTrouble, ALinkToNowhereIsNoConfiguration) {
    tree.makeDirectory("shapes/inner");
    link("nowhere", "shapes/inner/config.slate");
    EXPECT_EQ(findSlateConfigInDirectory(tree.path("shapes/inner")), std::nullopt);
    EXPECT_EQ(FindBundle::findBundleFrom(tree.path("shapes/inner/body.slate"))->name, "Shapes");
}

TEST_F(ConfigTrouble, ALinkToItselfIsRefusedAsExists) {
    tree.makeDirectory("loop");
    link("config.slate", "loop/config.slate");
    EXPECT_EQ(findFrom("loop"), "exists " + text("loop/config.slate"));
    EXPECT_EQ(search(text("loop")), "exists " + text("loop/config.slate"));
}

TEST_F(ConfigTrouble, ABadConfigurationEndsEverySearchThatMeetsIt) {
    tree.write("bad/config.slate", "# nothing\n");
    auto const complaint = text("bad/config.slate") + ":1:1 Missing \"config is BundleConfig:\"";
    EXPECT_EQ(findFrom("bad/deep/body.slate"), complaint);
    EXPECT_EQ(search(text("bad")), complaint);
}

TEST_F(SearchTrouble, APathThatCannotBeListedIsRefused) {
    tree.write("file", "");
    link("loop", "loop");
    for (auto const* name : {"nowhere", "file", "loop"})
        EXPECT_EQ(search(text(name)), "directory_iterator::directory_iterator " + text(name));
    EXPECT_EQ(search(""), "directory_iterator::directory_iterator ");
}

TEST_F(SearchTrouble, ABadPathMattersOnlyIfTheSearchGetsThatFar) {
    std::vector<std::string> const paths = {tree.root().string(), ""};
    EXPECT_EQ(FindBundle::findBundle("Shapes", paths)->name, "Shapes");
    EXPECT_EQ(thrownBy([&] { FindBundle::findBundle("Units", paths); }),
              "directory_iterator::directory_iterator ");
    EXPECT_EQ(thrownBy([&] { FindBundle::resolveBundleConfigFromPaths(paths); }),
              "directory_iterator::directory_iterator ");
}

TEST_F(SearchTrouble, ABadPathEndsTheResolutionOfDependencies) {
    BundleConfig bundle;
    bundle.dependencies.emplace_back(TokenType::String, "\"Units\"", 1, 1);
    ErrorReporter reporter;
    EXPECT_EQ(thrownBy([&] { FindBundle::resolveDependencies(bundle, {text("nowhere")}, reporter); }),
              "directory_iterator::directory_iterator " + text("nowhere"));
    EXPECT_EQ(reporter.getErrorCount(), 0U);
}

TEST_F(SearchTrouble, WhatRightsAreMissingSaysWhatIsRefused) {
    auto const folder = tree.makeDirectory("libraries/folder");
    {
        Denied const denied(folder);
        EXPECT_EQ(search(text("libraries")), "exists " + text("libraries/folder/config.slate"));
        EXPECT_EQ(findFrom("libraries/folder/body.slate"), "status " + text("libraries/folder/body.slate"));
    }
    Denied const unlisted(tree.path("libraries"), fs::perms::all & ~fs::perms(0444));
    EXPECT_EQ(search(text("libraries")), "directory_iterator::directory_iterator " + text("libraries"));
}

TEST_F(SearchTrouble, AnEntryThatLinksToItselfIsRefusedAsStatus) {
    tree.makeDirectory("libraries");
    link("loop", "libraries/loop");
    EXPECT_EQ(search(text("libraries")), "status " + text("libraries/loop"));
}

TEST_F(SearchTrouble, AnEntryThatLinksToNowhereIsPassedOver) {
    tree.makeDirectory("libraries");
    link("nowhere", "libraries/dangling");
    EXPECT_EQ(search(text("libraries")), "nothing");
}

TEST_F(SearchTrouble, AStartThatHasNoStatusIsRefused) {
    link("loop", "loop");
    EXPECT_EQ(findFrom("loop"), "status " + text("loop"));
    auto const long_name = std::string(300, 'x');
    EXPECT_EQ(findFrom(long_name), "status " + text(long_name));
}

TEST_F(BundleTrouble, AFolderThatCannotBeListedIsRefused) {
    tree.write("shapes/deep/body.slate", "");
    {
        Denied const denied(tree.path("shapes/deep"));
        EXPECT_EQ(readShapes(), "directory_iterator::directory_iterator " + text("shapes/deep"));
    }
    Denied const not_entered(tree.path("shapes/deep"), fs::perms(0444));
    EXPECT_EQ(readShapes(), "status " + text("shapes/deep/body.slate"));
}

TEST_F(BundleTrouble, ADirectoryThatDoesNotExistIsRefused) {
    BundleConfig bundle;
    EXPECT_EQ(thrownBy([&] { traverseBundleDirectory(bundle, tree.path("nowhere")); }),
              "directory_iterator::directory_iterator " + text("nowhere"));
}

TEST_F(BundleTrouble, ALinkToItselfIsRefusedAsStatus) {
    link("loop.slate", "shapes/loop.slate");
    EXPECT_EQ(readShapes(), "status " + text("shapes/loop.slate"));
}

TEST_F(BundleTrouble, ALinkThatLeadsBackIsRefusedAsStatus) {
    link(".", "shapes/again");
    EXPECT_THAT(readShapes(), StartsWith("status " + text("shapes/again/again/again")));
}

TEST_F(BundleTrouble, LinksToNowhereAndPipesAreSourcesThatCannotBeOpened) {
    link("nowhere", "shapes/dangling.slate");
    makePipe("shapes/pipe.slate");
    EXPECT_THAT(readBundleConfig(tree.path("shapes/config.slate")).slate_files,
                UnorderedElementsAre(tree.path("shapes/dangling.slate"), tree.path("shapes/pipe.slate")));
    EXPECT_EQ(readSource("shapes/dangling.slate"), cannotOpen("shapes/dangling.slate"));
    EXPECT_EQ(readSource("shapes/pipe.slate"), cannotOpen("shapes/pipe.slate"));
}

TEST_F(BundleTrouble, NamesMayHaveBlanksAndOtherLetters) {
    tree.write("zwei Körper/体 1/config.slate", configText("Körper"));
    auto const file = tree.write("zwei Körper/体 1/größer als.slate", "");
    auto const found = FindBundle::findBundle("Körper", {text("zwei Körper")});
    ASSERT_TRUE(found.has_value());
    EXPECT_THAT(found->slate_files, ElementsAre(file));
    EXPECT_EQ(FindBundle::findBundleFrom(file)->name, "Körper");
}

} // namespace Slate::Bundle
