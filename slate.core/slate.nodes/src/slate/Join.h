#pragma once

#include <string>

namespace Slate {

/// The texts of a range with the separator between them.
template <typename Iterator>
std::string join(Iterator first, Iterator last, std::string const& separator) {
    std::string text;
    for (auto part = first; part != last; ++part) {
        if (part != first)
            text += separator;
        text += *part;
    }
    return text;
}

} // namespace Slate
