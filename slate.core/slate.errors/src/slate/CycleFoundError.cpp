#include "slate/CycleFoundError.h"

namespace Slate {

std::shared_ptr<CycleFoundError> CycleFoundError::create(line_t line, col_t column,
                                                         std::string const& source_id,
                                                         std::string const& model_name,
                                                         std::string const& cyclic_nodes) {
    return std::make_shared<CycleFoundError>(CreateKey(), line, column, source_id, model_name, cyclic_nodes);
}

std::string CycleFoundError::accept(ErrorVisitor& visitor) const {
    return visitor.visitCycleFoundError(*this);
}

} // namespace Slate
