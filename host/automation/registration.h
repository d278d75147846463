#pragma once

#include <windows.h>

namespace tillora::host::automation {

enum class RegistrationScope { machine, user };

/// Writes the creatable classes, their program ids and the type library. What a failed attempt
/// wrote is removed again.
HRESULT registerServer(RegistrationScope scope) noexcept;

/// Removes what registerServer writes; nothing there is no failure.
HRESULT unregisterServer(RegistrationScope scope) noexcept;

}  // namespace tillora::host::automation
