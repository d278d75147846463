#include "ui/win32/form_window.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include "com/module.h"
#include "ui/lists.h"
#include "ui/win32/modal_run.h"
#include "ui/win32/pictures.h"
#include "ui/win32/screen.h"
#include "ui/win32/scrolling.h"
#include "ui/win32/show_window.h"
#include "ui/win32/view_factory.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

// The extended style keeps the caption without an icon, also where the border is one for sizing.
constexpr DWORD kDialogExtended = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

DWORD styleOf(const Form& form) {
  constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_3DLOOK | WS_CLIPCHILDREN;
  return kStyle | (form.resizable() ? WS_THICKFRAME : DS_MODALFRAME);
}

// A dialog of the system's class without controls: screen readers know what it is.
struct EmptyTemplate {
  explicit EmptyTemplate(const Form& form)
      : header{styleOf(form), kDialogExtended, 0, 0, 0, 0, 0} {}

  alignas(DWORD) DLGTEMPLATE header;
  WORD noMenu = 0;
  WORD systemClass = 0;
  WORD noTitle = 0;
};

bool isPageOf(const Control& control, const TabStrip& tabs) {
  if (control.kind() != Kind::frame) return false;
  const Rect& page = control.bounds();
  const Rect& strip = tabs.bounds();
  return page.left < strip.right() && strip.left < page.right() && page.top < strip.bottom() &&
         strip.top < page.bottom();
}

// The order of windows is the order of description, which screen readers follow; but the pages lie
// before the tab strip that they are shown on.
std::vector<Control*> stackingOrder(const Container& container) {
  std::vector<Control*> order(container.children().begin(), container.children().end());
  for (const Control* child : container.children()) {
    if (child->kind() != Kind::tabStrip) continue;
    const auto& tabs = static_cast<const TabStrip&>(*child);
    const auto strip = std::ranges::find(order, child);
    const auto pages = std::stable_partition(
        strip, order.end(), [&](const Control* control) { return isPageOf(*control, tabs); });
    static_cast<void>(pages);
  }
  return order;
}

}  // namespace

void throwLastError(const char* function) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), function);
}

FormWindow::FormWindow(Screen& screen, Form& form, HWND owner) : screen_(screen), form_(form) {
  const EmptyTemplate empty(form);
  window_ = CreateDialogIndirectParamW(tillora::win32::thisModule(), &empty.header, owner,
                                       &procedure, reinterpret_cast<LPARAM>(this));
  if (!window_) throwLastError("CreateDialogIndirectParamW");
  try {
    SetWindowTextW(window_, forWindow(form.caption()).c_str());
    place(owner);
    SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    createChildren(form, window_);
  } catch (...) {
    destroy();
    throw;
  }
}

FormWindow::~FormWindow() { destroy(); }

// Clears window_ first, so that the messages sent meanwhile are ignored.
void FormWindow::destroy() {
  if (window_) DestroyWindow(std::exchange(window_, nullptr));
}

const Metrics& FormWindow::metrics() const { return screen_.metrics(); }

