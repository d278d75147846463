#pragma once

#include <cstddef>

#include "base/text.h"

namespace tillora::ui {

/// What the window of a box with a password character holds in place of the box's text: a
/// placeholder for each character. Neither the platform's edit control, which keeps copies of its
/// text, nor another program that asks for it ever has the text itself.
Text placeholders(std::size_t count);

/// Turns the text of such a window after an edit into the box's text: placeholders stand for the
/// characters of `before`, anything else was typed or pasted. (A typed character of the private use
/// area can be mistaken for a placeholder.)
void replacePlaceholders(Text& text, TextView before);

}  // namespace tillora::ui
