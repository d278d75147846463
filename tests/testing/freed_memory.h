#pragma once

#include <initializer_list>

#include "base/text.h"

namespace tillora::testing {

/// Watches memory during its lifetime: counts the blocks of the heap that are freed while they
/// still hold a part of one of the secrets, four characters or more in UTF-16, in capitals or small
/// letters. One at a time. Secrets are of ASCII characters.
class FreedMemory {
 public:
  /// The memory can be watched in this build (with the address sanitizer).
  static bool canBeWatched();

  explicit FreedMemory(std::initializer_list<TextView> secrets);
  ~FreedMemory();
  FreedMemory(const FreedMemory&) = delete;
  FreedMemory& operator=(const FreedMemory&) = delete;

  int blocksWithSecrets() const;
};

}  // namespace tillora::testing
