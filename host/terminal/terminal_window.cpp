#include "host/terminal/terminal_window.h"

#include <oleauto.h>

#include <filesystem>
#include <system_error>

#include "com/wide_text.h"
#include "host/options_saved_message.h"

namespace tillora::host::terminal {
namespace {

constexpr const wchar_t* kClass = L"TilloraTerminal";
constexpr const wchar_t* kTitle = L"Tillora Terminal";

Text timeText(DateTime when) {
  SYSTEMTIME time{};
  if (!VariantTimeToSystemTime(when.days, &time)) return u"an unknown time";
  wchar_t text[32];
  swprintf_s(text, std::size(text), L"%04d-%02d-%02d %02d:%02d:%02d", time.wYear, time.wMonth,
             time.wDay, time.wHour, time.wMinute, time.wSecond);
  return win32::fromWide(text);
}

}  // namespace

TerminalWindow::TerminalWindow(HINSTANCE program, const Settings& settings)
    : program_(program), once_(settings.once) {
  if (settings.log) {
    log_.open(std::filesystem::path(*settings.log), std::ios::app | std::ios::binary);
  }
  // Programs that register the same name get the same number, which no other message uses.
  optionsSavedMessage_ = RegisterWindowMessageW(OptionsSavedMessage::kName);

  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = program;
  description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  description.lpszClassName = kClass;
  RegisterClassW(&description);
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                  MulDiv(360, dpi, USER_DEFAULT_SCREEN_DPI),
                  MulDiv(220, dpi, USER_DEFAULT_SCREEN_DPI), nullptr, nullptr, program, this);
  if (window_ == nullptr) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "CreateWindowExW");
  }
  list_ =
      CreateWindowExW(0, L"LISTBOX", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT,
                      0, 0, 0, 0, window_, nullptr, program, nullptr);
  font_.applyTo(list_);
}

TerminalWindow::~TerminalWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
  UnregisterClassW(kClass, program_);
}

int TerminalWindow::run(int show) {
  ShowWindow(window_, show);
  addLine(u"Waiting for options to be saved");
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

void TerminalWindow::addLine(const Text& line) {
  const LRESULT row = SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
  if (log_.is_open()) log_ << toUtf8(line) << "\r\n" << std::flush;
}

void TerminalWindow::optionsSaved(DateTime when) {
  addLine(u"Options saved at " + timeText(when));
  if (once_) DestroyWindow(window_);
}

LRESULT TerminalWindow::handle(UINT message, WPARAM wide, LPARAM other) {
  if (message == optionsSavedMessage_ && message != 0) {
    optionsSaved(
        OptionsSavedMessage{static_cast<std::uint32_t>(wide), static_cast<std::uint32_t>(other)}
            .when());
    return 0;
  }
  if (message == WM_SIZE) {
    MoveWindow(list_, 0, 0, LOWORD(other), HIWORD(other), TRUE);
    return 0;
  }
  if (message == WM_DESTROY) {
    window_ = nullptr;
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcW(window_, message, wide, other);
}

LRESULT CALLBACK TerminalWindow::procedure(HWND window, UINT message, WPARAM wide,
                                           LPARAM other) noexcept {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(other);
    auto* self = static_cast<TerminalWindow*>(creation->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<TerminalWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || self->window_ == nullptr) {
    return DefWindowProcW(window, message, wide, other);
  }
  try {
    return self->handle(message, wide, other);
  } catch (...) {  // out of memory; no exception may reach the system
    return 0;
  }
}

}  // namespace tillora::host::terminal
