// The Tillora Terminal: shows that a program of the system is notified of saved options.
#include <windows.h>

#include <shellapi.h>

#include <optional>

#include "com/wide_text.h"
#include "host/terminal/terminal_window.h"

namespace {

using namespace tillora;  // NOLINT(google-build-using-namespace)

host::terminal::Settings readCommandLine() {
  host::terminal::Settings settings;
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) {
    const Text word = win32::fromWide(words[i]);
    if (word == u"--once") settings.once = true;
    if (word == u"--log" && i + 1 < count) settings.log = win32::fromWide(words[++i]);
  }
  LocalFree(static_cast<void*>(words));
  return settings;
}

}  // namespace

/// TilloraTerminal [--log FILE] [--once]: --once ends it after the first message.
int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR, int nShowCmd) {
  try {
    host::terminal::TerminalWindow window(hInstance, readCommandLine());
    return window.run(nShowCmd);
  } catch (...) {
    return 3;
  }
}
