#pragma once

#include "component/contract/options_tab.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora {

/// The business: its name, address, phone, fax, e-mail, ACN, ABN and accounting class.
class CompanyDetails final : public OptionsTab {
 public:
  /// Indexes of txtCompanyDetails. The ACN has the digit groups 5 to 7, the ABN 8 to 11.
  enum Box : std::uint8_t {
    name,
    address,
    phone,
    fax,
    email,
    firstOfAcn,
    firstOfAbn = 8,
    count = 12
  };

  explicit CompanyDetails(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);
  /// LVClass, which the save writes after the options of the accounting link.
  void saveClass(OptionsRecord& record);

  ui::Frame fraGeneral;
  ui::ControlArray<ui::Label> lblGeneral;
  ui::ControlArray<ui::TextBox> txtCompanyDetails;
  ui::ComboBox cboClass;

 private:
  ui::Label& label(Text caption);
  ui::TextBox& box(int index);
  /// One of the groups of digits of a number.
  ui::Cell digits(int index);

  void loadClasses(const Text& chosen);

  void keyPress(int index, char16_t& key);
  void keyDown(int index, ui::Key& key);
  void paste(int index, TextView text, bool& used);
  /// Types a digit as the user does. Returns the box in which the next one is typed.
  int typeDigit(int index, char16_t digit);
  void validate(int index);
  enum class Caret : std::uint8_t { start, end };
  void moveFocusTo(int index, Caret caret);
  void showClassToolTip();
};

}  // namespace tillora
