#include "ui/win32/visual_styles.h"

#include <atomic>

#include "com/module.h"

namespace tillora::ui::win32 {
namespace {

HANDLE makeContext() {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = tillora::win32::thisModule();
  wanted.lpResourceName = MAKEINTRESOURCEW(2);
  return CreateActCtxW(&wanted);
}

/// The context of the module's manifest, made once.
class ModuleContext {
 public:
  ModuleContext() = default;
  ModuleContext(const ModuleContext&) = delete;
  ModuleContext& operator=(const ModuleContext&) = delete;
  ~ModuleContext() { release(context_); }

  /// INVALID_HANDLE_VALUE if it cannot be made; the next call tries again.
  HANDLE get() {
    HANDLE known = context_;
    if (known != INVALID_HANDLE_VALUE) return known;
    const HANDLE made = makeContext();
    if (context_.compare_exchange_strong(known, made)) return made;
    release(made);
    return known;
  }

 private:
  static void release(HANDLE context) {
    if (context != INVALID_HANDLE_VALUE) ReleaseActCtx(context);
  }

  std::atomic<HANDLE> context_ = INVALID_HANDLE_VALUE;
};

ModuleContext moduleContext;

}  // namespace

VisualStyles::VisualStyles() {
  const HANDLE context = moduleContext.get();
  active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_);
}

VisualStyles::~VisualStyles() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace tillora::ui::win32
