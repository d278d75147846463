#include "host/automation/host_object.h"

#include <exception>
#include <new>

#include "com/bstr.h"
#include "host/shop_error.h"

namespace tillora::host::automation {

using win32::Bstr;

namespace {

/// Fills the caller's exception information, if it wants any.
HRESULT report(EXCEPINFO* exception, const Error& error) {
  if (exception == nullptr) return error.number() < 0 ? error.number() : E_FAIL;
  Bstr source(error.source());
  Bstr description(error.description());
  Bstr helpFile(error.helpFile());
  *exception = {};
  exception->scode = error.number();
  exception->bstrSource = source.detach();
  exception->bstrDescription = description.detach();
  exception->bstrHelpFile = helpFile.detach();
  exception->dwHelpContext = error.helpContext();
  return DISP_E_EXCEPTION;
}

}  // namespace

HRESULT HostObject::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IDispatch && id != interfaceId_) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG HostObject::AddRef() { return ++references_; }

ULONG HostObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT HostObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT HostObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT HostObject::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  // The names after the first are those of arguments, which this host's members do not have.
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const auto* const name = reinterpret_cast<const char16_t*>(names[0]);
  ids[0] = findMember(name);
  return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT HostObject::Invoke(DISPID member, REFIID id, LCID, WORD flags, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* exception, UINT* argument) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (parameters == nullptr) return E_INVALIDARG;
  // A handler may release this object.
  const ComPtr<IDispatch> alive(this);
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  // A put names its new value; other named arguments are not known here.
  const bool namesValue =
      parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  if (isPut ? !namesValue : parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  try {
    const Arguments arguments(*parameters);
    if (isPut) {
      put(member, arguments);
      return S_OK;
    }
    Variant value = get(member, arguments);
    if (result != nullptr) std::swap(*result, *value.address());
    return S_OK;
  } catch (const CallRefused& refused) {
    if (argument != nullptr) *argument = refused.argument;
    return refused.result;
  } catch (const Error& error) {
    try {
      return report(exception, error);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace tillora::host::automation
