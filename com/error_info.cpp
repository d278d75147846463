#include "com/error_info.h"

#include <oleauto.h>

#include <exception>
#include <new>

#include "base/error.h"
#include "com/com_ptr.h"
#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

void requireMemory(HRESULT result) {
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
}

void setErrorObject(const IID& interfaceId, const Error& failure, const char16_t* ownSource) {
  ComPtr<ICreateErrorInfo> error;
  requireMemory(CreateErrorInfo(error.out()));
  if (!error) return;
  // The setters copy the texts, but take them as non-const in some platform headers.
  error->SetGUID(interfaceId);
  const Text source = failure.source().empty() ? Text(ownSource) : failure.source();
  requireMemory(error->SetSource(const_cast<wchar_t*>(wide(nulsAsBlanks(source)))));
  requireMemory(
      error->SetDescription(const_cast<wchar_t*>(wide(nulsAsBlanks(failure.description())))));
  if (!failure.helpFile().empty()) {
    requireMemory(error->SetHelpFile(const_cast<wchar_t*>(wide(failure.helpFile()))));
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

HRESULT report(const IID& interfaceId, const char16_t* ownSource) {
  try {
    throw;
  } catch (const Error& failure) {
    setErrorObject(interfaceId, failure, ownSource);
    return failure.number() < 0 ? failure.number() : E_FAIL;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& failure) {
    setErrorObject(interfaceId, Error(E_FAIL, asciiText(failure.what())), ownSource);
    return E_FAIL;
  }
}

}  // namespace

HRESULT reportCurrentException(const IID& interfaceId, const char16_t* ownSource) noexcept {
  SetErrorInfo(0, nullptr);  // an earlier failure's
  try {
    return report(interfaceId, ownSource);
  } catch (const std::bad_alloc&) {  // while the report was made
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace tillora::win32
