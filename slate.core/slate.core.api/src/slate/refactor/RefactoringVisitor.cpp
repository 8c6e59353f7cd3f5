#include "slate/refactor/RefactoringVisitor.h"

#include "slate/Document.h"

namespace Slate::Refactor {

void RefactoringVisitor::visitDocument(DocPtr const& node) {
    document_ = node;
    acceptAll(node->getMembers());
    document_.reset();
}

void RefactoringVisitor::replace(Token const& first, Token const& last, std::string const& new_content) {
    ops_.push_back({document_ ? document_->getSourceId() : std::string(), first.line, first.column, last.line,
                    last.endColumn(), new_content});
}

} // namespace Slate::Refactor
