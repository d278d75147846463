#pragma once

#include "ui/text_box.h"

namespace tillora::testing {

/// Editing of a text box without a window, as the platform's edit control does it. The caret is
/// taken to be at the end of the selection.
void typeInto(ui::TextBox& box, char16_t character);
void pasteInto(ui::TextBox& box, TextView text);
void moveCaret(ui::TextBox& box, ui::Key key, ui::Modifiers modifiers);
void deleteForward(ui::TextBox& box);

}  // namespace tillora::testing
