#include "host/app/main_window.h"

#include <commctrl.h>

#include <utility>

#include "host/app/resource.h"
#include "support/win32/wide_text.h"

namespace tillora::host::app {

using win32::wide;

namespace {

constexpr const wchar_t* kClass = L"TilloraAdministrator";
constexpr const wchar_t* kTitle = L"Tillora Administrator";
constexpr int kTimeWidth = 140;
constexpr int kTabs = 12;

}  // namespace

MainWindow::MainWindow(HINSTANCE program, Commands commands)
    : program_(program), commands_(std::move(commands)) {
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
  description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  description.lpszMenuName = MAKEINTRESOURCEW(IDM_MAIN);
  description.lpszClassName = kClass;
  RegisterClassExW(&description);
  CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, scaled(900),
                  scaled(640), nullptr, nullptr, program, this);
}

MainWindow::~MainWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
  UnregisterClassW(kClass, program_);
}

int MainWindow::scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }

void MainWindow::createControls() {
  list_ = CreateWindowExW(0, WC_LISTVIEWW, L"",
                          WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                              LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                          0, 0, 0, 0, window_, nullptr, program_, nullptr);
  ListView_SetExtendedListViewStyle(list_,
                                    LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
  status_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                            0, 0, window_, nullptr, program_, nullptr);
  font_.applyTo(list_);
  font_.applyTo(status_);

  int position = 0;
  for (const auto* caption : {u"Time", u"What happened"}) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<wchar_t*>(wide(caption));
    column.cx = scaled(kTimeWidth);
    ListView_InsertColumn(list_, position, &column);
    ++position;
  }
}

void MainWindow::layOut() {
  SendMessageW(status_, WM_SIZE, 0, 0);
  RECT client;
  RECT status;
  GetClientRect(window_, &client);
  GetWindowRect(status_, &status);
  const int height = client.bottom - (status.bottom - status.top);
  MoveWindow(list_, 0, 0, client.right, height, TRUE);
  const int rest = client.right - scaled(kTimeWidth) - GetSystemMetrics(SM_CXVSCROLL);
  ListView_SetColumnWidth(list_, 1, rest);
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
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

void MainWindow::addLine(const Text& time, const Text& line) {
  LVITEMW row{};
  row.mask = LVIF_TEXT;
  row.iItem = ListView_GetItemCount(list_);
  row.pszText = const_cast<wchar_t*>(wide(time));
  const int index = ListView_InsertItem(list_, &row);
  ListView_SetItemText(list_, index, 1, const_cast<wchar_t*>(wide(line)));
  ListView_EnsureVisible(list_, index, FALSE);
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

LRESULT MainWindow::handle(UINT message, WPARAM wideParameter, LPARAM other) {
  switch (message) {
    case WM_CREATE:
      createControls();
      return 0;
    case WM_SIZE:
      layOut();
      return 0;
    case WM_SETFOCUS:
      SetFocus(list_);
      return 0;
    case WM_COMMAND:
      command(LOWORD(wideParameter));
      return 0;
    case WM_DESTROY:
      window_ = nullptr;
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, wideParameter, other);
  }
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wideParameter,
                                       LPARAM other) {
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
  return self->handle(message, wideParameter, other);
}

}  // namespace tillora::host::app
