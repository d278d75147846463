#include "support/letter_case.h"

#include <algorithm>

namespace tillora {
namespace {

bool within(char16_t c, char16_t first, char16_t last) { return c >= first && c <= last; }

char16_t plus(char16_t c, int distance) { return static_cast<char16_t>(c + distance); }

// Blocks in which capitals and small letters alternate: is the capital the even code?
bool alternatesFromEven(char16_t c) {
  return within(c, 0x0100, 0x012F) || within(c, 0x0132, 0x0137) || within(c, 0x014A, 0x0177) ||
         within(c, 0x01DE, 0x01EF) || within(c, 0x01F8, 0x021F) || within(c, 0x0222, 0x0233) ||
         within(c, 0x0460, 0x0481) || within(c, 0x048A, 0x04BF) || within(c, 0x04D0, 0x052F) ||
         within(c, 0x1E00, 0x1E95) || within(c, 0x1EA0, 0x1EFF);
}

bool alternatesFromOdd(char16_t c) {
  return within(c, 0x0139, 0x0148) || within(c, 0x0179, 0x017E) || within(c, 0x01CD, 0x01DC) ||
         within(c, 0x04C1, 0x04CE);
}

}  // namespace

char16_t lowerCase(char16_t c) {
  if (c < 0x80) return within(c, u'A', u'Z') ? plus(c, 32) : c;
  if (within(c, 0x00C0, 0x00DE)) return c == 0x00D7 ? c : plus(c, 32);
  if (c == 0x0130) return u'i';
  if (c == 0x0178) return 0x00FF;
  if (alternatesFromEven(c)) return c % 2 == 0 ? plus(c, 1) : c;
  if (alternatesFromOdd(c)) return c % 2 == 1 ? plus(c, 1) : c;
  if (c == 0x0386) return 0x03AC;
  if (within(c, 0x0388, 0x038A)) return plus(c, 37);
  if (c == 0x038C) return 0x03CC;
  if (within(c, 0x038E, 0x038F)) return plus(c, 63);
  if (within(c, 0x0391, 0x03AB)) return c == 0x03A2 ? c : plus(c, 32);
  if (within(c, 0x0400, 0x040F)) return plus(c, 80);
  if (within(c, 0x0410, 0x042F)) return plus(c, 32);
  return c;
}

Text lowerCase(TextView text) {
  Text lower(text);
  std::ranges::transform(lower, lower.begin(), [](char16_t c) { return lowerCase(c); });
  return lower;
}

}  // namespace tillora
