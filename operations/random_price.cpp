#include "operations/random_price.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "base/numbers.h"
#include "operations/frmRandomPrice.h"
#include "support/check_box_bits.h"
#include "support/modListViewSupport.h"
#include "support/table_rows.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

namespace field = fields::randomPrice;

constexpr int kFormatRows = 11;

// A table without formats gets all prefixes from the first to the last; a table without the extra
// prefix gets that one.
constexpr std::int32_t kFirstPrefix = 20;
constexpr std::int32_t kLastPrefix = 29;
constexpr std::int32_t kUsualFormat = 1;
constexpr std::int32_t kExtraPrefix = 2;
constexpr std::int32_t kExtraFormat = 3;

/// Makes the first row with this prefix the current one. False if there is none.
bool find(Table& table, std::int32_t prefix) {
  table.findFirst(u"[Prefix] = " + decimalText(prefix));
  return !table.noMatch();
}

/// Writes the format into the row that was started, and stores it.
void store(Table& table, const clsRandomPrice& format) {
  table.set(field::FormatID, format.mlFormatID);
  table.set(field::OptionBits, format.mlOptionBits);
  table.set(field::UOMUnitCaption, format.msUOMUnitCaption);
  table.set(field::UOMPriceUnitCaption, format.msUOMPriceUnitCaption);
  table.set(field::Inactive, format.mbInactive);
  table.update();
}

void add(Table& table, const clsRandomPrice& format) {
  table.addNew();
  table.set(field::Prefix, format.mlPrefix);
  store(table, format);
}

clsRandomPrice newFormat(std::int32_t prefix, std::int32_t formatId) {
  return {.mbInactive = true,
          .mlFormatID = formatId,
          .mlPrefix = prefix,
          .mlOptionBits = kPriceIncludesTax,
          .msUOMUnitCaption = u"kg",
          .msUOMPriceUnitCaption = u"/kg"};
}

bool isOfNewTable(std::int32_t prefix) {
  return (prefix >= kFirstPrefix && prefix <= kLastPrefix) || prefix == kExtraPrefix;
}

/// Takes back the formats of a new table as far as possible: a table with some of them would never
/// get the others.
void takeBackNewFormats(Table& table) noexcept {
  try {
    for (table.moveFirst(); !table.atEnd(); table.moveNext()) {
      if (isOfNewTable(table.integer(field::Prefix))) table.remove();
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): what counts is the failure that led here
  }
}

/// Adds the formats that a table lacks. If that fails, one without formats stays without any.
void addMissingFormats(Table& table) {
  table.moveFirst();
  const bool isNew = table.atEnd();
  try {
    for (std::int32_t prefix = kFirstPrefix; isNew && prefix <= kLastPrefix; ++prefix) {
      add(table, newFormat(prefix, kUsualFormat));
    }
    if (!find(table, kExtraPrefix)) add(table, newFormat(kExtraPrefix, kExtraFormat));
  } catch (...) {
    if (isNew) takeBackNewFormats(table);
    throw;
  }
}

/// The format of the current row; none if the row has no prefix.
std::optional<clsRandomPrice> read(Table& table) {
  const auto prefix = numberKeyOf(table, field::Prefix);
  if (!prefix) return std::nullopt;
  clsRandomPrice format;
  format.mlPrefix = *prefix;
  format.mlFormatID = table.integer(field::FormatID);
  format.mlOptionBits = table.integer(field::OptionBits);
  format.msUOMUnitCaption = table.text(field::UOMUnitCaption);
  format.msUOMPriceUnitCaption = table.text(field::UOMPriceUnitCaption);
  format.mbInactive = table.boolean(field::Inactive);
  return format;
}

/// Empty for an id that no layout has.
Text descriptionOf(std::int32_t formatId) {
  const auto position = static_cast<std::size_t>(formatId) - 1;
  return position < kBarcodeLayouts.size() ? kBarcodeLayouts[position].description : u"";
}

std::vector<Text> descriptions() {
  std::vector<Text> byFormatId;
  for (std::size_t id = 0; id <= kBarcodeLayouts.size(); ++id) {
    byFormatId.push_back(descriptionOf(static_cast<std::int32_t>(id)));
  }
  return byFormatId;
}

ui::ListItem itemOf(const clsRandomPrice& format) {
  const auto yesNo = [&](RandomPriceOption option) {
    return Text((format.mlOptionBits & option) != 0 ? u"Yes" : u"No");
  };
  return {{u"", shownPrefix(format.mlPrefix), descriptionOf(format.mlFormatID),
           yesNo(kPriceIncludesTax), yesNo(kCalculateUnitOfMeasure), format.msUOMUnitCaption,
           format.msUOMPriceUnitCaption},
          format.mbInactive ? ui::PictureId::inactive : ui::PictureId::active};
}

}  // namespace

