#include "component/automation/options_server.h"

using namespace tillora;
using tillora::automation::kOptionsServer;

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
  win32::serverIsUnloaded(reason, processEnds);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  return win32::getClassObject(kOptionsServer, classId, id, object);
}

STDAPI DllCanUnloadNow() { return win32::canUnloadNow(); }

STDAPI DllRegisterServer() { return win32::registerServer(kOptionsServer); }

STDAPI DllUnregisterServer() { return win32::unregisterServer(kOptionsServer); }

/// `/i:user` registers for the current user only, `/i` for the machine.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  return win32::installServer(kOptionsServer, install != FALSE, commandLine);
}
