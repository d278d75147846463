// Our number rules against the platform's own conversions, over generated texts in two locales.
#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/money.h"
#include "base/numbers.h"
#include "com/bstr.h"
#include "platform/user_locale.h"
#include "tests/testing/random_choices.h"

namespace tillora::win32 {
namespace {

const int kTexts = testing::isLongRun() ? 1000000 : 12000;

int count(TextView text, TextView what) {
  int found = 0;
  for (std::size_t at = text.find(what); at != TextView::npos; at = text.find(what, at + 1))
    ++found;
  return found;
}

class NumberRules : public ::testing::TestWithParam<LCID> {
 protected:
  int below(int bound) { return random_.below(bound); }
  bool chance(int percent) { return random_.chance(percent); }

  Text digits(int most) {
    Text text;
    for (int i = below(most + 1); i > 0; --i) text += static_cast<char16_t>(u'0' + below(10));
    return text;
  }

  /// A blank, or a character that looks like one and is not (the last three).
  Text anyBlank() {
    constexpr TextView kBlanks =
        u" \t\r\u0085\u00a0\u1680\u2000\u2009\u2028\u202f\u205f\u3000\u180e\u200b\ufeff";
    return Text(1, kBlanks[static_cast<std::size_t>(below(static_cast<int>(kBlanks.size())))]);
  }

  /// A text that is a number, almost one, or not one at all.
  Text anyText() {
    if (chance(25)) {
      const Text letters = u"0123456789+-.,eE()$ \t\u00a0\u202f\u3000" + locale_.currencySymbol;
      Text text;
      for (int i = below(8); i > 0; --i) {
        text += letters[static_cast<std::size_t>(below(static_cast<int>(letters.size())))];
      }
      return text;
    }
    Text text = chance(15) ? anyBlank() : u"";
    if (chance(20)) text += chance(50) ? u"-" : u"+";
    if (chance(10)) text += locale_.currencySymbol;
    const bool parenthesis = chance(8);
    if (parenthesis) text += u"(";
    text += digits(9);
    if (chance(20)) text += locale_.thousandsSeparator + digits(4);
    if (chance(60)) text += locale_.decimalSeparator + digits(6);
    if (chance(12)) text += (chance(50) ? u"e" : u"E-") + digits(3);
    if (parenthesis) text += u")";
    if (chance(8)) text += chance(50) ? u"-" : u"+";
    if (chance(10)) text += anyBlank();
    return text;
  }

  /// Texts that this platform takes for numbers and we do not, on purpose: two signs, two currency
  /// symbols, an open parenthesis and misplaced separators are more likely mistakes.
  bool isOutOfShape(Text text) const {
    // A blank may stand for a no-break space between thousands.
    if (locale_.thousandsSeparator == u"\u00a0") std::ranges::replace(text, u' ', u'\u00a0');
    const int signs = count(text, u"+") + count(text, u"-") - count(text, u"E-") -
                      count(text, u"e-") - count(text, u"e+") - count(text, u"E+") +
                      count(text, u"(");
    if (signs > 1 || count(text, locale_.currencySymbol) > 1) return true;
    if (count(text, u"(") != count(text, u")")) return true;
    const std::size_t first = text.find_first_of(u"0123456789");
    const std::size_t last = text.find_last_of(u"0123456789");
    const std::size_t decimal = text.find(locale_.decimalSeparator);
    const std::size_t thousands = text.rfind(locale_.thousandsSeparator);
    const bool afterDecimal =
        thousands != Text::npos && decimal != Text::npos && thousands > decimal;
    const bool afterDigits = (thousands != Text::npos && thousands > last) ||
                             (decimal != Text::npos && decimal > last + 1);
    const std::size_t exponent = text.find_first_of(u"eE");
    const bool inExponent = (thousands != Text::npos && thousands > exponent) ||
                            (decimal != Text::npos && decimal > exponent);
    constexpr TextView kSigns = u"+-";
    const bool twoSigns = exponent != Text::npos && exponent + 2 < text.size() &&
                          kSigns.find(text[exponent + 1]) != TextView::npos &&
                          kSigns.find(text[exponent + 2]) != TextView::npos;
    return afterDecimal || afterDigits || inExponent || twoSigns || exponent < first;
  }

  testing::RandomChoices random_;
  const LCID lcid_ = GetParam();
  const NumberLocale locale_ = numberLocale(lcid_);
};

TEST_P(NumberRules, TextsAreNumbersExactlyWhenThePlatformSaysSo) {
  int numbers = 0;
  for (int i = 0; i < kTexts; ++i) {
    const Text text = anyText();
    double theirs = 0;
    const bool numeric = SUCCEEDED(VarR8FromStr(Bstr(text).get(), lcid_, 0, &theirs));
    const auto ours = toNumber(text, locale_);
    if (!ours && numeric && isOutOfShape(text)) continue;
    EXPECT_EQ(ours.has_value(), numeric) << '[' << toUtf8(text) << ']';
    if (!numeric || !ours) continue;
    ++numbers;
    // The smallest numbers there are have few digits.
    constexpr double kLeast = std::numeric_limits<double>::denorm_min();
    EXPECT_LE(std::abs(*ours - theirs), std::max(std::abs(theirs) * 1e-14, kLeast))
        << '[' << toUtf8(text) << ']';
  }
  EXPECT_GT(numbers, kTexts / 4);
}

TEST_P(NumberRules, AmountsAreThoseOfThePlatform) {
  int amounts = 0;
  for (int i = 0; i < kTexts; ++i) {
    const Text text = anyText();
    CY theirs{};
    const bool amount = SUCCEEDED(VarCyFromStr(Bstr(text).get(), lcid_, 0, &theirs));
    const auto ours = toMoney(text, locale_);
    if (!ours && amount && isOutOfShape(text)) continue;
    EXPECT_EQ(ours.has_value(), amount) << '[' << toUtf8(text) << ']';
    if (!amount || !ours) continue;
    // Ours is exact; this platform's conversion goes through a double, which shows in amounts of
    // many digits and in halves of a ten-thousandth.
    const auto apart = std::abs(static_cast<double>(ours->tenThousandths - theirs.int64));
    const auto size = std::abs(static_cast<double>(theirs.int64));
    EXPECT_LE(apart, std::max(1.0, size * 1e-15)) << '[' << toUtf8(text) << ']';
    ++amounts;
  }
  EXPECT_GT(amounts, kTexts / 4);
}

INSTANTIATE_TEST_SUITE_P(Locales, NumberRules,
                         ::testing::Values(LCID{0x0C09}, LCID{0x0407}, LCID{0x040C}),
                         [](const auto& info) {
                           return info.param == 0x0407   ? "German"
                                  : info.param == 0x040C ? "French"
                                                         : "Australian";
                         });

TEST(NumberBlanks, AreThoseOfThePlatform) {
  for (int c = 1; c <= 0xFFFF; ++c) {
    const auto unit = static_cast<char16_t>(c);
    if (isDigit(unit) || TextView(u"$+-.,()").find(unit) != TextView::npos) continue;
    for (const Text& text : {Text{unit, u'5'}, Text{u'5', unit}, Text{u'-', unit, u'5'}}) {
      double number = 0;
      const bool blank = SUCCEEDED(VarR8FromStr(Bstr(text).get(), 0x0C09, 0, &number));
      EXPECT_EQ(isNumberBlank(unit), blank) << c;
    }
  }
}

}  // namespace
}  // namespace tillora::win32
