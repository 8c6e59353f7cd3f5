#pragma once

#include <memory>
#include <string>
#include <vector>

namespace Slate::Testing {

/// Takes what the core logs for as long as it lives, instead of the default logger's own sinks; all levels.
class LogCapture {
  public:
    struct Line {
        std::string level;
        std::string text;
        std::string function;
        std::string file; // as `slate.core/...`

        bool operator==(Line const&) const = default;
    };

    LogCapture();
    ~LogCapture();
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;

    std::vector<Line> const& lines() const;

    /// Each line as "level function: text".
    std::vector<std::string> texts() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace Slate::Testing
