#include "ui/win32/edit_view.h"

#include <algorithm>

#include "com/wide_text.h"
#include "ui/masked_text.h"
#include "ui/win32/form_window.h"
#include "ui/win32/held_keys.h"
#include "ui/win32/window_text.h"

namespace tillora::ui::win32 {
namespace {

constexpr char16_t kSelectAllCharacter = 1;  // Ctrl+A
constexpr char16_t kEscapeCharacter = 27;

void unlockMemory(HGLOBAL memory) { GlobalUnlock(memory); }

/// Keeps the clipboard open during its lifetime.
class Clipboard {
 public:
  explicit Clipboard(HWND reader) : open_(OpenClipboard(reader) != FALSE) {}
  Clipboard(const Clipboard&) = delete;
  Clipboard& operator=(const Clipboard&) = delete;
  ~Clipboard() {
    if (open_) CloseClipboard();
  }
  /// Empty if it holds none.
  Text text() const {
    const HGLOBAL data = open_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* units = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (!units) return {};
    const Owned<HGLOBAL, unlockMemory> locked(data);
    const wchar_t* end = std::find(units, units + GlobalSize(data) / sizeof(wchar_t), L'\0');
    return tillora::win32::fromWide(units, static_cast<std::size_t>(end - units));
  }

 private:
  bool open_;
};

DWORD styleOf(const TextBox& box) {
  DWORD style = 0;
  if (box.multiLine()) {
    style |= ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
  } else {
    style |= ES_AUTOHSCROLL;
  }
  if (box.alignment() == Alignment::right) style |= ES_RIGHT;
  if (box.alignment() == Alignment::centre) style |= ES_CENTER;
  if (box.passwordCharacter() != 0) style |= ES_PASSWORD;
  if (box.locked()) style |= ES_READONLY;
  return style;
}

}  // namespace

void EditView::create(HWND parent) {
  const Echo echo(*this);
  // Placing the text takes a second step, which shows the window too.
  createWindow(parent, {WC_EDITW, styleOf(control()), WS_EX_CLIENTEDGE, true});
  if (control().passwordCharacter() != 0) {
    send(EM_SETPASSWORDCHAR, control().passwordCharacter());
  }
  send(EM_SETLIMITTEXT, static_cast<WPARAM>(control().maxLength()));
  fitText();
  showScrollBarIfNeeded();
  if (control().selStart() != 0 || control().selLength() != 0) showSelection();
}

void EditView::show(Property what) {
  const Echo echo(*this);
  switch (what) {
    case Property::text:
      showText();
      break;
    case Property::selection:
      showSelection();
      break;
    case Property::editing:
      showEditing();
      break;
    case Property::bounds:
      ControlView::show(what);
      showScrollBarIfNeeded();
      break;
    default:
      ControlView::show(what);
  }
}

Text EditView::windowText() const {
  return isMasked() ? placeholders(control().text().size()) : control().text();
}

void EditView::showText() {
  SetWindowTextW(window(), forWindow(windowText()).c_str());
  showScrollBarIfNeeded();
  showSelection();
}

void EditView::showSelection() {
  const int start = control().selStart();
  send(EM_SETSEL, static_cast<WPARAM>(start), start + control().selLength());
  send(EM_SCROLLCARET);
}

void EditView::showEditing() {
  send(EM_SETLIMITTEXT, static_cast<WPARAM>(control().maxLength()));
  send(EM_SETREADONLY, control().locked());
}

void EditView::command(WORD code) {
  if (code == EN_CHANGE) userDoes([this] { edited(); });
}

void EditView::edited() {
  DWORD start = 0;
  DWORD end = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), &end);
  control().userEdited(editedText(), static_cast<int>(start), static_cast<int>(end - start));
  // What was typed becomes a placeholder, too.
  if (isMasked()) show(Property::text);
}

Text EditView::editedText() const {
  std::wstring shown = win32::windowText(window());
  Text text = tillora::win32::fromWide(shown.data(), shown.size());
  if (isMasked()) {
    replacePlaceholders(text, control().text());
    wipe(shown.data(), shown.size() * sizeof(wchar_t));
  }
  return text;
}

