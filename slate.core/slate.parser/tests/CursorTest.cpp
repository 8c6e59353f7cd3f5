// The cursor and its tests, and what happens behind the end of the tokens.

#include "slate/Document.h"
#include "slate/ObjectPool.h"
#include "slate/ParserImpl.h"
#include "slate/ParserLoops.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace Slate::Testing {

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class Cursor : public testing::Test {
  protected:
    ParserImpl parserOf(std::string_view source) { return {source, source_id, *reporter, pool}; }

    ObjectPool pool;
    std::string const source_id = "test.slate";
    std::shared_ptr<ErrorReporter> const reporter = std::make_shared<ErrorReporter>();
    ParserImpl::BracketStack const outside{};
    ParserImpl::BracketStack const inside{TokenType::LeftParen};
};

TEST_F(Cursor, EveryReaderLogsTheEndOfTheTokensUnderItsOwnName) {
    struct Row {
        std::string name;
        std::function<bool(ParserImpl&)> answers_as_told;
    };

    line_t line = 1;
    std::vector<Row> const rows{
        {"peekType", [](ParserImpl& p) { return p.peekType() == TokenType::Eof; }},
        {"peekNextType", [](ParserImpl& p) { return p.peekNextType() == TokenType::Eof; }},
        {"peekLine", [](ParserImpl& p) { return p.peekLine() == 0; }},
        {"peekColumn", [](ParserImpl& p) { return p.peekColumn() == 0; }},
        {"advance",
         [](ParserImpl& p) {
             p.advance();
             return true;
         }},
        {"consume", [](ParserImpl& p) { return p.consume() == Token::Invalid(); }},
        {"check", [](ParserImpl& p) { return !p.check(TokenType::Eof, 0); }},
        {"check2", [](ParserImpl& p) { return !p.check2(TokenType::Eof, TokenType::Eof, 0); }},
        {"match", [](ParserImpl& p) { return !p.match(TokenType::Eof, 0); }},
        {"check_expr", [&](ParserImpl& p) { return !p.check_expr(TokenType::Eof, 0, inside); }},
        {"check2_expr",
         [&](ParserImpl& p) { return !p.check2_expr(TokenType::Eof, TokenType::Eof, 0, inside); }},
        {"check_not_expr", [&](ParserImpl& p) { return !p.check_not_expr(TokenType::Is, 0, inside); }},
        {"match_expr", [&](ParserImpl& p) { return !p.match_expr(TokenType::Eof, line, inside); }},
    };
    for (auto const& row : rows) {
        auto parser = parserOf("");
        parser.consume();
        LogCapture const log;
        EXPECT_TRUE(row.answers_as_told(parser)) << row.name;
        ASSERT_EQ(log.lines().size(), 1U) << row.name;
        auto const& logged = log.lines().front();
        EXPECT_EQ(logged.level, "error");
        EXPECT_EQ(logged.text, "Unexpected end of tokens in test.slate");
        EXPECT_EQ(logged.function, "Slate::ParserImpl::" + row.name);
        EXPECT_THAT(logged.file, StartsWith("slate.core/slate.parser/src/slate/ParserImpl.cpp"));
    }
    EXPECT_EQ(reporter->getErrorCount(), 0U);
}

TEST_F(Cursor, ADocumentBehindTheEndOfTheTokensIsEmpty) {
    auto parser = parserOf("");
    parser.consume();
    LogCapture const log;
    EXPECT_TRUE(parser.parseDocument()->getMembers().empty());
    EXPECT_THAT(log.texts(),
                ElementsAre("error Slate::ParserImpl::peekType: Unexpected end of tokens in test.slate"));
}

TEST_F(Cursor, ARoundThatConsumedNothingIsLoggedAndTakesAToken) {
    auto parser = parserOf("a b c");
    LogCapture const log;
    ParserImpl::ProgressGuard guard(parser);
    guard.beginRound();
    EXPECT_EQ(parser.consume().lexeme, "a");
    guard.beginRound();
    EXPECT_THAT(log.texts(), ElementsAre());
    guard.beginRound();
    EXPECT_THAT(log.texts(), ElementsAre("error Slate::ParserImpl::ProgressGuard::beginRound: "
                                         "No progress at token 1 of test.slate"));
    EXPECT_EQ(parser.consume().lexeme, "c");
}

