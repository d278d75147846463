#include "tests/testing/win32/waiting_keys.h"

#include <gtest/gtest.h>

#include "tests/testing/win32/key_strokes.h"
#include "tests/testing/win32/thread_of_window.h"

namespace tillora::testing {
namespace {

constexpr WORD kMark = VK_F24;
constexpr DWORD kPatience = 10000;  // milliseconds

/// What the hooks look for and report. They run on the thread of the window.
struct Strike {
  HWND front = nullptr;
  WORD mark = 0;
  HANDLE over = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};
Strike& current() {
  static Strike strike;
  return strike;
}

LRESULT CALLBACK noticeEnd(int code, WPARAM sender, LPARAM parameter) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(parameter);
  if (code == HC_ACTION && sent.hwnd == current().front) {
    const bool hidden =
        sent.message == WM_WINDOWPOSCHANGED &&
        (reinterpret_cast<const WINDOWPOS*>(sent.lParam)->flags & SWP_HIDEWINDOW) != 0;
    if (hidden || sent.message == WM_DESTROY) SetEvent(current().over);
  }
  return CallNextHookEx(nullptr, code, sender, parameter);
}

LRESULT CALLBACK takeMark(int code, WPARAM remove, LPARAM parameter) {
  auto& message = *reinterpret_cast<MSG*>(parameter);
  if (code == HC_ACTION && remove == PM_REMOVE && message.wParam == kMark &&
      (message.message == WM_KEYDOWN || message.message == WM_KEYUP)) {
    const WORD mark = LOBYTE(HIWORD(message.lParam));
    if (message.message == WM_KEYUP && mark == current().mark) SetEvent(current().over);
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, remove, parameter);
}

}  // namespace

// A last key, which no window gets to see, is taken when the others have been processed.
void strikeAndWait(std::vector<INPUT> inputs) {
  Strike& strike = current();
  strike.mark = strike.mark % 100 + 1;  // a mark left behind by a window that closed is different
  for (const bool up : {false, true}) {
    inputs.push_back(keyInput(kMark, up));
    inputs.back().ki.wScan = strike.mark;
  }
  strike.front = GetForegroundWindow();
  ResetEvent(strike.over);
  const DWORD thread = GetWindowThreadProcessId(strike.front, nullptr);
  const ThreadHook marks(WH_GETMESSAGE, &takeMark, thread);
  const ThreadHook ends(WH_CALLWNDPROC, &noticeEnd, thread);
  // Struck on the window's own thread, so that a key and its modifiers stay together. Between them
  // Wine might find the modifiers up on the display's keyboard, and release them.
  const bool struck = runOnThreadOf(strike.front, [&] { sendInputs(inputs); }, kPatience);
  if (IsWindowVisible(strike.front) == FALSE) return;  // gone before it could take them
  if (struck && WaitForSingleObject(strike.over, kPatience) == WAIT_OBJECT_0) return;
  ADD_FAILURE() << "the window in front does not process its keys";
}

}  // namespace tillora::testing
