#pragma once

#include <windows.h>

namespace tillora::automation {

enum class RegistrationScope { machine, user };

/// Writes the class, its program ids and the type library. What a failed attempt wrote is removed
/// again. Result codes only: the callers of these functions know nothing of error objects.
HRESULT registerServer(RegistrationScope scope) noexcept;

/// Removes what registerServer writes; nothing there is no failure.
HRESULT unregisterServer(RegistrationScope scope) noexcept;

}  // namespace tillora::automation
