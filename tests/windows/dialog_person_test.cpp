#include "tests/testing/win32/dialog_person.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "com/module.h"
#include "tests/testing/win32/thread_of_window.h"

namespace tillora::testing {
namespace {

using namespace std::chrono_literals;

constexpr DialogPatience kShort = {.toBeShown = 500ms, .toAct = 500ms, .toClose = 500ms};

/// A modal dialog of the tests; ends when its window is destroyed or the program is to quit.
class TestDialog {
 public:
  /// The message that makes it show a message box named "Inner".
  static constexpr UINT kShowInner = WM_APP;

  explicit TestDialog(const wchar_t* title) {
    WNDCLASSW description{};
    description.lpfnWndProc = &TestDialog::procedure;
    description.hInstance = win32::thisModule();
    description.lpszClassName = L"TilloraTestDialog";
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, description.lpszClassName, title, WS_POPUP | WS_CAPTION, 50, 50,
                              200, 100, nullptr, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  TestDialog(const TestDialog&) = delete;
  TestDialog& operator=(const TestDialog&) = delete;
  ~TestDialog() { DestroyWindow(window_); }

  /// What the close box does: nothing, or destroys the window at once or after a while.
  enum class Closing { never, atOnce, slowly };

  void run(Closing closing) {
    closing_ = closing;
    ShowWindow(window_, SW_SHOW);
    MSG message;
    while (IsWindow(window_) != FALSE) {
      if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
        PostQuitMessage(0);
        return;
      }
      DispatchMessageW(&message);
    }
  }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM other) {
    const auto* self =
        reinterpret_cast<const TestDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
      case WM_CLOSE:
        if (self->closing_ == Closing::atOnce) DestroyWindow(window);
        if (self->closing_ == Closing::slowly) SetTimer(window, 1, 300, nullptr);
        return 0;
      case WM_TIMER:
        DestroyWindow(window);
        return 0;
      case kShowInner:
        MessageBoxW(window, L"Text", L"Inner", MB_OK);
        return 0;
      default:
        return DefWindowProcW(window, message, wide, other);
    }
  }

  HWND window_;
  Closing closing_ = Closing::atOnce;
};

using Closing = TestDialog::Closing;

void show(Closing closing = Closing::atOnce) { TestDialog(L"A dialog").run(closing); }

TEST(DialogPersonTest, UsesEachDialogOnceHoweverSlowlyItCloses) {
  int acts = 0;
  DialogPerson person([&](HWND) { ++acts; }, 3);
  for (int round = 0; round < 3; ++round) show(Closing::slowly);
  EXPECT_EQ(person.finish(), 3);
  EXPECT_EQ(acts, 3);
}

TEST(DialogPersonTest, ADialogHasTheKeyboardWhenItIsUsed) {
  bool visible = false;
  bool inFront = false;
  DialogPerson person([&](HWND dialog) {
    visible = IsWindowVisible(dialog) != FALSE;
    inFront = GetForegroundWindow() == dialog;
  });
  show();
  EXPECT_EQ(person.finish(), 1);
  EXPECT_TRUE(visible);
  EXPECT_TRUE(inFront);
}

TEST(DialogPersonTest, ADialogWithinAnotherIsLeftToWhatIsDoneInIt) {
  int acts = 0;
  bool found = false;
  DialogPerson person([&](HWND dialog) {
    ++acts;
    PostMessageW(dialog, TestDialog::kShowInner, 0, 0);
    found = person.waitFor(L"Inner");
    DialogPerson::press(VK_RETURN);
    EXPECT_TRUE(person.waitFor(L"A dialog"));
  });
  show();
  EXPECT_EQ(person.finish(), 1);
  EXPECT_EQ(acts, 1);
  EXPECT_TRUE(found);
}

TEST(DialogPersonTest, AnUnexpectedDialogIsClosedAndAFailure) {
  for (const UINT buttons : {UINT{MB_OK}, UINT{MB_YESNO}, UINT{MB_YESNOCANCEL}}) {
    DialogPerson person([](HWND) {});
    show();
    MessageBoxW(nullptr, L"Text", L"Unexpected", buttons);
    EXPECT_NONFATAL_FAILURE(person.finish(), "nobody expects the dialog \"Unexpected\"");
  }
}

TEST(DialogPersonTest, ADialogThatDoesNotCloseIsClosedAndAFailure) {
  DialogPerson person([](HWND) {}, 1, GetCurrentThreadId(), kShort);
  show(Closing::never);
  EXPECT_NONFATAL_FAILURE(person.finish(), "the dialog \"A dialog\" does not close");
  // Nothing of it is left for the next test.
  DialogPerson next([](HWND) {});
  show();
  EXPECT_EQ(next.finish(), 1);
}

TEST(DialogPersonTest, ADialogWithAStuckPersonIsClosedAndAFailure) {
  const HANDLE closed = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  DialogPerson person([&](HWND) { WaitForSingleObject(closed, INFINITE); }, 1, GetCurrentThreadId(),
                      kShort);
  show();
  SetEvent(closed);
  EXPECT_NONFATAL_FAILURE(person.finish(), "the person at \"A dialog\" is stuck");
  CloseHandle(closed);
}

TEST(DialogPersonTest, ADialogWhosePersonFailsIsClosedAndAFailure) {
  DialogPerson person([](HWND) { throw std::runtime_error("no such button"); });
  show();
  EXPECT_NONFATAL_FAILURE(person.finish(), "the person failed: no such button");
}

TEST(DialogPersonTest, ADialogThatNeverAppearsIsAFailureAtOnceIfNoneIsComing) {
  const auto start = std::chrono::steady_clock::now();
  DialogPerson person([](HWND) {}, 2);
  show();
  EXPECT_NONFATAL_FAILURE(person.finish(), "1 of 2 dialogs were not used");
  EXPECT_LT(std::chrono::steady_clock::now() - start, DialogPatience().toBeShown);
}

/// Refuses the activation of every window after others have been notified of it.
LRESULT CALLBACK refuseActivation(int code, WPARAM window, LPARAM other) {
  const LRESULT result = CallNextHookEx(nullptr, code, window, other);
  return code == HCBT_ACTIVATE ? 1 : result;
}

TEST(DialogPersonTest, ADialogThatNeverHasTheKeyboardIsClosedAndAFailure) {
  int acts = 0;
  DialogPerson person([&](HWND) { ++acts; }, 1, GetCurrentThreadId(), kShort);
  {
    const ThreadHook hook(WH_CBT, &refuseActivation, GetCurrentThreadId());
    show();
  }
  EXPECT_NONFATAL_FAILURE(person.finish(), "the dialog \"A dialog\" never had the keyboard");
  EXPECT_EQ(acts, 0);
}

}  // namespace
}  // namespace tillora::testing
