#pragma once

#include <string>

namespace Slate::Testing {

/// The text of a `config.slate`. The name stands on line 2, the dependencies, written as in the language, on
/// line 3 with the first one in column 20, and the version last; an empty argument is left out.
inline std::string configText(std::string const& name, std::string const& dependencies = "",
                              std::string const& version = "") {
    auto text = "config is BundleConfig:\n    name: \"" + name + "\"\n";
    if (!dependencies.empty())
        text += "    dependencies: [" + dependencies + "]\n";
    if (!version.empty())
        text += "    version: \"" + version + "\"\n";
    return text;
}

} // namespace Slate::Testing
