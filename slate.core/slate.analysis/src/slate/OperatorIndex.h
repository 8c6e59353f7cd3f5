#pragma once

#include "slate/NodeTypes.h"
#include "slate/OperandTypes.h"
#include "slate/Token.h"

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace Slate::Analysis {

/// The operator overloads of a set of documents, found by operator and operand types.
///
/// A look-up costs as much as there are types to which the operands are assignable, not as there are
/// overloads; only for the literals of arrays and initializers it compares all types that operands can have.
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
    OpOverloadPtr findBinary(TokenType op, TypePtr const& lhs, TypePtr const& rhs) const;
    OpOverloadPtr findUnary(TokenType op, TypePtr const& operand) const;

    /// Is there another overload of the same operator with as many parameters, whose types can be assigned to
    /// those of this one, or the other way round, each for itself? Two overloads without parameters are
    /// equal whatever their operators are.
    bool hasEqual(OperatorOverload const& overload) const;

  private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    /// The overloads for the same operand types: the place of the first one among all, and their number.
    struct Same {
        std::size_t first_place = none;
        std::size_t count = 0;

        void add(std::size_t place);
    };

    /// The overloads of one operator by their operand types. More than two operands no overload has that the
    /// analysis lets pass.
    struct Group {
        OperandTypes<Same> unary;
        OperandTypes<OperandTypes<Same>> binary;
    };

    void add(OpOverloadPtr const& overload);
    OpOverloadPtr overloadAt(std::size_t place) const;

    std::vector<std::pair<DocPtr, std::size_t>> documents_; // with the revision read
    std::vector<OpOverloadPtr> overloads_;
    std::map<TokenType, Group> groups_;
    std::size_t without_operands_ = 0;
};

} // namespace Slate::Analysis
