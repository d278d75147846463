#include "tools/drive/windows_of_others.h"

namespace tillora::testing {
namespace {

// A program that does not answer for this long is taken to have no text.
constexpr UINT kAnswerMilliseconds = 2000;

BOOL CALLBACK collect(HWND window, LPARAM found) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  return TRUE;
}

BOOL CALLBACK collectAny(HWND window, LPARAM found) {
  reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  return TRUE;
}

}  // namespace

std::vector<HWND> topLevelWindows() {
  std::vector<HWND> windows;
  EnumWindows(&collect, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [](HWND window) { return GetWindowTextLengthW(window) == 0; });
  return windows;
}

HWND findWindow(const std::wstring& title) {
  for (const HWND window : topLevelWindows()) {
    if (textOf(window) == title) return window;
  }
  return nullptr;
}

std::vector<HWND> childrenOf(HWND window, const std::wstring& className) {
  std::vector<HWND> children;
  EnumChildWindows(window, &collect, reinterpret_cast<LPARAM>(&children));
  std::erase_if(children, [&](HWND child) {
    return CompareStringOrdinal(classOf(child).c_str(), -1, className.c_str(), -1, TRUE) !=
           CSTR_EQUAL;
  });
  return children;
}

HWND findChild(HWND window, const std::wstring& className, const std::wstring& text) {
  for (const HWND child : childrenOf(window, className)) {
    if (textOf(child) == text) return child;
  }
  return nullptr;
}

std::vector<HWND> allWindows() {
  std::vector<HWND> windows;
  EnumWindows(&collectAny, reinterpret_cast<LPARAM>(&windows));
  const std::vector<HWND> roots = windows;
  for (const HWND root : roots) {
    EnumChildWindows(root, &collectAny, reinterpret_cast<LPARAM>(&windows));
  }
  return windows;
}

std::wstring classOf(HWND window) {
  std::wstring name(256, L'\0');
  name.resize(
      static_cast<std::size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
  return name;
}

std::wstring textOf(HWND window) {
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds,
                      &length);
  std::wstring text(length + 1, L'\0');
  DWORD_PTR copied = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, kAnswerMilliseconds, &copied);
  text.resize(copied);
  return text;
}

}  // namespace tillora::testing
