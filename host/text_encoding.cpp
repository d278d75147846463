#include "host/text_encoding.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace tillora::host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf16(Text& out, char32_t point) {
  if (point >= 0x10000) {
    point -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
  } else {
    out.push_back(static_cast<char16_t>(point));
  }
}

/// Reads one character at `at`; the number of bytes it takes, or 0 for none.
std::size_t decode(std::string_view bytes, std::size_t at, char32_t& point) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = byte(at);
  if (lead < 0x80) {
    point = lead;
    return 1;
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size()) return 0;
  point = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return 0;
    point = (point << 6) | (byte(at + i) & 0x3FU);
  }
  const bool overlong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  return overlong || surrogate || point > 0x10FFFF ? 0 : length;
}

}  // namespace

Text fromUtf8(std::string_view bytes) {
  Text out;
  out.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t point = 0;
    const std::size_t length = decode(bytes, at, point);
    appendUtf16(out, length == 0 ? kReplacement : point);
    at += std::max<std::size_t>(length, 1);
  }
  return out;
}

bool sameName(TextView left, TextView right) {
  const auto upper = [](char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
  };
  return std::ranges::equal(left, right,
                            [&](char16_t a, char16_t b) { return upper(a) == upper(b); });
}

}  // namespace tillora::host
