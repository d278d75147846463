#include "support/win32/user_locale.h"

#include <windows.h>

#include "support/win32/wide_text.h"

namespace tillora::win32 {

namespace {

Text localeText(LCTYPE what, const Text& otherwise) {
  wchar_t buffer[80];
  const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, what, buffer, 80);
  return length > 0 ? fromWide(buffer) : otherwise;
}

}  // namespace

NumberLocale userNumberLocale() {
  const NumberLocale usual;
  return {localeText(LOCALE_SDECIMAL, usual.decimalSeparator),
          localeText(LOCALE_STHOUSAND, usual.thousandsSeparator),
          localeText(LOCALE_SCURRENCY, usual.currencySymbol)};
}

}  // namespace tillora::win32
