#include "sales/currency_conversion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/number_format.h"
#include "base/numbers.h"
#include "support/modSelectAllText.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr int kLargest = 9999;  // hundredths of a percent
constexpr int kStep = 10;
constexpr TextView kPlain = u"#0.00";
constexpr TextView kPercent = u"#0.00\\%";
constexpr int kMarginCharacters = 10;

/// Sets a flag during its lifetime.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

int roundDown(int value, int step) {
  const int rest = value % step;
  return value - (rest < 0 ? rest + step : rest);
}

// A click moves the value by one hundredth; this takes it on to a whole step, or to an end.
int snapped(int value, int before) {
  if (value > before || value == kLargest) {
    value += kStep - 1;
    if (value > kLargest) return kLargest;
  }
  return value >= -kLargest + kStep - 1 ? roundDown(value, kStep) : -kLargest;
}

}  // namespace

CurrencyConversion::CurrencyConversion(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& page = dialog.page(TabPage::currency).rows();
  page.group(fraCurrencyConversion, u"Currency Conversion")
      .field({lblCurrencyConversion.setCaption(u"Default % &Margin"),
              wide(txtCurrencyConversion.add(0).setAlignment(ui::Alignment::right),
                   ui::characters(kMarginCharacters)),
              joined(udCurrencyConversion.setRange(-kLargest, kLargest).setBuddy(box()))});

  box().gotFocus = [this] { showMargin(); };
  box().lostFocus = [this] { lostFocus(); };
  box().keyPress = [this](char16_t& key) { keyPress(key); };
  box().change = [this] { edited_ = true; };
  box().validate = [this](bool&) { validate(); };
  udCurrencyConversion.change = [this] { spun(); };
}

void CurrencyConversion::load(OptionsRecord& record) {
  locale_ = dialog_.platform().numbers;
  const Text separator = dialog_.settings().decimalSeparator();
  if (!separator.empty()) locale_.decimalSeparator = separator;
  // One character cannot be both; without thousands separators no number reads as another one.
  if (locale_.thousandsSeparator == locale_.decimalSeparator) locale_.thousandsSeparator.clear();

  const float stored = record.getOrDefault(options::DefaultCurrencyMargin);
  margin_ = std::isfinite(stored) ? stored : 0;
  showMargin();
  setUpDown(asWritten(margin_));
}

void CurrencyConversion::keyPress(char16_t& key) {
  if (isCommandCharacter(key) || key == kBackspaceCharacter) return;
  const Text typed(1, key);
  const bool onlyOnce = typed == locale_.decimalSeparator || key == u'-';
  if (!onlyOnce) {
    if (!isDigit(key)) key = 0;
    return;
  }
  const bool isThere = box().text().find(typed) != Text::npos;
  const bool isReplaced = box().selText().find(typed) != Text::npos;
  if (isThere && !isReplaced) key = 0;
}

void CurrencyConversion::validate() {
  // The margin may have more decimals than are shown: an unedited text stands for all of them.
  const std::optional<Decimal> number = edited_ ? typed() : asWritten(margin_);
  const std::optional<double> percent = number ? toDouble(*number) : std::nullopt;
  if (percent) {
    const double lowest = udCurrencyConversion.minimum() / 100.0;
    const double highest = udCurrencyConversion.maximum() / 100.0;
    if (!spinning_) setUpDown(*number);
    const auto limited = static_cast<float>(std::clamp(*percent, lowest, highest));
    if (limited != margin_) dialog_.markChanged();
    margin_ = limited;
  }
  showMargin();
}

void CurrencyConversion::lostFocus() {
  // Cancel validates nothing: an edited text stays as it is.
  if (!edited_) showMargin();
}

void CurrencyConversion::spun() {
  if (settingUpDown_ || spinning_) return;
  const Flag guard(spinning_);
  const int value = snapped(udCurrencyConversion.value(), lastSet_);
  udCurrencyConversion.setValue(value);
  margin_ = static_cast<float>(value) / 100;
  showMargin();
  box().setFocus();
  showMargin();
  lastSet_ = value;
}

void CurrencyConversion::showMargin() {
  const bool focused = box().hasFocus();
  box().reformat(marginText(focused ? kPlain : kPercent));
  if (focused) selectAllText(box());
  edited_ = false;
}

Text CurrencyConversion::marginText(TextView format) const {
  return formatNumber(toDouble(asWritten(margin_)).value_or(0), format, locale_);
}

std::optional<Decimal> CurrencyConversion::typed() const {
  TextView number = withoutNumberBlanks(box().text());
  if (number.empty()) return Decimal{.digits = "0"};
  if (number.ends_with(u'%')) number.remove_suffix(1);
  return toDecimal(number, locale_);
}

void CurrencyConversion::setUpDown(const Decimal& percent) {
  const Flag guard(settingUpDown_);
  const std::int64_t beyond = percent.negative ? -kLargest : kLargest;
  const std::int64_t hundredths = toFixedPoint(percent, 2).value_or(beyond);
  lastSet_ = static_cast<int>(std::clamp<std::int64_t>(hundredths, -kLargest, kLargest));
  udCurrencyConversion.setValue(lastSet_);
}

void CurrencyConversion::save(OptionsRecord& record, OptionChanges& changes) {
  if (record.replace(options::DefaultCurrencyMargin, margin_)) {
    changes.set(OptionChange::CurrencyMargin);
  }
}

}  // namespace tillora
