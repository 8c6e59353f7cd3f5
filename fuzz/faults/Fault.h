#pragma once

#include <cstddef>

// Faults on demand, within this program alone: it brings its own `operator new` and its own calls of the file
// system, which the libraries that it links use as well.

namespace Slate::Faults {

enum class Kind { Allocation, File };

enum class Lasting {
    Once,    // it is over with the one that failed
    FromThen // all later ones fail too, as when memory has run out
};

/// Lets an operation of this thread fail, counted from 1, for as long as it lives.
class Fault {
  public:
    Fault(Kind kind, std::size_t number, Lasting lasting = Lasting::Once);
    ~Fault();
    Fault(Fault const&) = delete;
    Fault& operator=(Fault const&) = delete;

    /// Has anything failed? If not, there were no so many operations.
    bool hasStruck() const;

  private:
    Kind kind_;
};

/// Counts an operation of this thread; true if it is to fail.
bool isToFail(Kind kind);

/// How many blocks of memory are in use, of all threads.
std::ptrdiff_t countLiveBlocks();

} // namespace Slate::Faults
