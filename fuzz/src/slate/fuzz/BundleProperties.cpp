#include "slate/BundleConfig.h"
#include "slate/Document.h"
#include "slate/fuzz/Json.h"
#include "slate/fuzz/LoadRecord.h"
#include "slate/fuzz/Properties.h"
#include "slate/fuzz/SourceTree.h"
#include "slate/fuzz/UnfoldingSize.h"
#include "slate/testing/Parse.h"

#include <algorithm>
#include <stdexcept>

namespace Slate::Fuzz {

namespace {

using namespace Testing;

bool unfoldsTooFar(SourceTexts const& texts) {
    vec<DocPtr> documents;
    for (auto const& [path, text] : texts)
        documents.push_back(parse(text, path).document);
    return Fuzz::unfoldsTooFar(documents);
}

std::string checkLoad(SourceTree const& tree) {
    auto const load = [&](Core::Api::SlateContext& context) {
        return Core::Api::loadModelFromFile(tree.mainFile(), std::nullopt, context);
    };
    auto const record = recordLoad(tree.searchPaths(), load);
    if (auto const again = recordLoad(tree.searchPaths(), load); again != record)
        return "loaded again it differs:\n" + record.toString() + again.toString();
    if (auto const misplaced = describeMisplaced(record.errors, tree.texts()); !misplaced.empty())
        return "errors outside of the files:\n" + misplaced;
    bool const has_odd_names = std::ranges::any_of(tree.texts(), [](auto const& file) {
        return hasNameToEscape(file.second) || file.first.find_first_of("\"\\") != std::string::npos;
    });
    if (!record.json.empty() && !has_odd_names && !isJson(record.json))
        return "no JSON:\n" + record.json;
    return {};
}

/// The configuration as text, or what the reading throws.
std::string describeConfig(std::filesystem::path const& path) {
    try {
        auto const config = Bundle::readBundleConfig(path);
        auto text = config.name + "\n" + config.version + "\n";
        for (auto const& dependency : config.dependencies)
            text += dependency.lexeme + "\n";
        return text;
    } catch (std::runtime_error const& error) {
        return error.what();
    }
}

} // namespace

std::string checkBundle(std::string const& packed_files) {
    auto const tree = SourceTree::write(packed_files);
    if (!tree || unfoldsTooFar(tree->texts()))
        return {};
    try {
        return checkLoad(*tree);
    } catch (std::exception const& exception) {
        return std::string("it throws: ") + exception.what();
    }
}

std::string checkConfig(std::string const& text) {
    TemporaryTree const tree;
    auto const path = tree.write("config.slate", text);
    try {
        auto const first = describeConfig(path);
        auto const second = describeConfig(path);
        return first == second ? "" : "read again it differs:\n" + first + "\n" + second;
    } catch (std::exception const& exception) {
        return std::string("it throws: ") + exception.what();
    }
}

} // namespace Slate::Fuzz
