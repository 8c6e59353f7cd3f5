// What can't be read: 10002 to 10021.

#include "slate/Keywords.h"
#include "slate/host/NearestName.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace Slate::Host {

namespace {

constexpr std::string_view triple_quote = R"(""")";

/// What stands around a place: the token at it and the one in front of it, both on its line, or null.
struct Around {
    explicit Around(Site const& site) {
        if (site.source == nullptr)
            return;
        auto const& all = site.source->tokens.getAll();
        auto const line = site.error.getLine();
        if (site.hasToken())
            here = &all[site.token];
        auto const last = site.source->tokens.findBefore({line, site.error.getColumn()});
        if (last == SourceTokens::none)
            return;
        auto const before_here = here == nullptr ? last + 1 : last;
        if (before_here > 0 && all[before_here - 1].line == line)
            before = &all[before_here - 1];
        if (before_here > 0)
            last_token = before_here - 1;
    }

    /// "`Int`", or "the end of the line".
    std::string found() const { return here == nullptr ? "the end of the line" : quoted(here->lexeme); }

    bool isBehind(TokenType type) const { return before != nullptr && before->type == type; }

    bool isAt(TokenType type) const { return here != nullptr && here->type == type; }

    Token const* here = nullptr;
    Token const* before = nullptr;
    std::size_t last_token = SourceTokens::none; // on whatever line
};

bool isKeyword(Token const& token) {
    return token.type >= TokenType::Is && token.type <= TokenType::Delete &&
           findKeyword(token.lexeme).has_value();
}

std::string keywordHint(Token const& token) {
    return fmt::format("{} is a keyword; as a name it stands in backquotes: `{}`", quoted(token.lexeme),
                       token.lexeme);
}

/// The statement that ends in front of the place.
Statement const* statementBefore(Site const& site, Around const& around) {
    if (around.last_token == SourceTokens::none)
        return nullptr;
    auto const& token = site.source->tokens.getAll()[around.last_token];
    auto const statement = site.source->outline.findAt(token.position());
    return statement == Statement::none ? nullptr : &site.source->outline.get(statement);
}

/// The statement at top level in whose body the place lies or would lie.
Statement const* headBefore(Site const& site, Around const& around) {
    auto const* const statement = statementBefore(site, around);
    if (statement == nullptr)
        return nullptr;
    auto const& outline = site.source->outline;
    auto const position = static_cast<std::size_t>(statement - outline.getStatements().data());
    return &outline.get(outline.rootOf(position));
}

void describeEmptyBody(Site const& site, Diagnostic& diagnostic) {
    if (site.source == nullptr)
        return;
    Around const around(site);
    auto const* const head = headBefore(site, around);
    if (head == nullptr)
        return;
    diagnostic.message =
        fmt::format("the body of {} ends with nothing in it: at least one attribute, method, "
                    "annotation or trait has to stand there",
                    quoted(head->name));
    addNote(diagnostic, site.source->outline.nameRange(*head), "the body begins behind this");
}

void describeMissingBody(Site const& site, Diagnostic& diagnostic) {
    if (site.source == nullptr)
        return;
    Around const around(site);
    auto const* const head = headBefore(site, around);
    if (head == nullptr)
        return;
    if (around.isBehind(TokenType::Colon)) {
        diagnostic.message =
            fmt::format("the body of {} begins on the next line, further to the right", quoted(head->name));
        return;
    }
    diagnostic.message = fmt::format("{} has a colon, but what follows is not further to the right and so no "
                                     "body",
                                     quoted(head->name));
    diagnostic.hint = "indent the body, or leave out the colon of a model without one";
    addNote(diagnostic, site.source->outline.nameRange(*head), "this colon asks for a body");
    if (head->end > head->first) {
        auto const& last = site.source->tokens.getAll()[head->end - 1];
        diagnostic.notes.back().place = site.source->tokens.rangeOf(last);
    }
}

/// The byte in front of the place, and all others of its character.
void describeUnknownCharacter(Site const& site, Diagnostic& diagnostic) {
    if (site.source == nullptr || site.error.getColumn() < 2)
        return;
    auto const line = site.source->tokens.getText().getLine(site.error.getLine());
    auto const is_inside = [&](col_t column) {
        return column <= line.size() && (static_cast<unsigned char>(line[column - 1]) & 0xC0U) == 0x80U;
    };
    auto first = site.error.getColumn() - 1;
    while (first > 1 && is_inside(first))
        --first;
    auto end = first + 1;
    while (is_inside(end))
        ++end;
    if (end - 1 > line.size())
        return;
    auto const character = line.substr(first - 1, end - first);
    diagnostic.place = {site.error.getSourceId(), site.error.getLine(), first, site.error.getLine(), end};
    auto const code = static_cast<unsigned char>(character.front());
    diagnostic.message = code < ' ' || code == 0x7FU
                             ? fmt::format("an unknown character of the code {}", code)
                             : fmt::format("{} means nothing here", quoted(character));
    if (character == "'")
        diagnostic.hint = "a text stands in double quotes";
    else if (character == ";")
        diagnostic.hint = "a line needs no sign at its end";
    else if (character == "=")
        diagnostic.hint = "a value stands behind `:`";
    else if (code >= 0x80U)
        diagnostic.hint = "a name with such letters stands in backquotes";
}

