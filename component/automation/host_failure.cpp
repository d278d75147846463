#include "component/automation/host_failure.h"

#include <memory>

#include "com/bstr.h"
#include "com/com_ptr.h"

namespace tillora::automation {

using win32::Bstr;
using win32::ComPtr;

namespace {

/// An object may raise a bare Basic number; the host gets it as Basic would have passed it on.
std::int32_t failingNumber(std::int32_t number, HRESULT result) {
  if (number < 0) return number;
  if (number > 0 && number <= 0xFFFF) return basicError(static_cast<std::uint16_t>(number));
  return FAILED(result) && result != DISP_E_EXCEPTION ? result : E_FAIL;
}

Text sentence(TextView object, TextView member, HRESULT result) {
  Text text(object);
  text += u'.';
  text += member;
  text += u" failed: ";
  text += describeResult(result);
  return text;
}

Error completed(HRESULT number, Text source, Text description, Text helpFile,
                std::uint32_t helpContext, TextView object, TextView member) {
  if (source.empty()) source = object;
  if (description.empty()) description = sentence(object, member, number);
  return {number, std::move(source), std::move(description), std::move(helpFile), helpContext};
}

Error fromException(EXCEPINFO& info, TextView object, TextView member) {
  if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
  const std::int32_t number = info.scode != 0 ? info.scode : info.wCode;
  return completed(failingNumber(number, DISP_E_EXCEPTION), Bstr::textOf(info.bstrSource),
                   Bstr::textOf(info.bstrDescription), Bstr::textOf(info.bstrHelpFile),
                   info.dwHelpContext, object, member);
}

Error fromErrorInfo(IErrorInfo& info, HRESULT result, TextView object, TextView member) {
  Bstr source;
  Bstr description;
  Bstr helpFile;
  DWORD helpContext = 0;
  info.GetSource(source.out());
  info.GetDescription(description.out());
  info.GetHelpFile(helpFile.out());
  info.GetHelpContext(&helpContext);
  return completed(failingNumber(result, result), source.text(), description.text(),
                   helpFile.text(), helpContext, object, member);
}

bool saysSomething(const EXCEPINFO& info) {
  return info.scode != 0 || info.wCode != 0 || info.bstrDescription != nullptr ||
         info.bstrSource != nullptr || info.pfnDeferredFillIn != nullptr;
}

}  // namespace

void ExceptionInfo::free() {
  SysFreeString(info_.bstrSource);
  SysFreeString(info_.bstrDescription);
  SysFreeString(info_.bstrHelpFile);
}

Error hostFailure(HRESULT result, ExceptionInfo& exception, TextView object, TextView member) {
  if (result == DISP_E_EXCEPTION && saysSomething(exception.get())) {
    return fromException(exception.get(), object, member);
  }
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) == S_OK)
    return fromErrorInfo(*info.get(), result, object, member);
  return plainFailure(result, object, member);
}

Error plainFailure(HRESULT result, TextView object, TextView member) {
  return completed(failingNumber(result, result), {}, {}, {}, 0, object, member);
}

Text describeResult(HRESULT result) {
  wchar_t* buffer = nullptr;
  DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(buffer, LocalFree);
  while (length > 0 && (buffer[length - 1] <= L' ' || buffer[length - 1] == L'.')) --length;

  wchar_t number[16];
  const int digits = wsprintfW(number, L"0x%08X", static_cast<unsigned>(result));
  Text text = length > 0 ? win32::fromWide(buffer, length) : Text(u"error");
  text += u" (";
  text += win32::fromWide(number, static_cast<std::size_t>(digits));
  text += u").";
  return text;
}

}  // namespace tillora::automation
