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
  /// Whether a chosen data file can take effect now. If not, the message that says why has been
  /// shown, the choice dropped, and its tab selected.
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
  /// False if something is waiting to be posted to the current data file; a message has then said
  /// so, and the choice is dropped.
  bool mayChange(JetDatabase& database, const Text& current, const Text& title);
  void refuse(const Text& reason, const Text& advice, const Text& current);

  std::optional<Text> choice_;  ///< a data file that was chosen and not yet saved
};

}  // namespace tillora
