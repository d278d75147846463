#pragma once

#include <array>
#include <span>
#include <vector>

#include "base/text.h"
#include "component/contract/host_objects.h"

namespace tillora {

/// One text that end-of-day reports print and that the user can reword.
struct ReportCaption {
  const char16_t* setting;             ///< the SettingsStore's setting that keeps it
  const char16_t* standard;            ///< the default, if the setting does not exist
  const char16_t* boxLabel = nullptr;  ///< label of its box if that is not the default

  TextView label() const { return boxLabel != nullptr ? boxLabel : standard; }
};

/// Positions of the titles in kReportTitles.
enum class ReportTitle : std::uint8_t {
  balance,
  reconciliation,
  groupSales,
  departmentSales,
  productSales,
  customerSales,
  laybySales,
  salesPerson,
  time,
  journal,
  promotionSales,
  endOfDayWindow,
};

/// The titles of the reports. An ampersand marks the access key of a title in a list.
inline constexpr std::array kReportTitles = {
    ReportCaption{u"ReportTitleBalanceReport", u"B&alance Report"},
    ReportCaption{u"ReportTitleReconciliationReport", u"Reconciliation Report"},
    ReportCaption{u"ReportTitleGroupSalesReport", u"&Group Sales Report"},
    ReportCaption{u"ReportTitleDepartmentSalesReport", u"&Department Sales Report"},
    ReportCaption{u"ReportTitleProductSalesReport", u"&Product Sales Report"},
    ReportCaption{u"ReportTitleCustomerSalesReport", u"C&ustomer Sales Report"},
    ReportCaption{u"ReportTitleLaybySalesReport", u"Layby Sales &Report"},
    ReportCaption{u"ReportTitleSalesPersonReport", u"&Sales Person Report"},
    ReportCaption{u"ReportTitleTimeReport", u"Ti&me Report"},
    ReportCaption{u"ReportTitleJournalReport", u"&Journal Report"},
    ReportCaption{u"ReportTitlePromotionSalesReport", u"Pr&omotion Sales Report"},
    ReportCaption{u"ReportTitleEndofDay", u"End of Day", u"&End Of Day window"},
};

/// The captions of the reports' lines: the In Drawer totals, then what the drawer balance, the
/// group sales, the tax and the sales journal report print.
inline constexpr std::array kReportDetails = {
    ReportCaption{u"ReportDetailCashInDrawer", u"Cash In Drawer"},
    ReportCaption{u"ReportDetailChequeInDrawer", u"Cheque In Drawer"},
    ReportCaption{u"ReportDetailCreditCardInDrawer", u"Credit Card In Drawer"},
    ReportCaption{u"ReportDetailEFTInDrawer", u"EFT In Drawer"},
    ReportCaption{u"ReportDetailVoucherInDrawer", u"Voucher In Drawer"},
    // Drawer balance.
    ReportCaption{u"ReportDetailTotalInDrawer", u"Total In Drawer"},
    ReportCaption{u"ReportDetailOpeningFloat", u"Opening Float"},
    ReportCaption{u"ReportDetailTotalSales", u"Total Sales"},
    ReportCaption{u"ReportDetailTotalRefunds", u"Total Refunds"},
    ReportCaption{u"ReportDetailTotalDiscounts", u"Total Discounts"},
    ReportCaption{u"ReportDetailRoundingVariance", u"Rounding Variance"},
    ReportCaption{u"ReportDetailAccountPayments", u"Account Payments"},
    ReportCaption{u"ReportDetailLaybyPayments", u"Layby Payments"},
    ReportCaption{u"ReportDetailCashPaidOut", u"Cash Paid Out"},
    ReportCaption{u"ReportDetailDrawerVariance", u"Drawer Variance"},
    ReportCaption{u"ReportDetailNumberofTransactions", u"Number of Transactions"},
    ReportCaption{u"ReportDetailNon-ResetableGrandTotal", u"Non-Resetable Grand Total"},
    // Group sales.
    ReportCaption{u"ReportDetailGroup", u"Group"},
    ReportCaption{u"ReportDetailQuantitySold", u"Quantity Sold"},
    ReportCaption{u"ReportDetailSalesAmount", u"Sales Amount"},
    ReportCaption{u"ReportDetailCostofSales", u"Cost of Sales"},
    ReportCaption{u"ReportDetailGrossProfit", u"Gross Profit"},
    ReportCaption{u"ReportDetailGroupTotal", u"Group Total"},
    // Tax.
    ReportCaption{u"ReportDetailTaxCode", u"Tax Code"},
    ReportCaption{u"ReportDetailTaxableSales", u"Taxable Sales"},
    ReportCaption{u"ReportDetailTaxExemptSales", u"Tax Exempt Sales"},
    ReportCaption{u"ReportDetailTaxCollected", u"Tax Collected"},
    ReportCaption{u"ReportDetailTotalExTax", u"Total Ex Tax"},
    // Sales journal.
    ReportCaption{u"ReportDetailDateandTime", u"Date and Time"},
    ReportCaption{u"ReportDetailTransactionNumber", u"Transaction Number"},
    ReportCaption{u"ReportDetailTerminalID", u"Terminal ID"},
    ReportCaption{u"ReportDetailSalesPerson", u"Sales Person"},
    ReportCaption{u"ReportDetailPaymentType", u"Payment Type"},
    ReportCaption{u"ReportDetailJournalTotal", u"Journal Total"},
};

/// Where the captions of the In Drawer totals stand in kReportDetails: at its start.
inline constexpr std::size_t kInDrawerTotals = 5;

/// The captions of one of the tables above as they are stored, by position; the default if the
/// setting does not exist. An empty setting is kept.
std::vector<Text> readCaptions(SettingsStore& settings, std::span<const ReportCaption> table);
void writeCaptions(SettingsStore& settings, std::span<const ReportCaption> table,
                   const std::vector<Text>& captions);

}  // namespace tillora
