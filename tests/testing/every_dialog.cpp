#include "tests/testing/every_dialog.h"

#include <span>

#include "identity/frmPasswordSet.h"
#include "identity/frmWebSite.h"
#include "operations/clsRandomPrice.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmPumpGrade.h"
#include "operations/frmRandomPrice.h"
#include "operations/frmReportCaptions.h"
#include "operations/report_captions.h"
#include "sales/frmBrowseItems.h"

namespace tillora::testing {
namespace {

std::vector<Text> standardTextsOf(std::span<const ReportCaption> captions) {
  std::vector<Text> texts;
  for (const ReportCaption& caption : captions) texts.emplace_back(caption.standard);
  return texts;
}

}  // namespace

EveryDialogTest::EveryDialogTest() {
  host.dispensingAvailable = true;
  host.classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}}};
  host.webSites = {
      {{u"Description", Text(u"Home")}, {u"URL", Text(u"http://home")}, {u"Inactive", false}},
      {{u"Description", Text(u"Old")}, {u"URL", Text(u"http://old")}, {u"Inactive", true}}};
  host.grades = {
      {{u"GradeNumber", 1}, {u"Product", Text(u"Fuel:Unleaded")}, {u"Caption", Text(u"91")}}};
  host.items = {{u"STOCK", u"100", u"Fuel", u"Unleaded", u"Unleaded petrol", u"Sales"},
                {u"PART", u"101", u"", u"Battery", u"Car battery", u"Sales"}};
}

void EveryDialogTest::visitEveryPage(const Visit& visit) {
  open([&](frmOptions& dialog) {
    for (const Text& tab : dialog.tabOptions.tabs()) {
      visit("page " + toUtf8(tab), dialog);
      user.press(ui::Key::tab, {.ctrl = true});
    }
  });
}

void EveryDialogTest::visitEveryOtherDialog(const Visit& visit) {
  Messages messages{desk->screen(), boxes};

  frmPasswordSet password(desk->screen(), messages);
  password.Password = SecretText(u"secret");
  password.setCaption(u"Password for Transfer Data");
  show("frmPasswordSet", password, visit);

  const Platform platform = machine.platform(desk->screen(), boxes);
  frmWebSite webSite(platform, messages);
  show("frmWebSite", webSite, visit);

  frmBrowseItems items(desk->screen());
  items.DBJetObject = options_.DBJetObject;
  items.SettingsObject = options_.SettingsObject;
  items.BrowseType = frmBrowseItems::gradeProduct;
  show("frmBrowseItems", items, visit);

  frmPumpGrade grade(desk->screen());
  grade.GradeNumber = 1;
  show("frmPumpGrade", grade, visit);

  frmRandomPrice barcode(desk->screen());
  barcode.Prefix = 20;
  barcode.FormatID = 1;
  barcode.FormatDescriptions = {u""};
  for (const BarcodeLayout& layout : kBarcodeLayouts) {
    barcode.FormatDescriptions.emplace_back(layout.description);
  }
  show("frmRandomPrice", barcode, visit);

  frmEODDefaultReports reports(desk->screen(), messages);
  reports.Titles = standardTextsOf(kReportTitles);
  reports.ForceBalanceReport = true;
  show("frmEODDefaultReports", reports, visit);

  frmReportCaptions captions(desk->screen(), messages);
  captions.Titles = standardTextsOf(kReportTitles);
  captions.Details = standardTextsOf(kReportDetails);
  show("frmReportCaptions", captions, [&](const std::string& name, ui::Form& form) {
    visit(name + ", titles", form);
    user.press(ui::Key::tab, {.ctrl = true});
    visit(name + ", details", form);
  });
}

void EveryDialogTest::show(const std::string& name, ui::Form& form, const Visit& visit) {
  desk->whenShown([&](ui::Form& shown) { visit(name, shown); });
  form.showModal();
}

}  // namespace tillora::testing
