#pragma once

#include <optional>

#include "base/numbers.h"
#include "component/contract/options_tab.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora {

/// The default margin of currency conversion entries, a percentage with an up-down beside it.
class CurrencyConversion final : public OptionsTab {
 public:
  explicit CurrencyConversion(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record, OptionChanges& changes);

  ui::Frame fraCurrencyConversion;
  ui::Label lblCurrencyConversion;
  ui::ControlArray<ui::TextBox> txtCurrencyConversion;  ///< 0 is the margin
  ui::UpDown udCurrencyConversion;                      ///< hundredths of a percent

 private:
  ui::TextBox& box() const { return txtCurrencyConversion[0]; }

  void keyPress(char16_t& key);
  void validate();
  void lostFocus();
  void spun();

  /// Shows the margin; while the box has the focus, selected and without the percent sign.
  void showMargin();
  Text marginText(TextView format) const;
  /// The number in the box; none if the text is not one.
  std::optional<Decimal> typed() const;
  void setUpDown(const Decimal& percent);

  /// The user's regional settings with the host's decimal separator.
  NumberLocale locale_;
  float margin_ = 0;            ///< percent
  int lastSet_ = 0;             ///< the up-down's value as it was last set, hundredths of a percent
  bool edited_ = false;         ///< the text was edited since the margin was shown
  bool settingUpDown_ = false;  ///< the up-down follows the text
  bool spinning_ = false;       ///< the text follows the up-down
};

}  // namespace tillora
