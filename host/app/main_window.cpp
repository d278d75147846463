#include "host/app/main_window.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "com/wide_text.h"
#include "host/app/resource.h"
#include "host/options_saved_message.h"
#include "host/text_encoding.h"

namespace tillora::host::app {

using win32::wide;

namespace {

constexpr const wchar_t* kClass = L"TilloraAdministrator";
constexpr const wchar_t* kTitle = L"Tillora Administrator";
constexpr int kTabs = 12;
constexpr ReportList::Column kEventColumns[] = {{u"Time", 140}, {u"What happened", 200}};

// Pixels at 96 DPI.
constexpr int kWidth = 900;
constexpr int kHeight = 640;
constexpr int kLeastWidth = 480;
constexpr int kLeastHeight = 360;
constexpr int kGap = 7;
constexpr int kButtonWidth = 90;
constexpr int kButtonMargin = 5;  ///< above and below its text
constexpr int kLabelGap = 2;      ///< between a label and its list

}  // namespace

MainWindow::MainWindow(HINSTANCE program, Commands commands)
    : program_(program),
      commands_(std::move(commands)),
      optionsSavedMessage_(RegisterWindowMessageW(OptionsSavedMessage::kName)) {
  const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);

  const HDC screen = GetDC(nullptr);
  dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);

  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.lpfnWndProc = procedure;
  description.hInstance = program;
  description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszMenuName = MAKEINTRESOURCEW(IDM_MAIN);
  description.lpszClassName = kClass;
  RegisterClassExW(&description);
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  CreateWindowExW(
      WS_EX_CONTROLPARENT, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
      CW_USEDEFAULT, std::min<int>(scaled(kWidth), work.right - work.left),
      std::min<int>(scaled(kHeight), work.bottom - work.top), nullptr, nullptr, program, this);
  if (window_ == nullptr) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "CreateWindowExW");
  }
}

MainWindow::~MainWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
  UnregisterClassW(kClass, program_);
}

int MainWindow::scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }

HWND MainWindow::createControl(const wchar_t* windowClass, const wchar_t* text, DWORD style,
                               int id) {
  return CreateWindowExW(0, windowClass, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                         reinterpret_cast<HMENU>(INT_PTR{id}), program_, nullptr);
}

// Each label stands before the list that its access key leads to.
void MainWindow::createControls() {
  button_ = createControl(L"BUTTON", L"&Options...", WS_TABSTOP | BS_DEFPUSHBUTTON, IDM_OPTIONS);
  optionsLabel_ = createControl(L"STATIC", L"&Stored options", SS_LEFT, 0);
  options_.create(window_, IDC_STORED_OPTIONS, dpi_);
  eventsLabel_ = createControl(L"STATIC", L"&What happened", SS_LEFT, 0);
  events_.create(window_, IDC_EVENTS, kEventColumns, dpi_);
  status_ = createControl(STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, 0);
  focus_ = button_;
  takeFont();
}

void MainWindow::takeFont() {
  auto font = std::make_unique<MessageFont>();
  for (const HWND control : {button_, optionsLabel_, eventsLabel_, events_.window(), status_}) {
    font->applyTo(control);
  }
  options_.setFont(font->handle());
  font_ = std::move(font);  // the former one goes when nothing uses it any more
}

int MainWindow::lineHeight() const {
  const HDC context = GetDC(window_);
  const HGDIOBJ before = SelectObject(context, font_->handle());
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  SelectObject(context, before);
  ReleaseDC(window_, context);
  return metrics.tmHeight;
}

// From top to bottom: the button, and with their labels the options and, in a third of what is
// left, the events.
void MainWindow::layOut() {
  SendMessageW(status_, WM_SIZE, 0, 0);
  RECT client;
  RECT status;
  GetClientRect(window_, &client);
  GetWindowRect(status_, &status);
  const int gap = scaled(kGap);
  const int label = lineHeight() + scaled(kLabelGap);
  const int buttonHeight = lineHeight() + 2 * scaled(kButtonMargin);
  const int left = gap;
  const int right = std::max<int>(client.right - gap, left);
  const int bottom = client.bottom - (status.bottom - status.top) - gap;
  const int listsTop = gap + buttonHeight + gap;
  const int lists = std::max(bottom - listsTop - 2 * label - gap, 0);
  const int optionsTop = listsTop + label;
  const int optionsBottom = optionsTop + lists * 2 / 3;
  const int eventsLabelTop = optionsBottom + gap;

  MoveWindow(button_, left, gap, scaled(kButtonWidth), buttonHeight, TRUE);
  MoveWindow(optionsLabel_, left, listsTop, right - left, label, TRUE);
  options_.setBounds({left, optionsTop, right, optionsBottom});
  MoveWindow(eventsLabel_, left, eventsLabelTop, right - left, label, TRUE);
  events_.setBounds(
      {left, eventsLabelTop + label, right, std::max(bottom, eventsLabelTop + label)});
}

