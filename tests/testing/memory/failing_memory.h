#pragma once

#include <cstddef>

namespace tillora::testing {

/// During its lifetime, memory runs out on the thread that made it: one allocation with `new`
/// fails, or every one from then on. One at a time.
class FailingMemory {
 public:
  enum class Mode : bool { once, fromThenOn };
  /// A number that no allocation has: all succeed and are counted.
  static constexpr long kNever = -1;

  /// @param number of the allocation that fails, from 0
  explicit FailingMemory(long number, Mode mode = Mode::once);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  /// The allocations so far, those that failed included.
  long allocations() const;
  bool hasFailed() const;

  /// The blocks of this program that have been allocated with `new` and not freed.
  static long blocks();
  /// For memory that is allocated in other ways: whether this allocation is to fail.
  static bool failsNext();

  /// During its lifetime allocations of its thread succeed and do not count: for what stands for
  /// the world outside of the program.
  class Pause {
   public:
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    bool pauses_;
  };
};

}  // namespace tillora::testing
