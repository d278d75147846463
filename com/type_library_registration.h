#pragma once

#include "com/registered_classes.h"

namespace tillora::win32 {

/// An id as the registry has it: in braces, in capitals.
Text guidText(const GUID& guid);

/// Writes the keys of the type library inside a module, and of its interfaces, so that the system
/// can marshal calls between apartments and programs. Those of the interfaces serve both bitnesses.
void registerTypeLibrary(const Text& modulePath, RegistrationScope scope);

/// Removes what registerTypeLibrary() writes. The interfaces stay while the library of the other
/// bitness is registered.
void unregisterTypeLibrary(const Text& modulePath, RegistrationScope scope);

}  // namespace tillora::win32
