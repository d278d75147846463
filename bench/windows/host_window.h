#pragma once

#include "ui/win32/handles.h"

namespace tillora::bench {

/// Stands for a host's main window. Its class is an ordinary one: those of controls paint
/// themselves anew when they are disabled, which a dialog on top would then be charged with.
ui::win32::Window makeHostWindow();

}  // namespace tillora::bench
