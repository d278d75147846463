#include "component/automation/module.h"

#include <atomic>

#include "component/automation/com_error.h"
#include "support/win32/wide_text.h"
#include "ui/win32/module.h"

namespace tillora::automation {

using win32::ComPtr;

namespace {

std::atomic<long> locks{0};

}  // namespace

ModuleLock::ModuleLock() { ++locks; }
ModuleLock::ModuleLock(const ModuleLock&) { ++locks; }
ModuleLock::~ModuleLock() { --locks; }
void ModuleLock::lockServer(bool lock) { locks += lock ? 1 : -1; }
long ModuleLock::count() { return locks; }

Text modulePath() {
  Text path(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(ui::win32::thisModule(), reinterpret_cast<wchar_t*>(path.data()),
                           static_cast<DWORD>(path.size()));
    if (length == 0) throwIfFailed(HRESULT_FROM_WIN32(GetLastError()), u"GetModuleFileName");
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeLib> loadTypeLibrary() {
  ComPtr<ITypeLib> library;
  throwIfFailed(LoadTypeLibEx(win32::wide(modulePath()), REGKIND_NONE, library.out()),
                u"LoadTypeLibEx");
  return library;
}

ComPtr<ITypeInfo> loadTypeInfo(const GUID& type) {
  ComPtr<ITypeInfo> info;
  throwIfFailed(loadTypeLibrary()->GetTypeInfoOfGuid(type, info.out()), u"GetTypeInfoOfGuid");
  return info;
}

}  // namespace tillora::automation
