#include "component/automation/connection_point.h"

#include <algorithm>

#include "component/automation/com_error.h"
#include "component/automation/enumerators.h"
#include "component/automation/host_failure.h"
#include "ui/win32/dpi_context.h"

namespace tillora::automation {

using win32::ComPtr;

void ConnectionPoint::raise(DISPID event, std::int32_t& value) {
  const std::vector<Listener> present = listeners_;
  const ui::win32::ProgramsScaling scaling;
  for (const Listener& listener : present) {
    if (!isAdvised(listener.cookie)) continue;
    LONG changeable = value;
    VARIANTARG argument;
    VariantInit(&argument);
    argument.vt = VT_BYREF | VT_I4;
    argument.plVal = &changeable;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    ExceptionInfo ignored;
    UINT wrongArgument = 0;
    listener.object->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                            nullptr, ignored.out(), &wrongArgument);
    value = changeable;
  }
}

bool ConnectionPoint::isAdvised(DWORD cookie) const {
  return std::ranges::find(listeners_, cookie, &Listener::cookie) != listeners_.end();
}

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = findInterface(id);
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  *id = events_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** owner) {
  if (owner == nullptr) return E_POINTER;
  *owner = ComPtr<IConnectionPointContainer>(&owner_).detach();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* listener, DWORD* cookie) {
  if (listener == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  return guarded(IID_IConnectionPoint, [&] {
    const ComPtr<IUnknown> given(listener);
    auto object = given.query<IDispatch>(events_);
    // A listener written in a script supports only IDispatch.
    if (!object) object = given.query<IDispatch>();
    throwIfFailed(object ? S_OK : CONNECT_E_CANNOTCONNECT, u"Advise");
    listeners_.push_back({lastCookie_ + 1, std::move(object)});
    *cookie = ++lastCookie_;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = std::ranges::find(listeners_, cookie, &Listener::cookie);
  if (found == listeners_.end()) return CONNECT_E_NOCONNECTION;
  // Released last: it may call back.
  const Listener gone = std::move(*found);
  listeners_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return guarded(IID_IConnectionPoint, [&] {
    std::vector<Connection> items;
    items.reserve(listeners_.size());
    for (const Listener& listener : listeners_) {
      items.push_back({ComPtr<IUnknown>(listener.object.get()), listener.cookie});
    }
    *connections = new ConnectionEnumerator(std::move(items));
  });
}

}  // namespace tillora::automation
