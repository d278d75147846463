#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "bench/windows/benchmarks.h"
#include "bench/windows/catalogue.h"
#include "bench/windows/measure.h"
#include "com/module.h"
#include "component/automation/host_adapters.h"
#include "sales/frmBrowseItems.h"
#include "tests/testing/win32/driven_screen.h"
#include "ui/win32/window_text.h"

namespace tillora::bench {
namespace {

constexpr int kListRounds = 7;
constexpr int kPages = 40;
constexpr double kBudget = 1.2;

/// A list of the platform's with the place, look and rows of another list, storing the rows itself.
ui::win32::Window makeStoredList(HWND shown, const ui::ListView& list) {
  RECT place{};
  GetWindowRect(shown, &place);
  HWND const parent = GetParent(shown);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  ui::win32::Window stored(
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                      WS_CHILD | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, place.left,
                      place.top, place.right - place.left, place.bottom - place.top, parent,
                      nullptr, win32::thisModule(), nullptr));
  const auto send = [&](UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageW(stored.get(), message, wParam, lParam);
  };
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  send(WM_SETFONT, static_cast<WPARAM>(SendMessageW(shown, WM_GETFONT, 0, 0)), FALSE);

  const auto columns = static_cast<int>(list.columns().size());
  for (int column = 0; column < columns; ++column) {
    std::wstring header =
        ui::win32::forWindow(list.columns()[static_cast<std::size_t>(column)].header);
    LVCOLUMNW item{};
    item.mask = LVCF_TEXT | LVCF_WIDTH;
    item.pszText = header.data();
    item.cx =
        static_cast<int>(SendMessageW(shown, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
  }
  send(LVM_SETITEMCOUNT, static_cast<WPARAM>(list.count()), 0);
  for (int row = 0; row < list.count(); ++row) {
    for (int column = 0; column < columns; ++column) {
      std::wstring text = ui::win32::forWindow(list.text(row, column));
      LVITEMW item{};
      item.mask = LVIF_TEXT;
      item.iItem = row;
      item.iSubItem = column;
      item.pszText = text.data();
      send(column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
  }
  return stored;
}

/// Pages through the list and jumps to its end and back; everything is painted.
void scroll(HWND list) {
  const auto paint = [&] { RedrawWindow(list, nullptr, nullptr, RDW_UPDATENOW); };
  for (int page = 0; page < kPages; ++page) {
    SendMessageW(list, WM_VSCROLL, SB_PAGEDOWN, 0);
    paint();
  }
  for (const UINT end : {SB_BOTTOM, SB_TOP}) {
    SendMessageW(list, WM_VSCROLL, end, 0);
    paint();
  }
}

/// Looks for texts as typing does: one that the last rows begin with and one that none has.
void typeAhead(HWND list, const std::vector<std::wstring>& texts) {
  for (const std::wstring& text : texts) {
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
    wanted.psz = text.c_str();
    SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&wanted));
  }
}

double timedShown(HWND list, const std::function<void()>& act) {
  ShowWindow(list, SW_SHOW);
  RedrawWindow(list, nullptr, nullptr, RDW_UPDATENOW);
  const auto start = Clock::now();
  act();
  const double taken = milliseconds(start, Clock::now());
  ShowWindow(list, SW_HIDE);
  return taken;
}

bool measure(HWND shown, const ui::ListView& list) {
  const ui::win32::Window stored = makeStoredList(shown, list);
  const std::vector<std::wstring> texts = {ui::win32::forWindow(list.text(list.count() - 1, 0)),
                                           L"no product is called so"};
  std::vector<double> scrolled, scrolledStored, typed, typedStored;
  for (int round = 0; round < kListRounds; ++round) {
    scrolled.push_back(timedShown(shown, [&] { scroll(shown); }));
    scrolledStored.push_back(timedShown(stored.get(), [&] { scroll(stored.get()); }));
    typed.push_back(timedShown(shown, [&] { typeAhead(shown, texts); }));
    typedStored.push_back(timedShown(stored.get(), [&] { typeAhead(stored.get(), texts); }));
  }
  const bool scrolls =
      report("scroll 40 pages, to the end and back", scrolled, scrolledStored, kBudget);
  const bool finds = report("type ahead to the last row and to none", typed, typedStored, kBudget);
  return scrolls && finds;
}

}  // namespace

bool measureList(const Catalogue& catalogue) {
  testing::DrivenScreen screen;
  frmBrowseItems dialog(screen);
  dialog.BrowseType = frmBrowseItems::gradeProduct;
  dialog.DBJetObject = automation::makeJetDatabase(catalogue.database());
  bool kept = false;
  screen.modalShown = [&](ui::Form& form) {
    kept = measure(screen.windowOf(dialog.ltvItems), dialog.ltvItems);
    form.unload();
  };
  dialog.showModal();
  return kept;
}

}  // namespace tillora::bench
