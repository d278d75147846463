#include "tests/testing/win32/dialog_person.h"

#include <gtest/gtest.h>

#include <exception>
#include <utility>

#include "com/wide_text.h"
#include "tests/testing/win32/key_strokes.h"
#include "tests/testing/win32/waiting_keys.h"

namespace tillora::testing {
namespace {

using namespace std::chrono_literals;

std::wstring titleOf(HWND window) {
  wchar_t title[256] = L"";
  GetWindowTextW(window, title, 256);
  return title;
}

std::string quoted(HWND window) {
  return "\"" + toUtf8(win32::fromWide(titleOf(window).c_str())) + "\"";
}

/// Every control with an identifier that ends a message box or another dialog of the platform.
BOOL CALLBACK pressEnding(HWND control, LPARAM dialog) {
  const int id = GetDlgCtrlID(control);
  if (id < IDOK || id > IDCONTINUE) return TRUE;
  PostMessageW(reinterpret_cast<HWND>(dialog), WM_COMMAND, static_cast<WPARAM>(id), 0);
  return TRUE;
}

}  // namespace

DialogPerson::DialogPerson(std::function<void(HWND)> act, int dialogs, DWORD thread,
                           DialogPatience patience)
    : act_(std::move(act)),
      expected_(dialogs),
      patience_(patience),
      shown_(thread),
      thread_([this] { work(); }) {}

int DialogPerson::finish() {
  if (!thread_.joinable()) return used_;
  finishing_ = true;
  shown_.stir();
  thread_.join();
  if (quitPosted_ && shown_.thread() == GetCurrentThreadId()) {
    MSG quit;
    while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE) {
    }
  }
  if (used_ < expected_) {
    failures_.push_back(std::to_string(expected_ - used_) + " of " + std::to_string(expected_) +
                        " dialogs were not used");
  }
  if (!failures_.empty()) {
    std::string all;
    for (const std::string& failure : failures_) all += failure + "\n";
    ADD_FAILURE() << all;
  }
  return used_;
}

void DialogPerson::work() {
  while (used_ < expected_) {
    const Dialog dialog = next();
    if (dialog.number == 0) break;
    ++used_;
    use(dialog);
  }
  while (!finishing_) {
    shown_.waitUntil(24h, [&] { return finishing_ || !shown_.open().empty(); });
    for (const Dialog& dialog : shown_.open()) {
      failures_.push_back("nobody expects the dialog " + quoted(dialog.window));
    }
    closeAll();
  }
}

DialogPerson::Dialog DialogPerson::next() {
  Dialog found{};
  const auto ready = [&] {
    const auto open = shown_.open();
    found = open.empty() ? Dialog{} : open.front();
    return open.empty() ? finishing_.load() : hasKeyboard(found.window);
  };
  if (shown_.waitUntil(patience_.toBeShown, ready)) return found;
  if (found.number == 0) {
    failures_.push_back("no dialog was shown");
  } else {
    failures_.push_back("the dialog " + quoted(found.window) + " never had the keyboard");
    closeAll();
  }
  return {};
}

void DialogPerson::use(const Dialog& dialog) {
  acted_ = false;
  std::string failure;
  std::thread actor([&] {
    try {
      act_(dialog.window);
    } catch (const std::exception& thrown) {
      failure = std::string("the person failed: ") + thrown.what();
    }
    acted_ = true;
    shown_.stir();
  });
  if (!shown_.waitUntil(patience_.toAct, [&] { return acted_.load(); })) {
    failures_.push_back("the person at " + quoted(dialog.window) + " is stuck");
    closeAll();
  }
  actor.join();
  if (!failure.empty()) failures_.push_back(failure);

  const auto gone = [&] { return !shown_.isOpen(dialog.number); };
  if (gone()) return;
  PostMessageW(dialog.window, WM_CLOSE, 0, 0);
  if (!shown_.waitUntil(patience_.toClose, gone)) {
    failures_.push_back("the dialog " + quoted(dialog.window) + " does not close");
    closeAll();
  }
}

// First in the ways that the dialog offers, finally as the end of the program does.
void DialogPerson::closeAll() {
  constexpr int kAttempts = 10;
  constexpr int kPolite = 3;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const auto open = shown_.open();
    if (open.empty()) return;
    const HWND top = open.back().window;
    if (attempt < kPolite) {
      PostMessageW(top, WM_CLOSE, 0, 0);
      EnumChildWindows(top, &pressEnding, reinterpret_cast<LPARAM>(top));
    } else {
      quitPosted_ = true;
      PostThreadMessageW(shown_.thread(), WM_QUIT, 0, 0);
    }
    const int number = open.back().number;
    shown_.waitUntil(1s, [&] { return !shown_.isOpen(number); });
  }
}

bool DialogPerson::waitFor(const wchar_t* title) {
  const auto ready = [&] {
    for (const Dialog& dialog : shown_.open()) {
      if (IsWindowEnabled(dialog.window) && hasKeyboard(dialog.window) &&
          titleOf(dialog.window) == title) {
        return true;
      }
    }
    return false;
  };
  if (shown_.waitUntil(patience_.toBeShown, ready)) return true;
  ADD_FAILURE() << "never in front: " << toUtf8(win32::fromWide(title));
  return false;
}

void DialogPerson::type(const wchar_t* text) {
  for (; *text != L'\0'; ++text) type(*text);
}

void DialogPerson::type(wchar_t character) { strikeAndWait(inputsOf(character)); }

void DialogPerson::press(WORD key, bool alt, bool ctrl) {
  strikeAndWait(inputsOf({.key = key, .shift = false, .ctrl = ctrl, .alt = alt}));
}

void DialogPerson::retype(const wchar_t* text) {
  press('A', false, true);
  type(text);
}

}  // namespace tillora::testing
