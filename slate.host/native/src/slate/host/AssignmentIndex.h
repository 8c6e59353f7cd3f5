#pragma once

// Internal to the order of evaluation.

#include "slate/Fnv1a.h"
#include "slate/NodeTypes.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace Slate::Host {

/// The assignments of models by the dotted path of what they assign to. Looks each model up once.
class AssignmentIndex {
  public:
    /// Appends all assignments of a value to `path` in an object of that model, strongest first: those of the
    /// model itself, of its traits, of what it extends.
    void collect(ModelDeclPtr const& model, std::string_view path, vec<VarAssignPtr>& found);

  private:
    using Assignments = StringMap<vec<VarAssignPtr>>;

    vec<ModelDeclPtr> const& lineageOf(ModelDeclPtr const& model);
    Assignments const& assignmentsOf(ModelDeclPtr const& model);

    std::unordered_map<ModelDeclPtr, vec<ModelDeclPtr>> lineages_;
    std::unordered_map<ModelDeclPtr, Assignments> assignments_;
};

} // namespace Slate::Host
