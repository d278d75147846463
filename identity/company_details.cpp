#include "identity/company_details.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/numbers.h"
#include "base/text_rules.h"
#include "support/modJetSQLFixup.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using ui::Key;

constexpr std::array<int, CompanyDetails::count> kMaxLength = {255, 0, 50, 50, 50, 3,
                                                               3,   3, 2,  3,  3,  3};
constexpr int kAddressLines = 4;
constexpr int kPhoneDigits = 28;
constexpr std::size_t kLongestClassWithoutToolTip = 12;

bool isDigitGroup(int index) { return index >= CompanyDetails::firstOfAcn; }

bool isFirstGroup(int index) {
  return index == CompanyDetails::firstOfAcn || index == CompanyDetails::firstOfAbn;
}

bool isLastGroup(int index) {
  return index + 1 == CompanyDetails::firstOfAbn || index + 1 == CompanyDetails::count;
}

Text lastThree(const Text& text) { return text.size() <= 3 ? text : text.substr(text.size() - 3); }

Text middle(const Text& text, std::size_t start, std::size_t length) {
  return start < text.size() ? text.substr(start, length) : Text();
}

}  // namespace

CompanyDetails::CompanyDetails(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& group = dialog.page(TabPage::general).rows().group(fraGeneral, u"Company Details");
  group.field({label(u"Na&me"), fill(box(name))});
  group.field({label(u"A&ddress"), fill(box(address).setMultiLine(true))}, kAddressLines);
  group.field({label(u"&Phone"), wide(box(phone), ui::characters(kPhoneDigits)), label(u"&Fax"),
               fill(box(fax))});
  group.field({label(u"&Email"), fill(box(email))});
  group.field({label(u"AC&N"), digits(5), digits(6), digits(7)});
  group.field({label(u"A&BN"), digits(8), digits(9), digits(10), digits(11), label(u"&Class"),
               fill(cboClass)});

  letEnterMakeLines(txtCompanyDetails[address]);
  txtCompanyDetails.on(&ui::TextBox::keyPress, [this](int i, char16_t& key) { keyPress(i, key); });
  txtCompanyDetails.on(&ui::TextBox::keyDown,
                       [this](int i, Key& key, ui::Modifiers) { keyDown(i, key); });
  txtCompanyDetails.on(&ui::TextBox::validate, [this](int i, bool&) { validate(i); });
  for (int i = firstOfAcn; i < count; ++i) {
    txtCompanyDetails[i].paste = [this, i](TextView text, bool& used) { paste(i, text, used); };
  }
  cboClass.click = [this] { showClassToolTip(); };
}

ui::Label& CompanyDetails::label(Text caption) {
  return lblGeneral.add(lblGeneral.count(), std::move(caption));
}

ui::TextBox& CompanyDetails::box(int index) {
  return txtCompanyDetails.add(index).setMaxLength(kMaxLength[static_cast<std::size_t>(index)]);
}

ui::Cell CompanyDetails::digits(int index) {
  const bool ofAcn = index < firstOfAbn;
  int before = 0;
  for (int i = ofAcn ? firstOfAcn : firstOfAbn; i < index; ++i) {
    before += txtCompanyDetails[i].maxLength();
  }
  ui::TextBox& group = box(index);
  Text name = ofAcn ? u"ACN, digits " : u"ABN, digits ";
  name.append(decimalText(before + 1)).append(u" to ");
  name.append(decimalText(before + group.maxLength()));
  group.setAccessibleName(std::move(name));
  return group;
}

void CompanyDetails::load(OptionsRecord& record) {
  const auto& box = txtCompanyDetails;
  box[name].setText(record.getOrDefault(options::CompanyName));
  box[address].setText(record.getOrDefault(options::CompanyAddress));
  box[phone].setText(record.getOrDefault(options::CompanyPhone));
  box[fax].setText(record.getOrDefault(options::CompanyFax));
  box[email].setText(record.getOrDefault(options::CompanyEmail));

  const Text acn = record.getOrDefault(options::CompanyACN);
  box[5].setText(middle(acn, 0, 3));
  box[6].setText(middle(acn, 3, 3));
  box[7].setText(lastThree(acn));

  // The last group takes the last three characters, whatever the length of the stored number.
  const Text abn = record.getOrDefault(options::CompanyABN);
  box[8].setText(middle(abn, 0, 2));
  box[9].setText(middle(abn, 2, 3));
  box[10].setText(middle(abn, 5, 3));
  box[11].setText(lastThree(abn));

  loadClasses(record.getOrDefault(options::LVClass));
}

