#include "slate/refactor/Toolkit.h"

#include "slate/Document.h"
#include "slate/Join.h"
#include "slate/refactor/MoveAndRenameModelVisitor.h"
#include "slate/refactor/QualifiedName.h"
#include "slate/refactor/RenameAttributeVisitor.h"
#include "slate/refactor/RenameMethodVisitor.h"
#include "slate/refactor/RenameNamespaceVisitor.h"

namespace Slate::Refactor {

namespace {

std::vector<ReplaceOp> collectOps(vec<DocPtr> const& documents, RefactoringVisitor&& visitor) {
    for (auto const& document : documents) {
        if (document)
            document->accept(visitor);
    }
    return visitor.getOps();
}

} // namespace

// NOLINTBEGIN(performance-unnecessary-value-param): hosts see arguments by value

std::vector<ReplaceOp> Toolkit::renameModel(vec<DocPtr> documents, std::string old_name_with_namespace,
                                            std::string new_name) {
    auto const parts = splitName(old_name_with_namespace);
    auto const end_of_namespace = parts.empty() ? parts.end() : parts.end() - 1;
    return collectOps(documents,
                      MoveAndRenameModelVisitor(std::move(old_name_with_namespace),
                                                join(parts.begin(), end_of_namespace, "."), new_name));
}

std::vector<ReplaceOp> Toolkit::moveModel(vec<DocPtr> documents, std::string model_name_with_namespace,
                                          std::string new_namespace) {
    auto const parts = splitName(model_name_with_namespace);
    return collectOps(documents,
                      MoveAndRenameModelVisitor(std::move(model_name_with_namespace), new_namespace,
                                                parts.empty() ? std::string() : parts.back()));
}

std::vector<ReplaceOp> Toolkit::moveAndRenameModel(vec<DocPtr> documents,
                                                   std::string model_name_with_namespace,
                                                   std::string new_namespace, std::string new_name) {
    return collectOps(documents, MoveAndRenameModelVisitor(std::move(model_name_with_namespace),
                                                           new_namespace, std::move(new_name)));
}

std::vector<ReplaceOp> Toolkit::renameNamespace(vec<DocPtr> documents, std::string old_namespace,
                                                std::string new_namespace) {
    return collectOps(documents, RenameNamespaceVisitor(std::move(old_namespace), new_namespace));
}

std::vector<ReplaceOp> Toolkit::renameAttribute(vec<DocPtr> documents, std::string old_name_with_path,
                                                std::string new_name) {
    return collectOps(documents, RenameAttributeVisitor(std::move(old_name_with_path), std::move(new_name)));
}

std::vector<ReplaceOp> Toolkit::renameMethod(vec<DocPtr> documents, std::string old_name_with_path,
                                             std::string new_name) {
    return collectOps(documents, RenameMethodVisitor(std::move(old_name_with_path), std::move(new_name)));
}

// NOLINTEND(performance-unnecessary-value-param)

} // namespace Slate::Refactor
