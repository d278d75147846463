#include "identity/web_sites.h"

#include <utility>

#include "identity/frmWebSite.h"
#include "support/modJetSQLFixup.h"
#include "support/modListViewSupport.h"
#include "support/table_rows.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr ui::Length kListWidth = ui::characters(80);
constexpr int kLeastSites = 10;
constexpr TextView kFirstDescription = u"Ledvane Point of Sale Home Page";
constexpr TextView kFirstUrl = u"https://www.ledvane.example/point-of-sale";

ui::ListItem toRow(Text description, Text url, bool inactive) {
  return {{Text(), std::move(description), std::move(url)},
          inactive ? ui::PictureId::inactive : ui::PictureId::active};
}

bool isInactive(const ui::ListItem& row) { return row.smallIcon == ui::PictureId::inactive; }

void addFirstSite(Table& table) {
  table.addNew();
  table.set(fields::webSite::Description, Text(kFirstDescription));
  table.set(fields::webSite::URL, Text(kFirstUrl));
  table.set(fields::webSite::Inactive, false);
  table.update();
}

}  // namespace

WebSites::WebSites(OptionsDialog& dialog) : OptionsTab(dialog) {
  ltvWeb.addColumn(Text(), kIconColumnWidth);
  ltvWeb.addColumn(u"Description");
  ltvWeb.addColumn(u"URL");
  ltvWeb.setSmallIcons(dialog.images()).setSearchColumn(description);
  toggleHeaderButtons(ltvWeb);

  ui::Rows& rows = dialog.page(TabPage::web).rows();
  rows.row({fill(lblWeb.setCaption(u"&Web Sites"))});
  rows.block(ltvWeb, ui::restFromLines(kLeastSites), kListWidth);
  rows.row(
      {cmdWeb.add(add, u"&New").setToolTip(u"Add a new Web Site"),
       cmdWeb.add(edit, u"&Edit").setToolTip(u"Assign or change details of the selected Web Site"),
       cmdWeb.add(remove, u"D&elete").setToolTip(u"Delete the selected Web Site from the list")});

  onRowDoubleClick(ltvWeb, [this] { commandClick(edit); });
  onInsertAndDelete(ltvWeb, cmdWeb[add], cmdWeb[remove]);
  cmdWeb.on(&ui::CommandButton::click, [this](int index) { commandClick(index); });
}

void WebSites::load() {
  const auto table = dialog_.database().webSiteTable();
  table->moveFirst();
  if (dialog_.firstUse() && table->atEnd()) addFirstSite(*table);

  std::vector<ui::ListItem> rows;
  ours_.clear();
  for (table->moveFirst(); !table->atEnd(); table->moveNext()) {
    auto address = keyOf(*table, fields::webSite::URL);
    if (!address) continue;
    ours_.insert(*address);
    rows.push_back(toRow(table->text(fields::webSite::Description), *std::move(address),
                         table->boolean(fields::webSite::Inactive)));
  }
  ltvWeb.setRows(std::move(rows));
  if (ltvWeb.count() > 0) selectRow(ltvWeb, 0);
  rowsChanged();
}

void WebSites::rowsChanged() {
  for (const Column column : {description, url}) {
    autoSizeColumns(ltvWeb, column + 1, ColumnFit::contentsOrHeader);
  }
  for (const Command command : {edit, remove}) cmdWeb[command].setEnabled(ltvWeb.count() > 0);
}

void WebSites::commandClick(int index) {
  switch (index) {
    case add:
      addSite();
      break;
    case edit:
      editSite();
      break;
    default:
      deleteSite();
      break;
  }
}

void WebSites::addSite() {
  dialog_.markChanged();
  frmWebSite dialog(dialog_.platform(), dialog_.messages());
  dialog.showModal();
  if (dialog.Cancelled()) return;
  selectRow(ltvWeb, ltvWeb.addRow(toRow(dialog.Description, dialog.URL, dialog.Inactive)));
  rowsChanged();
}

void WebSites::editSite() {
  const int row = ltvWeb.selectedRow();
  if (row < 0) return;
  frmWebSite dialog(dialog_.platform(), dialog_.messages());
  dialog.EditMode = true;
  dialog.Description = ltvWeb.text(row, description);
  dialog.URL = ltvWeb.text(row, url);
  dialog.Inactive = isInactive(ltvWeb.rows()[static_cast<std::size_t>(row)]);
  dialog.showModal();
  if (dialog.Cancelled()) return;
  ltvWeb.setRow(row, toRow(dialog.Description, dialog.URL, dialog.Inactive));
  rowsChanged();
  dialog_.markChanged();
}

void WebSites::deleteSite() {
  const int row = ltvWeb.selectedRow();
  if (row < 0) return;
  Text question = u"Are you sure you want to permanently delete web site '";
  question.append(ltvWeb.text(row, description)).append(u" (");
  question.append(ltvWeb.text(row, url)).append(u")' ?");
  if (!dialog_.messages().ask(question, u"Delete web site")) return;
  ltvWeb.removeRow(row);
  rowsChanged();
  dialog_.markChanged();
}

void WebSites::save() {
  const auto table = dialog_.database().webSiteTable();
  std::set<Text> listed;
  for (const ui::ListItem& row : ltvWeb.rows()) {
    const Text address(row.texts[url]);
    listed.insert(address);
    editOrAdd(*table, u"[URL] = " + QuoteJetLiteral(address));
    table->set(fields::webSite::Description, Text(row.texts[description]));
    table->set(fields::webSite::URL, address);
    table->set(fields::webSite::Inactive, isInactive(row));
    table->update();
  }
  removeUnlisted(*table, fields::webSite::URL, listed,
                 [this](const Text& address) { return ours_.contains(address); });
  ours_ = std::move(listed);
}

}  // namespace tillora
