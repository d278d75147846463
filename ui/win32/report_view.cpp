#include "ui/win32/report_view.h"

#include <windowsx.h>

#include <algorithm>

#include "ui/win32/form_window.h"
#include "ui/win32/plain_look.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

/// The header styles that the list controls.
constexpr LONG_PTR kListsStyles = kHeaderButtons | kHeaderFullDrag;
static_assert(kListsStyles == (HDS_BUTTONS | HDS_FULLDRAG));

}  // namespace

void ReportView::create(HWND parent) {
  const Echo echo(*this);
  createWindow(
      parent, {WC_LISTVIEWW,
               LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS,
               WS_EX_CLIENTEDGE});
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LPARAM{LVS_EX_FULLROWSELECT});
  show(Property::colours);
  if (const ui::ImageList* icons = control().smallIcons()) {
    send(LVM_SETIMAGELIST, LVSIL_SMALL, formWindow().imagesOf(*icons));
  }
  showColumns();
  showRows();
}

void ReportView::show(Property what) {
  const Echo echo(*this);
  switch (what) {
    case Property::items:
      showRows();
      break;
    case Property::value:
      showChoice();
      break;
    case Property::columns:
      showColumns();
      break;
    case Property::colours:
      send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(toColorRef(control().backColour())));
      send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(toColorRef(control().backColour())));
      send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(toColorRef(control().foreColour())));
      InvalidateRect(window(), nullptr, TRUE);
      break;
    default:
      ControlView::show(what);
  }
}

HWND ReportView::header() const { return reinterpret_cast<HWND>(send(LVM_GETHEADER)); }

// Edges are rounded, not widths, so that columns that fit the list in twips fit it in pixels.
void ReportView::showColumns() {
  int position = 0;
  int edge = 0;
  const Metrics& metrics = formWindow().metrics();
  const auto shown = static_cast<int>(SendMessageW(header(), HDM_GETITEMCOUNT, 0, 0));
  for (const ListColumn& column : control().columns()) {
    std::wstring text = forWindow(column.header);
    LVCOLUMNW item{};
    item.mask = LVCF_TEXT | (column.fills && position < shown ? 0 : LVCF_WIDTH);
    item.pszText = text.data();
    item.cx = metrics.toPixels(edge + column.width) - metrics.toPixels(edge);
    edge += column.width;
    send(position < shown ? LVM_SETCOLUMNW : LVM_INSERTCOLUMNW, static_cast<WPARAM>(position),
         &item);
    ++position;
  }
  const LONG_PTR style = GetWindowLongPtrW(header(), GWL_STYLE) & ~kListsStyles;
  SetWindowLongPtrW(header(), GWL_STYLE, style | static_cast<LONG_PTR>(control().headerStyle()));
  fillLastColumn();
}

// Like LVSCW_AUTOSIZE_USEHEADER, but with the texts of all rows: in a virtual list the window would
// measure only those in view.
void ReportView::fillLastColumn() {
  const auto& columns = control().columns();
  if (columns.empty() || !columns.back().fills) return;
  const auto last = columns.size() - 1;
  RECT area{};
  GetClientRect(window(), &area);
  auto width = static_cast<int>(area.right);
  for (std::size_t i = 0; i < last; ++i) width -= static_cast<int>(send(LVM_GETCOLUMNWIDTH, i));
  width = std::max(width, formWindow().metrics().toPixels(columns.back().width));
  if (width != static_cast<int>(send(LVM_GETCOLUMNWIDTH, last))) {
    send(LVM_SETCOLUMNWIDTH, last, LPARAM{width});
  }
}

void ReportView::showRows() {
  send(LVM_SETITEMCOUNT, static_cast<WPARAM>(control().count()), LPARAM{LVSICF_NOSCROLL});
  InvalidateRect(window(), nullptr, FALSE);
  showChoice();
}

void ReportView::showChoice() {
  const int row = control().selectedRow();
  const auto shown =
      static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LPARAM{LVNI_SELECTED}));
  if (shown != row) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = row < 0 ? 0 : item.stateMask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
  }
  if (const int wanted = control().rowToShow(); wanted != rowShown_) {
    rowShown_ = wanted;
    if (wanted >= 0) send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(wanted), LPARAM{FALSE});
  }
}

void ReportView::give(LVITEMW& item) const {
  if (item.iItem < 0 || item.iItem >= control().count()) return;
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const Text text = cell(item.iItem, item.iSubItem);
    const auto length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    std::copy_n(text.begin(), length, item.pszText);
    item.pszText[length] = L'\0';
  }
  if ((item.mask & LVIF_IMAGE) != 0 && control().smallIcons()) {
    const ListItem& row = control().rows()[static_cast<std::size_t>(item.iItem)];
    item.iImage = control().smallIcons()->indexOf(row.smallIcon) - 1;
  }
}

