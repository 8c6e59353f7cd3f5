#include "slate/BindExtendedSymbolsVisitor.h"

#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Analysis {

void BindExtendedSymbolsVisitor::visitModelDeclaration(ModelDeclPtr const& node) {
    node->clearExtendedSymbols();
    MemberWalk::visitModelDeclaration(node);
}

void BindExtendedSymbolsVisitor::visitVarAssignment(VarAssignPtr const& node) {
    FullPath::At const here(full_path_, *node);
    auto const model = node->getOwningModel();
    if (model && node->isNestedDeclaration())
        model->setIsExtendedSymbol(full_path_.textWithoutLastSegment(*node));
    acceptAll(node->getMembers());
}

} // namespace Slate::Analysis
