#include "ui/win32/combo_view.h"

#include <algorithm>

#include "ui/win32/form_window.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

constexpr int kMostItemsSeen = 12;

}  // namespace

// A combo box's height is that of the box together with the dropped list.
RECT ComboView::pixelBounds() const {
  RECT place = ControlView::pixelBounds();
  place.bottom +=
      (std::clamp(control().count(), 1, kMostItemsSeen) + 1) * formWindow().metrics().linePixels();
  return place;
}

void ComboView::create(HWND parent) {
  createWindow(parent,
               {WC_COMBOBOXW, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL});
  fitItems();
  addItems(0);
  showChoice();
}

void ComboView::showFont() {
  ControlView::showFont();
  fitItems();
}

void ComboView::fitItems() {
  send(CB_SETITEMHEIGHT, 0, LPARAM{formWindow().metrics().linePixels()});
  fitField();
}

// The field is as high as its text, whatever height is asked for; the rest of the height is its
// border.
void ComboView::fitField() {
  const RECT place = ControlView::pixelBounds();
  const LRESULT wanted = place.bottom - place.top;
  const int border = 2 * (GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CYBORDER));
  LRESULT text = wanted - border;
  // Where the border is another one, a second step corrects the first.
  for (int step = 0; step < 2; ++step) {
    RECT whole{};
    GetWindowRect(window(), &whole);
    const LRESULT missing = wanted - (whole.bottom - whole.top);
    if (missing == 0) return;
    if (step > 0) text += missing;
    send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), text);
  }
}

void ComboView::show(Property what) {
  switch (what) {
    case Property::items:
      showItems();
      break;
    case Property::value:
      showChoice();
      break;
    case Property::bounds:
      ControlView::show(what);
      fitField();
      break;
    default:
      ControlView::show(what);
  }
}

void ComboView::addItems(std::size_t first) {
  const auto& items = control().items();
  for (std::size_t i = first; i < items.size(); ++i)
    send(CB_ADDSTRING, 0, forWindow(items[i]).c_str());
  const int longest = control().naturalSize().width;
  send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(formWindow().metrics().toPixels(longest)));
}

void ComboView::showItems() {
  auto shown = static_cast<std::size_t>(send(CB_GETCOUNT));
  if (control().items().size() < shown) {
    send(CB_RESETCONTENT);
    shown = 0;
  }
  addItems(shown);
  ControlView::show(Property::bounds);
  showChoice();
}

void ComboView::showChoice() {
  if (send(CB_GETCURSEL) != control().listIndex()) {
    send(CB_SETCURSEL, static_cast<WPARAM>(control().listIndex()));
  }
}

void ComboView::command(WORD code) {
  switch (code) {
    case CBN_SELCHANGE:
      if (!isDropped()) userDoes([this] { control().setListIndex(chosen()); });
      break;
    case CBN_SELENDOK:
      userDoes([this] { choiceMade(); });
      break;
    case CBN_SELENDCANCEL:
    case CBN_CLOSEUP:
      showChoice();
      break;
    default:
      break;
  }
}

void ComboView::choiceMade() {
  // Some platforms report it also for keys in the closed box, even if they changed nothing.
  if (isDropped() && chosen() >= 0) {
    control().userChose(chosen());
  } else {
    control().setListIndex(chosen());
  }
}

// Left to itself, the platform centres the text of a high field with some themes only.
void ComboView::draw(const DRAWITEMSTRUCT& item) {
  const bool chosen = (item.itemState & ODS_SELECTED) != 0;
  const bool enabled = (item.itemState & ODS_DISABLED) == 0;
  FillRect(item.hDC, &item.rcItem,
           GetSysColorBrush(chosen    ? COLOR_HIGHLIGHT
                            : enabled ? COLOR_WINDOW
                                      : COLOR_BTNFACE));
  if (item.itemID < control().items().size()) {
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(chosen    ? COLOR_HIGHLIGHTTEXT
                                       : enabled ? COLOR_WINDOWTEXT
                                                 : COLOR_GRAYTEXT));
    RECT area = item.rcItem;
    area.left += 2 * GetSystemMetrics(SM_CXBORDER);
    DrawTextW(item.hDC, forWindow(control().items()[item.itemID]).c_str(), -1, &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  }
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    DrawFocusRect(item.hDC, &item.rcItem);
  }
}

bool ComboView::wantsKey(WPARAM key) const {
  return isDropped() && (key == VK_RETURN || key == VK_ESCAPE);
}

}  // namespace tillora::ui::win32
