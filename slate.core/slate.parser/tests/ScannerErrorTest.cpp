// Faulty text in, tokens and errors out: each fault alone and with more behind it that still scans.

#include "ScannedText.h"
#include "slate/Scanner.h"

#include <gtest/gtest.h>

namespace Slate::Testing {

namespace {

using namespace std::string_literals;

class ScannerErrors : public testing::TestWithParam<ScannerRow> {};

TEST_P(ScannerErrors, AndTokensAreAsExpected) { EXPECT_EQ(scanned(GetParam().source), GetParam().lines); }

std::vector<ScannerRow> const unknown_byte_rows{
    {"AngleBracketAndTheBlankBehindIt",
     "a - > b",
     {"Identifier a@1:1", "Minus -@1:3", "Identifier b@1:7", "Eof @1:8", "10004 1:6"}},
    {"LastByteMovesEofOneFurther", "$", {"Eof @1:3", "10004 1:2"}},
    {"LosesALetter", "$a", {"Eof @1:3", "10004 1:2"}},
    {"LosesTheFirstLetterOfAKeyword", "$with", {"Identifier ith@1:3", "Eof @1:6", "10004 1:2"}},
    {"LosesALineFeed",
     "a $\nb\nc",
     {"Identifier a@1:1", "Identifier b@1:5", "Identifier c@2:1", "Eof @2:2", "10004 1:4"}},
    {"LosesTheSignOfAComment", "$#a", {"Identifier a@1:3", "Eof @1:4", "10004 1:2"}},
    {"LosesAQuote",
     "$\"a\"\nb",
     {"Identifier a@1:3", "Identifier b@2:1", "Eof @2:2", "10004 1:2", "10017 1:5"}},
    {"LosesAnotherUnknownByte", "$$a", {"Identifier a@1:3", "Eof @1:4", "10004 1:2"}},
    {"TwoByteCharacterIsOneError", "\xc3\xa4x", {"Identifier x@1:3", "Eof @1:4", "10004 1:2"}},
    {"ThreeByteCharacterIsTwoErrors",
     "\xe2\x82\xacxy",
     {"Identifier y@1:5", "Eof @1:6", "10004 1:2", "10004 1:4"}},
    {"FourByteCharacterIsTwoErrors",
     "\xf0\x9f\x98\x80x",
     {"Identifier x@1:5", "Eof @1:6", "10004 1:2", "10004 1:4"}},
    {"NulByteIsNotTheEnd", "a\0b c"s, {"Identifier a@1:1", "Identifier c@1:5", "Eof @1:6", "10004 1:3"}},
    {"NulByteAlone", "\0"s, {"Eof @1:3", "10004 1:2"}},
    {"ByteOrderMark",
     "\xef\xbb\xbf"
     "abc",
     {"Identifier bc@1:5", "Eof @1:7", "10004 1:2", "10004 1:4"}},
    {"LastByteOfANumberLine", "1;\n2", {"Number 1@1:1", "Number 2@1:4", "Eof @1:5", "10004 1:3"}},
};

std::vector<ScannerRow> const at_sign_rows{
    {"AtTheEndOfTheText", "@", {"Eof @1:2", "10014 1:2"}},
    {"AtTheEndOfTheTextOnALaterLine", "x\n  @", {"Identifier x@1:1", "Eof @2:4", "10014 2:4"}},
    {"BeforeALineFeedLeavesIt", "@\nz", {"Identifier z@2:1", "Eof @2:2", "10004 1:2"}},
    {"BeforeANameSkipsTheLine",
     "a @b \"c\"\nz",
     {"Identifier a@1:1", "Identifier z@2:1", "Eof @2:2", "10004 1:4"}},
    {"BeforeABlankSkipsTheLine", R"(a @ "b")", {"Identifier a@1:1", "Eof @1:8", "10004 1:4"}},
    {"BeforeACarriageReturn", "@\r\nz", {"Identifier z@2:1", "Eof @2:2", "10004 1:2"}},
    {"Twice", "@@", {"Eof @1:3", "10004 1:2"}},
};

std::vector<ScannerRow> const exponent_rows{
    {"AtTheEndOfTheText", "1.5e", {"Number 1.5@1:1", "Eof @1:5", "10016 1:5"}},
    {"WithAPlusSkipsToTheEnd", "1e+5", {"Number 1@1:1", "Eof @1:5", "10016 1:3"}},
    {"WithAPlusSkipsToTheBlank", "1e+5 a", {"Number 1@1:1", "Identifier a@1:6", "Eof @1:7", "10016 1:3"}},
    {"WithAMinusOnly", "1e-", {"Number 1@1:1", "Eof @1:4", "10016 1:4"}},
    {"WithTwoMinuses", "1e-- a", {"Number 1@1:1", "Identifier a@1:6", "Eof @1:7", "10016 1:4"}},
    {"BeforeABlank", "1e x", {"Number 1@1:1", "Identifier x@1:4", "Eof @1:5", "10016 1:3"}},
    {"BeforeATab", "1E\tx", {"Number 1@1:1", "Identifier x@1:4", "Eof @1:5", "10016 1:3"}},
    {"BeforeALineFeedLeavesIt", "1e\nx", {"Number 1@1:1", "Identifier x@2:1", "Eof @2:2", "10016 1:3"}},
    {"BeforeACarriageReturn", "1e\r\nx", {"Number 1@1:1", "Identifier x@2:1", "Eof @2:2", "10016 1:3"}},
    {"SkipsToTheTab", "1ex$\ty", {"Number 1@1:1", "Identifier y@1:6", "Eof @1:7", "10016 1:3"}},
    {"SkipsToTheLineFeed", "1e)\n)", {"Number 1@1:1", "RightParen )@2:1", "Eof @2:2", "10016 1:3"}},
    {"BehindAPointAtTheStart", ".5e", {"Number .5@1:1", "Eof @1:4", "10016 1:4"}},
    {"StandsWhereTheDigitsBegin", "  12.5E-x", {"Number 12.5@1:3", "Eof @1:10", "10016 1:9"}},
};

std::vector<ScannerRow> const unclosed_rows{
    {"StringAtTheEndOfTheText", R"("a)", {"Eof @1:3", "10017 1:3"}},
    {"StringAtTheEndOfTheLine",
     "x \"a\ny",
     {"Identifier x@1:1", "Identifier y@2:1", "Eof @2:2", "10017 1:5"}},
    {"StringOfNothing", "\"\ny", {"Identifier y@2:1", "Eof @2:2", "10017 1:2"}},
    {"StringCountsItsCarriageReturn", "\"a\r\nb", {"Identifier b@2:1", "Eof @2:2", "10017 1:4"}},
    {"MultilineStringWithoutItsThirdQuote", R"("""a"")", {"Eof @1:7", "10017 1:7"}},
    {"MultilineStringOfNothing", R"(""")", {"Eof @1:4", "10017 1:4"}},
    {"MultilineStringOfAQuote", R"("""")", {"Eof @1:5", "10017 1:5"}},
    {"MultilineStringOfTwoQuotes", R"(""""")", {"Eof @1:6", "10017 1:6"}},
    {"MultilineStringOverLines", "x \"\"\"a\nb\n", {"Identifier x@1:1", "Eof @3:1", "10017 3:1"}},
    {"StringBehindAMultilineString",
     "\"\"\"a\"\"\"\" b\nc",
     {R"(MultilineString """a"""@1:1)", "Identifier c@2:1", "Eof @2:2", "10017 1:11"}},
    {"AtStringAtTheEndOfTheText", R"(@"a)", {"Eof @1:4", "10017 1:4"}},
    {"AtStringAtTheEndOfTheLine", "@\"a\nb", {"Identifier b@2:1", "Eof @2:2", "10017 1:4"}},
    {"StringBehindAnEmptyAtString", R"(@""")", {R"(AtString @""@1:1)", "Eof @1:5", "10017 1:5"}},
    {"QuotedNameAtTheEndOfTheText", "`a", {"Eof @1:3", "10017 1:3"}},
    {"QuotedNameAtTheEndOfTheLine", "`a is\nb", {"Identifier b@2:1", "Eof @2:2", "10017 1:6"}},
    {"QuotedNameOfNothing", "`\nb", {"Identifier b@2:1", "Eof @2:2", "10017 1:2"}},
};

std::vector<ScannerRow> const empty_quoted_name_rows{
    {"Alone", "``", {"Identifier @1:1", "Eof @1:3", "10021 1:1"}},
    {"BetweenNames",
     "a ``b",
     {"Identifier a@1:1", "Identifier @1:3", "Identifier b@1:5", "Eof @1:6", "10021 1:3"}},
    {"OnALaterLine",
     "x\n  ``.y",
     {"Identifier x@1:1", "Identifier @2:3", "Dot .@2:5", "Identifier y@2:6", "Eof @2:7", "10021 2:3"}},
    {"BeforeAnUnclosedOne", "```", {"Identifier @1:1", "Eof @1:4", "10021 1:1", "10017 1:4"}},
};

std::vector<ScannerRow> const several_rows{
    {"FaultsOfEachKind",
     "$ \"a\n`b\n1e\n``\n@x\nok @",
     {"Number 1@3:1", "Identifier @4:1", "Identifier ok@6:1", "Eof @6:5", "10004 1:2", "10017 1:5",
      "10017 2:3", "10016 3:3", "10021 4:1", "10004 5:2", "10014 6:5"}},
};

std::string nameOf(testing::TestParamInfo<ScannerRow> const& instance) { return instance.param.name; }

INSTANTIATE_TEST_SUITE_P(UnknownByte, ScannerErrors, testing::ValuesIn(unknown_byte_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(AtSign, ScannerErrors, testing::ValuesIn(at_sign_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(ExponentWithoutDigits, ScannerErrors, testing::ValuesIn(exponent_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(Unclosed, ScannerErrors, testing::ValuesIn(unclosed_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(EmptyQuotedName, ScannerErrors, testing::ValuesIn(empty_quoted_name_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(Several, ScannerErrors, testing::ValuesIn(several_rows), nameOf);

TEST(Scanner, NamesTheSourceInItsErrors) {
    auto const reporter = std::make_shared<ErrorReporter>();
    tokenize("$", "a/b.slate", reporter);
    ASSERT_EQ(reporter->getErrorCount(), 1U);
    EXPECT_EQ(dumpError(*reporter->getErrors().front(), true), "a/b.slate: 10004 1:2");
}

} // namespace

} // namespace Slate::Testing
