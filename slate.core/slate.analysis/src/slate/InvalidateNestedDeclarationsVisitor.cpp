#include "slate/InvalidateNestedDeclarationsVisitor.h"

#include "slate/Annotation.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

InvalidateNestedDeclarationsVisitor::InvalidateNestedDeclarationsVisitor(
    std::shared_ptr<ErrorReporter> error_reporter)
    : error_reporter_(std::move(error_reporter)) {}

void InvalidateNestedDeclarationsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    if (node->isNestedDeclaration()) {
        auto const model = node->getOwningModel();
        auto const position = node->getPath().front().position();
        error_reporter_->reportError(Error::create(ErrNestedDeclaration, position.line, position.column,
                                                   model ? model->getSourceIdOrDefault() : ""));
        node->setValid(false);
    }
    acceptAll(node->getAnnotations());
    acceptAll(node->getMembers());
}

} // namespace Slate::Analysis
