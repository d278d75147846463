// The Tillora Administrator: a small back-office program over one shop database. What a host
// program does with the options component is in options_session.cpp.
#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <exception>
#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "com/wide_text.h"
#include "host/app/automation.h"
#include "host/app/event_log.h"
#include "host/app/main_window.h"
#include "host/app/options_session.h"
#include "host/command_line.h"
#include "host/text_encoding.h"

namespace {

using namespace tillora;             // NOLINT(google-build-using-namespace)
using namespace tillora::host;       // NOLINT(google-build-using-namespace)
using namespace tillora::host::app;  // NOLINT(google-build-using-namespace)

constexpr const char16_t* kProgram = u"TilloraAdministrator";

std::vector<Text> programArguments() {
  std::vector<Text> arguments;
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(win32::fromWide(words[i]));
  LocalFree(static_cast<void*>(words));
  return arguments;
}

/// shop.db in the user's local application data; the folder is made if it is missing.
Text defaultDatabase() {
  wchar_t folder[MAX_PATH];
  check(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder),
        u"There is no folder for the shop database.");
  const std::filesystem::path tillora = std::filesystem::path(folder) / L"Tillora";
  std::error_code failed;
  std::filesystem::create_directories(tillora, failed);
  return (tillora / L"shop.db").u16string();
}

/// Prints to the file, or to the program's standard output.
void print(const Text& text, const std::optional<Text>& path) {
  const std::string bytes = toUtf8(text);
  HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
  if (path) {
    out = CreateFileW(win32::wide(*path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                      FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  DWORD written = 0;
  const bool done =
      out != INVALID_HANDLE_VALUE && out != nullptr &&
      WriteFile(out, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE;
  const DWORD failure = GetLastError();
  if (path && out != INVALID_HANDLE_VALUE) CloseHandle(out);
  if (!done) {
    throw Error(HRESULT_FROM_WIN32(failure), kProgram,
                u"The shop's contents could not be written. Give a file: --dump FILE.");
  }
}

/// Runs an action. Whatever it raises is logged and, with a window, shown. True if nothing was
/// raised.
template <class Action>
bool attempt(EventLog& log, MainWindow* window, Action&& action) {
  try {
    action();
    return true;
  } catch (const Error& error) {
    log.write(error);
    if (window != nullptr) window->showError(error.description());
  } catch (const std::bad_alloc&) {
    log.write(u"Out of memory");
  } catch (const std::exception& error) {
    log.write(u"Error: " + fromUtf8(error.what()));
  }
  return false;
}

/// Runs the commands that show no window.
int runCommands(const CommandLine& line, const Text& database, EventLog& log) {
  const bool done = attempt(log, nullptr, [&] {
    OptionsSession session(log);
    session.openShop(database, line.items.value_or(0), line.firstUse);
    for (const auto& [name, value] : line.optionsToSet) session.setOption(name, value);
    if (line.dump) print(session.dump(), line.dumpFile);
  });
  return done ? 0 : 1;
}

int runWindow(const CommandLine& line, const Text& database, EventLog& log, HINSTANCE program,
              int show) {
  std::optional<OptionsSession> session;
  MainWindow* shown = nullptr;
  std::function<void(bool)> refresh;
  const auto showOptions = [&](std::int16_t tab, bool firstUse) {
    const bool done = attempt(log, shown, [&] {
      if (session) session->showOptions(tab, firstUse);
    });
    // A failure after the commit ends the dialog without the event.
    if (!done) refresh(false);
    return done;
  };
  MainWindow window(program, {.options = [&](std::int16_t tab) { showOptions(tab, false); },
                              .firstUse = [&] { showOptions(0, true); },
                              .optionsSaved = [&] { refresh(false); }});
  refresh = [&](bool afterSave) {
    attempt(log, nullptr, [&] {
      if (session) window.showOptions(session->storedOptions(), afterSave);
    });
  };
  log.onLine([&window](const Text& time, const Text& text) { window.addLine(time, text); });
  window.setDatabase(database);
  window.show(show);

  // A program that ends by itself must not wait for someone to close a message.
  shown = line.opensDialog() ? nullptr : &window;
  const bool opened = attempt(log, shown, [&] {
    session.emplace(log, [&refresh] { refresh(true); });
    session->openShop(database, line.items.value_or(0), line.firstUse);
    window.showOptions(session->storedOptions(), false);
  });
  int code = 0;
  if (!line.opensDialog()) {
    code = window.run();
  } else if (!opened || !showOptions(line.optionsTab.value_or(0), line.firstUse)) {
    code = 1;
  }
  log.onLine(nullptr);
  return code;
}

int run(HINSTANCE program, int show) {
  EventLog log;
  CommandLine line;
  try {
    line = parseCommandLine(programArguments());
    if (line.log) log.appendTo(*line.log);
  } catch (const Error& error) {
    MessageBoxW(nullptr, win32::wide(error.description()), L"Tillora Administrator",
                MB_ICONEXCLAMATION | MB_OK);
    return 2;
  }
  const ComApartment apartment;
  const Text database = line.database ? *line.database : defaultDatabase();
  const bool endsByItself = line.dump || !line.optionsToSet.empty();
  return endsByItself ? runCommands(line, database, log)
                      : runWindow(line, database, log, program, show);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR, int nShowCmd) {
  try {
    return run(hInstance, nShowCmd);
  } catch (...) {
    return 3;
  }
}
