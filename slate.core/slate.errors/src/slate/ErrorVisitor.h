#pragma once

#include <string>

namespace Slate {

class Error;
class CycleFoundError;
class StringParameterError;

/// What hosts implement to put an error into words. The core itself holds no words: a visitor tells the named
/// errors apart by their number or by a cast.
class ErrorVisitor {
  public:
    ErrorVisitor() = default;
    ErrorVisitor(ErrorVisitor const&) = default;
    ErrorVisitor& operator=(ErrorVisitor const&) = default;

    virtual std::string visitError(Error const& error) = 0;
    virtual std::string visitCycleFoundError(CycleFoundError const& error) = 0;
    virtual std::string visitStringParameterError(StringParameterError const& error) = 0;

    virtual ~ErrorVisitor() = default;
};

} // namespace Slate
