#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>

#include "component/contract/host_objects.h"

/// Tables that a list on a tab stands for, row by row, identified by a key.
namespace tillora {

/// The key of the current row: a text as it is, or a whole number in decimal, depending on the
/// field's type; none if the row holds no such value.
std::optional<Text> keyOf(Table& table, Field key);

/// A whole number that is the key of the current row; none if the row holds no such value.
std::optional<std::int32_t> numberKeyOf(Table& table, Field key);

/// Starts editing of the first row that satisfies the criteria, or a new row if there is none. True
/// for a new row, whose key is still to be set.
bool editOrAdd(Table& table, TextView criteria);

/// After a list was written to the table, deletes the rows that are not in it: those with a key
/// that is not listed and that `isOurs` confirms, and duplicates of a listed key. Rows without a
/// key stay.
void removeUnlisted(Table& table, Field key, const std::set<Text>& listed,
                    const std::function<bool(const Text&)>& isOurs);

}  // namespace tillora
