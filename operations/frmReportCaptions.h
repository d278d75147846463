#pragma once

#include <cstdint>
#include <vector>

#include "component/contract/messages.h"
#include "support/dialog.h"
#include "ui/buttons.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"

namespace tillora {

/// Edits the titles of the reports and the captions of their lines. The caller sets Titles and
/// Details, shows the dialog modally, and takes them back unless it was cancelled. None of the
/// texts that it hands back is empty.
class frmReportCaptions final : public EditDialog {
 public:
  enum Command : std::uint8_t { ok, cancel, resetTitles, resetDetails };

  frmReportCaptions(ui::Screen& screen, Messages& messages);

  std::vector<Text> Titles;   ///< by position in kReportTitles
  std::vector<Text> Details;  ///< by position in kReportDetails

  ui::TabStrip tabReportCaptions;
  ui::Frame fraTitles{Text(), ui::Frame::Border::none};
  ui::Frame fraDetails{Text(), ui::Frame::Border::none};
  ui::ControlArray<ui::Label> lblReportTitleCaptions;
  ui::ControlArray<ui::TextBox> txtReportTitleCaption;
  ui::ControlArray<ui::Label> lblReportDetailCaptions;
  ui::ControlArray<ui::TextBox> txtReportDetailCaption;
  ui::ControlArray<ui::CommandButton> cmdCommand;  ///< by Command
  ui::Label lblNote;

 private:
  /// Tabs of tabReportCaptions.
  enum Tab : std::uint8_t { titlesTab = 1, detailsTab };

  void describeTitles();
  void describeDetails();

  void onLoad() override;
  ui::Control* firstFocus() override { return nextInTabOrder(&tabReportCaptions); }

  void showPage();
  void accept();
  void warnOfBlanks(Tab page, TextView name);
  bool confirmReset(TextView name, TextView title);
  void resetAllTitles();
  void resetAllDetails();

  Messages& messages_;
};

}  // namespace tillora
