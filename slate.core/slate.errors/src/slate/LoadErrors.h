#pragma once

// Errors of loading and evaluating. Each is a `StringParameterError` with its own number.

#include "slate/StringParameterError.h"

namespace Slate {

/// `ErrNoPluginForImportedFile`: an import names a file whose extension no plug-in claims.
class NoPluginForImportedFile : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<NoPluginForImportedFile>
    create(line_t line, col_t column, std::string const& source_id, std::string const& name);
};

/// `ErrImportedFileNotFound`: the imported file does not exist.
class ImportedFileNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<ImportedFileNotFound>
    create(line_t line, col_t column, std::string const& source_id, std::string const& name);
};

/// `ErrModelDeclarationNotFound`: the model requested by name is not in the document.
class ModelDeclarationNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<ModelDeclarationNotFound>
    create(line_t line, col_t column, std::string const& source_id, std::string const& model_name);

    std::string const& getModelName() const { return getStringParameter(); }
};

/// `ErrFileNotFound`: the main file of a load does not exist.
class FileNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<FileNotFound> create(line_t line, col_t column, std::string const& source_id,
                                                std::string const& name);
};

/// `ErrModelNotInitializable`: an initializer names a model that can't be initialized.
class ModelNotInitializable : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// Mind the order: the string stands before the source id.
    static std::shared_ptr<ModelNotInitializable>
    create(line_t line, col_t column, std::string const& model_name, std::string const& source_id);
};

/// `ErrDependencyNotSatisfied`: a bundle dependency is missing or of another version.
class DependencyNotSatisfied : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// Mind the order: the string stands before the source id.
    static std::shared_ptr<DependencyNotSatisfied>
    create(line_t line, col_t column, std::string const& dependency, std::string const& source_id);
};

} // namespace Slate
