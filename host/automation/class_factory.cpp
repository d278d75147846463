#include "host/automation/class_factory.h"

#include <TilloraHost.h>

#include <new>

#include "host/automation/program_objects.h"
#include "host/automation/shop_object.h"

namespace tillora::host::automation {

const CreatableClass kShopClass{{CLSID_Shop, u"TilloraHost.Shop", u"Tillora Shop"},
                                []() -> IDispatch* { return new ShopObject; }};
const CreatableClass kHostMessageBoxClass{
    {CLSID_ShopMessageBox, u"TilloraHost.HostMessageBox", u"Tillora Message Box"},
    []() -> IDispatch* { return new HostMessageBoxObject; }};

const CreatableClass* findClass(const CLSID& id) {
  for (const CreatableClass* known : {&kShopClass, &kHostMessageBoxClass}) {
    if (known->registered.id == id) return known;
  }
  return nullptr;
}

HRESULT ClassFactory::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG ClassFactory::AddRef() { return ++references_; }

ULONG ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  try {
    return ComPtr<IDispatch>::adopt(objects_.create())->QueryInterface(id, object);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  ModuleLock::lockServer(lock != FALSE);
  return S_OK;
}

}  // namespace tillora::host::automation