void CompanyDetails::loadClasses(const Text& chosen) {
  cboClass.clear();
  cboClass.addItem(u"(none)");
  cboClass.setListIndex(0);
  const auto classes = dialog_.database().classTable();
  const Text visible = Text(u"Hidden=").append(jetBoolean(false));
  for (classes->findFirst(visible); !classes->noMatch(); classes->findNext(visible)) {
    const Text className = classes->text(fields::class_::Name);
    cboClass.addItem(className);
    if (className == chosen) cboClass.setListIndex(cboClass.count() - 1);
  }
  showClassToolTip();
}

void CompanyDetails::keyPress(int index, char16_t& key) {
  if (!isDigitGroup(index) || isCommandCharacter(key)) return;
  ui::TextBox& box = txtCompanyDetails[index];
  const int caret = box.selStart();
  if (key == kBackspaceCharacter) {
    if (!isFirstGroup(index) && caret == 0) moveFocusTo(index - 1, Caret::end);
    return;
  }
  if (!isDigit(key)) key = 0;
  // Typing over a full group replaces digit by digit.
  const bool full = static_cast<int>(box.text().size()) >= box.maxLength();
  if (key != 0 && full && box.selLength() == 0) box.setSelection(caret, 1);
  // The digit still goes into this box: where a key is typed is settled before. A discarded key
  // moves on as well.
  if (!isLastGroup(index) && caret == box.maxLength() - 1) moveFocusTo(index + 1, Caret::start);
}

void CompanyDetails::keyDown(int index, Key& key) {
  if (!isDigitGroup(index)) return;
  const ui::TextBox& box = txtCompanyDetails[index];
  const int end = static_cast<int>(box.text().size());
  if (key == Key::left && !isFirstGroup(index) && box.selStart() == 0) {
    key = Key::none;
    moveFocusTo(index - 1, Caret::end);
  } else if (key == Key::right && !isLastGroup(index) && box.selStart() == end) {
    key = Key::none;
    moveFocusTo(index + 1, Caret::start);
  }
}

// A pasted whole number is spread over the groups. The box itself pastes a number that fits into
// it, and any other text.
void CompanyDetails::paste(int index, TextView text, bool& used) {
  Text digits(text.substr(0, text.find_first_of(u"\r\n")));
  std::erase(digits, u' ');
  const ui::TextBox& box = txtCompanyDetails[index];
  const int kept = static_cast<int>(box.text().size()) - box.selLength();
  const bool fits = static_cast<int>(digits.size()) <= box.maxLength() - kept;
  if (fits || !box.hasFocus() || !std::ranges::all_of(digits, isDigit)) return;
  used = true;
  for (const char16_t digit : digits) index = typeDigit(index, digit);
}

int CompanyDetails::typeDigit(int index, char16_t digit) {
  ui::TextBox& box = txtCompanyDetails[index];
  keyPress(index, digit);
  const int kept = static_cast<int>(box.text().size()) - box.selLength();
  if (kept < box.maxLength()) box.setSelText(TextView(&digit, 1));
  return box.hasFocus() ? index : index + 1;
}

void CompanyDetails::moveFocusTo(int index, Caret caret) {
  ui::TextBox& neighbour = txtCompanyDetails[index];
  if (!neighbour.setFocus()) return;
  // The focus has selected the whole text; put the caret where it continues.
  neighbour.setSelection(caret == Caret::end ? static_cast<int>(neighbour.text().size()) : 0, 0);
}

void CompanyDetails::validate(int index) {
  if (!isDigitGroup(index)) return;
  ui::TextBox& box = txtCompanyDetails[index];
  if (!isNumeric(box.text(), dialog_.platform().numbers)) box.setText(u"");
}

void CompanyDetails::showClassToolTip() {
  const Text& shown = cboClass.text();
  cboClass.setToolTip(shown.size() > kLongestClassWithoutToolTip ? shown : Text());
}

void CompanyDetails::save(OptionsRecord& record) {
  const auto& box = txtCompanyDetails;
  record.set(options::CompanyName, trimBlanks(box[name].text()));
  record.set(options::CompanyAddress, trimBlanks(box[address].text()));
  record.set(options::CompanyPhone, trimBlanks(box[phone].text()));
  record.set(options::CompanyFax, trimBlanks(box[fax].text()));
  record.set(options::CompanyEmail, trimBlanks(box[email].text()));
  record.set(options::CompanyACN, box[5].text() + box[6].text() + box[7].text());
  record.set(options::CompanyABN, box[8].text() + box[9].text() + box[10].text() + box[11].text());
}

void CompanyDetails::saveClass(OptionsRecord& record) {
  record.set(options::LVClass, cboClass.listIndex() == 0 ? Text() : cboClass.text());
}

}  // namespace tillora
