#pragma once

// Internal to the parser.

#include "slate/CompactPath.h"
#include "slate/ErrorReporter.h"
#include "slate/Expression.h"
#include "slate/Scanner.h"
#include "slate/Token.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Slate {

/// The recursive descent over the tokens of one text, which are scanned as it goes: it never looks further
/// ahead than one token behind the current one, so no list of them is ever in memory.
///
/// Structure comes from lines and columns alone: a body is whatever stands further to the right on later
/// lines, and most constructs must stand on one line. So nearly every test looks at the line of a token, or
/// at its column.
///
/// A function that fails has reported why, leaves no node behind and answers with an empty pointer (or a
/// false flag); its caller drops the item and moves on with `synchronize`.
class ParserImpl {
  public:
    /// What is passed must outlive the parser.
    ParserImpl(std::string_view source, std::string const& source_id, ErrorReporter& error_reporter,
               ObjectPool& pool);

    ParserImpl(ParserImpl const&) = delete;
    ParserImpl& operator=(ParserImpl const&) = delete;

    /// Mistakes of the scanner are reported before those of the parser, wherever they stand.
    DocPtr parseDocument();

    // The cursor. It never moves past the end of the tokens: getting there is a defect of the parser, which
    // the log tells, since `Eof` stops all loops.

    TokenType peekType() const;

    /// The type of the token after the current one; `Eof` behind the last.
    TokenType peekNextType() const;

    line_t peekLine() const;
    col_t peekColumn() const;
    void advance();

    /// Takes the current token and moves on; `Invalid` behind the end.
    Token consume();

    /// What is known of the token before the current one, whose text the tree may have taken.
    struct Previous {
        TokenType type = TokenType::Invalid; // nothing consumed yet
        line_t line = 0;
        col_t column = 0;
        std::size_t length = 0;

        Position end() const { return {line, column + length}; }
    };

    Previous const& previous() const { return previous_; }

    // The tests. Inside brackets, that is with something on the bracket stack, an expression may run over any
    // lines.

    using BracketStack = std::vector<TokenType>;

    bool check(TokenType type, line_t line) const;
    bool check2(TokenType type_a, TokenType type_b, line_t line) const;
    bool match(TokenType type, line_t line);
    bool check_expr(TokenType type, line_t line, BracketStack const& stack) const;
    bool check2_expr(TokenType type_a, TokenType type_b, line_t line, BracketStack const& stack) const;
    bool check_not_expr(TokenType type, line_t line, BracketStack const& stack) const;
    bool match_expr(TokenType type, line_t& line, BracketStack const& stack);

    // Error recovery.

    /// Skips whole lines while the current token stands to the right of `column`; stops at `Eof`.
    void synchronize(col_t column);

    /// The same, but skips the line of the current token first in any case.
    void synchronizeLine(col_t column);

    /// Stands at the head of a loop over items: a round that consumes nothing would go on for ever.
    class ProgressGuard;

  private:
    /// One level of nesting, for as long as it lives.
    class NestingLevel;

    /// A path, and whether reading it went wrong; then it has been reported.
    struct Path {
        TokenVector segments;
        bool has_fault = false;
    };

    struct Signature {
        vec<ParamPtr> parameters;
        TokenVector return_segments;
    };

    struct ModelHead {
        Token qualifier_token;
        Token name_token;
        Token extends_qualifier_token;
        TokenVector parent_segments;

        /// Of the qualifier or else of the name: the body stands to the right of it.
        col_t column() const;
    };

    struct ModelBody {
        vec<AnnotationPtr> annotations;
        vec<TraitImplPtr> traits;
        vec<DeletionPtr> deletions;
        vec<NodePtr> members;
        bool has_fault = false;

        template <typename List, typename Item>
        void append(List& list, Item item);
    };

    struct AttributeBody {
        vec<AnnotationPtr> annotations;
        vec<VarAssignPtr> members;
    };

    bool isBehindEnd() const { return is_behind_end_; }

    /// Scans the token behind the next one over the current one, which gives way to the next one.
    void moveOn();

    bool isAtEof() const { return peekType() == TokenType::Eof; }

    void skipLine();

