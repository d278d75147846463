#include "operations/frmRandomPrice.h"

#include <utility>

#include "operations/clsRandomPrice.h"
#include "support/modEnableLabel.h"
#include "ui/layout.h"

namespace tillora {
namespace {

using ui::Cell;

constexpr int kPrefixWidth = 600;
constexpr int kExampleWidth = 1800;
constexpr int kLegendLines = 3;

std::int32_t bitOf(int check) { return std::int32_t{1} << (check - 1); }

static_assert(kPriceIncludesTax == 1 << (frmRandomPrice::priceIncludesTax - 1));
static_assert(kCalculateUnitOfMeasure == 1 << (frmRandomPrice::calculateUnitOfMeasure - 1));

}  // namespace

frmRandomPrice::frmRandomPrice(ui::Screen& screen)
    : EditDialog(screen, u"Random Price Barcode Format"),
      cboRandomPrice(makeFormat()),
      fraRandomPrice(makeUnit()) {
  chkRandomPrice.set(inactive,
                     add<ui::CheckBox>(u"&Random price barcodes with this Prefix are inactive"));
  makeButtons();
  layOut();
  cboRandomPrice.click = [this] { showExample(); };
  chkRandomPrice[calculateUnitOfMeasure].click = [this] { enableCaptions(); };
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
}

ui::ComboBox& frmRandomPrice::makeFormat() {
  lblLabel.set(ofPrefix, add<ui::Label>(u"Prefix"));
  txtRandomPrice.set(prefix, add<ui::TextBox>()).setLocked(true);
  lblLabel.set(ofFormat, add<ui::Label>(u"&Barcode Format"));
  auto& formats = add<ui::ComboBox>();
  lblLabel.set(ofExample, add<ui::Label>(u"Example"));
  txtRandomPrice.set(example, add<ui::TextBox>()).setLocked(true);
  lblLabel.set(legend, add<ui::Label>());
  chkRandomPrice.set(priceIncludesTax, add<ui::CheckBox>(u"&Price includes tax"));
  return formats;
}

ui::Frame& frmRandomPrice::makeUnit() {
  auto& frame = add<ui::Frame>();
  chkRandomPrice.set(calculateUnitOfMeasure,
                     frame.add<ui::CheckBox>(u"Calculate &Unit of Measure"));
  const auto addCaption = [&](Label shadow, Label label, Text caption, Box box) {
    lblLabel.set(shadow, frame.add<ui::Label>());
    lblLabel.set(label, frame.add<ui::Label>(std::move(caption)));
    txtRandomPrice.set(box, frame.add<ui::TextBox>());
  };
  addCaption(shadowOfUnitCaption, ofUnitCaption, u"C&aption for Unit", unitCaption);
  addCaption(shadowOfPriceUnitCaption, ofPriceUnitCaption, u"Cap&tion for Price per Unit",
             priceUnitCaption);
  return frame;
}

void frmRandomPrice::makeButtons() {
  auto& okButton = cmdCommand.set(ok, add<ui::CommandButton>(u"OK"));
  okButton.setToolTip(u"Accept the changes and close this window");
  okButton.setDefault(true);
  auto& cancelButton = cmdCommand.set(cancel, add<ui::CommandButton>(u"&Cancel"));
  cancelButton.setToolTip(u"Discard changes and close this window");
  cancelButton.setCancel();
}

void frmRandomPrice::layOut() {
  const auto& label = lblLabel;
  const auto& box = txtRandomPrice;
  setClientSize({7500, 5250});
  ui::Rows::buttonRow(*this, {&cmdCommand[ok], &cmdCommand[cancel]});

  ui::Rows rows = ui::Rows::onPage(*this);
  rows.labelColumn({&label[ofPrefix], &label[ofFormat], &label[ofExample]});
  rows.field(label[ofPrefix], {{box[prefix], kPrefixWidth}});
  rows.field(label[ofFormat], {{cboRandomPrice, Cell::kFill}});
  rows.field(label[ofExample], {{box[example], kExampleWidth}});
  rows.block(label[legend], kLegendLines * screen().lineHeight());
  rows.row({{chkRandomPrice[priceIncludesTax], Cell::kFill}});

  ui::Rows unit = rows.group(fraRandomPrice);
  unit.row({{chkRandomPrice[calculateUnitOfMeasure], Cell::kFill}});
  unit.labelColumn({&label[ofUnitCaption], &label[ofPriceUnitCaption]});
  unit.field(label[ofUnitCaption], {{box[unitCaption], Cell::kFill}});
  unit.field(label[ofPriceUnitCaption], {{box[priceUnitCaption], Cell::kFill}});
  rows.endGroup(fraRandomPrice, unit);

  rows.row({{chkRandomPrice[inactive], Cell::kFill}});
}

void frmRandomPrice::onLoad() {
  showFormats();
  lblLabel[legend].setCaption(
      u"The first two numbers are the Prefix, then\r\n"
      u"1 = Product Number, 2 = Price Check Digit,\r\n"
      u"3 = Price, 4 = Barcode Check Digit");
  txtRandomPrice[prefix].setText(shownPrefix(Prefix));
  chkRandomPrice[inactive].setValue(Inactive);
  for (const Check i : {priceIncludesTax, calculateUnitOfMeasure}) {
    chkRandomPrice[i].setValue((OptionBits & bitOf(i)) != 0);
  }
  enableCaptions();
  txtRandomPrice[unitCaption].setText(UOMUnitCaption);
  txtRandomPrice[priceUnitCaption].setText(UOMPriceUnitCaption);
}

void frmRandomPrice::showFormats() {
  cboRandomPrice.clear();
  txtRandomPrice[example].setText(u"");
  for (std::size_t id = 1; id < FormatDescriptions.size(); ++id) {
    cboRandomPrice.addItem(FormatDescriptions[id]);
  }
  if (FormatID >= 1 && FormatID <= cboRandomPrice.count()) {
    cboRandomPrice.setListIndex(FormatID - 1);
  }
}

void frmRandomPrice::showExample() {
  const auto index = static_cast<std::size_t>(cboRandomPrice.listIndex());
  if (index >= kBarcodeLayouts.size()) return;
  txtRandomPrice[example].setText(shownPrefix(Prefix) + kBarcodeLayouts[index].pattern);
}

void frmRandomPrice::enableCaptions() {
  const bool ticked = chkRandomPrice[calculateUnitOfMeasure].value();
  enableLabel(lblLabel[ofUnitCaption], lblLabel[shadowOfUnitCaption], ticked);
  enableLabel(lblLabel[ofPriceUnitCaption], lblLabel[shadowOfPriceUnitCaption], ticked);
  for (const Box box : {unitCaption, priceUnitCaption}) txtRandomPrice[box].setEnabled(ticked);
}

void frmRandomPrice::accept() {
  if (cboRandomPrice.listIndex() >= 0) FormatID = cboRandomPrice.listIndex() + 1;
  OptionBits = 0;
  for (int i = priceIncludesTax; i <= chkRandomPrice.upperBound(); ++i) {
    if (chkRandomPrice[i].value()) OptionBits |= bitOf(i);
  }
  UOMUnitCaption = txtRandomPrice[unitCaption].text();
  UOMPriceUnitCaption = txtRandomPrice[priceUnitCaption].text();
  Inactive = chkRandomPrice[inactive].value();
  acceptAndClose();
}

}  // namespace tillora
