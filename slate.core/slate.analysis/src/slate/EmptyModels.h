#pragma once

#include "slate/NodeTypes.h"
#include "slate/PointerMap.h"

namespace Slate {

/// Which models are empty (`ModelDeclaration::isEmpty`), each worked out once however many models lead to it.
/// To be dropped before the tree changes.
class EmptyModels {
  public:
    bool isEmpty(ModelDeclPtr const& model);

    /// Is it a model, and empty?
    bool isEmptyModel(TypePtr const& type);

  private:
    void explore(ModelDeclaration const& model);

    PointerMap<ModelDeclaration, bool> is_empty_;
};

} // namespace Slate
