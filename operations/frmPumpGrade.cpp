#include "operations/frmPumpGrade.h"

#include "base/numbers.h"
#include "sales/frmBrowseItems.h"
#include "ui/layout.h"

namespace tillora {
frmPumpGrade::frmPumpGrade(ui::Screen& screen)
    : EditDialog(screen, u"Edit Pump Grade Information") {
  makeControls();
  layOut();
  txtPumpGrade[captionBox].validate = [this](bool&) { Caption = txtPumpGrade[captionBox].text(); };
  cmdPumpGrade[ok].click = [this] { acceptAndClose(); };
  cmdPumpGrade[cancel].click = [this] { cancelAndClose(); };
  cmdPumpGrade[browse].click = [this] { browseProduct(); };
}

void frmPumpGrade::makeControls() {
  lblPumpGrade.set(heading, add<ui::Label>());
  lblPumpGrade.set(captionLabel, add<ui::Label>(u"Caption"));
  txtPumpGrade.set(captionBox, add<ui::TextBox>());
  lblPumpGrade.set(productLabel, add<ui::Label>(u"Product"));
  txtPumpGrade.set(productBox, add<ui::TextBox>()).setLocked(true);
  cmdPumpGrade.set(browse, add<ui::CommandButton>(u"&Browse..."))
      .setToolTip(u"Browse and select a product for this Grade");
  auto& okButton = cmdPumpGrade.set(ok, add<ui::CommandButton>(u"OK"));
  okButton.setToolTip(u"Accept all changes then close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdPumpGrade.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Cancel all changes and close this window");
  cancelButton.setCancel();
}

void frmPumpGrade::layOut() {
  setClientSize({6300, 1950});
  ui::Rows::buttonRow(*this, {&cmdPumpGrade[ok], &cmdPumpGrade[cancel]});
  const auto& label = lblPumpGrade;
  ui::Rows rows = ui::Rows::onPage(*this);
  rows.row({{label[heading], ui::Cell::kFill}});
  rows.labelColumn({&label[captionLabel], &label[productLabel]});
  rows.field(label[captionLabel], {{txtPumpGrade[captionBox], ui::Cell::kFill}});
  rows.field(label[productLabel],
             {{txtPumpGrade[productBox], ui::Cell::kFill}, {cmdPumpGrade[browse]}});
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
