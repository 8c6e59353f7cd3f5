namespace Slate::Bundle {

struct BundleConfig {
    BundleConfig();

    std::string name;
    std::filesystem::path config_file_path;
    std::vector<std::filesystem::path> slate_files;
    std::string version;
    std::vector<Slate::Token> dependencies;
    std::vector<Slate::Bundle::BundleConfig> resolved_dependencies;
};

} // namespace Slate::Bundle

// The core shares one unchanging description among the sources of a bundle; Python reads and sets copies of it.
%naturalvar Slate::DocumentContext::bundle;

%{
static Slate::Bundle::BundleConfig const& Slate_DocumentContext_bundle_get(Slate::DocumentContext* context) {
    static Slate::Bundle::BundleConfig const none;
    return context->bundle ? *context->bundle : none;
}

static void Slate_DocumentContext_bundle_set(Slate::DocumentContext* context,
                                             Slate::Bundle::BundleConfig const& bundle) {
    context->bundle = std::make_shared<Slate::Bundle::BundleConfig const>(bundle);
}

static Slate::DocPtr const& Slate_DocumentContext_document_get(Slate::DocumentContext* context) {
    return context->document;
}

static void Slate_DocumentContext_document_set(Slate::DocumentContext* context, Slate::DocPtr const& document) {
    context->replaceDocument(document);
}
%}

namespace Slate {

struct DocumentContext {
    std::filesystem::path path;
    std::string source;

    %extend {
        Slate::Bundle::BundleConfig bundle;
        DocPtr document;

        DocumentContext(std::string s, std::filesystem::path p, Slate::Bundle::BundleConfig b) {
            return new Slate::DocumentContext(std::move(s), std::move(p),
                                              std::make_shared<Slate::Bundle::BundleConfig const>(std::move(b)));
        }

        DocumentContext(std::string s, std::filesystem::path p, Slate::Bundle::BundleConfig b, DocPtr d) {
            return new Slate::DocumentContext(std::move(s), std::move(p),
                                              std::make_shared<Slate::Bundle::BundleConfig const>(std::move(b)),
                                              std::move(d));
        }
    }
};

} // namespace Slate

namespace Slate::Analysis {

struct BundleLookup {
    BundleLookup();

    std::string bundle_name;
    std::vector<std::shared_ptr<Slate::DocumentContext>> documents;
};

} // namespace Slate::Analysis
