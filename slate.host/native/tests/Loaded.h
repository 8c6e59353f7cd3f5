#pragma once

#include "slate/SlateContext.h"
#include "slate/testing/TemporaryTree.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Slate::Host {

/// What to load, and what the host has.
struct LoadRequest {
    /// Lines like "=== mill/gear.slate" begin a file of that path; without one the text is "test.slate".
    std::string_view text = {};
    /// The file to load; empty: the first one but for a `config.slate`.
    std::string_view file = {};
    /// The model to evaluate; empty: the last one of the file.
    std::string_view model = {};
    std::string_view plugin_extension = {};
    std::string_view native = {};
    bool nested_declarations_allowed = true;
};

/// The paths and texts of files, in order.
std::vector<std::pair<std::string, std::string>> splitFiles(std::string_view text);

/// Files in a directory of their own, loaded and evaluated by a context whose one search path is that
/// directory.
class Loaded {
  public:
    explicit Loaded(LoadRequest const& request);

    Core::Api::SlateContext const& context() const { return context_; }

    /// Lets the documents go.
    void release() { context_.release(); }

    /// The path of the directory, and a "/" behind it, are taken out of the text.
    std::string withoutRoot(std::string text) const;

    /// A line each, "test.slate: 20001 3:12 'Body'".
    std::string errors() const;

  private:
    Testing::TemporaryTree tree_;
    Core::Api::SlateContext context_;
};

} // namespace Slate::Host