    void addError(ErrorCode error_code, Position position);
    void addErrorAtCurrent(ErrorCode error_code);
    void addErrorAtToken(ErrorCode error_code, Token const& token);

    /// `ErrBadExpression` just behind the last token consumed.
    void addExpressionError();

    // Top level.

    NodePtr parseTopLevel();
    NodePtr parseDeclaration();
    NodePtr parseDeclarationWithParent(ModelHead head);
    NodePtr parseBehindParent(ModelHead head, Token is_token);
    NodePtr parseTopLevelVariable(ModelHead head, Token is_token, Token const& colon_token);
    ExpressionPtr parseTopLevelValue(Token const& name_token, Token const& colon_token);
    NodePtr parseImport();
    std::optional<TokenVector> parseImportAlias(line_t line);
    vec<AnnotationPtr> parseImportAnnotations(line_t line);
    NodePtr parseOperatorOverload();

    // Models.

    static ModelDeclPtr createModel(ModelHead head, ModelBody body);
    ModelDeclPtr parseModelBody(ModelHead head);
    void parseMember(ModelBody& body);
    bool parseNamedMember(ModelBody& body);
    AnnotationPtr parseAnnotation();
    TokenVector parseKeywordAndSegments();
    MethodDeclPtr parseMethod();
    std::optional<Signature> parseSignature(Token const& token_before, line_t line);
    bool parseParameters(vec<ParamPtr>& parameters, line_t line);
    ParamPtr parseParameter(line_t line);
    bool takeClosingParenthesis(line_t line);
    bool parseReturnType(TokenVector& return_segments);

    // Attributes.

    bool isAttributeAhead() const;
    VarAssignPtr parseAttribute();
    bool parseAttributeType(Token& operator_token, TokenVector& type_segments, line_t line);
    ExpressionPtr parseAttributeValue(AttributeBody& body, Position start);
    void parseAttributeBody(AttributeBody& body, col_t column);

    /// An expression that has to be all that is left on the line; on a fault synchronizes to `column`.
    ExpressionPtr parseValue(line_t line, col_t column);
    Path parseSegments(line_t line);
    Path parseTypePath(line_t line);
    CompactPath compact(TokenVector segments);

    // Expressions. `line` is the line reached so far: each token consumed sets it to its own.

    ExpressionPtr parseExpression(line_t line);
    ExpressionPtr parseAdditive(line_t& line, BracketStack& stack);
    ExpressionPtr parseMultiplicative(line_t& line, BracketStack& stack);
    ExpressionPtr parseUnary(line_t& line, BracketStack& stack);
    ExpressionPtr parsePostfix(line_t& line, BracketStack& stack);
    ExpressionPtr parsePrimary(line_t& line, BracketStack& stack);
    ExpressionPtr parseMultilineString(line_t& line);
    ExpressionPtr parseBracketed(line_t& line, BracketStack& stack);
    ExpressionPtr parseParentheses(line_t& line, BracketStack& stack);
    template <typename List>
    ExpressionPtr parseElementList(line_t& line, BracketStack& stack);
    ExpressionPtr parseCall(ExpressionPtr callee, line_t& line, BracketStack& stack);
    ExpressionPtr parseMemberAccess(ExpressionPtr lhs, line_t& line);
    ExpressionPtr parseIndexing(ExpressionPtr lhs, line_t& line, BracketStack& stack);
    Token consume(line_t& line);
    bool pop(BracketStack& stack, TokenType opening, Token const& closing_token);

    /// Makes an at-string a string: its text is a path beside the source. The token keeps its position.
    Token resolveAtString(Token token) const;

    Scanner scanner_;
    std::array<Token, 2> window_; // the current token and the next one, in turns
    Token* current_ = &window_.front();
    Token* next_ = &window_.back();
    std::size_t consumed_ = 0; // tokens
    bool is_behind_end_ = false;
    Previous previous_;
    std::size_t nesting_depth_ = 0;
    std::string const& source_id_;
    ErrorReporter& error_reporter_;
    ObjectPool& pool_;
    std::vector<TokenVector> spare_; // empty ones with room
    Errors errors_;                  // of the parser, until the scanner is through
};

} // namespace Slate
