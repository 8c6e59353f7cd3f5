#pragma once

#include "slate/Error.h"
#include "slate/SlateContext.h"
#include "slate/host/Diagnostic.h"
#include "slate/host/Outline.h"
#include "slate/host/SourceTexts.h"
#include "slate/host/SourceTokens.h"
#include "slate/host/TreeIndex.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Slate::Host {

/// What is known of a source while its errors are worded.
struct SourceView {
    SourceView(std::string const& source_id, LinedText const& text)
        : tokens(source_id, text), outline(tokens) {}

    SourceView(SourceView const&) = delete;
    SourceView& operator=(SourceView const&) = delete;

    SourceTokens tokens;
    Outline outline;
};

/// What the wording of a context's errors shares: its sources as written and its trees as analysed. Lives for
/// one call of `describeErrors`.
class Workspace {
  public:
    Workspace(Core::Api::SlateContext const& context, SourceTexts& texts);

    /// Null if the text is not to be had.
    SourceView* findSource(std::string const& source_id);

    TreeIndex& trees() { return trees_; }

    /// The pieces of work that searches for names may still take. They end when it is used up, so that many
    /// errors among many names take no more than linear time.
    std::size_t comparisons_left = 5'000'000;

  private:
    SourceTexts& texts_;
    TreeIndex trees_;
    std::unordered_map<std::string, std::unique_ptr<SourceView>> sources_;
};

/// An error and what stands at its place.
struct Site {
    Site(Workspace& all, Error const& reported);

    bool hasToken() const { return token != SourceTokens::none; }

    bool hasStatement() const { return statement != nullptr; }

    /// The token at the place; asked only if there is one.
    Token const& getToken() const { return source->tokens.getAll()[token]; }

    /// The attribute of the statement as analysed, or empty.
    VarAssignPtr findAttribute() const;

    /// The model around the place as analysed, or empty.
    ModelDeclPtr findModel() const;

    /// The statement's attribute around this one as analysed, or empty.
    VarAssignPtr findOuterAttribute() const;

    /// The name of the model around the place as it is written.
    std::string modelName() const;

    std::vector<ExpressionPtr> findExpressions() const;

    Workspace& workspace;
    Error const& error;
    std::vector<std::string> strings;
    SourceView* source = nullptr;
    std::size_t token = SourceTokens::none;
    std::size_t statement_position = Statement::none;
    Statement const* statement = nullptr;
};

/// The place of a declaration, or one without lines if its text is not to be had.
SourceRange placeOf(Workspace& workspace, std::string const& source_id, Token const& name);
SourceRange placeOf(Workspace& workspace, ModelDeclaration const& model);
SourceRange placeOf(Workspace& workspace, VarAssignment const& attribute);

/// The text in backquotes; one that holds some itself stands as it is.
std::string quoted(std::string_view text);

} // namespace Slate::Host
