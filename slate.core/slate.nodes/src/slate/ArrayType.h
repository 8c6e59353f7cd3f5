#pragma once

#include "slate/Link.h"

namespace Slate {

/// The type of an array: declared (`Real[]`, the element is a type) or that of a literal (the element is the
/// `Array` expression, whose entries are asked one by one).
class ArrayType : public Type, public std::enable_shared_from_this<ArrayType> {
  public:
    /// `element` is a type, an `Array` expression, or empty for a type that is not known yet.
    static ArrayTypePtr create(NodePtr const& element);

    ArrayType(CreateKey, NodePtr const& element);

    ArrayTypePtr asArrayType() override { return shared_from_this(); }

    TypePtr asType() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    std::string toString() const override;
    std::string toKey() const override;

    /// Compares the element types; the entries of an array literal are tested each by itself.
    bool isAssignableTo(TypePtr const& other) const override;

    NodePtr getElement() const { return element_.get(); }

    void setElement(NodePtr const& element) { element_.set(element); }

    /// True for the type of the literal `[]`, which fits every array type and is fitted by every array type.
    bool isEmptyArray() const { return is_empty_array_; }

    void setIsEmptyArray(bool is_empty_array) { is_empty_array_ = is_empty_array; }

  private:
    TypePtr getElementType() const;

    Link<Node> element_;
    bool is_empty_array_ = false;
};

} // namespace Slate
