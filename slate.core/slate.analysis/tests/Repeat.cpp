#include "Repeat.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/testing/Parse.h"

namespace Slate::Testing {

void unbind(Analyzed const& analyzed) {
    for (auto const& document : analyzed.documents)
        document->unbind();
}

std::string parsedTrees(AnalysisInput const& input) {
    std::string text;
    for (auto const& source : input.sources)
        text += parse(source.text, source.path).tree();
    return text;
}

std::size_t countCopies(Analyzed const& analyzed) {
    std::size_t count = 0;
    for (auto const& document : analyzed.documents) {
        for (auto const& member : document->getMembers()) {
            auto const model = member->asModelDeclaration();
            for (auto const& trait : model ? model->getTraits() : vec<TraitImplPtr>{}) {
                for (auto entry = trait; entry; entry = entry->getNestedTrait())
                    count += 1 + entry->getMembers().size() + entry->getAnnotations().size();
            }
        }
    }
    return count;
}

} // namespace Slate::Testing
