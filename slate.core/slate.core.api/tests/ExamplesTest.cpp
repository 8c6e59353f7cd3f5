// The bundles in `examples`, against values worked out by hand: they stand in `cases`, with the way to them.

#include "BundlePathVariable.h"
#include "ExampleNatives.h"
#include "JsonRows.h"
#include "slate/ModelDeclaration.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/Cases.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Core::Api {

namespace {

using std::filesystem::path;
using testing::IsEmpty;
using Testing::JsonRows;
using testing::UnorderedElementsAre;

path const& examples() {
    static path const directory = SLATE_EXAMPLES;
    return directory;
}

JsonRows expectedRows(std::string const& table) {
    return Testing::readRowsOfFile(path(SLATE_CASES) / (table + ".values"));
}

void expectRows(JsonRows const& expected, JsonRows const& actual) {
    for (auto const& [key, text] : expected) {
        auto const row = actual.find(key);
        EXPECT_EQ(row == actual.end() ? "nothing" : row->second, text) << key;
    }
    for (auto const& [key, text] : actual)
        EXPECT_TRUE(expected.contains(key)) << key << " " << text;
}

/// The text of a row is that of a string in JSON.
std::string stringOfRow(std::string const& text) {
    std::string value;
    for (std::size_t at = 1; at + 1 < text.size(); ++at) {
        auto const is_escape = text[at] == '\\';
        if (is_escape)
            ++at;
        value += is_escape && text[at] == 'n' ? '\n' : text[at];
    }
    return value;
}

void expectReaders(Object const& root, std::string const& key, std::string const& text) {
    constexpr double six_digits = 5e-6;
    if (text.starts_with('<')) {
        auto const object = root.getObject(key);
        ASSERT_NE(object, nullptr) << key;
        EXPECT_TRUE(text.starts_with("<" + object->getName())) << key << " is " << object->getName();
    } else if (text.starts_with('"')) {
        EXPECT_EQ(root.getString(key), stringOfRow(text)) << key;
    } else if (text == "true" || text == "false") {
        EXPECT_EQ(root.getBool(key), text == "true") << key;
    } else {
        auto const number = std::stod(text);
        EXPECT_NEAR(root.getNumber(key), number, std::abs(number) * six_digits) << key;
    }
}

/// The readers reach everything but the root itself and what is in arrays.
void expectReaders(Object const& root, JsonRows const& expected) {
    for (auto const& [key, text] : expected) {
        if (!key.empty() && key.find('[') == std::string::npos)
            expectReaders(root, key, text);
    }
}

/// The fenced blocks of the README whose fence names that language.
std::vector<std::string> blocksOfReadme(std::string const& language) {
    std::vector<std::string> blocks;
    std::istringstream lines(Testing::readFile(examples() / "README.md"));
    auto is_inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            is_inside = line == "```" + language;
            if (is_inside)
                blocks.emplace_back();
        } else if (is_inside) {
            blocks.back() += line + "\n";
        }
    }
    return blocks;
}

/// Finds the bundles as the command does, beside one another.
class Examples : public testing::Test {
  protected:
    ObjectPtr load(std::string const& file, std::string const& model) {
        return loadModelFromFile(examples() / file, model, context);
    }

    std::vector<std::string> errors() const {
        std::vector<std::string> texts;
        for (auto const& error : context.getErrors())
            texts.push_back(Testing::dumpError(*error, false));
        return texts;
    }

    Testing::LogCapture const log;
    BundlePathVariable const search_path{SLATE_EXAMPLES};
    SlateContext context;
};

struct Example {
    char const* file;
    char const* model;
    char const* table;
};

class ExampleValues : public Examples, public testing::WithParamInterface<Example> {};

class ExampleValuesOfNatives : public Examples {
  protected:
    ExampleValuesOfNatives() { Testing::registerExampleNatives(*context.getEvaluatorContext()); }
};

} // namespace

TEST_P(ExampleValues, AreThoseWorkedOutByHand) {
    auto const& [file, model, table] = GetParam();
    auto const root = load(file, model);
    EXPECT_THAT(errors(), IsEmpty());
    ASSERT_NE(root, nullptr);
    expectRows(expectedRows(table), Testing::readJsonRows(root->toJson(true)));
    expectReaders(*root, expectedRows(table));
}

