#pragma once

#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Slate::Analysis {

/// The operator overloads of a set of documents, found by operator and operand types.
///
/// A look-up compares only the overloads whose first parameter can accept the first operand: those that ask
/// for its primitive type, for its model or for one that this is assignable to (for any model, if it is an
/// initializer), and all that ask for something else.
class OperatorIndex {
  public:
    OperatorIndex() = default;

    /// Reads the overloads of the documents, in order, and keeps the documents. Types that are bound to
    /// parameters afterwards are not seen.
    explicit OperatorIndex(std::vector<DocPtr> const& documents);

    std::size_t countDocuments() const { return documents_.size(); }

    /// Was this the document read at the position, and is it unchanged since?
    bool isReadAt(std::size_t position, DocPtr const& document) const;

    /// The first overload of that operator with one parameter for each operand, each accepting its operand;
    /// empty if there is none, or if an operand has no type.
    OpOverloadPtr find(TokenType op, std::vector<TypePtr> const& operands) const;

  private:
    /// The places of overloads among all, ascending.
    using Places = std::vector<std::size_t>;

    /// The overloads of one operator with one number of parameters, by what the first parameter asks for.
    struct Group {
        std::unordered_map<void const*, Places> by_model;
        std::map<std::int32_t, Places> by_primitive_kind;
        Places others;
    };

    using GroupKey = std::pair<TokenType, std::size_t>;

    void add(OpOverloadPtr const& overload);
    static Places findCandidates(Group const& group, TypePtr const& first_operand);

    std::vector<std::pair<DocPtr, std::size_t>> documents_; // with the revision read
    std::vector<OpOverloadPtr> overloads_;
    std::map<GroupKey, Group> groups_;
};

} // namespace Slate::Analysis
