#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/text.h"
#include "host/app/options_view.h"
#include "host/app/report_list.h"
#include "host/message_font.h"

namespace tillora::host::app {

/// The Administrator's window: a menu, a button that opens the options dialog, the stored options,
/// and a list of what happened.
class MainWindow {
 public:
  /// What menu, button and lists run. None of these may throw.
  struct Commands {
    std::function<void(std::int16_t tab)> options;  ///< 0 for any tab
    std::function<void()> firstUse;
    /// Some program of the machine, perhaps this one, has saved options.
    std::function<void()> optionsSaved;
  };

  MainWindow(HINSTANCE program, Commands commands);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow();

  void show(int how);
  /// Runs until the window is closed; the program's exit code.
  int run();

  /// Shows the stored options; see OptionList::update().
  void showOptions(const std::vector<Text>& values, bool afterSave);
  /// Adds a line to the list of what happened and shows it.
  void addLine(const Text& time, const Text& line);
  void setDatabase(const Text& path);
  void showError(const Text& text);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM other) noexcept;
  LRESULT handle(UINT message, WPARAM wide, LPARAM other);
  LRESULT notified(const NMHDR& notification);
  void createControls();
  HWND createControl(const wchar_t* windowClass, const wchar_t* text, DWORD style, int id);
  void takeFont();
  void layOut();
  void command(int id);
  void about();
  int scaled(int pixels) const;
  int lineHeight() const;

  HINSTANCE program_;
  Commands commands_;
  UINT optionsSavedMessage_;
  std::unique_ptr<MessageFont> font_;
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  HWND window_ = nullptr;
  HWND focus_ = nullptr;  ///< the control that had it when the window was last active
  HWND button_ = nullptr;
  HWND optionsLabel_ = nullptr;
  OptionsView options_;
  HWND eventsLabel_ = nullptr;
  ReportList events_;
  HWND status_ = nullptr;
};

}  // namespace tillora::host::app