void describeMissingName(Site const& site, Diagnostic& diagnostic) {
    Around const around(site);
    // What a rule looks for may stand behind a blank.
    auto const behind = around.before == nullptr ? TokenType::None : around.before->type;
    switch (behind) {
    case TokenType::Dot: diagnostic.message = "a name is missing behind the dot"; break;
    case TokenType::Fn: diagnostic.message = "the name of the method is missing behind `fn`"; break;
    case TokenType::With: diagnostic.message = "the name of a trait is missing behind `with`"; break;
    case TokenType::Delete: diagnostic.message = "the name of an attribute is missing behind `delete`"; break;
    case TokenType::As: diagnostic.message = "the name to import under is missing behind `as`"; break;
    default:
        if (around.here != nullptr)
            diagnostic.message =
                fmt::format("the name of a parameter is expected, and not {}", around.found());
    }
    if (around.here != nullptr && isKeyword(*around.here))
        diagnostic.hint = keywordHint(*around.here);
}

void describeFirstColumn(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasStatement())
        return;
    diagnostic.message = fmt::format("{} stands in column {}, but belongs to no body: at top level each "
                                     "declaration begins in column 1",
                                     quoted(site.getToken().lexeme), site.error.getColumn());
    if (site.statement->parent == Statement::none)
        return;
    auto const& outline = site.source->outline;
    auto const& head = outline.get(outline.rootOf(site.statement_position));
    auto const& last = site.source->tokens.getAll()[head.end - 1];
    if (last.type == TokenType::Colon || head.name.empty())
        return;
    diagnostic.hint = fmt::format("put a colon at the end of line {}, if this is the body of {}", last.line,
                                  quoted(head.name));
    addNote(diagnostic, outline.nameRange(head), fmt::format("{} has no colon", quoted(head.name)));
}

bool isValue(Token const& token) {
    return token.type == TokenType::Number || token.type == TokenType::String ||
           token.type == TokenType::True || token.type == TokenType::False ||
           token.type == TokenType::MultilineString || token.type == TokenType::AtString;
}

void describeUnexpected(Site const& site, Diagnostic& diagnostic) {
    Around const around(site);
    diagnostic.message = around.here == nullptr ? std::string("more is expected at the end of this line")
                                                : fmt::format("{} can not stand here", around.found());
    if (!site.hasStatement())
        return;
    auto const kind = site.statement->kind;
    if (around.isBehind(TokenType::Import)) {
        diagnostic.message = fmt::format(
            "behind `import` the path of a file is expected in quotes, and not {}", around.found());
    } else if (around.isBehind(TokenType::Static)) {
        diagnostic.message = fmt::format("behind `static` stands `fn`, and not {}", around.found());
    } else if (around.isBehind(TokenType::LeftBracket)) {
        diagnostic.message =
            fmt::format("the type of an array ends in `[]`, and not in `[` and {}", around.found());
    } else if (kind == StatementKind::Method || kind == StatementKind::Operator) {
        auto const expected = around.isBehind(TokenType::Identifier) || around.here == nullptr
                                  ? "the parameters stand in brackets: `(` or `)` is missing"
                                  : "a parameter is followed by `,` or `)`";
        diagnostic.message = fmt::format("{}, but here is {}", expected, around.found());
    } else if (around.here != nullptr && kind == StatementKind::Attribute && site.statement->is_declaration &&
               isValue(*around.here)) {
        diagnostic.message =
            fmt::format("a colon is missing between the type and the value {}", around.found());
        diagnostic.hint =
            fmt::format("write {}", quoted(fmt::format("{} is {}: {}", site.statement->name,
                                                       site.source->outline.typeOf(*site.statement),
                                                       around.here->lexeme)));
    } else if (around.here != nullptr && around.before == nullptr && isKeyword(*around.here)) {
        diagnostic.hint = keywordHint(*around.here);
    }
}

