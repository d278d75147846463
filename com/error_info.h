#pragma once

#include <windows.h>

#include <utility>

namespace tillora::win32 {

/// Turns the exception being handled into a result and, for callers that ask, into the thread's
/// error object. An Error keeps number, source, description and help; one without a source gets
/// `ownSource`. std::bad_alloc becomes E_OUTOFMEMORY, any other exception E_FAIL with its text. For
/// use inside a catch block.
HRESULT reportCurrentException(const IID& interfaceId, const char16_t* ownSource) noexcept;

/// Wraps every entry point: runs `body` and lets no exception escape.
template <class Body>
HRESULT guarded(const IID& interfaceId, const char16_t* ownSource, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return reportCurrentException(interfaceId, ownSource);
  }
}

}  // namespace tillora::win32
