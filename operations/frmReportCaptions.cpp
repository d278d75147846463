#include "operations/frmReportCaptions.h"

#include <algorithm>
#include <span>

#include "base/text_rules.h"
#include "operations/report_captions.h"
#include "support/modSelectAllText.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using Boxes = ui::ControlArray<ui::TextBox>;
using Labels = ui::ControlArray<ui::Label>;
using Captions = std::span<const ReportCaption>;

constexpr ui::Size kClientSize{10650, 8850};
constexpr int kMargin = 120;
constexpr int kNoteLines = 8;

// What a message calls the texts of a page.
constexpr TextView kTitlesName = u"Report Titles";
constexpr TextView kDetailsName = u"Report Detail captions";

void addBoxes(ui::Frame& page, Captions captions, Labels& labels, Boxes& boxes) {
  int index = 0;
  for (const ReportCaption& caption : captions) {
    labels.set(index, page.add<ui::Label>(Text(caption.label())));
    boxes.set(index++, page.add<ui::TextBox>());
  }
}

void placeLabelColumn(ui::Rows& rows, const Labels& labels) {
  for (const auto& [index, label] : labels) rows.labelColumn({label});
}

void showTexts(const Boxes& boxes, const std::vector<Text>& texts) {
  for (const auto& [index, box] : boxes) box->setText(texts.at(static_cast<std::size_t>(index)));
}

std::vector<Text> textsOf(const Boxes& boxes) {
  std::vector<Text> texts;
  for (const auto& [index, box] : boxes) texts.push_back(box->text());
  return texts;
}

bool isBlank(const ui::TextBox& box) { return box.text().empty(); }

/// Null for none.
ui::TextBox* firstBlank(const Boxes& boxes) {
  const auto blank =
      std::ranges::find_if(boxes, [](const auto& entry) { return isBlank(*entry.second); });
  return blank == boxes.end() ? nullptr : blank->second;
}

enum class Fill : std::uint8_t { blanks, all };

void fillWithDefaults(const Boxes& boxes, Captions captions, Fill which) {
  for (const auto& [index, box] : boxes) {
    if (which == Fill::blanks && !isBlank(*box)) continue;
    box->setText(captions[static_cast<std::size_t>(index)].standard);
  }
}

}  // namespace

frmReportCaptions::frmReportCaptions(ui::Screen& screen, Messages& messages)
    : EditDialog(screen, u"Report Captions"),
      tabReportCaptions(add<ui::TabStrip>()),
      fraTitles(add<ui::Frame>(Text(), ui::Frame::Border::none)),
      fraDetails(add<ui::Frame>(Text(), ui::Frame::Border::none)),
      lblNote(makeTitles()),
      messages_(messages) {
  makeDetails();
  makeButtons();
  layOut();
  tabReportCaptions.click = [this] { showPage(); };
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
  cmdCommand[resetTitles].click = [this] { resetAllTitles(); };
  cmdCommand[resetDetails].click = [this] { resetAllDetails(); };
}

ui::Label& frmReportCaptions::makeTitles() {
  tabReportCaptions.addTab(u"Report Titles");
  addBoxes(fraTitles, kReportTitles, lblReportTitleCaptions, txtReportTitleCaption);
  cmdCommand.set(resetTitles, fraTitles.add<ui::CommandButton>(u"R&eset Report Title Captions"))
      .setToolTip(u"Reset the report titles to the default captions");
  return fraTitles.add<ui::Label>(
      u"Note: As well as being printed at the top of reports, the Report Titles are displayed as "
      u"lists in some windows such as the report selection window in Process End-Of-Day.  To "
      u"enable a Windows keyboard shortcut for a Report Title in a list add an ampersand (&&) "
      u"character in front of the character to be used as the shortcut.  For example, to use the "
      u"letter 'a' as the shortcut for the Balance Report enter the title as 'B&&alance Report'.  "
      u"When the title is printed or displayed in a list the ampersand character itself will not "
      u"be printed or displayed.");
}

void frmReportCaptions::makeDetails() {
  tabReportCaptions.addTab(u"Report Detail Captions");
  addBoxes(fraDetails, kReportDetails, lblReportDetailCaptions, txtReportDetailCaption);
  cmdCommand.set(resetDetails, fraDetails.add<ui::CommandButton>(u"R&eset Report Detail Captions"))
      .setToolTip(u"Reset the report detail captions to the default captions");
}

