#pragma once

// Short ways to make the documents and bundles that the tests are about.

#include "slate/BundleLookup.h"
#include "slate/NodeTypes.h"
#include "slate/Token.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Slate::Analysis {
class AnalysisContext;
} // namespace Slate::Analysis

namespace Slate::Testing {

/// The words between the separators; none for an empty text.
std::vector<std::string> words(std::string_view text, char separator = '.');

/// The tokens of a path with a blank between each two: "a b [ ]".
TokenVector path(std::string_view tokens);

/// The document of a text without faults, in which every node knows its owner.
DocPtr document(std::vector<std::string> const& name_space, std::string const& raw_source);

/// The same with the words of a dotted text as its namespace.
DocPtr document(char const* dotted_namespace, std::string const& raw_source);

/// The bundle of these documents; an empty pointer stands for a source that is not parsed.
Analysis::BundleLookup bundle(std::string const& name, vec<DocPtr> const& documents);

/// The context of one bundle.
std::unique_ptr<Analysis::AnalysisContext> contextOf(vec<DocPtr> const& documents);

/// The member at that place among the document's members, as what it is.
ModelDeclPtr modelAt(DocPtr const& document, std::size_t position);
VarAssignPtr variableAt(DocPtr const& document, std::size_t position);
OpOverloadPtr overloadAt(DocPtr const& document, std::size_t position);

/// The member of a model that is an attribute.
VarAssignPtr attributeAt(ModelDeclPtr const& model, std::size_t position);

} // namespace Slate::Testing
