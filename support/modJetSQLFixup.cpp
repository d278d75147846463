#include "support/modJetSQLFixup.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tillora {

std::optional<Text> ReplaceText(const std::optional<Text>& source, TextView find,
                                TextView replacement, Compare compare) {
  if (!source || find.empty()) return source;
  const auto same = [compare](char16_t a, char16_t b) {
    return a == b || (compare == Compare::text && lowerCase(a) == lowerCase(b));
  };
  Text result;
  auto rest = source->begin();
  while (true) {
    const auto found = std::search(rest, source->end(), find.begin(), find.end(), same);
    result.append(rest, found);
    if (found == source->end()) return result;
    result += replacement;
    rest = found + static_cast<std::ptrdiff_t>(find.size());
  }
}

Text QuoteJetLiteral(TextView text) {
  Text literal;
  literal.reserve(text.size() + 2);
  literal += u'\'';
  for (const char16_t c : text) {
    switch (c) {
      case u'\'':
        literal += u"' & Chr$(39) & '";
        break;
      case u'|':
        literal += u"' & Chr$(124) & '";
        break;
      case u';':
        literal += u"' & Chr$(59) & '";
        break;
      default:
        literal += c;
    }
  }
  literal += u'\'';
  return literal;
}

TextView jetBoolean(bool value) { return value ? u"True" : u"False"; }

}  // namespace tillora
