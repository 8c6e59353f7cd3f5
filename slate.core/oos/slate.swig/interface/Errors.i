%nodefaultctor;

// The place of these errors is that of the first token.
%typemap(check) Slate::TokenVector const & type_segments, Slate::TokenVector const & segments {
    if ($1->empty())
        SWIG_exception_fail(SWIG_ValueError, "in method '$symname', argument $argnum needs a token");
}

namespace Slate {

class Error {
  public:
    static std::shared_ptr<Slate::Error> create(error_code_t error_code, line_t line, col_t column,
                                                std::string const & source_id);
    virtual ~Error();

    virtual std::string accept(ErrorVisitor & visitor) const;
    error_code_t getErrorCode() const;
    line_t getLine() const;
    col_t getColumn() const;
    std::string getSourceId() const;
};

class CycleFoundError : public Error {
  public:
    static std::shared_ptr<Slate::CycleFoundError> create(line_t line, col_t column, std::string const & source_id,
                                                          std::string const & model_name,
                                                          std::string const & cyclic_nodes);

    std::string accept(ErrorVisitor & visitor) const override;
    std::string getModelName() const;
    std::string getCyclicNodesAsString() const;
};

class StringParameterError : public Error {
  public:
    static std::shared_ptr<Slate::StringParameterError> create(error_code_t error_code, line_t line, col_t column,
                                                               std::string const & source_id,
                                                               std::string const & string_parameter);

    std::string accept(ErrorVisitor & visitor) const override;
    std::string getStringParameter() const;
};

class MissingAssignmentError : public StringParameterError {
  public:
    static std::shared_ptr<Slate::MissingAssignmentError> create(line_t line, col_t column,
                                                                 std::string const & source_id,
                                                                 std::string const & var_decl_path);
    std::string getVarDeclarationPath() const;
};

class CircularDependency : public StringParameterError {
  public:
    static std::shared_ptr<Slate::CircularDependency> create(line_t line, col_t column, std::string const & source_id,
                                                             std::string const & cyclic_nodes);
    std::string getCycleAsString() const;
};

class ModelDeclarationNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::ModelDeclarationNotFound> create(line_t line, col_t column,
                                                                   std::string const & source_id,
                                                                   std::string const & model_name);
    std::string getModelName() const;
};

class TypeNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::TypeNotFound> create(TokenVector const & type_segments,
                                                       std::string const & source_id);
    std::string getTypeSegments() const;
};

class VariableNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::VariableNotFound> create(line_t line, col_t column, std::string const & source_id,
                                                           std::string const & name);
};

class MethodNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::MethodNotFound> create(Token const & name_token, std::string const & method_path,
                                                         std::string const & source_id);
};

class MemberNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::MemberNotFound> create(Token const & member_token, std::string const & source_id);
};

class SymbolAlreadyDefined : public StringParameterError {
  public:
    static std::shared_ptr<Slate::SymbolAlreadyDefined> create(line_t line, col_t column, std::string const & source_id,
                                                               std::string const & name);
};

class SymbolAlreadyAssigned : public StringParameterError {
  public:
    static std::shared_ptr<Slate::SymbolAlreadyAssigned> create(Token const & identifier,
                                                                std::string const & source_id);
};

class ExpectedTrait : public StringParameterError {
  public:
    static std::shared_ptr<Slate::ExpectedTrait> create(TokenVector const & segments, std::string const & source_id);
};

class NoPluginForImportedFile : public StringParameterError {
  public:
    static std::shared_ptr<Slate::NoPluginForImportedFile> create(line_t line, col_t column,
                                                                  std::string const & source_id,
                                                                  std::string const & name);
};

class ImportedFileNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::ImportedFileNotFound> create(line_t line, col_t column, std::string const & source_id,
                                                               std::string const & name);
};

class FileNotFound : public StringParameterError {
  public:
    static std::shared_ptr<Slate::FileNotFound> create(line_t line, col_t column, std::string const & source_id,
                                                       std::string const & name);
};

class ModelNotInitializable : public StringParameterError {
  public:
    static std::shared_ptr<Slate::ModelNotInitializable> create(line_t line, col_t column,
                                                                std::string const & model_name,
                                                                std::string const & source_id);
};

class DependencyNotSatisfied : public StringParameterError {
  public:
    static std::shared_ptr<Slate::DependencyNotSatisfied> create(line_t line, col_t column,
                                                                 std::string const & dependency,
                                                                 std::string const & source_id);
};

%clear Slate::TokenVector const & type_segments, Slate::TokenVector const & segments;
%clearnodefaultctor;

class ErrorReporter {
  public:
    ErrorReporter();

    void reportError(std::shared_ptr<Slate::Error> error);
    ErrorIterator begin() const;
    ErrorIterator end() const;
    size_t getErrorCount() const;
    std::vector<std::shared_ptr<Slate::Error>> const & getErrors() const;
};

} // namespace Slate
