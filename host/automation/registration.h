#pragma once

#include "support/win32/registered_classes.h"

namespace tillora::host::automation {

/// Registers the classes of this host that programs create and the type library, and removes them
/// again.
HRESULT registerServer(win32::RegistrationScope scope) noexcept;
HRESULT unregisterServer(win32::RegistrationScope scope) noexcept;

}  // namespace tillora::host::automation
