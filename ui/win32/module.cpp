#include "ui/win32/module.h"

#include <mutex>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // given by the linker

namespace tillora::ui::win32 {

HINSTANCE thisModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

VisualStyles::VisualStyles() {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = thisModule();
  wanted.lpResourceName = MAKEINTRESOURCEW(2);
  context_ = CreateActCtxW(&wanted);
  active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

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
  definition.hInstance = thisModule();
  definition.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  definition.lpszClassName = kName;
  RegisterClassExW(&definition);
}

FrameClass::~FrameClass() { UnregisterClassW(kName, thisModule()); }

}  // namespace tillora::ui::win32
