#include "host/app/event_log.h"

#include <cwchar>
#include <filesystem>
#include <utility>

#include "com/wide_text.h"

namespace tillora::host::app {
namespace {

Text timeText() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  wchar_t text[32];
  swprintf_s(text, std::size(text), L"%04d-%02d-%02d %02d:%02d:%02d", now.wYear, now.wMonth,
             now.wDay, now.wHour, now.wMinute, now.wSecond);
  return win32::fromWide(text);
}

}  // namespace

Text hexadecimal(std::uint32_t number) {
  wchar_t text[16];
  swprintf_s(text, std::size(text), L"0x%08X", static_cast<unsigned>(number));
  return win32::fromWide(text);
}

void EventLog::appendTo(const Text& path) {
  file_.open(std::filesystem::path(path), std::ios::app | std::ios::binary);
  if (!file_) {
    throw Error(HRESULT_FROM_WIN32(ERROR_CANNOT_MAKE), u"TilloraAdministrator",
                u"The log file '" + path + u"' cannot be written.");
  }
}

void EventLog::onLine(std::function<void(const Text&, const Text&)> show) {
  show_ = std::move(show);
}

void EventLog::write(const Text& line) {
  const Text time = timeText();
  if (show_) show_(time, line);
  if (file_.is_open()) file_ << toUtf8(time) << "  " << toUtf8(line) << "\r\n" << std::flush;
}

void EventLog::write(const Error& error) {
  write(u"Error " + hexadecimal(static_cast<std::uint32_t>(error.number())) + u" from " +
        error.source() + u": " + error.description());
}

}  // namespace tillora::host::app
