#include "host/shop.h"

#include <utility>

#include "host/shop_database.h"
#include "host/shop_dump.h"
#include "host/shop_error.h"
#include "host/shop_schema.h"
#include "host/shop_seed.h"
#include "host/shop_settings.h"
#include "host/shop_strings.h"

namespace tillora::host {
namespace {

void create(ShopFile& file, const ShopContents& contents) {
  file.beginSave(&contents, shop_object::database);
  try {
    // Another program may have made the tables while this one waited.
    if (!hasTables(file)) {
      createTables(file);
      seedSettings(file);
      if (contents.seeded) seedShop(file);
      if (contents.itemCount) {
        seedCatalogue(file, *contents.itemCount);
      } else if (contents.seeded) {
        seedItems(file);
      }
    }
    file.commitSave(&contents, shop_object::database);
  } catch (...) {
    file.abandonSave(&contents);
    throw;
  }
}

}  // namespace

Shop::Shop(std::shared_ptr<ShopFile> file)
    : file_(std::move(file)),
      database_(std::make_shared<ShopDatabase>(file_)),
      settings_(std::make_shared<ShopSettings>(file_)),
      strings_(std::make_shared<ShopStrings>(file_)) {}

Shop Shop::open(TextView path, const ShopContents& contents,
                std::chrono::milliseconds busyTimeout) {
  std::shared_ptr<ShopFile> file = ShopFile::open(path, busyTimeout);
  if (!hasTables(*file)) create(*file, contents);
  return Shop(std::move(file));
}

void Shop::dump(std::ostream& out) const { dumpShop(*file_, out); }

}  // namespace tillora::host
