#include "slate/testing/LogCapture.h"

#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

namespace Slate::Testing {

namespace {

std::string textOf(char const* text) { return text == nullptr ? std::string() : std::string(text); }

class CapturingSink : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
  public:
    std::vector<LogCapture::Line> lines;

  protected:
    void sink_it_(spdlog::details::log_msg const& message) override {
        auto const level = spdlog::level::to_string_view(message.level);
        lines.push_back({std::string(level.data(), level.size()),
                         std::string(message.payload.data(), message.payload.size()),
                         textOf(message.source.funcname), textOf(message.source.filename)});
    }

    void flush_() override {}
};

} // namespace

struct LogCapture::State {
    std::shared_ptr<CapturingSink> sink = std::make_shared<CapturingSink>();
    std::vector<spdlog::sink_ptr> sinks_before;
    spdlog::level::level_enum level_before = spdlog::level::info;
};

LogCapture::LogCapture() : state_(std::make_unique<State>()) {
    auto& logger = *spdlog::default_logger();
    state_->level_before = logger.level();
    state_->sinks_before.swap(logger.sinks());
    logger.sinks().push_back(state_->sink);
    logger.set_level(spdlog::level::trace);
}

LogCapture::~LogCapture() {
    auto& logger = *spdlog::default_logger();
    logger.sinks().swap(state_->sinks_before);
    logger.set_level(state_->level_before);
}

std::vector<LogCapture::Line> const& LogCapture::lines() const { return state_->sink->lines; }

std::vector<std::string> LogCapture::texts() const {
    std::vector<std::string> texts;
    texts.reserve(lines().size());
    for (auto const& line : lines())
        texts.push_back(line.level + " " + line.function + ": " + line.text);
    return texts;
}

} // namespace Slate::Testing
