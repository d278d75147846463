#include "component/contract/option_table.h"

namespace tillora {

const char16_t* const kDefaultLaybyTerms =
    u"[Change these Terms and Conditions as required by your organisation]\r\n\r\n"
    u"TERMS & CONDITIONS OF LAY-BY\r\n\r\n"
    u"1. When either the purchaser or retailer cancels a lay-by sale, the purchaser has "
    u"the right of a full refund less any cancellation charge.  The cancellation charge "
    u"on this lay-by is shown below.  The charge is to cover selling costs incurred by "
    u"the retailer.\r\n\r\n"
    u"Cancellation Charge $\r\n\r\n"
    u"2. Should the purchaser fail to honour the lay-by sale (ie. by non-payment of "
    u"lay-by) the retailer shall contact the purchaser and advise that the lay-by will be "
    u"cancelled after 7 days of notice of advice unless a further or full payments is "
    u"received.  Should the purchaser not pay outstanding monies within the 7 days the "
    u"lay-by will be cancelled, goods returned to stock, and any monies due, minus the "
    u"cancellation charge, refunded to the purchaser.\r\n\r\n"
    u"3. There is no cancellation charge if goods are unable to be supplied by the "
    u"retailer, or no cancellation charge is specified on this docket.\r\n\r\n"
    u"4. Instalments are due weekly.\r\n\r\n"
    u"5. Parcels cannot be broken and must therefore be collected in full.\r\n\r\n"
    u"6. It is the responsibility of the customer to advise this store of any change of "
    u"address.";

Value zeroOf(OptionType type) {
  switch (type) {
    case OptionType::Text:
      return Text();
    case OptionType::Long:
      return std::int32_t{0};
    case OptionType::Integer:
      return std::int16_t{0};
    case OptionType::Byte:
      return std::uint8_t{0};
    case OptionType::Single:
      return 0.0F;
    case OptionType::Currency:
      return Money{};
    case OptionType::Boolean:
      return false;
  }
  return {};
}

}  // namespace tillora
