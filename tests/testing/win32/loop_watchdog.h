#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace tillora::testing {

/// Fails a test that waits in a message loop for ever: ends the loops of its thread, as the
/// program's end does.
class LoopWatchdog {
 public:
  explicit LoopWatchdog(std::chrono::seconds patience = std::chrono::seconds(30))
      : thread_([this, patience, watched = GetCurrentThreadId()] { watch(patience, watched); }) {}
  LoopWatchdog(const LoopWatchdog&) = delete;
  LoopWatchdog& operator=(const LoopWatchdog&) = delete;
  ~LoopWatchdog() {
    {
      const std::lock_guard lock(mutex_);
      over_ = true;
    }
    changed_.notify_one();
    thread_.join();
    EXPECT_FALSE(barked_) << "a message loop did not end";
    MSG message{};
    if (barked_) PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  }

 private:
  void watch(std::chrono::seconds patience, DWORD watched) {
    std::unique_lock lock(mutex_);
    if (changed_.wait_for(lock, patience, [this] { return over_; })) return;
    barked_ = true;
    PostThreadMessageW(watched, WM_QUIT, 0, 0);
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool over_ = false;
  bool barked_ = false;
  std::thread thread_;
};

}  // namespace tillora::testing
