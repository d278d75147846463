#pragma once

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace tillora::testing {

/// A key as the keyboard sends it: with the modifier keys that are held down meanwhile.
struct KeyStroke {
  WORD key = 0;  ///< VK_*
  bool shift = false;
  bool ctrl = false;
  bool alt = false;
};

inline INPUT keyInput(WORD key, bool up) {
  constexpr WORD kExtended[] = {VK_PRIOR, VK_NEXT,  VK_END,  VK_HOME,   VK_LEFT,
                                VK_UP,    VK_RIGHT, VK_DOWN, VK_INSERT, VK_DELETE};
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  if (std::ranges::find(kExtended, key) != std::end(kExtended)) {
    input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
  }
  return input;
}

inline void sendInputs(std::vector<INPUT> inputs) {
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

inline std::vector<INPUT> inputsOf(const KeyStroke& stroke) {
  std::vector<WORD> keys;
  if (stroke.shift) keys.push_back(VK_SHIFT);
  if (stroke.ctrl) keys.push_back(VK_CONTROL);
  if (stroke.alt) keys.push_back(VK_MENU);
  keys.push_back(stroke.key);
  std::vector<INPUT> inputs;
  for (const WORD down : keys) inputs.push_back(keyInput(down, false));
  std::ranges::reverse(keys);
  for (const WORD up : keys) inputs.push_back(keyInput(up, true));
  return inputs;
}

/// A character: by its key if the keyboard has one that needs no more than Shift.
inline std::vector<INPUT> inputsOf(wchar_t character) {
  const SHORT key = VkKeyScanW(character);
  constexpr int kShifted = 1;
  if (const int state = HIBYTE(key); key != -1 && (state == 0 || state == kShifted)) {
    return inputsOf(KeyStroke{.key = LOBYTE(key), .shift = state == kShifted});
  }
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = character;
  input.ki.dwFlags = KEYEVENTF_UNICODE;
  std::vector<INPUT> inputs{input, input};
  inputs.back().ki.dwFlags |= KEYEVENTF_KEYUP;
  return inputs;
}

/// For the program in front.
inline void strike(const KeyStroke& stroke) { sendInputs(inputsOf(stroke)); }
inline void strikeCharacter(wchar_t character) { sendInputs(inputsOf(character)); }

/// The window with the focus in the thread of this one; null for none.
inline HWND focusBeside(HWND window) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread);
  return thread.hwndFocus;
}

/// Whether this top-level window has the keyboard. Keys that are struck as soon as it is visible
/// may still go to the window that was in front before.
inline bool hasKeyboard(HWND window) {
  const HWND focus = focusBeside(window);
  return GetForegroundWindow() == window && (focus == window || IsChild(window, focus) != FALSE);
}

}  // namespace tillora::testing
