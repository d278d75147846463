#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora {

class frmPumpGrade;

/// The fuel pump grades with the product and caption of each, and what receipts print about pumps.
class PumpGrades final : public OptionsTab {
 public:
  /// Indexes of cmdPump.
  enum Command : std::uint8_t { add, remove, edit };
  /// Indexes of txtPump.
  enum Box : std::uint8_t { volumeUnit, priceUnit };
  /// Indexes of lblPump.
  enum Label : std::uint8_t { assignments, note, volumeUnitLabel, priceUnitLabel };
  /// Columns of ltvPump.
  enum Column : std::uint8_t { grade, product, caption };

  explicit PumpGrades(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);

  ui::ControlArray<ui::Label> lblPump;
  ui::ListView ltvPump;
  ui::ControlArray<ui::CommandButton> cmdPump;
  ui::ControlArray<ui::TextBox> txtPump;
  ui::ControlArray<ui::CheckBox> chkPump;  ///< by bit of PumpOptionBits

 private:
  /// What a row of the list stands for.
  struct Grade {
    std::int32_t number = 0;
    Text product;
    Text caption;
  };

  ui::Label& label(Label index, Text caption);

  void loadGrades();
  void saveGrades();

  void addGrade();
  void editGrade();
  void deleteGrade();
  /// Shows the dialog; false if it was cancelled.
  bool accepted(frmPumpGrade& dialog);
  /// The lowest number that a new grade can have; none if all are taken.
  std::optional<std::int32_t> freeNumber() const;
  bool isListed(std::int32_t number) const;
  void rowsChanged();
  static ui::ListItem itemOf(const Grade& grade);

  std::vector<Grade> grades_;  ///< by row
};

}  // namespace tillora
