#pragma once

// Errors that the analysis finds. Each is a `StringParameterError` with its own number.

#include "slate/StringParameterError.h"
#include "slate/Token.h"

namespace Slate {

/// `ErrTypeNotFound`: a type name resolves to nothing.
class TypeNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// At the first of the tokens, nowhere without any; the string joins their lexemes by ".".
    static std::shared_ptr<TypeNotFound> create(TokenVector const& type_segments,
                                                std::string const& source_id);

    std::string const& getTypeSegments() const { return getStringParameter(); }
};

/// `ErrVariableNotFound`: a name resolves to no attribute.
class VariableNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<VariableNotFound> create(line_t line, col_t column, std::string const& source_id,
                                                    std::string const& name);
};

/// `ErrMethodNotFound`: a call names no method of its owner.
class MethodNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// At the name; the string is the whole path.
    static std::shared_ptr<MethodNotFound> create(Token const& name_token, std::string const& method_path,
                                                  std::string const& source_id);
};

/// `ErrMemberNotFound`: a segment of a member access is no member of the type before it.
class MemberNotFound : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// At the token; the string is its lexeme.
    static std::shared_ptr<MemberNotFound> create(Token const& member_token, std::string const& source_id);
};

/// `ErrSymbolAlreadyDefined`: a name is declared twice in one scope.
class SymbolAlreadyDefined : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<SymbolAlreadyDefined>
    create(line_t line, col_t column, std::string const& source_id, std::string const& name);
};

/// `ErrSymbolAlreadyAssigned`: two assignments reach one attribute.
class SymbolAlreadyAssigned : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// At the token; the string is its lexeme.
    static std::shared_ptr<SymbolAlreadyAssigned> create(Token const& identifier,
                                                         std::string const& source_id);
};

/// `ErrExpectedTrait`: a name in the trait list is not a trait.
class ExpectedTrait : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    /// At the first of the tokens, nowhere without any; the string joins their lexemes by ".".
    static std::shared_ptr<ExpectedTrait> create(TokenVector const& segments, std::string const& source_id);
};

/// `ErrMissingAssignment`: an attribute that needs a value gets none.
class MissingAssignmentError : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<MissingAssignmentError>
    create(line_t line, col_t column, std::string const& source_id, std::string const& var_decl_path);

    std::string const& getVarDeclarationPath() const { return getStringParameter(); }
};

/// `ErrCircularDependency`: models contain one another.
class CircularDependency : public StringParameterError {
  public:
    using StringParameterError::StringParameterError;

    static std::shared_ptr<CircularDependency> create(line_t line, col_t column, std::string const& source_id,
                                                      std::string const& cyclic_nodes);

    std::string const& getCycleAsString() const { return getStringParameter(); }
};

} // namespace Slate
