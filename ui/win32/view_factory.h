#pragma once

#include <memory>

#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// The view for a control of any kind but a form.
std::unique_ptr<ControlView> makeView(FormWindow& formWindow, Control& control);

}  // namespace tillora::ui::win32
