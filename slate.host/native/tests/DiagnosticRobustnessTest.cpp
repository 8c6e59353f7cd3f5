// Whatever a source holds, its errors are worded, in places that exist, in time that grows with its length.

#include "Loaded.h"
#include "slate/host/Diagnostics.h"
#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

namespace Slate::Host {

namespace {

void expectSound(std::string const& text) {
    SCOPED_TRACE(text);
    Loaded const loaded({.text = text});
    SourceTexts texts;
    auto const diagnostics = describeErrors(loaded.context(), texts);
    ASSERT_EQ(diagnostics.size(), loaded.context().getErrors().size());
    for (std::size_t i = 0; i < diagnostics.size(); ++i) {
        auto const& diagnostic = diagnostics[i];
        EXPECT_FALSE(diagnostic.message.empty());
        EXPECT_EQ(diagnostic.message.find('\n'), std::string::npos);
        auto const& place = diagnostic.place;
        EXPECT_TRUE(place.line < place.end_line ||
                    (place.line == place.end_line && place.column <= place.end_column));
        if (!diagnostic.cause)
            continue;
        EXPECT_NE(*diagnostic.cause, i);
        EXPECT_FALSE(diagnostics.at(*diagnostic.cause).cause.has_value());
    }
}

TEST(DescribeErrors, IsSoundForSourcesWithPiecesCutOutOrPutIn) {
    std::mt19937 random(1); // NOLINT: the same sources each time
    std::string const pieces = ":.=()[]{}`\"\n \t#@\xC3\xA4+-,\r";
    for (auto const& test_case : Testing::findCases(SLATE_CASES)) {
        auto text = Testing::readFile(test_case.source_path);
        if (text.starts_with("==="))
            continue;
        for (int round = 0; round < 6; ++round) {
            auto const place = random() % text.size();
            if (random() % 2 == 0)
                text.erase(place, 1 + random() % 4);
            else
                text.insert(place, 1, pieces[random() % pieces.size()]);
            if (text.empty() || text.starts_with("==="))
                break;
            expectSound(text);
        }
    }
}

TEST(DescribeErrors, TakesManyErrorsInOneFile) {
    constexpr int count = 10'000;
    std::string text = "Shaft:\n    length is Real: 1\n";
    for (int i = 0; i < count; ++i)
        text += "    a" + std::to_string(i) + " is Real: lenght" + std::to_string(i) + "\n";
    Loaded const loaded({.text = text});
    SourceTexts texts;
    auto const start = std::chrono::steady_clock::now();
    auto const diagnostics = describeErrors(loaded.context(), texts);
    EXPECT_GE(diagnostics.size(), static_cast<std::size_t>(count));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(DescribeErrors, WordsWithoutTextsOrDocuments) {
    Loaded loaded({.text = "Shaft:\n    length is Flaot\n"});
    loaded.release();
    SourceTexts texts;
    auto const diagnostics = describeErrors(loaded.context(), texts);
    ASSERT_EQ(diagnostics.size(), 1U);
    EXPECT_EQ(diagnostics.front().message, "no type is named `Flaot`");
    EXPECT_EQ(diagnostics.front().error_class, "TypeNotFound");
}

} // namespace

} // namespace Slate::Host
