#include "slate/fuzz/Json.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace Slate::Fuzz {

namespace {

// Libraries refuse what slate leaves as it is: bytes that are no UTF-8, and control characters within
// strings. To hide these from one would take a walk over all strings, escapes and ends included, and that is
// most of what stands here.
class JsonReader {
  public:
    explicit JsonReader(std::string_view text) : rest_(text) {}

    bool read() {
        do {
            if (!readBeginning() || !closeWhatEnds())
                return false;
        } while (!closers_.empty());
        return rest_.empty();
    }

  private:
    bool take(char wanted) {
        if (!rest_.starts_with(wanted))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool take(std::string_view wanted) {
        if (!rest_.starts_with(wanted))
            return false;
        rest_.remove_prefix(wanted.size());
        return true;
    }

    /// All of a value that holds no others, or the beginning of one up to the first value in it.
    bool readBeginning() {
        if (!closers_.empty() && closers_.back() == '}' && !(readString() && take(':')))
            return false;
        while (true) {
            if (take('{')) {
                closers_.push_back('}');
                if (rest_.starts_with('}'))
                    return true;
                if (!readString() || !take(':'))
                    return false;
            } else if (take('[')) {
                closers_.push_back(']');
                if (rest_.starts_with(']'))
                    return true;
            } else {
                return take("true") || take("false") || take("null") || readString() || readNumber();
            }
        }
    }

    /// What ends behind a value; answers false if neither an end nor a comma comes.
    bool closeWhatEnds() {
        while (!closers_.empty() && take(closers_.back()))
            closers_.pop_back();
        return closers_.empty() || take(',');
    }

    bool readString() {
        if (!take('"'))
            return false;
        while (!rest_.empty() && !rest_.starts_with('"')) {
            bool const is_escape = take('\\');
            if (is_escape && (rest_.empty() ||
                              std::string_view(R"("\/bfnrt)").find(rest_.front()) == std::string_view::npos))
                return false;
            rest_.remove_prefix(1);
        }
        return take('"');
    }

    bool readNumber() {
        take('-');
        return (take('0') || readDigits()) && (!take('.') || readDigits()) && readExponent();
    }

    bool readExponent() {
        if (!take('e') && !take('E'))
            return true;
        if (!take('+'))
            take('-');
        return readDigits();
    }

    bool readDigits() {
        auto const is_digit = [](char byte) { return byte >= '0' && byte <= '9'; };
        auto const end = std::ranges::find_if_not(rest_, is_digit);
        auto const count = static_cast<std::size_t>(end - rest_.begin());
        rest_.remove_prefix(count);
        return count > 0;
    }

    std::string_view rest_;
    std::vector<char> closers_; // of what is open
};

} // namespace

bool isJson(std::string_view text) { return JsonReader(text).read(); }

} // namespace Slate::Fuzz
