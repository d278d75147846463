#include "operations/end_of_day.h"

#include <array>

#include "base/numbers.h"
#include "base/text_rules.h"
#include "base/whole_numbers.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmReportCaptions.h"
#include "operations/report_captions.h"
#include "support/check_box_bits.h"
#include "support/modEnableLabel.h"

namespace tillora {
namespace {

using ui::Cell;

constexpr std::array kPeriods = {u"Every 15 Minutes", u"Every 30 Minutes", u"Hourly",
                                 u"Every 2 Hours",    u"Every 3 Hours",    u"Every 4 Hours",
                                 u"Every 6 Hours",    u"Every 8 Hours",    u"Every 12 Hours"};

constexpr std::int32_t kMostDays = 730;

constexpr int kDaysDigits = 5;
constexpr int kIndent = 300;

// The days that are kept if this many are asked for.
std::int32_t keptDays(std::int64_t days) {
  return days >= 1 && days <= kMostDays ? static_cast<std::int32_t>(days) : kMostDays;
}

bool isPeriod(std::int32_t position) {
  return position >= 0 && position < static_cast<std::int32_t>(kPeriods.size());
}

}  // namespace

EndOfDay::EndOfDay(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& page = dialog.page(TabPage::eod).rows();
  const auto columns =
      page.group(fraEndOfDay, u"E&nd-Of-Day Options").columns({ui::kRest, ui::kRest});
  describeDay(*columns[0]);
  describeReconciliation(*columns[1]);
  describeReports(page.group(fraReports, u"Reports Options"));

  chkEOD[reconcileDrawer].click = [this] { enableReconciliation(); };
  txtEOD.keyPress = keepDigitKey;
  txtEOD.validate = [this](bool&) { showDays(daysEntered()); };
  cmdReports[defaultReports].click = [this] { chooseDefaultReports(); };
  cmdReports[reportCaptions].click = [this] { changeCaptions(); };
}

void EndOfDay::describeDay(ui::Rows& column) {
  column.row({chkEOD.add(reportsMustBePrinted, u"Reports must be printed")});
  column.row({chkEOD.add(resetTransactionNumber, u"Reset the Transaction Number")});
  column.row({chkEOD.add(noSelectionPage, u"Don't show report selection page")});
  column.row({chkEOD.add(keepNumberOnReset, u"Don't reset # on RESET (Z) reports")});
  column.row({chkEOD.add(logOffAfterReset, u"Log off Sales Person after RESET (Z) report")});
  column.row(
      {chkEOD.add(balanceReportOnReset, u"Balance report must be selected on RESET (Z) reports")});
  column.row({chkEOD.add(noReadReports, u"Don't allow READ (X) reports")});
  column.row({lblEOD.add(historyDays, u"Number of days to keep historical data"),
              wide(txtEOD, ui::characters(kDaysDigits))});
  column.row({lblEOD.add(historyNote, u"(Maximum of 2 years of data allowed)")});
  column.row({cmdReports.add(defaultReports, u"Default Reports...")
                  .setToolTip(u"Select the default reports for End-Of-Day processing")});
}

void EndOfDay::describeReconciliation(ui::Rows& column) {
  column.row({chkEOD.add(reconcileDrawer, u"Reconcile the Cash Drawer")});
  column.row({chkEOD.add(reconcileOnResetOnly, u"Reconcile on RESET (Z) reports only")}, kIndent);
  column.row({engraved(lblEOD.add(showTotals, u"Show on Cash Drawer Reconciliation page..."),
                       lblEOD.add(showTotalsShadow))},
             kIndent);
  for (std::size_t i = 0; i < kInDrawerTotals; ++i) {
    column.row({chkEODReconcile.add(static_cast<int>(i), kReportDetails[i].standard)}, kIndent);
  }
}

void EndOfDay::describeReports(ui::Rows& group) {
  for (const char16_t* period : kPeriods) cboTimeReportPeriod.addItem(period);
  group.row({lblReports.add(0, u"P&eriod for Time Report"), cboTimeReportPeriod});
  group.row({chkReports.add(0, u"&Print the Non-Resetable Grand Total (NRGT)")});
  group.row({cmdReports.add(reportCaptions, u"Change &Report Captions...")
                 .setToolTip(u"Set captions for the reports")});
}

void EndOfDay::load(OptionsRecord& record) {
  showBits(chkEOD, record.getOrZero(options::EODOptionFlags));
  showBits(chkEODReconcile, record.getOrZero(options::EODReconcileTotalFlags));
  enableReconciliation();
  showDays(keptDays(record.getOrDefault(options::EODHistoryDays)));
  const std::int32_t period = record.getOrDefault(options::TimeReportPeriod);
  cboTimeReportPeriod.setListIndex(isPeriod(period) ? period
                                                    : options::TimeReportPeriod.defaultValue);
  chkReports[0].setValue(record.getOrDefault(options::PrintNRGT));
  defaultReportBits_ = record.getOrZero(options::EODDefaultReportBits);

  SettingsStore& settings = dialog_.settings();
  titles_ = readCaptions(settings, kReportTitles);
  details_ = readCaptions(settings, kReportDetails);
}

void EndOfDay::enableReconciliation() {
  const bool reconciles = chkEOD[reconcileDrawer].value();
  chkEOD[reconcileOnResetOnly].setEnabled(reconciles);
  enableLabel(lblEOD[showTotals], lblEOD[showTotalsShadow], reconciles);
  for (const auto& [index, box] : chkEODReconcile) box->setEnabled(reconciles);
}

std::int32_t EndOfDay::daysEntered() const {
  return keptDays(toWholeNumber(txtEOD.text(), dialog_.platform().numbers).value_or(kMostDays));
}

void EndOfDay::showDays(std::int32_t days) { txtEOD.setText(decimalText(days)); }

void EndOfDay::chooseDefaultReports() {
  frmEODDefaultReports reports(dialog_.platform().screen, dialog_.messages());
  reports.AppObject = dialog_.host().app;
  reports.Titles = titles_;
  reports.ReportBits = defaultReportBits_;
  reports.ForceBalanceReport = chkEOD[balanceReportOnReset].value();
  reports.showModal();
  if (reports.Cancelled()) return;
  defaultReportBits_ = reports.ReportBits;
  dialog_.markChanged();
}

void EndOfDay::changeCaptions() {
  frmReportCaptions captions(dialog_.platform().screen, dialog_.messages());
  captions.Titles = titles_;
  captions.Details = details_;
  captions.showModal();
  if (captions.Cancelled()) return;
  titles_ = captions.Titles;
  details_ = captions.Details;
  dialog_.markChanged();
}

bool EndOfDay::validate(const Text& title) {
  if (!chkEOD[reconcileDrawer].value() || !tickedBits(chkEODReconcile).empty()) return true;
  dialog_.selectTab(TabPage::eod);
  chkEODReconcile[0].setFocus();
  Text text = title;
  text.append(
      u" requires at least one In Drawer total to be calculated when the Reconcile The Cash Drawer "
      u"option is selected.");
  text.append(kLineBreak).append(kLineBreak);
  text.append(u"Select at least one In Drawer total before applying your changes.");
  dialog_.messages().warn(text, u"No In Drawer totals selected");
  return false;
}

void EndOfDay::save(OptionsRecord& record) {
  saveBits(record, options::EODOptionFlags, tickedBits(chkEOD));
  saveBits(record, options::EODReconcileTotalFlags, tickedBits(chkEODReconcile));
  record.set(options::EODHistoryDays, daysEntered());
  record.set(options::TimeReportPeriod, cboTimeReportPeriod.listIndex());
  record.set(options::PrintNRGT, chkReports[0].value());
  record.set(options::EODDefaultReportBits, defaultReportBits_);

  SettingsStore& settings = dialog_.settings();
  writeCaptions(settings, kReportTitles, titles_);
  writeCaptions(settings, kReportDetails, details_);
}

}  // namespace tillora
