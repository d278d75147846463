#pragma once

#include "support/win32/registered_classes.h"

namespace tillora::automation {

/// Registers the component's class and type library, and removes them again. Result codes only: the
/// callers of these functions know nothing of error objects.
HRESULT registerServer(win32::RegistrationScope scope) noexcept;
HRESULT unregisterServer(win32::RegistrationScope scope) noexcept;

}  // namespace tillora::automation
