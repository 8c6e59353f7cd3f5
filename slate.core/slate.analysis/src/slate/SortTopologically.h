#pragma once

#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"
#include "slate/SymbolTree.h"

#include <memory>

namespace Slate {

/// Orders the attributes of the unfolded models so that each stands behind all that it reads, and stores the
/// order on the model (`ModelDeclaration::getTopologicalSort`): attributes of empty models, values, then
/// annotations. Of the paths that could come next, the one that became ready last does.
///
/// Reports assignments through attributes of const models (20012) and traits (20018), and attributes that
/// depend on one another (20008): these are marked and stand behind all other values.
void sortTopologically(ModelDeclPtr const& model, std::shared_ptr<SymbolTree> const& tree,
                       std::shared_ptr<ErrorReporter> const& reporter);

} // namespace Slate
