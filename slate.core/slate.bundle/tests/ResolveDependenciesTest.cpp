#include "BundleText.h"
#include "slate/FindBundle.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate::Bundle {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

/// The bundle "Root" in `root`, and others beside each other in `libraries`.
class ResolveDependencies : public testing::Test {
  protected:
    ResolveDependencies() { tree.makeDirectory("libraries"); }

    void writeLibrary(std::string const& name, std::string const& dependencies = "",
                      std::string const& version = "") const {
        tree.write("libraries/" + name + "/config.slate", configText(name, dependencies, version));
    }

    void resolve(std::string const& dependencies, std::string const& version = "") {
        root = readBundleConfig(
            tree.write("libraries/root/config.slate", configText("Root", dependencies, version)));
        resolveAgain();
    }

    void resolveAgain() {
        FindBundle::resolveDependencies(root, {tree.path("libraries").string()}, *reporter);
    }

    std::vector<std::string> resolvedNames() const {
        std::vector<std::string> names;
        for (auto const& bundle : root.resolved_dependencies)
            names.push_back(bundle.name);
        return names;
    }

    /// With the source ids relative to the libraries.
    std::vector<std::string> errors() const {
        std::vector<std::string> errors;
        for (auto const& error : *reporter) {
            auto const source = std::filesystem::path(error->getSourceId());
            errors.push_back(source.lexically_relative(tree.path("libraries")).string() + ": " +
                             dumpError(*error, false));
        }
        return errors;
    }

    std::vector<std::string> loggedErrors() const {
        std::vector<std::string> lines;
        for (auto const& line : log.lines()) {
            if (line.level == "error")
                lines.push_back(line.text);
        }
        return lines;
    }

    void expectNoErrors() const {
        EXPECT_THAT(errors(), IsEmpty());
        EXPECT_THAT(loggedErrors(), IsEmpty());
    }

    TemporaryTree const tree;
    LogCapture const log;
    std::shared_ptr<ErrorReporter> const reporter = std::make_shared<ErrorReporter>();
    BundleConfig root;
};

} // namespace

TEST_F(ResolveDependencies, FindsNothingForABundleWithoutAny) {
    writeLibrary("Base");
    resolve("");
    EXPECT_THAT(resolvedNames(), IsEmpty());
    expectNoErrors();
}

