#pragma once

#include <cstdlib>
#include <iterator>
#include <random>

#include "tests/testing/long_run.h"

namespace tillora::testing {

/// The choices of a random test. Those of the everyday run are always the same, those of a long run
/// others each time; TILLORA_SEED chooses them.
class RandomChoices {
 public:
  RandomChoices() : RandomChoices(chosenSeed()) {}
  explicit RandomChoices(unsigned seed) : seed_(seed), random_(seed) {}

  unsigned seed() const { return seed_; }

  /// 0 to `bound` - 1.
  int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
  bool chance(int percent) { return below(100) < percent; }
  template <class Range>
  const auto& oneOf(const Range& range) {
    return range[static_cast<std::size_t>(below(static_cast<int>(std::size(range))))];
  }

 private:
  static unsigned chosenSeed() {
    const char* given = std::getenv("TILLORA_SEED");
    if (given != nullptr) return static_cast<unsigned>(std::strtoul(given, nullptr, 10));
    return isLongRun() ? std::random_device()() : 20261120U;
  }

  unsigned seed_;
  std::mt19937 random_;
};

}  // namespace tillora::testing
