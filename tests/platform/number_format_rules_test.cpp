// Our number formats against the platform's own formatting, over generated formats.
#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>

#include "base/number_format.h"
#include "com/bstr.h"
#include "com/wide_text.h"
#include "platform/user_locale.h"
#include "tests/testing/random_choices.h"

namespace tillora::win32 {
namespace {

const int kFormats = testing::isLongRun() ? 50000 : 1000;
constexpr int kValuesOfEach = 4;

/// One section of a format, in its parts.
struct Section {
  Text before;
  Text digits;
  Text after;

  Text text() const { return before + digits + after; }
  bool hasDecimals() const {
    const std::size_t point = digits.find(u'.');
    return point != Text::npos && digits.size() > point + 1;
  }
};

class NumberFormatRules : public ::testing::TestWithParam<LCID> {
 protected:
  int below(int bound) { return random_.below(bound); }
  bool chance(int percent) { return random_.chance(percent); }
  TextView oneOf(std::initializer_list<TextView> texts) {
    return texts.begin()[below(static_cast<int>(texts.size()))];
  }

  Text literals(int most) {
    Text text;
    for (int i = below(most + 1); i > 0; --i) {
      text += oneOf({u"$", u" ", u"kr", u"\\x", u"\\.", u"\"q.0;\"", u"\"\\\"", u"\"\"", u"(", u")",
                     u"-", u"\u20ac", u"\u00a0"});
    }
    return text;
  }

  /// Leaves out formats with which the platform under test loses digits: a # behind a 0 before the
  /// point (0# of 10 is 1), a # behind a comma (#,# of 10 is 1), and a point without a placeholder
  /// before it (.00 of 1.5 is .50). Leaves out a percent sign without one, too (it multiplies
  /// nothing).
  Section anySection() {
    Section section;
    section.before = literals(2);
    section.digits = oneOf({u"0", u"#", u"00", u"000000", u"#0", u"##", u"#,##0", u"#,###", u"0,0",
                            u"0,000", u"0,", u"#,##0,"});
    if (chance(60)) {
      section.digits += u'.';
      section.digits += oneOf({u"", u"0", u"00", u"0000", u"#", u"##", u"0#", u"00##"});
    }
    section.after = literals(2);
    if (chance(20)) section.after.append(oneOf({u"%", u"%%", u" %"}));
    if (chance(20)) section.after.append(oneOf({u".", u"kr.", u"..", u". "}));
    return section;
  }

  double anyValue() {
    if (chance(20)) return 0;
    return static_cast<double>(below(2000001) - 1000000) / std::pow(10.0, below(6));
  }

  Text platformText(double value, TextView format) const {
    VARIANT number;
    VariantInit(&number);
    number.vt = VT_R8;
    number.dblVal = value;
    Bstr wanted{format};
    BYTE tokens[256];
    EXPECT_EQ(VarTokenizeFormatString(wanted.get(), tokens, sizeof tokens, 0, 0, lcid_, nullptr),
              S_OK);
    BSTR made = nullptr;
    EXPECT_EQ(VarFormatFromTokens(&number, wanted.get(), tokens, 0, &made, lcid_), S_OK);
    Text text = Bstr::textOf(made);
    SysFreeString(made);
    return text;
  }

  static Text withoutMinus(Text text) {
    std::erase(text, u'-');
    return text;
  }

  /// Compares the texts of a value. The platform under test is not followed where it puts the sign
  /// behind literals before the digits ($-5.00 for -$5.00) or before what rounds to zero, nor where
  /// it cuts a number below one to whole digits instead of rounding it.
  void compare(double value, const Text& format, const Section& chosen) const {
    const bool belowOne = value != 0 && std::abs(value) < 1;
    if (belowOne && !chosen.hasDecimals()) return;
    Text ours = formatNumber(value, format, locale_);
    Text theirs = platformText(value, format);
    if (value < 0 && (belowOne || !chosen.before.empty())) {
      ours = withoutMinus(ours);
      theirs = withoutMinus(theirs);
    }
    EXPECT_EQ(ours, theirs) << toUtf8(format) << " of " << std::to_string(value);
  }