void EditView::readBack() {
  DWORD start = 0;
  DWORD end = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), &end);
  control().userSelected(static_cast<int>(start), static_cast<int>(end - start));
}

// Reads the clipboard only for boxes that handle a paste: it may hold a password.
bool EditView::pasteIsUsed() {
  if (!control().paste || control().locked()) return false;
  readBack();
  bool used = true;  // also while nothing can be edited
  userDoes([&] {
    used = false;
    control().paste.raise(Clipboard(window()).text(), used);
  });
  return used;
}

LRESULT EditView::message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PASTE && pasteIsUsed()) return 0;
  // An edit control may paste at this key without the message.
  if (message == WM_KEYDOWN && wParam == VK_INSERT && heldModifiers() == Modifiers{.shift = true}) {
    return send(WM_PASTE);
  }
  const LRESULT result = ControlView::message(message, wParam, lParam);
  if (message == WM_NCCALCSIZE) centreText(*reinterpret_cast<RECT*>(lParam));
  if (message == WM_NCPAINT) paintAboveText();
  const bool movesCaret = message == WM_KEYDOWN || message == WM_CHAR ||
                          message == WM_LBUTTONDOWN || message == WM_LBUTTONUP ||
                          message == WM_LBUTTONDBLCLK;
  if (movesCaret) readBack();
  return result;
}

void EditView::showFont() {
  ControlView::showFont();
  fitText();
  showScrollBarIfNeeded();
}

// Only where the text is fixed: in a box that is edited, lines would break anew at each change.
void EditView::showScrollBarIfNeeded() const {
  if (!control().multiLine() || !control().locked()) return;
  ShowScrollBar(window(), SB_VERT, FALSE);
  RECT place{};
  send(EM_GETRECT, 0, &place);
  const auto height = send(EM_GETLINECOUNT) * formWindow().metrics().linePixels();
  ShowScrollBar(window(), SB_VERT, height > place.bottom - place.top);
}

// Has the platform ask anew where in the window the text goes.
void EditView::fitText() const {
  const bool seen = IsWindowVisible(GetParent(window())) != FALSE;
  SetWindowPos(window(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE |
                   (seen ? 0U : SWP_NOREDRAW | (control().visible() ? SWP_SHOWWINDOW : 0U)));
}

// The platform puts the text of a single line at the top of the client area.
void EditView::centreText(RECT& client) {
  if (control().multiLine()) return;
  constexpr int kAboveText = 1;
  const auto free = client.bottom - client.top - formWindow().metrics().linePixels();
  aboveText_ = std::max<LONG>(0, free / 2 - kAboveText);
  client.top += aboveText_;
}

void EditView::paintAboveText() const {
  if (aboveText_ == 0) return;
  RECT place{};
  GetClientRect(window(), &place);
  MapWindowPoints(window(), HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
  RECT whole{};
  GetWindowRect(window(), &whole);
  OffsetRect(&place, -whole.left, -whole.top);
  const RECT above{place.left, place.top - aboveText_, place.right, place.top};
  const WindowDc dc(window());
  FillRect(dc.get(), &above, Brush(CreateSolidBrush(toColorRef(ground()))).get());
}

bool EditView::typed(char16_t character) {
  if (character == kSelectAllCharacter) {
    send(EM_SETSEL, 0, LPARAM{-1});
    readBack();
    return true;
  }
  // Enter and Esc that no button took would only make a single line sound the bell.
  return character == kEscapeCharacter || (character == u'\r' && !control().multiLine());
}

Colour EditView::ground() const {
  return control().effectivelyEnabled() ? control().backColour() : kButtonFace;
}

HBRUSH EditView::colours(HDC dc) {
  const COLORREF ground = toColorRef(this->ground());
  SetTextColor(dc, control().effectivelyEnabled() ? toColorRef(control().foreColour())
                                                  : GetSysColor(COLOR_GRAYTEXT));
  SetBkColor(dc, ground);
  ground_.reset(CreateSolidBrush(ground));
  return ground_.get();
}

}  // namespace tillora::ui::win32
