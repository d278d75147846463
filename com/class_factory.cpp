#include "com/class_factory.h"

#include "com/error_info.h"

namespace tillora::win32 {

ComPtr<IClassFactory> ClassFactory::make(const ServerClass& objects) {
  return ComPtr<IClassFactory>::adopt(new ClassFactory(objects));
}

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
  const HRESULT created = guarded(IID_IClassFactory, objects_.programId, [&] {
    found = ComPtr<IDispatch>::adopt(objects_.create())->QueryInterface(id, object);
  });
  return FAILED(created) ? created : found;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  ModuleLock::lockServer(lock != FALSE);
  return S_OK;
}

}  // namespace tillora::win32
