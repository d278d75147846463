#include "sales/list_columns.h"

#include <array>
#include <span>
#include <vector>

#include "support/check_box_bits.h"
#include "ui/layout.h"

namespace tillora {
namespace {

struct Column {
  const char16_t* name;
  std::int32_t bits;
};

constexpr Column kSalesPersonColumns[] = {
    {u"ID", 0x8},          {u"Initials", 0x1}, {u"Name", 0x10}, {u"Middle Initial", 0x2},
    {u"Mr/Mrs/Miss", 0x4},
};

constexpr Column kProductColumns[] = {
    {u"Number", 0x4000},
    {u"Barcode", 0x1},
    {u"Type", 0x2000},
    {u"Description", 0x8},
    {u"Include Tax in Prices", 0x800},
    {u"Price", 0x10},
    {u"Price 2", 0x20},
    {u"Price 3", 0x40},
    {u"Tax Code", 0x80},
    {u"Cost", 0x100},
    {u"Purchase Tax Code", 0x1000},
    {u"On Hand", 0x200},
    {u"Supplier", -0x8000},  // bits 15 to 31: hosts expect the value 0xFFFF8000
};

constexpr Column kCustomerColumns[] = {
    {u"Company Name", 0x2},
    {u"Name", 0x4},
    {u"Job", 0x1000000},
    {u"Middle Initial", 0x8},
    {u"Mr/Mrs/Miss", 0x10},
    {u"Contact", 0x20},
    {u"Alt. Contact", 0x40},
    {u"Billing Address", 0x80},
    {u"Shipping Address", 0x100},
    {u"Phone", 0x200},
    {u"Alt. Phone", 0x400},
    {u"Fax", 0x800},
    {u"E-mail", 0x1000},
    {u"Type", 0x2000},
    {u"Sales Person", 0x4000},
    {u"Terms", 0x8000},
    {u"Credit Limit", 0x10000},
    {u"Balance", 0x20000},
    {u"Credit Available", 0x40000},
    {u"Price Level", 0x80000},
    {u"Percentage", 0x100000},
    {u"ABN", 0x200000},
    {u"Barcode", 0x400000},
    {u"Notes", 0x800000},
};

constexpr Column kLaybyCustomerColumns[] = {
    {u"Middle Initial", 0x1}, {u"Mr/Mrs/Miss", 0x2}, {u"Number of Laybys", 0x4},
    {u"Address", 0x8},        {u"Phone", 0x10},      {u"Alt. Phone", 0x20},
    {u"Fax", 0x40},           {u"E-mail", 0x80},     {u"Amount", 0x100},
    {u"Payments", 0x200},     {u"Balance", 0x400},   {u"Notes", 0x800},
};

constexpr Column kCurrencyColumns[] = {
    {u"Code", 0x2},      {u"Type", 0x4},           {u"Name", 0x8},          {u"Base Rate", 0x10},
    {u"% Margin", 0x20}, {u"Exchange Rate", 0x40}, {u"Payment Item", 0x80},
};

struct ListInfo {
  const char16_t* label;
  std::span<const Column> columns;
  const Option<OptionType::Long>& option;
  OptionChange change;
};

constexpr std::array<ListInfo, ListColumns::count> kLists = {{
    {u"&Show in Sales Person List", kSalesPersonColumns, options::SalesPersonListColumns,
     OptionChange::SalesPersonColumns},
    {u"Show in &Product List", kProductColumns, options::ProductListColumns,
     OptionChange::ProductColumns},
    {u"Sho&w in Customer List", kCustomerColumns, options::CustomerListColumns,
     OptionChange::CustomerColumns},
    {u"Show in &Layby Customer List", kLaybyCustomerColumns, options::LaybyCustomerListColumns,
     OptionChange::LaybyCustomerColumns},
    {u"Show in C&urrency Conversion List", kCurrencyColumns, options::CurrencyListColumns,
     OptionChange::CurrencyColumns},
}};

const ListInfo& infoOf(int list) { return kLists[static_cast<std::size_t>(list)]; }

// These alone do not identify a sales person.
constexpr std::int32_t kMiddleInitial = 0x2;
constexpr std::int32_t kMrMrsMiss = 0x4;

constexpr int kUpperRows = 13;       // all of the product list
constexpr int kLeastLowerRows = 12;  // all of the layby customer list

std::vector<std::int32_t> tickedBits(const ui::CheckListBox& list) {
  std::vector<std::int32_t> bits;
  for (const auto& row : list.rows()) {
    if (row.checked) bits.push_back(row.itemData);
  }
  return bits;
}

std::int32_t chosenMask(const ui::CheckListBox& list) {
  std::int32_t mask = 0;
  for (const std::int32_t bits : tickedBits(list)) mask |= bits;
  return mask;
}

}  // namespace

ListColumns::ListColumns(OptionsDialog& dialog) : OptionsTab(dialog) {
  const auto columns =
      dialog.page(TabPage::lists).rows().columns({ui::kRest, ui::kRest, ui::kRest});
  constexpr ui::Length kRest = ui::restFromLines(kLeastLowerRows);
  addList(*columns[0], salesPerson, ui::lines(kUpperRows));
  addList(*columns[1], product, ui::lines(kUpperRows));
  addList(*columns[2], customer, kRest);
  columns[0]->gap();
  addList(*columns[0], laybyCustomer, kRest);
  columns[1]->gap();
  addList(*columns[1], currency, kRest);
}

void ListColumns::addList(ui::Rows& column, List index, ui::Length height) {
  const ListInfo& info = infoOf(index);
  ui::CheckListBox& list = lstListShow.add(index);
  for (const Column& row : info.columns) list.addRow(row.name, row.bits);
  column.row({lblLists.add(index, info.label)});
  column.block(list, height);
}

void ListColumns::load(OptionsRecord& record) {
  for (const auto& [index, list] : lstListShow) {
    const std::int32_t mask = record.getOrDefault(infoOf(index).option);
    for (int row = list->count() - 1; row >= 0; --row) {
      list->setChecked(row, (mask & list->rows()[static_cast<std::size_t>(row)].itemData) != 0);
    }
  }
}

bool ListColumns::validate(const Text& title) {
  const std::int32_t names = chosenMask(lstListShow[salesPerson]) & ~kMiddleInitial;
  if (names == 0 || names == kMrMrsMiss) return refuse(title, u"Sales Person");
  if (chosenMask(lstListShow[currency]) == 0) return refuse(title, u"Currency");
  return true;
}

bool ListColumns::refuse(const Text& title, TextView list) {
  Text text = title + u" requires at least one column to be displayed in the ";
  text.append(list).append(
      u" list.\r\n\r\nSelect at least one column before applying your changes.");
  dialog_.messages().warn(text, u"Not enough columns");
  dialog_.selectTab(TabPage::lists);
  return false;
}

void ListColumns::save(OptionsRecord& record, OptionChanges& changes) {
  for (const auto& [index, list] : lstListShow) {
    const ListInfo& info = infoOf(index);
    const std::int32_t before = record.getOrZero(info.option);
    if (saveBits(record, info.option, tickedBits(*list)) != before) changes.set(info.change);
  }
}

}  // namespace tillora
