#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "component/contract/host_objects.h"
#include "support/dialog.h"
#include "ui/control_array.h"
#include "ui/lists.h"

namespace tillora {

/// A list of the shop's items in which one is chosen. The caller sets the variables and shows the
/// dialog modally; each show reads the list again.
class frmBrowseItems final : public Dialog {
 public:
  /// What the item is for. Any other BrowseType lists payment items and accepts none.
  enum Purpose : std::uint8_t { gradeProduct = 1, roundingItem, paymentItem };
  enum Command : std::uint8_t { ok, cancel };

  explicit frmBrowseItems(ui::Screen& screen);

  std::int16_t BrowseType = 0;
  /// In: the present value, whose row is selected. Out: the value chosen by OK, otherwise
  /// unchanged. Group, colon and item name; the item name alone without a group and for a payment
  /// item.
  Text SelectedValue;
  /// Released when the dialog closes.
  std::shared_ptr<SettingsStore> SettingsObject;
  std::shared_ptr<JetDatabase> DBJetObject;

  ui::Label lblLabel;
  ui::ListView ltvItems;
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command

 private:
  struct Columns;

  void onLoad() override;
  void onUnload() override;
  ui::Control* firstFocus() override { return &ltvItems; }

  const Columns& columns() const;
  void showHeaders();
  std::vector<ui::ListItem> items() const;
  std::vector<ui::ListItem> products() const;
  std::vector<ui::ListItem> roundingItems() const;
  std::vector<ui::ListItem> paymentItems() const;
  void preselect();

  void accept();
  Text valueOf(int row) const;
};

}  // namespace tillora
