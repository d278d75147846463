#include "bench/windows/host_window.h"

#include "com/module.h"

namespace tillora::bench {
namespace {

ATOM registerHostClass() {
  WNDCLASSEXW hostClass{};
  hostClass.cbSize = sizeof hostClass;
  hostClass.lpfnWndProc = &DefWindowProcW;
  hostClass.hInstance = win32::thisModule();
  hostClass.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  hostClass.lpszClassName = L"TilloraBenchmarkHost";
  return RegisterClassExW(&hostClass);
}

}  // namespace

ui::win32::Window makeHostWindow() {
  static const ATOM hostClass = registerHostClass();
  return ui::win32::Window(CreateWindowExW(0, MAKEINTATOM(hostClass), L"Benchmark",
                                           WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 700,
                                           nullptr, nullptr, win32::thisModule(), nullptr));
}

}  // namespace tillora::bench
