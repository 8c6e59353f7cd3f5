#pragma once

#include "slate/host/Workspace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Slate::Host {

enum class WantedType : std::uint8_t { Any, Model, Trait };

/// The type that a name without a meaning at the site was most likely meant to be, as it can be written
/// there; empty if none is near enough. The names in front of the last one can be misspelled too, missing or
/// too many.
std::string nearestType(Site const& site, std::string_view name, WantedType wanted);

} // namespace Slate::Host
