#include "ui/win32/up_down_view.h"

#include "ui/win32/form_window.h"

namespace tillora::ui::win32 {

void UpDownView::create(HWND parent) {
  createWindow(parent, {UPDOWN_CLASSW, 0});
  // In the middle of its range both arrows always work; the object has the real limits.
  send(UDM_SETRANGE32, 0, LPARAM{2});
  send(UDM_SETPOS32, 0, LPARAM{1});
  UDACCEL oneByOne{0, 1};
  send(UDM_SETACCEL, 1, &oneByOne);
}

LRESULT UpDownView::notify(NMHDR& header) {
  if (header.code != UDN_DELTAPOS) return 0;
  const int delta = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
  if (delta != 0) userDoes([&] { control().spin(delta > 0 ? 1 : -1); });
  return TRUE;  // the window's own position stays
}

}  // namespace tillora::ui::win32
