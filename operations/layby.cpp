#include "operations/layby.h"

#include <algorithm>
#include <utility>

#include "base/whole_numbers.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using ui::Cell;

constexpr int kNumberWidth = 1200;

using NumberOption = Option<OptionType::Long>;

// What a box says, as the option holds it. A fraction that would come to 0 becomes the default in
// the box, too; a stored 0 that nobody touched stays.
std::int32_t takeNumber(ui::TextBox& box, const NumberOption& option, const NumberLocale& locale) {
  const double number = toNumber(box.text(), locale).value_or(0);
  const std::int64_t whole = toWholeNumber(box.text(), locale).value_or(option.defaultValue);
  if (number == 0 || whole != 0) return limitedTo<std::int32_t>(whole);
  box.setText(decimalText(option.defaultValue));
  return option.defaultValue;
}

// The default replaces what is no number and 0; the nearest number that the option holds replaces
// one beyond. Any other text stays as it was typed.
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
  addBox(startNumber, u"&Start Number");
  addBox(term, u"&Term");
  addUnit(termUnit);
  addBox(history, u"Historical &Layby Data");
  addUnit(historyUnit);
  addBox(terms, u"T&erms and Conditions");
  layOut();

  for (const Box box : {startNumber, term, history}) {
    txtLayby[box].keyPress = keepDigitKey;
    txtLayby[box].validate = [this, box](bool&) { validate(box); };
  }
  letEnterMakeLines(txtLayby[terms]);
  stretchTerms();
  dialog_.page(TabPage::layby).resized = [this] { stretchTerms(); };
}

void LaybyOptions::addBox(Box box, Text caption) {
  ui::Frame& page = dialog_.page(TabPage::layby);
  lblLayby.set(box, page.add<ui::Label>(std::move(caption)));
  txtLayby.set(box, page.add<ui::TextBox>()).setMultiLine(box == terms);
}

void LaybyOptions::addUnit(Unit unit) {
  lblLayby.set(unit, dialog_.page(TabPage::layby).add<ui::Label>(u"days"));
}

void LaybyOptions::layOut() {
  ui::Rows rows = ui::Rows::onPage(dialog_.page(TabPage::layby));
  const auto& label = lblLayby;
  const auto& box = txtLayby;
  rows.labelColumn({&label[startNumber], &label[term], &label[history]});
  rows.field(label[startNumber], {{box[startNumber], kNumberWidth}});
  rows.field(label[term], {{box[term], kNumberWidth}, {label[termUnit]}});
  rows.field(label[history], {{box[history], kNumberWidth}, {label[historyUnit]}});
  rows.gap();
  rows.row({{label[terms]}});
  rows.block(box[terms], 0);
}

void LaybyOptions::stretchTerms() {
  ui::TextBox& box = txtLayby[terms];
  const ui::Size page = dialog_.page(TabPage::layby).clientSize();
  const ui::Size pixel = box.form().screen().twipsPerPixel();
  ui::Rect place = box.bounds();
  place.width = std::max(0, page.width - 2 * place.left);
  place.height = std::max(0, page.height - place.top - pixel.height * (place.left / pixel.width));
  box.setBounds(place);
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
