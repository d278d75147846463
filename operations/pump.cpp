#include "operations/pump.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "base/numbers.h"
#include "operations/frmPumpGrade.h"
#include "support/check_box_bits.h"
#include "support/modListViewSupport.h"
#include "support/table_rows.h"
#include "ui/form.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr std::int32_t kHighestGrade = 15;
constexpr std::int32_t kReservedGrade = 12;  // for the pump console

constexpr ui::Length kListWidth = ui::characters(80);
constexpr int kLeastGrades = 8;
constexpr int kUnitCharacters = 18;

}  // namespace

PumpGrades::PumpGrades(OptionsDialog& dialog) : OptionsTab(dialog) {
  for (const char16_t* header : {u"Grade", u"Product", u"Caption"}) ltvPump.addColumn(header);
  toggleHeaderButtons(ltvPump);

  ui::Rows& rows = dialog.page(TabPage::pump).rows();
  rows.row({fill(label(assignments, u"&Grade and Product Assignments"))});
  rows.block(ltvPump, ui::restFromLines(kLeastGrades), kListWidth);
  rows.row({cmdPump.add(add, u"&New").setToolTip(u"Add a new Grade"),
            cmdPump.add(remove, u"D&elete").setToolTip(u"Delete the selected grade from the list"),
            cmdPump.add(edit, u"&Edit").setToolTip(u"Assign a product to the selected grade")});
  rows.row({fill(
      label(note, u"Note: Grade number 12 is reserved for special use in the Pump Console."))});
  rows.gap();
  rows.field({label(volumeUnitLabel, u"Caption for &volume unit"),
              wide(txtPump.add(volumeUnit), ui::characters(kUnitCharacters))});
  rows.field({label(priceUnitLabel, u"Caption for price per &unit"),
              wide(txtPump.add(priceUnit), ui::characters(kUnitCharacters))});
  rows.row({fill(chkPump.add(0, u"Print Pump Dispenser Caption on Receipt"))});

  onRowDoubleClick(ltvPump, [this] { editGrade(); });
  onInsertAndDelete(ltvPump, cmdPump[add], cmdPump[remove]);
  cmdPump[add].click = [this] { addGrade(); };
  cmdPump[remove].click = [this] { deleteGrade(); };
  cmdPump[edit].click = [this] { editGrade(); };
}

ui::Label& PumpGrades::label(Label index, Text caption) {
  return lblPump.add(index, std::move(caption));
}

void PumpGrades::load(OptionsRecord& record) {
  txtPump[volumeUnit].setText(record.getOrDefault(options::PumpVolumeUnitCaption));
  txtPump[priceUnit].setText(record.getOrDefault(options::PumpPriceUnitCaption));
  showBits(chkPump, record.getOrDefault(options::PumpOptionBits));
  loadGrades();
}

void PumpGrades::loadGrades() {
  const auto table = dialog_.database().gradeTable();
  grades_.clear();
  for (table->moveFirst(); !table->atEnd(); table->moveNext()) {
    const auto number = numberKeyOf(*table, fields::grade::GradeNumber);
    if (!number || isListed(*number)) continue;
    Text sold = table->text(fields::grade::Product);
    if (sold.empty()) sold = kNoProduct;
    grades_.push_back({*number, std::move(sold), table->text(fields::grade::Caption)});
  }
  std::vector<ui::ListItem> rows;
  std::ranges::transform(grades_, std::back_inserter(rows), itemOf);
  ltvPump.setRows(std::move(rows));
  if (ltvPump.count() > 0) selectRow(ltvPump, 0);
  rowsChanged();
}

ui::ListItem PumpGrades::itemOf(const Grade& grade) {
  return {{decimalText(grade.number), grade.product, grade.caption}};
}

void PumpGrades::rowsChanged() {
  autoSizeColumns(ltvPump, 0, ColumnFit::contentsOrHeader);
  for (const Command command : {remove, edit}) cmdPump[command].setEnabled(ltvPump.count() > 0);
}

void PumpGrades::addGrade() {
  const auto number = freeNumber();
  if (!number) {
    // The text says 15, but 14 is the most, since 12 is never given to a new grade.
    dialog_.messages().warn(u"You cannot add more grades.  A maximum of " +
                                decimalText(kHighestGrade) + u" grades are allowed.",
                            u"Cannot add grade");
    return;
  }
  frmPumpGrade dialog(ltvPump.form().screen());
  dialog.GradeNumber = *number;
  dialog.Product = kNoProduct;
  if (!accepted(dialog)) return;
  grades_.push_back({*number, dialog.Product, dialog.Caption});
  selectRow(ltvPump, ltvPump.addRow(itemOf(grades_.back())));
  rowsChanged();
  dialog_.markChanged();
  if (*number == kHighestGrade) cmdPump[add].setEnabled(false);
}

std::optional<std::int32_t> PumpGrades::freeNumber() const {
  for (std::int32_t number = 1; number <= kHighestGrade; ++number) {
    if (number != kReservedGrade && !isListed(number)) return number;
  }
  return std::nullopt;
}

bool PumpGrades::isListed(std::int32_t number) const {
  return std::ranges::find(grades_, number, &Grade::number) != grades_.end();
}

void PumpGrades::editGrade() {
  const int row = ltvPump.selectedRow();
  if (row < 0) return;
  Grade& edited = grades_[static_cast<std::size_t>(row)];
  frmPumpGrade dialog(ltvPump.form().screen());
  dialog.EditMode = true;
  dialog.GradeNumber = edited.number;
  dialog.Caption = edited.caption;
  dialog.Product = edited.product;
  if (!accepted(dialog)) return;
  edited.product = dialog.Product;
  edited.caption = dialog.Caption;
  ltvPump.setRow(row, itemOf(edited));
  rowsChanged();
  dialog_.markChanged();
}

bool PumpGrades::accepted(frmPumpGrade& dialog) {
  dialog.DBJetObject = dialog_.host().database;
  dialog.SettingsObject = dialog_.host().settings;
  dialog.showModal();
  return !dialog.Cancelled();
}

void PumpGrades::deleteGrade() {
  const int row = ltvPump.selectedRow();
  if (row < 0) return;
  const Text question =
      u"Are you sure you want to permanently delete grade " + ltvPump.text(row, grade) + u" ?";
  if (!dialog_.messages().ask(question, u"Delete grade")) return;
  grades_.erase(grades_.begin() + row);
  ltvPump.removeRow(row);
  dialog_.markChanged();
  cmdPump[add].setEnabled(true);
  rowsChanged();
}

void PumpGrades::save(OptionsRecord& record) {
  record.set(options::PumpVolumeUnitCaption, txtPump[volumeUnit].text());
  record.set(options::PumpPriceUnitCaption, txtPump[priceUnit].text());
  saveBits(record, options::PumpOptionBits, tickedBits(chkPump));
  saveGrades();
}

void PumpGrades::saveGrades() {
  const auto table = dialog_.database().gradeTable();
  std::set<Text> listed;
  for (const Grade& stored : grades_) {
    const Text number = decimalText(stored.number);
    listed.insert(number);
    if (editOrAdd(*table, u"[GradeNumber] = " + number)) {
      table->set(fields::grade::GradeNumber, stored.number);
    }
    table->set(fields::grade::Product, stored.product);
    table->set(fields::grade::Caption, stored.caption);
    table->update();
  }
  removeUnlisted(*table, fields::grade::GradeNumber, listed, [](const Text&) { return true; });
}

}  // namespace tillora
