#include "ui/win32/dpi_context.h"

#include <atomic>

namespace tillora::ui::win32 {
namespace {

// The platform's own names come with Windows 10, but the library must load on older versions.
const HANDLE kSystemAware = reinterpret_cast<HANDLE>(INT_PTR{-2});
constexpr int kPerMonitorAware = 2;

/// The platform's functions; all null if it lacks one.
struct Functions {
  HANDLE(WINAPI* setThreadContext)(HANDLE) = nullptr;
  HANDLE(WINAPI* threadContext)() = nullptr;
  int(WINAPI* awarenessOf)(HANDLE) = nullptr;
};

template <class Function>
bool find(Function& function, const char* name) {
  function = reinterpret_cast<Function>(
      reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
  return function != nullptr;
}

Functions findFunctions() {
  Functions found;
  const bool all = find(found.setThreadContext, "SetThreadDpiAwarenessContext") &&
                   find(found.threadContext, "GetThreadDpiAwarenessContext") &&
                   find(found.awarenessOf, "GetAwarenessFromDpiAwarenessContext");
  return all ? found : Functions{};
}

const Functions& functions() {
  static const Functions found = findFunctions();
  return found;
}

HANDLE setThreadContext(HANDLE context) {
  const auto set = functions().setThreadContext;
  return set ? set(context) : nullptr;
}

// The program's context while SystemScaling has changed it; else null.
thread_local HANDLE programsContext = nullptr;
// Threads with such a context. While there are none, no call of the program has to ask its own.
std::atomic<int> changedThreads = 0;

}  // namespace

SystemScaling::SystemScaling() {
  const Functions& call = functions();
  if (!call.setThreadContext || call.awarenessOf(call.threadContext()) != kPerMonitorAware) return;
  former_ = setThreadContext(kSystemAware);
  programsContext = former_;
  ++changedThreads;
}

SystemScaling::~SystemScaling() {
  if (!former_) return;
  --changedThreads;
  programsContext = nullptr;
  setThreadContext(former_);
}

ProgramsScaling::ProgramsScaling()
    : ours_(changedThreads != 0 && programsContext ? setThreadContext(programsContext) : nullptr) {}

ProgramsScaling::~ProgramsScaling() {
  if (ours_) setThreadContext(ours_);
}

}  // namespace tillora::ui::win32
