%rename(_None) Slate::Token::None;

namespace Slate {

struct Token {
    TokenType type;
    std::string lexeme;
    line_t line;
    col_t column;

    Token();
    Token(TokenType _type, std::string && _lexeme, line_t _line, col_t _column);

    bool operator==(Slate::Token const & other) const;

    static Slate::Token Uninitialized();
    static Slate::Token Invalid();
    static Slate::Token None();
    static Slate::Token Identifier(std::string && lexeme);
    static Slate::Token Keyword(TokenType type);
    static Slate::Token Bool(bool value);
    static Slate::Token Real(double value);
    static Slate::Token Int(int64_t value);
    static Slate::Token String(std::string value);
    static std::string extractString(Slate::Token const & token);
};

} // namespace Slate
