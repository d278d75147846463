#include "operations/layby.h"

#include <utility>

#include "base/whole_numbers.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr int kNumberDigits = 12;
constexpr int kLeastTermsLines = 8;

using NumberOption = Option<OptionType::Long>;

// The number in a box, limited to the option's type. A fraction that would round to 0 becomes the
// default, in the box too; a stored 0 that was not edited stays.
std::int32_t takeNumber(ui::TextBox& box, const NumberOption& option, const NumberLocale& locale) {
  const double number = toNumber(box.text(), locale).value_or(0);
  const std::int64_t whole = toWholeNumber(box.text(), locale).value_or(option.defaultValue);
  if (number == 0 || whole != 0) return limitedTo<std::int32_t>(whole);
  box.setText(decimalText(option.defaultValue));
  return option.defaultValue;
}

// The default replaces 0 and any text that is not a number; a number beyond the option's type
// becomes the nearest one that fits. Any other text stays as typed.
void correct(ui::TextBox& box, const NumberOption& option, const NumberLocale& locale) {
  const double number = toNumber(box.text(), locale).value_or(0);
  const std::int64_t whole = toWholeNumber(box.text(), locale).value_or(0);
  const auto held = limitedTo<std::int32_t>(whole);
  if (number == 0) {
    box.setText(decimalText(option.defaultValue));
  } else if (held != whole) {
    box.setText(decimalText(held));
  }
}

}  // namespace

LaybyOptions::LaybyOptions(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& rows = dialog.page(TabPage::layby).rows();
  rows.field({label(startNumber, u"&Start Number"), number(startNumber)});
  rows.field({label(term, u"&Term"), number(term), label(termUnit, u"days")});
  rows.field(
      {label(history, u"Historical &Layby Data"), number(history), label(historyUnit, u"days")});
  rows.gap();
  rows.row({label(terms, u"T&erms and Conditions")});
  rows.block(txtLayby.add(terms).setMultiLine(true), ui::restFromLines(kLeastTermsLines));

  for (const Box box : {startNumber, term, history}) {
    txtLayby[box].keyPress = keepDigitKey;
    txtLayby[box].validate = [this, box](bool&) { validate(box); };
  }
  letEnterMakeLines(txtLayby[terms]);
}

ui::Label& LaybyOptions::label(int index, Text caption) {
  return lblLayby.add(index, std::move(caption));
}

ui::Cell LaybyOptions::number(Box index) {
  return wide(txtLayby.add(index), ui::characters(kNumberDigits));
}

void LaybyOptions::load(OptionsRecord& record) {
  const auto& box = txtLayby;
  box[startNumber].setText(decimalText(record.getOrDefault(options::LaybyStartNumber)));
  box[term].setText(decimalText(record.getOrDefault(options::LaybyTermDays)));
  box[terms].setText(record.getOrDefault(options::LaybyTermsText));
  box[history].setText(decimalText(record.getOrDefault(options::LaybyHistoryDays)));
}

void LaybyOptions::validate(int index) {
  const NumberLocale& locale = dialog_.platform().numbers;
  ui::TextBox& box = txtLayby[index];
  if (index == startNumber) correct(box, options::LaybyStartNumber, locale);
  if (index == term) correct(box, options::LaybyTermDays, locale);
  if (index == history) correct(box, options::LaybyHistoryDays, locale);
}

void LaybyOptions::save(OptionsRecord& record) {
  const NumberLocale& locale = dialog_.platform().numbers;
  const auto& box = txtLayby;
  record.set(options::LaybyStartNumber,
             takeNumber(box[startNumber], options::LaybyStartNumber, locale));
  record.set(options::LaybyTermDays, takeNumber(box[term], options::LaybyTermDays, locale));
  record.set(options::LaybyTermsText, box[terms].text());
  record.set(options::LaybyHistoryDays,
             takeNumber(box[history], options::LaybyHistoryDays, locale));
}

}  // namespace tillora
