#pragma once

#include "ui/lists.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A list with check boxes: a list view of one column, whose ticks screen readers know. The
/// selection bar is seen only while the list has the focus: it chooses nothing.
class CheckListView final : public ViewOf<CheckListBox> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  LRESULT notify(NMHDR& header) override;
  int rowAt(POINT point) const override;

 protected:
  void takeBack() override;

 private:
  void stateChanged(const NMLISTVIEW& change);
  void showRows();
  void showChoice();
};

}  // namespace tillora::ui::win32
