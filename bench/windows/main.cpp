#include <cstdio>
#include <exception>

#include "bench/windows/benchmarks.h"
#include "bench/windows/catalogue.h"

namespace tillora::bench {
namespace {

bool keepsBudgets() {
  measureCreating();
  const bool opening = measureOpening();
  const Catalogue catalogue(100'000);
  const bool browsing = measureBrowsing(catalogue);
  const bool list = measureList(catalogue);
  return opening && browsing && list;
}

}  // namespace
}  // namespace tillora::bench

int main() {
  try {
    return tillora::bench::keepsBudgets() ? 0 : 1;
  } catch (const std::exception& failure) {
    std::fputs(failure.what(), stderr);
  } catch (...) {
    std::fputs("a benchmark failed", stderr);
  }
  return 2;
}
