#include "base/number_format.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/letter_case.h"

namespace tillora {
namespace {

constexpr int kSignificantDigits = 15;

/// Calls `visit(character, isLiteral, position)` for each character that a format names.
template <class Visitor>
void forEachFormatCharacter(TextView format, Visitor visit) {
  bool quoted = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const char16_t c = format[i];
    if (c == u'"') {
      quoted = !quoted;
    } else if (c == u'\\' && !quoted) {
      if (++i < format.size()) visit(format[i], true, i);
    } else {
      visit(c, quoted, i);
    }
  }
}

bool isPlaceholder(char16_t c) { return c == u'0' || c == u'#'; }

std::vector<TextView> sectionsOf(TextView format) {
  std::vector<TextView> sections;
  std::size_t start = 0;
  forEachFormatCharacter(format, [&](char16_t c, bool literal, std::size_t at) {
    if (literal || c != u';') return;
    sections.push_back(format.substr(start, at - start));
    start = at + 1;
  });
  sections.push_back(format.substr(start));
  return sections;
}

/// What a section asks for.
struct Shape {
  int whole = 0;         // placeholders before the decimal separator
  int wholeZeros = 0;    // fewest digits shown there
  int decimals = 0;      // placeholders after it
  int decimalZeros = 0;  // fewest digits shown there
  bool percent = false;
  bool thousands = false;

  bool hasDigits() const { return whole + decimals > 0; }
};

Shape shapeOf(TextView section) {
  Shape shape;
  bool fraction = false;
  forEachFormatCharacter(section, [&](char16_t c, bool literal, std::size_t) {
    if (literal) return;
    if (c == u'.') fraction = true;
    if (c == u'%') shape.percent = true;
    if (c == u',' && shape.hasDigits()) shape.thousands = true;
    if (!isPlaceholder(c)) return;
    int& count = fraction ? shape.decimals : shape.whole;
    ++count;
    if (fraction) {
      if (c == u'0') shape.decimalZeros = count;
    } else if (c == u'0' || shape.wholeZeros > 0) {
      ++shape.wholeZeros;
    }
  });
  return shape;
}

/// The digits of a magnitude, rounded to a number of decimals.
struct Digits {
  std::string whole;     // without leading zeros
  std::string fraction;  // exactly as many as asked for

  Digits(double magnitude, int decimals, bool percent) {
    auto [digits, exponent] = toScientific(magnitude, kSignificantDigits);

    // There may be no digits before the separator (0.05), or more than the number holds (1e20).
    const int point = exponent + 1 + (percent ? 2 : 0);
    if (point <= 0) digits.insert(0, static_cast<std::size_t>(1 - point), '0');
    const auto wholeSize = static_cast<std::size_t>(std::max(point, 1));
    const std::size_t size = wholeSize + static_cast<std::size_t>(decimals);
    const bool up = digits.size() > size && digits[size] >= '5';
    digits.resize(size, '0');
    if (up) increment(digits);
    const std::size_t split = digits.size() - static_cast<std::size_t>(decimals);
    whole = digits.substr(0, split);
    fraction = digits.substr(split);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  }

  bool isZero() const {
    return whole.empty() && fraction.find_first_not_of('0') == std::string::npos;
  }

 private:
  static void increment(std::string& digits) {
    auto digit = digits.rbegin();
    while (digit != digits.rend() && *digit == '9') *digit++ = '0';
    if (digit == digits.rend()) {
      digits.insert(digits.begin(), '1');
    } else {
      ++*digit;
    }
  }
};

/// Writes a number into a section from left to right.
class SectionWriter {
 public:
  SectionWriter(const Shape& shape, Digits digits, const NumberLocale& locale)
      : shape_(shape), digits_(std::move(digits)), locale_(locale) {
    const auto zeros = static_cast<std::size_t>(shape.wholeZeros);
    if (digits_.whole.size() < zeros) digits_.whole.insert(0, zeros - digits_.whole.size(), '0');
    while (digits_.fraction.size() > static_cast<std::size_t>(shape.decimalZeros) &&
           digits_.fraction.back() == '0') {
      digits_.fraction.pop_back();
    }
  }

