#pragma once

#include <string>

#include "host/shop.h"

namespace tillora::testing {

/// The work of a shop that failures interrupt.

host::Shop openShop(const host::ShopContents& contents = {});

/// A save that touches options, rows of tables and settings; another number stores other values.
void save(const host::Shop& shop, std::int32_t number);
/// Whether the shop holds everything of the save with this number.
bool holdsSave(const host::Shop& shop, std::int32_t number);

/// Reads all that a program reads: options, rows found by criteria, items, settings.
std::string readAll(const host::Shop& shop);

/// All that the shop stores.
std::string contentsOf(const host::Shop& shop);

}  // namespace tillora::testing
