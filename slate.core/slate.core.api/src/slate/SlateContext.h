#pragma once

#include "slate/Any.h"
#include "slate/ErrorReporter.h"
#include "slate/Plugin.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate::Core {

class EvaluatorContext;

} // namespace Slate::Core

namespace Slate::Core::Api {

class SlateContextInternal;

/// What a host keeps alive between calls: search paths, documents, errors, plug-ins, natives and the last
/// analysis. It only ever grows; a fresh start is a new context. It belongs to one thread at a time.
class SlateContext {
  public:
    /// Searches the paths of `deriveBundlePaths()`.
    SlateContext();

    /// The paths are not tested before a load searches them.
    explicit SlateContext(StringVector paths);
    ~SlateContext();
    SlateContext(SlateContext const&) = delete;
    SlateContext& operator=(SlateContext const&) = delete;

    /// The directories named by `SLATE_BUNDLE_PATH`, separated by ";" on every platform; none, and an error
    /// in the log, if it is not set.
    static StringVector deriveBundlePaths();

    /// The directories in `path`, separated by ";". Empty pieces are kept.
    static StringVector deriveBundlePaths(std::string const& path);

    /// All errors reported so far, in order.
    Errors getErrors() const;
    bool hasErrors() const;

    /// The objects that evaluations have made, in no particular order.
    ObjectVector getRegisteredObjects() const;

    /// Where hosts register their natives.
    std::shared_ptr<EvaluatorContext> getEvaluatorContext() const;

    /// Lets the documents of the last analysis go; without one nothing happens.
    void release();

    /// Whether attributes may be declared inside others; true to begin with. Asked by the next analysis.
    void setNestedDeclarationsAllowed(bool allow_nested);
    bool isNestedDeclarationsAllowed() const;

    /// For the functions of the core itself.
    SlateContextInternal& getInternal() const { return *internal_; }

  private:
    std::unique_ptr<SlateContextInternal> internal_;
};

} // namespace Slate::Core::Api
