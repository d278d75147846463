#pragma once

#include <ostream>

namespace tillora::host {

class ShopFile;

/// See Shop::dump().
void dumpShop(ShopFile& file, std::ostream& out);

}  // namespace tillora::host
