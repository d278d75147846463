#pragma once

#include <windows.h>
// prsht.h needs windows.h first.
#include <prsht.h>

#include <string>
#include <vector>

#include "ui/win32/handles.h"

namespace tillora::bench {

/// The platform's property sheet with the pages of a dialog, what they hold included: what a
/// developer would use instead. The pages are dialog templates.
class PlatformSheet {
 public:
  /// Records a dialog with a tab strip. Every page has been shown once, so that all windows are
  /// there.
  explicit PlatformSheet(HWND dialog);

  int pages() const { return static_cast<int>(pages_.size()); }
  /// Makes it, shows the first page and processes messages until nothing is left to do.
  HWND open(HWND owner) const;
  /// Shows a page, counted from 0.
  static void visit(HWND sheet, int page);
  static void close(HWND sheet);

 private:
  struct Column {
    std::wstring header;
    int width = 0;
  };
  struct Row {
    std::vector<std::wstring> cells;
    UINT state = 0;
  };
  struct Control {
    std::wstring className;
    std::wstring text;
    DWORD style = 0;
    DWORD extended = 0;
    RECT place{};  ///< in the page, pixels
    // What it holds.
    std::vector<std::wstring> items;
    std::vector<Column> columns;
    std::vector<Row> rows;
    DWORD listStyle = 0;
    LRESULT chosen = -1;
  };
  struct Page {
    std::wstring title;
    SIZE size{};
    std::vector<Control> controls;
    std::vector<WORD> dialogTemplate;
  };

  static void addControls(Page& page, HWND pageWindow, HWND holder);
  static Control recorded(HWND window, HWND pageWindow);
  static std::vector<WORD> templateOf(const Page& page);
  static void fill(HWND control, const Control& with);
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  std::vector<Page> pages_;
};

}  // namespace tillora::bench
