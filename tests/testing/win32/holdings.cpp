#include "tests/testing/win32/holdings.h"

namespace tillora::testing {
namespace {

BOOL CALLBACK addWindow(HWND window, LPARAM windows) {
  reinterpret_cast<std::set<HWND>*>(windows)->insert(window);
  return TRUE;
}

DWORD gdiObjects() {
  if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return counted;
  // A platform that does not count them: it finds an object by the lower half of its handle.
  DWORD count = 0;
  for (UINT_PTR handle = 1; handle <= 0xFFFF; ++handle) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0) ++count;
  }
  return count;
}

BOOL CALLBACK countWindow(HWND /*window*/, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

}  // namespace

int childWindows(HWND window) {
  int count = 0;
  EnumChildWindows(window, &countWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

std::set<HWND> windowsOfThread() {
  std::set<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &addWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

Holdings::Holdings() : windows(windowsOfThread()), gdi(gdiObjects()) {
  GetProcessHandleCount(GetCurrentProcess(), &handles);
}

bool Holdings::leaked(const Holdings& later, DWORD dialogs) const {
  return later.windows != windows || later.gdi >= gdi + dialogs ||
         later.handles >= handles + dialogs;
}

std::ostream& operator<<(std::ostream& out, const Holdings& held) {
  return out << held.windows.size() << " windows, " << held.gdi << " GDI objects, " << held.handles
             << " handles";
}

}  // namespace tillora::testing
