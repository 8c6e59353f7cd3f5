#pragma once

#include "slate/CompactString.h"
#include "slate/Link.h"
#include "slate/Token.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Slate {

/// One step of a path through an unfolded model.
///
/// A type step is a model or a trait, through which what follows is inherited. Every other step is a member
/// step: one segment of an attribute's target path, or an annotation. A step does not keep its node alive;
/// once the node's tree is gone the step answers as one without a node.
class PathStep {
  public:
    /// `index` is the place of the segment in the target path of an attribute, 1 for an annotation.
    PathStep(NodePtr const& node, std::string_view name, std::size_t index);

    NodePtr getNode() const { return node_.lock(); }

    /// The type of what the segment leads to, as seen from the root of the path; empty until set.
    TypePtr getOuterType() const { return outer_type_.get(); }

    /// A note on the step, which changes nothing of what it is.
    void setOuterType(TypePtr const& outer_type) const { outer_type_.set(outer_type); }

    /// The name of the segment; empty for a type step. Kept by this step.
    std::string_view getName() const { return name_.view(); }

    std::size_t getIndex() const { return index_; }

    /// The name in the source; for an attribute its segment at `index`, without a node `None`.
    Token getToken() const;

    /// The document in which the step is written; for a trait that of the model that says `with`.
    DocPtr getDocument() const;

    /// Of that document; "<null>" without one.
    std::string getSourceId() const;

    /// A model is its own, a trait has its target, an annotation that of its value, an attribute the bound
    /// one or that of its target declaration at `index`.
    TypePtr getType() const;

    /// The value of an attribute; empty for all else.
    ExpressionPtr getExpression() const;

    /// For a model its name with namespace, else `getName`.
    std::string getText() const;

    bool isInherited() const { return !is_member_; }

    bool isMember() const { return is_member_; }

    /// A const model.
    bool isModel() const;

    bool isSameNode(PathStep const& other) const;

    /// Two models and two traits are compared by node, all else by name.
    bool operator==(PathStep const& other) const;

  private:
    std::weak_ptr<Node> node_;
    [[no_unique_address]] mutable TypeLink outer_type_; // the next two stand in its padding
    bool is_member_;
    std::uint32_t index_;
    CompactString name_;
};

} // namespace Slate
