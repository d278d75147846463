#include "ui/win32/annotations.h"

#include <array>
#include <utility>

namespace tillora::ui::win32 {
namespace {

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

IAccPropServices* Annotations::services() {
  if (!std::exchange(asked_, true)) {
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     services_.outVoid());
  }
  return services_.get();
}

void Annotations::set(HWND window, const std::wstring& name, LONG role) {
  Told told{name, role};
  const auto found = told_.find(window);
  if (told == (found == told_.end() ? Told{} : found->second) || !services()) return;
  if (!name.empty()) {
    services()->SetHwndPropStr(window, kClient, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
  }
  if (role != 0) {
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = role;
    services()->SetHwndProp(window, kClient, CHILDID_SELF, PROPID_ACC_ROLE, number);
  }
  told_[window] = std::move(told);
}

void Annotations::clear(HWND window) {
  if (told_.erase(window) == 0) return;
  const std::array<MSAAPROPID, 2> properties{PROPID_ACC_NAME, PROPID_ACC_ROLE};
  services()->ClearHwndProps(window, kClient, CHILDID_SELF, properties.data(),
                             static_cast<int>(properties.size()));
}

}  // namespace tillora::ui::win32
