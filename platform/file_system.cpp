#include "platform/file_system.h"

#include <windows.h>

#include <shlwapi.h>

#include <string>

#include "com/wide_text.h"
#include "platform/code_page.h"

namespace tillora::win32 {
namespace {

struct CloseFind {
  using pointer = HANDLE;
  void operator()(HANDLE find) const { FindClose(find); }
};
using FindHandle = std::unique_ptr<HANDLE, CloseFind>;

class FoundFiles final : public FileListing {
 public:
  FoundFiles(FindHandle find, const WIN32_FIND_DATAW& first, Text namePattern)
      : find_(std::move(find)), found_(first), namePattern_(std::move(namePattern)) {}

  bool next() override {
    while (more_) {
      const bool counts = isNormalFile() && matches();
      more_ = FindNextFileW(find_.get(), &found_) != FALSE;
      if (counts) return true;
    }
    return false;
  }

 private:
  // A normal file is neither a folder nor hidden nor part of the system.
  bool isNormalFile() const {
    constexpr DWORD kOthers =
        FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    return (found_.dwFileAttributes & kOthers) == 0;
  }
  // The system also matches short file names.
  bool matches() const { return PathMatchSpecW(found_.cFileName, wide(namePattern_)) != FALSE; }

  FindHandle find_;
  WIN32_FIND_DATAW found_;
  Text namePattern_;
  bool more_ = true;
};

std::string ansi(const Text& text, bool& lossless) { return toCodePage(GetACP(), text, lossless); }

std::string ansi(const Text& text) {
  bool lossless = true;
  return ansi(text, lossless);
}

/// A path that the ANSI functions can open: the path itself, or else its short form.
std::string ansiPath(const Text& path) {
  bool lossless = true;
  std::string converted = ansi(path, lossless);
  if (lossless) return converted;
  Text shortPath(GetShortPathNameW(wide(path), nullptr, 0), u'\0');
  if (shortPath.empty()) return converted;
  const DWORD length = GetShortPathNameW(wide(path), reinterpret_cast<wchar_t*>(shortPath.data()),
                                         static_cast<DWORD>(shortPath.size()));
  shortPath.resize(length);
  return ansi(shortPath);
}

}  // namespace

std::unique_ptr<FileListing> FileSystem::list(TextView pattern) {
  const Text path(pattern);
  WIN32_FIND_DATAW first{};
  const HANDLE find = FindFirstFileW(wide(path), &first);
  if (find == INVALID_HANDLE_VALUE) return nullptr;
  return std::make_unique<FoundFiles>(FindHandle(find), first,
                                      path.substr(path.find_last_of(u"\\/:") + 1));
}

Text FileSystem::profileValue(TextView file, TextView section, TextView key) {
  const std::string path = ansiPath(Text(file));
  const std::string sectionName = ansi(Text(section));
  const std::string keyName = ansi(Text(key));
  // The function reports a value that did not fit by filling the buffer but for one character.
  std::string value(2048, '\0');
  for (;;) {
    const DWORD length =
        GetPrivateProfileStringA(sectionName.c_str(), keyName.c_str(), "", value.data(),
                                 static_cast<DWORD>(value.size()), path.c_str());
    if (length + 1 < value.size()) {
      value.resize(length);
      return fromCodePage(GetACP(), value);
    }
    value.resize(value.size() * 2);
  }
}

}  // namespace tillora::win32
