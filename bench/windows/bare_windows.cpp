#include "bench/windows/bare_windows.h"

#include "com/module.h"
#include "ui/win32/frame_class.h"
#include "ui/win32/window_text.h"

namespace tillora::bench {

BareWindows::BareWindows(HWND dialog) { add(dialog, 0); }

void BareWindows::add(HWND window, std::size_t parent) {
  Record record;
  record.className.resize(256);
  record.className.resize(static_cast<std::size_t>(
      GetClassNameW(window, record.className.data(), static_cast<int>(record.className.size()))));
  // Windows that the common controls make for themselves come with their owners.
  if (record.className == WC_HEADERW) return;
  // The class of frames has a procedure of its own.
  if (record.className == ui::win32::FrameClass::kName) record.className = WC_STATICW;
  record.text = ui::win32::windowText(window);
  record.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
  record.extended = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  GetWindowRect(window, &record.place);
  if (!windows_.empty()) {
    MapWindowPoints(HWND_DESKTOP, GetParent(window), reinterpret_cast<POINT*>(&record.place), 2);
  }
  record.parent = parent;
  // The fonts of a form live as long as its screen.
  record.font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
  windows_.push_back(record);

  const std::size_t own = windows_.size() - 1;
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    add(child, own);
  }
}

ui::win32::Window BareWindows::open(HWND owner) const {
  std::vector<HWND> made;
  made.reserve(windows_.size());
  for (const Record& record : windows_) {
    const HWND parent = made.empty() ? owner : made[record.parent];
    const DWORD style = made.empty() ? record.style & ~DWORD{WS_VISIBLE} : record.style;
    const HWND window = CreateWindowExW(
        record.extended, record.className.c_str(), record.text.c_str(), style, record.place.left,
        record.place.top, record.place.right - record.place.left,
        record.place.bottom - record.place.top, parent, nullptr, win32::thisModule(), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(record.font), FALSE);
    made.push_back(window);
  }
  ShowWindow(made.front(), SW_SHOW);
  pump();
  return ui::win32::Window(made.front());
}

void pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace tillora::bench
