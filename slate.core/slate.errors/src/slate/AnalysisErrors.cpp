#include "slate/AnalysisErrors.h"

#include "slate/Node.h"

namespace Slate {

namespace {

/// None where a host made the link without a name for it.
Position beginOf(TokenVector const& segments) {
    return segments.empty() ? Position() : segments.front().position();
}

} // namespace

std::shared_ptr<TypeNotFound> TypeNotFound::create(TokenVector const& type_segments,
                                                   std::string const& source_id) {
    auto const first = beginOf(type_segments);
    return std::make_shared<TypeNotFound>(CreateKey(), ErrTypeNotFound, first.line, first.column, source_id,
                                          Node::segmentsAsString(type_segments));
}

std::shared_ptr<VariableNotFound>
VariableNotFound::create(line_t line, col_t column, std::string const& source_id, std::string const& name) {
    return std::make_shared<VariableNotFound>(CreateKey(), ErrVariableNotFound, line, column, source_id,
                                              name);
}

std::shared_ptr<MethodNotFound> MethodNotFound::create(Token const& name_token,
                                                       std::string const& method_path,
                                                       std::string const& source_id) {
    return std::make_shared<MethodNotFound>(CreateKey(), ErrMethodNotFound, name_token.line,
                                            name_token.column, source_id, method_path);
}

std::shared_ptr<MemberNotFound> MemberNotFound::create(Token const& member_token,
                                                       std::string const& source_id) {
    return std::make_shared<MemberNotFound>(CreateKey(), ErrMemberNotFound, member_token.line,
                                            member_token.column, source_id, member_token.lexeme);
}

std::shared_ptr<SymbolAlreadyDefined> SymbolAlreadyDefined::create(line_t line, col_t column,
                                                                   std::string const& source_id,
                                                                   std::string const& name) {
    return std::make_shared<SymbolAlreadyDefined>(CreateKey(), ErrSymbolAlreadyDefined, line, column,
                                                  source_id, name);
}

std::shared_ptr<SymbolAlreadyAssigned> SymbolAlreadyAssigned::create(Token const& identifier,
                                                                     std::string const& source_id) {
    return std::make_shared<SymbolAlreadyAssigned>(CreateKey(), ErrSymbolAlreadyAssigned, identifier.line,
                                                   identifier.column, source_id, identifier.lexeme);
}

std::shared_ptr<ExpectedTrait> ExpectedTrait::create(TokenVector const& segments,
                                                     std::string const& source_id) {
    auto const first = beginOf(segments);
    return std::make_shared<ExpectedTrait>(CreateKey(), ErrExpectedTrait, first.line, first.column, source_id,
                                           Node::segmentsAsString(segments));
}

std::shared_ptr<MissingAssignmentError> MissingAssignmentError::create(line_t line, col_t column,
                                                                       std::string const& source_id,
                                                                       std::string const& var_decl_path) {
    return std::make_shared<MissingAssignmentError>(CreateKey(), ErrMissingAssignment, line, column,
                                                    source_id, var_decl_path);
}

std::shared_ptr<CircularDependency> CircularDependency::create(line_t line, col_t column,
                                                               std::string const& source_id,
                                                               std::string const& cyclic_nodes) {
    return std::make_shared<CircularDependency>(CreateKey(), ErrCircularDependency, line, column, source_id,
                                                cyclic_nodes);
}

} // namespace Slate
