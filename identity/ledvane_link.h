#pragma once

#include <cstdint>
#include <optional>

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/text_box.h"

namespace tillora {

/// The accounting data file that transactions are posted to, and how they are summarised for it.
class LedvaneLink final : public OptionsTab {
 public:
  /// Indexes of chkLedvane, which are also the bits of LVSummariseBits.
  enum Box : std::uint8_t { summarise, withDescription, withoutDescription };

  explicit LedvaneLink(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  /// Whether a data file that was chosen can be handed over now. False once the message that says
  /// why not was shown, the choice was dropped, and its tab was selected.
  bool validate(const Text& title);
  void save(OptionsRecord& record, OptionChanges& changes);

  ui::Frame fraGeneral;
  ui::Label lblDataFile;
  ui::TextBox txtLedvane;
  ui::CommandButton cmdLedvane;
  ui::ControlArray<ui::CheckBox> chkLedvane;  ///< by Box

 private:
  ui::Cell check(Box index, Text caption);

  void enableLineItems();
  void change();
  /// Asks whether anything waits to be posted to the current data file. False once a message has
  /// said so; no choice is left then.
  bool mayChange(JetDatabase& database, const Text& current, const Text& title);
  void refuse(const Text& reason, const Text& advice, const Text& current);

  std::optional<Text> choice_;  ///< a data file that was chosen and not yet saved
};

}  // namespace tillora
