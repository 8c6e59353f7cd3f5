#include "slate/BindLhsTypesVisitor.h"

#include "slate/AnalysisErrors.h"
#include "slate/ModelDeclaration.h"
#include "slate/NamePath.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <utility>

namespace Slate::Analysis {

namespace {

ModelDeclPtr modelOf(TypePtr const& type) { return type ? type->asModelDeclaration() : nullptr; }

bool redeclaresSymbol(VarAssignment const& node) { return node.getOperatorType() == TokenType::Becomes; }

bool declaresItself(VarAssignment const& node) {
    return node.getPath().size() == 1 && node.getOperatorType() == TokenType::Is;
}

/// The most frequent kind of attribute, for which nothing is to be looked up.
bool isPlainDeclaration(VarAssignment const& node) {
    return declaresItself(node) && node.getMembers().empty();
}

} // namespace

std::size_t BindLhsTypesVisitor::Target::lastIndex() const { return node->getPath().size() - 1; }

bool BindLhsTypesVisitor::Target::redeclares(std::size_t index) const {
    return index == lastIndex() && redeclaresSymbol(*node);
}

BindLhsTypesVisitor::BindLhsTypesVisitor(std::shared_ptr<ErrorReporter> error_reporter,
                                         InheritedNames const& names)
    : error_reporter_(std::move(error_reporter)), names_(names) {}

void BindLhsTypesVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    if (node->isTrait())
        return;
    current_model_ = node;
    acceptAll(node->getTraits());
    acceptAll(node->getMembers());
    current_model_.reset();
}

void BindLhsTypesVisitor::visitTraitImpl(TraitImplPtr const& node) { visitMembersOf(*node); }

void BindLhsTypesVisitor::visitVarAssignment(VarAssignPtr const& node) {
    if (!node->isValid())
        return;
    if (isPlainDeclaration(*node)) {
        if (node->getOwningModel())
            node->setTargetsItself();
        return;
    }
    // An attribute that knows none around it begins anew.
    vec<CompactToken const*> segments_before;
    auto const offset = node->getParent() ? full_segments_.size() : 0;
    if (!node->getParent())
        segments_before = std::exchange(full_segments_, {});
    for (auto const& segment : node->getPath())
        full_segments_.push_back(&segment);

    if (!node->getOwningModel() || bindTarget(node, offset))
        visitBody(node);

    full_segments_.resize(offset);
    if (!node->getParent())
        full_segments_ = std::move(segments_before);
}

void BindLhsTypesVisitor::visitBody(VarAssignPtr const& node) {
    if (node->getMembers().empty())
        return;
    auto const types_before = enclosing_types_.size();
    auto const declarations_before = enclosing_declarations_;

    EnclosingType last{0, nullptr};
    auto const declarations = node->getTargetDeclarations();
    for (std::size_t i = 0; i < declarations.size(); ++i) {
        bool const is_own = i + 1 == declarations.size() && node->isDeclaration();
        auto const declared = is_own ? node : declarations[i];
        if (auto model = modelOf(declared ? declared->getOwnType() : nullptr))
            last = {declarations_before + i, std::move(model)};
    }
    if (last.model)
        enclosing_types_.push_back(std::move(last));
    enclosing_declarations_ += declarations.size();

    acceptAll(node->getMembers());

    enclosing_declarations_ = declarations_before;
    enclosing_types_.resize(types_before, {0, nullptr});
}

/// Answers whether the body of the assignment is to be visited.
bool BindLhsTypesVisitor::bindTarget(VarAssignPtr const& node, std::size_t offset) {
    if (declaresItself(*node)) {
        node->setTargetsItself();
        return true;
    }
    Target target{node, offset, {}};
    if (!resolve(target))
        return false;
    node->setTargetDeclarations(target.declarations);
    return !redeclaresSymbol(*node) || checkRedeclaration(node, target.declarations.back());
}

bool BindLhsTypesVisitor::resolve(Target& target) {
    auto& node = *target.node;
    auto model = current_model_;
    for (std::size_t i = 0; i <= target.lastIndex(); ++i) {
        if (i == target.lastIndex() && node.getOperatorType() == TokenType::Is) {
            target.declarations.push_back(target.node);
            break;
        }
        if (!model) {
            // The text is cut by the segments of the assignments around this one.
            auto const count = i + 1 > target.offset ? i + 1 - target.offset : 0;
            reportNotFound(node, i, node.getNameUpTo(count));
            return false;
        }
        auto declaration = findDeclaration(target, i);
        if (!declaration) {
            reportNotFound(node, i, node.getNameUpTo(i + 1));
            return false;
        }
        model = modelOf(declaration->getOwnType());
        target.declarations.push_back(std::move(declaration));
    }
    return true;
}