void describeTooShort(Site const& site, Diagnostic& diagnostic, std::string_view end) {
    if (!site.hasStatement())
        return;
    Around const around(site);
    auto const& statement = *site.statement;
    if (statement.kind == StatementKind::Method || statement.kind == StatementKind::Operator)
        diagnostic.message = fmt::format("{} ends before the parameters are closed: `)` is missing", end);
    else if (statement.kind == StatementKind::Attribute)
        diagnostic.message = fmt::format("{} ends behind {}, which has neither a type nor a value", end,
                                         quoted(statement.name));
}

void describeLineEnd(Site const& site, Diagnostic& diagnostic) {
    describeTooShort(site, diagnostic, "the line");
}

void describeTextEnd(Site const& site, Diagnostic& diagnostic) {
    describeTooShort(site, diagnostic, "the text");
}

void describeMissingValue(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasStatement() || site.statement->name.empty())
        return;
    diagnostic.message =
        fmt::format("the value of {} is missing behind the colon", quoted(site.statement->name));
    diagnostic.hint = "a value stands on the line of its colon; without a value there is no colon";
}

void describeNotAMember(Site const& site, Diagnostic& diagnostic) {
    Around const around(site);
    if (around.before == nullptr)
        return;
    auto const& name = around.before->lexeme;
    diagnostic.message =
        around.here == nullptr
            ? fmt::format("{} has neither a type nor a value", quoted(name))
            : fmt::format("{} can not follow the name {}: a type stands behind `is`, and a value "
                          "behind `:`",
                          around.found(), quoted(name));
    NearestName nearest(name);
    for (auto const* const keyword : {"with", "delete", "static", "fn"})
        nearest.offer(keyword);
    if (!nearest.get().empty() && around.isAt(TokenType::Identifier))
        suggest(diagnostic, nearest.get());
    else if (around.isAt(TokenType::Identifier))
        suggest(diagnostic, name + " is " + around.here->lexeme);
    else if (around.here != nullptr && isValue(*around.here))
        suggest(diagnostic, name + ": " + around.here->lexeme);
    else
        diagnostic.hint = fmt::format("an attribute is declared by {}", quoted(name + " is Type"));
}

void describeMissingType(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasStatement())
        return;
    bool const is_parameter =
        site.statement->kind == StatementKind::Method || site.statement->kind == StatementKind::Operator;
    diagnostic.message = is_parameter
                             ? std::string("the type of the parameter is missing behind its colon")
                             : fmt::format("the type of {} is missing", quoted(site.statement->name));
    diagnostic.hint =
        "a type is `Real`, `Int`, `Bool`, `String`, a model, or one of these with `[]` behind it";
}

void describeMissingColon(Site const& site, Diagnostic& diagnostic) {
    Around const around(site);
    if (around.before == nullptr)
        return;
    auto const name = quoted(around.before->lexeme);
    if (!site.hasStatement())
        return;
    if (site.statement->kind == StatementKind::Annotation)
        diagnostic.message = fmt::format("the annotation {} needs a colon and a value", name);
    else if (around.before->type == TokenType::Identifier)
        diagnostic.message = fmt::format("the parameter {} needs a colon and a type", name);
    else
        diagnostic.message =
            fmt::format("{} is an array, and needs a colon and a value", quoted(site.statement->name));
}

void describeBadExpression(Site const& site, Diagnostic& diagnostic) {
    Around const around(site);
    if (around.here != nullptr && isKeyword(*around.here)) {
        diagnostic.message = fmt::format("the keyword {} is no value", around.found());
        diagnostic.hint = keywordHint(*around.here);
        return;
    }
    auto const behind = around.before == nullptr ? std::string() : quoted(around.before->lexeme);
    auto const type = around.before == nullptr ? TokenType::None : around.before->type;
    switch (type) {
    case TokenType::Plus:
    case TokenType::Minus:
    case TokenType::Star:
    case TokenType::Slash:
    case TokenType::Comma:
    case TokenType::LeftParen:
    case TokenType::LeftBracket:
    case TokenType::LeftBrace:
    case TokenType::Colon:
        diagnostic.message = around.here == nullptr ? fmt::format("a value is missing behind {}", behind)
                                                    : fmt::format("a value is expected behind {}, and not {}",
                                                                  behind, around.found());
        return;
    case TokenType::Dot: diagnostic.message = "a name is missing behind the dot"; return;
    default: break;
    }
    if (around.here == nullptr)
        diagnostic.message = "the value ends too early: a bracket is not closed, or something is missing";
    else if (around.isAt(TokenType::Number) || around.isAt(TokenType::Identifier) ||
             around.isAt(TokenType::String)) {
        diagnostic.message = fmt::format("{} can not follow {}: between two values stands an operator",
                                         around.found(), behind.empty() ? "this" : behind);
    } else {
        diagnostic.message = fmt::format("{} can not stand here in a value", around.found());
    }
}

