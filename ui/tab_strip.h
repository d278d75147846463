#pragma once

#include <vector>

#include "ui/container.h"

namespace tillora::ui {

/// A row of tabs of which one is selected. It switches nothing itself; its owner shows what belongs
/// to the selected tab.
class TabStrip final : public Control {
 public:
  Kind kind() const override { return Kind::tabStrip; }
  /// All tabs in one row, without a page.
  Size naturalSize() const override;
  const std::vector<Text>& tabs() const { return tabs_; }
  int count() const { return static_cast<int>(tabs_.size()); }
  /// The first tab added is selected; that raises nothing.
  void addTab(Text caption);

  /// Number of the selected tab, from 1; 0 in an empty strip.
  int selected() const { return selected_; }
  /// Raises beforeClick with the old tab still selected, then, unless cancelled, click with the new
  /// one. Choosing the selected tab raises nothing. Error `index out of bounds` (35600) outside 1
  /// to count().
  TabStrip& setSelected(int tab);
  /// Left and Right select the tab beside the selected one.
  void userKey(Key key) override;

  /// The area below the tabs, in twips of this control's parent.
  Rect clientArea() const;
  /// What a strip of this width needs around that area, twips.
  Margins marginsIn(int width) const;

  /// Set the argument to keep the old tab.
  Event<bool&> beforeClick;
  Event<> click;

 protected:
  bool focusable() const override { return true; }
  /// Wraps around at the ends. The focus stays on the strip, or goes to the page.
  bool switchPage(bool forward) override;

 private:
  std::vector<Text> tabs_;
  int selected_ = 0;
};

}  // namespace tillora::ui
