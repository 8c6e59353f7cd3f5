#pragma once

#include "slate/host/Workspace.h"

namespace Slate::Host {

/// The type whose members were searched for the name at the place of a 20002 or 20004: that of what stands
/// before the dot, of the attribute around, or else the model itself. Empty if it is not known.
TypePtr searchedType(Site const& site);

/// Does the place lie in the target of an assignment or declaration?
bool isInTarget(Site const& site);

} // namespace Slate::Host
