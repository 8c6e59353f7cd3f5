#include "slate/Token.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace Slate {

namespace {

/// What `%f` of the C library makes of a value.
std::string inPrintfForm(double value) {
    std::string text(400, '\0');
    auto const length = std::snprintf(text.data(), text.size(), "%f", value);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

Token stringToken(TokenType type, std::string lexeme) { return {type, std::move(lexeme), 1, 1}; }

} // namespace

TEST(Token, DefaultEqualsUninitializedButNotNone) {
    EXPECT_EQ(Token(), Token::Uninitialized());
    EXPECT_NE(Token::None(), Token());
    EXPECT_NE(Token::None(), Token::Uninitialized());
    EXPECT_NE(Token::Invalid(), Token::Uninitialized());
    EXPECT_NE(Token::Invalid(), Token::None());
}

TEST(Token, DefaultIsUninitializedAndEmptyWithoutPosition) {
    Token const token;
    EXPECT_EQ(token.type, TokenType::Uninitialized);
    EXPECT_EQ(token.lexeme, "");
    EXPECT_EQ(token.line, 0U);
    EXPECT_EQ(token.column, 0U);
}

TEST(Token, ConstructorStoresTheFourValues) {
    Token const token(TokenType::Arrow, "->", 5'000'000'000, 6'000'000'000);
    EXPECT_EQ(token.type, TokenType::Arrow);
    EXPECT_EQ(token.lexeme, "->");
    EXPECT_EQ(token.line, 5'000'000'000U);
    EXPECT_EQ(token.column, 6'000'000'000U);
}

TEST(Token, EqualityNeedsTypeLexemeLineAndColumn) {
    Token const token(TokenType::Identifier, "mass", 2, 3);
    EXPECT_EQ(token, Token(TokenType::Identifier, "mass", 2, 3));
    EXPECT_NE(token, Token(TokenType::String, "mass", 2, 3));
    EXPECT_NE(token, Token(TokenType::Identifier, "Mass", 2, 3));
    EXPECT_NE(token, Token(TokenType::Identifier, "mass", 2, 4));
}

TEST(Token, EqualLexemesOnDifferentLinesAreUnequal) {
    EXPECT_NE(Token(TokenType::Identifier, "mass", 1, 3), Token(TokenType::Identifier, "mass", 2, 3));
}

TEST(Token, WordOfAFactoryNeverEqualsTheWordInAText) {
    EXPECT_NE(Token::Identifier("mass"), Token(TokenType::Identifier, "mass", 1, 1));
}

TEST(Token, TypesHaveTheirFixedNumbers) {
    std::vector<TokenType> const types_by_number = {
        TokenType::LeftParen,  TokenType::RightParen,  TokenType::LeftBrace,
        TokenType::RightBrace, TokenType::LeftBracket, TokenType::RightBracket,
        TokenType::Dot,        TokenType::Minus,       TokenType::Plus,
        TokenType::Colon,      TokenType::Slash,       TokenType::Star,
        TokenType::Comma,      TokenType::Arrow,       TokenType::Identifier,
        TokenType::String,     TokenType::AtString,    TokenType::MultilineString,
        TokenType::Number,     TokenType::Is,          TokenType::Becomes,
        TokenType::Fn,         TokenType::Static,      TokenType::True,
        TokenType::False,      TokenType::Operator,    TokenType::Const,
        TokenType::External,   TokenType::Import,      TokenType::As,
        TokenType::Trait,      TokenType::With,        TokenType::Delete,
        TokenType::Eof,        TokenType::Invalid,     TokenType::Uninitialized,
        TokenType::None};
    ASSERT_EQ(types_by_number.size(), 37U);
    for (std::size_t number = 0; number < types_by_number.size(); ++number)
        EXPECT_EQ(static_cast<std::size_t>(types_by_number[number]), number);
    static_assert(sizeof(TokenType) == 4);
}

TEST(Token, FactoriesSetTypeAndLexemeAndNoPosition) {
    struct Row {
        Token made;
        TokenType type;
        std::string lexeme;
    };

    std::vector<Row> const rows = {
        {Token::Uninitialized(), TokenType::Uninitialized, ""},
        {Token::Invalid(), TokenType::Invalid, ""},
        {Token::None(), TokenType::None, ""},
        {Token::Identifier("mass"), TokenType::Identifier, "mass"},
        {Token::Bool(true), TokenType::True, "true"},
        {Token::Bool(false), TokenType::False, "false"},
        {Token::Int(0), TokenType::Number, "0"},
        {Token::Int(std::numeric_limits<std::int64_t>::max()), TokenType::Number, "9223372036854775807"},
        {Token::Int(std::numeric_limits<std::int64_t>::min()), TokenType::Number, "-9223372036854775808"},
        {Token::Real(-2), TokenType::Number, "-2.000000"},
        {Token::String(R"(a "b" \n)"), TokenType::String, R"(a "b" \n)"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(row.made, Token(row.type, std::string(row.lexeme), 0, 0)) << row.lexeme;
}

TEST(Token, FalseHasItsWordAndItsOwnType) {
    EXPECT_EQ(Token::Bool(false).lexeme, "false");
    EXPECT_EQ(Token::Bool(false).type, TokenType::False);
}

TEST(Token, NegativeIntHasTheMinusInItsLexeme) {
    EXPECT_EQ(Token::Int(-12).lexeme, "-12");
    EXPECT_EQ(Token::Int(-12).type, TokenType::Number);
}

TEST(Token, RealHasSixDigitsBehindThePoint) {
    EXPECT_EQ(Token::Real(1.5).lexeme, "1.500000");
    EXPECT_EQ(Token::Real(0.0000005).lexeme, inPrintfForm(0.0000005));
}

TEST(Token, RealIsWrittenLikePrintf) {
    using limits = std::numeric_limits<double>;
    for (double const value : {0.0, -0.0, 1.0 / 3, 1e15 + 0.3, 1e22, 1e300, limits::max(), -limits::min(),
                               2.5e-7, 0.1234565, limits::infinity(), -limits::infinity()})
        EXPECT_EQ(Token::Real(value).lexeme, inPrintfForm(value));
}

TEST(Token, KeywordKnowsSomeWordsAndWritesWithWithACapital) {
    for (auto const& [type, word] : std::vector<std::pair<TokenType, std::string>>{
             {TokenType::Is, "is"},
             {TokenType::Becomes, "becomes"},
             {TokenType::Fn, "fn"},
             {TokenType::Static, "static"},
             {TokenType::Operator, "operator"},
             {TokenType::Const, "const"},
             {TokenType::As, "as"},
             {TokenType::Trait, "trait"},
             {TokenType::With, "With"},
         })
        EXPECT_EQ(Token::Keyword(type), Token(type, std::string(word), 0, 0)) << word;
}

TEST(Token, KeywordIsEmptyForDeleteImportAndAllOtherTypes) {
    for (auto const type : {TokenType::Delete, TokenType::Import, TokenType::External, TokenType::True,
                            TokenType::False, TokenType::Identifier, TokenType::Plus, TokenType::None})
        EXPECT_EQ(Token::Keyword(type), Token(type, "", 0, 0)) << static_cast<int>(type);
}

TEST(Token, ExtractStringTakesTheDelimitersOff) {
    struct Row {
        TokenType type;
        std::string lexeme;
        std::string text;
    };

    std::vector<Row> const rows = {
        {TokenType::String, R"("text")", "text"},
        {TokenType::String, R"("")", ""},
        {TokenType::MultilineString, R"("""a""")", "a"},
        {TokenType::MultilineString, "\"\"\"\n  a\n\"b\"\n\"\"\"", "\n  a\n\"b\"\n"},
        {TokenType::AtString, R"(@"text")", "text"},
        {TokenType::AtString, R"(@"")", ""},
        {TokenType::String, R"("a\n\"")", R"(a\n\")"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(Token::extractString(stringToken(row.type, row.lexeme)), row.text) << row.lexeme;
}

TEST(Token, ExtractStringIsEmptyWhereTheClosingQuotesAreMissing) {
    EXPECT_EQ(Token::extractString(stringToken(TokenType::String, "\"")), "");
    EXPECT_EQ(Token::extractString(stringToken(TokenType::MultilineString, R"(""")")), "");
    EXPECT_EQ(Token::extractString(stringToken(TokenType::MultilineString, R"("""ab)")), "");
    EXPECT_EQ(Token::extractString(stringToken(TokenType::MultilineString, R"("""abc)")), "");
    EXPECT_EQ(Token::extractString(stringToken(TokenType::AtString, "@\"")), "");
}

TEST(Token, ExtractStringThrowsWhereTheOpeningQuotesAreMissing) {
    EXPECT_THROW(Token::extractString(stringToken(TokenType::String, "")), std::out_of_range);
    EXPECT_THROW(Token::extractString(stringToken(TokenType::MultilineString, "\"\"")), std::out_of_range);
    EXPECT_THROW(Token::extractString(stringToken(TokenType::AtString, "@")), std::out_of_range);
}

TEST(Token, ExtractStringOfAnyOtherTypeIsEmpty) {
    for (auto const type : {TokenType::Identifier, TokenType::Number, TokenType::True, TokenType::None})
        EXPECT_EQ(Token::extractString(stringToken(type, "\"text\"")), "");
}

TEST(Token, ExtractStringTakesTheEndsOffAStringMadeWithoutQuotes) {
    EXPECT_EQ(Token::extractString(Token::String("abc")), "b");
    EXPECT_EQ(Token::extractString(Token::String("\"abc\"")), "abc");
}

} // namespace Slate
