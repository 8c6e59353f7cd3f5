#pragma once

#include "slate/Error.h"

#include <cstddef>
#include <memory>

namespace Slate {

/// The one list of the mistakes that all stages of a context find, in the order in which they are reported.
/// It only grows: a mistake that two stages find stands twice. Not synchronised.
class ErrorReporter {
  public:
    void reportError(std::shared_ptr<Error> error) { errors_.push_back(std::move(error)); }

    Errors::const_iterator begin() const { return errors_.begin(); }

    Errors::const_iterator end() const { return errors_.end(); }

    std::size_t getErrorCount() const { return errors_.size(); }

    Errors const& getErrors() const { return errors_; }

  private:
    Errors errors_;
};

} // namespace Slate