void frmReportCaptions::makeButtons() {
  auto& okButton = cmdCommand.set(ok, add<ui::CommandButton>(u"OK"));
  okButton.setToolTip(u"Save all changes then close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdCommand.set(cancel, add<ui::CommandButton>(u"Cancel"));
  cancelButton.setToolTip(u"Cancel all changes and close this window");
  cancelButton.setCancel();
}

void frmReportCaptions::layOut() {
  setClientSize(kClientSize);
  const int buttons = ui::Rows::buttonRow(*this, {&cmdCommand[ok], &cmdCommand[cancel]});
  tabReportCaptions.setBounds(
      {kMargin, kMargin, kClientSize.width - 2 * kMargin, buttons - 2 * kMargin});
  for (ui::Frame* page : {&fraTitles, &fraDetails}) page->setBounds(tabReportCaptions.clientArea());

  ui::Rows titles = ui::Rows::onPage(fraTitles);
  placeLabelColumn(titles, lblReportTitleCaptions);
  for (const auto& [index, label] : lblReportTitleCaptions) {
    titles.field(*label, {{txtReportTitleCaption[index], ui::Cell::kFill}});
  }
  titles.row({{cmdCommand[resetTitles]}});
  titles.gap();
  titles.block(lblNote, kNoteLines * screen().lineHeight());

  std::vector<ui::Rows> columns =
      ui::Rows::onPage(fraDetails).columns({ui::Cell::kFill, ui::Cell::kFill});
  for (ui::Rows& column : columns) placeLabelColumn(column, lblReportDetailCaptions);
  const int firstOfSecond = (lblReportDetailCaptions.count() + 1) / 2;
  for (const auto& [index, label] : lblReportDetailCaptions) {
    columns[index < firstOfSecond ? 0 : 1].field(
        *label, {{txtReportDetailCaption[index], ui::Cell::kFill}});
  }
  columns[0].row({{cmdCommand[resetDetails]}});
}

void frmReportCaptions::onLoad() {
  tabReportCaptions.setSelected(titlesTab);
  showPage();
  showTexts(txtReportTitleCaption, Titles);
  showTexts(txtReportDetailCaption, Details);
}

void frmReportCaptions::showPage() {
  ui::Frame& chosen = tabReportCaptions.selected() == titlesTab ? fraTitles : fraDetails;
  chosen.setVisible(true);
  // Afterwards, so that a focus on the other page finds a place on this one.
  (&chosen == &fraTitles ? fraDetails : fraTitles).setVisible(false);
}

void frmReportCaptions::accept() {
  ui::TextBox* const blankTitle = firstBlank(txtReportTitleCaption);
  ui::TextBox* const blankDetail = firstBlank(txtReportDetailCaption);
  if (blankTitle != nullptr) warnOfBlanks(titlesTab, kTitlesName);
  if (blankDetail != nullptr) warnOfBlanks(detailsTab, kDetailsName);
  if (ui::TextBox* const first = blankTitle != nullptr ? blankTitle : blankDetail) {
    fillWithDefaults(txtReportTitleCaption, kReportTitles, Fill::blanks);
    fillWithDefaults(txtReportDetailCaption, kReportDetails, Fill::blanks);
    tabReportCaptions.setSelected(first == blankTitle ? titlesTab : detailsTab);
    first->setFocus();
    selectAllText(*first);
    return;
  }
  Titles = textsOf(txtReportTitleCaption);
  Details = textsOf(txtReportDetailCaption);
  acceptAndClose();
}

void frmReportCaptions::warnOfBlanks(Tab page, TextView name) {
  tabReportCaptions.setSelected(page);
  Text text = u"One or more ";
  text.append(name).append(u" are blank.  ").append(name).append(u" cannot be left blank.");
  text.append(kLineBreak).append(kLineBreak);
  text.append(u"All blank ").append(name);
  text.append(u" will now be filled with their default captions.");
  messages_.warn(text, Text(name) + u" cannot be blank");
}

bool frmReportCaptions::confirmReset(TextView name, TextView title) {
  Text text = u"Are you sure you want to reset all ";
  text.append(name).append(u" to their default captions ?");
  return messages_.ask(text, title);
}

void frmReportCaptions::resetAllTitles() {
  if (!confirmReset(kTitlesName, u"Reset Report Title Captions?")) return;
  fillWithDefaults(txtReportTitleCaption, kReportTitles, Fill::all);
}

void frmReportCaptions::resetAllDetails() {
  if (!confirmReset(kDetailsName, u"Reset Report Detail Captions?")) return;
  fillWithDefaults(txtReportDetailCaption, kReportDetails, Fill::all);
}

}  // namespace tillora
