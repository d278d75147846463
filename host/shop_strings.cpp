#include "host/shop_strings.h"

#include <utility>

#include "base/numbers.h"
#include "host/shop_error.h"

namespace tillora::host {
namespace {}  // namespace

ShopStrings::ShopStrings(std::shared_ptr<ShopFile> file) : file_(std::move(file)) {}

Text ShopStrings::string(std::int32_t number) {
  Statement row =
      file_->statement("SELECT Value FROM strings WHERE Number = ?1", shop_object::strings);
  row.bind(1, std::int64_t{number});
  if (!row.step()) {
    fail(shop_error::stringNotFound, shop_object::strings,
         u"There is no string " + decimalText(number) + u".");
  }
  return row.text(0);
}

}  // namespace tillora::host
