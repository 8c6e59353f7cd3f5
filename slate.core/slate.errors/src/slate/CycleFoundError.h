#pragma once

#include "slate/Error.h"

namespace Slate {

/// `ErrCycleFound`: the evaluation order of a model holds a cycle.
class CycleFoundError : public Error {
  public:
    static std::shared_ptr<CycleFoundError> create(line_t line, col_t column, std::string const& source_id,
                                                   std::string const& model_name,
                                                   std::string const& cyclic_nodes);

    CycleFoundError(CreateKey, line_t line, col_t column, std::string source_id, std::string model_name,
                    std::string cyclic_nodes)
        : Error(CreateKey(), ErrCycleFound, line, column, std::move(source_id)),
          model_name_(std::move(model_name)),
          cyclic_nodes_(std::move(cyclic_nodes)) {}

    std::string accept(ErrorVisitor& visitor) const override;

    std::string const& getModelName() const { return model_name_; }

    std::string const& getCyclicNodesAsString() const { return cyclic_nodes_; }

  private:
    std::string const model_name_;
    std::string const cyclic_nodes_;
};

} // namespace Slate
