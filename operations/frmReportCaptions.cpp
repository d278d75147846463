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

// What a message calls the texts of a page.
constexpr TextView kTitlesName = u"Report Titles";
constexpr TextView kDetailsName = u"Report Detail captions";

void addBox(ui::Rows& rows, const ReportCaption& caption, Labels& labels, Boxes& boxes) {
  rows.field({labels.add(labels.count(), Text(caption.label())), fill(boxes.add(boxes.count()))});
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
  return blank == boxes.end() ? nullptr : blank->second.get();
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
    : EditDialog(screen, u"Report Captions"), messages_(messages) {
  tabReportCaptions.setAccessibleName(u"Pages of captions");
  tabReportCaptions.addTab(u"Report Titles");
  fraTitles.setAccessibleName(u"Report Titles");
  tabReportCaptions.addTab(u"Report Detail Captions");
  fraDetails.setAccessibleName(u"Report Detail Captions");
  rows().tabs(tabReportCaptions, {&fraTitles, &fraDetails});
  describeTitles();
  describeDetails();
  okAndCancel(cmdCommand.add(ok, u"OK"), u"Save all changes then close this window",
              cmdCommand.add(cancel, u"Cancel"), u"Cancel all changes and close this window");

  tabReportCaptions.click = [this] { showPage(); };
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
  cmdCommand[resetTitles].click = [this] { resetAllTitles(); };
  cmdCommand[resetDetails].click = [this] { resetAllDetails(); };
}

void frmReportCaptions::describeTitles() {
  ui::Rows& rows = fraTitles.rows();
  for (const ReportCaption& caption : kReportTitles) {
    addBox(rows, caption, lblReportTitleCaptions, txtReportTitleCaption);
  }
  rows.row({cmdCommand.add(resetTitles, u"R&eset Report Title Captions")
                .setToolTip(u"Reset the report titles to the default captions")});
  rows.gap();
  rows.block(
      lblNote.setCaption(
          u"Note: As well as being printed at the top of reports, the Report Titles are displayed "
          u"as "
          u"lists in some windows such as the report selection window in Process End-Of-Day.  To "
          u"enable a Windows keyboard shortcut for a Report Title in a list add an ampersand (&&) "
          u"character in front of the character to be used as the shortcut.  For example, to use "
          u"the "
          u"letter 'a' as the shortcut for the Balance Report enter the title as 'B&&alance "
          u"Report'.  "
          u"When the title is printed or displayed in a list the ampersand character itself will "
          u"not "
          u"be printed or displayed."),
      ui::kWrapped);
}

void frmReportCaptions::describeDetails() {
  const auto columns = fraDetails.rows().columns({ui::kRest, ui::kRest});
  const std::size_t inFirst = (std::size(kReportDetails) + 1) / 2;
  for (std::size_t i = 0; i < std::size(kReportDetails); ++i) {
    addBox(*columns[i < inFirst ? 0 : 1], kReportDetails[i], lblReportDetailCaptions,
           txtReportDetailCaption);
  }
  columns[0]->row({cmdCommand.add(resetDetails, u"R&eset Report Detail Captions")
                       .setToolTip(u"Reset the report detail captions to the default captions")});
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
