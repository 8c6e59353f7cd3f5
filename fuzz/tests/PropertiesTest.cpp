// What the fuzzers check holds for the sources of all cases, for generated programs, and for damaged ones.

#include "slate/fuzz/Properties.h"

#include "RandomBundle.h"
#include "RandomPrograms.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <random>
#include <utility>

namespace Slate::Fuzz {

namespace {

using namespace Testing;

constexpr std::mt19937::result_type program_count = 150;

/// The texts of all cases of all libraries.
std::vector<std::string> caseTexts() {
    std::vector<std::string> texts;
    for (auto const* library : {"slate.parser", "slate.analysis", "slate.eval"}) {
        auto const directory = std::filesystem::path(SLATE_CORE) / library / "tests/cases";
        for (auto const& test_case : findCases(directory))
            texts.push_back(readFile(test_case.source_path));
    }
    return texts;
}

void forEachProgram(std::function<void(AnalysisInput const&)> const& check) {
    for (std::mt19937::result_type seed = 0; seed < program_count && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        check(makeRandomProgram(seed, Intent::Sound));
        check(makeRandomProgram(seed, Intent::Faulty));
        auto bundle = Refactor::makeRandomBundle(seed, Refactor::Naming::Mixed);
        check({.sources = std::move(bundle.sources), .model = bundle.root});
    }
}

/// The text with a few bytes changed, lost or doubled.
std::string damage(std::string text, std::mt19937& random) {
    constexpr std::string_view bytes = "\n\n  :.,()[]{}\"`#@-+*/a1\t\\\xff";
    for (int i = 0; i < 3 && !text.empty(); ++i) {
        auto const place = random() % text.size();
        switch (random() % 3) {
        case 0: text[place] = bytes[random() % bytes.size()]; break;
        case 1: text.erase(place, 1 + random() % 8); break;
        default: text.insert(place, text.substr(random() % text.size(), random() % 20));
        }
    }
    return text;
}

std::string pack(AnalysisInput const& input) {
    return "=== config.slate\nconfig is BundleConfig:\n    name: \"plant\"\n" + textOf(input);
}

} // namespace

TEST(Properties, HoldForAllCases) {
    auto const texts = caseTexts();
    ASSERT_GT(texts.size(), 400U);
    for (auto const& text : texts) {
        EXPECT_EQ(checkParsing(text), "") << text;
        EXPECT_EQ(checkRoad(text), "") << text;
        EXPECT_EQ(checkAnalysisAgain(readAnalysisInput(text)), "") << text;
    }
}

TEST(Properties, HoldForTheStoredCorpora) {
    using Check = std::string (*)(std::string const&);
    for (auto const& [fuzzer, check] :
         std::initializer_list<std::pair<char const*, Check>>{{"parser", checkParsing},
                                                              {"road", checkRoad},
                                                              {"bundle", checkBundle},
                                                              {"config", checkConfig},
                                                              {"refactor", checkRefactoring}}) {
        auto const directory = std::filesystem::path(SLATE_CORPORA) / fuzzer;
        ASSERT_FALSE(std::filesystem::is_empty(directory)) << directory;
        for (auto const& entry : std::filesystem::directory_iterator(directory))
            EXPECT_EQ(check(readFile(entry.path())), "") << entry.path();
    }
}

TEST(Properties, HoldForDamagedCases) {
    std::mt19937 random(1);
    for (auto const& text : caseTexts()) {
        for (int i = 0; i < 4; ++i) {
            auto const damaged = damage(text, random);
            EXPECT_EQ(checkParsing(damaged), "") << damaged;
            EXPECT_EQ(checkRoad(damaged), "") << damaged;
        }
    }
}

TEST(Properties, HoldForGeneratedPrograms) {
    forEachProgram([](AnalysisInput const& input) {
        for (auto const& source : input.sources) {
            EXPECT_EQ(checkParsing(source.text), "") << source.text;
            EXPECT_EQ(checkRoad(source.text), "") << source.text;
        }
        EXPECT_EQ(checkAnalysisAgain(input), "") << textOf(input);
    });
}

TEST(Properties, HoldForGeneratedBundles) {
    forEachProgram(
        [](AnalysisInput const& input) { EXPECT_EQ(checkBundle(pack(input)), "") << pack(input); });
}

TEST(Properties, HoldForRefactorings) {
    forEachProgram([](AnalysisInput const& input) {
        for (auto const* request : {"attribute 3 renamed", "method 1 renamed", "model 2 Hull",
                                    "move 2 far.away", "namespace near far", "namespace plant far.away"}) {
            auto const text = std::string(request) + "\n" + textOf(input);
            EXPECT_EQ(checkRefactoring(text), "") << text;
        }
    });
}

TEST(Properties, HoldForConfigurations) {
    std::mt19937 random(2);
    std::string const config = "config is BundleConfig:\n    name: \"mill\"\n    version: \"1.2\"\n"
                               "    dependencies: [\"drives\", \"units==2.0\"]\n";
    for (int i = 0; i < 300; ++i) {
        auto const damaged = damage(config, random);
        EXPECT_EQ(checkConfig(damaged), "") << damaged;
    }
}

} // namespace Slate::Fuzz
