#include "host/shop_error.h"

#include <utility>

namespace tillora::host {

void fail(std::int32_t number, TextView object, Text description) {
  throw Error(number, Text(u"TilloraHost.").append(object), std::move(description));
}

}  // namespace tillora::host
