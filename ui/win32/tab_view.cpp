#include "ui/win32/tab_view.h"

#include "ui/win32/form_window.h"
#include "ui/win32/plain_look.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {

void TabView::create(HWND parent) {
  createWindow(parent, {WC_TABCONTROLW, kTabStripStyle});
  addTabs(window(), control().tabs());
  showChoice();
}

LRESULT TabView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = ControlView::message(message, wParam, lParam);
  if (message == WM_PAINT && !formWindow().isThemeReadable()) paintTabsPlain(window());
  return result;
}

void TabView::show(Property what) {
  if (what == Property::items) {
    showTabs();
  } else if (what == Property::value) {
    showChoice();
  } else {
    ControlView::show(what);
  }
}

void TabView::showTabs() {
  send(TCM_DELETEALLITEMS);
  addTabs(window(), control().tabs());
  showChoice();
}

void TabView::showChoice() { send(TCM_SETCURSEL, static_cast<WPARAM>(control().selected() - 1)); }

LRESULT TabView::notify(NMHDR& header) {
  if (header.code != TCN_SELCHANGE) return 0;
  userDoes([this] {
    const auto chosen = static_cast<int>(send(TCM_GETCURSEL)) + 1;
    if (chosen >= 1) control().setSelected(chosen);  // shows the choice, even if it is refused
  });
  return 0;
}

}  // namespace tillora::ui::win32
