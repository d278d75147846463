#include "tests/testing/win32/screen_reader.h"

#include <oleacc.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>

#include <array>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "com/wide_text.h"

namespace tillora::testing {
namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

constexpr std::array kStates = {STATE_SYSTEM_UNAVAILABLE, STATE_SYSTEM_CHECKED,
                                STATE_SYSTEM_SELECTED,    STATE_SYSTEM_FOCUSED,
                                STATE_SYSTEM_READONLY,    STATE_SYSTEM_PROTECTED};

std::wstring classOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

LONG styleOf(HWND window) { return static_cast<LONG>(GetWindowLongPtrW(window, GWL_STYLE)); }

LONG typeOfButton(HWND window) { return styleOf(window) & BS_TYPEMASK; }

bool isOptionButton(HWND window) {
  return classOf(window) == L"Button" && typeOfButton(window) == BS_RADIOBUTTON;
}

LONG roleOfButton(HWND window) {
  switch (typeOfButton(window)) {
    case BS_GROUPBOX:
      return ROLE_SYSTEM_GROUPING;
    case BS_CHECKBOX:
      return ROLE_SYSTEM_CHECKBUTTON;
    case BS_RADIOBUTTON:
      return ROLE_SYSTEM_RADIOBUTTON;
    default:
      return ROLE_SYSTEM_PUSHBUTTON;
  }
}

LONG roleOfClass(HWND window) {
  const std::wstring name = classOf(window);
  if (name == L"Button") return roleOfButton(window);
  if (name == L"Static") return ROLE_SYSTEM_STATICTEXT;
  if (name == L"ComboBox") return ROLE_SYSTEM_COMBOBOX;
  if (name == WC_LISTVIEWW) return ROLE_SYSTEM_LIST;
  if (name == WC_TABCONTROLW) return ROLE_SYSTEM_PAGETABLIST;
  if (name == UPDOWN_CLASSW) return ROLE_SYSTEM_SPINBUTTON;
  if (name == L"#32770") return ROLE_SYSTEM_DIALOG;
  return ROLE_SYSTEM_CLIENT;
}

LONG statesOfClass(HWND window) {
  const bool ticked =
      classOf(window) == L"Button" && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
  return ticked ? STATE_SYSTEM_CHECKED : 0;
}

std::string quoted(const Text& text) {
  std::string line = " \"";
  for (const char letter : toUtf8(text)) {
    if (letter == '\n') line += ' ';
    if (letter != '\n' && letter != '\r') line += letter;
  }
  return line + '"';
}

std::string textOfRole(LONG role) {
  std::array<wchar_t, 64> text{};
  GetRoleTextW(static_cast<DWORD>(role), text.data(), static_cast<UINT>(text.size()));
  return toUtf8(win32::fromWide(text.data()));
}

std::string textOfStates(LONG states) {
  std::string line;
  for (const LONG state : kStates) {
    if ((states & state) == 0) continue;
    std::array<wchar_t, 64> text{};
    GetStateTextW(static_cast<DWORD>(state), text.data(), static_cast<UINT>(text.size()));
    line += ", " + toUtf8(win32::fromWide(text.data()));
  }
  return line;
}

/// ", 2 of 4": the place among the option buttons that no other group begins between.
std::string placeInGroup(HWND window) {
  if (!isOptionButton(window)) return "";
  const auto begins = [](HWND button) { return (styleOf(button) & WS_GROUP) != 0; };
  HWND first = window;
  int place = 1;
  for (; !begins(first) && GetWindow(first, GW_HWNDPREV) != nullptr; ++place) {
    first = GetWindow(first, GW_HWNDPREV);
  }
  int count = 1;
  for (HWND next = GetWindow(first, GW_HWNDNEXT); next != nullptr && !begins(next); ++count) {
    next = GetWindow(next, GW_HWNDNEXT);
  }
  return ", " + std::to_string(place) + " of " + std::to_string(count);
}

class Reader {
 public:
  explicit Reader(const KeptAnnotations& annotations) : annotations_(annotations) {}

