#include <windows.h>

#include <oleauto.h>

#include <string_view>

#include "TilloraOptions.h"
#include "component/automation/class_factory.h"
#include "component/automation/com_error.h"
#include "component/automation/registration.h"
#include "support/win32/com_ptr.h"
#include "support/win32/thread_storage.h"

using tillora::automation::ClassFactory;
using tillora::automation::guarded;
using tillora::automation::ModuleLock;
using tillora::automation::registerServer;
using tillora::automation::unregisterServer;
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
  if (classId != CLSID_Options) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT found = E_NOINTERFACE;
  const HRESULT made = guarded(IID_NULL, [&] {
    const auto factory = ComPtr<ClassFactory>::adopt(new ClassFactory);
    found = factory->QueryInterface(id, object);
  });
  return FAILED(made) ? made : found;
}

STDAPI DllCanUnloadNow() { return ModuleLock::count() == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return registerServer(RegistrationScope::machine); }

STDAPI DllUnregisterServer() { return unregisterServer(RegistrationScope::machine); }

/// `/i:user` registers for the current user only, `/i` for the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  const std::wstring_view wanted = commandLine == nullptr ? L"" : commandLine;
  RegistrationScope scope = RegistrationScope::machine;
  if (wanted == L"user") {
    scope = RegistrationScope::user;
  } else if (!wanted.empty() && wanted != L"machine") {
    return E_INVALIDARG;
  }
  return install != FALSE ? registerServer(scope) : unregisterServer(scope);
}

/// For leak tests: objects and locks that keep the module loaded.
STDAPI_(long) TilloraLiveObjects() { return ModuleLock::count(); }
