#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>

#include <atomic>

#include "com/module.h"
#include "component/automation/com_error.h"
#include "component/automation/member_call.h"
#include "component/automation/type_library.h"

namespace tillora::automation {

/// A COM object with one dual interface: IUnknown, IDispatch through the type library,
/// IProvideClassInfo2 and ISupportErrorInfo. Created with one reference, on the heap, in a
/// single-threaded apartment; not aggregatable. Keeps the module loaded.
///
/// `Class` gives the ids: kInterfaceId, kClassId, kEventsId (IID_NULL for none).
template <class Class, class Dual>
class AutomationObject : public Dual, public IProvideClassInfo2, public ISupportErrorInfo {
 public:
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  // IUnknown

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = findInterface(id);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      // Releasing members in the destructor may call back; that must not bring the count to zero
      // again.
      references_ = kDying;
      delete static_cast<Class*>(this);
    }
    return left;
  }

  // IDispatch

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    *info = win32::ComPtr<ITypeInfo>(typeInfo_).detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return DispGetIDsOfNames(typeInfo_.get(), names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* argument) override {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return callMember(*typeInfo_.get(), static_cast<Dual*>(this), member, flags, parameters, result,
                      exception, argument);
  }

  // IProvideClassInfo2

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return guarded(IID_IProvideClassInfo,
                   [info] { *info = loadTypeInfo(Class::kClassId).detach(); });
  }
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) return E_POINTER;
    *id = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || Class::kEventsId == IID_NULL) {
      return E_INVALIDARG;
    }
    *id = Class::kEventsId;
    return S_OK;
  }

  // ISupportErrorInfo

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return setsErrorInfo(id) ? S_OK : S_FALSE;
  }

 protected:
  AutomationObject() : typeInfo_(loadTypeInfo(Class::kInterfaceId)) {}
  virtual ~AutomationObject() = default;

  /// An interface beyond the common ones; null for none. No reference is added.
  virtual void* findOwnInterface(REFIID) { return nullptr; }
  /// Whether failures of the interface's own members come with error information.
  virtual bool setsErrorInfo(REFIID id) const {
    return id == Class::kInterfaceId || id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2;
  }

 private:
  static constexpr ULONG kDying = 0x40000000;

  void* findInterface(REFIID id) {
    if (id == IID_IUnknown || id == IID_IDispatch || id == Class::kInterfaceId) {
      return static_cast<Dual*>(this);
    }
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    return findOwnInterface(id);
  }

  win32::ModuleLock lock_;
  std::atomic<ULONG> references_{1};
  win32::ComPtr<ITypeInfo> typeInfo_;
};

}  // namespace tillora::automation
