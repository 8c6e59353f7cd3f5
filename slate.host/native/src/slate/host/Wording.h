#pragma once

#include "slate/host/Diagnostic.h"
#include "slate/host/Workspace.h"

#include <span>
#include <string>
#include <string_view>

namespace Slate::Host {

/// How the errors of a number are worded with what their sources say. The diagnostic comes with the words of
/// the table and the token at the place; `describe` makes them more exact and adds hint and notes.
struct Wording {
    error_code_t code;
    void (*describe)(Site const& site, Diagnostic& diagnostic);
};

std::span<Wording const> syntaxWordings();
std::span<Wording const> nameWordings();
std::span<Wording const> typeWordings();
std::span<Wording const> modelWordings();
std::span<Wording const> circleWordings();
std::span<Wording const> valueWordings();

// What the wordings share.

void addNote(Diagnostic& diagnostic, SourceRange const& place, std::string message);

/// "did you mean `NAME`?", unless the name is empty.
void suggest(Diagnostic& diagnostic, std::string_view name);

/// The type as users write it, with its namespace if it is a model: "Real", "drives.Motor[]"; "a list" for
/// what stands in braces.
std::string typeName(TypePtr const& type);

} // namespace Slate::Host
