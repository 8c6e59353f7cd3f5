#pragma once

#include "slate/Error.h"

#include <string>

namespace Winch {

/// Puts errors into words: `error->accept(text)` gives `FILE:LINE:COLUMN: WORDS`.
///
/// The core has numbers only, so that each host finds its own words. This one has some for the commonest
/// numbers; the library `Slate::host` has them for all.
class ErrorText : public Slate::ErrorVisitor {
  public:
    /// Errors with nothing but a place.
    std::string visitError(Slate::Error const& error) override;

    /// Errors with one string: mostly the name that the error is about.
    std::string visitStringParameterError(Slate::StringParameterError const& error) override;

    /// Attributes that need one another.
    std::string visitCycleFoundError(Slate::CycleFoundError const& error) override;
};

} // namespace Winch
