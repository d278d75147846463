#include "tests/testing/win32/kept_annotations.h"

#include <span>

#include "com/com_ptr.h"
#include "ui/win32/handles.h"

namespace tillora::testing {
/// Neither object is counted: both live as long as KeptAnnotations.
template <class Interface>
class Uncounted : public Interface {
 public:
  explicit Uncounted(const IID& id) : id_(id) {}
  Uncounted(const Uncounted&) = delete;
  Uncounted& operator=(const Uncounted&) = delete;
  virtual ~Uncounted() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool has = id == IID_IUnknown || id == id_;
    *object = has ? static_cast<Interface*>(this) : nullptr;
    return has ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

 private:
  const IID& id_;
};

namespace {

bool platformKeepsAnnotations() {
  win32::ComPtr<IAccPropServices> services;
  if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IAccPropServices, services.outVoid()))) {
    return false;
  }
  const ui::win32::Window window(
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
  constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);
  if (FAILED(services->SetHwndPropStr(window.get(), kClient, CHILDID_SELF, PROPID_ACC_NAME,
                                      L"kept"))) {
    return false;
  }
  const MSAAPROPID name = PROPID_ACC_NAME;
  services->ClearHwndProps(window.get(), kClient, CHILDID_SELF, &name, 1);
  return true;
}

}  // namespace

class KeptAnnotations::Service final : public Uncounted<IAccPropServices> {
 public:
  explicit Service(std::map<HWND, Kept>& kept) : Uncounted(IID_IAccPropServices), kept_(kept) {}

  HRESULT WINAPI SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                             VARIANT value) override {
    if (!isWhole(object, child) || property != PROPID_ACC_ROLE || value.vt != VT_I4) {
      return E_INVALIDARG;
    }
    kept_[window].role = value.lVal;
    return S_OK;
  }
  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
    if (!isWhole(object, child) || property != PROPID_ACC_NAME) return E_INVALIDARG;
    kept_[window].name = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD object, DWORD child,
                                const MSAAPROPID* properties, int count) override {
    const auto kept = kept_.find(window);
    if (!isWhole(object, child) || kept == kept_.end()) return S_OK;
    for (const MSAAPROPID& property : std::span(properties, static_cast<std::size_t>(count))) {
      if (property == PROPID_ACC_NAME) kept->second.name.reset();
      if (property == PROPID_ACC_ROLE) kept->second.role.reset();
    }
    if (!kept->second.name && !kept->second.role) kept_.erase(kept);
    return S_OK;
  }

  // The component uses none of these.
  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }

 private:
  static bool isWhole(DWORD object, DWORD child) {
    return object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF;
  }

  std::map<HWND, Kept>& kept_;
};

class KeptAnnotations::Factory final : public Uncounted<IClassFactory> {
 public:
  explicit Factory(std::map<HWND, Kept>& kept) : Uncounted(IID_IClassFactory), service_(kept) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    return outer != nullptr ? CLASS_E_NOAGGREGATION : service_.QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }

 private:
  Service service_;
};

KeptAnnotations::KeptAnnotations() {
  if (platformKeepsAnnotations()) return;
  factory_ = std::make_unique<Factory>(kept_);
  CoRegisterClassObject(CLSID_AccPropServices, factory_.get(), CLSCTX_INPROC_SERVER,
                        REGCLS_MULTIPLEUSE, &registration_);
}

KeptAnnotations::~KeptAnnotations() {
  if (factory_) CoRevokeClassObject(registration_);
}

std::optional<std::wstring> KeptAnnotations::name(HWND window) const {
  const auto kept = kept_.find(window);
  return kept == kept_.end() ? std::nullopt : kept->second.name;
}

std::optional<LONG> KeptAnnotations::role(HWND window) const {
  const auto kept = kept_.find(window);
  return kept == kept_.end() ? std::nullopt : kept->second.role;
}

}  // namespace tillora::testing
