#include "CsvPlugin.h"

#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace Winch {

namespace {

using namespace Slate;

/// The cells of one line as tokens, each with the place where it stands, so that the core's errors name it.
std::vector<Token> cellsOf(std::string_view text, line_t line) {
    std::vector<Token> cells;
    for (std::size_t begin = 0; begin <= text.size();) {
        auto const end = std::min(text.find(',', begin), text.size());
        auto const first = std::min(text.find_first_not_of(" \t", begin), end);
        auto const cell = text.substr(first, end - first);
        auto const length = cell.find_last_not_of(" \t\r") + 1;
        cells.emplace_back(TokenType::Identifier, std::string(cell.substr(0, length)), line, first + 1);
        begin = end + 1;
    }
    return cells;
}

bool isNumber(std::string_view text) {
    double value = 0;
    auto const [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    return failure == std::errc() && end == text.data() + text.size();
}

/// A literal: a number if the cell holds one, else a string.
Token literalOf(Token cell) {
    if (isNumber(cell.lexeme))
        return {TokenType::Number, std::move(cell.lexeme), cell.line, cell.column};
    return {TokenType::String, '"' + cell.lexeme + '"', cell.line, cell.column};
}

/// `const NAME is ROW_MODEL:`, and a line `ATTRIBUTE: LITERAL` for each of the other cells.
NodePtr modelOf(std::vector<Token> const& row, std::vector<Token> const& header, Token const& row_model) {
    vec<NodePtr> members;
    for (std::size_t i = 1; i < row.size(); ++i)
        members.push_back(VarAssignment::create({header[i]}, Token::None(), {}, {}, {},
                                                Constant::create(literalOf(row[i]))));
    return ModelDeclaration::create(Token::Keyword(TokenType::Const), row.front(), Token::None(), {row_model},
                                    {}, {}, {}, std::move(members));
}

} // namespace

DocPtr CsvPlugin::parse(std::string const& key, ImportPtr import_node, ErrorReporter& error_reporter) {
    auto const& path = import_node->getPathToken();
    auto const& alias = import_node->getAliasSegments();
    if (alias.empty()) {
        auto const importing = import_node->getOwningDocument()->getSourceId();
        error_reporter.reportError(Error::create(err_no_row_model, path.line, path.column, importing));
        return {};
    }

    auto const source_id = Token::extractString(path);
    std::vector<Token> header;
    vec<NodePtr> models;
    std::istringstream lines(key);
    std::string text;
    for (line_t line = 1; std::getline(lines, text); ++line) {
        if (text.find_first_not_of(" \t\r") == std::string::npos)
            continue;
        auto row = cellsOf(text, line);
        if (header.empty())
            header = std::move(row);
        else if (row.size() == header.size())
            models.push_back(modelOf(row, header, alias.back()));
        else
            error_reporter.reportError(Error::create(err_wrong_cell_count, line, 1, source_id));
    }
    return Document::create(source_id, std::move(models));
}

} // namespace Winch
