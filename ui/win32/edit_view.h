#pragma once

#include "ui/text_box.h"
#include "ui/win32/control_view.h"

namespace tillora::ui::win32 {

/// An edit control. After each change by the user its text goes to the box; a text that the user
/// did not touch is never written back.
///
/// The window of a box with a password character holds placeholders (ui/masked_text.h) and cannot
/// undo.
class EditView final : public ViewOf<TextBox> {
 public:
  using ViewOf::ViewOf;
  void create(HWND parent) override;
  void show(Property what) override;
  void showFont() override;
  void command(WORD code) override;
  HBRUSH colours(HDC dc) override;
  void readBack() override;
  /// It leaves the whole text selected; the next click places the caret.
  bool clickOnlyFocuses() const override { return true; }
  bool typed(char16_t character) override;

 protected:
  Text windowText() const override;
  LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
  void takeBack() override { show(Property::text); }

 private:
  bool isMasked() const { return control().passwordCharacter() != 0; }
  void edited();
  Text editedText() const;
  /// Offers the text about to be pasted to the box; true if the box keeps it from the window.
  bool pasteIsUsed();
  void showText();
  void showSelection();
  void showEditing();
  Colour ground() const;
  void fitText() const;
  void showScrollBarIfNeeded() const;
  void centreText(RECT& client);
  void paintAboveText() const;

  Brush ground_;
  LONG aboveText_ = 0;  // pixels between the border and the client area
};

}  // namespace tillora::ui::win32
