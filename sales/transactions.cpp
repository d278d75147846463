#include "sales/transactions.h"

#include <array>
#include <utility>

#include "support/check_box_bits.h"
#include "support/modEnableLabel.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr ui::Length kCaptionWidth = ui::characters(24);
constexpr ui::Length kTenderingWidth = ui::characters(14);
constexpr ui::Length kTaxStatusWidth = ui::characters(11);
constexpr int kIndent = 300;

using Check = TransactionOptions::Check;
using Caption = TransactionOptions::Caption;

struct Printed {
  Check check;
  Caption box;
};
constexpr std::array<Printed, 7> kPrinted = {{
    {Check::printTerminalId, Caption::terminalId},
    {Check::printSalesPerson, Caption::salesPerson},
    {Check::printItemsSold, Caption::itemsSold},
    {Check::printTotal, Caption::total},
    {Check::printTaxTotal, Caption::taxTotal},
    {Check::printItemTax, Caption::itemTax},
    {Check::printTotalExTax, Caption::totalExTax},
}};

struct Stored {
  Caption box;
  const Option<OptionType::Text>& option;
};
// In the order in which they are read and written.
constexpr std::array<Stored, 16> kStored = {{
    {Caption::terminalId, options::TerminalIDCaption},
    {Caption::transactionNumber, options::TransactionNumberCaption},
    {Caption::salesPerson, options::SalesPersonCaption},
    {Caption::taxedSellPrice, options::TaxedSellPriceCaption},
    {Caption::taxedWholesale, options::TaxedWholesaleCaption},
    {Caption::taxExempt, options::TaxExemptCaption},
    {Caption::itemTax, options::ItemTaxCaption},
    {Caption::itemsSold, options::ItemsSoldCaption},
    {Caption::totalExTax, options::TotalExTaxCaption},
    {Caption::taxTotal, options::TaxTotalCaption},
    {Caption::total, options::TotalCaption},
    {Caption::change, options::ChangeCaption},
    {Caption::balanceDue, options::BalanceDueCaption},
    {Caption::laybyOpening, options::LaybyOpeningBalanceCaption},
    {Caption::laybyClosing, options::LaybyClosingBalanceCaption},
    {Caption::laybyDateDue, options::LaybyDateDueCaption},
}};

}  // namespace

TransactionOptions::TransactionOptions(OptionsDialog& dialog) : OptionsTab(dialog) {
  ui::Rows& page = dialog.page(TabPage::transactions).rows();
  describeDetail(page.group(fraTransaction.add(detail), u"Transaction Detail"));
  const auto columns = page.columns({ui::kNatural, ui::kRest});
  describeLayby(columns[0]->group(fraTransaction.add(layby), u"Layby captions for..."));
  describeTendering(columns[1]->group(fraTransaction.add(tendering), u"Tendering"));
  chkTransaction.on(&ui::CheckBox::click, [this](int i) { enableCaptions(i); });
}

void TransactionOptions::describeDetail(ui::Rows& group) {
  addPrinted(group, printTerminalId, u"&Print the Terminal ID with this caption", terminalId,
             u"Caption for the Terminal ID", kCaptionWidth);
  addPrinted(group, printSalesPerson, u"P&rint the Sales Person with this caption", salesPerson,
             u"Caption for the Sales Person", kCaptionWidth);
  group.row({check(salesPersonBeforeFirst,
                   u"A &Sales Person must be selected before the first transaction")});
  group.row({check(salesPersonBeforeEach,
                   u"A Sa&les Person must be selected at the beginning of each transaction")});
  group.row(
      {check(salesPersonCanChange, u"The Sal&es Person can be changed during a transaction")});
  group.row({fill(label(0, u"Cap&tion for transaction number")),
             wide(txtCaption.add(transactionNumber), kCaptionWidth)});
  group.row({check(printAmountsWithTax, u"Print a&mounts including tax")});
  addPrinted(group, printItemTax, u"Print tax amount for eac&h sale item using this caption",
             itemTax, u"Caption for the tax amount of each sale item", kCaptionWidth);
  group.row({check(printTaxStatus,
                   u"Print caption n&ext to item amounts to indicate tax status using...")});
  group.row(
      {taxStatus(1, u"Taxed on s&ell price"), wide(txtCaption.add(taxedSellPrice), kTaxStatusWidth),
       taxStatus(3, u"Taxed on whol&esale price"),
       wide(txtCaption.add(taxedWholesale), kTaxStatusWidth), taxStatus(5, u"Tax &exempt"),
       wide(txtCaption.add(taxExempt), kTaxStatusWidth)},
      kIndent);
  group.row({check(enteredAmountsWithTax, u"Entered a&mounts include tax")});
}

