#pragma once

#include "Refactoring.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Refactor {

/// A refactoring as a host does it.
struct Step {
    Operation edits;
    /// What the edits leave to the host.
    std::function<void(std::vector<Testing::Source>&)> finish = [](std::vector<Testing::Source>&) {};
};

/// A refactoring and the one that undoes it.
struct Trip {
    Step there;
    Step back;
    std::string new_root; // the model to evaluate in between
    /// What the text of the objects holds in between, and what it held before; replaced in this order.
    std::vector<std::pair<std::string, std::string>> names;
    /// Else references are written otherwise afterwards, and the way there is gone once more.
    bool restores_bytes = true;
    /// Else the attributes may be evaluated, and so printed, in another order.
    bool keeps_order = true;
};

/// Fails the running test unless there are no mistakes after the way there, the objects are the same but for
/// the name, and the way back restores the sources. Answers how many edits the way there had.
std::size_t checkRoundTrip(std::vector<Testing::Source> const& sources, std::string const& root,
                           Trip const& trip);

/// Of a full name.
std::string spaceOf(std::string const& full_name);
std::string lastOf(std::string const& full_name);

} // namespace Slate::Refactor
