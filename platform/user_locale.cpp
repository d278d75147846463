#include "platform/user_locale.h"

#include <array>
#include <cstddef>

#include "com/wide_text.h"

namespace tillora::win32 {
namespace {

// The positions of the symbol ($) and the sign around an amount (n), by the platform's numbers for
// these orders.
constexpr std::array<TextView, 4> kPositiveOrders = {u"$n", u"n$", u"$ n", u"n $"};
constexpr std::array<TextView, 16> kNegativeOrders = {
    u"($n)", u"-$n",  u"$-n",  u"$n-",  u"(n$)", u"-n$",  u"n-$",   u"n$-",
    u"-n $", u"-$ n", u"n $-", u"$ n-", u"$ -n", u"n- $", u"($ n)", u"(n $)"};

constexpr std::size_t kMostDecimals = 9;

Text localeText(LCID locale, LCTYPE what, const Text& otherwise) {
  wchar_t buffer[80];
  const int length = GetLocaleInfoW(locale, what, buffer, 80);
  return length > 0 ? fromWide(buffer) : otherwise;
}

// The registry may hold any number.
std::size_t localeNumber(LCID locale, LCTYPE what, std::size_t largest, std::size_t otherwise) {
  DWORD number = 0;
  const int length =
      GetLocaleInfoW(locale, what | LOCALE_RETURN_NUMBER, reinterpret_cast<wchar_t*>(&number),
                     sizeof number / sizeof(wchar_t));
  return length > 0 && number <= largest ? number : otherwise;
}

Text section(TextView order, TextView amount, TextView symbol) {
  Text text;
  for (const char16_t c : order) {
    if (c == u'n') {
      text += amount;
    } else if (c == u'$') {
      for (const char16_t literal : symbol) text += {u'\\', literal};
    } else {
      text += c;
    }
  }
  return text;
}

Text currencyFormat(LCID locale, TextView symbol) {
  const std::size_t decimals = localeNumber(locale, LOCALE_ICURRDIGITS, kMostDecimals, 2);
  const std::size_t positive =
      localeNumber(locale, LOCALE_ICURRENCY, kPositiveOrders.size() - 1, 0);
  const std::size_t negative = localeNumber(locale, LOCALE_INEGCURR, kNegativeOrders.size() - 1, 1);
  const Text amount = decimals == 0 ? Text(u"#,##0") : u"#,##0." + Text(decimals, u'0');
  return section(kPositiveOrders[positive], amount, symbol) + u';' +
         section(kNegativeOrders[negative], amount, symbol);
}

}  // namespace

NumberLocale numberLocale(LCID locale) {
  NumberLocale numbers;
  const auto replace = [&](Text& text, LCTYPE what) { text = localeText(locale, what, text); };
  replace(numbers.decimalSeparator, LOCALE_SDECIMAL);
  replace(numbers.thousandsSeparator, LOCALE_STHOUSAND);
  replace(numbers.currencySymbol, LOCALE_SCURRENCY);
  replace(numbers.currencyDecimalSeparator, LOCALE_SMONDECIMALSEP);
  replace(numbers.currencyThousandsSeparator, LOCALE_SMONTHOUSANDSEP);
  numbers.currencyFormat = currencyFormat(locale, numbers.currencySymbol);
  return numbers;
}

NumberLocale userNumberLocale() { return numberLocale(LOCALE_USER_DEFAULT); }

}  // namespace tillora::win32
