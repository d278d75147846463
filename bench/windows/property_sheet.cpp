#include "bench/windows/property_sheet.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "bench/windows/bare_windows.h"
#include "com/module.h"
#include "ui/win32/frame_class.h"
#include "ui/win32/metrics.h"
#include "ui/win32/window_text.h"

namespace tillora::bench {
namespace {

constexpr int kFirstId = 100;

std::wstring classOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(window, message, wParam, lParam);
}

/// A dialog template, word by word.
class TemplateWriter {
 public:
  void word(WORD value) { words_.push_back(value); }
  void doubleWord(DWORD value) {
    word(LOWORD(value));
    word(HIWORD(value));
  }
  void text(std::wstring_view value) {
    for (const wchar_t unit : value) word(static_cast<WORD>(unit));
    word(0);
  }
  void place(const RECT& pixels) {
    word(units(pixels.left, 4, unit_.right));
    word(units(pixels.top, 8, unit_.bottom));
    word(units(pixels.right - pixels.left, 4, unit_.right));
    word(units(pixels.bottom - pixels.top, 8, unit_.bottom));
  }
  void align() {
    if (words_.size() % 2 != 0) word(0);
  }
  std::vector<WORD> take() { return std::move(words_); }

 private:
  static WORD units(long pixels, int perBase, long base) {
    return static_cast<WORD>(MulDiv(static_cast<int>(pixels), perBase, static_cast<int>(base)));
  }
  static RECT baseUnit() {
    const ui::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
    const LOGFONTW message = ui::win32::messageFont();
    const ui::win32::Font font(CreateFontIndirectW(&message));
    const ui::win32::Selection selected(dc.get(), font.get());
    constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    SIZE size{};
    GetTextExtentPoint32W(dc.get(), kLetters.data(), static_cast<int>(kLetters.size()), &size);
    return {0, 0, (size.cx / 26 + 1) / 2, size.cy};
  }

  RECT unit_ = baseUnit();
  std::vector<WORD> words_;
};

}  // namespace

