#pragma once

#include "slate/Any.h"
#include "slate/ErrorCode.h"
#include "slate/ErrorReporter.h"
#include "slate/EvaluatorContext.h"
#include "slate/NodeTypes.h"
#include "slate/Object.h"
#include "slate/Token.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Slate::Core {

/// Works out the values of expressions, and makes the objects that these and the evaluation ask for.
///
/// What is being worked out stands on a stack of its own, so neither the length of an expression nor that of
/// a chain of variables is a depth of the C++ stack. Mistakes are reported, the reporter never throws; a
/// value that cannot be had is `Undefined`.
class ExpressionEvaluator {
  public:
    ExpressionEvaluator(std::shared_ptr<EvaluatorContext> evaluator_context,
                        std::shared_ptr<ErrorReporter> error_reporter);
    ~ExpressionEvaluator();
    ExpressionEvaluator(ExpressionEvaluator const&) = delete;
    ExpressionEvaluator& operator=(ExpressionEvaluator const&) = delete;

    /// The document in which names are looked up and which errors name; may be empty.
    void setDocument(DocPtr document) { document_ = std::move(document); }

    /// What `this` is.
    void setCurrentObject(ObjectPtr object) { current_object_ = std::move(object); }

    /// `expected_type` may be empty. `Undefined` for an invalid expression, and where the value cannot be
    /// had.
    Any evaluate(ExpressionPtr const& expression, TypePtr const& expected_type);

    /// The one instance of a const model, else a new one: of the nearest native class that is registered for
    /// the model or what it extends, or a plain object.
    ObjectPtr getOrCreateInstance(ModelDeclPtr const& model, ObjectPtr const& owner);

    /// How often something was done by which objects may hold others than before: native calls, and
    /// initializers of const models.
    std::size_t countReplacements() const { return replacements_; }

    /// The instances of const models, in the order in which they were made.
    std::vector<ObjectPtr> const& getConstInstances() const { return const_instances_; }

  private:
    struct Frame;

    // Steps of what is on top of the stack. Each either puts an operand on the stack, or takes itself off and
    // leaves a value.
    void step();
    void visitMemberAccess(Frame& frame, MemberAccess const& node);
    void visitCall(Frame& frame, Call const& node);
    void visitBinaryOp(Frame& frame, BinaryOp const& node);
    void visitUnary(Frame& frame, Unary const& node);
    void visitArray(Frame& frame, Array const& node);
    void visitIndexing(Frame& frame, Indexing const& node);
    void visitInitializer(Frame& frame, InitializerPtr const& node);
    void stepVariable(Frame& frame);

    /// Answers whether the value is there already, as that of a constant is; else it comes with the frame
    /// that now stands on the stack, if nothing failed. No reference to a frame lives on.
    bool push(ExpressionPtr const& expression, TypePtr const& expected_type);
    void pushVariable(VarAssignPtr const& variable, TypePtr const& expected_type);
    void finish(Any value);
    Any pop();

    void leave(Any value) { values_.push_back(std::move(value)); }

    void fail() { failed_ = true; }

    void noteNativeCall();

    void fail(ErrorCode code, Token const& token);

    void visitConstant(Constant const& node, TypePtr const& expected_type);
    void evaluateName(Constant const& node, TypePtr const& expected_type);
    void evaluateNumber(Constant const& node);
    void readMember(MemberAccess const& node, Any const& operand);
    void callMethod(Call const& node, MethodDeclaration const& method, Any const& receiver,
                    std::vector<Any> const& arguments);
    void callStatic(Call const& node, MethodDeclaration const& method, std::vector<Any> arguments);
    void finishCall(Call const& node, MethodDeclaration const& method, Any result);
    void finishOverload(Expression const& node, Token const& operator_token, OperatorOverload const& overload,
                        Any result);
    void computePrimitive(BinaryOp const& node, Any const& lhs, Any const& rhs);
    bool adopt(Expression const& node, Any const& value, TypePtr const& declared_type);
    NodePtr findGlobal(MemberAccess const& node) const;

    std::shared_ptr<EvaluatorContext> evaluator_context_;
    std::shared_ptr<ErrorReporter> error_reporter_;
    DocPtr document_;
    ObjectPtr current_object_;
    bool failed_ = false;
    std::vector<Frame> frames_;
    std::vector<Any> values_;

    std::unordered_map<ModelDeclaration const*, ObjectPtr> const_instance_of_model_;
    std::vector<ObjectPtr> const_instances_;
    std::unordered_map<VarAssignment const*, Any> known_variables_;
    std::unordered_set<VarAssignment const*> variables_at_work_;
    std::size_t replacements_ = 0;
    std::size_t effects_ = 0; // calls, new objects, and what was read from `this`
};

} // namespace Slate::Core
