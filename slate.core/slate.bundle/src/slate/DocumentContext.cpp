#include "slate/DocumentContext.h"

#include "slate/Document.h"

#include <new>

namespace Slate {

void DocumentContext::replaceDocument(DocPtr replacement) {
    try {
        if (document && document.use_count() == 1)
            document->unbind();
    } catch (std::bad_alloc const&) { // then it goes without being unbound: the destructor comes here too
    }
    document = std::move(replacement);
}

} // namespace Slate
