#pragma once

#include "component/automation/registered_classes.h"
#include "component/automation/registration.h"

namespace tillora::automation {

/// An id as the registry has it: in braces, in capitals.
Text guidText(const GUID& guid);

/// Writes the keys of the type library inside the module, and of its interfaces, so that the system
/// can marshal calls between apartments and programs. Those of the interfaces serve both bitnesses.
void registerTypeLibrary(RegistrationScope scope);

/// Removes what registerTypeLibrary() writes. The interfaces stay while the library of the other
/// bitness is registered.
void unregisterTypeLibrary(RegistrationScope scope);

}  // namespace tillora::automation
