#include "component/automation/com_error.h"

#include <oleauto.h>

#include <exception>
#include <new>

#include "component/automation/host_failure.h"
#include "support/win32/com_ptr.h"
#include "support/win32/wide_text.h"

namespace tillora::automation {

using win32::ComPtr;
using win32::wide;

namespace {

constexpr const char16_t* kComponent = u"TilloraOptions.Options";

void setErrorObject(const IID& interfaceId, const Error& failure) noexcept {
  ComPtr<ICreateErrorInfo> error;
  if (FAILED(CreateErrorInfo(error.out()))) return;
  // The setters copy the texts; their parameters are not const in every platform header.
  error->SetGUID(interfaceId);
  error->SetSource(const_cast<wchar_t*>(wide(nulsAsBlanks(failure.source()))));
  error->SetDescription(const_cast<wchar_t*>(wide(nulsAsBlanks(failure.description()))));
  if (!failure.helpFile().empty()) {
    error->SetHelpFile(const_cast<wchar_t*>(wide(failure.helpFile())));
  }
  error->SetHelpContext(failure.helpContext());
  if (const auto info = error.query<IErrorInfo>()) SetErrorInfo(0, info.get());
}

/// Exception texts of the library are plain ASCII.
Text asciiText(const char* what) {
  Text text;
  for (; *what != '\0'; ++what) text += static_cast<char16_t>(static_cast<unsigned char>(*what));
  return text;
}

HRESULT report(const IID& interfaceId) {
  try {
    throw;
  } catch (const Error& failure) {
    setErrorObject(interfaceId, failure);
    return failure.number() < 0 ? failure.number() : E_FAIL;
  } catch (const std::bad_alloc&) {
    SetErrorInfo(0, nullptr);
    return E_OUTOFMEMORY;
  } catch (const std::exception& failure) {
    setErrorObject(interfaceId, Error(E_FAIL, kComponent, asciiText(failure.what())));
    return E_FAIL;
  }
}

}  // namespace

HRESULT reportCurrentException(const IID& interfaceId) noexcept {
  try {
    return report(interfaceId);
  } catch (const std::bad_alloc&) {  // while the report was made
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

void throwIfFailed(HRESULT result, const char16_t* action) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  throw plainFailure(result, kComponent, action);
}

}  // namespace tillora::automation
