// What sources import: files that plug-ins turn into documents.

#include "slate/Directory.h"
#include "slate/Document.h"
#include "slate/Import.h"
#include "slate/LoadErrors.h"
#include "slate/SlateContextInternal.h"
#include "slate/SourceFile.h"

namespace Slate::Core::Api {

namespace fs = std::filesystem;

namespace {

template <typename ImportError>
void report(ErrorReporter& error_reporter, Import const& import, std::string const& path) {
    auto const& token = import.getPathToken();
    auto const document = import.getOwningDocument();
    error_reporter.reportError(ImportError::create(token.line, token.column,
                                                   document ? document->getSourceId() : std::string(), path));
}

/// A document that a plug-in made stands where the import stands, or below it by all alias segments but the
/// last.
void setImportedNamespace(Document& imported, Import const& import) {
    if (auto const importing = import.getOwningDocument())
        imported.copyNamespace(*importing);
    auto const& alias = import.getAliasSegments();
    for (std::size_t i = 0; i + 1 < alias.size(); ++i)
        imported.appendToNamespace(alias[i].lexeme);
}

} // namespace

// The path is used as it stands, so it is relative to the working directory of the process.
std::optional<std::string> SlateContextInternal::findImportedFile(Import const& import) {
    auto path = Token::extractString(import.getPathToken());
    if (Bundle::pathExists(path))
        return path;
    report<ImportedFileNotFound>(*error_reporter_, import, path);
    return std::nullopt;
}

void SlateContextInternal::parseImport(ImportPtr const& import, std::string const& path_text,
                                       SharedBundle const& bundle) {
    fs::path const path = path_text;
    auto const plugin = plugins_.find(path.extension().string());
    if (!plugin) {
        report<NoPluginForImportedFile>(*error_reporter_, *import, path_text);
        return;
    }

    bool const wants_source = plugin->keyShouldBeSource();
    auto source = wants_source ? readSourceFile(path) : std::string();
    auto document = plugin->parse(wants_source ? source : path_text, import, *error_reporter_);
    if (!document)
        return;
    import->setDocument(document);
    setImportedNamespace(*document, *import);
    documents_.push_back(
        std::make_shared<DocumentContext>(std::move(source), path, bundle, std::move(document)));
}

} // namespace Slate::Core::Api
