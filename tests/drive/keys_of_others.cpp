#include "tests/drive/keys_of_others.h"

#include <stdexcept>

#include "tests/testing/win32/key_strokes.h"

namespace tillora::testing {
namespace {

constexpr WORD kMark = VK_F24;
constexpr ULONGLONG kPatience = 20000;  // milliseconds

/// Shares the input state of another thread while it lives.
class SharedInput {
 public:
  explicit SharedInput(DWORD thread) : thread_(thread) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the queue
    if (!AttachThreadInput(GetCurrentThreadId(), thread_, TRUE)) {
      throw std::runtime_error("the input of the program in front cannot be shared");
    }
  }
  SharedInput(const SharedInput&) = delete;
  SharedInput& operator=(const SharedInput&) = delete;
  ~SharedInput() { AttachThreadInput(GetCurrentThreadId(), thread_, FALSE); }

 private:
  DWORD thread_;
};

}  // namespace

// Threads that share their input share the state of the keys, and that changes when a key is taken
// from the queue, not when it is struck: once a last key that means nothing has been pressed and
// let go, the ones before it have been processed.
void strikeForOthers(std::vector<INPUT> inputs) {
  const HWND front = GetForegroundWindow();
  if (!front) throw std::runtime_error("no window is in front");
  const SharedInput shared(GetWindowThreadProcessId(front, nullptr));
  const SHORT before = GetKeyState(kMark);
  inputs.push_back(keyInput(kMark, false));
  inputs.push_back(keyInput(kMark, true));
  sendInputs(inputs);
  const ULONGLONG end = GetTickCount64() + kPatience;
  while (IsWindowVisible(front)) {
    // Bit 0 changes with each press, the sign is set while the key is down.
    const SHORT now = GetKeyState(kMark);
    if (((now ^ before) & 1) != 0 && now >= 0) return;
    if (GetTickCount64() >= end) throw std::runtime_error("the keys are not processed");
    Sleep(1);
  }
}

}  // namespace tillora::testing
