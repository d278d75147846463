#include "tests/testing/edit_text.h"

#include <algorithm>

#include "base/numbers.h"

namespace tillora::testing {
namespace {

using ui::Key;
using ui::TextBox;

int length(const TextBox& box) { return static_cast<int>(box.text().size()); }

void replaceSelection(TextBox& box, int start, int count, TextView with) {
  // In one piece: a text that grows leaves parts of itself in memory.
  const TextView before = box.text();
  Text text;
  text.reserve(before.size() - static_cast<std::size_t>(count) + with.size());
  text.append(before.substr(0, static_cast<std::size_t>(start))).append(with);
  text.append(before.substr(static_cast<std::size_t>(start + count)));
  box.userEdited(std::move(text), start + static_cast<int>(with.size()), 0);
}

bool isLineBreak(const Text& text, int at) {
  return at >= 0 && at + 1 < static_cast<int>(text.size()) &&
         text.compare(static_cast<std::size_t>(at), 2, u"\r\n") == 0;
}

int lineStart(const Text& text, int at) {
  while (at > 0 && !isLineBreak(text, at - 2)) --at;
  return at;
}

int lineEnd(const Text& text, int at) {
  while (at < static_cast<int>(text.size()) && !isLineBreak(text, at)) ++at;
  return at;
}

bool isBlank(const Text& text, int at) { return text[static_cast<std::size_t>(at)] <= u' '; }

/// The start of the word at or before a position; of the next one after it.
int wordBefore(const Text& text, int at) {
  while (at > 0 && isBlank(text, at - 1)) --at;
  while (at > 0 && !isBlank(text, at - 1)) --at;
  return at;
}
int wordAfter(const Text& text, int at) {
  const int size = static_cast<int>(text.size());
  while (at < size && !isBlank(text, at)) ++at;
  while (at < size && isBlank(text, at)) ++at;
  return at;
}

void deleteBack(TextBox& box) {
  if (box.selLength() > 0) {
    replaceSelection(box, box.selStart(), box.selLength(), {});
    return;
  }
  if (box.selStart() == 0) return;
  const int count = isLineBreak(box.text(), box.selStart() - 2) ? 2 : 1;
  replaceSelection(box, box.selStart() - count, count, {});
}

// How much of `text` the maximum length leaves room for once the selection is gone.
TextView fitting(const TextBox& box, TextView text) {
  if (box.maxLength() == 0) return text;
  const int room = box.maxLength() - (length(box) - box.selLength());
  return text.substr(0, static_cast<std::size_t>(std::max(0, room)));
}

}  // namespace

void typeInto(TextBox& box, char16_t character) {
  if (box.locked()) return;
  if (character == kBackspaceCharacter) {
    deleteBack(box);
  } else if (character == u'\r') {
    if (box.multiLine()) pasteInto(box, u"\r\n");
  } else if (character >= 0x20 && character != 0x7F) {
    pasteInto(box, TextView(&character, 1));
  }
}

void pasteInto(TextBox& box, TextView text) {
  if (box.locked()) return;
  if (!box.multiLine()) text = text.substr(0, text.find_first_of(u"\r\n"));
  const TextView room = fitting(box, text);
  if (room.empty() && !text.empty() && box.selLength() == 0) return;
  replaceSelection(box, box.selStart(), box.selLength(), room);
}

void deleteForward(TextBox& box) {
  if (box.locked()) return;
  if (box.selLength() > 0) {
    replaceSelection(box, box.selStart(), box.selLength(), {});
  } else if (box.selStart() < length(box)) {
    replaceSelection(box, box.selStart(), isLineBreak(box.text(), box.selStart()) ? 2 : 1, {});
  }
}

void moveCaret(TextBox& box, Key key, ui::Modifiers modifiers) {
  const int start = box.selStart();
  const int end = start + box.selLength();
  const bool selects = modifiers.shift;
  switch (key) {
    case Key::home: {
      const int home = modifiers.ctrl ? 0 : lineStart(box.text(), start);
      box.userSelected(home, selects ? end - home : 0);
      break;
    }
    case Key::end: {
      const int last = modifiers.ctrl ? length(box) : lineEnd(box.text(), end);
      box.userSelected(selects ? start : last, selects ? last - start : 0);
      break;
    }
    case Key::left: {
      const int from = selects ? start : end;
      const int to = modifiers.ctrl ? wordBefore(box.text(), from) : std::max(0, from - 1);
      box.userSelected(to, selects ? end - to : 0);
      break;
    }
    case Key::right: {
      const int to = modifiers.ctrl ? wordAfter(box.text(), end) : std::min(length(box), end + 1);
      box.userSelected(selects ? start : to, selects ? to - start : 0);
      break;
    }
    default:
      break;
  }
}

}  // namespace tillora::testing
