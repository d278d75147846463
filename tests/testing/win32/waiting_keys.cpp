#include "tests/testing/win32/waiting_keys.h"

#include <gtest/gtest.h>

#include <atomic>

#include "tests/testing/win32/key_strokes.h"

namespace tillora::testing {
namespace {

constexpr WORD kMark = VK_F24;
constexpr UINT kPatience = 10000;
constexpr UINT kPoll = 5;

std::atomic<WORD> taken = 0;

class Hook {
 public:
  Hook(int kind, HOOKPROC procedure, DWORD thread)
      : hook_(SetWindowsHookExW(kind, procedure, nullptr, thread)) {}
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;
  ~Hook() { UnhookWindowsHookEx(hook_); }

 private:
  HHOOK hook_;
};

UINT strikeMessage() {
  static const UINT message = RegisterWindowMessageW(L"TilloraOptionsTests.Strike");
  return message;
}

// Struck on the window's own thread no key is apart from its modifiers: between them Wine may find
// that they are up on the display's keyboard, and lets them go.
LRESULT CALLBACK strikeOnItsThread(int code, WPARAM sender, LPARAM parameter) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(parameter);
  if (code == HC_ACTION && sent.message == strikeMessage()) {
    sendInputs(*reinterpret_cast<const std::vector<INPUT>*>(sent.lParam));
  }
  return CallNextHookEx(nullptr, code, sender, parameter);
}

LRESULT CALLBACK takeMark(int code, WPARAM remove, LPARAM parameter) {
  auto& message = *reinterpret_cast<MSG*>(parameter);
  if (code == HC_ACTION && remove == PM_REMOVE && message.wParam == kMark &&
      (message.message == WM_KEYDOWN || message.message == WM_KEYUP)) {
    if (message.message == WM_KEYUP) taken = LOBYTE(HIWORD(message.lParam));
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, remove, parameter);
}

}  // namespace

// A last key, which nobody gets to see, is taken when the others have been dealt with.
void strikeAndWait(std::vector<INPUT> inputs) {
  static WORD mark = 0;
  mark = mark % 100 + 1;  // one that was left behind when its window closed is not taken for this
  for (const bool up : {false, true}) {
    inputs.push_back(keyInput(kMark, up));
    inputs.back().ki.wScan = mark;
  }
  const HWND front = GetForegroundWindow();
  const DWORD thread = GetWindowThreadProcessId(front, nullptr);
  const Hook marks(WH_GETMESSAGE, &takeMark, thread);
  {
    const Hook strikes(WH_CALLWNDPROC, &strikeOnItsThread, thread);
    SendMessageTimeoutW(front, strikeMessage(), 0, reinterpret_cast<LPARAM>(&inputs), SMTO_NORMAL,
                        kPatience, nullptr);
  }
  for (UINT waited = 0; taken != mark && IsWindowVisible(front) != FALSE; waited += kPoll) {
    if (waited >= kPatience) {
      ADD_FAILURE() << "the window in front deals with no keys";
      return;
    }
    Sleep(kPoll);
  }
}

}  // namespace tillora::testing
