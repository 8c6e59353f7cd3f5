#include "slate/host/Workspace.h"

#include "slate/CycleFoundError.h"
#include "slate/Document.h"
#include "slate/DocumentContext.h"
#include "slate/ModelDeclaration.h"
#include "slate/SlateContextInternal.h"
#include "slate/StringParameterError.h"
#include "slate/VarAssignment.h"

#include <utility>

namespace Slate::Host {

namespace {

std::vector<DocPtr> documentsOf(Core::Api::SlateContext const& context) {
    std::vector<DocPtr> documents;
    for (auto const& source : context.getInternal().getDocuments()) {
        if (source->document)
            documents.push_back(source->document);
    }
    return documents;
}

/// The texts that the core has read go before what the files hold now.
void addTexts(Core::Api::SlateContext const& context, SourceTexts& texts) {
    for (auto const& source : context.getInternal().getDocuments()) {
        auto const id = source->document ? source->document->getSourceId() : source->path.string();
        bool const has_text = source->path != "<document>";
        if (has_text && !texts.contains(id))
            texts.add(id, source->source);
    }
}

class Strings : public ErrorVisitor {
  public:
    std::string visitError(Error const& /*error*/) override { return {}; }

    std::string visitCycleFoundError(CycleFoundError const& error) override {
        all = {error.getModelName(), error.getCyclicNodesAsString()};
        return {};
    }

    std::string visitStringParameterError(StringParameterError const& error) override {
        all = {error.getStringParameter()};
        return {};
    }

    std::vector<std::string> all;
};

} // namespace

Workspace::Workspace(Core::Api::SlateContext const& context, SourceTexts& texts)
    : texts_(texts), trees_(documentsOf(context)) {
    addTexts(context, texts_);
}

SourceView* Workspace::findSource(std::string const& source_id) {
    auto known = sources_.find(source_id);
    if (known == sources_.end()) {
        auto const* const text = texts_.find(source_id);
        auto view = text == nullptr ? nullptr : std::make_unique<SourceView>(source_id, *text);
        known = sources_.emplace(source_id, std::move(view)).first;
    }
    return known->second.get();
}

Site::Site(Workspace& all, Error const& reported) : workspace(all), error(reported) {
    Strings visitor;
    error.accept(visitor);
    strings = std::move(visitor.all);
    source = workspace.findSource(error.getSourceId());
    if (source == nullptr)
        return;
    Position const place{error.getLine(), error.getColumn()};
    token = source->tokens.find(place);
    statement_position = source->outline.findAt(place);
    if (statement_position != Statement::none)
        statement = &source->outline.get(statement_position);
}

VarAssignPtr Site::findAttribute() const {
    if (!hasStatement() || statement->kind != StatementKind::Attribute)
        return {};
    auto const& name = source->tokens.getAll()[statement->name_first];
    return workspace.trees().findAttribute(error.getSourceId(), name.position());
}

VarAssignPtr Site::findOuterAttribute() const {
    if (!hasStatement() || statement->parent == Statement::none)
        return {};
    auto const& outer = source->outline.get(statement->parent);
    auto const& name = source->tokens.getAll()[outer.name_first];
    return workspace.trees().findAttribute(error.getSourceId(), name.position());
}

ModelDeclPtr Site::findModel() const {
    if (!hasStatement())
        return {};
    auto const& root = source->outline.get(source->outline.rootOf(statement_position));
    auto const& name = source->tokens.getAll()[root.name_first];
    return workspace.trees().findModel(error.getSourceId(), name.position());
}

std::string Site::modelName() const {
    return hasStatement() ? source->outline.get(source->outline.rootOf(statement_position)).name : "";
}

std::vector<ExpressionPtr> Site::findExpressions() const {
    auto const attribute = findAttribute();
    return attribute ? workspace.trees().findExpressions(attribute, {error.getLine(), error.getColumn()})
                     : std::vector<ExpressionPtr>();
}

SourceRange placeOf(Workspace& workspace, std::string const& source_id, Token const& name) {
    auto const* const source = workspace.findSource(source_id);
    return source == nullptr ? SourceRange{source_id, name.line, name.column, name.line, name.endColumn()}
                             : source->tokens.rangeOf(name);
}

SourceRange placeOf(Workspace& workspace, ModelDeclaration const& model) {
    return placeOf(workspace, model.getSourceIdOrDefault(), model.getNameToken());
}

SourceRange placeOf(Workspace& workspace, VarAssignment const& attribute) {
    return attribute.getPath().empty()
               ? SourceRange()
               : placeOf(workspace, attribute.getSourceId(), attribute.getPath().front().get());
}

std::string quoted(std::string_view text) {
    return text.find('`') == std::string_view::npos ? "`" + std::string(text) + "`" : std::string(text);
}

} // namespace Slate::Host
