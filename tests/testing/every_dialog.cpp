#include "tests/testing/every_dialog.h"

#include <span>

#include "identity/frmPasswordSet.h"
#include "identity/frmWebSite.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmPumpGrade.h"
#include "operations/frmRandomPrice.h"
#include "operations/frmReportCaptions.h"
#include "operations/report_captions.h"
#include "sales/frmBrowseItems.h"

namespace tillora::testing {
namespace {

std::vector<Text> standardTexts(std::span<const ReportCaption> captions) {
  std::vector<Text> texts;
  for (const ReportCaption& caption : captions) texts.emplace_back(caption.standard);
  return texts;
}

}  // namespace

void EveryDialog::show(ui::Form& form, const std::function<void(ui::Form&)>& look) {
  SCOPED_TRACE(toUtf8(form.caption()));
  desk->whenShown(look);
  form.showModal();
}

void EveryDialog::showEach(const std::function<void(ui::Form&)>& look) {
  host.dispensingAvailable = true;
  open([&](frmOptions& dialog) {
    for (int tab = 1; tab <= dialog.tabOptions.count(); ++tab) {
      SCOPED_TRACE(toUtf8(dialog.tabOptions.tabs()[static_cast<std::size_t>(tab) - 1]));
      dialog.tabOptions.setSelected(tab);
      look(dialog);
    }
  });

  Messages messages{desk->screen(), boxes};
  frmPasswordSet password(desk->screen(), messages);
  show(password, look);

  frmWebSite webSite(machine.platform(desk->screen(), boxes), messages);
  show(webSite, look);

  frmBrowseItems items(desk->screen());
  items.DBJetObject = host.objects().database;
  items.SettingsObject = host.objects().settings;
  show(items, look);

  frmPumpGrade grade(desk->screen());
  show(grade, look);

  frmRandomPrice barcode(desk->screen());
  show(barcode, look);

  frmEODDefaultReports reports(desk->screen(), messages);
  reports.Titles = standardTexts(kReportTitles);
  show(reports, look);

  frmReportCaptions captions(desk->screen(), messages);
  captions.Titles = standardTexts(kReportTitles);
  captions.Details = standardTexts(kReportDetails);
  show(captions, [&](ui::Form& form) {
    for (int tab = 1; tab <= captions.tabReportCaptions.count(); ++tab) {
      SCOPED_TRACE(tab);
      captions.tabReportCaptions.setSelected(tab);
      look(form);
    }
  });
}

}  // namespace tillora::testing
