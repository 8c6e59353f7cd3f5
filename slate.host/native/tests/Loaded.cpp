#include "Loaded.h"

#include "slate/Document.h"
#include "slate/EvaluatorContext.h"
#include "slate/Plugin.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace Slate::Host {

namespace {

constexpr std::string_view head = "=== ";

/// Makes an empty document of each file.
class EmptyFiles : public Plugin {
  public:
    explicit EmptyFiles(std::string_view extension) : extension_(extension) {}

    DocPtr parse(std::string const& key, ImportPtr /*import_node*/,
                 ErrorReporter& /*error_reporter*/) override {
        return Document::create(key, {});
    }

    StringVector extensions() override { return {extension_}; }

    void setPrecision(int /*precision*/) override {}

    bool keyShouldBeSource() override { return false; }

  private:
    std::string extension_;
};

// As the registry takes it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
Core::Any one(std::vector<Core::Any> /*arguments*/) { return Core::Any(std::int64_t{1}); }

std::string_view takeLine(std::string_view& text) {
    auto const end = text.find('\n');
    auto const line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace

std::vector<std::pair<std::string, std::string>> splitFiles(std::string_view text) {
    if (!text.starts_with(head))
        return {{"test.slate", std::string(text)}};
    std::vector<std::pair<std::string, std::string>> files;
    while (!text.empty()) {
        auto const start = text;
        auto const line = takeLine(text);
        if (line.starts_with(head))
            files.emplace_back(line.substr(head.size()), "");
        else
            files.back().second += start.substr(0, start.size() - text.size());
    }
    return files;
}

Loaded::Loaded(LoadRequest const& request) : context_(StringVector{tree_.root().string()}) {
    Testing::LogCapture const log;
    auto const files = splitFiles(request.text);
    for (auto const& [path, text] : files)
        tree_.write(path, text);
    if (!request.plugin_extension.empty())
        Core::Api::registerPlugin(std::make_shared<EmptyFiles>(request.plugin_extension), context_);
    if (!request.native.empty())
        context_.getEvaluatorContext()->registerStaticMethod(std::string(request.native).c_str(), one);
    context_.setNestedDeclarationsAllowed(request.nested_declarations_allowed);
    auto const first = std::ranges::find_if(
        files, [](auto const& file) { return !std::string_view(file.first).ends_with("config.slate"); });
    auto const model =
        request.model.empty() ? std::nullopt : std::optional<std::string>(std::string(request.model));
    Core::Api::loadModelFromFile(
        tree_.path(request.file.empty() ? std::string_view(first->first) : request.file), model, context_);
}

std::string Loaded::withoutRoot(std::string text) const {
    auto const root = tree_.root().string() + "/";
    for (auto place = text.find(root); place != std::string::npos; place = text.find(root))
        text.erase(place, root.size());
    return text;
}

std::string Loaded::errors() const {
    std::string text;
    for (auto const& error : context_.getErrors())
        text += Testing::dumpError(*error, true) + "\n";
    return withoutRoot(text);
}

} // namespace Slate::Host
