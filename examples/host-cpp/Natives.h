#pragma once

#include "slate/EvaluatorContext.h"

namespace Winch {

/// Tells a context what stands behind the signatures of `winch.slate`. Once a context, before it loads.
void registerNatives(Slate::Core::EvaluatorContext& natives);

} // namespace Winch
