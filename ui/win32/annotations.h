#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>
#include <unordered_map>

#include "com/com_ptr.h"

namespace tillora::ui::win32 {

/// What windows tell screen readers beyond what their classes tell by themselves. The platform
/// keeps it beside each window. Without annotations, as under Wine, it does nothing.
class Annotations {
 public:
  /// Tells a window's name and its role (ROLE_SYSTEM_*); empty and 0 for what its class says.
  void set(HWND window, const std::wstring& name, LONG role);
  /// Takes back what was told about a window, which is about to be destroyed.
  void clear(HWND window);

 private:
  struct Told {
    std::wstring name;
    LONG role = 0;
    friend bool operator==(const Told&, const Told&) = default;
  };

  IAccPropServices* services();

  tillora::win32::ComPtr<IAccPropServices> services_;
  bool asked_ = false;
  std::unordered_map<HWND, Told> told_;
};

}  // namespace tillora::ui::win32
