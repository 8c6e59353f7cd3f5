// Any bytes whatsoever end in a token list and a document.

#include "slate/Document.h"
#include "slate/Scanner.h"
#include "slate/testing/Cases.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/Parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace Slate::Testing {

namespace {

bool standsBefore(Token const& a, Token const& b) {
    return a.line < b.line || (a.line == b.line && a.column <= b.column);
}

/// Scans and parses the text. What the parser logs on the way are its own defects: a round of a loop that
/// consumed nothing, or a step behind the end.
void expectTokensAndDocument(std::string const& text) {
    LogCapture const log;
    auto const tokens = tokenize(text, "test.slate", std::make_shared<ErrorReporter>());
    ASSERT_FALSE(tokens.empty()) << text;
    EXPECT_EQ(tokens.back().type, TokenType::Eof) << text;
    EXPECT_EQ(std::ranges::count(tokens, TokenType::Eof, &Token::type), 1) << text;
    auto const backwards = std::ranges::adjacent_find(
        tokens, [](Token const& a, Token const& b) { return !standsBefore(a, b); });
    EXPECT_EQ(backwards, tokens.end()) << text;

    EXPECT_TRUE(parse(text).document) << text;
    EXPECT_THAT(log.texts(), testing::IsEmpty()) << text;
}

/// The sources of all whole-file cases.
std::vector<std::string> sources() {
    std::vector<std::string> texts;
    for (auto const& test_case : findCases(SLATE_CASES))
        texts.push_back(readFile(test_case.source_path));
    return texts;
}

/// Where the lines of a text begin.
std::vector<std::size_t> lineStarts(std::string const& text) {
    std::vector<std::size_t> starts{0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n')
            starts.push_back(i + 1);
    }
    return starts;
}

/// The bytes of a text that a token was read from.
struct Range {
    std::size_t begin;
    std::size_t length;
};

std::vector<Range> tokenRanges(std::string const& text) {
    auto const starts = lineStarts(text);
    std::vector<Range> ranges;
    for (auto const& token : tokenize(text, "test.slate", std::make_shared<ErrorReporter>())) {
        auto const begin = starts.at(token.line - 1) + token.column - 1;
        if (begin >= text.size())
            continue;
        auto const backquotes = text[begin] == '`' ? 2U : 0U;
        ranges.push_back({begin, token.lexeme.size() + backquotes});
    }
    return ranges;
}

TEST(Robustness, EverySingleByteAloneAndBetweenOthers) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string const text(1, static_cast<char>(byte));
        for (auto const& surrounded : {text, "a" + text, text + "a", "A:\n x" + text + ": 1\n y: 2",
                                       "x is Real: (" + text + "\n)\nB", "\"" + text + "\"" + text})
            expectTokensAndDocument(surrounded);
    }
}

TEST(Robustness, TextsWithOddBytesAndEnds) {
    using std::string_literals::operator""s;
    for (auto const& text : {""s, "\0"s, "\0\0\0\0"s, "A\0B"s, "A:\0\n x: 1"s, "\xff\xfe"s,
                             "\xc3\xa4 is Real: 1"s, "\xe2\x82\xac"s, "A:\r\n x is Real: 1\r\n"s, "\r"s,
                             "\n"s, "A:\n  x: 1"s, "x is Real: \"\"\"\r\n\0"s, "#"s, "# \xff"s})
        expectTokensAndDocument(text);
}

TEST(Robustness, EveryCaseCutAtEveryByte) {
    for (auto const& source : sources()) {
        for (std::size_t length = 0; length <= source.size(); ++length)
            expectTokensAndDocument(source.substr(0, length));
    }
}

TEST(Robustness, EveryCaseWithEverySingleTokenDeletedOrDoubled) {
    for (auto const& source : sources()) {
        for (auto const& range : tokenRanges(source)) {
            auto const before = source.substr(0, range.begin);
            auto const token = source.substr(range.begin, range.length);
            auto const behind = source.substr(range.begin + range.length);
            expectTokensAndDocument(before + behind);
            expectTokensAndDocument(before + token + " " + token + behind);
        }
    }
}

TEST(Robustness, EveryCaseWithEveryLineDeletedOrShifted) {
    for (auto const& source : sources()) {
        auto starts = lineStarts(source);
        starts.push_back(source.size());
        for (std::size_t line = 0; line + 1 < starts.size(); ++line) {
            auto const before = source.substr(0, starts[line]);
            expectTokensAndDocument(before + source.substr(starts[line + 1]));
            expectTokensAndDocument(before + "  " + source.substr(starts[line]));
        }
    }
}

/// Token soup: the words of the language in any order, with line ends and blanks between them.
TEST(Robustness, WordsOfTheLanguageInAnyOrder) {
    std::vector<std::string> const words{
        "a",    "B",        "`q r`", "is",       "becomes", "fn",     "static",
        "true", "operator", "const", "external", "import",  "as",     "trait",
        "with", "delete",   "(",     ")",        "{",       "}",      "[",
        "]",    ".",        "-",     "+",        ":",       "/",      "*",
        ",",    "->",       "1",     "2.5e3",    "\"s\"",   "@\"p\"", "\"\"\"m\nn\"\"\"",
        "\n",   "\n",       "\n",    "\n  ",     "\n  ",    "\n    ", "\n      ",
        "$",    "1e"};
    std::mt19937 random(20'26); // the same soup each time
    std::uniform_int_distribution<std::size_t> pick(0, words.size() - 1);
    for (int soup = 0; soup < 20'000; ++soup) {
        std::string text;
        for (int word = 0; word < 60; ++word)
            text += words[pick(random)] + (word % 3 == 0 ? "" : " ");
        expectTokensAndDocument(text);
    }
}

} // namespace

} // namespace Slate::Testing
