#pragma once

#include <windows.h>

#include <commctrl.h>

#include <initializer_list>
#include <span>

#include "base/text.h"

namespace tillora::host::app {

/// A list view with columns, whose last column takes the width that the others leave.
class ReportList {
 public:
  struct Column {
    const char16_t* caption;
    int width;  ///< pixels at 96 DPI; the minimum for the last one
  };

  /// Makes the window. `id` is its control id.
  void create(HWND parent, int id, std::span<const Column> columns, int dpi);
  HWND window() const { return window_; }

  void setBounds(const RECT& bounds);
  int addRow(std::initializer_list<TextView> texts);
  void setText(int row, int column, const Text& text);
  void show(int row) const;

 private:
  HWND window_ = nullptr;
  int columns_ = 0;
  int leastLastWidth_ = 0;
};

}  // namespace tillora::host::app
