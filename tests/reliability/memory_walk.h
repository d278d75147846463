#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "tests/testing/long_run.h"
#include "tests/testing/memory/failing_memory.h"

namespace tillora::testing {

/// Runs `act` again and again; in each run memory runs out at another allocation, once or from then
/// on. The everyday run takes samples.
///
/// @param act gets a FailingMemory's number and mode, runs with it, and checks what is left;
/// returns
///     the allocations of its run
/// @return how many runs there were
template <class Act>
long walkAllocations(int samples, Act act) {
  using Mode = FailingMemory::Mode;
  const long allocations = act(FailingMemory::kNever, Mode::once);
  const long step = isLongRun() ? 1 : allocations / samples + 1;
  long runs = 0;
  for (const Mode mode : {Mode::once, Mode::fromThenOn}) {
    for (long number = 0; number < allocations && !::testing::Test::HasFailure(); number += step) {
      SCOPED_TRACE("allocation " + std::to_string(number) +
                   (mode == Mode::once ? " fails" : " and all after it fail"));
      act(number, mode);
      ++runs;
    }
  }
  if (isLongRun()) std::cout << allocations << " allocations, " << runs << " runs\n";
  return runs;
}

}  // namespace tillora::testing
