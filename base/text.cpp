#include "base/text.h"

#include <algorithm>

namespace tillora {
namespace {

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

}  // namespace

Text nulsAsBlanks(Text text) {
  std::ranges::replace(text, u'\0', u' ');
  return text;
}

std::string toUtf8(TextView text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    const bool high = c >= 0xD800 && c < 0xDC00;
    const bool paired =
        high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (paired) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - char32_t{0xDC00});
    } else if (c >= 0xD800 && c < 0xE000) {
      c = 0xFFFD;
    }
    appendUtf8(out, c);
  }
  return out;
}

}  // namespace tillora
