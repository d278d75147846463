#pragma once

#include <windows.h>

#include <oleauto.h>

#include "TilloraOptions.h"

/// Receives OptionsChanged of an Options object. The argument arrives by reference; what the
/// listener leaves in it goes back to the component, which ignores it.
class ChangesListener final : public IDispatch {
 public:
  /// Starts listening; does nothing if `options` has no events.
  explicit ChangesListener(IUnknown* options);
  ~ChangesListener();
  ChangesListener(const ChangesListener&) = delete;
  ChangesListener& operator=(const ChangesListener&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  // It lives on the stack and longer than the connection, so it needs no count.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                   VARIANT*, EXCEPINFO*, UINT*) override;

 private:
  IConnectionPoint* events_ = nullptr;
  DWORD cookie_ = 0;
};