void MainWindow::show(int how) {
  ShowWindow(window_, how);
  UpdateWindow(window_);
}

int MainWindow::run() {
  const HACCEL keys = LoadAcceleratorsW(program_, MAKEINTRESOURCEW(IDM_MAIN));
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(window_, keys, &message) != 0) continue;
    if (IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

void MainWindow::showOptions(const std::vector<Text>& values, bool afterSave) {
  const int changed = options_.update(values, afterSave);
  Text label = u"&Stored options";
  if (changed > 0) {
    label += u" (" + fromUtf8(std::to_string(changed)) + u" changed by the last save)";
  }
  SetWindowTextW(optionsLabel_, wide(label));
}

void MainWindow::addLine(const Text& time, const Text& line) {
  events_.show(events_.addRow({time, line}));
}

void MainWindow::setDatabase(const Text& path) { SetWindowTextW(status_, wide(path)); }

void MainWindow::showError(const Text& text) {
  MessageBoxW(window_, wide(text), kTitle, MB_ICONEXCLAMATION | MB_OK);
}

void MainWindow::about() {
  MessageBoxW(window_,
              L"Tillora Administrator\r\n\r\nReference host of the Tillora options component.",
              L"About Tillora Administrator", MB_ICONINFORMATION | MB_OK);
}

void MainWindow::command(int id) {
  if (id == IDM_EXIT) {
    SendMessageW(window_, WM_CLOSE, 0, 0);
  } else if (id == IDM_OPTIONS) {
    commands_.options(0);
  } else if (id == IDM_FIRST_USE) {
    commands_.firstUse();
  } else if (id == IDM_ABOUT) {
    about();
  } else if (id > IDM_OPTIONS_TAB && id <= IDM_OPTIONS_TAB + kTabs) {
    commands_.options(static_cast<std::int16_t>(id - IDM_OPTIONS_TAB));
  }
}

LRESULT MainWindow::notified(const NMHDR& notification) {
  if (notification.hwndFrom != options_.window()) return 0;
  if (notification.code == NM_CUSTOMDRAW) {
    // The list view hands over its own structure, to be changed.
    return options_.customDraw(
        *reinterpret_cast<NMLVCUSTOMDRAW*>(const_cast<NMHDR*>(&notification)));
  }
  if (notification.code == NM_DBLCLK) {
    const int row = reinterpret_cast<const NMITEMACTIVATE*>(&notification)->iItem;
    if (const std::int16_t tab = options_.tabOfRow(row); tab > 0) commands_.options(tab);
  }
  return 0;
}

LRESULT MainWindow::handle(UINT message, WPARAM wideParameter, LPARAM other) {
  if (message == optionsSavedMessage_ && message != 0) {
    commands_.optionsSaved();
    return 0;
  }
  switch (message) {
    case WM_CREATE:
      createControls();
      return 0;
    case WM_SIZE:
      layOut();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(other)->ptMinTrackSize = {scaled(kLeastWidth),
                                                              scaled(kLeastHeight)};
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wideParameter) == WA_INACTIVE) {
        if (const HWND focus = GetFocus(); IsChild(window_, focus)) focus_ = focus;
      }
      return DefWindowProcW(window_, message, wideParameter, other);
    case WM_SETFOCUS:
      SetFocus(focus_);
      return 0;
    case WM_SETTINGCHANGE:
      if (wideParameter == SPI_SETNONCLIENTMETRICS) {
        takeFont();
        layOut();
      }
      return 0;
    case WM_SYSCOLORCHANGE:
      // Lists are notified only by their parent.
      SendMessageW(options_.window(), message, wideParameter, other);
      SendMessageW(events_.window(), message, wideParameter, other);
      return 0;
    case WM_NOTIFY:
      return notified(*reinterpret_cast<const NMHDR*>(other));
    case WM_COMMAND:
      command(LOWORD(wideParameter));
      return 0;
    case WM_NEXTDLGCTL: {  // an access key
      const bool isControl = LOWORD(other) != FALSE;
      SetFocus(isControl ? reinterpret_cast<HWND>(wideParameter)
                         : GetNextDlgTabItem(window_, GetFocus(), wideParameter != 0));
      return 0;
    }
    case DM_GETDEFID:
      return MAKELRESULT(IDM_OPTIONS, DC_HASDEFID);
    case WM_DESTROY:
      window_ = nullptr;
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, wideParameter, other);
  }
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wideParameter,
                                       LPARAM other) noexcept {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(other);
    auto* self = static_cast<MainWindow*>(creation->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || self->window_ == nullptr) {
    return DefWindowProcW(window, message, wideParameter, other);
  }
  try {
    return self->handle(message, wideParameter, other);
  } catch (...) {
    // No exception may reach the system. Commands report their failures themselves; what remains is
    // running out of memory while something is shown.
    MessageBeep(MB_ICONERROR);
    return message == WM_CREATE ? -1 : 0;  // the window is not made if its controls cannot be
  }
}

}  // namespace tillora::host::app