RandomPrice::RandomPrice(OptionsDialog& dialog) : OptionsTab(dialog) {
  constexpr std::array kHeaders = {u"",
                                   u"Prefix",
                                   u"Format",
                                   u"Price Inc. Tax",
                                   u"Calculate UOM",
                                   u"UOM Unit",
                                   u"UOM Price Per Unit"};
  for (const char16_t* header : kHeaders) ltvRandomPrice.addColumn(header);
  ltvRandomPrice.setSmallIcons(dialog.images()).setSearchColumn(prefix);

  ui::Rows& page = dialog.page(TabPage::scanning).rows();
  ui::Rows& group = page.group(fraRandomPrice, u"EAN-13 Random Pricing");
  group.row({fill(chkRandomPrice.add(0, u"Ac&tivate random price barcode scanning"))});
  group.row({lblRandomPrice.setCaption(u"&Barcode Formats")});
  group.block(ltvRandomPrice, ui::restFromLines(kFormatRows));
  group.row({cmdRandomPrice.setCaption(u"&Edit").setToolTip(u"Edit the selected barcode format")});

  onRowDoubleClick(ltvRandomPrice, [this] { EditRandomPrice(); });
  cmdRandomPrice.click = [this] { EditRandomPrice(); };
}

void RandomPrice::load(OptionsRecord& record) {
  showBits(chkRandomPrice, record.getOrDefault(options::RandomPriceScanningFlags));
  loadFormats();
  showFormats();
}

void RandomPrice::loadFormats() {
  const auto table = dialog_.database().randomPriceTable();
  addMissingFormats(*table);

  formats_.clear();
  for (table->moveFirst(); !table->atEnd(); table->moveNext()) {
    const std::optional<clsRandomPrice> format = read(*table);
    if (!format) continue;
    // Of rows with the same prefix only the first counts, as in the search of a save.
    if (std::ranges::find(formats_, format->mlPrefix, &clsRandomPrice::mlPrefix) ==
        formats_.end()) {
      formats_.push_back(*format);
    }
  }
}

void RandomPrice::showFormats() {
  std::vector<ui::ListItem> rows;
  std::ranges::transform(formats_, std::back_inserter(rows), itemOf);
  ltvRandomPrice.setRows(std::move(rows));
  if (!formats_.empty()) ltvRandomPrice.setSelectedRow(0);
  fitColumns();
}

void RandomPrice::fitColumns() {
  autoSizeColumns(ltvRandomPrice, 0, ColumnFit::contentsOrHeader);
  ltvRandomPrice.setColumnWidth(icon, kIconColumnWidth);
}

void RandomPrice::EditRandomPrice() {
  const int row = ltvRandomPrice.selectedRow();
  if (row < 0) return;
  clsRandomPrice& edited = formats_[static_cast<std::size_t>(row)];

  frmRandomPrice editor(fraRandomPrice.form().screen());
  editor.Prefix = edited.mlPrefix;
  editor.FormatID = edited.mlFormatID;
  editor.Inactive = edited.mbInactive;
  editor.OptionBits = edited.mlOptionBits;
  editor.UOMUnitCaption = edited.msUOMUnitCaption;
  editor.UOMPriceUnitCaption = edited.msUOMPriceUnitCaption;
  editor.FormatDescriptions = descriptions();
  editor.showModal();
  if (editor.Cancelled()) return;

  dialog_.markChanged();
  edited.mlFormatID = editor.FormatID;
  edited.mbInactive = editor.Inactive;
  edited.mlOptionBits = editor.OptionBits;
  edited.msUOMUnitCaption = editor.UOMUnitCaption;
  edited.msUOMPriceUnitCaption = editor.UOMPriceUnitCaption;
  ltvRandomPrice.setRow(row, itemOf(edited));
  fitColumns();
}

void RandomPrice::save(OptionsRecord& record) {
  saveBits(record, options::RandomPriceScanningFlags, tickedBits(chkRandomPrice));
  const auto table = dialog_.database().randomPriceTable();
  for (const clsRandomPrice& format : formats_) {
    if (find(*table, format.mlPrefix)) {
      table->edit();
      store(*table, format);
    } else {
      add(*table, format);
    }
  }
}

}  // namespace tillora
