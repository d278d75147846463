#pragma once

#include <windows.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/testing/win32/shown_dialogs.h"

namespace tillora::testing {

/// How long a DialogPerson waits before a dialog counts as missing or stuck: far longer than a
/// loaded machine takes.
struct DialogPatience {
  std::chrono::milliseconds toBeShown = std::chrono::seconds(20);
  std::chrono::milliseconds toAct = std::chrono::seconds(90);
  std::chrono::milliseconds toClose = std::chrono::seconds(10);
};

/// Uses the dialogs that a thread of this program shows, from another thread, as a person at the
/// machine would: the component's dialog while the test's thread is inside ShowOptions, a message
/// box, a file dialog.
///
/// No dialog is left open: one that is not expected, does not close, or whose `act` does not return
/// is closed from outside after a while, so that the call that shows it returns.
class DialogPerson {
 public:
  /// Runs `act` on each of the next dialogs of the thread, one after the other, once it has the
  /// keyboard, then closes it if it is still there. Dialogs that are shown while one of these is
  /// open are left to `act`.
  explicit DialogPerson(std::function<void(HWND)> act, int dialogs = 1,
                        DWORD thread = GetCurrentThreadId(), DialogPatience patience = {});
  ~DialogPerson() { finish(); }
  DialogPerson(const DialogPerson&) = delete;
  DialogPerson& operator=(const DialogPerson&) = delete;

  /// Ends the work: no dialog is coming any more. The number of dialogs that `act` was run on;
  /// fewer than expected and everything that went wrong are failures of the test.
  int finish();

  /// For `act`: waits until a dialog of the thread with this title has the keyboard. If none gets
  /// it, returns false and fails the test.
  bool waitFor(const wchar_t* title);

  // These return when the window in front has processed the keys, or is gone.
  static void type(const wchar_t* text);
  static void type(wchar_t character);
  static void press(WORD key, bool alt = false, bool ctrl = false);
  static void retype(const wchar_t* text);

 private:
  using Dialog = ShownDialogs::Dialog;

  void work();
  /// The next dialog, with the keyboard; number 0 if none is coming.
  Dialog next();
  void use(const Dialog& dialog);
  void closeAll();

  std::function<void(HWND)> act_;
  int expected_;
  DialogPatience patience_;
  ShownDialogs shown_;
  int used_ = 0;
  bool quitPosted_ = false;
  std::vector<std::string> failures_;
  std::atomic<bool> acted_ = false;
  std::atomic<bool> finishing_ = false;
  std::thread thread_;  // last: it uses the others
};

}  // namespace tillora::testing
