#pragma once

#include <array>
#include <cstdint>

#include "base/text.h"

namespace tillora {

/// One random-price barcode format: what the digits of an EAN-13 barcode with this prefix mean. The
/// public class of the same name holds these fields in this order.
struct clsRandomPrice {
  bool mbInactive = false;        ///< barcodes with this prefix are not random-price barcodes
  std::int32_t mlFormatID = 0;    ///< position in kBarcodeLayouts, from 1
  std::int32_t mlPrefix = 0;      ///< the first two digits, 0 to 99
  std::int32_t mlOptionBits = 0;  ///< of RandomPriceOption
  Text msUOMUnitCaption;          ///< caption of the unit of measure, e.g. "kg"
  Text msUOMPriceUnitCaption;     ///< caption of the price per unit, e.g. "/kg"
};

/// A prefix as it is shown, with two digits: "02", "20".
Text shownPrefix(std::int32_t prefix);

/// The bits of clsRandomPrice::mlOptionBits.
enum RandomPriceOption : std::int32_t { kPriceIncludesTax = 1, kCalculateUnitOfMeasure = 2 };

struct BarcodeLayout {
  /// The eleven digits after the prefix: 1 product number, 2 price check digit, 3 price, 4 barcode
  /// check digit.
  const char16_t* pattern;
  const char16_t* description;
};

/// The layouts that a prefix can be bound to.
inline constexpr std::array<BarcodeLayout, 5> kBarcodeLayouts = {{
    {u"11111133334", u"6 Product; No Price Check Digit; 4 Price; 1 Check Digit"},
    {u"11111333334", u"5 Product; No Price Check Digit; 5 Price; 1 Check Digit"},
    {u"11111233334", u"5 Product; 1 Price Check Digit; 4 Price; 1 Check Digit"},
    {u"11112333334", u"4 Product; 1 Price Check Digit; 5 Price; 1 Check Digit"},
    {u"11112233334", u"4 Product; 2 Price Check Digits; 4 Price; 1 Check Digit"},
}};

}  // namespace tillora
