#include "slate/host/Log.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/sink.h>
#include <spdlog/sinks/stdout_color_sinks.h>
#include <spdlog/spdlog.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace Slate::Host {

namespace {

spdlog::level::level_enum levelOfName(std::string_view name) {
    for (auto level = int(spdlog::level::trace); level <= int(spdlog::level::off); ++level) {
        auto const candidate = static_cast<spdlog::level::level_enum>(level);
        auto const text = spdlog::level::to_string_view(candidate);
        if (name == std::string_view(text.data(), text.size()))
            return candidate;
    }
    throw std::invalid_argument("no level of the log is named \"" + std::string(name) + "\"");
}

/// Has the log go to that sink alone.
void setSink(spdlog::sink_ptr sink) {
    auto const level = spdlog::default_logger()->level();
    auto logger = std::make_shared<spdlog::logger>("", std::move(sink));
    logger->set_level(level);
    spdlog::set_default_logger(std::move(logger));
}

class CallbackSink : public spdlog::sinks::sink {
  public:
    explicit CallbackSink(LogCallback callback) : callback_(std::move(callback)) {}

    void log(spdlog::details::log_msg const& message) override {
        auto const this_thread = std::this_thread::get_id();
        if (!callback_ || busy_thread_.load() == this_thread)
            return;
        busy_thread_.store(this_thread);
        auto const level = spdlog::level::to_string_view(message.level);
        try {
            callback_({level.data(), level.size()}, {message.payload.data(), message.payload.size()},
                      message.source.funcname == nullptr ? "" : message.source.funcname);
        } catch (...) { // NOLINT(bugprone-empty-catch): whoever logs has nothing to do with it
        }
        busy_thread_.store({});
    }

    void flush() override {}

    void set_pattern(std::string const& /*pattern*/) override {}

    void set_formatter(std::unique_ptr<spdlog::formatter> /*sink_formatter*/) override {}

  private:
    LogCallback const callback_;
    std::atomic<std::thread::id> busy_thread_; // in the callback; none if it is empty
};

} // namespace

void setLogLevel(std::string_view name) { spdlog::set_level(levelOfName(name)); }

void logToStandardError() { setSink(std::make_shared<spdlog::sinks::stderr_color_sink_mt>()); }

void setLogCallback(LogCallback callback) { setSink(std::make_shared<CallbackSink>(std::move(callback))); }

void resetLog() {
    setSink(std::make_shared<spdlog::sinks::stdout_color_sink_mt>());
    spdlog::set_level(spdlog::level::info);
}

} // namespace Slate::Host
