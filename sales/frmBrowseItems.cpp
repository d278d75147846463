#include "sales/frmBrowseItems.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <utility>

#include "support/modJetSQLFixup.h"
#include "support/modListViewSupport.h"
#include "ui/busy_pointer.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr std::size_t kColumns = 4;

}  // namespace

/// What the list shows for a purpose, and which of its columns make a value.
struct frmBrowseItems::Columns {
  const char16_t* caption;
  const char16_t* instruction;
  std::array<const char16_t*, kColumns> headers;
  std::optional<int> group;
  int name;
  int sorted;
};

namespace {

using ui::ListItem;

constexpr ui::Length kListWidth = ui::characters(95);
constexpr int kListRows = 15;
constexpr std::array<TextView, 3> kProductTypes = {u"PART", u"STOCK", u"GRP"};
constexpr TextView kOtherCharge = u"OTHC";
constexpr TextView kIncomeAccount = u"INC";

/// Knows which accounts are active income accounts; asks the host for each only once.
class IncomeAccounts {
 public:
  explicit IncomeAccounts(JetDatabase& database) : table_(database.accountTable()) {}

  bool contains(TextView account) {
    const auto [known, isNew] = known_.try_emplace(Text(account), false);
    if (isNew) known->second = find(known->first);
    return known->second;
  }

 private:
  bool find(const Text& account) {
    Text criteria = u"[Name] = " + QuoteJetLiteral(account);
    criteria.append(u" AND [Inactive] = ").append(jetBoolean(false));
    criteria.append(u" AND [AccountType] = ").append(QuoteJetLiteral(kIncomeAccount));
    table_->findFirst(criteria);
    return !table_->noMatch();
  }

  std::unique_ptr<Table> table_;
  std::map<Text, bool> known_;
};

template <class T, class Visitor>
void forEach(Cursor<T>& list, Visitor visit) {
  for (list.moveFirst(); !list.atEnd(); list.moveNext()) visit(list);
}

/// Makes rows of properties of the current item. The memory of the texts is reused.
template <class T>
class RowReader {
 public:
  ListItem row(Cursor<T>& list, std::initializer_list<Text T::*> properties) {
    std::array<TextView, kColumns> cells;
    std::size_t cell = 0;
    for (const auto property : properties) {
      list.read(property, texts_.at(cell));
      cells.at(cell) = texts_.at(cell);
      ++cell;
    }
    return {ui::CellTexts(std::span(cells).first(cell))};
  }

 private:
  std::array<Text, kColumns> texts_;
};

}  // namespace

frmBrowseItems::frmBrowseItems(ui::Screen& screen) : Dialog(screen, Text()) {
  for (std::size_t i = 0; i < kColumns; ++i) ltvItems.addColumn(Text());
  toggleHeaderButtons(ltvItems);
  ltvItems.setAccessibleName(u"Items");
  rows().row({fill(lblLabel)});
  rows().block(ltvItems, ui::restFromLines(kListRows), kListWidth);
  okAndCancel(cmdCommand.add(ok, u"&OK"), u"Accept the selected item and close this window",
              cmdCommand.add(cancel, u"&Cancel"), u"Close this window");

  onRowDoubleClick(ltvItems, [this] { accept(); });
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { unload(); };
}

const frmBrowseItems::Columns& frmBrowseItems::columns() const {
  static constexpr Columns kProducts{
      u"Grade Product",
      u"Select the Product to be associated with the grade, then click the OK button.",
      {u"Product Number", u"Group", u"Item Name", u"Description"},
      1,
      2,
      2};
  static constexpr Columns kRoundingItems{
      u"Rounding Item",
      u"Select the Rounding Item for the rounded amount, then click the OK button.",
      {u"Group", u"Item Name", u"Description", u"Account"},
      0,
      1,
      1};
  // Sorted by account, not by name.
  static constexpr Columns kPaymentItems{
      u"Payment Item",
      u"Select the Payment Item the Currency Conversion entry will use, then click the OK button.",
      {u"Item Name", u"Description", u"Account", u""},
      std::nullopt,
      0,
      2};
  switch (BrowseType) {
    case gradeProduct:
      return kProducts;
    case roundingItem:
      return kRoundingItems;
    default:
      return kPaymentItems;
  }
}

