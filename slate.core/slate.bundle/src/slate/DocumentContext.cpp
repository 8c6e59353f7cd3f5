#include "slate/DocumentContext.h"

#include "slate/Document.h"

namespace Slate {

void DocumentContext::replaceDocument(DocPtr replacement) {
    if (document && document.use_count() == 1)
        document->unbind();
    document = std::move(replacement);
}

} // namespace Slate
