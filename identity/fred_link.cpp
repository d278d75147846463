#include "identity/fred_link.h"

#include <algorithm>
#include <array>

#include "base/text_rules.h"
#include "base/whole_numbers.h"
#include "support/modSelectAllText.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

// Word for word, including the blanks at the ends and "the the".
constexpr std::array<TextView, 5> kExplanation = {
    u"FRED (Fast Reliable Easy Dispensing) is a pharmacy dispensing system from its supplier, "
    u"made for every pharmacy, from the smallest one-person dispensary to the largest pharmacy.  ",
    u"FRED integrates with Tillora via the options on this tab and FRED's ability to produce a "
    u"point-of-sale data file.  ",
    u"To have Tillora check for point-of-sale data produced by FRED, activate the the link to "
    u"FRED, set the path where Tillora can find FRED's point-of-sale data file, and set the "
    u"frequency (in seconds) that Tillora Administrator should check for new FRED data.",
    u"Once Tillora Administrator has the FRED point-of-sale data, the dispensed items for each "
    u"patient may be viewed and sold to the patient using the Patient Number function on a "
    u"Tillora terminal.",
    u"Note: Tillora Administrator must be running for the FRED data to be extracted from the FRED "
    u"point-of-sale data file."};

constexpr std::int16_t kShortest = 5;  // seconds
constexpr std::int16_t kLongest = 60;

constexpr const char16_t* kSecondsToolTip =
    u"Indicates how frequently Tillora will check for FRED data (ranges between 5-60 seconds)";

constexpr int kExplanationLines = 10;
constexpr int kExplanationWidth = 90;
constexpr ui::Length kPictureWidth = ui::twips(315);
constexpr int kIndent = 270;

std::int16_t inRange(std::int16_t seconds) { return std::clamp(seconds, kShortest, kLongest); }

Text explanationText() {
  Text text;
  for (const TextView paragraph : kExplanation) {
    if (!text.empty()) text += kLineBreak;
    text += paragraph;
  }
  return text;
}

}  // namespace

FredLink::FredLink(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Frame& page = dialog.page(TabPage::fred);
  ui::Rows& rows = page.rows();
  rows.row({wide(imgDispense, kPictureWidth), fill(label(heading, u"FRED").setBold(true))});
  ui::TextBox& about = lockedBox(explanation).setMultiLine(true);
  about.setAccessibleName(u"About FRED");
  rows.block(about, ui::lines(kExplanationLines), ui::characters(kExplanationWidth));
  rows.gap();
  rows.row({chkDispense.add(0, u"Ac&tivate link to FRED")});
  rows.row({label(labelOfDataFile, u"Path to FRED's point-of-sale data file")}, kIndent);
  rows.row({fill(lockedBox(dataFile)), cmdDispense.setCaption(u"B&rowse...")}, kIndent);
  rows.row({label(labelOfSeconds, u"Ch&eck the FRED point-of-sale data file every"),
            txtDispense.add(seconds).setMaxLength(2).setToolTip(kSecondsToolTip),
            joined(udFRED.setRange(kShortest, kLongest).setBuddy(txtDispense[seconds])),
            label(unitOfSeconds, u"seconds")},
           kIndent);
  // Not the explanation, though it comes first.
  page.setFirstFocus(chkDispense[0]);

  chkDispense[0].click = [this] { enableLink(); };
  cmdDispense.click = [this] { browse(); };
  txtDispense[seconds].keyPress = keepDigitKey;
  txtDispense[seconds].validate = [this](bool&) { validateSeconds(); };
  udFRED.change = [this] {
    // It also changes when it follows the box.
    if (udFRED.value() != inRange(secondsTyped())) spun();
  };
  // The box may still hold a stored interval beyond the end.
  udFRED.pressedAtEnd = [this] { spun(); };
}

ui::Label& FredLink::label(Label index, Text caption) {
  return lblDispenseLabels.add(index, std::move(caption));
}

ui::TextBox& FredLink::lockedBox(Box index) { return txtDispense.add(index).setLocked(true); }

void FredLink::load(OptionsRecord& record) {
  if (!dialog_.hasTab(TabPage::fred)) return;
  txtDispense[explanation].setText(explanationText());
  txtDispense[seconds].setText(decimalText(record.getOrDefault(options::FREDPollSeconds)));
  udFRED.setValue(secondsTyped());
  txtDispense[dataFile].setText(record.getOrDefault(options::FREDDataFile));
  chkDispense[0].setValue(record.getOrDefault(options::FREDLinkActive));
  enableLink();
}

void FredLink::enableLink() {
  const bool active = chkDispense[0].value();
  for (const Label label : {labelOfDataFile, labelOfSeconds, unitOfSeconds}) {
    lblDispenseLabels[label].setEnabled(active);
  }
  for (const Box box : {dataFile, seconds}) txtDispense[box].setEnabled(active);
  cmdDispense.setEnabled(active);
  udFRED.setEnabled(active);
}

void FredLink::browse() {
  const std::optional<Text> file =
      dialog_.platform().fileDialogs.open({.title = u"FRED's point-of-sale data file",
                                           .filter = u"All Files (*.*)",
                                           .pattern = u"*.*"});
  if (file) txtDispense[dataFile].setText(*file);
}

void FredLink::validateSeconds() {
  ui::TextBox& box = txtDispense[seconds];
  if (!toWholeNumber(box.text(), dialog_.platform().numbers)) {
    box.setText(decimalText(options::FREDPollSeconds.defaultValue));
  } else if (secondsTyped() != inRange(secondsTyped())) {
    box.setText(decimalText(inRange(secondsTyped())));
  }
  udFRED.setValue(secondsTyped());
}

void FredLink::spun() {
  ui::TextBox& box = txtDispense[seconds];
  if (udFRED.value() != secondsTyped()) box.setText(decimalText(udFRED.value()));
  box.setFocus();
  selectAllText(box);
}

std::int16_t FredLink::secondsTyped() const {
  const std::int64_t typed = toWholeNumber(txtDispense[seconds].text(), dialog_.platform().numbers)
                                 .value_or(options::FREDPollSeconds.defaultValue);
  return limitedTo<std::int16_t>(typed);
}

void FredLink::save(OptionsRecord& record, OptionChanges& changes) {
  if (!dialog_.hasTab(TabPage::fred)) return;
  bool differs = record.replace(options::FREDPollSeconds, secondsTyped());
  differs |= record.replace(options::FREDLinkActive, chkDispense[0].value());
  differs |= record.replace(options::FREDDataFile, txtDispense[dataFile].text());
  if (differs) changes.set(OptionChange::Dispensing);
}

}  // namespace tillora
