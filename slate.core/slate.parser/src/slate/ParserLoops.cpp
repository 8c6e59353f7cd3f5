#include "slate/ParserLoops.h"

#include "slate/Log.h"

namespace Slate {

void ParserImpl::ProgressGuard::beginRound() {
    if (parser_.consumed_ == start_of_round_) {
        SLATE_LOG_ERROR("No progress at token {} of {}", parser_.consumed_, parser_.source_id_);
        parser_.advance();
    }
    start_of_round_ = parser_.consumed_;
}

} // namespace Slate
