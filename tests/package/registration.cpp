#include "tests/package/registration.h"

#include <oleauto.h>

#include <algorithm>
#include <sstream>

#include "TilloraHost.h"
#include "TilloraOptions.h"
#include "com/com_ptr.h"
#include "com/wide_text.h"
#include "tests/testing/win32/child_program.h"

namespace tillora::testing {
namespace {

constexpr DWORD kMostMilliseconds = 120'000;

std::wstring upper(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::wstring textOf(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return upper(text.data());
}

/// The ids of a server's type library and of everything in it.
void addIds(const std::filesystem::path& server, std::vector<std::wstring>& ids) {
  win32::ComPtr<ITypeLib> library;
  if (FAILED(LoadTypeLibEx(server.c_str(), REGKIND_NONE, library.out()))) return;
  TLIBATTR* attributes = nullptr;
  if (SUCCEEDED(library->GetLibAttr(&attributes))) {
    ids.push_back(textOf(attributes->guid));
    library->ReleaseTLibAttr(attributes);
  }
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    win32::ComPtr<ITypeInfo> type;
    TYPEATTR* described = nullptr;
    if (FAILED(library->GetTypeInfo(i, type.out())) || FAILED(type->GetTypeAttr(&described))) {
      continue;
    }
    if (described->guid != GUID_NULL) ids.push_back(textOf(described->guid));
    type->ReleaseTypeAttr(described);
  }
}

bool runRegsvr32(const Bitness& bitness, Scope scope, const std::wstring& switches) {
  bool succeeded = true;
  for (const wchar_t* server : kServers) {
    const ChildProgram program(quoted(bitness.system / L"regsvr32.exe") + L" /s " + switches +
                                   (scope == Scope::user ? L"/n /i:user " : L"") +
                                   quoted(bitness.folder / server),
                               std::filesystem::temp_directory_path() / "regsvr32.txt");
    succeeded = program.wait(kMostMilliseconds) == DWORD{0} && succeeded;
  }
  return succeeded;
}

}  // namespace

Registration::Registration(const Bitness& bitness, Scope scope)
    : bitness_(bitness), scope_(scope), succeeded_(runRegsvr32(bitness, scope, L"")) {}

Registration::~Registration() { remove(bitness_, scope_); }

void Registration::remove(const Bitness& bitness, Scope scope) {
  runRegsvr32(bitness, scope, L"/u ");
}

std::wstring registeredLibrary(const Bitness& bitness, Scope scope) {
  for (const GUID& id : {CLSID_Options, CLSID_Shop}) {
    const std::wstring path = L"Software\\Classes\\CLSID\\" + textOf(id) + L"\\InprocServer32";
    HKEY key = nullptr;
    if (RegOpenKeyExW(scope == Scope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, path.c_str(),
                      0, KEY_QUERY_VALUE | bitness.view, &key) != ERROR_SUCCESS) {
      continue;
    }
    std::array<wchar_t, MAX_PATH> library{};
    DWORD size = sizeof library;
    RegGetValueW(key, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, library.data(), &size);
    RegCloseKey(key);
    return library.data();
  }
  return {};
}

std::string RegisteredNow::changesTo(const RegisteredNow& later, const Bitness& bitness) const {
  // Other programs may be installed meanwhile: only what concerns the servers counts.
  std::vector<std::wstring> marks = {L"TILLORA"};
  for (const wchar_t* server : kServers) addIds(bitness.folder / server, marks);
  std::wistringstream changes(machine_.changesTo(later.machine_) + user_.changesTo(later.user_));
  std::wstring found;
  for (std::wstring line; std::getline(changes, line);) {
    const std::wstring capitals = upper(line);
    if (std::ranges::any_of(marks, [&](const std::wstring& mark) {
          return capitals.find(mark) != std::wstring::npos;
        })) {
      found += line + L"\n";
    }
  }
  return toUtf8(win32::fromWide(found.c_str()));
}

}  // namespace tillora::testing
