#pragma once

#include "slate/NodeTypes.h"
#include "slate/refactor/ReplaceOp.h"

#include <string>
#include <vector>

namespace Slate::Refactor {

/// Works out the text edits of a rename or a move, and changes neither sources nor trees.
///
/// `documents` must have been analysed: the edits follow what the analysis bound. Empty pointers among them
/// are skipped. The edits come document by document as each tree is walked, which is not always the order of
/// the text; those of one document do not overlap. Without anything of the old name there are none.
///
/// Names are dotted: a model with its namespace, `Shapes.Solids.Body`; an attribute or a method with its
/// model, `Shapes.Solids.Body.mass`. What stands where is left to the host: a moved declaration is to be
/// moved into a source of the new namespace, and the sources of a renamed namespace into another directory or
/// bundle.
class Toolkit {
  public:
    Toolkit() = delete;

    /// A reference names the model in full afterwards, however it did before.
    static std::vector<ReplaceOp> renameModel(vec<DocPtr> documents, std::string old_name_with_namespace,
                                              std::string new_name);
    static std::vector<ReplaceOp> moveModel(vec<DocPtr> documents, std::string model_name_with_namespace,
                                            std::string new_namespace);
    static std::vector<ReplaceOp> moveAndRenameModel(vec<DocPtr> documents,
                                                     std::string model_name_with_namespace,
                                                     std::string new_namespace, std::string new_name);

    /// A reference keeps its number of names, so one with more of them than the new namespace has stays.
    /// Logs an error for each written type with a namespace that means nothing where it stands.
    static std::vector<ReplaceOp> renameNamespace(vec<DocPtr> documents, std::string old_namespace,
                                                  std::string new_namespace);

    static std::vector<ReplaceOp> renameAttribute(vec<DocPtr> documents, std::string old_name_with_path,
                                                  std::string new_name);
    static std::vector<ReplaceOp> renameMethod(vec<DocPtr> documents, std::string old_name_with_path,
                                               std::string new_name);
};

} // namespace Slate::Refactor
