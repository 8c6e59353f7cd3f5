#pragma once

#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate::Core::Api {

/// Does something at the moment at which the core logs a certain line, for as long as it lives. Within the
/// life of a `LogCapture`.
class LogAction {
  public:
    LogAction(std::string text, std::function<void()> action)
        : sink_(std::make_shared<Sink>(std::move(text), std::move(action))) {
        spdlog::default_logger()->sinks().push_back(sink_);
    }

    ~LogAction() { std::erase(spdlog::default_logger()->sinks(), sink_); }

    LogAction(LogAction const&) = delete;
    LogAction& operator=(LogAction const&) = delete;

  private:
    class Sink : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
      public:
        Sink(std::string text, std::function<void()> action)
            : text_(std::move(text)), action_(std::move(action)) {}

      protected:
        void sink_it_(spdlog::details::log_msg const& message) override {
            if (std::string_view(message.payload.data(), message.payload.size()) == text_)
                action_();
        }

        void flush_() override {}

      private:
        std::string const text_;
        std::function<void()> const action_;
    };

    spdlog::sink_ptr sink_;
};

} // namespace Slate::Core::Api
