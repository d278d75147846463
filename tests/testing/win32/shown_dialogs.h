#pragma once

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <concepts>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace tillora::testing {

/// The dialogs of one thread of this program, as window hooks report them: windows with a caption
/// that were created and activated while this object lives. Usable from any thread.
class ShownDialogs {
 public:
  struct Dialog {
    int number;  ///< counts from 1; never used twice, as a handle may be
    HWND window;
  };

  explicit ShownDialogs(DWORD thread)
      : thread_(thread),
        lifeHook_(SetWindowsHookExW(WH_CBT, &ShownDialogs::lifeOf, nullptr, thread)),
        loopHook_(SetWindowsHookExW(WH_GETMESSAGE, &ShownDialogs::taken, nullptr, thread)) {
    const std::scoped_lock lock(mutex_);
    all_.push_back(this);
  }
  ~ShownDialogs() {
    UnhookWindowsHookEx(loopHook_);
    UnhookWindowsHookEx(lifeHook_);
    const std::scoped_lock lock(mutex_);
    std::erase(all_, this);
  }
  ShownDialogs(const ShownDialogs&) = delete;
  ShownDialogs& operator=(const ShownDialogs&) = delete;

  DWORD thread() const { return thread_; }
  /// Those that have not been destroyed, oldest first.
  std::vector<Dialog> open() const {
    const std::scoped_lock lock(mutex_);
    return open_;
  }
  bool isOpen(int number) const {
    return std::ranges::any_of(open(), [&](const Dialog& shown) { return shown.number == number; });
  }

  /// Returns true once the condition holds, false after `patience`. The condition is evaluated
  /// after every change of the thread's dialogs and of its focus, once the thread is back in its
  /// message loop.
  template <std::predicate Condition>
  bool waitUntil(std::chrono::milliseconds patience, Condition condition) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
      std::unique_lock lock(mutex_);
      const unsigned known = changes_;
      lock.unlock();
      // Unlocked: it may send messages to a thread that waits in a hook.
      if (condition()) return true;
      lock.lock();
      if (!changed_.wait_until(lock, end, [&] { return changes_ != known; })) return false;
    }
  }
  /// Makes waitUntil() evaluate its condition again.
  void stir() {
    const std::scoped_lock lock(mutex_);
    change();
  }

 private:
  static UINT settledMessage() {
    static const UINT message = RegisterWindowMessageW(L"TilloraOptionsTests.Settled");
    return message;
  }

  // Hooks run on the dialogs' thread.

  static LRESULT CALLBACK lifeOf(int code, WPARAM parameter, LPARAM other) noexcept {
    // The handle of the window is what all of these codes have in common.
    const auto window = reinterpret_cast<HWND>(parameter);
    switch (code) {
      case HCBT_CREATEWND: {
        const LONG style = reinterpret_cast<const CBT_CREATEWNDW*>(other)->lpcs->style;
        if ((style & WS_CAPTION) == WS_CAPTION && (style & WS_CHILD) == 0) {
          forEachOfThread([&](ShownDialogs& dialogs) { dialogs.created_.push_back(window); });
        }
        break;
      }
      case HCBT_ACTIVATE:
        forEachOfThread([&](ShownDialogs& dialogs) { dialogs.activated(window); });
        PostMessageW(window, settledMessage(), 0, 0);
        break;
      case HCBT_SETFOCUS:
        if (window != nullptr) PostMessageW(window, settledMessage(), 0, 0);
        break;
      case HCBT_DESTROYWND:
        forEachOfThread([&](ShownDialogs& dialogs) { dialogs.destroyed(window); });
        break;
      default:
        break;
    }
    return CallNextHookEx(nullptr, code, parameter, other);
  }

  static LRESULT CALLBACK taken(int code, WPARAM remove, LPARAM parameter) noexcept {
    auto& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && remove == PM_REMOVE && message.message == settledMessage()) {
      message.message = WM_NULL;
      forEachOfThread([](ShownDialogs& dialogs) { dialogs.change(); });
    }
    return CallNextHookEx(nullptr, code, remove, parameter);
  }

  template <std::invocable<ShownDialogs&> F>
  static void forEachOfThread(F&& act) {
    const std::scoped_lock lock(mutex_);
    for (ShownDialogs* dialogs : all_) {
      if (dialogs->thread_ == GetCurrentThreadId()) act(*dialogs);
    }
  }

  void activated(HWND window) {
    if (std::erase(created_, window) > 0) open_.push_back({++shown_, window});
    change();
  }
  void destroyed(HWND window) {
    std::erase(created_, window);
    // The windows that it owns go with it.
    if (std::erase_if(open_, [&](const Dialog& shown) {
          return shown.window == window || GetWindow(shown.window, GW_OWNER) == window;
        }) > 0) {
      change();
    }
  }
  void change() {
    ++changes_;
    changed_.notify_all();
  }

  static inline std::mutex mutex_;
  static inline std::vector<ShownDialogs*> all_;
  mutable std::condition_variable changed_;
  std::vector<HWND> created_;  // not shown yet
  std::vector<Dialog> open_;
  int shown_ = 0;
  unsigned changes_ = 0;
  DWORD thread_;
  HHOOK lifeHook_;
  HHOOK loopHook_;
};

}  // namespace tillora::testing
