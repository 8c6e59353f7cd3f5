#include "slate/RealText.h"

#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace Slate::Core {

namespace {

struct FreeLocale {
    void operator()(locale_t locale) const { freelocale(locale); }
};

using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, FreeLocale>;

} // namespace

RealText::RealText(std::string_view text) {
    auto const [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    is_number = failure != std::errc::invalid_argument;
    fits = is_number && failure != std::errc::result_out_of_range;
    // What the C library makes of numbers near the limits is asked only there: it is slow.
    bool const is_ordinary = value == 0 || std::abs(value) > std::numeric_limits<double>::min();
    if (!is_number || (fits && is_ordinary))
        return;
    Locale const c_locale(newlocale(LC_ALL_MASK, "C", nullptr));
    errno = 0;
    value = strtod_l(std::string(text).c_str(), nullptr, c_locale.get());
    fits = errno != ERANGE;
}

} // namespace Slate::Core
