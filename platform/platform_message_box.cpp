#include "platform/platform_message_box.h"

#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

// Twice what fits on a small screen above the buttons.
constexpr std::size_t kMostCharacters = 1000;
constexpr std::size_t kMostLines = 15;
constexpr std::size_t kKeptAtTheEnd = 200;

bool isSecondHalf(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

/// Cuts out the middle, because a message ends with what to do.
Text withoutItsMiddle(const Text& text) {
  if (text.size() <= kMostCharacters) return text;
  std::size_t first = kMostCharacters - kKeptAtTheEnd;
  std::size_t last = text.size() - kKeptAtTheEnd;
  if (isSecondHalf(text[first])) --first;
  if (isSecondHalf(text[last])) ++last;
  return text.substr(0, first) + u" ... " + text.substr(last);
}

/// The box grows with its text, even off the screen. Our own messages are never that long; one that
/// stored texts of the shop make too long is shown in part.
Text fitting(TextView whole) {
  Text text = nulsAsBlanks(withoutItsMiddle(Text(whole)));
  std::size_t lines = 0;
  for (char16_t& c : text) {
    if (c == u'\n') ++lines;
    if (lines > kMostLines && (c == u'\r' || c == u'\n')) c = u' ';
  }
  return text;
}

}  // namespace

void PlatformMessageBox::setSettingsStore(const std::shared_ptr<SettingsStore>&) {}

MessageResult PlatformMessageBox::show(TextView text, std::int32_t style, TextView title,
                                       TextView secondaryText) {
  Text whole = fitting(text);
  if (!secondaryText.empty()) whole += u"\r\n\r\n" + fitting(secondaryText);
  const Text shownTitle = nulsAsBlanks(Text(title));
  const int button = MessageBoxW(owner_ != nullptr ? owner_ : GetActiveWindow(), wide(whole),
                                 wide(shownTitle), static_cast<UINT>(style));
  // 0 means that the box could not be shown, which must not count as a yes.
  return button == 0 ? MessageResult::cancel : static_cast<MessageResult>(button);
}

}  // namespace tillora::win32
