#include "slate/BundleConfig.h"

#include "BundleText.h"
#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <stdexcept>

namespace Slate::Bundle {

namespace {

using namespace Testing;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

BundleConfig readText(TemporaryTree const& tree, std::string const& text) {
    return readBundleConfig(tree.write("config.slate", text));
}

struct Accepted {
    std::string description;
    std::string text;
    std::string name;
    std::string version;
    std::vector<std::string> dependencies; // as "line:column lexeme"
};

std::ostream& operator<<(std::ostream& out, Accepted const& accepted) { return out << accepted.description; }

struct Refused {
    std::string description;
    std::string text;
    std::string complaint; // behind the path
};

std::ostream& operator<<(std::ostream& out, Refused const& refused) { return out << refused.description; }

class AcceptedConfig : public testing::TestWithParam<Accepted> {};

class RefusedConfig : public testing::TestWithParam<Refused> {};

} // namespace

TEST_P(AcceptedConfig, GivesNameVersionAndDependencies) {
    TemporaryTree const tree;
    auto const config = readText(tree, GetParam().text);

    EXPECT_EQ(config.name, GetParam().name);
    EXPECT_EQ(config.version, GetParam().version);
    std::vector<std::string> dependencies;
    for (auto const& token : config.dependencies)
        dependencies.push_back(std::to_string(token.line) + ":" + std::to_string(token.column) + " " +
                               token.lexeme);
    EXPECT_EQ(dependencies, GetParam().dependencies);
}

INSTANTIATE_TEST_SUITE_P(
    All, AcceptedConfig,
    testing::Values(
        Accepted{"name alone", "config is BundleConfig:\n    name: \"Shapes\"\n", "Shapes", "", {}},
        Accepted{"all three",
                 "config is BundleConfig:\n"
                 "    name: \"Shapes\"\n"
                 "    version: \"1.2\"\n"
                 "    dependencies: [\"Base\", \"Units==2\"]\n",
                 "Shapes",
                 "1.2",
                 {"4:20 \"Base\"", "4:28 \"Units==2\""}},
        Accepted{"all three backwards, dependencies over several lines",
                 "config is BundleConfig:\n"
                 "    dependencies: [\n"
                 "        \"Base\",\n"
                 "        \"Units\"]\n"
                 "    version: \"1.2\"\n"
                 "    name: \"Shapes\"\n",
                 "Shapes",
                 "1.2",
                 {"3:9 \"Base\"", "4:9 \"Units\""}},
        Accepted{"no dependency", "config:\n name: \"Shapes\"\n dependencies: []\n", "Shapes", "", {}},
        Accepted{"other words", "trait Whatever is A.B:\n name: \"Shapes\"\n", "Shapes", "", {}},
        Accepted{"number as name and version", "config:\n name: 7\n version: 1.5\n", "", "", {}},
        Accepted{"word as name, truth as version", "config:\n name: Shapes\n version: true\n", "", "", {}},
        Accepted{"number as dependency", "config:\n name: \"A\"\n dependencies: [7]\n", "A", "", {"3:17 7"}},
        Accepted{"constants in parentheses", "config:\n name: (\"A\")\n version: ((\"1\"))\n", "A", "1", {}},
        Accepted{"text of several lines", "config:\n name: \"\"\"A\"\"\"\n", "A", "", {}},
        Accepted{"first of two equal names",
                 "config:\n name: \"A\"\n version: \"1\"\n dependencies: []\n"
                 " name: \"B\"\n version: \"2\"\n dependencies: [\"Base\"]\n",
                 "A",
                 "1",
                 {}},
        Accepted{"members with types are not seen",
                 "config:\n name is String: \"A\"\n version becomes String: \"1\"\n"
                 " dependencies is String[]: [\"Base\"]\n name: \"B\"\n",
                 "B",
                 "",
                 {}},
        Accepted{"longer targets, annotations and nested attributes are not seen",
                 "config:\n .version: \"1\"\n inner.name: \"A\"\n version.name: \"C\"\n inner:\n"
                 "  version: \"2\"\n name: \"B\"\n",
                 "B",
                 "",
                 {}},
        Accepted{"other members and models are ignored",
                 "config:\n author: \"Someone\"\n fn name() -> String\n with Named\n name: \"A\"\n"
                 "other:\n name: \"B\"\n version: \"2\"\nversion is String: \"3\"\n",
                 "A",
                 "",
                 {}},
        Accepted{"case matters", "config:\n Name: \"A\"\n name: \"B\"\n Version: \"1\"\n", "B", "", {}},
        Accepted{"syntax errors are dropped",
                 "config:\n name: \"A\"\n version: \"1\" \"2\"\n )\n dependencies: [\"Base\"]\n",
                 "A",
                 "",
                 {"5:17 \"Base\""}},
        Accepted{"byte order mark",
                 "\xEF\xBB\xBF"
                 "config:\n name: \"A\"\n",
                 "A",
                 "",
                 {}},
        Accepted{"comments in front", "# A bundle\n\nconfig:\n name: \"A\" # its name\n", "A", "", {}}));

TEST_P(RefusedConfig, IsARunTimeErrorThatNamesThePlace) {
    TemporaryTree const tree;
    try {
        readText(tree, GetParam().text);
        FAIL() << "nothing thrown";
    } catch (std::runtime_error const& error) {
        EXPECT_EQ(error.what(), tree.path("config.slate").string() + GetParam().complaint);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedConfig,
    testing::Values(
        Refused{"empty", "", ":1:1 Missing \"config is BundleConfig:\""},
        Refused{"only a comment", "# nothing here\n", ":1:1 Missing \"config is BundleConfig:\""},
        Refused{"only faults", "\n\n)\n", ":1:1 Missing \"config is BundleConfig:\""},
        Refused{"model without body", "config:\n", ":1:1 Missing \"config is BundleConfig:\""},
        Refused{"variable first", "size is Real: 1\nconfig:\n name: \"A\"\n",
                ":1:1 \"config is BundleConfig:\" missing. Tip: must be on a line of it's own"},
        Refused{"import first", "\nimport \"a.slate\"\nconfig:\n name: \"A\"\n",
                ":1:1 \"config is BundleConfig:\" missing. Tip: must be on a line of it's own"},
        Refused{"operator first", "operator - (a: A) -> A\nconfig:\n name: \"A\"\n",
                ":1:1 \"config is BundleConfig:\" missing. Tip: must be on a line of it's own"},
        Refused{"model of one word", "\n\nconfig\n", ":3:1 BundleConfig must contain a name"},
        Refused{"no name, qualified", "const config is BundleConfig:\n version: \"1\"\n",
                ":1:7 BundleConfig must contain a name"},
        Refused{"name with a type", "config:\n name is String: \"A\"\n",
                ":1:1 BundleConfig must contain a name"},
        Refused{"name lost to a fault", "config:\n name: \"A\" \"B\"\n",
                ":1:1 BundleConfig must contain a name"},
        Refused{"name in the second model", "first:\n version: \"1\"\nconfig:\n name: \"A\"\n",
                ":1:1 BundleConfig must contain a name"},
        Refused{"name is an expression", "config:\n name: \"A\" + \"B\"\n", ":2:8 Name must be a string"},
        Refused{"name is a negative number", "config:\n  name:  -1\n", ":2:10 Name must be a string"},
        Refused{"name is an array", "config:\n name: [\"A\"]\n", ":2:8 Name must be a string"},
        Refused{"name has a body", "config:\n name:\n  first: \"A\"\n", ":2:2 Name must be a string"},
        Refused{"version is an expression", "config:\n name: \"A\"\n version: (1 + 2)\n",
                ":3:11 Version must be a string"},
        Refused{"dependencies are no array", "config:\n name: \"A\"\n dependencies: \"Base\"\n",
                ":3:16 Dependencies must be array"},
        Refused{"dependencies are a sum", "config:\n name: \"A\"\n dependencies: [\"A\"] + [\"B\"]\n",
                ":3:16 Dependencies must be array"},
        Refused{"dependencies are an initializer", "config:\n name: \"A\"\n dependencies: {\"Base\"}\n",
                ":3:16 Dependencies must be array"},
        Refused{"dependencies have a body", "config:\n name: \"A\"\n dependencies:\n  first: \"Base\"\n",
                ":3:2 Dependencies must be array"},
        Refused{"dependency is no constant",
                "config:\n name: \"A\"\n dependencies: [\"Base\", \"B\" + \"C\"]\n",
                ":3:25 Dependency must be a string"},
        Refused{"name before dependencies", "config:\n dependencies: 1\n",
                ":1:1 BundleConfig must contain a name"},
        Refused{"version before dependencies", "config:\n name: \"A\"\n dependencies: 1\n version: -1\n",
                ":4:11 Version must be a string"}));

TEST(BundleConfig, HoldsThePathAsGivenAndAllSourcesBelow) {
    TemporaryTree const tree;
    auto const config_path = tree.write("config.slate", configText("Shapes"));
    auto const body = tree.write("body.slate", "");
    auto const solid = tree.write("deep/solid.slate", "");

    auto const config = readBundleConfig(config_path);
    EXPECT_EQ(config.config_file_path, config_path);
    EXPECT_THAT(config.slate_files, UnorderedElementsAre(body, solid));
    EXPECT_THAT(config.resolved_dependencies, IsEmpty());
}

TEST(BundleConfig, IsEmptyByDefault) {
    BundleConfig const config;
    EXPECT_EQ(config.name + config.version + config.config_file_path.string(), "");
    EXPECT_TRUE(config.slate_files.empty() && config.dependencies.empty());
    EXPECT_THAT(config.resolved_dependencies, IsEmpty());
}

} // namespace Slate::Bundle
