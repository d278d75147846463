#pragma once

#include <windows.h>
// psapi.h needs windows.h first.
#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace tillora::bench {

using Clock = std::chrono::steady_clock;

inline double milliseconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

template <class Code>
double timed(Code&& code) {
  const auto start = Clock::now();
  code();
  return milliseconds(start, Clock::now());
}

inline double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

inline std::size_t privateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

/// Prints what was measured, round by round (milliseconds), and returns whether the budget is kept.
/// The ratio is the median over the rounds: a machine may change its pace between rounds.
inline bool report(const char* what, const std::vector<double>& product,
                   const std::vector<double>& floor, double budget) {
  std::vector<double> ratios;
  for (std::size_t round = 0; round < product.size(); ++round) {
    ratios.push_back(product[round] / floor[round]);
  }
  const double ratio = median(ratios);
  std::printf("%-40s product %7.2f ms  floor %7.2f ms  ratio %.2f  budget %.2f%s\n", what,
              median(product), median(floor), ratio, budget, ratio > budget ? "  MISSED" : "");
  std::fflush(stdout);
  return ratio <= budget;
}

}  // namespace tillora::bench
