#pragma once

#include <cstddef>
#include <functional>

namespace Slate::Testing {

/// The stack that a program's main thread has, and so what every host can be expected to have.
constexpr std::size_t usual_stack_bytes = std::size_t{8} << 20U;

/// Runs a function to its end on a stack of the usual size, whatever the limits of this process are.
void runOnUsualStack(std::function<void()> const& function);

} // namespace Slate::Testing
