#include "host/automation/shop_server.h"

using namespace tillora;
using tillora::host::automation::kShopServer;

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
  win32::serverIsUnloaded(reason, processEnds);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  return win32::getClassObject(kShopServer, classId, id, object);
}

STDAPI DllCanUnloadNow() { return win32::canUnloadNow(); }

STDAPI DllRegisterServer() { return win32::registerServer(kShopServer); }

STDAPI DllUnregisterServer() { return win32::unregisterServer(kShopServer); }

/// `/i:user` registers for the current user only, `/i` for the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  return win32::installServer(kShopServer, install != FALSE, commandLine);
}
