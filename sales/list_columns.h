#pragma once

#include "component/contract/options_tab.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/lists.h"

namespace tillora {

/// The columns that the host's lists show: a check list for each, a row for each column. The row's
/// item data holds the column's bits in the stored mask.
class ListColumns final : public OptionsTab {
 public:
  /// Indexes of lstListShow.
  enum List : std::uint8_t { salesPerson, product, customer, laybyCustomer, currency, count };

  explicit ListColumns(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record, OptionChanges& changes);
  /// False if the sales person list or the currency conversion list would be left without a column
  /// that identifies its rows; the message has then been shown, and the tab selected.
  bool validate(const Text& title);

  ui::ControlArray<ui::Label> lblLists;
  ui::ControlArray<ui::CheckListBox> lstListShow;

 private:
  void addList(ui::Rows& column, List index, ui::Length height);
  bool refuse(const Text& title, TextView list);
};

}  // namespace tillora