/// The quotes behind which all else was taken for text.
void markOpening(Site const& site, Diagnostic& diagnostic) {
    auto const text = std::string_view(site.source->tokens.getText().getText());
    auto const opening = text.rfind(triple_quote);
    if (opening == std::string_view::npos)
        return;
    auto const before = text.substr(0, opening);
    auto const line = static_cast<line_t>(std::ranges::count(before, '\n')) + 1;
    auto const column = opening - (before.rfind('\n') + 1) + 1;
    diagnostic.place = {site.error.getSourceId(), line, column, line, column + triple_quote.size()};
}

void describeUnclosed(Site const& site, Diagnostic& diagnostic) {
    if (site.source == nullptr)
        return;
    auto const line_number = site.error.getLine();
    auto const line = site.source->tokens.getText().getLine(line_number);
    auto const end =
        std::min<std::size_t>(site.error.getColumn() - (site.error.getColumn() > 0 ? 1U : 0U), line.size());
    // What is open begins behind the last token of the line.
    auto const before = site.source->tokens.findBefore({line_number, site.error.getColumn()});
    auto start = std::size_t{0};
    if (before != SourceTokens::none) {
        auto const token_end = site.source->tokens.endOf(site.source->tokens.getAll()[before]);
        start = token_end.line == line_number ? token_end.column - 1 : 0;
    }
    auto const opening = line.find_first_of("\"`", std::min(start, line.size()));
    if (opening == std::string_view::npos || opening >= end) {
        diagnostic.message = R"(the string is not closed before the text ends: `"""` is missing)";
        markOpening(site, diagnostic);
        return;
    }
    diagnostic.place = {site.error.getSourceId(), line_number, opening + 1, line_number, end + 1};
    diagnostic.message = line[opening] == '"'
                             ? "the string is not closed before its line ends: `\"` is missing"
                             : "the quoted name is not closed before its line ends";
    if (line[opening] == '"')
        diagnostic.hint = R"(a string over several lines stands between `"""` and `"""`)";
}

void describeOperatorSymbol(Site const& /*site*/, Diagnostic& diagnostic) {
    diagnostic.message = "the sign of the operator is missing: behind `operator` stands `+`, `-`, `*` or `/`";
}

void describeAnnotationValue(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken())
        return;
    diagnostic.message =
        "the value of an annotation is a number, a string, `true` or `false`: it is not computed";
    if (site.getToken().type == TokenType::Identifier)
        diagnostic.hint =
            fmt::format("a text stands in quotes: {}", quoted('"' + site.getToken().lexeme + '"'));
}

void describeQualifier(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken() || !site.hasStatement())
        return;
    auto const& all = site.source->tokens.getAll();
    bool const is_parted = site.token + 1 >= all.size() || all[site.token + 1].line != site.getToken().line;
    diagnostic.message = is_parted
                             ? fmt::format("{} has to stand on the line of the name that it belongs to",
                                           quoted(site.getToken().lexeme))
                             : fmt::format("only models can be {}, and {} is a variable",
                                           quoted(site.getToken().lexeme), quoted(site.statement->name));
}

constexpr std::array wordings{
    Wording{ErrEmptyBody, describeEmptyBody},
    Wording{ErrMissingIndentedBody, describeMissingBody},
    Wording{ErrUnknownCharacter, describeUnknownCharacter},
    Wording{ErrExpectedIdentifier, describeMissingName},
    Wording{ErrNotAtFirstColumn, describeFirstColumn},
    Wording{ErrUnexpectedToken, describeUnexpected},
    Wording{ErrUnexpectedLineEnd, describeLineEnd},
    Wording{ErrMissingValue, describeMissingValue},
    Wording{ErrNotAMember, describeNotAMember},
    Wording{ErrMissingType, describeMissingType},
    Wording{ErrUnexpectedEndOfText, describeTextEnd},
    Wording{ErrExpectedColon, describeMissingColon},
    Wording{ErrBadExpression, describeBadExpression},
    Wording{ErrUnclosedText, describeUnclosed},
    Wording{ErrExpectedOperatorSymbol, describeOperatorSymbol},
    Wording{ErrAnnotationNotLiteral, describeAnnotationValue},
    Wording{ErrMisplacedQualifier, describeQualifier},
};

} // namespace

std::span<Wording const> syntaxWordings() { return wordings; }

} // namespace Slate::Host