TEST_F(Cursor, PreviousIsInvalidUntilSomethingIsConsumed) {
    auto parser = parserOf("abc d");
    EXPECT_EQ(parser.previous().type, TokenType::Invalid);
    EXPECT_EQ(parser.consume().lexeme, "abc");
    EXPECT_EQ(parser.previous().type, TokenType::Identifier);
    EXPECT_EQ(parser.previous().end(), (Position{1, 4}));
}

TEST_F(Cursor, TheTypeBehindTheLastTokenIsEofWithoutALogLine) {
    LogCapture const log;
    auto parser = parserOf("");
    EXPECT_EQ(parser.peekNextType(), TokenType::Eof);
    EXPECT_THAT(log.texts(), ElementsAre());
}

TEST_F(Cursor, ChecksLookAtTheLineUnlessInsideBrackets) {
    auto parser = parserOf("\n+");
    EXPECT_FALSE(parser.check(TokenType::Plus, 1));
    EXPECT_TRUE(parser.check(TokenType::Plus, 2));
    EXPECT_FALSE(parser.check2(TokenType::Minus, TokenType::Plus, 1));
    EXPECT_TRUE(parser.check2(TokenType::Minus, TokenType::Plus, 2));
    EXPECT_FALSE(parser.check_expr(TokenType::Plus, 1, outside));
    EXPECT_TRUE(parser.check_expr(TokenType::Plus, 1, inside));
    EXPECT_FALSE(parser.check_expr(TokenType::Minus, 1, inside));
    EXPECT_FALSE(parser.check2_expr(TokenType::Plus, TokenType::Minus, 1, outside));
    EXPECT_TRUE(parser.check2_expr(TokenType::Minus, TokenType::Plus, 1, inside));
    EXPECT_FALSE(parser.check_not_expr(TokenType::Minus, 1, outside));
    EXPECT_TRUE(parser.check_not_expr(TokenType::Minus, 1, inside));
    EXPECT_FALSE(parser.check_not_expr(TokenType::Plus, 2, inside));
}

TEST_F(Cursor, MatchMovesOnOnlyWhenItHolds) {
    auto parser = parserOf("a\nb");
    line_t line = 1;
    EXPECT_FALSE(parser.match(TokenType::Is, 1));
    EXPECT_TRUE(parser.match(TokenType::Identifier, 1));
    EXPECT_FALSE(parser.match_expr(TokenType::Identifier, line, outside));
    EXPECT_EQ(line, 1U);
    EXPECT_TRUE(parser.match_expr(TokenType::Identifier, line, inside));
    EXPECT_EQ(line, 2U);
    EXPECT_EQ(parser.peekType(), TokenType::Eof);
}

TEST_F(Cursor, SynchronizeSkipsNothingAtItsColumn) {
    auto parser = parserOf("a\n b\nc");
    parser.synchronize(1);
    EXPECT_EQ(parser.peekLine(), 1U);
}

TEST_F(Cursor, SynchronizeSkipsWholeLinesToTheRightOfItsColumn) {
    auto parser = parserOf("    a b c\n  d\n   e\n f\ng");
    parser.synchronize(1);
    EXPECT_EQ(parser.consume().lexeme, "g");
}

TEST_F(Cursor, SynchronizeLineSkipsTheCurrentLineInAnyCase) {
    auto parser = parserOf("a b\n c\nd\ne");
    parser.synchronizeLine(1);
    EXPECT_EQ(parser.consume().lexeme, "d");
    parser.synchronizeLine(1);
    EXPECT_EQ(parser.peekType(), TokenType::Eof);
}

TEST_F(Cursor, EofIsNeverSkipped) {
    auto parser = parserOf("   ");
    parser.synchronizeLine(0);
    EXPECT_EQ(parser.peekType(), TokenType::Eof);
    EXPECT_EQ(parser.peekColumn(), 4U);
}

TEST_F(Cursor, AMultilineStringCountsAsOnItsFirstLineWhenLinesAreSkipped) {
    auto parser = parserOf("  \"\"\"x\n\"\"\" a\nb");
    parser.synchronizeLine(9);
    EXPECT_EQ(parser.consume().lexeme, "a");
}

} // namespace

} // namespace Slate::Testing
