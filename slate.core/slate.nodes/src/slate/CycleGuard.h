#pragma once

#include <cstddef>

namespace Slate {

/// Notices when a walk that follows one link a step goes round in a ring, in constant space (the cycle search
/// of R. P. Brent, 1980). The ring is gone round a few times before it is noticed, so this is for walks that
/// search; walks that collect need each node once.
class CycleGuard {
  public:
    /// To be asked at each node that the walk reaches: true ends the walk.
    bool closesAt(void const* node) {
        if (node == marked_)
            return true;
        if (++steps_ == limit_) {
            marked_ = node;
            steps_ = 0;
            limit_ *= 2;
        }
        return false;
    }

  private:
    void const* marked_ = nullptr;
    std::size_t steps_ = 0;
    std::size_t limit_ = 1;
};

} // namespace Slate
