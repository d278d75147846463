#include "tests/testing/win32/thread_of_window.h"

namespace tillora::testing {
namespace {

UINT runMessage() {
  static const UINT message = RegisterWindowMessageW(L"TilloraOptionsTests.Run");
  return message;
}

LRESULT CALLBACK run(int code, WPARAM sender, LPARAM parameter) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(parameter);
  if (code == HC_ACTION && sent.message == runMessage()) {
    (*reinterpret_cast<const std::function<void()>*>(sent.lParam))();
  }
  return CallNextHookEx(nullptr, code, sender, parameter);
}

}  // namespace

bool runOnThreadOf(HWND window, const std::function<void()>& act, UINT milliseconds) {
  const ThreadHook runs(WH_CALLWNDPROC, &run, GetWindowThreadProcessId(window, nullptr));
  return SendMessageTimeoutW(window, runMessage(), 0, reinterpret_cast<LPARAM>(&act), SMTO_NORMAL,
                             milliseconds, nullptr) != 0;
}

}  // namespace tillora::testing
