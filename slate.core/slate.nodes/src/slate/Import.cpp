#include "slate/Import.h"

#include "slate/Annotation.h"
#include "slate/NodeVisitor.h"

namespace Slate {

ImportPtr Import::create(Token path_token, TokenVector alias_segments, vec<AnnotationPtr> annotations) {
    return std::make_shared<Import>(CreateKey(), std::move(path_token), std::move(alias_segments),
                                    std::move(annotations));
}

Import::Import(CreateKey, Token&& path_token, TokenVector&& alias_segments, vec<AnnotationPtr>&& annotations)
    : Node(NodeType::Import),
      path_token_(std::move(path_token)),
      alias_segments_(std::move(alias_segments)),
      annotations_(std::move(annotations)) {}

void Import::accept(NodeVisitor& visitor) { visitor.visitImport(shared_from_this()); }

void Import::unbind() {
    document_.reset();
    owning_document_.reset();
    for (auto const& annotation : annotations_)
        annotation->unbind();
}

} // namespace Slate
