#include "operations/frmPumpGrade.h"

#include "base/numbers.h"
#include "sales/frmBrowseItems.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr int kProductCharacters = 40;

}  // namespace
frmPumpGrade::frmPumpGrade(ui::Screen& screen)
    : EditDialog(screen, u"Edit Pump Grade Information") {
  rows().row({fill(lblPumpGrade.add(heading))});
  rows().field({lblPumpGrade.add(captionLabel, u"Caption"), fill(txtPumpGrade.add(captionBox))});
  rows().field(
      {lblPumpGrade.add(productLabel, u"Product"),
       fill(txtPumpGrade.add(productBox).setLocked(true), ui::characters(kProductCharacters)),
       cmdPumpGrade.add(browse, u"&Browse...")
           .setToolTip(u"Browse and select a product for this Grade")});
  okAndCancel(cmdPumpGrade.add(ok, u"OK"), u"Accept all changes then close this window",
              cmdPumpGrade.add(cancel, u"&Cancel"), u"Cancel all changes and close this window");

  txtPumpGrade[captionBox].validate = [this](bool&) { Caption = txtPumpGrade[captionBox].text(); };
  cmdPumpGrade[ok].click = [this] { acceptAndClose(); };
  cmdPumpGrade[cancel].click = [this] { cancelAndClose(); };
  cmdPumpGrade[browse].click = [this] { browseProduct(); };
}

void frmPumpGrade::onLoad() {
  setCaption(Text(EditMode ? u"Edit" : u"New") + u" Pump Grade Information");
  lblPumpGrade[heading].setCaption(Text(EditMode ? u"Edit" : u"Create") +
                                   u" information for grade " + decimalText(GradeNumber));
  txtPumpGrade[captionBox].setText(Caption);
  txtPumpGrade[productBox].setText(Product);
}

void frmPumpGrade::browseProduct() {
  frmBrowseItems browser(screen());
  browser.DBJetObject = DBJetObject;
  browser.SettingsObject = SettingsObject;
  browser.BrowseType = frmBrowseItems::gradeProduct;
  if (Product != kNoProduct) browser.SelectedValue = Product;
  browser.showModal();
  Product = browser.SelectedValue.empty() ? Text(kNoProduct) : browser.SelectedValue;
  txtPumpGrade[productBox].setText(Product);
}

void frmPumpGrade::onUnload() {
  DBJetObject.reset();
  SettingsObject.reset();
}

}  // namespace tillora
