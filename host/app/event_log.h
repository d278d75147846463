#pragma once

#include <windows.h>

#include <fstream>
#include <functional>

#include "base/error.h"
#include "base/text.h"

namespace tillora::host::app {

/// What happened, with the time: shown in the main window and appended to a file.
class EventLog {
 public:
  /// Appends to this file from now on (UTF-8). Throws an Error if it cannot be written.
  void appendTo(const Text& path);
  /// Called with the time and the text of each line.
  void onLine(std::function<void(const Text& time, const Text& line)> show);

  void write(const Text& line);
  void write(const Error& error);

 private:
  std::ofstream file_;
  std::function<void(const Text& time, const Text& line)> show_;
};

/// "0x80020005", for example.
Text hexadecimal(std::uint32_t number);

}  // namespace tillora::host::app
