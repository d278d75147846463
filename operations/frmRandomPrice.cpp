#include "operations/frmRandomPrice.h"

#include <utility>

#include "operations/clsRandomPrice.h"
#include "support/modEnableLabel.h"
#include "ui/layout.h"

namespace tillora {
namespace {

constexpr ui::Length kPrefixWidth = ui::characters(6);
constexpr ui::Length kExampleWidth = ui::characters(16);
constexpr int kLegendLines = 3;

std::int32_t bitOf(int check) { return std::int32_t{1} << (check - 1); }

static_assert(kPriceIncludesTax == 1 << (frmRandomPrice::priceIncludesTax - 1));
static_assert(kCalculateUnitOfMeasure == 1 << (frmRandomPrice::calculateUnitOfMeasure - 1));

}  // namespace

frmRandomPrice::frmRandomPrice(ui::Screen& screen)
    : EditDialog(screen, u"Random Price Barcode Format") {
  rows().field(
      {label(ofPrefix, u"Prefix"), wide(txtRandomPrice.add(prefix).setLocked(true), kPrefixWidth)});
  rows().field({label(ofFormat, u"&Barcode Format"), fill(cboRandomPrice)});
  rows().field({label(ofExample, u"Example"),
                wide(txtRandomPrice.add(example).setLocked(true), kExampleWidth)});
  rows().block(label(legend, Text()), ui::lines(kLegendLines));
  rows().row({check(priceIncludesTax, u"&Price includes tax")});

  fraRandomPrice.setAccessibleName(u"Unit of Measure");
  ui::Rows& unit = rows().group(fraRandomPrice, Text());
  unit.row({check(calculateUnitOfMeasure, u"Calculate &Unit of Measure")});
  unit.field(
      {engraved(label(ofUnitCaption, u"C&aption for Unit"), label(shadowOfUnitCaption, Text())),
       fill(txtRandomPrice.add(unitCaption))});
  unit.field({engraved(label(ofPriceUnitCaption, u"Cap&tion for Price per Unit"),
                       label(shadowOfPriceUnitCaption, Text())),
              fill(txtRandomPrice.add(priceUnitCaption))});

  rows().row({check(inactive, u"&Random price barcodes with this Prefix are inactive")});
  okAndCancel(cmdCommand.add(ok, u"OK"), u"Accept the changes and close this window",
              cmdCommand.add(cancel, u"&Cancel"), u"Discard changes and close this window");

  cboRandomPrice.click = [this] { showExample(); };
  chkRandomPrice[calculateUnitOfMeasure].click = [this] { enableCaptions(); };
  cmdCommand[ok].click = [this] { accept(); };
  cmdCommand[cancel].click = [this] { cancelAndClose(); };
}

ui::Label& frmRandomPrice::label(Label index, Text caption) {
  return lblLabel.add(index, std::move(caption));
}

ui::Cell frmRandomPrice::check(Check index, Text caption) {
  return fill(chkRandomPrice.add(index, std::move(caption)));
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
