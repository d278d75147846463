#pragma once

#include <windows.h>

#include <utility>

namespace tillora::automation {

/// Turns the exception being handled into a result and, for callers that ask, into the thread's
/// error object. An Error keeps number, source, description and help; std::bad_alloc is
/// E_OUTOFMEMORY; any other is E_FAIL with its text. For use inside a catch block.
HRESULT reportCurrentException(const IID& interfaceId) noexcept;

/// The wall of every entry from outside: runs `body`; no exception leaves.
template <class Body>
HRESULT guarded(const IID& interfaceId, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return reportCurrentException(interfaceId);
  }
}

/// Throws where a function of the system failed: std::bad_alloc or an Error that names `action`.
void throwIfFailed(HRESULT result, const char16_t* action);

}  // namespace tillora::automation