TEST_F(ResolveDependencies, AreInOrderOfDiscoveryWithTheLastFoundVisitedFirst) {
    writeLibrary("First", R"("BelowFirst")");
    writeLibrary("Second", R"("BelowSecond")");
    writeLibrary("BelowFirst");
    writeLibrary("BelowSecond", R"("Bottom")");
    writeLibrary("Bottom");
    resolve(R"("First", "Second")");
    EXPECT_THAT(resolvedNames(), ElementsAre("First", "Second", "BelowSecond", "Bottom", "BelowFirst"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, AreFlatAndOtherwiseWhole) {
    writeLibrary("Middle", R"("Base")", "3");
    writeLibrary("Base");
    auto const file = tree.write("libraries/Middle/deep/body.slate", "");
    resolve(R"("Middle")");

    ASSERT_THAT(resolvedNames(), ElementsAre("Middle", "Base"));
    auto const& middle = root.resolved_dependencies.front();
    EXPECT_EQ(middle.config_file_path, tree.path("libraries/Middle/config.slate"));
    EXPECT_EQ(middle.version, "3");
    EXPECT_THAT(middle.slate_files, ElementsAre(file));
    EXPECT_EQ(middle.dependencies.size(), 1U);
    EXPECT_THAT(middle.resolved_dependencies, IsEmpty());
}

TEST_F(ResolveDependencies, ReachedByTwoWaysWithOneVersionAreOneEntry) {
    writeLibrary("Left", R"("Base==1")");
    writeLibrary("Right", R"("Base==1", "Base")");
    writeLibrary("Base", "", "1");
    resolve(R"("Left", "Right")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Left", "Right", "Base"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, InACycleHoldTheBundleItself) {
    writeLibrary("Left", R"("Right")");
    writeLibrary("Right", R"("Left", "Root")");
    resolve(R"("Left")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Left", "Right", "Root"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, OnTheBundleItselfAreFoundOnce) {
    resolve(R"("Root", "Root")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Root"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, AddNothingTheSecondTime) {
    writeLibrary("Middle", R"("Base")");
    writeLibrary("Base");
    resolve(R"("Middle")");
    resolveAgain();
    EXPECT_THAT(resolvedNames(), ElementsAre("Middle", "Base"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, AcceptTheExactVersionAndTakeAnEmptyOneForAny) {
    writeLibrary("Base", "", "1==2");
    writeLibrary("Plain");
    resolve(R"("Base==1==2", "Base==", "Plain==", "Plain")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Base", "Plain"));
    expectNoErrors();
}

TEST_F(ResolveDependencies, MissingOnesAreReportedWithTheBundleThatAsks) {
    writeLibrary("Middle", R"("Base", "Nowhere==2")");
    writeLibrary("Base");
    resolve(R"("Gone", "Middle")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Middle", "Base"));
    EXPECT_THAT(loggedErrors(), ElementsAre("Dependency Gone not found", "Dependency Nowhere not found"));
    EXPECT_THAT(errors(), ElementsAre("root/config.slate: 30011 3:20 'Gone'",
                                      "Middle/config.slate: 30011 3:28 'Nowhere==2'"));
}

TEST_F(ResolveDependencies, NothingIsTrimmed) {
    writeLibrary("Base", "", "1");
    resolve(R"("Base ", " Base==1", "Base== 1", "Base=1")");
    EXPECT_THAT(resolvedNames(), IsEmpty());
    EXPECT_THAT(loggedErrors(), ElementsAre("Dependency Base  not found", "Dependency  Base not found",
                                            "Bundle Root depends on Base of version  1 but found version 1",
                                            "Dependency Base=1 not found"));
    EXPECT_THAT(errors(), ElementsAre("root/config.slate: 30011 3:20 'Base '",
                                      "root/config.slate: 30011 3:29 ' Base==1'",
                                      "root/config.slate: 30011 3:41 'Base== 1'",
                                      "root/config.slate: 30011 3:53 'Base=1'"));
}

TEST_F(ResolveDependencies, OfAnotherVersionAreReportedAndLeftOut) {
    writeLibrary("Base", R"("Below")", "1");
    writeLibrary("Below");
    resolve(R"("Base==2")");
    EXPECT_THAT(resolvedNames(), IsEmpty());
    EXPECT_THAT(loggedErrors(), ElementsAre("Bundle Root depends on Base of version 2 but found version 1"));
    EXPECT_THAT(errors(), ElementsAre("root/config.slate: 30011 3:20 'Base==2'"));
}

TEST_F(ResolveDependencies, WithoutVersionSatisfyNoVersion) {
    writeLibrary("Base");
    resolve(R"("Base==1")");
    EXPECT_THAT(resolvedNames(), IsEmpty());
    EXPECT_THAT(loggedErrors(), ElementsAre("Bundle Root depends on Base of version 1 but found version "));
}

TEST_F(ResolveDependencies, LeftOutAreSearchedAgainForTheNextThatAsks) {
    writeLibrary("Base", "", "1");
    resolve(R"("Base==2", "Base==1")");
    EXPECT_THAT(resolvedNames(), ElementsAre("Base"));
    EXPECT_THAT(errors(), ElementsAre("root/config.slate: 30011 3:20 'Base==2'"));
}

TEST_F(ResolveDependencies, KnownOfAnotherVersionAreReportedWithTheirOwnConfigurationAndStay) {
    writeLibrary("Middle", R"("Base==2")", "3");
    writeLibrary("Base", "", "1");
    resolve(R"("Base==1", "Middle")", "4");
    EXPECT_THAT(resolvedNames(), ElementsAre("Base", "Middle"));
    EXPECT_THAT(loggedErrors(), ElementsAre("Mismatch in version for Middle, both 1 and 3 found"));
    EXPECT_THAT(errors(), ElementsAre("Base/config.slate: 30011 3:20 'Base==2'"));
}

TEST_F(ResolveDependencies, TheVersionAskedOfTheBundleItselfIsThatOfItsConfiguration) {
    writeLibrary("Middle", R"("Root==2")");
    resolve(R"("Middle")", "1");
    EXPECT_THAT(resolvedNames(), ElementsAre("Middle"));
    EXPECT_THAT(loggedErrors(),
                ElementsAre("Bundle Middle depends on Root of version 2 but found version 1"));
}

TEST_F(ResolveDependencies, ThatAreNoStringsAskForTheEmptyName) {
    resolve("7, \"==1\"");
    EXPECT_THAT(errors(),
                ElementsAre("root/config.slate: 30011 3:20 ''", "root/config.slate: 30011 3:23 '==1'"));
    EXPECT_THAT(loggedErrors(), ElementsAre("Dependency  not found", "Dependency  not found"));
}

} // namespace Slate::Bundle
