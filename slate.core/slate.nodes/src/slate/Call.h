#pragma once

#include "slate/ChainLink.h"

namespace Slate {

/// A callee with arguments in parentheses.
class Call : public ChainLink, public std::enable_shared_from_this<Call> {
  public:
    /// The span is left to the caller.
    static CallPtr create(ExpressionPtr callee, vec<ExpressionPtr> arguments, ObjectPool* pool = nullptr);

    Call(CreateKey, ExpressionPtr&& callee, vec<ExpressionPtr>&& arguments);

    CallPtr asCall() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;

    ExpressionPtr const& getCallee() const { return getChainOperand(); }

    vec<ExpressionPtr> const& getArguments() const { return arguments_; }

    /// The method called; empty until bound.
    MethodDeclPtr getMethod() const { return method_.lock(); }

    void setMethod(MethodDeclPtr const& method) { method_ = method; }

  protected:
    void unbindLink() override;
    ExpressionPtr cloneLink(ExpressionPtr chain_operand, Spans spans) const override;

  private:
    vec<ExpressionPtr> const arguments_;
    std::weak_ptr<MethodDeclaration> method_;
};

} // namespace Slate
