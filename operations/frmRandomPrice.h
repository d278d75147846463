#pragma once

#include <cstdint>
#include <vector>

#include "support/dialog.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora {

/// Edits one random-price barcode format. The values are those of clsRandomPrice; OK replaces them
/// with the edited ones.
class frmRandomPrice final : public EditDialog {
 public:
  /// Indexes of chkRandomPrice. From priceIncludesTax on, box i is the bit 2^(i-1) of OptionBits.
  enum Check : std::uint8_t { inactive, priceIncludesTax, calculateUnitOfMeasure };
  /// Indexes of txtRandomPrice.
  enum Box : std::uint8_t { prefix, example, unitCaption, priceUnitCaption };
  /// Indexes of lblLabel.
  enum Label : std::uint8_t {
    ofPrefix,
    ofFormat,
    ofExample,
    legend,
    ofUnitCaption,
    ofPriceUnitCaption,
    shadowOfUnitCaption,
    shadowOfPriceUnitCaption
  };
  enum Command : std::uint8_t { ok, cancel };

  explicit frmRandomPrice(ui::Screen& screen);

  bool Inactive = false;
  std::int32_t Prefix = 0;  ///< shown, never changed
  /// A value outside the descriptions selects nothing, and is kept until a format is chosen.
  std::int32_t FormatID = 0;
  std::int32_t OptionBits = 0;  ///< OK clears bits without a check box
  Text UOMUnitCaption;
  Text UOMPriceUnitCaption;
  /// By format id from 1; the one at 0 is not shown.
  std::vector<Text> FormatDescriptions;

  ui::ControlArray<ui::Label> lblLabel;
  ui::ControlArray<ui::TextBox> txtRandomPrice;
  ui::ControlArray<ui::CheckBox> chkRandomPrice;
  ui::ComboBox cboRandomPrice;
  ui::Frame fraRandomPrice;
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command

 private:
  void onLoad() override;
  /// Not the prefix, which is locked.
  ui::Control* firstFocus() override { return &cboRandomPrice; }

  ui::Label& label(Label index, Text caption);
  ui::Cell check(Check index, Text caption);

  void showFormats();
  void showExample();
  void enableCaptions();
  void accept();
};

}  // namespace tillora
