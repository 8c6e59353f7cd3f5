#pragma once

// Internal to the parser: what keeps its loops and its recursion within bounds.

#include "slate/Parser.h"
#include "slate/ParserImpl.h"

namespace Slate {

/// One level of nesting, for as long as it lives.
class ParserImpl::NestingLevel {
  public:
    explicit NestingLevel(ParserImpl& parser) : depth_(parser.nesting_depth_) { ++depth_; }

    ~NestingLevel() { --depth_; }

    NestingLevel(NestingLevel const&) = delete;
    NestingLevel& operator=(NestingLevel const&) = delete;

    bool isTooDeep() const { return depth_ > Parser::maximum_nesting_depth; }

  private:
    std::size_t& depth_;
};

/// Stands at the head of a loop over items: a round that consumed nothing would come again for ever. That is
/// a defect of the parser, which the log tells, and a token is skipped so that the loop ends all the same.
class ParserImpl::ProgressGuard {
  public:
    explicit ProgressGuard(ParserImpl& parser) : parser_(parser) {}

    void beginRound();

  private:
    ParserImpl& parser_;
    std::optional<std::size_t> start_of_round_; // in tokens consumed
};

} // namespace Slate
