#include "ErrorText.h"

#include "CsvPlugin.h"
#include "slate/CycleFoundError.h"
#include "slate/ErrorCode.h"
#include "slate/StringParameterError.h"

#include <filesystem>

namespace Winch {

namespace {

using namespace Slate;

/// `FILE:LINE:COLUMN: `; line 0 means that the error has no place in the file.
std::string placeOf(Error const& error) {
    auto place = std::filesystem::path(error.getSourceId()).filename().string();
    if (error.getLine() != 0)
        place += ":" + std::to_string(error.getLine()) + ":" + std::to_string(error.getColumn());
    return place + ": ";
}

std::string wordsOf(error_code_t code) {
    switch (code) {
    case ErrBadExpression: return "this is no complete expression";
    case ErrTypeNotFound: return "there is no type of that name";
    case ErrVariableNotFound: return "there is no attribute or variable of that name";
    case ErrMemberNotFound: return "what stands before the point has no such member";
    case ErrTypeMismatch: return "the value is not of the type that is asked for here";
    case ErrMissingAssignment: return "this attribute has no value";
    case ErrNativeCallFailed: return "the host has no answer to this call";
    case ErrFileNotFound: return "there is no such file";
    case err_no_row_model: return "a table needs the model of its rows: `import ... as Model`";
    case err_wrong_cell_count: return "this row has not as many cells as the first one";
    default: return "error " + std::to_string(code);
    }
}

} // namespace

std::string ErrorText::visitError(Error const& error) {
    return placeOf(error) + wordsOf(error.getErrorCode());
}

std::string ErrorText::visitStringParameterError(StringParameterError const& error) {
    return placeOf(error) + wordsOf(error.getErrorCode()) + ": `" + error.getStringParameter() + "`";
}

std::string ErrorText::visitCycleFoundError(CycleFoundError const& error) {
    return placeOf(error) + "these need one another: " + error.getCyclicNodesAsString();
}

} // namespace Winch
