#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

#include <cstdint>
#include <vector>

#include "com/com_ptr.h"
#include "com/with_error_info.h"

namespace tillora::automation {

/// The one connection point of an object: its listeners of one event interface. Part of its owner,
/// and lives as long.
class ConnectionPoint final : public win32::WithErrorInfo<IConnectionPoint> {
 public:
  ConnectionPoint(IConnectionPointContainer& owner, const IID& events)
      : owner_(owner), events_(events) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;
  virtual ~ConnectionPoint() = default;

  /// Calls the event with one by-reference Long on every listener, in the order in which they were
  /// advised. Each listener gets the value that the one before left, and the caller the last one.
  ///
  /// A listener may unadvise itself or others meanwhile: one that is gone when its turn comes is
  /// not called, nor is one that was added meanwhile. A failing listener affects neither the others
  /// nor the caller, since the event reports what has already happened.
  void raise(DISPID event, std::int32_t& value);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** owner) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* listener, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  struct Listener {
    DWORD cookie;
    win32::ComPtr<IDispatch> object;
  };

  bool isAdvised(DWORD cookie) const;

  IConnectionPointContainer& owner_;
  const IID& events_;
  std::vector<Listener> listeners_;
  DWORD lastCookie_ = 0;
};

}  // namespace tillora::automation
