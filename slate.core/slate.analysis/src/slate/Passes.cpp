#include "slate/Passes.h"

#include "slate/BindExpressionTypesVisitor.h"
#include "slate/BindExtendedSymbolsVisitor.h"
#include "slate/BindImplicitRhsVisitor.h"
#include "slate/BindLhsTypesVisitor.h"
#include "slate/BindOwningModelAndDocumentVisitor.h"
#include "slate/BindTraitsVisitor.h"
#include "slate/Document.h"
#include "slate/InheritedNames.h"
#include "slate/InvalidateGlobalDuplicateSymbolsVisitor.h"
#include "slate/InvalidateLocalDuplicateSymbolsVisitor.h"
#include "slate/InvalidateNestedDeclarationsVisitor.h"
#include "slate/Pass1Visitor.h"
#include "slate/Pass2Visitor.h"
#include "slate/ValidateTraitsVisitor.h"

namespace Slate::Analysis {

namespace {

using Sources = std::vector<std::shared_ptr<DocumentContext>>;

void visitAll(Sources const& sources, NodeVisitor&& visitor) {
    for (auto const& source : sources)
        source->document->accept(visitor);
}

bool bindOwners(Sources const& sources) {
    BindOwningModelAndDocumentVisitor visitor;
    for (auto const& source : sources) {
        if (!source->document)
            return false;
        source->document->accept(visitor);
    }
    return true;
}

} // namespace

bool runPasses(Sources const& sources, std::shared_ptr<AnalysisContext> const& context,
               bool nested_declarations_allowed) {
    if (!bindOwners(sources))
        return false;
    auto const reporter = context->getErrorReporter();
    if (!nested_declarations_allowed)
        visitAll(sources, InvalidateNestedDeclarationsVisitor(reporter));
    visitAll(sources, InvalidateLocalDuplicateSymbolsVisitor(reporter));
    visitAll(sources, Pass1Visitor(context));
    visitAll(sources, BindExtendedSymbolsVisitor());
    visitAll(sources, BindImplicitRhsVisitor());
    visitAll(sources, ValidateTraitsVisitor(reporter, ModelHierarchy(context->findAllDocuments())));
    visitAll(sources, BindTraitsVisitor(reporter));
    visitAll(sources, Pass2Visitor(context));

    InheritedNames const names(context->findAllDocuments());
    visitAll(sources, BindLhsTypesVisitor(reporter, names));
    visitAll(sources, InvalidateGlobalDuplicateSymbolsVisitor(context->countSymbols(), reporter, names));
    visitAll(sources, BindExpressionTypesVisitor(context, reporter, names));
    return true;
}

} // namespace Slate::Analysis