SIZE FormWindow::frame() const {
  RECT frame{};
  AdjustWindowRectEx(&frame, styleOf(form_), FALSE, kDialogExtended);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

SIZE FormWindow::wholeSize() const {
  const Size client = form_.clientSize();
  const SIZE frame = this->frame();
  return {metrics().toPixels(client.width) + frame.cx,
          metrics().toPixels(client.height) + frame.cy};
}

void FormWindow::resize() {
  const SIZE whole = wholeSize();
  SetWindowPos(window_, nullptr, 0, 0, whole.cx, whole.cy,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Scroll bars count as part of the form's area, so the client rectangle does not tell it.
void FormWindow::followWindow() {
  RECT own{};
  GetWindowRect(window_, &own);
  const SIZE frame = this->frame();
  followsWindow_ = true;
  form_.setClientSize({metrics().toTwips(own.right - own.left - frame.cx),
                       metrics().toTwips(own.bottom - own.top - frame.cy)});
  followsWindow_ = false;
}

void FormWindow::place(HWND owner) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  RECT around = monitor.rcWork;
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  placeOver(around, monitor.rcWork);
}

// Never larger than the work area, nor partly outside it.
void FormWindow::placeOver(const RECT& around, const RECT& work) {
  const Size natural = form_.measured();
  const SIZE frame = this->frame();
  const SIZE most{work.right - work.left, work.bottom - work.top};
  least_ = {std::min(most.cx, metrics().toPixels(natural.width) + frame.cx),
            std::min(most.cy, metrics().toPixels(natural.height) + frame.cy)};
  const SIZE whole = wholeSize();
  const SIZE size{std::min(most.cx, whole.cx), std::min(most.cy, whole.cy)};
  const LONG left = (around.left + around.right - size.cx) / 2;
  const LONG top = (around.top + around.bottom - size.cy) / 2;
  SetWindowPos(window_, nullptr, std::clamp(left, work.left, work.right - size.cx),
               std::clamp(top, work.top, work.bottom - size.cy), size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  if (size.cx < whole.cx || size.cy < whole.cy) followWindow();
}

void FormWindow::followSettings() {
  for (const auto& [control, view] : views_) {
    view->showFont();
    view->show(Property::colours);
  }
  RECT former{};
  GetWindowRect(window_, &former);
  const Size natural = form_.measure();
  const Size now = form_.clientSize();
  form_.setClientSize({std::max(natural.width, form_.resizable() ? now.width : 0),
                       std::max(natural.height, form_.resizable() ? now.height : 0)});
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&former, MONITOR_DEFAULTTONEAREST), &monitor);
  placeOver(former, monitor.rcWork);
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

ControlView* FormWindow::viewOf(const Control& control) const {
  const auto found = views_.find(&control);
  return found == views_.end() ? nullptr : found->second.get();
}

HWND FormWindow::windowOf(const Control& control) const {
  if (&control == &form_) return window_;
  const ControlView* view = viewOf(control);
  return view ? view->window() : nullptr;
}

ControlView* FormWindow::viewAt(HWND window) const {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : found->second;
}

ControlView* FormWindow::viewAround(HWND window) const {
  for (; window && window != window_; window = GetAncestor(window, GA_PARENT)) {
    if (ControlView* view = viewAt(window)) return view;
  }
  return nullptr;
}

void FormWindow::create(Control& control, HWND parent) {
  std::unique_ptr<ControlView>& view = views_[&control];
  view = makeView(*this, control);
  view->create(parent);
}

void FormWindow::createChildren(const Container& container, HWND parent) {
  for (Control* child : stackingOrder(container)) {
    if (child->visible() && !viewOf(*child)) create(*child, parent);
  }
  showDefaultButton();
}

// In the order of windows a new one comes last. In a parent that is seen it is still hidden.
void FormWindow::createLater(Control& control, HWND parent) {
  create(control, parent);
  HWND after = HWND_TOP;
  for (const Control* before : stackingOrder(*control.parent())) {
    if (before == &control) break;
    if (const HWND window = windowOf(*before)) after = window;
  }
  showWindow(windowOf(control), after, SWP_NOACTIVATE);
  showDefaultButton();
}

void FormWindow::changed(const Control& control, Property what) {
  if (&control == &form_) {
    if (what == Property::text) SetWindowTextW(window_, forWindow(form_.caption()).c_str());
    if (what == Property::bounds && !followsWindow_) resize();
    if (what == Property::scrolling) showScrolling(window_, form_, metrics());
    if (what == Property::enabled) changedWithin(form_, what);
    if (what == Property::visible) {
      if (ModalRun* run = screen_.runOf(form_)) run->leaveScreen();
      PostMessageW(window_, WM_NULL, 0, 0);  // ends the wait
    }
    return;
  }
  if (what == Property::defaultness) {
    showDefaultButton();
    return;
  }
  ControlView* view = viewOf(control);
  if (!view) {
    const HWND parent = windowOf(*control.parent());
    if (what != Property::visible || !control.visible() || !parent) return;
    createLater(**std::ranges::find(control.parent()->children(), &control), parent);
    return;
  }
  view->show(what);
  if (what == Property::enabled) changedWithin(control, what);
  if (what == Property::enabled || what == Property::visible) applyFocus();
}

void FormWindow::changedWithin(const Control& holder, Property what) {
  for (const auto& child : holder.children()) {
    if (ControlView* view = viewOf(*child)) view->show(what);
    changedWithin(*child, what);
  }
}

int FormWindow::hitTest(const ListView& list, Point point) const {
  const ControlView* view = viewOf(list);
  return view ? view->rowAt(metrics().toPixels(point)) : -1;
}

HBRUSH FormWindow::background(HWND child, HDC dc) const {
  SetBkMode(dc, TRANSPARENT);
  for (HWND window = child; window && window != window_; window = GetAncestor(window, GA_PARENT)) {
    const ControlView* view = viewAt(window);
    const HBRUSH brush = view ? view->ownBackground() : nullptr;
    if (!brush) continue;
    POINT origin{};
    MapWindowPoints(window, child, &origin, 1);
    POINT shifted{};
    GetViewportOrgEx(dc, &shifted);
    SetBrushOrgEx(dc, origin.x + shifted.x, origin.y + shifted.y, nullptr);
    return brush;
  }
  return GetSysColorBrush(COLOR_BTNFACE);
}

HIMAGELIST FormWindow::imagesOf(const ui::ImageList& images) {
  ImageList& made = images_[&images];
  if (!made) made = makeImages(images, GetSystemMetrics(SM_CXSMICON));
  return made.get();
}

void FormWindow::makeToolTips() {
  toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window_,
                              nullptr, tillora::win32::thisModule(), nullptr);
  constexpr int kWidestTip = 5760;  // twips; a width makes long tips break into lines
  SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, metrics().toPixels(kWidestTip));
  for (const auto& [control, view] : views_) {
    if (!control->toolTip().empty()) view->show(Property::toolTip);
  }
}

void FormWindow::setToolTip(HWND window, std::wstring text) {
  if (!toolTips_) return;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  tool.lpszText = text.data();
  SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormWindow::relayToToolTips(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!toolTips_) makeToolTips();
  MSG relayed{};
  relayed.hwnd = window;
  relayed.message = message;
  relayed.wParam = wParam;
  relayed.lParam = lParam;
  SendMessageW(toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

bool FormWindow::showPointer() const {
  if (screen_.pointer() != Pointer::hourglass) return false;
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  return true;
}

}  // namespace tillora::ui::win32
