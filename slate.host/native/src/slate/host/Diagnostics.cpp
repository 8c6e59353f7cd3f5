#include "slate/host/Diagnostics.h"

#include "slate/SlateContext.h"
#include "slate/host/ErrorTable.h"
#include "slate/host/ErrorWords.h"
#include "slate/host/FollowUps.h"
#include "slate/host/Wording.h"
#include "slate/host/Workspace.h"

#include <algorithm>
#include <utility>

namespace Slate::Host {

namespace {

Wording const* findWording(error_code_t code) {
    for (auto const wordings : {syntaxWordings(), nameWordings(), typeWordings(), modelWordings(),
                                circleWordings(), valueWordings()}) {
        auto const found = std::ranges::find(wordings, code, &Wording::code);
        if (found != wordings.end())
            return &*found;
    }
    return nullptr;
}

SourceRange placeOf(Site const& site) {
    auto const& error = site.error;
    if (site.source != nullptr)
        return site.source->tokens.rangeAt({error.getLine(), error.getColumn()});
    return {error.getSourceId(), error.getLine(), error.getColumn(), error.getLine(), error.getColumn()};
}

Diagnostic describe(Site const& site) {
    Diagnostic diagnostic;
    ErrorWords words;
    diagnostic.code = site.error.getErrorCode();
    auto const* const kind = findErrorKind(diagnostic.code);
    diagnostic.error_class = kind == nullptr ? "Error" : std::string(kind->class_name);
    diagnostic.place = placeOf(site);
    diagnostic.strings = site.strings;
    diagnostic.message = site.error.accept(words);
    if (auto const* const wording = findWording(diagnostic.code))
        wording->describe(site, diagnostic);
    return diagnostic;
}

} // namespace

std::vector<Diagnostic> describeErrors(Core::Api::SlateContext const& context, SourceTexts& texts) {
    std::vector<Diagnostic> diagnostics;
    auto const errors = context.getErrors();
    if (errors.empty())
        return diagnostics;
    Workspace workspace(context, texts);
    std::vector<Site> sites;
    for (auto const& error : errors) {
        sites.emplace_back(workspace, *error);
        diagnostics.push_back(describe(sites.back()));
    }
    findCauses(sites, diagnostics);
    return diagnostics;
}

} // namespace Slate::Host
