#include "host/automation/system_failure.h"

#include <windows.h>

#include "com/wide_text.h"
#include "host/shop_error.h"

namespace tillora::host::automation {

void failWithLastError(TextView object, Text sentence) {
  const DWORD code = GetLastError();
  wchar_t words[512];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, code, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
  if (length != 0) sentence += u" " + win32::fromWide(words, length);
  fail(HRESULT_FROM_WIN32(code == 0 ? ERROR_GEN_FAILURE : code), object, std::move(sentence));
}

}  // namespace tillora::host::automation
