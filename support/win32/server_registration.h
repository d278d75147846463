#pragma once

#include <windows.h>

#include <span>

#include "support/win32/registered_classes.h"

namespace tillora::win32 {

/// A class of an in-process server that programs create. It is made for single-threaded apartments.
struct ServerClass {
  const CLSID& id;
  const char16_t* programId;  ///< without its version
  const char16_t* title;
};

/// Writes the classes, their program ids and the type library inside the module, all of version 1.
/// What a failed attempt wrote is removed again.
HRESULT registerServer(const Text& modulePath, const GUID& library,
                       std::span<const ServerClass> classes, RegistrationScope scope) noexcept;

/// Removes what registerServer() writes; nothing there is no failure. What serves both bitnesses,
/// the program ids and the interfaces, goes with the last one.
HRESULT unregisterServer(const Text& modulePath, std::span<const ServerClass> classes,
                         RegistrationScope scope) noexcept;

}  // namespace tillora::win32
