#pragma once

#include "ui/up_down.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A pair of arrow buttons. The window reports clicks and counts nothing.
class UpDownView final : public ViewOf<UpDown> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  LRESULT notify(NMHDR& header) override;
};

}  // namespace tillora::ui::win32
