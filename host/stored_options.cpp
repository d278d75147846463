#include "host/stored_options.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/shop_error.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

[[noreturn]] void mismatch(const OptionInfo& option) {
  fail(error::typeMismatch, shop_object::options,
       Text(u"The option '") + option.name + u"' cannot hold such a value.");
}

template <class Integer>
Value wholeNumber(std::int64_t stored, const OptionInfo& option) {
  if (stored < std::numeric_limits<Integer>::min() ||
      stored > std::numeric_limits<Integer>::max()) {
    fail(error::overflow, shop_object::options,
         Text(u"The number stored for the option '") + option.name + u"' is too large.");
  }
  return static_cast<Integer>(stored);
}

Value storedValue(const Statement& row, const OptionInfo& option) {
  if (row.isText(0) != (option.type == OptionType::Text)) mismatch(option);
  switch (option.type) {
    case OptionType::Text:
      return row.text(0);
    case OptionType::Long:
      return wholeNumber<std::int32_t>(row.integer(0), option);
    case OptionType::Integer:
      return wholeNumber<std::int16_t>(row.integer(0), option);
    case OptionType::Byte:
      return wholeNumber<std::uint8_t>(row.integer(0), option);
    case OptionType::Single:
      return static_cast<float>(row.real(0));
    case OptionType::Currency:
      return Money{row.integer(0)};
    case OptionType::Boolean:
      break;
  }
  return row.integer(0) != 0;
}

bool holdsTypeOf(const Value& value, OptionType type) {
  switch (type) {
    case OptionType::Text:
      return value.is<Text>();
    case OptionType::Long:
      return value.is<std::int32_t>();
    case OptionType::Integer:
      return value.is<std::int16_t>();
    case OptionType::Byte:
      return value.is<std::uint8_t>();
    case OptionType::Single:
      return value.is<float>();
    case OptionType::Currency:
      return value.is<Money>();
    case OptionType::Boolean:
      break;
  }
  return value.is<bool>();
}

void forget(ShopFile& file, const OptionInfo& option) {
  Statement row =
      file.writingStatement("DELETE FROM options WHERE Name = ?1", shop_object::options);
  row.bind(1, TextView(option.name));
  row.execute();
}

}  // namespace

Value readOption(ShopFile& file, const OptionInfo& option) {
  Statement row = file.statement("SELECT Value FROM options WHERE Name = ?1", shop_object::options);
  row.bind(1, TextView(option.name));
  return row.step() ? storedValue(row, option) : Value();
}

void writeOption(ShopFile& file, const OptionInfo& option, const Value& value) {
  if (value.isNone()) {
    forget(file, option);
    return;
  }
  if (!holdsTypeOf(value, option.type)) mismatch(option);
  Statement row = file.writingStatement(
      "INSERT INTO options (Name, Value) VALUES (?1, ?2) "
      "ON CONFLICT (Name) DO UPDATE SET Value = excluded.Value",
      shop_object::options);
  row.bind(1, TextView(option.name));
  value.visit([&row](const auto& held) {
    using Held = std::decay_t<decltype(held)>;
    if constexpr (std::is_same_v<Held, Text>) {
      row.bind(2, TextView(held));
    } else if constexpr (std::is_same_v<Held, Money>) {
      row.bind(2, held.tenThousandths);
    } else if constexpr (std::is_same_v<Held, float>) {
      row.bind(2, double{held});
    } else if constexpr (std::is_integral_v<Held>) {
      row.bind(2, std::int64_t{held});
    }
  });
  row.execute();
}

StoredOptions::StoredOptions(std::shared_ptr<ShopFile> file) : file_(std::move(file)) {}

StoredOptions::~StoredOptions() { file_->abandonSave(this); }

Value StoredOptions::read(OptionId option) { return readOption(*file_, optionInfo(option)); }

void StoredOptions::write(OptionId option, const Value& value) {
  file_->beginSave(this, shop_object::options);
  writeOption(*file_, optionInfo(option), value);
}

void StoredOptions::commit() { file_->commitSave(this, shop_object::options); }

const OptionInfo* findOption(TextView name) {
  const auto* const found = std::ranges::find_if(
      kOptionTable, [&](const OptionInfo& option) { return sameName(option.name, name); });
  return found == kOptionTable.end() ? nullptr : found;
}

}  // namespace tillora::host
