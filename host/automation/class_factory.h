#pragma once

#include <windows.h>

#include <objbase.h>

#include <atomic>

#include "host/automation/module.h"
#include "support/win32/server_registration.h"

namespace tillora::host::automation {

/// A class that programs create.
struct CreatableClass {
  win32::ServerClass registered;
  /// A new object with one reference.
  IDispatch* (*create)();
};

/// The class with that id; null where there is none.
const CreatableClass* findClass(const CLSID& id);
/// All of them.
extern const CreatableClass kShopClass;
extern const CreatableClass kHostMessageBoxClass;

/// Makes objects of one class. Created with one reference, on the heap.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const CreatableClass& objects) : objects_(objects) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  virtual ~ClassFactory() = default;

  const CreatableClass& objects_;
  std::atomic<ULONG> references_{1};
  ModuleLock lock_;
};

}  // namespace tillora::host::automation
