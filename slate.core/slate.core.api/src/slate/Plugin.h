#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"

#include <string>
#include <vector>

namespace Slate {

using StringVector = std::vector<std::string>;

/// What hosts implement to turn the foreign files that sources import into documents.
class Plugin {
  public:
    Plugin() = default;
    Plugin(Plugin const&) = delete;
    Plugin& operator=(Plugin const&) = delete;

    /// Makes a document of an imported file. `key` is the path of the file, or its text if
    /// `keyShouldBeSource`. With an empty result nothing is added; then the plug-in has reported why.
    virtual DocPtr parse(std::string const& key, ImportPtr import_node, ErrorReporter& error_reporter) = 0;

    /// The file extensions that this serves, each with its dot.
    virtual StringVector extensions() = 0;

    /// For hosts; the core never calls it.
    virtual void setPrecision(int precision) = 0;

    virtual bool keyShouldBeSource() = 0;

    virtual ~Plugin() = default;
};

} // namespace Slate
