#include "ui/win32/screen.h"

#include <algorithm>
#include <utility>

#include "ui/form.h"
#include "ui/win32/form_window.h"
#include "ui/win32/list_order.h"
#include "ui/win32/modal_run.h"

namespace tillora::ui::win32 {

Screen::Screen() {
  const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES |
                                                       ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&wanted);
}

Screen::~Screen() = default;

void Screen::runModal(Form& form) {
  if (canShow()) {
    ModalRun run(*this, form);
    run.show();
    run.wait();
  } else {
    form.end();
  }
}

bool Screen::canShow() const { return runs_.empty() || !runs_.back()->isWindowGone(); }

void Screen::beginSession() {
  scaling_.emplace();
  if (metrics_ && look() != measured_) metrics_.reset();
}

void Screen::endSession() noexcept { scaling_.reset(); }

Look Screen::look() const { return {screenDpi(), font_ ? *font_ : messageFont(), themeName()}; }

const Metrics& Screen::metrics() const {
  if (!metrics_) {
    measured_ = look();
    metrics_.emplace(measured_.dpi, measured_.font);
  }
  return *metrics_;
}

void Screen::setPointer(Pointer pointer) {
  pointer_ = pointer;
  SetCursor(LoadCursorW(nullptr, pointer == Pointer::hourglass ? IDC_WAIT : IDC_ARROW));
}

std::vector<std::size_t> Screen::listOrder(std::span<const TextView> texts) const {
  return win32::listOrder(texts, LOCALE_NAME_USER_DEFAULT);
}

void Screen::beep() { MessageBeep(MB_OK); }

HWND Screen::topWindow() const { return runs_.empty() ? nullptr : runs_.back()->window(); }

ModalRun* Screen::runOf(const Form& form) const {
  const auto run =
      std::ranges::find_if(runs_, [&](const ModalRun* shown) { return &shown->form() == &form; });
  return run == runs_.end() ? nullptr : *run;
}

void Screen::followSettings() {
  // Windows use the former fonts until they have been given the new ones.
  const std::optional<Metrics> former = std::exchange(metrics_, std::nullopt);
  for (const ModalRun* run : runs_) {
    if (run->window()) run->formWindow()->followSettings();
  }
}

void Screen::sessionEnds() const {
  // It owns the others, which go with it.
  if (!runs_.empty() && runs_.front()->window()) DestroyWindow(runs_.front()->window());
}

void Screen::fail(std::exception_ptr failure) noexcept {
  if (!runs_.empty()) runs_.back()->fail(std::move(failure));
}

}  // namespace tillora::ui::win32
