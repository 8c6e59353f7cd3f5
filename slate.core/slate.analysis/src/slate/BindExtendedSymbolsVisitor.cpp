#include "slate/BindExtendedSymbolsVisitor.h"

#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

void BindExtendedSymbolsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    node->clearExtendedSymbols();
    for (auto const& member : node->getMembers()) {
        // Nearly all attributes declare one name and nothing inside of it: nothing of them is recorded.
        auto const* const attribute = attributeIn(member.get());
        if (attribute != nullptr && (attribute->getPath().size() > 1 || !attribute->getMembers().empty()))
            accept(member);
    }
}

void BindExtendedSymbolsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    FullPath::At const here(full_path_, *node);
    auto const model = node->getOwningModel();
    if (model && node->isNestedDeclaration())
        model->setIsExtendedSymbol(full_path_.textWithoutLastSegment(*node));
    acceptAll(node->getMembers());
}

} // namespace Slate::Analysis
