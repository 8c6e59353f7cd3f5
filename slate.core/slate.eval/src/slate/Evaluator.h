#pragma once

#include "slate/ExpressionEvaluator.h"
#include "slate/PointerMap.h"
#include "slate/TopologicalPath.h"

#include <memory>
#include <string>

namespace Slate::Core {

/// Turns a model whose evaluation order is known into a tree of objects. Const instances live as long as the
/// evaluator, so they are shared by all models that it evaluates.
class Evaluator {
  public:
    Evaluator(std::shared_ptr<EvaluatorContext> evaluator_context,
              std::shared_ptr<ErrorReporter> error_reporter);
    Evaluator(Evaluator const&) = delete;
    Evaluator& operator=(Evaluator const&) = delete;

    virtual ~Evaluator();

    /// The object of the model; empty if an attribute on the way to another one is no object. A value that
    /// cannot be had is left out, and the rest evaluated. All objects that can be reached are registered in
    /// the context.
    ObjectPtr evalModel(ModelDeclPtr const& model);

    /// The object that holds the place at the end of the path, without the last `skip` steps; empty if there
    /// is none. Objects on the way come into being.
    ObjectPtr getOrCreateTargetInstance(ObjectPtr const& instance, TopoPathPtr const& path, std::size_t skip);

  private:
    using Chain = TopologicalPath::Chain;

    enum class Outcome {
        Done,
        /// The value cannot be had.
        NoValue,
        /// There is no object that could hold it: the whole evaluation ends.
        Unresolved,
    };

    Outcome evaluatePath(ObjectPtr const& root, TopoPathPtr const& path);
    Outcome annotate(ObjectPtr const& root, TopoPathPtr const& path, AnnotationPtr const& annotation);
    /// `attribute` is null if the step is none.
    Any valueOf(PathStep const& step, VarAssignment const* attribute, ObjectPtr const& target);
    void assign(std::string_view key, ObjectPtr const& target, Any value, bool is_default);

    /// The object that a chain leads to from `instance`, or empty; `is_in_value` then tells whether something
    /// on the way is a plain value.
    ObjectPtr findTarget(ObjectPtr const& instance, Chain const* chain, bool& is_in_value);
    ObjectPtr rootOf(ObjectPtr const& instance, PathStep const& first);
    ObjectPtr takeStep(ObjectPtr const& instance, ObjectPtr const& object, Chain const& link,
                       bool& is_in_value);
    void dropInstances();
    void registerObjects(ObjectPtr const& root);

    std::shared_ptr<EvaluatorContext> evaluator_context_;
    std::shared_ptr<ErrorReporter> error_reporter_;
    std::shared_ptr<ExpressionEvaluator> expression_evaluator_;

    /// Where chains of the model at hand lead, so that each step is taken once. Dropped when something may
    /// have been replaced. Native objects may answer differently each time, so what they hold is always asked
    /// for.
    PointerMap<Chain, ObjectPtr> instances_;
    Chain const* last_link_ = nullptr; // where the last search led
    ObjectPtr last_instance_;
    bool keeps_instances_ = false;      // only while a model is evaluated
    std::size_t replacements_seen_ = 0; // when the instances were last dropped
    std::string unresolved_step_;       // at which the last search ended
};

} // namespace Slate::Core
