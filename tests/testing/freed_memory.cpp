#include "tests/testing/freed_memory.h"

#include <array>
#include <cstddef>
#include <stdexcept>

#if defined(__SANITIZE_ADDRESS__)
#define TILLORA_WATCHES_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TILLORA_WATCHES_MEMORY 1
#endif
#endif

#ifdef TILLORA_WATCHES_MEMORY
// The sanitizer's own interface; not every compiler has the header.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                              void (*freed)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}
#endif

namespace tillora::testing {
namespace {

// Nothing here may use the heap: it runs while a block is being freed.
struct Watch {
  std::array<TextView, 8> secrets;
  std::size_t count = 0;
  int found = 0;
};
Watch watch;

#ifdef TILLORA_WATCHES_MEMORY
constexpr std::size_t kPart = 4;

char16_t inSmallLetters(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

// The block may have parts that the program must not read.
[[gnu::no_sanitize_address]] char16_t characterAt(const volatile unsigned char* bytes) {
  return static_cast<char16_t>(bytes[0] | bytes[1] << 8);
}

bool isPartOf(TextView secret, const volatile unsigned char* bytes) {
  for (std::size_t start = 0; start + kPart <= secret.size(); ++start) {
    std::size_t same = 0;
    while (same < kPart &&
           inSmallLetters(characterAt(bytes + 2 * same)) == inSmallLetters(secret[start + same])) {
      ++same;
    }
    if (same == kPart) return true;
  }
  return false;
}

void blockFreed(const volatile void* block) {
  if (watch.count == 0 || block == nullptr) return;
  const auto* bytes = static_cast<const volatile unsigned char*>(block);
  const std::size_t size = __sanitizer_get_allocated_size(block);
  for (std::size_t at = 0; at + kPart * 2 <= size; ++at) {
    for (std::size_t i = 0; i < watch.count; ++i) {
      if (!isPartOf(watch.secrets[i], bytes + at)) continue;
      ++watch.found;
      return;
    }
  }
}

void blockAllocated(const volatile void* /*block*/, std::size_t /*size*/) {}
#endif

}  // namespace

bool FreedMemory::canBeWatched() {
#ifdef TILLORA_WATCHES_MEMORY
  return true;
#else
  return false;
#endif
}

FreedMemory::FreedMemory(std::initializer_list<TextView> secrets) {
#ifdef TILLORA_WATCHES_MEMORY
  [[maybe_unused]] static const int installed =
      __sanitizer_install_malloc_and_free_hooks(&blockAllocated, &blockFreed);
#endif
  if (secrets.size() > watch.secrets.size()) throw std::length_error("too many secrets");
  watch.found = 0;
  for (const TextView secret : secrets) watch.secrets[watch.count++] = secret;
}

FreedMemory::~FreedMemory() { watch.count = 0; }

int FreedMemory::blocksWithSecrets() const { return watch.found; }

}  // namespace tillora::testing
