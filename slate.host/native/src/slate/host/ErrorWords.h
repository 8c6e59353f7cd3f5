#pragma once

#include "slate/ErrorVisitor.h"

#include <string>

namespace Slate::Host {

/// Words an error by itself, without a look at its source: one line such as "no type is named `Flaot`".
class ErrorWords : public ErrorVisitor {
  public:
    std::string visitError(Error const& error) override;
    std::string visitCycleFoundError(CycleFoundError const& error) override;
    std::string visitStringParameterError(StringParameterError const& error) override;
};

} // namespace Slate::Host
