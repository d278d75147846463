#pragma once

#include <cstdint>
#include <vector>

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/lists.h"
#include "ui/text_box.h"

namespace tillora {

/// What the end of a day does, and what its reports print and are called.
class EndOfDay final : public OptionsTab {
 public:
  /// Indexes of chkEOD, and the bit positions of EODOptionFlags.
  enum Check : std::uint8_t {
    reconcileDrawer,
    reconcileOnResetOnly,
    noReadReports,
    resetTransactionNumber,
    balanceReportOnReset,
    logOffAfterReset,
    keepNumberOnReset,
    noSelectionPage,
    reportsMustBePrinted,
  };
  /// Indexes of lblEOD.
  enum Label : std::uint8_t { historyDays, historyNote, showTotals, showTotalsShadow };
  /// Indexes of cmdReports.
  enum Command : std::uint8_t { defaultReports, reportCaptions };

  explicit EndOfDay(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);
  /// False if the cash drawer is to be reconciled without any In Drawer total; the tab has then
  /// been selected, the focus set to the first total, and the message shown.
  bool validate(const Text& title);

  ui::Frame fraEndOfDay;
  ui::Frame fraReports;
  ui::ControlArray<ui::Label> lblEOD;
  ui::ControlArray<ui::CheckBox> chkEOD;
  ui::ControlArray<ui::CheckBox> chkEODReconcile;  ///< the In Drawer totals, by bit
  ui::ControlArray<ui::Label> lblReports;
  ui::ControlArray<ui::CheckBox> chkReports;
  ui::ControlArray<ui::CommandButton> cmdReports;
  ui::TextBox txtEOD;  ///< days of history
  ui::ComboBox cboTimeReportPeriod;

 private:
  void describeDay(ui::Rows& column);
  void describeReconciliation(ui::Rows& column);
  void describeReports(ui::Rows& group);

  void enableReconciliation();
  std::int32_t daysEntered() const;
  void showDays(std::int32_t days);
  void chooseDefaultReports();
  void changeCaptions();

  // What will be saved but is not in any control of the tab.
  std::int32_t defaultReportBits_ = 0;
  std::vector<Text> titles_;   ///< by position in kReportTitles
  std::vector<Text> details_;  ///< by position in kReportDetails
};

}  // namespace tillora
