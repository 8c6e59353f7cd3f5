#include "slate/MemberWalk.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"

namespace Slate::Analysis {

void MemberWalk::visitDocument(DocPtr const& node) { acceptAll(node->getMembers()); }

void MemberWalk::visitModelDeclaration(ModelDeclPtr const& node) { acceptAll(node->getMembers()); }

void MemberWalk::visitMembersOf(TraitImpl const& trait) {
    vec<TraitImpl const*> chain; // of any length, so no recursion
    for (auto const* entry = &trait; entry != nullptr; entry = entry->getNestedTrait().get())
        chain.push_back(entry);
    for (auto entry = chain.rbegin(); entry != chain.rend(); ++entry)
        acceptAll((*entry)->getMembers());
}

} // namespace Slate::Analysis