  void read(HWND window, int depth) {
    if ((styleOf(window) & WS_VISIBLE) == 0) return;
    const std::string line = lineOf(window);
    if (!line.empty()) add(depth, line);
    const std::wstring name = classOf(window);
    if (name == WC_TABCONTROLW) {
      readTabs(window, depth + 1);
    } else if (name == WC_LISTVIEWW) {
      readRows(window, depth + 1);
    } else if (name != L"ComboBox") {
      for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
           child = GetWindow(child, GW_HWNDNEXT)) {
        read(child, depth + 1);
      }
    }
  }
  const std::string& text() const { return text_; }

 private:
  void add(int depth, const std::string& line) {
    text_.append(static_cast<std::size_t>(2 * depth), ' ').append(line).append("\n");
  }

  /// Empty for a window that has nothing to say.
  std::string lineOf(HWND window) {
    ComPtr<IAccessible> accessible;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                          __uuidof(IAccessible), accessible.outVoid()))) {
      return "nothing accessible";
    }
    const Variant self(std::int32_t{CHILDID_SELF});
    Bstr name;
    Bstr shortcut;
    Variant role;
    Variant states;
    accessible->get_accName(self.get(), name.out());
    accessible->get_accKeyboardShortcut(self.get(), shortcut.out());
    accessible->get_accRole(self.get(), role.out());
    accessible->get_accState(self.get(), states.out());

    const auto told = annotations_.name(window);
    const Text called = told ? win32::fromWide(told->data(), told->size()) : name.text();
    const LONG own = role.type() == VT_I4 ? role.get().lVal : ROLE_SYSTEM_CLIENT;
    const LONG known = own == ROLE_SYSTEM_CLIENT ? roleOfClass(window) : own;
    if (called.empty() && known == ROLE_SYSTEM_STATICTEXT) return "";

    LONG present = statesOfClass(window);
    if (states.type() == VT_I4) present |= states.get().lVal;
    std::string line = textOfRole(annotations_.role(window).value_or(known)) + quoted(called);
    line += textOfStates(present) + placeInGroup(window);
    return shortcut.text().empty() ? line : line + ", " + toUtf8(shortcut.text());
  }

  void readTabs(HWND strip, int depth) {
    const auto count = static_cast<int>(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0));
    for (int tab = 0; tab < count; ++tab) {
      std::array<wchar_t, 64> text{};
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = text.data();
      item.cchTextMax = static_cast<int>(text.size());
      SendMessageW(strip, TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
      const bool selected = SendMessageW(strip, TCM_GETCURSEL, 0, 0) == tab;
      add(depth, textOfRole(ROLE_SYSTEM_PAGETAB) + quoted(win32::fromWide(text.data())) +
                     textOfStates(selected ? STATE_SYSTEM_SELECTED : 0));
    }
  }

  void readRows(HWND list, int depth) {
    const HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    if ((styleOf(list) & LVS_NOCOLUMNHEADER) == 0) {
      std::string line = "columns";
      for (int column = 0; column < columns; ++column) line += quoted(textOfColumn(list, column));
      add(depth, line);
    }
    const auto rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < rows; ++row) {
      std::string line = textOfRole(ROLE_SYSTEM_LISTITEM);
      for (int column = 0; column < columns; ++column) {
        line += quoted(textOfCell(list, row, column));
      }
      add(depth, line + textOfStates(statesOfRow(list, row)));
    }
  }

  static Text textOfColumn(HWND list, int column) {
    std::array<wchar_t, 256> text{};
    LVCOLUMNW item{};
    item.mask = LVCF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&item));
    return win32::fromWide(text.data());
  }
  static Text textOfCell(HWND list, int row, int column) {
    std::array<wchar_t, 256> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return win32::fromWide(text.data());
  }
  static LONG statesOfRow(HWND list, int row) {
    constexpr UINT kTicked = INDEXTOSTATEIMAGEMASK(2);
    const auto state =
        static_cast<UINT>(SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row),
                                       LPARAM{LVIS_SELECTED | LVIS_STATEIMAGEMASK}));
    return ((state & LVIS_SELECTED) != 0 ? STATE_SYSTEM_SELECTED : 0) |
           ((state & LVIS_STATEIMAGEMASK) == kTicked ? STATE_SYSTEM_CHECKED : 0);
  }

  const KeptAnnotations& annotations_;
  std::string text_;
};

}  // namespace

std::string readAloud(HWND window, const KeptAnnotations& annotations) {
  Reader reader(annotations);
  reader.read(window, 0);
  return reader.text();
}

}  // namespace tillora::testing
