#include "platform/help_viewer.h"

#include <windows.h>

#include <string>

#include "com/wide_text.h"

namespace tillora::win32 {

namespace {

bool isFile(const Text& path) {
  const DWORD attributes = GetFileAttributesW(wide(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void startProgram(const Text& program, const Text& commandLine) {
  Text line = commandLine;  // the platform may write into it
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (CreateProcessW(wide(program), reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr,
                     FALSE, 0, nullptr, nullptr, &start, &started)) {
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
  }
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

HelpViewer::HelpViewer() : HelpViewer(&startProgram) {}

void HelpViewer::show(TextView file, int context) {
  if (isFile(Text(file))) start_(helpViewerPath(), helpCommandLine(file, context));
}

}  // namespace tillora::win32
