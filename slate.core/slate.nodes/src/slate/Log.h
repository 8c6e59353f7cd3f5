#pragma once

// Internal: only source files include this header, so that spdlog and fmt stay out of what hosts see.

#include <spdlog/spdlog.h>

#include <array>
#include <string_view>

namespace Slate::Log {

/// Cuts a function's signature as the compiler spells it down to the qualified name.
///
/// "void Slate::Core::f(const int&)" becomes "Slate::Core::f". The name ends at the parenthesis of the
/// parameters and begins behind the last blank in front of it, so a function whose name holds either is out
/// of reach.
template <std::size_t Size>
constexpr std::array<char, Size> qualifiedName(char const (&signature)[Size]) {
    std::string_view const whole(signature, Size - 1);
    std::string_view name = whole.substr(0, whole.find('('));
    name.remove_prefix(name.rfind(' ') + 1);
    while (!name.empty() && (name.front() == '*' || name.front() == '&'))
        name.remove_prefix(1);

    std::array<char, Size> result{};
    for (std::size_t i = 0; i < name.size(); ++i)
        result[i] = name[i];
    return result;
}

} // namespace Slate::Log

/// Writes one line to spdlog's default logger, with the file, line and qualified function name of the call
/// site. Must stand in a named function: inside a lambda the name would be that of its call operator.
#define SLATE_LOG(level, ...)                                                                                \
    do {                                                                                                     \
        static constexpr auto slate_log_function = ::Slate::Log::qualifiedName(__PRETTY_FUNCTION__);         \
        ::spdlog::default_logger_raw()->log(                                                                 \
            ::spdlog::source_loc{static_cast<char const*>(__FILE__), __LINE__, slate_log_function.data()},   \
            level, __VA_ARGS__);                                                                             \
    } while (false)

#define SLATE_LOG_TRACE(...) SLATE_LOG(::spdlog::level::trace, __VA_ARGS__)
#define SLATE_LOG_DEBUG(...) SLATE_LOG(::spdlog::level::debug, __VA_ARGS__)
#define SLATE_LOG_WARNING(...) SLATE_LOG(::spdlog::level::warn, __VA_ARGS__)
#define SLATE_LOG_ERROR(...) SLATE_LOG(::spdlog::level::err, __VA_ARGS__)
