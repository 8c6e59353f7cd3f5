#pragma once

#include <cstdint>
#include <string>

namespace Slate::Refactor {

/// An edit of one source: the text of a range gives way to another one.
///
/// Lines and columns count from 1 and columns count bytes, as in tokens. The range is half open: `end_column`
/// stands just behind its last character.
struct ReplaceOp {
    std::string source_id; // `Document::getSourceId` of the document to change
    std::uint64_t from_line = 0;
    std::uint64_t from_column = 0;
    std::uint64_t end_line = 0;
    std::uint64_t end_column = 0;
    std::string new_content;
};

} // namespace Slate::Refactor
