#pragma once

#include <windows.h>

#include <functional>
#include <thread>

#include "tests/testing/win32/key_strokes.h"
#include "tests/testing/win32/waiting_keys.h"

namespace tillora::testing {

/// Deals with the component's dialog from another thread, while the test's thread is inside
/// ShowOptions: what a person at the machine would do.
class DialogPerson {
 public:
  /// Runs `act` on each of the next dialogs once it is shown, then closes it if it is still there.
  explicit DialogPerson(std::function<void(HWND)> act, int dialogs = 1)
      : thread_([this, act = std::move(act), dialogs] {
          for (int dialog = 0; dialog < dialogs; ++dialog) dealWith(act);
        }) {}
  ~DialogPerson() { finish(); }
  DialogPerson(const DialogPerson&) = delete;
  DialogPerson& operator=(const DialogPerson&) = delete;

  /// Dialogs that were seen; waits for the last one.
  int finish() {
    if (thread_.joinable()) thread_.join();
    return seen_;
  }

  // These return when the window in front has dealt with the keys, or is gone.
  static void type(const wchar_t* text) {
    for (; *text != L'\0'; ++text) type(*text);
  }
  static void type(wchar_t character) { strikeAndWait(inputsOf(character)); }
  static void press(WORD key, bool alt = false, bool ctrl = false) {
    strikeAndWait(inputsOf({.key = key, .shift = false, .ctrl = ctrl, .alt = alt}));
  }
  static void retype(const wchar_t* text) {
    press('A', false, true);
    type(text);
  }

 private:
  static constexpr int kAttempts = 1000;

  /// The dialog of this process; null where there is none.
  static HWND find() {
    for (HWND window = nullptr;;) {
      window = FindWindowExW(nullptr, window, nullptr, L"Options");
      DWORD process = 0;
      if (window == nullptr) return nullptr;
      GetWindowThreadProcessId(window, &process);
      if (process == GetCurrentProcessId() && IsWindowVisible(window)) return window;
    }
  }

  void dealWith(const std::function<void(HWND)>& act) {
    HWND dialog = nullptr;
    for (int attempt = 0; attempt < kAttempts && dialog == nullptr; ++attempt) {
      Sleep(5);
      dialog = find();
    }
    if (dialog == nullptr) return;
    ++seen_;
    for (int attempt = 0; attempt < kAttempts && !hasKeyboard(dialog); ++attempt) Sleep(5);
    act(dialog);
    if (IsWindow(dialog)) PostMessageW(dialog, WM_CLOSE, 0, 0);
    for (int attempt = 0; attempt < kAttempts && IsWindow(dialog); ++attempt) Sleep(2);
  }

  int seen_ = 0;
  std::thread thread_;
};

}  // namespace tillora::testing
