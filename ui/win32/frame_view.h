#pragma once

#include "ui/container.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A window that holds the controls of a frame: a group box for an etched one, so that screen
/// readers find the controls in a group of that name.
class FrameView final : public ViewOf<Frame> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  HBRUSH ownBackground() const override { return tabBody_.get(); }
  LONG role() const override;

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool isWithin(const RECT& box, HDC dc) const;
  bool isPage() const;
  bool isGroupBox() const { return control().border() == Frame::Border::etched; }

  Brush tabBody_;  // of a page whose tab strip has a theme
};

}  // namespace tillora::ui::win32
