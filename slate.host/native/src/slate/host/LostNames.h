#pragma once

#include "slate/host/Diagnostic.h"
#include "slate/host/Workspace.h"

#include <string>
#include <vector>

namespace Slate::Host {

/// What is gone through an error, as keys: a declaration that could not be read or was dropped, the members
/// that a model would have had, a name at top level, a value.
std::vector<std::string> lostNames(Site const& site, Diagnostic const& diagnostic);

/// What an error misses, as keys of the same kind, the most likely reason first.
std::vector<std::string> missedNames(Site const& site, Diagnostic const& diagnostic);

} // namespace Slate::Host
