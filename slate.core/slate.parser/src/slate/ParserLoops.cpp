#include "slate/ParserLoops.h"

#include "slate/Log.h"

namespace Slate {

void ParserImpl::ProgressGuard::beginRound() {
    if (parser_.current_ == start_of_round_) {
        SLATE_LOG_ERROR("No progress at token {} of {}", parser_.current_ - parser_.tokens_.begin(),
                        parser_.source_id_);
        parser_.advance();
    }
    start_of_round_ = parser_.current_;
}

} // namespace Slate
