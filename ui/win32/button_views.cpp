#include "ui/win32/button_views.h"

#include "ui/win32/form_window.h"

namespace tillora::ui::win32 {
namespace {

// Captions break into lines only if there is room for two; one line is centred otherwise.
DWORD lineStyle(const Control& control, const Metrics& metrics) {
  return control.bounds().height >= 2 * metrics.lineHeight() ? BS_MULTILINE : 0;
}

}  // namespace

void CheckBoxView::create(HWND parent) {
  createWindow(parent, {WC_BUTTONW, BS_CHECKBOX | lineStyle(control(), formWindow().metrics())});
  show(Property::value);
}

void CheckBoxView::show(Property what) {
  if (what == Property::value) {
    send(BM_SETCHECK, control().value() ? BST_CHECKED : BST_UNCHECKED);
  } else {
    ControlView::show(what);
  }
}

void CheckBoxView::command(WORD code) {
  if (code == BN_CLICKED) userDoes([this] { control().press(); });
}

void OptionButtonView::create(HWND parent) {
  createWindow(parent, {WC_BUTTONW, BS_RADIOBUTTON | lineStyle(control(), formWindow().metrics())});
  show(Property::value);
}

void OptionButtonView::show(Property what) {
  if (what == Property::value) {
    send(BM_SETCHECK, control().value() ? BST_CHECKED : BST_UNCHECKED);
  } else {
    ControlView::show(what);
  }
}

void OptionButtonView::command(WORD code) {
  if (code == BN_CLICKED) userDoes([this] { control().press(); });
}

LRESULT OptionButtonView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_SETFOCUS) return ControlView::message(message, wParam, lParam);
  // An unchosen option button reports a click when it gets the focus; only a real click chooses it.
  const Echo echo(*this);
  return ControlView::message(message, wParam, lParam);
}

void CommandButtonView::create(HWND parent) { createWindow(parent, {WC_BUTTONW, BS_PUSHBUTTON}); }

void CommandButtonView::command(WORD code) {
  if (code == BN_CLICKED) userDoes([this] { control().press(); });
}

}  // namespace tillora::ui::win32
