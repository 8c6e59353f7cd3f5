#pragma once

#include "slate/host/Diagnostic.h"
#include "slate/host/Workspace.h"

#include <vector>

namespace Slate::Host {

/// Sets the cause of each diagnostic that only follows from another one. `sites` are those of the
/// diagnostics, one by one. Linear in their number.
void findCauses(std::vector<Site> const& sites, std::vector<Diagnostic>& diagnostics);

} // namespace Slate::Host