PlatformSheet::PlatformSheet(HWND dialog) {
  const HWND strip = FindWindowExW(dialog, nullptr, WC_TABCONTROLW, nullptr);
  HWND page = nullptr;
  for (WPARAM tab = 0;; ++tab) {
    page = FindWindowExW(dialog, page, ui::win32::FrameClass::kName, nullptr);
    if (!page) break;
    std::array<wchar_t, 64> title{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = title.data();
    item.cchTextMax = static_cast<int>(title.size());
    send(strip, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
    Page& added = pages_.emplace_back();
    added.title = title.data();
    RECT area{};
    GetClientRect(page, &area);
    added.size = {area.right, area.bottom};
    addControls(added, page, page);
    added.dialogTemplate = templateOf(added);
  }
}

// A group box of a template lies beside its controls, not around them.
void PlatformSheet::addControls(Page& page, HWND pageWindow, HWND holder) {
  for (HWND child = GetWindow(holder, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    page.controls.push_back(recorded(child, pageWindow));
    if (page.controls.back().className == WC_BUTTONW) addControls(page, pageWindow, child);
  }
}

PlatformSheet::Control PlatformSheet::recorded(HWND window, HWND pageWindow) {
  Control control;
  control.className = classOf(window);
  control.text = ui::win32::windowText(window);
  control.style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
  control.extended = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  GetWindowRect(window, &control.place);
  MapWindowPoints(HWND_DESKTOP, pageWindow, reinterpret_cast<POINT*>(&control.place), 2);
  if (control.className == WC_COMBOBOXW) {
    control.style &= ~DWORD{CBS_OWNERDRAWFIXED};
    control.place.bottom += 200;  // the dropped list
    control.chosen = send(window, CB_GETCURSEL);
    for (WPARAM i = 0; i < static_cast<WPARAM>(send(window, CB_GETCOUNT)); ++i) {
      std::wstring item(static_cast<std::size_t>(send(window, CB_GETLBTEXTLEN, i)), L'\0');
      send(window, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item.data()));
      control.items.push_back(std::move(item));
    }
  } else if (control.className == WC_LISTVIEWW) {
    control.style &= ~DWORD{LVS_OWNERDATA};
    control.listStyle = static_cast<DWORD>(send(window, LVM_GETEXTENDEDLISTVIEWSTYLE));
    std::array<wchar_t, 260> text{};
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = text.data();
    column.cchTextMax = static_cast<int>(text.size());
    for (WPARAM i = 0; send(window, LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column)); ++i) {
      control.columns.push_back({text.data(), column.cx});
    }
    for (WPARAM i = 0; i < static_cast<WPARAM>(send(window, LVM_GETITEMCOUNT)); ++i) {
      Row& row = control.rows.emplace_back();
      row.state = static_cast<UINT>(send(window, LVM_GETITEMSTATE, i, LVIS_STATEIMAGEMASK));
      for (int cell = 0; cell < static_cast<int>(control.columns.size()); ++cell) {
        LVITEMW item{};
        item.iSubItem = cell;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        send(window, LVM_GETITEMTEXTW, i, reinterpret_cast<LPARAM>(&item));
        row.cells.emplace_back(text.data());
      }
    }
  } else if (control.className == WC_BUTTONW) {
    control.chosen = send(window, BM_GETCHECK);
  }
  return control;
}

std::vector<WORD> PlatformSheet::templateOf(const Page& page) {
  TemplateWriter writer;
  writer.doubleWord(WS_CHILD | WS_CAPTION | DS_SETFONT | DS_3DLOOK);
  writer.doubleWord(0);
  writer.word(static_cast<WORD>(page.controls.size()));
  writer.place({0, 0, page.size.cx, page.size.cy});
  writer.word(0);  // no menu
  writer.word(0);  // the class of dialogs
  writer.text(page.title);
  const LOGFONTW font = ui::win32::messageFont();
  writer.word(static_cast<WORD>(MulDiv(std::abs(font.lfHeight), 72, ui::win32::screenDpi())));
  writer.text(font.lfFaceName);
  int id = kFirstId;
  for (const Control& control : page.controls) {
    writer.align();
    writer.doubleWord(control.style);
    writer.doubleWord(control.extended);
    writer.place(control.place);
    writer.word(static_cast<WORD>(id++));
    writer.text(control.className);
    writer.text(control.text);
    writer.word(0);  // no data
  }
  writer.align();
  return writer.take();
}

void PlatformSheet::fill(HWND control, const Control& with) {
  for (const std::wstring& item : with.items) {
    send(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
  if (with.chosen >= 0) {
    const bool isButton = with.className == WC_BUTTONW;
    send(control, isButton ? BM_SETCHECK : CB_SETCURSEL, static_cast<WPARAM>(with.chosen));
  }
  if (with.className != WC_LISTVIEWW) return;
  send(control, LVM_SETEXTENDEDLISTVIEWSTYLE, with.listStyle, static_cast<LPARAM>(with.listStyle));
  for (WPARAM i = 0; i < with.columns.size(); ++i) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<wchar_t*>(with.columns[i].header.c_str());
    column.cx = with.columns[i].width;
    send(control, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  for (std::size_t i = 0; i < with.rows.size(); ++i) {
    LVITEMW item{};
    item.iItem = static_cast<int>(i);
    item.mask = LVIF_TEXT | LVIF_STATE;
    item.state = with.rows[i].state;
    item.stateMask = LVIS_STATEIMAGEMASK;
    for (const std::wstring& cell : with.rows[i].cells) {
      item.pszText = const_cast<wchar_t*>(cell.c_str());
      send(control, item.iSubItem == 0 ? LVM_INSERTITEMW : LVM_SETITEMTEXTW,
           item.iSubItem == 0 ? 0 : i, reinterpret_cast<LPARAM>(&item));
      ++item.iSubItem;
    }
    item.iSubItem = 0;
    send(control, LVM_SETITEMSTATE, i, reinterpret_cast<LPARAM>(&item));
  }
}

INT_PTR CALLBACK PlatformSheet::procedure(HWND window, UINT message, WPARAM /*wParam*/,
                                          LPARAM lParam) {
  if (message != WM_INITDIALOG) return FALSE;
  const auto& page =
      *reinterpret_cast<const Page*>(reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
  int id = kFirstId;
  for (const Control& control : page.controls) fill(GetDlgItem(window, id++), control);
  return FALSE;
}

HWND PlatformSheet::open(HWND owner) const {
  std::vector<PROPSHEETPAGEW> pages;
  for (const Page& page : pages_) {
    PROPSHEETPAGEW made{};
    made.dwSize = sizeof made;
    made.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    made.hInstance = win32::thisModule();
    made.pResource = reinterpret_cast<const DLGTEMPLATE*>(page.dialogTemplate.data());
    made.pszTitle = page.title.c_str();
    made.pfnDlgProc = &procedure;
    made.lParam = reinterpret_cast<LPARAM>(&page);
    pages.push_back(made);
  }
  PROPSHEETHEADERW header{};
  header.dwSize = sizeof header;
  header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS;
  header.hwndParent = owner;
  header.hInstance = win32::thisModule();
  header.pszCaption = L"Options";
  header.nPages = static_cast<UINT>(pages.size());
  header.ppsp = pages.data();
  const auto sheet = reinterpret_cast<HWND>(PropertySheetW(&header));
  pump();
  return sheet;
}

void PlatformSheet::visit(HWND sheet, int page) {
  send(sheet, PSM_SETCURSEL, static_cast<WPARAM>(page));
  pump();
}

void PlatformSheet::close(HWND sheet) {
  DestroyWindow(sheet);
  pump();
}

}  // namespace tillora::bench
