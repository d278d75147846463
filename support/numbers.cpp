#include "support/numbers.h"

#include <charconv>
#include <string>

#include "ui/keys.h"

namespace tillora {
namespace {

bool isWhiteSpace(char16_t c) { return c == u' ' || (c >= 0x09 && c <= 0x0D); }

/// Takes a number apart from left to right.
class NumberReader {
 public:
  NumberReader(TextView text, const NumberLocale& locale) : rest_(text), locale_(locale) {}

  std::optional<double> read() {
    while (readAffix(u'(', parenthesis_)) {
    }
    if (!readDigits()) return std::nullopt;
    readExponent();
    closing_ = !parenthesis_;
    while (readAffix(u')', closing_)) {
    }
    if (!rest_.empty() || !closing_) return std::nullopt;
    double value = 0;
    const auto [end, failure] =
        std::from_chars(plain_.data(), plain_.data() + plain_.size(), value);
    if (failure != std::errc{}) return isZero_ ? std::optional(0.0) : std::nullopt;
    return negative_ || parenthesis_ ? -value : value;
  }

 private:
  bool skip(TextView what) {
    if (what.empty() || !rest_.starts_with(what)) return false;
    rest_.remove_prefix(what.size());
    return true;
  }

  // A blank, or what may stand once before or after the digits.
  bool readAffix(char16_t bracket, bool& bracketSeen) {
    if (rest_.empty()) return false;
    const char16_t c = rest_.front();
    if (isWhiteSpace(c)) {
      rest_.remove_prefix(1);
    } else if ((c == u'+' || c == u'-') && !signed_) {
      signed_ = true;
      negative_ = c == u'-';
      rest_.remove_prefix(1);
    } else if (c == bracket && !bracketSeen) {
      bracketSeen = true;
      rest_.remove_prefix(1);
    } else if (!currency_ && skip(locale_.currencySymbol)) {
      currency_ = true;
    } else {
      return false;
    }
    return true;
  }

  bool readDigits() {
    bool any = takeDigits(locale_.thousandsSeparator);
    if (skip(locale_.decimalSeparator)) {
      plain_ += '.';
      any = takeDigits({}) || any;
    }
    if (!plain_.empty() && plain_.front() == '.') plain_.insert(plain_.begin(), '0');
    if (!plain_.empty() && plain_.back() == '.') plain_ += '0';
    isZero_ = plain_.find_first_of("123456789") == std::string::npos;
    return any;
  }

  bool takeDigits(TextView separator) {
    bool any = false;
    while (!rest_.empty()) {
      if (isDigit(rest_.front())) {
        any = true;
        plain_ += static_cast<char>(rest_.front());
        rest_.remove_prefix(1);
      } else if (!any || !skip(separator)) {
        break;
      }
    }
    return any;
  }

  void readExponent() {
    if (rest_.empty() || (rest_.front() != u'e' && rest_.front() != u'E')) return;
    TextView exponent = rest_.substr(1);
    std::string plain = "e";
    if (!exponent.empty() && (exponent.front() == u'-' || exponent.front() == u'+')) {
      if (exponent.front() == u'-') plain += '-';
      exponent.remove_prefix(1);
    }
    if (exponent.empty() || !isDigit(exponent.front())) return;
    while (!exponent.empty() && isDigit(exponent.front())) {
      plain += static_cast<char>(exponent.front());
      exponent.remove_prefix(1);
    }
    plain_ += plain;
    rest_ = exponent;
  }

  TextView rest_;
  const NumberLocale& locale_;
  std::string plain_;  // the number as from_chars reads it
  bool signed_ = false;
  bool negative_ = false;
  bool currency_ = false;
  bool parenthesis_ = false;
  bool closing_ = false;
  bool isZero_ = false;
};

}  // namespace

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool isCommandCharacter(char16_t c) { return c < 0x20 && c != ui::kBackspaceCharacter; }

std::optional<double> toNumber(TextView text, const NumberLocale& locale) {
  return NumberReader(text, locale).read();
}

}  // namespace tillora
