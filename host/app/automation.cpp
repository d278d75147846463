#include "host/app/automation.h"

#include <utility>

#include "com/wide_text.h"

namespace tillora::host::app {
namespace {

constexpr const char16_t* kProgram = u"TilloraAdministrator";

Error exceptionOf(EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  Error error(exception.scode != 0 ? exception.scode : basicError(exception.wCode),
              Bstr::textOf(exception.bstrSource), Bstr::textOf(exception.bstrDescription),
              Bstr::textOf(exception.bstrHelpFile), exception.dwHelpContext);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return error;
}

}  // namespace

ComApartment::ComApartment() {
  check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), u"COM cannot be started.");
}

ComApartment::~ComApartment() { CoUninitialize(); }

void check(HRESULT result, const char16_t* action) {
  if (SUCCEEDED(result)) return;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) != S_OK) throw Error(result, kProgram, action);
  Bstr source;
  Bstr description;
  info->GetSource(source.out());
  info->GetDescription(description.out());
  throw Error(result, source.text(), description.text());
}

ComPtr<IDispatch> createObject(const char16_t* programId) {
  CLSID classId;
  ComPtr<IDispatch> object;
  HRESULT made = CLSIDFromProgID(win32::wide(programId), &classId);
  if (SUCCEEDED(made)) {
    made =
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.outVoid());
  }
  if (FAILED(made)) {
    throw Error(made, kProgram,
                Text(programId) + u" cannot be created. Register its library with regsvr32.");
  }
  return object;
}

Variant Late::invoke(const char16_t* member, WORD kind, VARIANT* arguments,
                     std::size_t count) const {
  auto* name = const_cast<wchar_t*>(win32::wide(member));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(found)) {
    throw Error(found, kProgram, Text(u"The object has no member '") + member + u"'.");
  }

  DISPID putId = DISPID_PROPERTYPUT;
  const bool isPut = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{arguments, isPut ? &putId : nullptr, static_cast<UINT>(count),
                        isPut ? 1U : 0U};
  Variant result;
  EXCEPINFO exception{};
  const HRESULT called = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                         isPut ? nullptr : result.out(), &exception, nullptr);
  if (called == DISP_E_EXCEPTION) throw exceptionOf(exception);
  check(called, member);
  return result;
}

Late Late::object(const char16_t* member) const {
  const Variant result = call(member);
  return Late(ComPtr<IDispatch>(result.type() == VT_DISPATCH ? result.get().pdispVal : nullptr));
}

Text Late::text(const char16_t* member) const {
  const Variant result = call(member);
  return result.type() == VT_BSTR ? Bstr::textOf(result.get().bstrVal) : Text();
}

void Late::put(const char16_t* member, const Variant& value) const {
  VARIANT argument = value.get();
  invoke(member, DISPATCH_PROPERTYPUT, &argument, 1);
}

}  // namespace tillora::host::app
