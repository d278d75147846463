#include "operations/frmEODDefaultReports.h"

#include <array>

#include "base/text_rules.h"
#include "operations/report_captions.h"
#include "support/check_box_bits.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using Report = frmEODDefaultReports::Report;

struct ReportBox {
  Report report;
  ReportTitle title;
  const char16_t* toolTip;
};
// From the top of the dialog to the bottom.
constexpr std::array<ReportBox, 9> kReportBoxes = {{
    {Report::drawerBalance, ReportTitle::balance, u"Print the Drawer Balance Report"},
    {Report::productSales, ReportTitle::productSales, u"Print the Product Sales Report"},
    {Report::salesPerson, ReportTitle::salesPerson, u"Print the Sales Person Report"},
    {Report::time, ReportTitle::time, u"Print the Time Report"},
    {Report::salesJournal, ReportTitle::journal, u"Print the Sales Journal Report"},
    {Report::groupSales, ReportTitle::groupSales, u"Print the Group Sales Report"},
    {Report::departmentSales, ReportTitle::departmentSales, u"Print the Department Sales Report"},
    {Report::laybyCustomerSales, ReportTitle::laybySales, u"Print the Layby Customer Sales Report"},
    {Report::accountCustomerSales, ReportTitle::customerSales,
     u"Print the Account Customer Sales Report"},
}};

constexpr ui::Length kTitleWidth = ui::characters(40);  // stored titles may be of any length

constexpr std::int32_t kOpenDrawerBit = 1 << Report::openDrawer;

std::int32_t maskOf(const ui::ControlArray<ui::CheckBox>& boxes) {
  std::int32_t mask = 0;
  for (const std::int32_t bit : tickedBits(boxes)) mask |= bit;
  return mask;
}

}  // namespace

frmEODDefaultReports::frmEODDefaultReports(ui::Screen& screen, Messages& messages)
    : EditDialog(screen, u"Default Reports - EOD Processing"), messages_(messages) {
  rows().row(
      {fill(lblLabel.setCaption(u"Select the reports that should be automatically printed "
                                u"when performing an End-Of-Day report."))});
  rows().gap();
  for (const ReportBox& row : kReportBoxes) {
    rows().row({fill(chkReports.add(row.report).setToolTip(row.toolTip), kTitleWidth)});
  }
  rows().gap();
  rows().row({fill(chkReports.add(openDrawer, u"&Open the Cash Drawer")
                       .setToolTip(u"Open the Cash Drawer when printing the reports"))});
  rows().buttons(
      {&cmdCommand.add(selectAll, u"Select &All").setToolTip(u"Select all the reports"),
       &cmdCommand.add(deselectAll, u"&De-select All").setToolTip(u"De-select all the reports")});
  okAndCancel(cmdCommand.add(ok, u"OK"), u"Save all changes then close this window",
              cmdCommand.add(cancel, u"&Cancel"), u"Cancel all changes and close this window");

  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
  cmdCommand[selectAll].click = [this] { tickAll(true); };
  cmdCommand[deselectAll].click = [this] { tickAll(false); };
}

void frmEODDefaultReports::onLoad() {
  for (const ReportBox& row : kReportBoxes) {
    chkReports[row.report].setCaption(Titles.at(static_cast<std::size_t>(row.title)));
  }
  showBits(chkReports, ReportBits);
  if (ForceBalanceReport) chkReports[drawerBalance].setValue(true);
  chkReports[drawerBalance].setEnabled(!ForceBalanceReport);
}

void frmEODDefaultReports::tickAll(bool ticked) {
  for (const auto& [report, box] : chkReports) {
    if (report != openDrawer && box->enabled()) box->setValue(ticked);
  }
}

void frmEODDefaultReports::accept() {
  const std::int32_t chosen = maskOf(chkReports);
  if ((chosen & ~kOpenDrawerBit) == 0) {
    Text text = requireObject(AppObject, u"AppObject").title();
    text.append(u" requires at least one report to be selected.");
    text.append(kLineBreak).append(kLineBreak);
    text.append(u"Select at least one report before applying your changes.");
    messages_.warn(text, u"No reports selected");
    return;
  }
  ReportBits = chosen;
  acceptAndClose();
}

}  // namespace tillora
