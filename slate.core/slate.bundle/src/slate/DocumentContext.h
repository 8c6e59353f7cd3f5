#pragma once

#include "slate/BundleConfig.h"
#include "slate/NodeTypes.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace Slate {

/// One source that a context knows. A document that nobody holds any more when this goes, or when it is
/// replaced, is unbound, so that what is left of it answers as it was written.
struct DocumentContext {
    DocumentContext(std::string s, std::filesystem::path p, std::shared_ptr<Bundle::BundleConfig const> b)
        : bundle(std::move(b)), path(std::move(p)), source(std::move(s)) {}

    /// With a document that is there already.
    DocumentContext(std::string s, std::filesystem::path p, std::shared_ptr<Bundle::BundleConfig const> b,
                    DocPtr d)
        : bundle(std::move(b)), path(std::move(p)), source(std::move(s)), document(std::move(d)) {}

    ~DocumentContext() { replaceDocument(nullptr); }

    DocumentContext(DocumentContext const&) = delete;
    DocumentContext& operator=(DocumentContext const&) = delete;

    void replaceDocument(DocPtr replacement);

    /// The bundle that the source belongs to, as it stood when this was made; shared by its sources.
    std::shared_ptr<Bundle::BundleConfig const> bundle;

    /// The file, or what stands for it if there is none.
    std::filesystem::path path;
    std::string source;

    /// Empty until parsed.
    DocPtr document;
};

} // namespace Slate
