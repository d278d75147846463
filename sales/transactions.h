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
  void makeDetail();
  void makeLayby();
  void makeTendering();
  void addCheck(Group group, Check index, Text caption);
  /// A check box and the box for the caption that it prints.
  void addCheck(Group group, Check index, Text caption, Caption box);
  void addLabel(Group group, int index, Text caption);
  void addCaption(Group group, int label, Text caption, Caption box);
  void layOut();
  void layOutDetail(ui::Rows& page);
  void layOutLayby(ui::Rows& column);
  void layOutTendering(ui::Rows& column);

  void enableCaptions(int check);
};

}  // namespace tillora
