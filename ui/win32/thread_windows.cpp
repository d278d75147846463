#include "ui/win32/thread_windows.h"

#include <algorithm>
#include <new>

namespace tillora::ui::win32 {
namespace {

struct Collected {
  std::vector<HWND> windows;
  bool failed = false;
};

// No exception passes through the platform's enumeration.
BOOL CALLBACK collect(HWND window, LPARAM collected) noexcept {
  auto& all = *reinterpret_cast<Collected*>(collected);
  try {
    all.windows.push_back(window);
  } catch (...) {
    all.failed = true;
  }
  return !all.failed;
}

bool isOwnedBy(HWND window, HWND owner) {
  while (window && window != owner) window = GetWindow(window, GW_OWNER);
  return window != nullptr;
}

}  // namespace

std::vector<HWND> threadWindows() {
  Collected collected;
  EnumThreadWindows(GetCurrentThreadId(), &collect, reinterpret_cast<LPARAM>(&collected));
  if (collected.failed) throw std::bad_alloc();
  return std::move(collected.windows);
}

HWND windowOver(HWND window) {
  const std::vector<HWND> windows = threadWindows();
  const auto found = std::ranges::find_if(windows, [window](HWND other) {
    return other != window && IsWindowVisible(other) && IsWindowEnabled(other) &&
           isOwnedBy(other, window);
  });
  return found == windows.end() ? nullptr : *found;
}

}  // namespace tillora::ui::win32
