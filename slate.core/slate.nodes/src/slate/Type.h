#pragma once

#include "slate/Node.h"

#include <string>

namespace Slate {

/// What an expression or an attribute can have as its type.
class Type : public Node {
  public:
    /// The name for messages.
    virtual std::string toString() const = 0;

    /// A name of letters, digits and "_", used in keys of tables and in signatures of methods and operators.
    virtual std::string toKey() const = 0;

    /// May a value of this type stand where `other` is expected?
    virtual bool isAssignableTo(TypePtr const& other) const = 0;

  protected:
    using Node::Node;
};

} // namespace Slate
