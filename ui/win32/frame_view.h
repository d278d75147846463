#pragma once

#include "ui/container.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// A window that holds the controls of a frame; an etched frame has a group box as its first child.
class FrameView final : public ViewOf<Frame> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  void showFont() override;
  HBRUSH ownBackground() const override { return tabBody_.get(); }

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool isPage() const;
  void paintTabBody();

  HWND groupBox_ = nullptr;
  Brush tabBody_;  // of a page whose tab strip has a theme
};

}  // namespace tillora::ui::win32
