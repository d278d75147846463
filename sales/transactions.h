#pragma once

#include "component/contract/options_tab.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/layout.h"
#include "ui/text_box.h"

namespace tillora {

/// What a sale asks for and what its receipt prints, each with the caption that is printed. A
/// caption can be edited only while the check box that prints it is ticked; it is kept in any case.
class TransactionOptions final : public OptionsTab {
 public:
  /// Indexes of fraTransaction.
  enum Group : std::uint8_t { detail, layby, tendering };
  /// Indexes of chkTransaction, and the bit positions of TransactionOptionBits.
  enum Check : std::uint8_t {
    printTerminalId,
    printSalesPerson,
    salesPersonBeforeFirst,
    salesPersonBeforeEach,
    salesPersonCanChange,
    printItemsSold,
    printTotal,
    printTaxTotal,
    printAmountsWithTax,
    printItemTax,
    printTaxStatus,
    printTotalExTax,
    enteredAmountsWithTax,
  };
  /// Indexes of txtCaption.
  enum Caption : std::uint8_t {
    terminalId,
    transactionNumber,
    salesPerson,
    itemsSold,
    total,
    change,
    balanceDue,
    laybyOpening,
    laybyClosing,
    laybyDateDue,
    taxTotal,
    taxedSellPrice,
    taxedWholesale,
    taxExempt,
    itemTax,
    totalExTax,
  };

  explicit TransactionOptions(OptionsDialog& dialog);
  void load(OptionsRecord& record);
  void save(OptionsRecord& record);

  ui::ControlArray<ui::Frame> fraTransaction;
  ui::ControlArray<ui::CheckBox> chkTransaction;
  ui::ControlArray<ui::TextBox> txtCaption;
  /// 1, 3 and 5 stand before the captions of tax statuses; 2, 4 and 6 are their shadows.
  ui::ControlArray<ui::Label> lblTransaction;

 private:
  void describeDetail(ui::Rows& group);
  void describeLayby(ui::Rows& group);
  void describeTendering(ui::Rows& group);
  ui::CheckBox& check(Check index, Text caption);
  ui::Label& label(int index, Text caption);
  /// The label before the caption of a tax status.
  ui::Cell taxStatus(int index, Text caption);
  /// A check box and the box for the caption that it prints.
  void addPrinted(ui::Rows& group, Check index, Text caption, Caption box, Text boxName,
                  ui::Length width);

  void enableCaptions(int check);
};

}  // namespace tillora
