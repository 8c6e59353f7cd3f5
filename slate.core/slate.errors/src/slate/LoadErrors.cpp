#include "slate/LoadErrors.h"

namespace Slate {

std::shared_ptr<NoPluginForImportedFile> NoPluginForImportedFile::create(line_t line, col_t column,
                                                                         std::string const& source_id,
                                                                         std::string const& name) {
    return std::make_shared<NoPluginForImportedFile>(CreateKey(), ErrNoPluginForImportedFile, line, column,
                                                     source_id, name);
}

std::shared_ptr<ImportedFileNotFound> ImportedFileNotFound::create(line_t line, col_t column,
                                                                   std::string const& source_id,
                                                                   std::string const& name) {
    return std::make_shared<ImportedFileNotFound>(CreateKey(), ErrImportedFileNotFound, line, column,
                                                  source_id, name);
}

std::shared_ptr<ModelDeclarationNotFound> ModelDeclarationNotFound::create(line_t line, col_t column,
                                                                           std::string const& source_id,
                                                                           std::string const& model_name) {
    return std::make_shared<ModelDeclarationNotFound>(CreateKey(), ErrModelDeclarationNotFound, line, column,
                                                      source_id, model_name);
}

std::shared_ptr<FileNotFound> FileNotFound::create(line_t line, col_t column, std::string const& source_id,
                                                   std::string const& name) {
    return std::make_shared<FileNotFound>(CreateKey(), ErrFileNotFound, line, column, source_id, name);
}

std::shared_ptr<ModelNotInitializable> ModelNotInitializable::create(line_t line, col_t column,
                                                                     std::string const& model_name,
                                                                     std::string const& source_id) {
    return std::make_shared<ModelNotInitializable>(CreateKey(), ErrModelNotInitializable, line, column,
                                                   source_id, model_name);
}

std::shared_ptr<DependencyNotSatisfied> DependencyNotSatisfied::create(line_t line, col_t column,
                                                                       std::string const& dependency,
                                                                       std::string const& source_id) {
    return std::make_shared<DependencyNotSatisfied>(CreateKey(), ErrDependencyNotSatisfied, line, column,
                                                    source_id, dependency);
}

} // namespace Slate
