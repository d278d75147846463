#pragma once

#include "ui/label.h"
#include "ui/win32/control_view.h"
#include "ui/win32/handles.h"

namespace tillora::ui::win32 {

/// A static text without a background of its own. Labels that overlap (a label and the shadow that
/// makes it look engraved) show each other: whichever is painted paints both. The window of a
/// decorative one has no text, so that nothing is read twice.
class LabelView final : public ViewOf<Label> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;

 protected:
  Text windowText() const override;
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void paint(HDC dc);
  void paintText(HDC dc, RECT area) const;
};

/// One of our own pictures, scaled to the control.
class PictureView final : public ViewOf<Picture> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  LONG role() const override;

 protected:
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Icon icon_;
};

}  // namespace tillora::ui::win32
