#include "support/win32/help_viewer.h"

#include <windows.h>

#include <string>

#include "support/win32/wide_text.h"

namespace tillora::win32 {

namespace {

bool isFile(const Text& path) {
  const DWORD attributes = GetFileAttributesW(wide(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

Text helpViewerPath() {
  wchar_t folder[MAX_PATH];
  const UINT length = GetWindowsDirectoryW(folder, MAX_PATH);
  return fromWide(folder, length < MAX_PATH ? length : 0) + u"\\hh.exe";
}

Text helpCommandLine(TextView file, int context) {
  const std::string number = std::to_string(context);
  Text line = u"\"" + helpViewerPath() + u"\" -mapid ";
  line.append(number.begin(), number.end());
  line += u" \"";
  line += file;
  line += u'"';
  return line;
}

void HelpViewer::show(TextView file, int context) {
  const Text path(file);
  if (!isFile(path)) return;
  Text line = helpCommandLine(file, context);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION viewer{};
  if (CreateProcessW(wide(helpViewerPath()), reinterpret_cast<wchar_t*>(line.data()), nullptr,
                     nullptr, FALSE, 0, nullptr, nullptr, &start, &viewer)) {
    CloseHandle(viewer.hThread);
    CloseHandle(viewer.hProcess);
  }
}

}  // namespace tillora::win32
