#pragma once

#include "slate/host/SourceTokens.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Slate::Host {

enum class StatementKind {
    Model,
    Attribute, // also a variable at top level
    Method,
    TraitEntry,
    Deletion,
    Annotation,
    Import,
    Operator,
    Unknown,
};

/// A declaration, assignment or the like as it is written, whether it could be read or not.
struct Statement {
    static constexpr auto none = static_cast<std::size_t>(-1);

    StatementKind kind = StatementKind::Unknown;
    /// Its tokens, bodies not included: from `first` to just before `end`.
    std::size_t first = 0;
    std::size_t end = 0;
    /// The statement in whose body it stands by its indentation, or `none`.
    std::size_t parent = none;
    /// The tokens of its name: one, or for a dotted target all segments with their dots.
    std::size_t name_first = 0;
    std::size_t name_end = 0;
    /// The dotted name, or empty.
    std::string name;
    /// Behind `is` or `becomes`.
    std::size_t type_first = 0;
    std::size_t type_end = 0;
    bool is_declaration = false;
    bool is_trait = false;
    bool is_const = false;
};

/// The statements of a source, read off its lines and columns alone. Where the parser gives up, this still
/// has the name of what was meant and where it belongs.
class Outline {
  public:
    explicit Outline(SourceTokens const& tokens);

    std::vector<Statement> const& getStatements() const { return statements_; }

    Statement const& get(std::size_t statement) const { return statements_[statement]; }

    SourceTokens const& getTokens() const { return *tokens_; }

    /// The innermost statement in which the place lies: the last one that begins there or before. `none` for
    /// a place in front of all.
    std::size_t findAt(Position place) const;

    /// The statement at top level around a statement, perhaps this itself.
    std::size_t rootOf(std::size_t statement) const;

    /// The dotted path of an attribute from its model; empty for a model, and beyond a depth of 32.
    std::string pathOf(std::size_t statement) const;

    /// The first statement of that parent (`none` for top level) with that name, or `none`.
    std::size_t findChild(std::size_t parent, std::string_view name) const;

    /// The names of the parent's statements and where they are, each once.
    std::unordered_map<std::string, std::size_t> const& childrenOf(std::size_t parent) const;

    /// The type as written, without blanks.
    std::string typeOf(Statement const& statement) const;

    SourceRange nameRange(Statement const& statement) const;

    /// The tokens of the statement, its body not included.
    SourceRange rangeOf(Statement const& statement) const;

  private:
    void read();
    bool beginsStatement(std::size_t token) const;
    void addStatement(std::size_t first, std::size_t end);
    void readName(Statement& statement, std::size_t token) const;
    void classify(Statement& statement) const;
    TokenType typeAt(std::size_t token, std::size_t end) const;

    SourceTokens const* tokens_;
    std::vector<Statement> statements_;
    std::vector<std::size_t> open_; // the statements in whose bodies the next one may stand
    std::unordered_map<std::size_t, std::unordered_map<std::string, std::size_t>> children_;
};

} // namespace Slate::Host
