#pragma once

#include "slate/Any.h"
#include "slate/NodeTypes.h"

namespace Slate::Core {

/// What the literal of an annotation means: a `Real` for any number, also behind a minus, a `Bool` or a
/// `String`; `Undefined` for all else.
Any valueOf(Annotation const& annotation);

} // namespace Slate::Core
