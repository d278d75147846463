#include "operations/clsRandomPrice.h"

#include "base/number_format.h"

namespace tillora {

Text shownPrefix(std::int32_t prefix) { return formatNumber(prefix, u"00", {}); }

}  // namespace tillora
