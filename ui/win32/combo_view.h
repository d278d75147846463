#pragma once

#include <cstddef>

#include "ui/lists.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A drop-down list. In the open list a choice counts when the list closes, even if it is the item
/// shown before. In the closed list only another item counts, at once.
class ComboView final : public ViewOf<ComboBox> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  void showFont() override;
  void command(WORD code) override;
  void draw(const DRAWITEMSTRUCT& item) override;
  bool wantsKey(WPARAM key) const override;

 protected:
  RECT pixelBounds() const override;
  void takeBack() override { showChoice(); }

 private:
  void addItems(std::size_t first);
  void fitItems();
  void fitField();
  void showItems();
  void showChoice();
  void choiceMade();
  int chosen() const { return static_cast<int>(send(CB_GETCURSEL)); }
  bool isDropped() const { return send(CB_GETDROPPEDSTATE) != 0; }
};

}  // namespace tillora::ui::win32