TEST_P(ExampleValues, NeedNoNestedDeclarations) {
    context.setNestedDeclarationsAllowed(false);
    load(GetParam().file, GetParam().model);
    EXPECT_THAT(errors(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, ExampleValues,
                         testing::Values(Example{"quantities/materials/test_cube.slate", "TestCube",
                                                 "test_cube"},
                                         Example{"drives/catalogue.slate", "HeavyDrive", "heavy_drive"},
                                         Example{"conveyor/line.slate", "InfeedLine", "infeed_line"}),
                         [](auto const& instance) { return std::string(instance.param.model); });

TEST(ExamplesReadme, ShowsTheSourcesAsTheyStand) {
    std::string sources;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(examples())) {
        if (entry.path().extension() == ".slate")
            sources += "\n" + Testing::readFile(entry.path());
    }
    auto const blocks = blocksOfReadme("slate");
    EXPECT_THAT(blocks, Not(IsEmpty()));
    for (auto const& block : blocks)
        EXPECT_THAT(sources, testing::HasSubstr("\n" + block));
}

TEST(ExamplesReadme, ShowsValuesOfTheTables) {
    std::vector<std::pair<std::string, std::string>> expected;
    for (auto const* table : {"test_cube", "heavy_drive", "infeed_line", "drive_sizing", "line_balance"})
        std::ranges::copy(expectedRows(table), std::back_inserter(expected));
    auto const blocks = blocksOfReadme("values");
    EXPECT_THAT(blocks, Not(IsEmpty()));
    for (auto const& block : blocks) {
        JsonRows shown;
        std::istringstream lines(block);
        for (std::string line; std::getline(lines, line);)
            Testing::addRowOfLine(line, shown);
        for (auto const& row : shown)
            EXPECT_THAT(expected, testing::Contains(testing::Pair(row.first, row.second)));
    }
}

TEST_F(Examples, ShareConstModelsAndReferences) {
    auto const line = load("conveyor/line.slate", "InfeedLine");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getObject("infeed.headDrum.material"), line->getObject("incline.tailDrum.material"));
    EXPECT_EQ(line->getObject("control.supply"), line->getObject("infeed.drive.motor.supply"));
    EXPECT_EQ(line->getObject("control.watchedBelt"), line->getObject("incline.belt"));
    EXPECT_EQ(line->getObject("incline.belt")->getOwner(), line->getObject("incline"));
}

TEST_F(Examples, KnowNarrowedTypesAndDefaults) {
    auto const line = load("conveyor/line.slate", "InfeedLine");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getObject("infeed.drive.motor")->getType()->toString(),
              "drives.motors.AsynchronousMotor");
    EXPECT_EQ(line->getObject("incline.drive.gearbox")->getType()->toString(), "drives.gears.HelicalGearbox");
    EXPECT_TRUE(line->getObject("infeed.drive.motor")->isDefault("slip"));
    EXPECT_FALSE(line->getObject("incline.drive.motor")->isDefault("slip"));
}

TEST_F(Examples, ReportEachCallThatNobodyRegistered) {
    auto const sizing = load("conveyor/sizing.slate", "DriveSizing");
    EXPECT_THAT(errors(), UnorderedElementsAre("30006 6:41", "30002 7:32", "30006 8:29", "30006 9:25"));
    ASSERT_NE(sizing, nullptr);
    EXPECT_NEAR(sizing->getNumber("peakPower"), 598.1, 0.001) << "what needs no call";
}

TEST_F(ExampleValuesOfNatives, MethodsAreThoseWorkedOutByHand) {
    auto const sizing = load("conveyor/sizing.slate", "DriveSizing");
    EXPECT_THAT(errors(), IsEmpty());
    ASSERT_NE(sizing, nullptr);
    auto rows = Testing::readJsonRows(sizing->toJson(true));
    std::erase_if(rows, [](auto const& row) { return row.first.starts_with("incline."); });
    expectRows(expectedRows("drive_sizing"), rows);
    expectReaders(*sizing, expectedRows("drive_sizing"));
}

TEST_F(ExampleValuesOfNatives, OperatorsAreThoseWorkedOutByHand) {
    auto const balance = load("conveyor/sizing.slate", "LineBalance");
    EXPECT_THAT(errors(), IsEmpty());
    ASSERT_NE(balance, nullptr);
    expectRows(expectedRows("line_balance"), Testing::readJsonRows(balance->toJson(true)));
    expectReaders(*balance, expectedRows("line_balance"));
    EXPECT_EQ(balance->getObject("whole")->getType()->toString(), "drives.MassPoint");
}

} // namespace Slate::Core::Api
