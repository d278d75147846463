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

constexpr std::int32_t kOpenDrawerBit = 1 << Report::openDrawer;

std::int32_t maskOf(const ui::ControlArray<ui::CheckBox>& boxes) {
  std::int32_t mask = 0;
  for (const std::int32_t bit : tickedBits(boxes)) mask |= bit;
  return mask;
}

}  // namespace

frmEODDefaultReports::frmEODDefaultReports(ui::Screen& screen, Messages& messages)
    : EditDialog(screen, u"Default Reports - EOD Processing"),
      lblLabel(add<ui::Label>(u"Select the reports that should be automatically printed when "
                              u"performing an End-Of-Day report.")),
      messages_(messages) {
  for (const ReportBox& row : kReportBoxes) {
    chkReports.set(row.report, add<ui::CheckBox>(Text())).setToolTip(row.toolTip);
  }
  chkReports.set(openDrawer, add<ui::CheckBox>(u"&Open the Cash Drawer"))
      .setToolTip(u"Open the Cash Drawer when printing the reports");
  makeButtons();
  layOut();
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
  cmdCommand[selectAll].click = [this] { tickAll(true); };
  cmdCommand[deselectAll].click = [this] { tickAll(false); };
}

void frmEODDefaultReports::makeButtons() {
  cmdCommand.set(selectAll, add<ui::CommandButton>(u"Select &All"))
      .setToolTip(u"Select all the reports");
  cmdCommand.set(deselectAll, add<ui::CommandButton>(u"&De-select All"))
      .setToolTip(u"De-select all the reports");
  auto& okButton = cmdCommand.set(ok, add<ui::CommandButton>(u"OK"));
  okButton.setToolTip(u"Save all changes then close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdCommand.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Cancel all changes and close this window");
  cancelButton.setCancel();
}

void frmEODDefaultReports::layOut() {
  setClientSize({8700, 4500});
  ui::Rows::buttonRow(*this, {&cmdCommand[selectAll], &cmdCommand[deselectAll], &cmdCommand[ok],
                              &cmdCommand[cancel]});
  ui::Rows rows = ui::Rows::onPage(*this);
  rows.row({{lblLabel, ui::Cell::kFill}});
  rows.gap();
  for (const ReportBox& row : kReportBoxes) {
    rows.row({{chkReports[row.report], ui::Cell::kFill}});
  }
  rows.gap();
  rows.row({{chkReports[openDrawer], ui::Cell::kFill}});
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
