#include <windows.h>

#include <new>
#include <string_view>

#include "host/automation/class_factory.h"
#include "host/automation/registration.h"
#include "support/win32/com_ptr.h"
#include "support/win32/thread_storage.h"

using tillora::host::automation::ClassFactory;
using tillora::host::automation::findClass;
using tillora::host::automation::ModuleLock;
using tillora::host::automation::registerServer;
using tillora::host::automation::unregisterServer;
using tillora::win32::ComPtr;
using tillora::win32::RegistrationScope;

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
    tillora::win32::freeThreadStorage();
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto* const found = findClass(classId);
  if (found == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  const auto factory = ComPtr<ClassFactory>::adopt(new (std::nothrow) ClassFactory(*found));
  return factory ? factory->QueryInterface(id, object) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() { return ModuleLock::count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return registerServer(RegistrationScope::machine); }

STDAPI DllUnregisterServer() { return unregisterServer(RegistrationScope::machine); }

/// `/i:user` registers for the current user only, `/i` for the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  const std::wstring_view wanted = commandLine == nullptr ? L"" : commandLine;
  if (!wanted.empty() && wanted != L"user" && wanted != L"machine") return E_INVALIDARG;
  const auto scope = wanted == L"user" ? RegistrationScope::user : RegistrationScope::machine;
  return install != FALSE ? registerServer(scope) : unregisterServer(scope);
}

/// For leak tests: objects and locks that keep the module loaded.
STDAPI_(long) TilloraLiveObjects() { return ModuleLock::count(); }
