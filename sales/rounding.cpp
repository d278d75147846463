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

using ui::Cell;

// In the smallest unit of the currency; how many are offered depends on its decimal places.
constexpr std::array kSteps = {1,   2,   5,   10,   20,   25,   50,   100,
                               200, 250, 500, 1000, 2000, 2500, 5000, 10000};
constexpr std::array<std::size_t, 5> kStepCounts = {16, 4, 8, 12, 16};
constexpr int kUsualStep = 2;
constexpr int kMostDecimalPlaces = 4;
constexpr std::int16_t kUsualDecimalPlaces = 2;

constexpr int kDirectionWidth = 1200;
constexpr int kStepWidth = 1500;
constexpr int kReportCaptionWidth = 3600;

// What a step is worth: the smallest unit is a ten-thousandth times 10 for each decimal place less.
Money amountOf(int step, int decimalPlaces) {
  std::int64_t amount = step;
  for (int i = decimalPlaces; i < kMostDecimalPlaces; ++i) amount *= 10;
  return {amount};
}

void addDirections(ui::ComboBox& combo) {
  combo.addItem(u"up to");
  combo.addItem(u"down to");
}

void select(ui::ComboBox& combo, std::uint8_t stored) {
  combo.setListIndex(stored < combo.count() ? stored : -1);
}

std::uint8_t chosen(const ui::ComboBox& combo, std::uint8_t stored) {
  return combo.listIndex() < 0 ? stored : static_cast<std::uint8_t>(combo.listIndex());
}

}  // namespace

Rounding::Rounding(OptionsDialog& dialog)
    : OptionsTab(dialog),
      fraTendering(dialog.page(TabPage::rounding).add<ui::Frame>(u"Tendering")),
      fraTax(dialog.page(TabPage::rounding).add<ui::Frame>(u"Tax")),
      fraUnitOfMeasure(dialog.page(TabPage::rounding).add<ui::Frame>(u"Unit of Measure Items")),
      cmdBrowse(makeTendering()) {
  makeTax();
  makeUnitOfMeasure();
  layOut();
  cboRounding[step].click = [this] { storedStep_.reset(); };
  cmdBrowse.click = [this] { browse(); };
}

ui::CommandButton& Rounding::makeTendering() {
  lblRounding.set(round, fraTendering.add<ui::Label>(u"&Round"));
  addDirections(cboRounding.set(direction, fraTendering.add<ui::ComboBox>()));
  lblRounding.set(nearest, fraTendering.add<ui::Label>(u"the &nearest"));
  cboRounding.set(step, fraTendering.add<ui::ComboBox>());
  auto& browseButton = fraTendering.add<ui::CommandButton>(u"Rounding &Item");
  browseButton.setToolTip(u"Choose an item from a list");
  auto& itemBox = txtRoundingCaption.set(item, fraTendering.add<ui::TextBox>());
  itemBox.setLocked(true).setAccessibleName(u"Rounding Item");
  lblRounding.set(captionOfRounded, fraTendering.add<ui::Label>(u"Caption for 'roun&ded' amount"));
  txtRoundingCaption.set(roundedCaption, fraTendering.add<ui::TextBox>());
  lblRounding.set(captionOfVariance,
                  fraTendering.add<ui::Label>(u"Caption for 'rounding variance' a&mount"));
  txtRoundingCaption.set(varianceCaption, fraTendering.add<ui::TextBox>());
  return browseButton;
}

void Rounding::makeTax() {
  constexpr std::array kModes = {u"Round &tax per line item before any quantity multiplications",
                                 u"Round tax &per line item after any quantity multiplications",
                                 u"Round tax at the &end of the transaction", u"Do not round ta&x"};
  lblRounding.set(taxRound, fraTax.add<ui::Label>(u"Ro&und"));
  addDirections(cboRounding.set(taxDirection, fraTax.add<ui::ComboBox>()));
  lblRounding.set(taxNearest, fraTax.add<ui::Label>(u"the nearest"));
  lblRounding.set(taxStep, fraTax.add<ui::Label>());
  // Shown from the last to the first.
  for (std::size_t mode = kModes.size(); mode-- > 0;) {
    optRounding.set(static_cast<int>(mode), fraTax.add<ui::OptionButton>(kModes[mode]));
  }
}

void Rounding::makeUnitOfMeasure() {
  chkRounding.set(
      0, fraUnitOfMeasure.add<ui::CheckBox>(u"Recalculate tax after Unit of Measure calculations"));
  lblRounding.set(note, fraUnitOfMeasure.add<ui::Label>(
                            u"NOTE: Activating this option will potentially cause your tax "
                            u"component per item to be inconsistent."));
}

void Rounding::layOut() {
  const auto& label = lblRounding;
  ui::Rows page = ui::Rows::onPage(dialog_.page(TabPage::rounding));

  ui::Rows tendering = page.group(fraTendering);
  tendering.labelColumn(
      {&label[round], &cmdBrowse, &label[captionOfRounded], &label[captionOfVariance]});
  tendering.field(label[round], {{cboRounding[direction], kDirectionWidth},
                                 {label[nearest]},
                                 {cboRounding[step], kStepWidth}});
  tendering.field(cmdBrowse, {{txtRoundingCaption[item], Cell::kFill}});
  tendering.field(label[captionOfRounded],
                  {{txtRoundingCaption[roundedCaption], kReportCaptionWidth}});
  tendering.field(label[captionOfVariance],
                  {{txtRoundingCaption[varianceCaption], kReportCaptionWidth}});
  page.endGroup(fraTendering, tendering);

  ui::Rows tax = page.group(fraTax);
  tax.row({{label[taxRound]},
           {cboRounding[taxDirection], kDirectionWidth},
           {label[taxNearest]},
           {label[taxStep], Cell::kFill}});
  for (int mode = optRounding.upperBound(); mode >= 0; --mode) {
    tax.row({{optRounding[mode], Cell::kFill}});
  }
  page.endGroup(fraTax, tax);

  ui::Rows unitOfMeasure = page.group(fraUnitOfMeasure);
  unitOfMeasure.row({{chkRounding[0], Cell::kFill}});
  unitOfMeasure.row({{label[note], Cell::kFill}});
  page.endGroup(fraUnitOfMeasure, unitOfMeasure);
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
  // A host without a format still gets a list that can be read.
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
