#pragma once

#include <windows.h>

#include <oleauto.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

#include "TilloraOptions.h"
#include "base/error.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

namespace tillora::testing {

/// A client's sink of the component's events. Created with one reference, on the heap.
class EventListener final : public IDispatch {
 public:
  /// Gets the by-reference argument; its result is what the sink returns.
  using Handler = std::function<HRESULT(LONG& changes)>;

  static win32::ComPtr<EventListener> make(Handler handler) {
    return win32::ComPtr<EventListener>::adopt(new EventListener(std::move(handler)));
  }

  /// What the listener reports when its handler fails, as exception information.
  std::optional<Error> raises;
  int heard = 0;
  ULONG references() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == DIID___Options;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                   VARIANT*, EXCEPINFO* exception, UINT*) override {
    if (event != DISPID_OPTIONSCHANGED || parameters->cArgs != 1 ||
        parameters->rgvarg[0].vt != (VT_I4 | VT_BYREF)) {
      return DISP_E_MEMBERNOTFOUND;
    }
    ++heard;
    const HRESULT result = handler_(*parameters->rgvarg[0].plVal);
    if (SUCCEEDED(result) || !raises) return result;
    exception->bstrSource = win32::Bstr(raises->source()).detach();
    exception->bstrDescription = win32::Bstr(raises->description()).detach();
    exception->scode = raises->number();
    return DISP_E_EXCEPTION;
  }

 private:
  explicit EventListener(Handler handler) : handler_(std::move(handler)) {}
  virtual ~EventListener() = default;

  Handler handler_;
  std::atomic<ULONG> references_ = 1;
};

/// The connection point of the component's events.
inline win32::ComPtr<IConnectionPoint> connectionPoint(_Options& options) {
  win32::ComPtr<IConnectionPointContainer> container;
  options.QueryInterface(IID_IConnectionPointContainer, container.outVoid());
  win32::ComPtr<IConnectionPoint> point;
  container->FindConnectionPoint(DIID___Options, point.out());
  return point;
}

}  // namespace tillora::testing
