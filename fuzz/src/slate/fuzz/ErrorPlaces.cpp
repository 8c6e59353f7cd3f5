#include "slate/fuzz/ErrorPlaces.h"

#include "slate/ErrorReporter.h"
#include "slate/Scanner.h"
#include "slate/testing/ErrorDump.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Slate::Fuzz {

namespace {

constexpr std::size_t width_of_what_is_missing = 2;
constexpr char const* triple_quote = R"(""")";
constexpr error_code_t first_code_of_analysis = 20001;

/// The lines of a text as the scanner counts them: the byte behind one that begins no token is lost to it,
/// even a line feed.
class Lines {
  public:
    explicit Lines(std::string text) : text_(std::move(text)) {
        countLines();
        // Scanned anew, since nobody is told of the faults of a configuration.
        auto const faults = std::make_shared<ErrorReporter>();
        tokenize(std::string(text_), "", faults);
        for (auto const& fault : *faults) {
            if (fault->getErrorCode() == ErrUnknownCharacter)
                loseByteAt(fault->getLine(), fault->getColumn());
        }
    }

    bool hasPlaceOf(Error const& error) const {
        auto const line = error.getLine();
        auto const column = error.getColumn();
        if (line < 1 || line > lengths_.size() || column < 1)
            return false;
        if (error.getErrorCode() == ErrBadExpression) {
            bool const may_span_lines = text_.find(triple_quote) != std::string::npos;
            return column <= (may_span_lines ? text_.size() : *std::ranges::max_element(lengths_)) + 1;
        }
        auto const margin = error.getErrorCode() < first_code_of_analysis ? width_of_what_is_missing : 0;
        return column <= lengths_[line - 1] + 1 + margin;
    }

  private:
    void countLines() {
        lengths_.assign(1, 0);
        for (char const byte : text_) {
            if (byte == '\n')
                lengths_.push_back(0);
            else
                ++lengths_.back();
        }
    }

    void loseByteAt(line_t line, col_t column) {
        if (line < 1 || line > lengths_.size())
            return;
        std::size_t place = column - 1;
        for (std::size_t i = 0; i + 1 < line; ++i)
            place += lengths_[i] + 1;
        // Behind "@" nothing is lost. At the end of the text there is nothing to lose, but a column counts
        // all the same.
        if (place == 0 || text_[place - 1] == '@')
            return;
        if (place == text_.size())
            text_ += ' ';
        else if (place < text_.size() && text_[place] == '\n')
            text_[place] = ' ';
        countLines();
    }

    std::string text_;
    std::vector<std::size_t> lengths_;
};

} // namespace

std::string describeMisplaced(Errors const& errors, SourceTexts const& sources) {
    std::map<std::string, Lines> lines;
    for (auto const& [id, text] : sources)
        lines.try_emplace(id, text);
    auto const is_in = [&](auto const& source, Error const& error) {
        return source.second.hasPlaceOf(error);
    };
    std::string description;
    for (auto const& error : errors) {
        auto const named = lines.find(error->getSourceId());
        if (named == lines.end() || (error->getLine() == 0 && error->getColumn() == 0))
            continue;
        bool const may_be_elsewhere = error->getErrorCode() == ErrMissingAssignment;
        bool const has_place =
            may_be_elsewhere
                ? std::ranges::any_of(lines, [&](auto const& source) { return is_in(source, *error); })
                : is_in(*named, *error);
        if (!has_place)
            description += Testing::dumpError(*error, true) + "\n";
    }
    return description;
}

} // namespace Slate::Fuzz
