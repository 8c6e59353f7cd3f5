#include "BundleText.h"
#include "slate/FindBundle.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>

namespace Slate::Bundle {

namespace {

using namespace Testing;
using testing::Each;
using testing::Field;
using testing::StartsWith;

using Lines = std::vector<std::string>;

Lines operator+(Lines lines, Lines const& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

/// What a call logs, all of it, in a tree with one bundle "Shapes" in `libraries/shapes`.
struct Logged {
    std::string description;
    std::function<void(TemporaryTree const&)> call;
    Lines lines; // "level function: text", the function within the namespace, the tree's root as ROOT
};

std::ostream& operator<<(std::ostream& out, Logged const& logged) { return out << logged.description; }

class BundleLog : public testing::TestWithParam<Logged> {};

Lines expand(Lines lines, TemporaryTree const& tree) {
    for (auto& line : lines) {
        for (auto place = line.find("ROOT"); place != std::string::npos; place = line.find("ROOT"))
            line.replace(place, 4, tree.root().string());
        line.insert(line.find(' ') + 1, "Slate::Bundle::");
    }
    return lines;
}

void findBundle(TemporaryTree const& tree, std::string const& name, std::string const& path) {
    FindBundle::findBundle(name, {tree.path(path).string()});
}

/// For a bundle "Root" of version 5.
void resolveDependencies(TemporaryTree const& tree, std::vector<std::string> const& dependencies) {
    BundleConfig root;
    root.name = "Root";
    root.version = "5";
    for (auto const& dependency : dependencies)
        root.dependencies.emplace_back(TokenType::String, '"' + dependency + '"', 1, 1);
    ErrorReporter reporter;
    FindBundle::resolveDependencies(root, {tree.path("libraries/shapes").string()}, reporter);
}

Lines const found_config = {"debug findSlateConfigInDirectory: config.slate found in ROOT/libraries/shapes"};
Lines const no_config_in_libraries = {
    "trace findSlateConfigInDirectory: No config.slate found in ROOT/libraries"};
Lines const read_shapes = {
    "trace traverseBundleDirectory: Finding all .slate files in bundle Shapes in ROOT/libraries/shapes",
    "debug traverseBundleDirectory: Found slate file for bundle Shapes: ROOT/libraries/shapes/body.slate"};
Lines const found_shapes =
    found_config +
    Lines{"debug FindBundle::findBundle: Bundle found at: ROOT/libraries/shapes/config.slate"} + read_shapes;

} // namespace

TEST_P(BundleLog, IsToTheLetter) {
    TemporaryTree const tree;
    tree.write("libraries/shapes/config.slate", configText("Shapes", "", "1"));
    tree.write("libraries/shapes/body.slate", "");
    tree.makeDirectory("empty");

    LogCapture const log;
    GetParam().call(tree);
    EXPECT_EQ(log.texts(), expand(GetParam().lines, tree));
    EXPECT_THAT(log.lines(),
                Each(Field("file", &LogCapture::Line::file, StartsWith("slate.core/slate.bundle/"))));
}

INSTANTIATE_TEST_SUITE_P(
    All, BundleLog,
    testing::Values(
        Logged{"no directory",
               [](auto const& tree) { findSlateConfigInDirectory(tree.path("nowhere")); },
               {"debug findSlateConfigInDirectory: Directory not found ROOT/nowhere, ignoring..."}},
        Logged{"empty path",
               [](auto const& /*tree*/) { findSlateConfigInDirectory(""); },
               {"debug findSlateConfigInDirectory: Directory not found , ignoring..."}},
        Logged{"no configuration",
               [](auto const& tree) { findSlateConfigInDirectory(tree.path("empty")); },
               {"trace findSlateConfigInDirectory: No config.slate found in ROOT/empty"}},
        Logged{"configuration",
               [](auto const& tree) { findSlateConfigInDirectory(tree.path("libraries/shapes")); },
               found_config},
        Logged{"configuration read",
               [](auto const& tree) { readBundleConfig(tree.path("libraries/shapes/config.slate")); },
               read_shapes},
        Logged{
            "bundle of a file",
            [](auto const& tree) { FindBundle::findBundleFrom(tree.path("libraries/shapes/body.slate")); },
            found_config +
                Lines{"debug FindBundle::findBundleFrom: Found bundle: ROOT/libraries/shapes/config.slate"} +
                read_shapes},
        Logged{"file without bundle",
               [](auto const& /*tree*/) { FindBundle::findBundleFrom("nowhere.slate"); },
               {"debug FindBundle::findBundleFrom: No bundle found from: nowhere.slate"}},
        Logged{"root of the file system",
               [](auto const& /*tree*/) { FindBundle::findBundleFrom("/nowhere.slate"); },
               {"trace findSlateConfigInDirectory: No config.slate found in /",
                "debug FindBundle::findBundleFrom: No bundle found from: /nowhere.slate"}},
        Logged{"bundle at the path", [](auto const& tree) { findBundle(tree, "Shapes", "libraries/shapes"); },
               found_shapes},
        Logged{"bundle below the path", [](auto const& tree) { findBundle(tree, "Shapes", "libraries"); },
               no_config_in_libraries + found_shapes},
        Logged{"no bundle of that name",
               [](auto const& tree) { findBundle(tree, "Units", "libraries/shapes"); },
               found_shapes + Lines{"debug FindBundle::findBundle: No bundle found with name: Units"}},
        Logged{
            "all bundles, one met twice",
            [](auto const& tree) {
                FindBundle::resolveBundleConfigFromPaths(
                    {tree.path("libraries").string(), tree.path("libraries/shapes").string()});
            },
            Lines{"trace FindBundle::resolveBundleConfigFromPaths: Looking for bundles in ROOT/libraries"} +
                no_config_in_libraries +
                Lines{"trace FindBundle::resolveBundleConfigFromPaths: Iterating ROOT/libraries/shapes"} +
                found_config +
                Lines{"debug FindBundle::resolveBundleConfigFromPaths: Bundle found at: "
                      "ROOT/libraries/shapes/config.slate"} +
                read_shapes +
                Lines{"trace FindBundle::resolveBundleConfigFromPaths: Looking for bundles in "
                      "ROOT/libraries/shapes"} +
                found_config},
        Logged{"file among the bundles",
               [](auto const& tree) {
                   tree.write("files/body.slate", "");
                   FindBundle::resolveBundleConfigFromPaths({tree.path("files").string()});
               },
               {"trace FindBundle::resolveBundleConfigFromPaths: Looking for bundles in ROOT/files",
                "trace findSlateConfigInDirectory: No config.slate found in ROOT/files",
                "trace FindBundle::resolveBundleConfigFromPaths: Iterating ROOT/files/body.slate"}},
        Logged{"dependency met", [](auto const& tree) { resolveDependencies(tree, {"Shapes==1"}); },
               found_shapes},
        Logged{"dependency missing", [](auto const& tree) { resolveDependencies(tree, {"Units==2"}); },
               found_shapes + Lines{"debug FindBundle::findBundle: No bundle found with name: Units",
                                    "error FindBundle::resolveDependencies: Dependency Units not found"}},
        Logged{"two dependencies, each bundle read once",
               [](auto const& tree) {
                   resolveDependencies(tree, {"Units", "Shapes"});
               },
               found_shapes + Lines{"debug FindBundle::findBundle: No bundle found with name: Units",
                                    "error FindBundle::resolveDependencies: Dependency Units not found"}},
        Logged{"dependency of another version",
               [](auto const& tree) { resolveDependencies(tree, {"Shapes==2"}); },
               found_shapes + Lines{"error FindBundle::resolveDependencies: Bundle Root depends on Shapes of "
                                    "version 2 but found version 1"}},
        Logged{"known dependency of another version",
               [](auto const& tree) {
                   resolveDependencies(tree, {"Shapes", "Shapes==2"});
               },
               found_shapes +
                   Lines{"error FindBundle::resolveDependencies: Mismatch in version for Root, both 1 "
                         "and 5 found"}}));

} // namespace Slate::Bundle
