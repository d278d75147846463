#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/money.h"
#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora {

/// How the amount due and the tax of a sale are rounded.
class Rounding final : public OptionsTab {
 public:
  /// Indexes of cboRounding.
  enum Combo : std::uint8_t { direction, step, taxDirection };
  /// Indexes of txtRoundingCaption.
  enum Box : std::uint8_t { roundedCaption, varianceCaption, item };
  /// Items of the two combo boxes of directions.
  enum Direction : std::uint8_t { upTo, downTo };
  /// Indexes of lblRounding.
  enum Label : std::uint8_t {
    round,
    nearest,
    captionOfRounded,
    captionOfVariance,
    taxRound,
    taxNearest,
    taxStep,  ///< the smallest unit of the currency
    note
  };

  explicit Rounding(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record, OptionChanges& changes);

  ui::Frame fraTendering;
  ui::Frame fraTax;
  ui::Frame fraUnitOfMeasure;
  ui::ControlArray<ui::Label> lblRounding;
  ui::ControlArray<ui::ComboBox> cboRounding;
  ui::ControlArray<ui::TextBox> txtRoundingCaption;
  ui::ControlArray<ui::OptionButton> optRounding;  ///< by TaxRoundingMode
  ui::ControlArray<ui::CheckBox> chkRounding;      ///< by bit of RoundingFlags
  ui::CommandButton cmdBrowse;                     ///< chooses the rounding item

 private:
  void describeTendering(ui::Rows& group);
  void describeTax(ui::Rows& group);
  ui::Label& label(Label index, Text caption);
  ui::Cell directions(Combo index, Text name);

  void loadSteps();
  void selectStep(std::optional<Money> stored);
  Money chosenStep() const;
  void browse();
  std::uint8_t chosenMode() const;

  std::vector<Money> steps_;  ///< what the items of the step list stand for
  // Kept until something else is chosen: they may be outside their lists.
  std::optional<Money> storedStep_;  ///< none if none was stored or another is chosen
  std::uint8_t storedDirection_ = 0;
  std::uint8_t storedTaxDirection_ = 0;
  std::uint8_t storedMode_ = 0;
};

}  // namespace tillora
