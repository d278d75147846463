#pragma once

#include <cstdint>

#include "component/contract/options_tab.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/text_box.h"

namespace tillora {

/// Layby: the numbering, the term, how long historical data is kept, and the terms and conditions
/// that are printed for the customer.
class LaybyOptions final : public OptionsTab {
 public:
  /// Indexes of txtLayby and of the labels before the boxes.
  enum Box : std::uint8_t { startNumber, term, terms, history };
  /// Indexes of lblLayby behind boxes: "days".
  enum Unit : std::uint8_t { termUnit = 4, historyUnit };

  explicit LaybyOptions(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);

  ui::ControlArray<ui::Label> lblLayby;
  ui::ControlArray<ui::TextBox> txtLayby;

 private:
  ui::Label& label(int index, Text caption);
  ui::Cell number(Box index);

  void validate(int index);
};

}  // namespace tillora
