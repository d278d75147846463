#include "support/number_format.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace tillora {
namespace {

constexpr std::size_t kSignificantDigits = 15;

/// Calls `visit(character, isLiteral)` for each character that a format names.
template <class Visitor>
void forEachFormatCharacter(TextView format, Visitor visit) {
  bool quoted = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const char16_t c = format[i];
    if (c == u'"') {
      quoted = !quoted;
    } else if (c == u'\\' && !quoted) {
      if (++i < format.size()) visit(format[i], true);
    } else {
      visit(c, quoted);
    }
  }
}

bool isPlaceholder(char16_t c) { return c == u'0' || c == u'#'; }

std::vector<Text> sectionsOf(TextView format) {
  std::vector<Text> sections(1);
  forEachFormatCharacter(format, [&](char16_t c, bool literal) {
    if (literal) {
      sections.back() += {u'\\', c};
    } else if (c == u';') {
      sections.emplace_back();
    } else {
      sections.back() += c;
    }
  });
  return sections;
}

/// What a section asks for.
struct Shape {
  int whole = 0;         // placeholders before the decimal separator
  int wholeZeros = 0;    // digits shown there at least
  int decimals = 0;      // placeholders after it
  int decimalZeros = 0;  // digits shown there at least
  int percents = 0;
  bool thousands = false;
};

Shape shapeOf(TextView section) {
  Shape shape;
  bool fraction = false;
  bool comma = false;
  forEachFormatCharacter(section, [&](char16_t c, bool literal) {
    if (literal) return;
    if (c == u'.') fraction = true;
    if (c == u'%') ++shape.percents;
    if (c == u',' && !fraction && shape.whole > 0) comma = true;
    if (!isPlaceholder(c)) return;
    int& count = fraction ? shape.decimals : shape.whole;
    ++count;
    if (fraction) {
      if (c == u'0') shape.decimalZeros = count;
    } else {
      shape.thousands = shape.thousands || comma;
      if (c == u'0' || shape.wholeZeros > 0) ++shape.wholeZeros;
    }
  });
  return shape;
}

/// The digits of a magnitude, rounded to a number of decimals.
struct Digits {
  std::string whole;     // without leading zeros
  std::string fraction;  // exactly as many as asked for

  Digits(double magnitude, int decimals) {
    auto [digits, exponent] = toScientific(magnitude, static_cast<int>(kSignificantDigits));

    // Digits before the separator may be none (0.05) or more than the number holds (1e20).
    const int point = exponent + 1;
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
    forEachFormatCharacter(section, [&](char16_t c, bool literal) {
      if (literal || (!isPlaceholder(c) && c != u'.' && c != u',')) {
        out_ += c;
      } else if (c == u'.') {
        if (fraction_) return;
        fraction_ = true;
        if (shape_.whole == 0) writeWhole();
        out_ += locale_.decimalSeparator;
      } else if (c != u',') {
        writePlaceholder();
      }
    });
    return std::move(out_);
  }

 private:
  void writePlaceholder() {
    if (fraction_) {
      if (decimal_ < digits_.fraction.size()) out_ += digits_.fraction[decimal_++];
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
    out_ += digits_.whole[next_++];
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
};

}  // namespace

Text formatNumber(double value, TextView format, const NumberLocale& locale) {
  const std::vector<Text> sections = sectionsOf(format);
  const auto digitsFor = [&](TextView section) {
    const Shape shape = shapeOf(section);
    return Digits(std::abs(value) * std::pow(100.0, shape.percents), shape.decimals);
  };

  const bool hasNegative = sections.size() > 1 && !sections[1].empty();
  const Text* section = value < 0 && hasNegative ? &sections[1] : &sections[0];
  Digits digits = digitsFor(*section);
  // What rounds to nothing is shown as zero is, without a sign.
  const bool zero = digits.isZero();
  if (zero) {
    section = sections.size() > 2 && !sections[2].empty() ? &sections[2] : &sections[0];
    digits = digitsFor(*section);
  }
  const Shape shape = shapeOf(*section);
  const Text text = SectionWriter(shape, std::move(digits), locale).write(*section);
  return value < 0 && !zero && !hasNegative ? u"-" + text : text;
}

}  // namespace tillora
