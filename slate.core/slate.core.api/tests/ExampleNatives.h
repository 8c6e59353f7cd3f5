#pragma once

#include "slate/EvaluatorContext.h"

namespace Slate::Testing {

/// What the models of `examples` leave to native code: the classes of motors and drums, the choice of a
/// motor, and the operators of mass points.
void registerExampleNatives(Core::EvaluatorContext& natives);

} // namespace Slate::Testing
