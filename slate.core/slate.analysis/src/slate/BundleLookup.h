#pragma once

#include "slate/DocumentContext.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate::Analysis {

/// The sources of one bundle.
struct BundleLookup {
    std::string bundle_name;
    std::vector<std::shared_ptr<DocumentContext>> documents;
};

} // namespace Slate::Analysis
