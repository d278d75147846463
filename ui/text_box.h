#pragma once

#include "base/secret_text.h"
#include "ui/container.h"

namespace tillora::ui {

/// A box in which text is edited, one line or many.
///
/// Text set by code is never cut to maxLength() nor rewritten; the limit is for typing and pasting.
/// Positions count UTF-16 units from 0. A replaced text is overwritten in memory.
class TextBox final : public Control {
 public:
  TextBox();

  Kind kind() const override { return Kind::textBox; }
  /// As wide as its longest text, but at most as twenty digits.
  Size naturalSize() const override;
  bool fillsRow() const override { return true; }

  const Text& text() const { return text_.text(); }
  /// Raises change when the text differs; the caret goes to the start.
  TextBox& setText(Text text);
  /// Shows another form of the same value (5.00% for 5.00). This is not an edit: the dialog is not
  /// notified, and change is not raised.
  void reformat(Text text);

  /// Longest text that can be typed or pasted; 0 for no limit.
  int maxLength() const { return maxLength_; }
  TextBox& setMaxLength(int maxLength);
  /// A locked box shows and selects its text but cannot be edited by the user. It is as grey as a
  /// button.
  bool locked() const { return locked_; }
  TextBox& setLocked(bool locked);
  /// Fixed once the box is shown. Enter makes a line when the form has no default button.
  bool multiLine() const { return multiLine_; }
  TextBox& setMultiLine(bool multiLine);
  /// Fixed once the box is shown. Shown for every character; 0 shows the text itself.
  char16_t passwordCharacter() const { return passwordCharacter_; }
  TextBox& setPasswordCharacter(char16_t character);
  /// Fixed once the box is shown.
  Alignment alignment() const { return alignment_; }
  TextBox& setAlignment(Alignment alignment);

  /// Start of the selection; the caret when nothing is selected.
  int selStart() const { return selStart_; }
  int selLength() const { return selLength_; }
  Text selText() const;
  /// Replaces the selected text and puts the caret behind it. An edit; maxLength() does not apply.
  TextBox& setSelText(TextView text);
  /// Limited to the text. The caret goes to the end of the selection.
  TextBox& setSelection(int start, int length);

  /// The user edited the text: takes over text and selection and raises change, even if the text
  /// typed over was the same.
  void userEdited(Text text, int selStart, int selLength);
  /// The user moved the caret or the selection.
  void userSelected(int selStart, int selLength);

  Event<> change;
  /// The user is about to paste this text. Set the flag to prevent the box from pasting it.
  Event<TextView, bool&> paste;

 protected:
  bool focusable() const override { return true; }
  bool keepsEnter(Modifiers modifiers) const override;

 private:
  /// Shows a text set by code. False if it is the text already there.
  bool show(Text& text);

  SecretText text_;
  int maxLength_ = 0;
  int selStart_ = 0;
  int selLength_ = 0;
  Alignment alignment_ = Alignment::left;
  char16_t passwordCharacter_ = 0;
  bool locked_ = false;
  bool multiLine_ = false;
};

}  // namespace tillora::ui
