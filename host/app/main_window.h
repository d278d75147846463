#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

#include "host/message_font.h"
#include "ui/text.h"

namespace tillora::host::app {

/// The Administrator's window: a menu, and a list of what happened.
class MainWindow {
 public:
  /// What the menu leads to. None of them may raise.
  struct Commands {
    std::function<void(std::int16_t tab)> options;  ///< 0 for any tab
    std::function<void()> firstUse;
  };

  MainWindow(HINSTANCE program, Commands commands);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow();

  void show(int how);
  /// Runs until the window is closed; the program's exit code.
  int run();

  /// Adds a line to the list and shows it.
  void addLine(const Text& time, const Text& line);
  void setDatabase(const Text& path);
  void showError(const Text& text);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM other);
  LRESULT handle(UINT message, WPARAM wide, LPARAM other);
  void createControls();
  void layOut();
  void command(int id);
  void about();
  int scaled(int pixels) const;

  HINSTANCE program_;
  Commands commands_;
  MessageFont font_;
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  HWND window_ = nullptr;
  HWND list_ = nullptr;
  HWND status_ = nullptr;
};

}  // namespace tillora::host::app
