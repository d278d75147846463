#pragma once

#include <windows.h>

#include <utility>

#include "com/error_info.h"

namespace tillora::automation {

/// Program id of the class `Options`, and the source of the component's own errors.
inline constexpr const char16_t* kProgramId = u"TilloraOptions.Options";

/// Wraps the component's entry points (com/error_info.h).
template <class Body>
HRESULT guarded(const IID& interfaceId, Body&& body) noexcept {
  return win32::guarded(interfaceId, kProgramId, std::forward<Body>(body));
}

/// Throws if a system function failed: std::bad_alloc or an Error that names `action`.
void throwIfFailed(HRESULT result, const char16_t* action);

}  // namespace tillora::automation
