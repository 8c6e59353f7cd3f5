#pragma once

#include "slate/ErrorCode.h"
#include "slate/ErrorVisitor.h"
#include "slate/Position.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Slate {

/// The record of one mistake in a source: a number and a place. Immutable; lives in shared pointers.
class Error {
  protected:
    /// Asked for by every constructor, so that only the factories can make errors.
    struct CreateKey {
        explicit CreateKey() = default;
    };

  public:
    /// `source_id` may be empty; line and column 0 mean no position.
    static std::shared_ptr<Error> create(error_code_t error_code, line_t line, col_t column,
                                         std::string const& source_id);

    Error(CreateKey, error_code_t error_code, line_t line, col_t column, std::string source_id)
        : error_code_(error_code), line_(line), column_(column), source_id_(std::move(source_id)) {}

    Error(Error const&) = delete;
    Error& operator=(Error const&) = delete;

    /// Calls the visitor's operation for this class and returns what that returns.
    virtual std::string accept(ErrorVisitor& visitor) const;

    virtual ~Error() = default;

    error_code_t getErrorCode() const { return error_code_; }

    line_t getLine() const { return line_; }

    col_t getColumn() const { return column_; }

    std::string getSourceId() const { return source_id_; }

  private:
    error_code_t const error_code_;
    line_t const line_;
    col_t const column_;
    std::string const source_id_;
};

/// Errors in the order in which they were reported.
using Errors = std::vector<std::shared_ptr<Error>>;

} // namespace Slate
