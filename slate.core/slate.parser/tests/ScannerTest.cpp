// Text in, tokens out: what scans without a fault, and each byte for itself.

#include "slate/Scanner.h"

#include "ScannedText.h"
#include "slate/Keywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <map>

namespace Slate::Testing {

namespace {

using namespace std::string_literals;

class ScannerTokens : public testing::TestWithParam<ScannerRow> {};

TEST_P(ScannerTokens, AreAsExpected) { EXPECT_EQ(scanned(GetParam().source), GetParam().lines); }

std::vector<ScannerRow> const layout_rows{
    {"EmptyTextIsOneEof", "", {"Eof @1:1"}},
    {"CommentWithoutLineFeedEndsInEofPastIt", "# abc", {"Eof @1:6"}},
    {"CommentLeavesItsLineFeed", "a # b\nc", {"Identifier a@1:1", "Identifier c@2:1", "Eof @2:2"}},
    {"CommentHoldsAnyByte", "#$@\"`\xc3\0#\n1"s, {"Number 1@2:1", "Eof @2:2"}},
    {"TabCountsOneColumn", "\ta\t\tb", {"Identifier a@1:2", "Identifier b@1:5", "Eof @1:6"}},
    {"CarriageReturnsCountAColumnAndNoLine",
     "a\r\nb\r\n",
     {"Identifier a@1:1", "Identifier b@2:1", "Eof @3:1"}},
    {"CarriageReturnAloneEndsNoLine", "a\r\rb\r", {"Identifier a@1:1", "Identifier b@1:4", "Eof @1:6"}},
    {"LineFeedsOnly", "\n\n\n", {"Eof @4:1"}},
    {"OneCharacterTokens",
     "(){}[].-+:/*,",
     {"LeftParen (@1:1", "RightParen )@1:2", "LeftBrace {@1:3", "RightBrace }@1:4", "LeftBracket [@1:5",
      "RightBracket ]@1:6", "Dot .@1:7", "Minus -@1:8", "Plus +@1:9", "Colon :@1:10", "Slash /@1:11",
      "Star *@1:12", "Comma ,@1:13", "Eof @1:14"}},
    {"ArrowIsOneToken", "a->b", {"Identifier a@1:1", "Arrow ->@1:2", "Identifier b@1:4", "Eof @1:5"}},
    {"MinusBeforeArrow", "-->-", {"Minus -@1:1", "Arrow ->@1:2", "Minus -@1:4", "Eof @1:5"}},
};

std::vector<ScannerRow> const name_rows{
    {"NamesOfLettersDigitsAndUnderscores",
     "_a1 A_ z9Z0",
     {"Identifier _a1@1:1", "Identifier A_@1:5", "Identifier z9Z0@1:8", "Eof @1:12"}},
    {"KeywordsAreCaseSensitive",
     "is Is IS",
     {"Is is@1:1", "Identifier Is@1:4", "Identifier IS@1:7", "Eof @1:9"}},
    {"KeywordsAreWholeWords",
     "isx is_ is1 xis i",
     {"Identifier isx@1:1", "Identifier is_@1:5", "Identifier is1@1:9", "Identifier xis@1:13",
      "Identifier i@1:17", "Eof @1:18"}},
    {"DotBetweenNames", "a.is", {"Identifier a@1:1", "Dot .@1:2", "Is is@1:3", "Eof @1:5"}},
    {"QuotedKeywordIsAName", "`is`", {"Identifier is@1:1", "Eof @1:5"}},
    {"QuotedNameHoldsABlank", "`a b`", {"Identifier a b@1:1", "Eof @1:6"}},
    {"QuotedNameHoldsAnyByte",
     "`\t$\"#\0\xc3\xa4`x"s,
     {"Identifier \t$\"#\0\xc3\xa4@1:1"s, "Identifier x@1:10", "Eof @1:11"}},
    {"QuotedNameKeepsACarriageReturn", "`a\r`", {"Identifier a\r@1:1", "Eof @1:5"}},
    {"QuotedNameStandsAtItsBackquote",
     " `a`.`b`",
     {"Identifier a@1:2", "Dot .@1:5", "Identifier b@1:6", "Eof @1:9"}},
};

std::vector<ScannerRow> const number_rows{
    {"Digits", "0 007 12", {"Number 0@1:1", "Number 007@1:3", "Number 12@1:7", "Eof @1:9"}},
    {"Points", "1.5 .5", {"Number 1.5@1:1", "Number .5@1:5", "Eof @1:7"}},
    {"Exponents",
     "1e5 1E-5 1.5e3 .5e3",
     {"Number 1e5@1:1", "Number 1E-5@1:5", "Number 1.5e3@1:10", "Number .5e3@1:16", "Eof @1:20"}},
    {"NumberEndsInAPoint", "1.", {"Number 1.@1:1", "Eof @1:3"}},
    {"NumberEndsInAPointBeforeALineFeed", "1.\n2", {"Number 1.@1:1", "Number 2@2:1", "Eof @2:2"}},
    {"NameBehindAPointIsNoPart", "1.x", {"Number 1.@1:1", "Identifier x@1:3", "Eof @1:4"}},
    {"ExponentDirectlyBehindAPointIsAName", "1.e5", {"Number 1.@1:1", "Identifier e5@1:3", "Eof @1:5"}},
    {"TwoPointsInARow", "1..5", {"Number 1.@1:1", "Number .5@1:3", "Eof @1:5"}},
    {"SecondPointBeginsAnotherNumber", "1.5.5", {"Number 1.5@1:1", "Number .5@1:4", "Eof @1:6"}},
    {"NumberFromAPointTakesASecondPoint", ".5.5", {"Number .5.5@1:1", "Eof @1:5"}},
    {"NumberFromAPointTakesNoThirdPoint", ".5.5.5", {"Number .5.5@1:1", "Number .5@1:5", "Eof @1:7"}},
    {"NumberBehindADot", "..5", {"Dot .@1:1", "Number .5@1:2", "Eof @1:4"}},
    {"NameAndNumberAreNoMemberAccess", "a.1", {"Identifier a@1:1", "Number .1@1:2", "Eof @1:4"}},
    {"NameBehindDigits", "1x", {"Number 1@1:1", "Identifier x@1:2", "Eof @1:3"}},
    {"NameBehindAnExponent", "1e5e5", {"Number 1e5@1:1", "Identifier e5@1:4", "Eof @1:6"}},
    {"PointBehindAnExponent", "1e5.5", {"Number 1e5@1:1", "Number .5@1:4", "Eof @1:6"}},
    {"MinusIsNoPartOfANumber",
     "-1-2",
     {"Minus -@1:1", "Number 1@1:2", "Minus -@1:3", "Number 2@1:4", "Eof @1:5"}},
};

std::vector<ScannerRow> const string_rows{
    {"EmptyString", R"(""a)", {R"(String ""@1:1)", "Identifier a@1:3", "Eof @1:4"}},
    {"EmptyStringAtTheEnd", R"("")", {R"(String ""@1:1)", "Eof @1:3"}},
    {"EmptyStringBeforeABlankAndAString", R"("" "")", {R"(String ""@1:1)", R"(String ""@1:4)", "Eof @1:6"}},
    {"StringsInARow", R"("a""b")", {R"(String "a"@1:1)", R"(String "b"@1:4)", "Eof @1:7"}},
    {"BackslashEscapesNothing", R"("a\"b)", {R"(String "a\"@1:1)", "Identifier b@1:5", "Eof @1:6"}},
    {"StringHoldsAnyByte", "\"#`@\0\xff\"+"s, {"String \"#`@\0\xff\"@1:1"s, "Plus +@1:8", "Eof @1:9"}},
    {"StringKeepsACarriageReturn", "\"a\r\"", {"String \"a\r\"@1:1", "Eof @1:5"}},
    {"EmptyMultilineString", R"("""""")", {R"(MultilineString """"""@1:1)", "Eof @1:7"}},
    {"MultilineStringStandsAtItsFirstQuote",
     "  \"\"\"a\n\n b\"\"\"c",
     {"MultilineString \"\"\"a\n\n b\"\"\"@1:3", "Identifier c@3:6", "Eof @3:7"}},
    {"MultilineStringOnOneLine", R"("""a"""+)", {R"(MultilineString """a"""@1:1)", "Plus +@1:8", "Eof @1:9"}},
    {"MultilineStringHoldsOneAndTwoQuotes",
     R"("""a"b""c""")",
     {R"(MultilineString """a"b""c"""@1:1)", "Eof @1:13"}},
    {"MultilineStringOpensWithAQuoteMore", R"(""""a""")", {R"(MultilineString """"a"""@1:1)", "Eof @1:9"}},
    {"MultilineStringKeepsCarriageReturns",
     "\"\"\"\r\n\0\"\"\"b"s,
     {"MultilineString \"\"\"\r\n\0\"\"\"@1:1"s, "Identifier b@2:5", "Eof @2:6"}},
    {"AtString",
     R"(a @"b.txt"c)",
     {"Identifier a@1:1", R"(AtString @"b.txt"@1:3)", "Identifier c@1:11", "Eof @1:12"}},
    {"EmptyAtString", R"(@"")", {R"(AtString @""@1:1)", "Eof @1:4"}},
};

std::string nameOf(testing::TestParamInfo<ScannerRow> const& instance) { return instance.param.name; }

INSTANTIATE_TEST_SUITE_P(OfLayout, ScannerTokens, testing::ValuesIn(layout_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfNames, ScannerTokens, testing::ValuesIn(name_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfNumbers, ScannerTokens, testing::ValuesIn(number_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(OfStrings, ScannerTokens, testing::ValuesIn(string_rows), nameOf);

TEST(Scanner, KnowsEveryKeyword) {
    EXPECT_EQ(scanned("is becomes fn static true false operator\nconst external import as trait with delete"),
              (std::vector<std::string>{"Is is@1:1", "Becomes becomes@1:4", "Fn fn@1:12",
                                        "Static static@1:15", "True true@1:22", "False false@1:27",
                                        "Operator operator@1:33", "Const const@2:1", "External external@2:7",
                                        "Import import@2:16", "As as@2:23", "Trait trait@2:26",
                                        "With with@2:32", "Delete delete@2:37", "Eof @2:43"}));
}

TEST(Scanner, KnowsNoKeywordInAnotherCase) {
    for (auto const& keyword : keywords) {
        std::string word(keyword.word);
        word.front() = static_cast<char>(word.front() - 'a' + 'A');
        EXPECT_THAT(scanned(word), testing::ElementsAre("Identifier " + word + "@1:1", testing::_));
    }
}

TEST(Scanner, KeepsTheQuotesThatTheTextOfAStringIsWithout) {
    auto const text_of = [](std::string const& source) {
        return Token::extractString(
            tokenize(source, "test.slate", std::make_shared<ErrorReporter>()).front());
    };
    EXPECT_EQ(text_of(R"("""""")"), "");
    EXPECT_EQ(text_of("\"\"\" a\n\"\"\""), " a\n");
    EXPECT_EQ(text_of(R"("")"), "");
    EXPECT_EQ(text_of(R"("a")"), "a");
    EXPECT_EQ(text_of(R"(@"a")"), "a");
    EXPECT_EQ(text_of("`a`"), "");
}

/// What a text of the one byte scans to.
std::vector<std::string> expectedOfByte(unsigned char byte) {
    static std::map<char, std::string> const kinds{
        {'(', "LeftParen"},   {')', "RightParen"},   {'{', "LeftBrace"}, {'}', "RightBrace"},
        {'[', "LeftBracket"}, {']', "RightBracket"}, {'.', "Dot"},       {'-', "Minus"},
        {'+', "Plus"},        {':', "Colon"},        {'/', "Slash"},     {'*', "Star"},
        {',', "Comma"}};
    static std::map<char, std::string> const errors{
        {'"', "10017 1:2"}, {'`', "10017 1:2"}, {'@', "10014 1:2"}};

    auto const character = static_cast<char>(byte);
    auto const token_of = [&](std::string const& kind) {
        return std::vector<std::string>{kind + " " + character + "@1:1", "Eof @1:2"};
    };
    if (kinds.contains(character))
        return token_of(kinds.at(character));
    if (errors.contains(character))
        return {"Eof @1:2", errors.at(character)};
    if (character == '\n')
        return {"Eof @2:1"};
    if (std::string("\t\r #").find(character) != std::string::npos)
        return {"Eof @1:2"};
    if (byte >= '0' && byte <= '9')
        return token_of("Number");
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '_')
        return token_of("Identifier");
    return {"Eof @1:3", "10004 1:2"};
}

TEST(Scanner, KnowsEachByte) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(scanned(std::string(1, static_cast<char>(byte))),
                  expectedOfByte(static_cast<unsigned char>(byte)))
            << "byte " << byte;
    }
}

/// Only letters, digits and the underscore go on with a name.
TEST(Scanner, EndsANameAtEachOtherByte) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        auto const character = static_cast<char>(byte);
        bool const is_part = byte < 128 && (std::isalnum(static_cast<int>(byte)) != 0 || character == '_');
        auto const name = "q"s + (is_part ? std::string(1, character) : "");
        EXPECT_EQ(scanned("q"s + character).front(), "Identifier " + name + "@1:1") << "byte " << byte;
    }
}

} // namespace

} // namespace Slate::Testing
