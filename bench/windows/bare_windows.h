#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "ui/win32/handles.h"

namespace tillora::bench {

/// Records the windows of a dialog, so that the same can be made again with nothing behind them:
/// the least that opening can cost.
class BareWindows {
 public:
  /// Records a dialog with all windows in it.
  explicit BareWindows(HWND dialog);

  std::size_t count() const { return windows_.size(); }
  /// Makes them all, shows the dialog and processes messages until nothing is left to do.
  ui::win32::Window open(HWND owner) const;

 private:
  struct Record {
    std::wstring className;
    std::wstring text;
    DWORD style = 0;
    DWORD extended = 0;
    RECT place{};            ///< in the parent; of the dialog, on the screen
    std::size_t parent = 0;  ///< position of the parent's record
    HFONT font = nullptr;
  };
  void add(HWND window, std::size_t parent);

  std::vector<Record> windows_;
};

/// Processes all messages that are waiting.
void pump();

}  // namespace tillora::bench