  Text write(TextView section) {
    forEachFormatCharacter(section, [&](char16_t c, bool literal, std::size_t) {
      if (!literal && isPlaceholder(c)) {
        writePlaceholder();
      } else if (!literal && c == u'.' && !fraction_) {
        fraction_ = true;
        if (shape_.whole == 0 && shape_.decimals > 0) writeWhole();
        out_ += locale_.decimalSeparator;
      } else if (literal || c != u',' || !hasPlaceholder_) {
        out_ += c;
      }
    });
    return std::move(out_);
  }

 private:
  void writePlaceholder() {
    hasPlaceholder_ = true;
    if (fraction_) {
      if (decimal_ < digits_.fraction.size())
        out_ += static_cast<char16_t>(digits_.fraction[decimal_++]);
      return;
    }
    // The first placeholder takes all digits that the others have no place for.
    const int left = shape_.whole - placeholder_++;
    while (static_cast<int>(digits_.whole.size() - next_) >= left) {
      if (next_ >= digits_.whole.size()) return;
      writeWholeDigit();
      if (placeholder_ > 1) return;
    }
  }

  void writeWhole() {
    while (next_ < digits_.whole.size()) writeWholeDigit();
  }

  void writeWholeDigit() {
    out_ += static_cast<char16_t>(digits_.whole[next_++]);
    const std::size_t rest = digits_.whole.size() - next_;
    if (shape_.thousands && rest > 0 && rest % 3 == 0) out_ += locale_.thousandsSeparator;
  }

  const Shape& shape_;
  Digits digits_;
  const NumberLocale& locale_;
  Text out_;
  std::size_t next_ = 0;
  std::size_t decimal_ = 0;
  int placeholder_ = 0;
  bool fraction_ = false;
  bool hasPlaceholder_ = false;
};

Text formatSections(double value, TextView format, const NumberLocale& locale) {
  const std::vector<TextView> sections = sectionsOf(format);
  const auto has = [&](std::size_t section) {
    return sections.size() > section && !sections[section].empty();
  };
  const std::size_t chosen = value < 0 && has(1) ? 1 : value == 0 && has(2) ? 2 : 0;
  const Shape shape = shapeOf(sections[chosen]);
  Digits digits(std::abs(value), shape.decimals, shape.percent);
  // A number that rounds to zero has no sign.
  const bool negative = value < 0 && chosen == 0 && shape.hasDigits() && !digits.isZero();
  const Text text = SectionWriter(shape, std::move(digits), locale).write(sections[chosen]);
  return negative ? u"-" + text : text;
}

Text inCharacters(std::string_view digits) { return {digits.begin(), digits.end()}; }

// All digits of the number, with an exponent if it is very large or small.
Text generalNumber(double value, const NumberLocale& locale) {
  auto [digits, exponent] = toScientific(std::abs(value), kSignificantDigits);
  digits.resize(std::max<std::size_t>(digits.find_last_not_of('0') + 1, 1));
  const bool plain = exponent >= -4 && exponent < kSignificantDigits;
  if (plain && exponent < 0) digits.insert(0, static_cast<std::size_t>(-exponent), '0');
  const auto whole = static_cast<std::size_t>(plain ? std::max(exponent, 0) + 1 : 1);
  if (digits.size() < whole) digits.resize(whole, '0');

  Text text = value < 0 ? u"-" : u"";
  text += inCharacters(digits.substr(0, whole));
  if (digits.size() > whole) text += locale.decimalSeparator + inCharacters(digits.substr(whole));
  if (!plain) {
    text += exponent < 0 ? u"E-" : u"E+";
    if (std::abs(exponent) < 10) text += u'0';
    text += decimalText(std::abs(exponent));
  }
  return text;
}

Text currency(double value, NumberLocale locale) {
  locale.decimalSeparator = locale.currencyDecimalSeparator;
  locale.thousandsSeparator = locale.currencyThousandsSeparator;
  return formatSections(value, locale.currencyFormat, locale);
}

}  // namespace

Text formatNumber(double value, TextView format, const NumberLocale& locale) {
  const Text name = lowerCase(format);
  if (name.empty() || name == u"general number") return generalNumber(value, locale);
  if (name == u"currency") return currency(value, locale);
  if (name == u"standard") return formatSections(value, u"#,##0.00", locale);
  if (name == u"fixed") return formatSections(value, u"0.00", locale);
  if (name == u"percent") return formatSections(value, u"0.00%", locale);
  return formatSections(value, format, locale);
}

}  // namespace tillora