// Where a row begins with a picture alone, whoever asks for the text is given what the picture
// says; but it is not painted.
Text ReportView::cell(int row, int column) const {
  Text text = control().text(row, column);
  if (column > 0 || painting_ || !text.empty()) return text;
  return Text(meaningOf(control().rows()[static_cast<std::size_t>(row)].smallIcon));
}

int ReportView::find(const NMLVFINDITEMW& wanted) const {
  if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || !wanted.lvfi.psz) return -1;
  const std::wstring typed = wanted.lvfi.psz;
  const auto column = static_cast<std::size_t>(control().searchColumn());
  const int count = control().count();
  for (int i = 0; i < count; ++i) {
    const int row = (std::max(wanted.iStart, 0) + i) % count;
    const TextView text = control().rows()[static_cast<std::size_t>(row)].texts[column];
    if (text.size() >= typed.size() &&
        CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE,
                       reinterpret_cast<const wchar_t*>(text.data()),
                       static_cast<int>(typed.size()), typed.data(),
                       static_cast<int>(typed.size())) == CSTR_EQUAL) {
      return row;
    }
  }
  return -1;
}

LRESULT ReportView::notify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      give(reinterpret_cast<NMLVDISPINFOW&>(header).item);
      return 0;
    case LVN_ODFINDITEMW:
      return find(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ITEMCHANGED: {
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
      const bool selected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
      if (selected && change.iItem >= 0 && change.iItem < control().count()) {
        userDoes([&] { control().setSelectedRow(change.iItem); });
      }
      return 0;
    }
    case NM_CLICK:
    case NM_RCLICK:
      // A click on the blank takes the selection away in the window only.
      takeBack();
      return 0;
    default:
      return 0;
  }
}

void ReportView::takeBack() {
  const Echo echo(*this);
  showChoice();
}

Point ReportView::toTwips(LPARAM position) const {
  const Metrics& metrics = formWindow().metrics();
  return {metrics.toTwips(GET_X_LPARAM(position)), metrics.toTwips(GET_Y_LPARAM(position))};
}

LRESULT ReportView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE: {
      // Even if a scroll bar appears or disappears.
      const LRESULT result = ControlView::message(message, wParam, lParam);
      const Echo echo(*this);
      fillLastColumn();
      return result;
    }
    case WM_PAINT:
    case WM_PRINTCLIENT: {
      painting_ = true;
      const LRESULT result = ControlView::message(message, wParam, lParam);
      painting_ = false;
      return result;
    }
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_LBUTTONUP:
      control().mouse.raise(toTwips(lParam));
      break;
    case WM_LBUTTONDBLCLK: {
      const Point point = toTwips(lParam);
      control().mouse.raise(point);
      const LRESULT result = ControlView::message(message, wParam, lParam);
      userDoes([this] { control().doubleClick.raise(); });
      return result;
    }
    case WM_NOTIFY: {
      const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
      if (notice.code == NM_CUSTOMDRAW && !formWindow().isThemeReadable()) {
        return paintHeaderPlain(reinterpret_cast<const NMCUSTOMDRAW&>(notice));
      }
      const LRESULT result = ControlView::message(message, wParam, lParam);
      if (notice.code == HDN_ENDTRACKW && !isEcho()) {
        takeWidth(reinterpret_cast<const NMHEADERW&>(notice).iItem);
      }
      return result;
    }
    default:
      break;
  }
  return ControlView::message(message, wParam, lParam);
}

// The user has dragged a column's border.
void ReportView::takeWidth(int column) {
  if (column >= static_cast<int>(control().columns().size())) return;
  const auto width = static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
  const Echo echo(*this);
  control().setColumnWidth(column, formWindow().metrics().toTwips(width));
}

// Rows are as wide as the list here: what counts is the height.
int ReportView::rowAt(POINT point) const {
  if (control().count() == 0) return -1;
  RECT head{};
  GetWindowRect(header(), &head);
  if (point.y < head.bottom - head.top) return -1;
  const auto top = static_cast<int>(send(LVM_GETTOPINDEX));
  RECT first{};
  first.left = LVIR_BOUNDS;
  send(LVM_GETITEMRECT, static_cast<WPARAM>(top), &first);
  if (first.bottom <= first.top || point.y < first.top) return -1;
  const int row = top + static_cast<int>((point.y - first.top) / (first.bottom - first.top));
  return row < control().count() ? row : -1;
}

}  // namespace tillora::ui::win32
