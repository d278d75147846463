#pragma once

#include <cstdint>

namespace tillora::ui {

/// A key, numbered as the platform numbers virtual keys (VK_*). Letters and digits are their
/// upper-case character codes.
enum class Key : std::uint16_t {
  none = 0,
  backspace = 8,
  tab = 9,
  enter = 13,
  escape = 27,
  space = 32,
  pageUp = 33,
  pageDown = 34,
  end = 35,
  home = 36,
  left = 37,
  up = 38,
  right = 39,
  down = 40,
  insert = 45,
  del = 46,
  f1 = 112,
  f4 = 115,
};

/// Modifier keys held down with a key.
struct Modifiers {
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
  friend bool operator==(const Modifiers&, const Modifiers&) = default;
};

/// The character that the Backspace key types with Ctrl.
inline constexpr char16_t kDeleteCharacter = 0x7F;

}  // namespace tillora::ui
