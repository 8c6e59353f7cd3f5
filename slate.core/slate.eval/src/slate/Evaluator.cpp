#include "slate/Evaluator.h"

#include "slate/Annotation.h"
#include "slate/Document.h"
#include "slate/Log.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <span>
#include <typeinfo>

namespace Slate::Core {

namespace {

using Chain = TopologicalPath::Chain;

/// As the sort has set it, else the step's own.
TypePtr typeOf(PathStep const& step) {
    auto type = step.getOuterType();
    return type ? type : step.getType();
}

/// The name of the object that a path leads to. For a const root it begins with the root's own name, for any
/// other one with the name of the type of the instance that stands for it.
std::string nameOf(Object const& instance, Chain const& chain) {
    std::vector<Chain const*> links;
    for (auto const* link = &chain; link->getPrevious(); link = link->getPrevious().get())
        links.push_back(link);
    auto const& first = chain.getFirst()->getStep();
    auto const type = instance.getType();
    auto name = first.isModel() ? first.getText() : type ? type->getName() : std::string();
    for (auto link = links.rbegin(); link != links.rend(); ++link) {
        if ((*link)->getStep().isMember())
            name.append(".").append((*link)->getStep().getName());
    }
    return name;
}

/// Type steps lead from an object to itself.
Chain const* withoutTypeSteps(Chain const* chain) {
    auto const* const member = chain == nullptr ? nullptr : chain->getLastMember();
    return member == nullptr && chain != nullptr ? chain->getFirst() : member;
}

bool isVariableWithoutValue(PathStep const& first) {
    if (!first.isMember())
        return false;
    auto const node = first.getNode();
    auto const* const variable = attributeIn(node.get());
    return variable != nullptr && !variable->getValue();
}

bool isPlain(Object const& object) { return typeid(object) == typeid(Object); }

} // namespace

Evaluator::Evaluator(std::shared_ptr<EvaluatorContext> evaluator_context,
                     std::shared_ptr<ErrorReporter> error_reporter)
    : evaluator_context_(std::move(evaluator_context)),
      error_reporter_(std::move(error_reporter)),
      expression_evaluator_(std::make_shared<ExpressionEvaluator>(evaluator_context_, error_reporter_)) {}

Evaluator::~Evaluator() = default;

ObjectPtr Evaluator::evalModel(ModelDeclPtr const& model) {
    auto const paths = model->shareTopologicalSort();
    dropInstances(); // also of one that a native has ended by an exception
    keeps_instances_ = true;
    auto const end = [this](ObjectPtr const& object) {
        keeps_instances_ = false;
        dropInstances();
        return object;
    };
    if (auto document = model->getOwningDocument())
        expression_evaluator_->setDocument(std::move(document));
    auto root = expression_evaluator_->getOrCreateInstance(model, nullptr);
    root->setName(model->getName());
    root->reserveAttributes(model->countMembers());
    for (auto const& path : paths ? std::span(*paths) : std::span<TopoPathPtr const>()) {
        if (!path->isValid() || path->getLastStep() == nullptr)
            continue;
        auto const outcome = evaluatePath(root, path);
        if (outcome == Outcome::Unresolved)
            return end(nullptr);
        // The text is only made for those who read it; what failed has reported or logged the cause.
        if (outcome == Outcome::NoValue && spdlog::should_log(spdlog::level::debug))
            SLATE_LOG_DEBUG("Failed to evaluate value of assignment to {}", path->toFullString());
    }
    registerObjects(root);
    return end(root);
}

Evaluator::Outcome Evaluator::evaluatePath(ObjectPtr const& root, TopoPathPtr const& path) {
    if (isVariableWithoutValue(path->getChain()->getFirst()->getStep()))
        return Outcome::Done;
    auto const& step = *path->getLastStep();
    auto const node = step.getNode();
    if (node && node->isAnnotation())
        return annotate(root, path, node->asAnnotation());

    auto const* const outer = withoutTypeSteps(path->getOuterLink());
    auto const* const holder = withoutTypeSteps(path->getChain()->getPrevious().get());
    bool is_in_value = false;
    auto const current = outer == nullptr ? root : findTarget(root, outer, is_in_value);
    // Native objects are asked twice, for they may answer differently.
    bool const is_same = outer == holder && (holder == nullptr || holder == last_link_);
    auto const target = is_same || !current ? current : findTarget(root, holder, is_in_value);
    if (!target) {
        // Once more, which logs where it ends.
        getOrCreateTargetInstance(root, current ? path : path->getOuterPath(), current ? 1 : 0);
        return Outcome::Unresolved;
    }
    auto const* const attribute = attributeIn(node.get());
    expression_evaluator_->setCurrentObject(current);
    if (auto document = attribute == nullptr ? step.getDocument() : attribute->getOwningDocument())
        expression_evaluator_->setDocument(std::move(document));
    auto value = valueOf(step, attribute, target);
    if (auto const count = expression_evaluator_->countReplacements(); count != replacements_seen_) {
        replacements_seen_ = count;
        dropInstances();
    }
    if (value.isUndefined())
        return Outcome::NoValue;
    assign(step.getName(), target, std::move(value), attribute != nullptr && attribute->isDeclaration());
    return Outcome::Done;
}

/// A plain value has nothing for an annotation to land on.
Evaluator::Outcome Evaluator::annotate(ObjectPtr const& root, TopoPathPtr const& path,
                                       AnnotationPtr const& annotation) {
    bool is_in_value = false;
    auto const target = findTarget(root, path->getChain()->getPrevious().get(), is_in_value);
    if (target)
        target->appendToAnnotations(annotation);
    else if (!is_in_value && !getOrCreateTargetInstance(root, path, 1))
        return Outcome::Unresolved;
    return Outcome::Done;
}

Any Evaluator::valueOf(PathStep const& step, VarAssignment const* attribute, ObjectPtr const& target) {
    auto const type = typeOf(step);
    // Natives may take the value away meanwhile.
    if (auto const expression = attribute == nullptr ? nullptr : attribute->getValue())
        return expression_evaluator_->evaluate(expression, type);
    auto const model = type ? type->asModelDeclaration() : nullptr;
    return model ? Any(expression_evaluator_->getOrCreateInstance(model, target)) : Any();
}

void Evaluator::assign(std::string_view key, ObjectPtr const& target, Any value, bool is_default) {
    auto const object = value.isObject() ? value.asObject() : nullptr;
    auto const type = object ? object->getType() : nullptr;
    // The instances of const models belong to nobody.
    if (object && !(type && type->isConst())) {
        if (object->getName().empty())
            object->setName(target->getName() + "." + std::string(key));
        if (!object->getOwner())
            object->setOwner(target);
    }
    if (isPlain(*target)) {
        if (target->assign(key, std::move(value), is_default))
            dropInstances();
        return;
    }
    dropInstances();
    std::string const name(key);
    target->setDynamic(name, std::move(value));
    if (is_default)
        target->setIsDefault(name);
}

ObjectPtr Evaluator::getOrCreateTargetInstance(ObjectPtr const& instance, TopoPathPtr const& path,
                                               std::size_t skip) {
    if (path->countSteps() <= skip)
        return path->countSteps() == 0 ? nullptr : instance;
    auto const shortened = skip == 0 ? path : path->prefix(path->countSteps() - skip);
    bool is_in_value = false;
    auto target = findTarget(instance, shortened->getChain().get(), is_in_value);
    if (!target)
        SLATE_LOG_ERROR("target type of {} in {} not found", unresolved_step_, path->toMemberString());
    return target;
}

/// Step by step from the last instance that is known for a part of the chain.
ObjectPtr Evaluator::findTarget(ObjectPtr const& instance, Chain const* chain, bool& is_in_value) {
    if (chain == nullptr)
        return instance;
    if (chain == last_link_)
        return last_instance_;
    std::vector<Chain const*> ahead;
    auto const* link = chain;
    auto const* known = instances_.find(link);
    while (link->getPrevious() && known == nullptr) {
        ahead.push_back(link);
        link = link->getPrevious().get();
        known = instances_.find(link);
    }
    auto current = known != nullptr ? *known : rootOf(instance, link->getStep());
    bool is_known_to_stay = true;
    for (auto next = ahead.rbegin(); next != ahead.rend(); ++next) {
        auto const& step = (*next)->getStep();
        is_known_to_stay = is_known_to_stay && isPlain(*current);
        if (step.isMember()) {
            current = takeStep(instance, current, **next, is_in_value);
            if (!current) {
                unresolved_step_ = step.getName();
                return {};
            }
        }
        if (is_known_to_stay && keeps_instances_)
            instances_[*next] = current;
    }
    if (is_known_to_stay && keeps_instances_) {
        last_link_ = chain;
        last_instance_ = current;
    }
    return current;
}

void Evaluator::dropInstances() {
    instances_.clear();
    last_link_ = nullptr;
    last_instance_.reset();
}

/// What the first step stands for.
ObjectPtr Evaluator::rootOf(ObjectPtr const& instance, PathStep const& first) {
    auto const model = first.isModel() ? first.getNode()->asModelDeclaration() : nullptr;
    return model ? expression_evaluator_->getOrCreateInstance(model, nullptr) : instance;
}

/// The object that the attribute of a step holds; made if the attribute has no value yet.
ObjectPtr Evaluator::takeStep(ObjectPtr const& instance, ObjectPtr const& object, Chain const& link,
                              bool& is_in_value) {
    auto const& step = link.getStep();
    std::string const name(step.getName());
    auto const value = object->getDynamic(name);
    if (!value.isUndefined()) {
        is_in_value = !value.isObject();
        return value.isObject() ? value.asObject() : nullptr;
    }
    auto const type = typeOf(step);
    auto const model = type ? type->asModelDeclaration() : nullptr;
    if (!model)
        return {};
    auto next = expression_evaluator_->getOrCreateInstance(model, object);
    if (!model->isConst())
        next->setName(nameOf(*instance, link));
    object->setDynamic(name, Any(next));
    return next;
}

void Evaluator::registerObjects(ObjectPtr const& root) {
    evaluator_context_->registerObject(root);
    evaluator_context_->registerObjectsIn(*root);
    for (auto const& instance : expression_evaluator_->getConstInstances())
        evaluator_context_->registerObjectsIn(*instance);
}

} // namespace Slate::Core
