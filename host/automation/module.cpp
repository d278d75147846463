#include "host/automation/module.h"

#include <atomic>

#include "host/automation/system_failure.h"
#include "support/win32/wide_text.h"

namespace tillora::host::automation {
namespace {

std::atomic<long> locks{0};

}  // namespace

ModuleLock::ModuleLock() { ++locks; }
ModuleLock::~ModuleLock() { --locks; }
void ModuleLock::lockServer(bool lock) { locks += lock ? 1 : -1; }
long ModuleLock::count() { return locks; }

Text pathOfModule(HMODULE module) {
  Text path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()),
                                            static_cast<DWORD>(path.size()));
    if (length == 0) failWithLastError(u"App", u"The path of the program cannot be read.");
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace tillora::host::automation
