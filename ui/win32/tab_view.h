#pragma once

#include "ui/tab_strip.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A tab control. The object decides which tab is selected; the window follows it.
class TabView final : public ViewOf<TabStrip> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  LRESULT notify(NMHDR& header) override;

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
  void takeBack() override { showChoice(); }

 private:
  void showTabs();
  void showChoice();
};

}  // namespace tillora::ui::win32
