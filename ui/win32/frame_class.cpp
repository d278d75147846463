#include "ui/win32/frame_class.h"

#include <mutex>

#include "com/module.h"

namespace tillora::ui::win32 {

std::shared_ptr<FrameClass> FrameClass::get() {
  static std::mutex mutex;
  static std::weak_ptr<FrameClass> current;
  const std::lock_guard lock(mutex);
  auto shared = current.lock();
  if (!shared) {
    shared = std::make_shared<FrameClass>();
    current = shared;
  }
  return shared;
}

FrameClass::FrameClass() {
  WNDCLASSEXW definition{};
  definition.cbSize = sizeof definition;
  definition.lpfnWndProc = DefWindowProcW;  // a view subclasses each window
  definition.hInstance = tillora::win32::thisModule();
  definition.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  definition.lpszClassName = kName;
  RegisterClassExW(&definition);
}

FrameClass::~FrameClass() { UnregisterClassW(kName, tillora::win32::thisModule()); }

}  // namespace tillora::ui::win32
