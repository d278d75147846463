#include "bench/windows/benchmarks.h"

int main() {
  const bool opening = tillora::bench::measureOpening();
  const bool browsing = tillora::bench::measureBrowsing();
  return opening && browsing ? 0 : 1;
}
