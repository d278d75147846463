#include "sales/transactions.h"

#include <array>
#include <utility>
#include <vector>

#include "support/check_box_bits.h"
#include "support/modEnableLabel.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using ui::Cell;

constexpr int kCaptionWidth = 2700;
constexpr int kTenderingWidth = 1450;
constexpr int kTaxStatusWidth = 1200;
constexpr int kIndent = 300;
constexpr int kLaybyWidth = 2300;

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
  ui::Frame& page = dialog.page(TabPage::transactions);
  fraTransaction.set(detail, page.add<ui::Frame>(u"Transaction Detail"));
  fraTransaction.set(layby, page.add<ui::Frame>(u"Layby captions for..."));
  fraTransaction.set(tendering, page.add<ui::Frame>(u"Tendering"));
  makeDetail();
  makeLayby();
  makeTendering();
  layOut();
  chkTransaction.on(&ui::CheckBox::click, [this](int i) { enableCaptions(i); });
}

void TransactionOptions::addCheck(Group group, Check index, Text caption) {
  chkTransaction.set(index, fraTransaction[group].add<ui::CheckBox>(std::move(caption)));
}

void TransactionOptions::addCheck(Group group, Check index, Text caption, Caption box) {
  addCheck(group, index, std::move(caption));
  txtCaption.set(box, fraTransaction[group].add<ui::TextBox>())
      .setAccessibleName(ui::withoutAccessKey(chkTransaction[index].caption()));
}

void TransactionOptions::addLabel(Group group, int index, Text caption) {
  lblTransaction.set(index, fraTransaction[group].add<ui::Label>(std::move(caption)));
}

void TransactionOptions::addCaption(Group group, int label, Text caption, Caption box) {
  addLabel(group, label, std::move(caption));
  txtCaption.set(box, fraTransaction[group].add<ui::TextBox>());
}

void TransactionOptions::makeDetail() {
  addCheck(detail, printTerminalId, u"&Print the Terminal ID with this caption", terminalId);
  addCheck(detail, printSalesPerson, u"P&rint the Sales Person with this caption", salesPerson);
  addCheck(detail, salesPersonBeforeFirst,
           u"A &Sales Person must be selected before the first transaction");
  addCheck(detail, salesPersonBeforeEach,
           u"A Sa&les Person must be selected at the beginning of each transaction");
  addCheck(detail, salesPersonCanChange, u"The Sal&es Person can be changed during a transaction");
  addCaption(detail, 0, u"Cap&tion for transaction number", transactionNumber);
  addCheck(detail, printAmountsWithTax, u"Print a&mounts including tax");
  addCheck(detail, printItemTax, u"Print tax amount for eac&h sale item using this caption",
           itemTax);
  addCheck(detail, printTaxStatus,
           u"Print caption n&ext to item amounts to indicate tax status using...");
  for (const int shadow : {2, 4, 6}) addLabel(detail, shadow, u"");
  addCaption(detail, 1, u"Taxed on s&ell price", taxedSellPrice);
  addCaption(detail, 3, u"Taxed on whol&esale price", taxedWholesale);
  addCaption(detail, 5, u"Tax &exempt", taxExempt);
  addCheck(detail, enteredAmountsWithTax, u"Entered a&mounts include tax");
}

void TransactionOptions::makeLayby() {
  addCaption(layby, 10, u"&Balance: Opening", laybyOpening);
  addCaption(layby, 11, u"Closi&ng", laybyClosing);
  addCaption(layby, 12, u"&Date due", laybyDateDue);
}

void TransactionOptions::makeTendering() {
  addCheck(tendering, printItemsSold, u"Print n&umber of items sold using this caption", itemsSold);
  addCheck(tendering, printTotal, u"Print the total o&f the sale including tax using this caption",
           total);
  addCheck(tendering, printTaxTotal, u"Print the ta&x total using this caption", taxTotal);
  addCheck(tendering, printTotalExTax,
           u"Print the total of the sale excludin&g tax using this caption", totalExTax);
  addLabel(tendering, 7, u"When tendering starts...");
  addCaption(tendering, 8, u"Capt&ion for change", change);
  addCaption(tendering, 9, u"Capt&ion for balance", balanceDue);
}

void TransactionOptions::layOut() {
  ui::Rows page = ui::Rows::onPage(dialog_.page(TabPage::transactions));
  layOutDetail(page);
  std::vector<ui::Rows> columns = page.columns({kLaybyWidth, Cell::kFill});
  layOutLayby(columns[0]);
  layOutTendering(columns[1]);

  ui::Rect place = fraTransaction[layby].bounds();
  place.height = fraTransaction[tendering].bounds().height;
  fraTransaction[layby].setBounds(place);
}

void TransactionOptions::layOutDetail(ui::Rows& page) {
  const auto& check = chkTransaction;
  const auto& label = lblTransaction;
  const auto& box = txtCaption;
  ui::Rows rows = page.group(fraTransaction[detail]);
  rows.row({{check[printTerminalId], Cell::kFill}, {box[terminalId], kCaptionWidth}});
  rows.row({{check[printSalesPerson], Cell::kFill}, {box[salesPerson], kCaptionWidth}});
  rows.row({{check[salesPersonBeforeFirst]}});
  rows.row({{check[salesPersonBeforeEach]}});
  rows.row({{check[salesPersonCanChange]}});
  rows.row({{label[0], Cell::kFill}, {box[transactionNumber], kCaptionWidth}});
  rows.row({{check[printAmountsWithTax]}});
  rows.row({{check[printItemTax], Cell::kFill}, {box[itemTax], kCaptionWidth}});
  rows.row({{check[printTaxStatus]}});
  rows.row({{label[1]},
            {box[taxedSellPrice], kTaxStatusWidth},
            {label[3]},
            {box[taxedWholesale], kTaxStatusWidth},
            {label[5]},
            {box[taxExempt], kTaxStatusWidth}},
           kIndent);
  for (const int i : {1, 3, 5}) {
    label[i + 1].setBounds(label[i].bounds());
    label[i + 1].setVisible(false);
  }
  rows.row({{check[enteredAmountsWithTax]}});
  page.endGroup(fraTransaction[detail], rows);
}

void TransactionOptions::layOutLayby(ui::Rows& column) {
  ui::Rows rows = column.group(fraTransaction[layby]);
  rows.row({{lblTransaction[10]}});
  rows.row({{txtCaption[laybyOpening], Cell::kFill}});
  rows.row({{lblTransaction[11]}});
  rows.row({{txtCaption[laybyClosing], Cell::kFill}});
  rows.row({{lblTransaction[12]}});
  rows.row({{txtCaption[laybyDateDue], Cell::kFill}});
  column.endGroup(fraTransaction[layby], rows);
}

void TransactionOptions::layOutTendering(ui::Rows& column) {
  const auto& check = chkTransaction;
  const auto& label = lblTransaction;
  const auto& box = txtCaption;
  ui::Rows rows = column.group(fraTransaction[tendering]);
  rows.row({{check[printItemsSold], Cell::kFill}, {box[itemsSold], kTenderingWidth}});
  rows.row({{check[printTotal], Cell::kFill}, {box[total], kTenderingWidth}});
  rows.row({{check[printTaxTotal], Cell::kFill}, {box[taxTotal], kTenderingWidth}});
  rows.row({{check[printTotalExTax], Cell::kFill}, {box[totalExTax], kTenderingWidth}});
  rows.row({{label[7]}});
  rows.row({{label[8]}, {box[change], Cell::kFill}, {label[9]}, {box[balanceDue], kTenderingWidth}},
           kIndent);
  column.endGroup(fraTransaction[tendering], rows);
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
