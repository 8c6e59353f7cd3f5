#pragma once

#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/Plugin.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Core::Api {

/// Makes an empty document of whatever it is given, or what `make_document` says, and remembers the keys.
class TestPlugin : public Plugin {
  public:
    explicit TestPlugin(StringVector extensions, bool wants_source = false)
        : extensions_(std::move(extensions)), wants_source_(wants_source) {}

    DocPtr parse(std::string const& key, ImportPtr import_node, ErrorReporter& error_reporter) override {
        keys.push_back(key);
        return make_document(import_node, error_reporter);
    }

    StringVector extensions() override { return extensions_; }

    void setPrecision(int /*precision*/) override { was_told_precision = true; }

    bool keyShouldBeSource() override { return wants_source_; }

    std::function<DocPtr(ImportPtr const&, ErrorReporter&)> make_document =
        [](ImportPtr const& /*import*/, ErrorReporter& /*error_reporter*/) {
            return Document::create("imported", {});
        };
    std::vector<std::string> keys;
    bool was_told_precision = false;

  private:
    StringVector extensions_;
    bool wants_source_ = false;
};

} // namespace Slate::Core::Api
