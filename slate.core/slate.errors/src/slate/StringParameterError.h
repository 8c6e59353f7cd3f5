#pragma once

#include "slate/Error.h"

namespace Slate {

/// An error with one string: what it is depends on the number. The base of all named errors but
/// `CycleFoundError`.
class StringParameterError : public Error {
  public:
    static std::shared_ptr<StringParameterError> create(error_code_t error_code, line_t line, col_t column,
                                                        std::string const& source_id,
                                                        std::string const& string_parameter);

    StringParameterError(CreateKey, error_code_t error_code, line_t line, col_t column, std::string source_id,
                         std::string string_parameter)
        : Error(CreateKey(), error_code, line, column, std::move(source_id)),
          string_parameter_(std::move(string_parameter)) {}

    std::string accept(ErrorVisitor& visitor) const override;

    std::string const& getStringParameter() const { return string_parameter_; }

  private:
    std::string const string_parameter_;
};

} // namespace Slate
