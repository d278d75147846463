#include "host/app/report_list.h"

#include <algorithm>

#include "com/wide_text.h"

namespace tillora::host::app {
namespace {

// The platform's structures lack a const.
wchar_t* changeable(const Text& text) { return const_cast<wchar_t*>(win32::wide(text)); }

}  // namespace

void ReportList::create(HWND parent, int id, std::span<const Column> columns, int dpi) {
  window_ =
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                      WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                          LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                      0, 0, 0, 0, parent, reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
  ListView_SetExtendedListViewStyle(window_,
                                    LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
  for (const Column& described : columns) {
    const Text caption = described.caption;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = changeable(caption);
    column.cx = MulDiv(described.width, dpi, USER_DEFAULT_SCREEN_DPI);
    ListView_InsertColumn(window_, columns_, &column);
    leastLastWidth_ = column.cx;
    ++columns_;
  }
}

void ReportList::setBounds(const RECT& bounds) {
  MoveWindow(window_, bounds.left, bounds.top, bounds.right - bounds.left,
             bounds.bottom - bounds.top, TRUE);
  RECT client;
  GetClientRect(window_, &client);
  // A list without a scroll bar gets one when it grows.
  int rest = client.right;
  if ((GetWindowLongPtrW(window_, GWL_STYLE) & WS_VSCROLL) == 0) {
    rest -= GetSystemMetrics(SM_CXVSCROLL);
  }
  for (int column = 0; column < columns_ - 1; ++column) {
    rest -= ListView_GetColumnWidth(window_, column);
  }
  ListView_SetColumnWidth(window_, columns_ - 1, std::max(rest, leastLastWidth_));
}

int ReportList::addRow(std::initializer_list<TextView> texts) {
  LVITEMW row{};
  row.iItem = ListView_GetItemCount(window_);
  const int index = ListView_InsertItem(window_, &row);
  int column = 0;
  for (const TextView text : texts) setText(index, column++, Text(text));
  // Otherwise keyboard users would not see that the list has the focus.
  if (index == 0) ListView_SetItemState(window_, 0, LVIS_FOCUSED, LVIS_FOCUSED);
  return index;
}

void ReportList::setText(int row, int column, const Text& text) {
  ListView_SetItemText(window_, row, column, changeable(text));
}

void ReportList::show(int row) const { ListView_EnsureVisible(window_, row, FALSE); }

}  // namespace tillora::host::app
