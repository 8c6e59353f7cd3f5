#pragma once

#include <cstddef>
#include <string>

namespace Slate::Benchmarks {

/// A source without mistakes as engineers write them, of about `size` bytes: models with comments,
/// annotations, traits, methods, nested bodies and expressions of all kinds. The same size gives the same
/// text.
std::string generateSource(std::size_t size);

} // namespace Slate::Benchmarks