void frmBrowseItems::onLoad() {
  const ui::BusyPointer busy(screen());
  showHeaders();
  ltvItems.setSearchColumn(columns().sorted).setRows(items());
  // Before they are put in order: as they were read they lie one after the other.
  autoSizeColumns(ltvItems, 0, ColumnFit::contentsOrHeader);
  sortRows(ltvItems, columns().sorted);
  preselect();
}

void frmBrowseItems::showHeaders() {
  setCaption(columns().caption);
  lblLabel.setCaption(columns().instruction);
  int position = 0;
  for (const char16_t* header : columns().headers) ltvItems.setColumnHeader(position++, header);
}

std::vector<ListItem> frmBrowseItems::items() const {
  switch (BrowseType) {
    case gradeProduct:
      return products();
    case roundingItem:
      return roundingItems();
    default:
      return paymentItems();
  }
}

std::vector<ListItem> frmBrowseItems::products() const {
  std::vector<ListItem> rows;
  RowReader<Item> reader;
  Text itemType;
  forEach(*requireObject(DBJetObject, u"DBJetObject").itemList(), [&](Cursor<Item>& items) {
    items.read(&Item::itemType, itemType);
    if (std::ranges::find(kProductTypes, itemType) == kProductTypes.end()) return;
    rows.push_back(
        reader.row(items, {&Item::productNumber, &Item::group, &Item::name, &Item::description}));
  });
  return rows;
}

std::vector<ListItem> frmBrowseItems::roundingItems() const {
  std::vector<ListItem> rows;
  JetDatabase& database = requireObject(DBJetObject, u"DBJetObject");
  IncomeAccounts incomeAccounts(database);
  RowReader<Item> reader;
  Text itemType;
  forEach(*database.itemList(), [&](Cursor<Item>& items) {
    items.read(&Item::itemType, itemType);
    if (itemType != kOtherCharge) return;
    ListItem row =
        reader.row(items, {&Item::group, &Item::name, &Item::description, &Item::account});
    if (incomeAccounts.contains(row.texts[3])) rows.push_back(std::move(row));
  });
  return rows;
}

std::vector<ListItem> frmBrowseItems::paymentItems() const {
  std::vector<ListItem> rows;
  RowReader<PaymentItem> reader;
  forEach(*requireObject(DBJetObject, u"DBJetObject").paymentItemList(),
          [&](Cursor<PaymentItem>& items) {
            rows.push_back(reader.row(
                items, {&PaymentItem::name, &PaymentItem::description, &PaymentItem::account}));
          });
  return rows;
}

void frmBrowseItems::preselect() {
  const Columns& shown = columns();
  const std::size_t colon = shown.group ? SelectedValue.rfind(u':') : Text::npos;
  const bool hasGroup = colon != Text::npos;
  const Text group = hasGroup ? SelectedValue.substr(0, colon) : Text();
  const Text name = hasGroup ? SelectedValue.substr(colon + 1) : SelectedValue;
  for (int row = 0; row < ltvItems.count(); ++row) {
    const auto& texts = ltvItems.rows()[static_cast<std::size_t>(row)].texts;
    const bool matches = texts[static_cast<std::size_t>(shown.name)] == name &&
                         (!shown.group || texts[static_cast<std::size_t>(*shown.group)] == group);
    if (!matches && !SelectedValue.empty()) continue;
    selectRow(ltvItems, row);
    return;
  }
}

void frmBrowseItems::accept() {
  const int row = ltvItems.selectedRow();
  const bool accepts = BrowseType >= gradeProduct && BrowseType <= paymentItem;
  if (row >= 0 && accepts) SelectedValue = valueOf(row);
  unload();
}

Text frmBrowseItems::valueOf(int row) const {
  const Columns& shown = columns();
  Text name = ltvItems.text(row, shown.name);
  if (!shown.group || ltvItems.text(row, *shown.group).empty()) return name;
  return ltvItems.text(row, *shown.group) + u":" + name;
}

void frmBrowseItems::onUnload() {
  DBJetObject.reset();
  SettingsObject.reset();
}

}  // namespace tillora
