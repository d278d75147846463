#include "operations/end_of_day.h"

#include <array>
#include <utility>

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

constexpr int kDayWidth = 5100;
constexpr int kDaysWidth = 600;
constexpr int kPeriodWidth = 1950;
constexpr int kIndent = 300;

// The days that are kept where this many are asked for.
std::int32_t keptDays(std::int64_t days) {
  return days >= 1 && days <= kMostDays ? static_cast<std::int32_t>(days) : kMostDays;
}

bool isPeriod(std::int32_t position) {
  return position >= 0 && position < static_cast<std::int32_t>(kPeriods.size());
}

}  // namespace

EndOfDay::EndOfDay(OptionsDialog& dialog)
    : OptionsTab(dialog),
      fraEndOfDay(dialog.page(TabPage::eod).add<ui::Frame>(u"E&nd-Of-Day Options")),
      fraReports(dialog.page(TabPage::eod).add<ui::Frame>(u"Reports Options")),
      txtEOD(makeDay()),
      cboTimeReportPeriod(makeReports()) {
  makeReconciliation();
  layOut();
  chkEOD[reconcileDrawer].click = [this] { enableReconciliation(); };
  txtEOD.keyPress = keepDigitKey;
  txtEOD.validate = [this](bool&) { showDays(daysEntered()); };
  cmdReports[defaultReports].click = [this] { chooseDefaultReports(); };
  cmdReports[reportCaptions].click = [this] { changeCaptions(); };
}

ui::TextBox& EndOfDay::makeDay() {
  const auto addCheck = [&](Check index, Text caption) {
    chkEOD.set(index, fraEndOfDay.add<ui::CheckBox>(std::move(caption)));
  };
  addCheck(reportsMustBePrinted, u"Reports must be printed");
  addCheck(resetTransactionNumber, u"Reset the Transaction Number");
  addCheck(noSelectionPage, u"Don't show report selection page");
  addCheck(keepNumberOnReset, u"Don't reset # on RESET (Z) reports");
  addCheck(logOffAfterReset, u"Log off Sales Person after RESET (Z) report");
  addCheck(balanceReportOnReset, u"Balance report must be selected on RESET (Z) reports");
  addCheck(noReadReports, u"Don't allow READ (X) reports");
  lblEOD.set(historyDays, fraEndOfDay.add<ui::Label>(u"Number of days to keep historical data"));
  auto& days = fraEndOfDay.add<ui::TextBox>();
  lblEOD.set(historyNote, fraEndOfDay.add<ui::Label>(u"(Maximum of 2 years of data allowed)"));
  cmdReports.set(defaultReports, fraEndOfDay.add<ui::CommandButton>(u"Default Reports..."))
      .setToolTip(u"Select the default reports for End-Of-Day processing");
  return days;
}

void EndOfDay::makeReconciliation() {
  chkEOD.set(reconcileDrawer, fraEndOfDay.add<ui::CheckBox>(u"Reconcile the Cash Drawer"));
  chkEOD.set(reconcileOnResetOnly,
             fraEndOfDay.add<ui::CheckBox>(u"Reconcile on RESET (Z) reports only"));
  lblEOD.set(showTotalsShadow, fraEndOfDay.add<ui::Label>());
  lblEOD.set(showTotals, fraEndOfDay.add<ui::Label>(u"Show on Cash Drawer Reconciliation page..."));
  for (std::size_t i = 0; i < kInDrawerTotals; ++i) {
    chkEODReconcile.set(static_cast<int>(i),
                        fraEndOfDay.add<ui::CheckBox>(kReportDetails[i].standard));
  }
}

ui::ComboBox& EndOfDay::makeReports() {
  lblReports.set(0, fraReports.add<ui::Label>(u"P&eriod for Time Report"));
  auto& periods = fraReports.add<ui::ComboBox>();
  for (const char16_t* period : kPeriods) periods.addItem(period);
  chkReports.set(0, fraReports.add<ui::CheckBox>(u"&Print the Non-Resetable Grand Total (NRGT)"));
  cmdReports.set(reportCaptions, fraReports.add<ui::CommandButton>(u"Change &Report Captions..."))
      .setToolTip(u"Set captions for the reports");
  return periods;
}

void EndOfDay::layOut() {
  ui::Rows page = ui::Rows::onPage(dialog_.page(TabPage::eod));

  const ui::Rows day = page.group(fraEndOfDay);
  std::vector<ui::Rows> columns = day.columns({kDayWidth, Cell::kFill});
  layOutDay(columns[0]);
  layOutReconciliation(columns[1]);
  page.endGroup(fraEndOfDay, columns[0]);  // the higher one

  ui::Rows reports = page.group(fraReports);
  reports.row({{lblReports[0]}, {cboTimeReportPeriod, kPeriodWidth}});
  reports.row({{chkReports[0]}});
  reports.row({{cmdReports[reportCaptions]}});
  page.endGroup(fraReports, reports);
}

void EndOfDay::layOutDay(ui::Rows& column) {
  for (const Check i : {reportsMustBePrinted, resetTransactionNumber, noSelectionPage,
                        keepNumberOnReset, logOffAfterReset, balanceReportOnReset, noReadReports}) {
    column.row({{chkEOD[i]}});
  }
  column.row({{lblEOD[historyDays]}, {txtEOD, kDaysWidth}});
  column.row({{lblEOD[historyNote]}});
  column.row({{cmdReports[defaultReports]}});
}

void EndOfDay::layOutReconciliation(ui::Rows& column) {
  column.row({{chkEOD[reconcileDrawer]}});
  column.row({{chkEOD[reconcileOnResetOnly]}}, kIndent);
  column.row({{lblEOD[showTotals]}}, kIndent);
  for (const auto& [index, box] : chkEODReconcile) column.row({{*box}}, kIndent);
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
