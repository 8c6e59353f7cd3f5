#include "slate/SlateContext.h"

#include "slate/Log.h"
#include "slate/SlateContextInternal.h"

#include <cstdlib>

namespace Slate::Core::Api {

namespace {

StringVector split(std::string const& text, char separator) {
    StringVector pieces;
    std::size_t begin = 0;
    for (auto end = text.find(separator); end != std::string::npos; end = text.find(separator, begin)) {
        pieces.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

} // namespace

SlateContext::SlateContext() : SlateContext(deriveBundlePaths()) {}

SlateContext::SlateContext(StringVector paths)
    : internal_(std::make_unique<SlateContextInternal>(std::move(paths))) {}

SlateContext::~SlateContext() = default;

StringVector SlateContext::deriveBundlePaths() {
    auto const* path = std::getenv("SLATE_BUNDLE_PATH");
    if (path == nullptr) {
        SLATE_LOG_ERROR("SLATE_BUNDLE_PATH must be set");
        return {};
    }
    return deriveBundlePaths(path);
}

StringVector SlateContext::deriveBundlePaths(std::string const& path) {
    SLATE_LOG_DEBUG("Will load bundles from: {}", path);
    return split(path, ';');
}

Errors SlateContext::getErrors() const { return internal_->getErrorReporter()->getErrors(); }

bool SlateContext::hasErrors() const { return internal_->getErrorReporter()->getErrorCount() > 0; }

ObjectVector SlateContext::getRegisteredObjects() const {
    auto const& objects = internal_->getEvaluatorContext()->getRegisteredObjects();
    return {objects.begin(), objects.end()};
}

std::shared_ptr<EvaluatorContext> SlateContext::getEvaluatorContext() const {
    return internal_->getEvaluatorContext();
}

void SlateContext::release() {
    if (auto const analysis_context = internal_->getAnalysisContext())
        analysis_context->release();
}

void SlateContext::setNestedDeclarationsAllowed(bool allow_nested) {
    internal_->setNestedDeclarationsAllowed(allow_nested);
}

bool SlateContext::isNestedDeclarationsAllowed() const { return internal_->isNestedDeclarationsAllowed(); }

} // namespace Slate::Core::Api
