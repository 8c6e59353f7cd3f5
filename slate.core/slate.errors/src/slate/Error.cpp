#include "slate/Error.h"

namespace Slate {

std::shared_ptr<Error> Error::create(error_code_t error_code, line_t line, col_t column,
                                     std::string const& source_id) {
    return std::make_shared<Error>(CreateKey(), error_code, line, column, source_id);
}

std::string Error::accept(ErrorVisitor& visitor) const { return visitor.visitError(*this); }

} // namespace Slate
