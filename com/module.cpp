#include "com/module.h"

#include <atomic>

#include "base/error.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // defined by the linker

namespace tillora::win32 {
namespace {

std::atomic<long> locks{0};

}  // namespace

HINSTANCE thisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

Text pathOfModule(HMODULE module) {
  Text path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()),
                                            static_cast<DWORD>(path.size()));
    if (length == 0) {
      throw Error(HRESULT_FROM_WIN32(GetLastError()), u"The path of the program cannot be read.");
    }
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ModuleLock::ModuleLock() { ++locks; }
ModuleLock::ModuleLock(const ModuleLock&) { ++locks; }
ModuleLock::~ModuleLock() { --locks; }
void ModuleLock::lockServer(bool lock) { locks += lock ? 1 : -1; }
long ModuleLock::count() { return locks; }

}  // namespace tillora::win32
