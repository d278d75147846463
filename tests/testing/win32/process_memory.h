#pragma once

#include <cstddef>
#include <span>

#include "tests/testing/canary.h"

namespace tillora::testing {

/// What a search of this program's memory saw.
struct MemorySearch {
  std::size_t inHeaps = 0;    ///< parts in blocks of any heap, in use or free
  std::size_t elsewhere = 0;  ///< parts in other memory that can be written: data, stacks
  std::size_t heaps = 0;
  std::size_t blocks = 0;
  std::size_t bytes = 0;  ///< searched in all
};

/// Looks for parts of the canaries in every heap of the program and in all other memory that is its
/// own and can be written. Heaps are locked meanwhile.
MemorySearch searchMemory(std::span<const Canary> canaries);

}  // namespace tillora::testing
