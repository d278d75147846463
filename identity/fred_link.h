#pragma once

#include <cstdint>

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace tillora {

/// The link to FRED, a pharmacy dispensing system: whether it is active, the data file that the
/// Administrator looks at, and how often. If the dialog does not have the tab, nothing is loaded or
/// saved.
class FredLink final : public OptionsTab {
 public:
  /// Indexes of txtDispense.
  enum Box : std::uint8_t { explanation, dataFile, seconds };
  /// Indexes of lblDispenseLabels.
  enum Label : std::uint8_t { unitOfSeconds, labelOfSeconds, heading, labelOfDataFile };

  explicit FredLink(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record, OptionChanges& changes);

  ui::ControlArray<ui::Label> lblDispenseLabels;
  ui::ControlArray<ui::TextBox> txtDispense;
  ui::ControlArray<ui::CheckBox> chkDispense;  ///< 0: the link is active
  ui::Picture imgDispense{ui::PictureId::dispensing};
  ui::CommandButton cmdDispense;  ///< chooses the data file
  ui::UpDown udFRED;              ///< seconds

 private:
  ui::Label& label(Label index, Text caption);
  ui::TextBox& lockedBox(Box index);

  void enableLink();
  void browse();
  void validateSeconds();
  void spun();
  /// The number in the box of seconds, in range or not; the default if the text is not a number.
  std::int16_t secondsTyped() const;
};

}  // namespace tillora
