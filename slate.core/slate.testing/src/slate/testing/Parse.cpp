#include "slate/testing/Parse.h"

#include "slate/Document.h"
#include "slate/Parser.h"
#include "slate/VarAssignment.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/TreeDump.h"

namespace Slate::Testing {

std::string Parsed::errors() const { return dumpErrors(*reporter); }

std::string Parsed::tree() const { return dumpTree(*document); }

Parsed parse(std::string const& source, std::string const& source_id) {
    auto reporter = std::make_shared<ErrorReporter>();
    auto document = Parser::parse(source, source_id, reporter);
    return {document, reporter};
}

std::string unindent(std::string const& raw) {
    auto const begin = raw.find('\n') + 1;
    auto const text = raw.substr(begin, raw.rfind('\n') + 1 - begin);
    auto const indentation = text.find_first_not_of(' ');

    std::string unindented;
    for (std::size_t line = 0; line < text.size(); line = text.find('\n', line) + 1) {
        auto const line_length = text.find('\n', line) - line;
        auto const blanks = std::min({text.find_first_not_of(' ', line) - line, indentation, line_length});
        unindented += text.substr(line + blanks, line_length - blanks) + "\n";
    }
    return unindented;
}

ExpressionPtr parseExpression(std::string const& expression) {
    auto const parsed = parse("x is Real: " + expression + "\n");
    auto const& members = parsed.document->getMembers();
    auto const variable = members.empty() ? nullptr : members.front()->asVarAssignment();
    return variable && parsed.reporter->getErrorCount() == 0 ? variable->getValue() : nullptr;
}

} // namespace Slate::Testing
