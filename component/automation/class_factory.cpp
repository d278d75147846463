#include "component/automation/class_factory.h"

#include "component/automation/options_object.h"

namespace tillora::automation {

using win32::ComPtr;

HRESULT ClassFactory::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = findInterface(id);
  if (*object == nullptr) return E_NOINTERFACE;
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
  HRESULT found = E_NOINTERFACE;
  const HRESULT created = guarded(IID_IClassFactory, [&] {
    const auto options = ComPtr<OptionsObject>::adopt(new OptionsObject(makeServices()));
    found = options->QueryInterface(id, object);
  });
  return FAILED(created) ? created : found;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  ModuleLock::lockServer(lock != FALSE);
  return S_OK;
}

}  // namespace tillora::automation
