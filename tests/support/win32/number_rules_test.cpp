// Our number rules against the platform's own conversions, over generated texts in two locales.
#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include "support/money.h"
#include "support/number_format.h"
#include "support/numbers.h"
#include "support/win32/bstr.h"
#include "support/win32/wide_text.h"

namespace tillora::win32 {
namespace {

constexpr int kTexts = 12000;

Text localeText(LCID locale, LCTYPE what) {
  wchar_t buffer[80];
  return GetLocaleInfoW(locale, what, buffer, 80) > 0 ? fromWide(buffer) : Text();
}

int count(TextView text, TextView what) {
  int found = 0;
  for (std::size_t at = text.find(what); at != TextView::npos; at = text.find(what, at + 1))
    ++found;
  return found;
}

class NumberRules : public ::testing::TestWithParam<LCID> {
 protected:
  int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
  bool chance(int percent) { return below(100) < percent; }

  Text digits(int most) {
    Text text;
    for (int i = below(most + 1); i > 0; --i) text += static_cast<char16_t>(u'0' + below(10));
    return text;
  }

  /// A text that is a number, nearly one, or none at all.
  Text anyText() {
    if (chance(25)) {
      const Text letters = u"0123456789+-.,eE()$ \t" + locale_.currencySymbol;
      Text text;
      for (int i = below(8); i > 0; --i) {
        text += letters[static_cast<std::size_t>(below(static_cast<int>(letters.size())))];
      }
      return text;
    }
    Text text = chance(15) ? u" " : u"";
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
    if (chance(10)) text += u" ";
    return text;
  }

  /// Texts that this platform takes for numbers and we do not, on purpose: nobody means a number by
  /// two signs, two currency symbols, an open parenthesis, or separators out of place.
  bool isOutOfShape(const Text& text) const {
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
    return afterDecimal || afterDigits || inExponent || exponent < first;
  }

  std::mt19937 random_{20261120};
  const LCID lcid_ = GetParam();
  const NumberLocale locale_{localeText(lcid_, LOCALE_SDECIMAL),
                             localeText(lcid_, LOCALE_STHOUSAND),
                             localeText(lcid_, LOCALE_SCURRENCY)};
};

TEST_P(NumberRules, TextsAreNumbersExactlyWhereThePlatformSaysSo) {
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
    EXPECT_LE(std::abs(*ours - theirs), std::abs(theirs) * 1e-14) << '[' << toUtf8(text) << ']';
  }
  EXPECT_GT(numbers, kTexts / 4);
}

TEST_P(NumberRules, AmountsAreThePlatforms) {
  int amounts = 0;
  for (int i = 0; i < kTexts; ++i) {
    const Text text = anyText();
    CY theirs{};
    const bool amount = SUCCEEDED(VarCyFromStr(Bstr(text).get(), lcid_, 0, &theirs));
    const auto ours = toMoney(text, locale_);
    if (!ours && amount && isOutOfShape(text)) continue;
    EXPECT_EQ(ours.has_value(), amount) << '[' << toUtf8(text) << ']';
    if (!amount || !ours) continue;
    // Ours is exact; this platform's conversion goes by way of a double, which shows in amounts of
    // many digits and in halves of a ten-thousandth.
    const auto apart = std::abs(static_cast<double>(ours->tenThousandths - theirs.int64));
    const auto size = std::abs(static_cast<double>(theirs.int64));
    EXPECT_LE(apart, std::max(1.0, size * 1e-15)) << '[' << toUtf8(text) << ']';
    ++amounts;
  }
  EXPECT_GT(amounts, kTexts / 4);
}

/// Where this platform's formatting is not followed: it puts the sign of a negative amount behind a
/// literal before the digits ($-5.00 for -$5.00), and drops the decimals of a number below one
/// instead of rounding it.
bool differsOnPurpose(double value, TextView format) {
  const bool wholeNumbers = format.find(u'.') == TextView::npos;
  return (value < 0 && format.starts_with(u'$')) || (wholeNumbers && std::abs(value) < 1);
}

TEST_P(NumberRules, NumbersAreFormattedAsThePlatformDoes) {
  for (const Text format :
       {u"#0.00", u"#0.00\\%", u"0", u"00", u"$#,##0.00", u"#,##0.0000", u"0.##"}) {
    for (int i = 0; i < kTexts / 6; ++i) {
      const double value = static_cast<double>(below(2000001) - 1000000) / std::pow(10.0, below(6));
      VARIANT number;
      VariantInit(&number);
      number.vt = VT_R8;
      number.dblVal = value;
      Bstr wanted{TextView(format)};
      BYTE tokens[256];
      ASSERT_EQ(VarTokenizeFormatString(wanted.get(), tokens, sizeof tokens, 0, 0, lcid_, nullptr),
                S_OK);
      BSTR made = nullptr;
      ASSERT_EQ(VarFormatFromTokens(&number, wanted.get(), tokens, 0, &made, lcid_), S_OK);
      const Text expected = Bstr::textOf(made);
      SysFreeString(made);
      if (differsOnPurpose(value, format)) continue;
      EXPECT_EQ(formatNumber(value, format, locale_), expected)
          << toUtf8(format) << " of " << std::to_string(value);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Locales, NumberRules, ::testing::Values(LCID{0x0C09}, LCID{0x0407}),
                         [](const auto& info) {
                           return info.param == 0x0407 ? "German" : "Australian";
                         });

}  // namespace
}  // namespace tillora::win32
