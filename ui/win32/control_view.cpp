#include "ui/win32/control_view.h"

#include <algorithm>
#include <iterator>

#include "com/module.h"
#include "ui/win32/form_window.h"
#include "ui/win32/show_window.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

bool isButton(Kind kind) {
  return kind == Kind::checkBox || kind == Kind::optionButton || kind == Kind::commandButton;
}

// Buttons of one kind, one after the other, are a group, whose members screen readers count.
bool startsGroup(const Control& control) {
  const auto& siblings = control.parent()->children();
  const auto here = std::ranges::find(siblings, &control);
  return !isButton(control.kind()) || here == siblings.begin() ||
         (*std::prev(here))->kind() != control.kind();
}

}  // namespace

RECT ControlView::pixelBounds() const { return formWindow_.metrics().toPixels(control_.bounds()); }

void ControlView::createWindow(HWND parent, const Style& style) {
  const RECT place = pixelBounds();
  const DWORD state =
      (control_.effectivelyEnabled() ? 0 : WS_DISABLED) |
      (control_.visible() && !style.hidden && !IsWindowVisible(parent) ? WS_VISIBLE : 0) |
      (startsGroup(control_) ? WS_GROUP : 0);
  const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(formWindow_.newId()));
  window_ = CreateWindowExW(
      style.extended | WS_EX_NOPARENTNOTIFY, style.className, forWindow(windowText()).c_str(),
      WS_CHILD | style.style | state, place.left, place.top, place.right - place.left,
      place.bottom - place.top, parent, id, tillora::win32::thisModule(), nullptr);
  if (!window_) throwLastError("CreateWindowExW");
  formWindow_.enter(window_, *this);
  // SetWindowSubclass would look this up in a property of the window at every message.
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  former_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
  ControlView::showFont();
  if (!control_.toolTip().empty()) show(Property::toolTip);
}

void ControlView::show(Property what) {
  switch (what) {
    case Property::enabled:
      EnableWindow(window_, control_.effectivelyEnabled());
      break;
    case Property::visible:
      if (control_.visible()) {
        showWindow(window_, nullptr, SWP_NOZORDER | SWP_NOACTIVATE);
      } else {
        ShowWindow(window_, SW_HIDE);
      }
      break;
    case Property::bounds: {
      const RECT place = pixelBounds();
      SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      break;
    }
    case Property::text:
      SetWindowTextW(window_, forWindow(windowText()).c_str());
      break;
    case Property::toolTip:
      formWindow_.setToolTip(window_, forWindow(control_.toolTip()));
      break;
    case Property::colours:
      InvalidateRect(window_, nullptr, TRUE);
      break;
    case Property::stacking:
      SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      break;
    default:
      break;
  }
}

void ControlView::showFont() {
  send(WM_SETFONT, reinterpret_cast<WPARAM>(formWindow_.metrics().font()), FALSE);
}

Form& ControlView::form() const { return formWindow_.form(); }

bool ControlView::takesInput() const { return formWindow_.takesInput(); }

HBRUSH ControlView::colours(HDC dc) {
  SetTextColor(dc, control_.effectivelyEnabled() ? toColorRef(control_.foreColour())
                                                 : GetSysColor(COLOR_GRAYTEXT));
  return formWindow_.background(window_, dc);
}

LRESULT ControlView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETOBJECT) {
    // A screen reader asks. Without one, opening a page costs nothing more.
    const Text name = control_.spokenName();
    const bool isCaption = name == withoutAccessKey(control_.caption());
    formWindow_.annotations().set(window_, isCaption ? std::wstring() : forWindow(name), role());
  } else if (message == WM_DESTROY) {
    formWindow_.annotations().clear(window_);
  }
  const LRESULT result = CallWindowProcW(former_, window_, message, wParam, lParam);
  if (message == WM_SETFOCUS) formWindow_.focusLanded(control_);
  return result;
}

LRESULT CALLBACK ControlView::procedure(HWND window, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  auto& view = *reinterpret_cast<ControlView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCDESTROY) {
    view.formWindow_.leave(window);
    view.window_ = nullptr;
    return CallWindowProcW(view.former_, window, message, wParam, lParam);
  }
  const bool isMouse = message >= WM_MOUSEFIRST && message <= WM_MBUTTONUP;
  if (isMouse && !view.control_.toolTip().empty()) {
    view.formWindow_.walled(
        [&] { view.formWindow_.relayToToolTips(window, message, wParam, lParam); });
  }
  if (view.formWindow_.holdsOff(message)) return 0;
  if (message == WM_SETCURSOR && view.formWindow_.showPointer()) return TRUE;
  return view.formWindow_.walled([&] { return view.message(message, wParam, lParam); });
}

COLORREF toColorRef(Colour colour) {
  constexpr Colour kSystemColour = 0x80000000;
  return (colour & kSystemColour) != 0 ? GetSysColor(static_cast<int>(colour & 0xFF)) : colour;
}

}  // namespace tillora::ui::win32
