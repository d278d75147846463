#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

#include "com/com_ptr.h"
#include "com/module.h"
#include "com/with_error_info.h"

namespace tillora::win32 {

/// A creatable class of an in-process server, for single-threaded apartments.
struct ServerClass {
  const CLSID& id;
  const char16_t* programId;  ///< without its version
  const char16_t* title;
  /// A new object with one reference.
  IDispatch* (*create)();
};

/// Makes objects of one class.
class ClassFactory final : public WithErrorInfo<IClassFactory> {
 public:
  static ComPtr<IClassFactory> make(const ServerClass& objects);
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  /// CLASS_E_NOAGGREGATION for an outer object.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  explicit ClassFactory(const ServerClass& objects) : objects_(objects) {}
  virtual ~ClassFactory() = default;

  const ServerClass& objects_;
  ModuleLock lock_;
  std::atomic<ULONG> references_{1};
};

}  // namespace tillora::win32
