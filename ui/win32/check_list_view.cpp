#include "ui/win32/check_list_view.h"

#include "ui/win32/form_window.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

// State images: 1 is the empty box, 2 the ticked one.
constexpr UINT kTicked = 2;
UINT stateOf(bool checked) { return INDEXTOSTATEIMAGEMASK(checked ? kTicked : kTicked - 1); }

}  // namespace

void CheckListView::create(HWND parent) {
  const Echo echo(*this);
  createWindow(parent,
               {WC_LISTVIEWW, LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL, WS_EX_CLIENTEDGE});
  constexpr DWORD kStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT;
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, static_cast<LPARAM>(kStyle));
  LVCOLUMNW column{};
  send(LVM_INSERTCOLUMNW, 0, &column);
  showRows();
}

void CheckListView::show(Property what) {
  const Echo echo(*this);
  switch (what) {
    case Property::items:
    case Property::checks:
      showRows();
      break;
    case Property::value:
      showChoice();
      break;
    default:
      ControlView::show(what);
  }
}

void CheckListView::showRows() {
  int position = 0;
  const auto shown = static_cast<int>(send(LVM_GETITEMCOUNT));
  const bool grows = shown < static_cast<int>(control().rows().size());
  // The list would otherwise work out its scroll bars after each new row.
  if (grows) send(WM_SETREDRAW, FALSE);
  for (const CheckListBox::Row& row : control().rows()) {
    std::wstring text = forWindow(row.text);
    LVITEMW item{};
    item.iItem = position;
    if (position >= shown) {
      item.mask = LVIF_TEXT;
      item.pszText = text.data();
      send(LVM_INSERTITEMW, 0, &item);
    }
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = stateOf(row.checked);
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(position), &item);
    ++position;
  }
  send(LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(LVSCW_AUTOSIZE, 0));
  if (grows) send(WM_SETREDRAW, TRUE);
  showChoice();
}

void CheckListView::showChoice() {
  const int row = control().listIndex();
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = row < 0 ? 0 : item.stateMask;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
  if (row >= 0) send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), LPARAM{FALSE});
}

LRESULT CheckListView::notify(NMHDR& header) {
  if (header.code != LVN_ITEMCHANGED) return 0;
  const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
  if ((change.uChanged & LVIF_STATE) != 0 && change.iItem >= 0) {
    userDoes([&] { stateChanged(change); });
  }
  return 0;
}

void CheckListView::stateChanged(const NMLISTVIEW& change) {
  const UINT changed = change.uOldState ^ change.uNewState;
  if ((changed & LVIS_STATEIMAGEMASK) != 0) {
    control().userChecked(change.iItem, (change.uNewState & LVIS_STATEIMAGEMASK) == stateOf(true));
  } else if ((changed & change.uNewState & LVIS_SELECTED) != 0) {
    control().setListIndex(change.iItem);
  }
}

void CheckListView::takeBack() {
  const Echo echo(*this);
  showRows();
}

int CheckListView::rowAt(POINT point) const {
  LVHITTESTINFO hit{};
  hit.pt = point;
  return static_cast<int>(send(LVM_HITTEST, 0, &hit));
}

}  // namespace tillora::ui::win32
