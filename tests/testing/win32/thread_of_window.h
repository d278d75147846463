#pragma once

#include <windows.h>

#include <functional>

namespace tillora::testing {

/// A window hook of another thread of this program; has no effect if it cannot be set.
class ThreadHook {
 public:
  ThreadHook(int kind, HOOKPROC procedure, DWORD thread)
      : hook_(SetWindowsHookExW(kind, procedure, nullptr, thread)) {}
  ThreadHook(const ThreadHook&) = delete;
  ThreadHook& operator=(const ThreadHook&) = delete;
  ~ThreadHook() { UnhookWindowsHookEx(hook_); }

 private:
  HHOOK hook_;
};

/// Runs something on the thread of a window of this program, in between its messages; it must not
/// throw. False if the thread does not get to it within `milliseconds`, or the window is gone.
bool runOnThreadOf(HWND window, const std::function<void()>& act, UINT milliseconds);

}  // namespace tillora::testing
