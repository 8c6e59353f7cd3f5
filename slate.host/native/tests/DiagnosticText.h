#pragma once

#include "slate/host/Diagnostic.h"

#include <string>
#include <vector>

namespace Slate::Host {

/// Diagnostics as text: number and marked source, message, hint, notes, and the place of the cause.
std::string textOf(std::vector<Diagnostic> const& diagnostics);

} // namespace Slate::Host
