#include "com/thread_storage.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace tillora::win32 {

#ifdef __MINGW32__

namespace {

/// The indexes taken so far; the runtime takes one, and at most a few.
std::array<std::atomic<DWORD>, 8> taken;
std::atomic<std::size_t> count{0};

using Allocate = DWORD(WINAPI*)();

DWORD WINAPI allocate() {
  const auto address =
      reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "TlsAlloc"));
  const DWORD index = reinterpret_cast<Allocate>(address)();
  if (index == TLS_OUT_OF_INDEXES) return index;
  const std::size_t position = count++;
  if (position < taken.size()) taken[position] = index;
  return index;
}

}  // namespace

// The runtime calls TlsAlloc through this import symbol. The linker prefers the definition here to
// the one in the system's library.
extern "C" {
#ifdef _WIN64
extern const Allocate importOfTlsAlloc __asm__("__imp_TlsAlloc");
#else
extern const Allocate importOfTlsAlloc __asm__("__imp__TlsAlloc@0");
#endif
const Allocate importOfTlsAlloc = allocate;
}

void freeThreadStorage() noexcept {
  for (std::size_t position = 0; position < count && position < taken.size(); ++position) {
    TlsFree(taken[position]);
  }
}

#else

void freeThreadStorage() noexcept {}

#endif

}  // namespace tillora::win32
