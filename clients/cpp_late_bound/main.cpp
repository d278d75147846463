// Opens the options dialog from C++ with names alone: late bound, as scripts do.
//
//   cpp_late_client DATABASE [TAB]
#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <cstdlib>

#include "clients/cpp_late_bound/late.h"

namespace {

void showOptions(const wchar_t* database, short tab) {
  Late shop = Late::create(L"TilloraHost.Shop");
  shop.call(L"Open", Value(database));

  Late options = Late::create(L"TilloraOptions.Options");
  options.putObject(L"DBJetObject", shop.get(L"Database"));
  options.putObject(L"AppObject", shop.get(L"App"));
  options.putObject(L"MsgSndObject", shop.get(L"Messages"));
  options.putObject(L"ResourceObject", shop.get(L"Strings"));
  options.putObject(L"SettingsObject", shop.get(L"Settings"));
  options.put(L"LVFileExtension", Value(L"ldv"));
  options.put(L"SelectedTab", Value(tab));

  const bool shown = options.call(L"ShowOptions").isTrue();
  std::printf("returned: %s\n", shown ? "True" : "False");
  std::printf("data file changed: %s\n", options.get(L"ChangedDataFile").isTrue() ? "yes" : "no");
}

/// Returns the program's exit status.
int run(const wchar_t* database, short tab) {
  try {
    showOptions(database, tab);
    return 0;
  } catch (const CallFailed& failure) {
    std::printf("failed: 0x%08lX %ls: %ls\n", static_cast<unsigned long>(failure.number),
                failure.source.c_str(), failure.description.c_str());
    return 2;
  }
}

}  // namespace

// NOLINTNEXTLINE(misc-use-internal-linkage): the system calls it.
int wmain(int count, wchar_t** arguments) {
  if (count < 2) {
    std::printf("usage: cpp_late_client DATABASE [TAB]\n");
    return 1;
  }
  // A single-threaded apartment, because the component shows windows.
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const long tab = count > 2 ? std::wcstol(arguments[2], nullptr, 10) : 0;
  const int status = run(arguments[1], static_cast<short>(tab));
  CoUninitialize();
  return status;
}
