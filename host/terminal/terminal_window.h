#pragma once

#include <windows.h>

#include <fstream>
#include <optional>

#include "base/text.h"
#include "base/values.h"
#include "host/message_font.h"

namespace tillora::host::terminal {

struct Settings {
  std::optional<Text> log;  ///< file to which each message is appended, UTF-8
  bool once = false;        ///< end after the first message
};

/// A small window that lists each message with the time of the save.
class TerminalWindow {
 public:
  TerminalWindow(HINSTANCE program, const Settings& settings);
  TerminalWindow(const TerminalWindow&) = delete;
  TerminalWindow& operator=(const TerminalWindow&) = delete;
  ~TerminalWindow();

  /// Runs until the window is closed; the program's exit code.
  int run(int show);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM other) noexcept;
  LRESULT handle(UINT message, WPARAM wide, LPARAM other);
  void optionsSaved(DateTime when);
  void addLine(const Text& line);

  HINSTANCE program_;
  bool once_;
  std::ofstream log_;
  MessageFont font_;
  UINT optionsSavedMessage_ = 0;
  HWND window_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace tillora::host::terminal