VarAssignPtr BindLhsTypesVisitor::findDeclaration(Target const& target, std::size_t index) const {
    auto const last_ix = index + target.offset;
    auto declaration =
        target.redeclares(index) ? findRedeclared(target, last_ix) : search(current_model_, 0, last_ix);
    if (!declaration)
        declaration = findInEnclosingTypes(last_ix);
    if (!declaration)
        declaration = findInTypesOnTheWay(target, index);
    return declaration;
}

/// What is redeclared is inherited: the model's own declaration is not meant.
VarAssignPtr BindLhsTypesVisitor::findRedeclared(Target const& target, std::size_t last_ix) const {
    auto declaration = search(current_model_->getExtends(), 0, last_ix);
    auto const& traits = current_model_->getTraits();
    for (auto trait = traits.begin(); !declaration && trait != traits.end(); ++trait)
        declaration = search((*trait)->getTraitDeclaration(), 0, last_ix);
    auto const owner = target.node->getOwningModel();
    if (!declaration && owner != current_model_ && owner->isTrait())
        declaration = search(owner->getExtends(), 0, last_ix);
    return declaration;
}

/// Outermost first. Types that are too far away for any symbol to reach are passed over.
VarAssignPtr BindLhsTypesVisitor::findInEnclosingTypes(std::size_t last_ix) const {
    auto const reach = names_.countSegmentsOfLongestSymbol();
    auto const nearest = last_ix > reach ? last_ix - reach : 0;
    auto type = std::ranges::lower_bound(enclosing_types_, nearest, {}, &EnclosingType::segment_ix);
    for (; type != enclosing_types_.end(); ++type) {
        if (auto declaration = search(type->model, type->segment_ix + 1, last_ix))
            return declaration;
    }
    return {};
}

/// The same for the types of the segments in front.
VarAssignPtr BindLhsTypesVisitor::findInTypesOnTheWay(Target const& target, std::size_t index) const {
    auto const reach = names_.countSegmentsOfLongestSymbol();
    for (auto i = index > reach ? index - reach : 0; i < index; ++i) {
        auto const model = modelOf(target.declarations[i]->getOwnType());
        if (auto declaration = search(model, i + 1 + target.offset, index + target.offset))
            return declaration;
    }
    return {};
}

VarAssignPtr BindLhsTypesVisitor::search(ModelDeclPtr const& model, std::size_t first_ix,
                                         std::size_t last_ix) const {
    if (!model || last_ix - first_ix >= names_.countSegmentsOfLongestSymbol())
        return {};
    return names_.lookupDeclaration(*model, joinNames(full_segments_, first_ix, last_ix + 1));
}

/// A redeclaration may only narrow the type, and nothing may have been declared inside of what it replaces.
bool BindLhsTypesVisitor::checkRedeclaration(VarAssignPtr const& node, VarAssignPtr const& redeclared) {
    auto const extended = node->getOwningModel()->getExtends();
    if (extended && names_.isExtendedSymbol(*extended, joinNames(full_segments_, full_segments_.size()))) {
        reportMismatch(*node, node->getSourceId());
        return false;
    }
    auto const type = node->getOwnType();
    if (type && !names_.isAssignable(type, redeclared->getOwnType()))
        reportMismatch(*node, current_model_->getSourceIdOrDefault());
    return true;
}

void BindLhsTypesVisitor::reportNotFound(VarAssignment& node, std::size_t index, std::string const& name) {
    auto const position = node.getPath()[index].position();
    error_reporter_->reportError(
        VariableNotFound::create(position.line, position.column, node.getSourceId(), name));
    node.setValid(false);
}

void BindLhsTypesVisitor::reportMismatch(VarAssignment& node, std::string const& source_id) {
    auto const position = (node.isDeclaration() ? node.getTypePath() : node.getPath()).front().position();
    error_reporter_->reportError(Error::create(ErrTypeMismatch, position.line, position.column, source_id));
    node.setValid(false);
}

} // namespace Slate::Analysis
