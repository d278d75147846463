#include "bench/windows/benchmarks.h"
#include "bench/windows/catalogue.h"

int main() {
  tillora::bench::measureCreating();
  const bool opening = tillora::bench::measureOpening();
  const tillora::bench::Catalogue catalogue(100'000);
  const bool browsing = tillora::bench::measureBrowsing(catalogue);
  const bool list = tillora::bench::measureList(catalogue);
  return opening && browsing && list ? 0 : 1;
}