  testing::RandomChoices random_;
  const LCID lcid_ = GetParam();
  const NumberLocale locale_ = numberLocale(lcid_);
};

TEST_P(NumberFormatRules, OneSectionIsWrittenAsThePlatformDoes) {
  for (int i = 0; i < kFormats; ++i) {
    Section section = anySection();
    if (chance(10)) section.before += u',';
    for (int j = 0; j < kValuesOfEach; ++j) compare(anyValue(), section.text(), section);
  }
}

TEST_P(NumberFormatRules, SectionsAreChosenAsThePlatformDoes) {
  for (int i = 0; i < kFormats; ++i) {
    const Section positive = anySection();
    const Section negative = chance(20) ? Section{} : anySection();
    const Section zero = chance(20) ? Section{} : anySection();
    const bool three = chance(60);
    const Text format =
        positive.text() + u';' + negative.text() + (three ? u';' + zero.text() : Text());
    for (int j = 0; j < kValuesOfEach; ++j) {
      const double value = anyValue();
      const Section& named = value < 0 ? negative : value > 0 || !three ? positive : zero;
      compare(value, format, named.text().empty() ? positive : named);
    }
  }
}

TEST_P(NumberFormatRules, NamesMeanTheSameAsOnThePlatform) {
  const Section twoDecimals{{}, u"0.00", {}};
  SCOPED_TRACE("seed " + std::to_string(random_.seed()));
  for (const Text name : {u"Standard", u"Fixed", u"Percent", u"fIXED", u"STANDARD", u"percent"}) {
    for (int i = 0; i < kFormats; ++i) compare(anyValue(), name, twoDecimals);
  }
  for (const Text name : {u"General Number", u"general number", u""}) {
    for (int i = 0; i < kFormats; ++i) {
      const double value = anyValue() * std::pow(10.0, below(40) - 20);
      // Platforms differ below; no amount of money is that small.
      if (value != 0 && std::abs(value) < 0.0001) continue;
      // The platform under test writes a point in texts with an exponent, whatever the locale.
      Text theirs = platformText(value, name);
      if (theirs.find(u'E') != Text::npos) {
        std::ranges::replace(theirs, u'.', locale_.decimalSeparator.front());
      }
      EXPECT_EQ(formatNumber(value, name, locale_), theirs) << value;
    }
  }
}

// By this name the platform under test writes amounts as in the United States, whatever the locale;
// its currency formatting knows better.
TEST_P(NumberFormatRules, CurrencyIsThatOfTheRegionalSettings) {
  for (int i = 0; i < kFormats; ++i) {
    const double value = static_cast<double>(below(2000001) - 1000000) / 100;
    wchar_t buffer[100] = L"";
    const std::string plain = std::to_string(value);
    ASSERT_GT(GetCurrencyFormatW(lcid_, 0, std::wstring(plain.begin(), plain.end()).c_str(),
                                 nullptr, buffer, 100),
              0);
    if (std::abs(value) < 1) continue;  // rounded to zero, it has no sign
    // Where rounding adds a digit, the platform under test leaves out its separator.
    if (std::abs(value) < 1000 && std::abs(value) >= 999.5) continue;
    EXPECT_EQ(formatNumber(value, u"Currency", locale_), fromWide(buffer)) << value;
  }
}

INSTANTIATE_TEST_SUITE_P(Locales, NumberFormatRules,
                         ::testing::Values(0x0C09, 0x0407, 0x040C, 0x0807, 0x100C, 0x0406, 0x0409,
                                           0x0411, 0x0413, 0x0414, 0x0416),
                         [](const auto& info) { return "Lcid" + std::to_string(info.param); });

}  // namespace
}  // namespace tillora::win32
