#include "slate/StringParameterError.h"

namespace Slate {

std::shared_ptr<StringParameterError> StringParameterError::create(error_code_t error_code, line_t line,
                                                                   col_t column, std::string const& source_id,
                                                                   std::string const& string_parameter) {
    return std::make_shared<StringParameterError>(CreateKey(), error_code, line, column, source_id,
                                                  string_parameter);
}

std::string StringParameterError::accept(ErrorVisitor& visitor) const {
    return visitor.visitStringParameterError(*this);
}

} // namespace Slate
