#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "component/contract/host_objects.h"
#include "component/contract/messages.h"
#include "support/dialog.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"

namespace tillora {

/// Chooses the reports that an end of day prints automatically. The caller sets the variables,
/// shows the dialog modally, and takes ReportBits back unless it was cancelled.
class frmEODDefaultReports final : public EditDialog {
 public:
  /// Indexes of chkReports, and the bit positions of ReportBits.
  enum Report : std::uint8_t {
    drawerBalance,
    groupSales,
    departmentSales,
    productSales,
    accountCustomerSales,
    laybyCustomerSales,
    salesPerson,
    time,
    salesJournal,
    openDrawer,  ///< not a report: opens the cash drawer when printing
  };
  enum Command : std::uint8_t { ok, cancel, selectAll, deselectAll };

  frmEODDefaultReports(ui::Screen& screen, Messages& messages);

  /// OK clears bits without a check box.
  std::int32_t ReportBits = 0;
  /// The drawer balance report is ticked and cannot be unticked.
  bool ForceBalanceReport = false;
  std::vector<Text> Titles;  ///< of the reports, by ReportTitle
  std::shared_ptr<App> AppObject;

  ui::Label lblLabel;
  ui::ControlArray<ui::CheckBox> chkReports;
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command

 private:
  void onLoad() override;

  void tickAll(bool ticked);
  void accept();

  Messages& messages_;
};

}  // namespace tillora
