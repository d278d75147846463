#pragma once

#include <windows.h>

#include <algorithm>
#include <set>
#include <string>

namespace tillora::testing {

/// The registered classes of the machine or of a user: every key and value below Software\Classes,
/// the part for the other bitness included, a line each.
class RegistrySnapshot {
 public:
  explicit RegistrySnapshot(HKEY root) { collect(root, L"Software\\Classes"); }

  bool has(const std::wstring& line) const { return lines_.contains(line); }
  /// Some line contains the part.
  bool mentions(const std::wstring& part) const {
    return std::ranges::any_of(
        lines_, [&](const std::wstring& line) { return line.find(part) != std::wstring::npos; });
  }
  /// What was added and removed since; empty if nothing was.
  std::wstring changesTo(const RegistrySnapshot& later) const {
    std::wstring text;
    for (const std::wstring& line : lines_) {
      if (!later.has(line)) text += L"- " + line + L"\n";
    }
    for (const std::wstring& line : later.lines_) {
      if (!has(line)) text += L"+ " + line + L"\n";
    }
    return text;
  }

 private:
  void collect(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[256];
    wchar_t data[1024];
    for (DWORD index = 0;; ++index) {
      DWORD length = 256;
      DWORD size = sizeof data - sizeof(wchar_t);
      DWORD type = 0;
      std::fill(std::begin(data), std::end(data), L'\0');
      const LSTATUS found = RegEnumValueW(key, index, name, &length, nullptr, &type,
                                          reinterpret_cast<BYTE*>(data), &size);
      if (found != ERROR_SUCCESS && found != ERROR_MORE_DATA) break;
      lines_.insert(path + L" [" + name + L"] " + data);
    }
    for (DWORD index = 0;; ++index) {
      DWORD length = 256;
      if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
          ERROR_SUCCESS) {
        break;
      }
      lines_.insert(path + L"\\" + name);
      collect(root, path + L"\\" + name);
    }
    RegCloseKey(key);
  }

  std::set<std::wstring> lines_;
};

}  // namespace tillora::testing
