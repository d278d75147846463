#pragma once

#include <windows.h>

#include "ui/keys.h"

namespace tillora::ui::win32 {

/// The modifier keys that were down when the current message was generated.
inline Modifiers heldModifiers() {
  const auto isDown = [](int key) { return GetKeyState(key) < 0; };
  return {.shift = isDown(VK_SHIFT), .ctrl = isDown(VK_CONTROL), .alt = isDown(VK_MENU)};
}

}  // namespace tillora::ui::win32
