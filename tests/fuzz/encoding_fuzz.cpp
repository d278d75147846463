// Any bytes as UTF-8, and any text: what is valid comes back unchanged.
#include "host/text_encoding.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tillora;
  fuzz::Input input(data, size);
  const Text decoded = host::fromUtf8(input.bytes());
  fuzz::require(host::fromUtf8(toUtf8(decoded)) == decoded, "decoded text is valid");
  const std::string encoded = toUtf8(input.text());
  fuzz::require(toUtf8(host::fromUtf8(encoded)) == encoded, "encoded text is valid");
  return 0;
}
