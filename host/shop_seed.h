#pragma once

#include <cstdint>

namespace tillora::host {

class ShopFile;

/// What a new shop starts with. Each runs inside the caller's transaction.

/// Currency format and resource strings, which a machine has before any shop exists.
void seedSettings(ShopFile& file);
/// A pharmacy with fuel pumps that has been in use: its tables have rows, and every option and
/// every caption of a report is stored as the options dialog stores it. A save without an edit
/// changes nothing.
void seedShop(ShopFile& file);
/// The shop's own catalogue of some sixty items.
void seedItems(ShopFile& file);
/// A catalogue of that many made-up items of all types, the same ones each time.
void seedCatalogue(ShopFile& file, std::int32_t count);

}  // namespace tillora::host
