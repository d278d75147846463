#pragma once

#include <windows.h>

#include <span>

#include "com/class_factory.h"
#include "com/registered_classes.h"

namespace tillora::win32 {

/// An in-process server: the classes that programs create, and the type library inside its module.
/// The functions below implement the library's entry points.
struct Server {
  const GUID& library;
  std::span<const ServerClass> classes;
};

/// DllMain.
void serverIsUnloaded(DWORD reason, const void* processEnds) noexcept;

/// DllGetClassObject.
HRESULT getClassObject(const Server& server, REFCLSID classId, REFIID id, void** object) noexcept;

/// DllCanUnloadNow.
HRESULT canUnloadNow() noexcept;

/// DllRegisterServer: writes the classes, their program ids and the type library, all of version 1.
/// A failed attempt removes what it wrote.
HRESULT registerServer(const Server& server,
                       RegistrationScope scope = RegistrationScope::machine) noexcept;

/// DllUnregisterServer: removes what registerServer() writes; missing keys are not an error. The
/// program ids and the interfaces serve both bitnesses and are removed with the last one.
HRESULT unregisterServer(const Server& server,
                         RegistrationScope scope = RegistrationScope::machine) noexcept;

/// DllInstall: `user` registers for the current user only, `machine` or nothing for the machine.
HRESULT installServer(const Server& server, bool install, const wchar_t* scope) noexcept;

}  // namespace tillora::win32
