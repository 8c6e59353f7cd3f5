#pragma once

#include "slate/AnalysisContext.h"
#include "slate/ErrorReporter.h"
#include "slate/NodeTypes.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate::Testing {

/// A source to analyse. The directories of its path are its namespace, and the path is its source id.
struct Source {
    std::string path;
    std::string text;
};

/// What to analyse, and how.
struct AnalysisInput {
    std::vector<Source> sources; // in the order of the analysis
    bool nested_declarations_allowed = true;
    /// The model to unfold, by its name with namespace, looked up as it was parsed; empty: the last one of
    /// the last source.
    std::string model;
    bool unfolds_model = true;
};

/// Reads an input from one text: sources behind lines like "=== shapes/body.slate" (a text that begins with
/// no such line is the source "test.slate"), and the lines "=== model: shapes.Body", "=== no model" and
/// "=== no nested declarations".
AnalysisInput readAnalysisInput(std::string const& text);

/// Sources that were parsed and analysed, their dependency order included.
struct Analyzed {
    vec<DocPtr> documents;
    std::shared_ptr<ErrorReporter> reporter;
    std::shared_ptr<Analysis::AnalysisContext> context;
    ModelDeclPtr model; // the one unfolded, or empty

    /// A line each, "test.slate: 20001 3:12 'Body'".
    std::string errors() const;

    /// The evaluation order as full path strings, a line each.
    std::string order() const;

    /// As `dumpBindings`, document by document.
    std::string bindings() const;

    /// As `dumpTree`, document by document.
    std::string trees() const;

    /// The model of that name with namespace; fails the test if there is none.
    ModelDeclPtr findModel(std::string const& name) const;

    /// Analyses the same documents once more, with a new reporter.
    void analyzeAgain();

    AnalysisInput input;
};

Analyzed analyze(AnalysisInput input);

/// The same for a text for `readAnalysisInput`, indented as a raw string.
Analyzed analyze(std::string const& raw_text);

/// The errors of `analyze` alone; without the source id if there is one source.
std::string errorsOf(std::string const& raw_text);

/// What the analysis bound, as text: parents, traits with what was copied into them, for each attribute its
/// type and target declarations, and expressions with the types of all their parts.
std::string dumpBindings(Document& document);

/// An expression with the types of its parts: "(a:Int + 2.5:Real):Real"; "?" where there is none, and "!" in
/// front of what is invalid.
std::string dumpTypes(ExpressionPtr const& expression);

} // namespace Slate::Testing
