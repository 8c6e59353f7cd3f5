#pragma once

#include "slate/Error.h"

#include <map>
#include <string>

namespace Slate::Fuzz {

/// The texts by the ids that errors name them by.
using SourceTexts = std::map<std::string, std::string>;

/// A line for each error that stands neither inside its source nor at the end of one of its lines, as
/// `Testing::dumpError`; errors without a place and errors of other sources have none.
///
/// Where a token is missing the place may be that of the blank in front of it and of the token itself, up to
/// two columns behind the end of the line. The column of a malformed expression is that of the token which
/// does not fit, and this may stand on a later line than the one reported; or it is the end of the token
/// before it, and a text over several lines counts as if it stood on one. A missing value names the source of
/// what has none, and stands where the model that is unfolded holds it: perhaps in another one.
std::string describeMisplaced(Errors const& errors, SourceTexts const& sources);

} // namespace Slate::Fuzz
