#include "ui/win32/visual_styles.h"

#include "com/module.h"

namespace tillora::ui::win32 {

VisualStyles::VisualStyles() {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = tillora::win32::thisModule();
  wanted.lpResourceName = MAKEINTRESOURCEW(2);
  context_ = CreateActCtxW(&wanted);
  active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace tillora::ui::win32
