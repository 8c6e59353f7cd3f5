#pragma once

#include "slate/refactor/ReplaceOp.h"
#include "slate/testing/Analyze.h"

#include <string>
#include <vector>

// What a host does with the edits of a refactoring, and with what they leave to it.

namespace Slate::Testing {

/// The sources after the edits, whatever order these come in. Throws `std::runtime_error` if an edit is of no
/// source, reaches beyond its text, or overlaps another.
std::vector<Source> applyOps(std::vector<Source> sources, std::vector<Refactor::ReplaceOp> const& ops);

/// An edit and the text that it covers: "near/body.slate 1:1-1:5 'Body' => 'Hull'". Throws as `applyOps`.
std::string describeOp(std::vector<Source> const& sources, Refactor::ReplaceOp const& op);

/// Moves a top-level declaration, from the line that begins with `head` to the last one of its body, to the
/// end of another source, which is made if there is none. A source that has nothing left goes. Throws
/// `std::runtime_error` if nothing begins so.
void moveDeclaration(std::vector<Source>& sources, std::string const& from_path, std::string const& head,
                     std::string const& to_path);

/// Moves the sources that lie in a directory itself to another one.
void moveDirectory(std::vector<Source>& sources, std::string const& from, std::string const& to);

} // namespace Slate::Testing
