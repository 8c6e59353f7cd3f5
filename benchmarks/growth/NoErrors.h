#pragma once

namespace Slate::Core::Api {
class SlateContext;
} // namespace Slate::Core::Api

namespace Slate::Benchmarks {

/// Throws `std::logic_error`, with the first of them, if there are errors: what is measured would be another
/// thing.
void requireNoErrors(Core::Api::SlateContext const& context);

} // namespace Slate::Benchmarks