void TransactionOptions::describeLayby(ui::Rows& group) {
  group.row({label(10, u"&Balance: Opening")});
  group.row({fill(txtCaption.add(laybyOpening))});
  group.row({label(11, u"Closi&ng")});
  group.row({fill(txtCaption.add(laybyClosing))});
  group.row({label(12, u"&Date due")});
  group.row({fill(txtCaption.add(laybyDateDue))});
}

void TransactionOptions::describeTendering(ui::Rows& group) {
  addPrinted(group, printItemsSold, u"Print n&umber of items sold using this caption", itemsSold,
             u"Caption for the number of items sold", kTenderingWidth);
  addPrinted(group, printTotal, u"Print the total o&f the sale including tax using this caption",
             total, u"Caption for the total including tax", kTenderingWidth);
  addPrinted(group, printTaxTotal, u"Print the ta&x total using this caption", taxTotal,
             u"Caption for the tax total", kTenderingWidth);
  addPrinted(group, printTotalExTax,
             u"Print the total of the sale excludin&g tax using this caption", totalExTax,
             u"Caption for the total excluding tax", kTenderingWidth);
  group.row({label(7, u"When tendering starts...")});
  group.row({label(8, u"Capt&ion for change"), fill(txtCaption.add(change)),
             label(9, u"Capt&ion for balance"), wide(txtCaption.add(balanceDue), kTenderingWidth)},
            kIndent);
}

ui::CheckBox& TransactionOptions::check(Check index, Text caption) {
  return chkTransaction.add(index, std::move(caption));
}

ui::Label& TransactionOptions::label(int index, Text caption) {
  return lblTransaction.add(index, std::move(caption));
}

ui::Cell TransactionOptions::taxStatus(int index, Text caption) {
  return engraved(label(index, std::move(caption)), label(index + 1, Text()));
}

void TransactionOptions::addPrinted(ui::Rows& group, Check index, Text caption, Caption box,
                                    Text boxName, ui::Length width) {
  group.row({fill(check(index, std::move(caption))),
             wide(txtCaption.add(box).setAccessibleName(std::move(boxName)), width)});
}

void TransactionOptions::load(OptionsRecord& record) {
  for (const auto& [index, box] : chkTransaction) enableCaptions(index);
  showBits(chkTransaction, record.getOrZero(options::TransactionOptionBits));
  for (const auto& [box, option] : kStored) txtCaption[box].setText(record.getOrDefault(option));
}

void TransactionOptions::enableCaptions(int check) {
  const bool ticked = chkTransaction[check].value();
  if (check == printTaxStatus) {
    for (const int i : {1, 3, 5}) enableLabel(lblTransaction[i], lblTransaction[i + 1], ticked);
    for (const Caption box : {taxedSellPrice, taxedWholesale, taxExempt}) {
      txtCaption[box].setEnabled(ticked);
    }
    return;
  }
  for (const Printed& printed : kPrinted) {
    if (printed.check == check) txtCaption[printed.box].setEnabled(ticked);
  }
}

void TransactionOptions::save(OptionsRecord& record) {
  saveBits(record, options::TransactionOptionBits, tickedBits(chkTransaction));
  for (const auto& [box, option] : kStored) record.set(option, txtCaption[box].text());
}

}  // namespace tillora
