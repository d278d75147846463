#include "ui/masked_text.h"

namespace tillora::ui {
namespace {

// The private use area, one code for each position.
constexpr char16_t kFirst = 0xE000;

}  // namespace

Text placeholders(std::size_t count) {
  Text text(count, kFirst);
  for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<char16_t>(kFirst + i);
  return text;
}

void replacePlaceholders(Text& text, TextView before) {
  for (char16_t& c : text) {
    if (c >= kFirst && c - std::size_t{kFirst} < before.size()) c = before[c - kFirst];
  }
}

}  // namespace tillora::ui
