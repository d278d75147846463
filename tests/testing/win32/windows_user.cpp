#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/testing/win32/key_strokes.h"
#include "tests/testing/win32/windows_desk.h"

namespace tillora::testing {
namespace {

using ui::Key;
using ui::Kind;

constexpr ULONGLONG kMostWaiting = 10000;  // milliseconds

/// Another program may be reading it. A clipboard without an owner takes no data.
bool openClipboard(HWND owner) {
  const ULONGLONG end = GetTickCount64() + kMostWaiting;
  while (!OpenClipboard(owner)) {
    if (GetTickCount64() >= end) return false;
    Sleep(1);
  }
  return true;
}

bool putOnClipboard(HWND owner, TextView text) {
  if (!openClipboard(owner)) return false;
  EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
  std::memcpy(GlobalLock(memory), text.data(), bytes - sizeof(char16_t));
  GlobalUnlock(memory);
  const bool put = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  CloseClipboard();
  return put;
}

POINT middleOf(const RECT& area) {
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

POINT middleOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return middleOf(area);
}

RECT itemArea(HWND list, int row, LONG part) {
  RECT area{};
  area.left = part;
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return area;
}

void scrollTo(HWND list, int row) {
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace

HWND WindowsUser::reach(const ui::Control& control) const {
  const HWND window = screen_.windowOf(control);
  if (!window || !IsWindowVisible(window)) return nullptr;
  return GetAncestor(window, GA_ROOT) == screen_.topWindow() ? window : nullptr;
}

// Moving the pointer waits for the display, so that all its earlier events have arrived by then.
void WindowsUser::settle() {
  POINT pointer{};
  GetCursorPos(&pointer);
  SetCursorPos(pointer.x ^ 1, pointer.y);
  screen_.pumpUntilIdle();
}

// Wine puts a window on top when the display says that the pointer has entered it. A late event
// about the window below, from before the dialog was shown, would send the click there.
bool WindowsUser::moveTo(HWND window, POINT at) {
  settle();
  SetCursorPos(at.x, at.y);
  const ULONGLONG end = GetTickCount64() + kMostWaiting;
  const HWND wanted = GetAncestor(window, GA_ROOT);
  while (GetAncestor(WindowFromPoint(at), GA_ROOT) != wanted) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    screen_.pumpUntilIdle();
  }
  return true;
}

void WindowsUser::clickAt(HWND window, POINT point, int times) {
  // A time of our own: two clicks of a test are never taken for a double-click, however fast.
  static DWORD time = GetTickCount();
  time += 10 * GetDoubleClickTime();
  ClientToScreen(window, &point);
  if (!moveTo(window, point)) {
    ADD_FAILURE() << "another window covers the one to be clicked";
    return;
  }
  std::vector<INPUT> inputs;
  for (int i = 0; i < times; ++i) {
    for (const DWORD flag : {DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
      INPUT input{};
      input.type = INPUT_MOUSE;
      input.mi.dwFlags = flag;
      input.mi.time = ++time;
      inputs.push_back(input);
    }
  }
  sendInputs(inputs);
  screen_.pumpUntilIdle();
}

void WindowsUser::press(Key key, ui::Modifiers modifiers) {
  strike({.key = static_cast<WORD>(key),
          .shift = modifiers.shift,
          .ctrl = modifiers.ctrl,
          .alt = modifiers.alt});
  screen_.pumpUntilIdle();
}

void WindowsUser::type(TextView text) {
  for (const char16_t character : text) {
    strikeCharacter(static_cast<wchar_t>(character));
    screen_.pumpUntilIdle();
  }
}

void WindowsUser::paste(TextView text) {
  if (!putOnClipboard(screen_.topWindow(), text)) {
    ADD_FAILURE() << "the clipboard cannot be set";
    return;
  }
  press(static_cast<Key>('V'), {.ctrl = true});
}

void WindowsUser::accessKey(char16_t letter) {
  const SHORT key = VkKeyScanW(static_cast<WCHAR>(letter));
  if (key != -1) press(static_cast<Key>(LOBYTE(key)), {.alt = true});
}

void WindowsUser::click(ui::Control& control) {
  const HWND window = reach(control);
  if (!window) return;
  POINT point = middleOf(window);
  // At the start of a text nothing changes but the caret; a check box ends with its caption.
  if (control.kind() != Kind::commandButton) point.x = std::min(point.x, LONG{6});
  if (control.kind() == Kind::textBox) point = {1, 3};
  clickAt(window, point);
}

void WindowsUser::clickTab(ui::TabStrip& tabs, int tab) {
  const HWND window = reach(tabs);
  if (!window) return;
  RECT area{};
  SendMessageW(window, TCM_GETITEMRECT, static_cast<WPARAM>(tab - 1),
               reinterpret_cast<LPARAM>(&area));
  clickAt(window, middleOf(area));
}

void WindowsUser::clickRow(ui::ListView& list, int row) {
  const HWND window = reach(list);
  if (!window) return;
  scrollTo(window, row);
  clickAt(window, middleOf(itemArea(window, row, LVIR_LABEL)));
}

void WindowsUser::doubleClickRow(ui::ListView& list, int row) {
  const HWND window = reach(list);
  if (!window) return;
  scrollTo(window, row);
  clickAt(window, middleOf(itemArea(window, row, LVIR_LABEL)), 2);
}

void WindowsUser::doubleClickBelow(ui::ListView& list) {
  const HWND window = reach(list);
  if (!window) return;
  RECT area{};
  GetClientRect(window, &area);
  clickAt(window, {area.right / 2, area.bottom - 2}, 2);
}

void WindowsUser::clickCheck(ui::CheckListBox& list, int row) {
  const HWND window = reach(list);
  if (!window) return;
  scrollTo(window, row);
  const RECT item = itemArea(window, row, LVIR_BOUNDS);
  clickAt(window, {item.left + GetSystemMetrics(SM_CXSMICON) / 2, middleOf(item).y});
}

void WindowsUser::choose(ui::ComboBox& combo, int item) {
  const HWND window = reach(combo);
  if (!window) return;
  clickAt(window, middleOf(window));
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  if (!GetComboBoxInfo(window, &info) || !IsWindowVisible(info.hwndList)) return;
  SendMessageW(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(item), 0);
  RECT area{};
  SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(item),
               reinterpret_cast<LPARAM>(&area));
  clickAt(info.hwndList, middleOf(area));
}

void WindowsUser::spin(ui::UpDown& upDown, int direction) {
  const HWND window = reach(upDown);
  if (!window) return;
  RECT area{};
  GetClientRect(window, &area);
  clickAt(window, {area.right / 2, direction > 0 ? area.bottom / 4 : area.bottom * 3 / 4});
}

void WindowsUser::closeWindow(ui::Form& form) {
  if (!form.isShown()) return;
  PostMessageW(screen_.windowOf(form), WM_SYSCOMMAND, SC_CLOSE, 0);
  screen_.pumpUntilIdle();
}

}  // namespace tillora::testing
