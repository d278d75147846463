#include "sales/rounding.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text_rules.h"
#include "sales/frmBrowseItems.h"
#include "support/check_box_bits.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

// In the smallest unit of the currency. How many are offered depends on its decimal places: with
// any they end at 1, without at 10000.
constexpr std::array kSteps = {1,   2,   5,   10,   20,   25,   50,   100,
                               200, 250, 500, 1000, 2000, 2500, 5000, 10000};
constexpr std::array<std::size_t, 5> kStepCounts = {16, 4, 8, 12, 16};
constexpr int kUsualStep = 2;
constexpr int kMostDecimalPlaces = 4;
constexpr std::int16_t kUsualDecimalPlaces = 2;

constexpr int kStepCharacters = 14;
constexpr int kCaptionCharacters = 30;

// The amount of a step, given in the smallest unit of a currency with this many decimal places.
Money amountOf(int step, int decimalPlaces) {
  std::int64_t amount = step;
  for (int i = decimalPlaces; i < kMostDecimalPlaces; ++i) amount *= 10;
  return {amount};
}

void select(ui::ComboBox& combo, std::uint8_t stored) {
  combo.setListIndex(stored < combo.count() ? stored : -1);
}

std::uint8_t chosen(const ui::ComboBox& combo, std::uint8_t stored) {
  return combo.listIndex() < 0 ? stored : static_cast<std::uint8_t>(combo.listIndex());
}

}  // namespace

Rounding::Rounding(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& page = dialog.page(TabPage::rounding).rows();
  describeTendering(page.group(fraTendering, u"Tendering"));
  describeTax(page.group(fraTax, u"Tax"));
  ui::Rows& unitOfMeasure = page.group(fraUnitOfMeasure, u"Unit of Measure Items");
  unitOfMeasure.row(
      {fill(chkRounding.add(0, u"Recalculate tax after Unit of Measure calculations"))});
  unitOfMeasure.row({fill(label(note,
                                u"NOTE: Activating this option will potentially cause your tax "
                                u"component per item to be inconsistent."))});

  cboRounding[step].click = [this] { storedStep_.reset(); };
  cmdBrowse.click = [this] { browse(); };
}

void Rounding::describeTendering(ui::Rows& group) {
  group.field({label(round, u"&Round"), directions(direction, u"Round up or down to"),
               label(nearest, u"the &nearest"),
               wide(cboRounding.add(step).setAccessibleName(u"Round to the nearest"),
                    ui::characters(kStepCharacters))});
  group.field({cmdBrowse.setCaption(u"Rounding &Item").setToolTip(u"Choose an item from a list"),
               fill(txtRoundingCaption.add(item).setLocked(true).setAccessibleName(
                   u"Chosen Rounding Item"))});
  group.field({label(captionOfRounded, u"Caption for 'roun&ded' amount"),
               wide(txtRoundingCaption.add(roundedCaption), ui::characters(kCaptionCharacters))});
  group.field({label(captionOfVariance, u"Caption for 'rounding variance' a&mount"),
               wide(txtRoundingCaption.add(varianceCaption), ui::characters(kCaptionCharacters))});
}

void Rounding::describeTax(ui::Rows& group) {
  constexpr std::array kModes = {u"Round &tax per line item before any quantity multiplications",
                                 u"Round tax &per line item after any quantity multiplications",
                                 u"Round tax at the &end of the transaction", u"Do not round ta&x"};
  group.row({label(taxRound, u"Ro&und"), directions(taxDirection, u"Round tax up or down to"),
             label(taxNearest, u"the nearest"), fill(label(taxStep, Text()))});
  // Shown from the last to the first.
  for (std::size_t mode = kModes.size(); mode-- > 0;) {
    group.row({fill(optRounding.add(static_cast<int>(mode), kModes[mode]))});
  }
}

ui::Label& Rounding::label(Label index, Text caption) {
  return lblRounding.add(index, std::move(caption));
}

ui::Cell Rounding::directions(Combo index, Text name) {
  ui::ComboBox& combo = cboRounding.add(index);
  combo.setAccessibleName(std::move(name));
  combo.addItem(u"up to");
  combo.addItem(u"down to");
  return combo;
}

