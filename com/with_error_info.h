#pragma once

#include <windows.h>

#include <oaidl.h>

namespace tillora::win32 {

/// An interface whose failures come with error information: its objects say so through
/// ISupportErrorInfo. Their QueryInterface must return this interface.
template <class Interface>
class WithErrorInfo : public Interface, public ISupportErrorInfo {
 public:
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Interface) ? S_OK : S_FALSE;
  }

 protected:
  ~WithErrorInfo() = default;

  /// The interfaces of this base; null for any other. No reference is added.
  void* findInterface(REFIID id) {
    if (id == IID_IUnknown || id == __uuidof(Interface)) return static_cast<Interface*>(this);
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    return nullptr;
  }
};

}  // namespace tillora::win32
