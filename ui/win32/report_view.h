#pragma once

#include "ui/lists.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A list in columns. The rows stay in the object: the window asks for the cells it paints, so its
/// cost does not depend on how many there are.
class ReportView final : public ViewOf<ListView> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  LRESULT notify(NMHDR& header) override;
  int rowAt(POINT point) const override;

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
  void takeBack() override;

 private:
  void showColumns();
  void showRows();
  void fillLastColumn();
  void takeWidth(int column);
  void showChoice();
  void give(LVITEMW& item) const;
  Text cell(int row, int column) const;
  /// The next row that begins with what was typed; -1 for none.
  int find(const NMLVFINDITEMW& wanted) const;
  Point toTwips(LPARAM position) const;
  HWND header() const;

  int rowShown_ = -1;
  bool painting_ = false;
};

}  // namespace tillora::ui::win32
