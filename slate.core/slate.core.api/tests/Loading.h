#pragma once

#include "slate/Document.h"
#include "slate/SlateContextInternal.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace Slate::Core::Api {

using Strings = std::vector<std::string>;

/// Loads from a temporary tree, and tells what a context holds then. Where texts hold the path of the tree,
/// ROOT stands for it.
class Loading : public testing::Test {
  protected:
    /// Search paths within the tree.
    StringVector paths(Strings const& relative_paths) const {
        StringVector all;
        for (auto const& path : relative_paths)
            all.push_back(tree.path(path).string());
        return all;
    }

    /// Makes a directory a bundle. The name stands on line 2, and the dependencies, written as in the
    /// language, on line 3 with the first one in column 20.
    std::filesystem::path bundle(std::string const& directory, std::string const& name,
                                 std::string const& dependencies = "",
                                 std::string const& version = "") const {
        return tree.write(directory + "/config.slate", "config is BundleConfig:\n    name: \"" + name +
                                                           "\"\n    dependencies: [" + dependencies +
                                                           "]\n    version: \"" + version + "\"\n");
    }

    DocDocListPair load(std::string const& relative_path, SlateContext& context) const {
        return parseFromFile(tree.path(relative_path), context);
    }

    std::string inTree(std::string text) const {
        auto const& root = tree.root().native();
        for (auto place = text.find(root); place != std::string::npos; place = text.find(root))
            text.replace(place, root.size(), "ROOT");
        return text;
    }

    /// Each source that the context knows: "PATH: NAMESPACE", or "PATH not parsed".
    Strings sources(SlateContext const& context) const {
        Strings all;
        for (auto const& source : context.getInternal().getDocuments()) {
            auto const name_space =
                source->document ? ": " + source->document->joinNamespace(".") : " not parsed";
            all.push_back(inTree(source->path.string() + name_space));
        }
        return all;
    }

    /// Each error: "SOURCE: NUMBER LINE:COLUMN STRINGS".
    Strings errors(SlateContext const& context) const {
        Strings all;
        for (auto const& error : context.getErrors())
            all.push_back(inTree(Testing::dumpError(*error, true)));
        return all;
    }

    /// The description that each source has of its bundle.
    static std::vector<Bundle::BundleConfig const*> bundles(SlateContext const& context) {
        std::vector<Bundle::BundleConfig const*> all;
        for (auto const& source : context.getInternal().getDocuments())
            all.push_back(source->bundle.get());
        return all;
    }

    static Strings names(std::vector<Bundle::BundleConfig> const& bundles) {
        Strings all;
        for (auto const& bundle : bundles)
            all.push_back(bundle.name);
        return all;
    }

    Testing::TemporaryTree const tree;
    Testing::LogCapture const log;
};

} // namespace Slate::Core::Api
