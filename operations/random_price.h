#pragma once

#include <cstdint>
#include <vector>

#include "component/contract/options_tab.h"
#include "operations/clsRandomPrice.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/lists.h"

namespace tillora {

/// Random-price barcodes: whether they are scanned, and the format that each prefix has. Formats
/// are neither made nor deleted here, except for those that a shop starts with.
class RandomPrice final : public OptionsTab {
 public:
  /// Columns of ltvRandomPrice. The first one holds the icon alone.
  enum Column : std::uint8_t {
    icon,
    prefix,
    format,
    priceIncludesTax,
    calculateUnitOfMeasure,
    unitCaption,
    priceUnitCaption
  };

  explicit RandomPrice(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);

  ui::Frame fraRandomPrice;
  ui::ControlArray<ui::CheckBox> chkRandomPrice;  ///< by bit of RandomPriceScanningFlags
  ui::Label lblRandomPrice;
  ui::ListView ltvRandomPrice;
  ui::CommandButton cmdRandomPrice;  ///< edits the selected row

 private:
  void loadFormats();
  void showFormats();
  void fitColumns();
  void EditRandomPrice();

  std::vector<clsRandomPrice> formats_;  ///< by row: one of each prefix, in the order of the table
};

}  // namespace tillora