void Rounding::load(OptionsRecord& record) {
  storedDirection_ = record.getOrDefault(options::RoundingDirection);
  select(cboRounding[direction], storedDirection_);
  loadSteps();
  const std::optional<Money> storedStep = record.get(options::RoundingStep);
  selectStep(storedStep);
  storedStep_ = storedStep;
  txtRoundingCaption[roundedCaption].setText(record.getOrDefault(options::RoundedCaption));
  txtRoundingCaption[varianceCaption].setText(
      record.getOrDefault(options::RoundingVarianceCaption));
  txtRoundingCaption[item].setText(record.getOrDefault(options::RoundingItem));
  showBits(chkRounding, record.getOrDefault(options::RoundingFlags));
  storedMode_ = record.getOrDefault(options::TaxRoundingMode);
  if (storedMode_ < optRounding.count()) optRounding[storedMode_].setValue(true);
  storedTaxDirection_ = record.getOrDefault(options::TaxRoundingDirection);
  select(cboRounding[taxDirection], storedTaxDirection_);
}

void Rounding::loadSteps() {
  SettingsStore& settings = dialog_.settings();
  const int places = std::clamp<int>(settings.decimalPlaces().value_or(kUsualDecimalPlaces), 0,
                                     kMostDecimalPlaces);
  Text format = settings.currencyFormat();
  // A host without a format still gets a readable list.
  if (format.empty())
    format = places == 0 ? Text(u"0") : u"0." + Text(static_cast<std::size_t>(places), u'0');
  const auto shown = [&](Money amount) {
    return trimBlanks(formatMoney(amount, format, dialog_.platform().numbers));
  };

  steps_.clear();
  cboRounding[step].clear();
  for (std::size_t i = 0; i < kStepCounts[static_cast<std::size_t>(places)]; ++i) {
    steps_.push_back(amountOf(kSteps[i], places));
    cboRounding[step].addItem(shown(steps_.back()));
  }
  lblRounding[taxStep].setCaption(shown(steps_.front()));
}

void Rounding::selectStep(std::optional<Money> stored) {
  ui::ComboBox& list = cboRounding[step];
  int found = kUsualStep;
  if (stored) {
    const auto own = std::ranges::find(steps_, *stored);
    const auto shown = std::ranges::find_if(list.items(), [&](const Text& text) {
      return toMoney(text, dialog_.platform().numbers) == stored;
    });
    if (own != steps_.end()) {
      found = static_cast<int>(own - steps_.begin());
    } else if (shown != list.items().end()) {
      found = static_cast<int>(shown - list.items().begin());
    }
  }
  list.setListIndex(found);
}

Money Rounding::chosenStep() const {
  return storedStep_.value_or(steps_.at(static_cast<std::size_t>(cboRounding[step].listIndex())));
}

void Rounding::browse() {
  frmBrowseItems browser(fraTendering.form().screen());
  browser.DBJetObject = dialog_.host().database;
  browser.SettingsObject = dialog_.host().settings;
  browser.BrowseType = frmBrowseItems::roundingItem;
  browser.SelectedValue = txtRoundingCaption[item].text();
  browser.showModal();
  txtRoundingCaption[item].setText(browser.SelectedValue);
}

std::uint8_t Rounding::chosenMode() const {
  for (const auto& [mode, button] : optRounding) {
    if (button->value()) return static_cast<std::uint8_t>(mode);
  }
  return storedMode_;
}

void Rounding::save(OptionsRecord& record, OptionChanges& changes) {
  const auto& caption = txtRoundingCaption;
  bool differs = record.replace(options::RoundingStep, chosenStep());

  const std::int32_t flags = record.getOrZero(options::RoundingFlags);
  differs |= saveBits(record, options::RoundingFlags, tickedBits(chkRounding)) != flags;

  differs |= record.replace(options::RoundedCaption, caption[roundedCaption].text());
  differs |= record.replace(options::RoundingItem, caption[item].text());
  differs |= record.replace(options::RoundingVarianceCaption, caption[varianceCaption].text());
  differs |= record.replace(options::TaxRoundingMode, chosenMode());
  differs |= record.replace(options::TaxRoundingDirection,
                            chosen(cboRounding[taxDirection], storedTaxDirection_));
  differs |=
      record.replace(options::RoundingDirection, chosen(cboRounding[direction], storedDirection_));
  if (differs) changes.set(OptionChange::Rounding);
}

}  // namespace tillora
