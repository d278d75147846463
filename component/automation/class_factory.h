#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

#include "component/automation/module.h"
#include "component/automation/with_error_info.h"

namespace tillora::automation {

/// Makes Options objects. Created with one reference, on the heap.
class ClassFactory final : public WithErrorInfo<IClassFactory> {
 public:
  ClassFactory() = default;
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  /// CLASS_E_NOAGGREGATION for an outer object.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  virtual ~ClassFactory() = default;

  ModuleLock lock_;
  std::atomic<ULONG> references_{1};
};

}  // namespace tillora::automation
