#include "host/shop_dump.h"

#include <ostream>
#include <string>

#include "component/contract/option_table.h"
#include "host/column_value.h"
#include "host/option_list.h"
#include "host/shop_error.h"
#include "host/shop_schema.h"
#include "host/stored_options.h"
#include "host/text_encoding.h"
#include "host/value_text.h"

namespace tillora::host {
namespace {

/// A text in double quotes on one line.
std::string inQuotes(TextView text) {
  constexpr const char* kHexadecimal = "0123456789abcdef";
  std::string out(1, '"');
  for (const char c : toUtf8(text)) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += {'\\', c};
    } else if (c == '\r') {
      out += "\\r";
    } else if (c == '\n') {
      out += "\\n";
    } else if (code < 0x20) {
      out += {'\\', 'x', kHexadecimal[code >> 4], kHexadecimal[code & 0xF]};
    } else {
      out += c;
    }
  }
  out += '"';
  return out;
}

struct Printed {
  std::string operator()(std::monostate) const { return "(none)"; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::uint8_t value) const { return std::to_string(value); }
  std::string operator()(std::int16_t value) const { return std::to_string(value); }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(float value) const { return singleText(value); }
  std::string operator()(Money value) const { return amountText(value); }
  std::string operator()(const Text& value) const { return inQuotes(value); }
};

std::string printedOption(const OptionInfo& option, const Value& value) {
  return isPassword(option) ? toUtf8(shownValue(option, value)) : value.visit(Printed{});
}

void dumpOptions(ShopFile& file, std::ostream& out) {
  out << "[options]\n";
  for (const OptionInfo& option : kOptionTable) {
    const Value value = readOption(file, option);
    if (value.isNone()) continue;
    out << toUtf8(option.name) << " = " << printedOption(option, value) << '\n';
  }
}

void dumpPairs(ShopFile& file, std::ostream& out, const char* title, const char* sql) {
  out << '\n' << '[' << title << "]\n";
  Statement rows = file.statement(sql, shop_object::database);
  while (rows.step()) {
    out << toUtf8(rows.text(0)) << " = " << inQuotes(rows.text(1)) << '\n';
  }
}

void dumpTable(ShopFile& file, std::ostream& out, const TableSchema& table) {
  out << '\n' << '[' << table.name << "]\n";
  Statement rows = file.statement("SELECT " + columnList(table) + " FROM " +
                                      quotedName(fromUtf8(table.name)) + " ORDER BY rowid",
                                  shop_object::database);
  while (rows.step()) {
    int index = 0;
    for (const Column& column : table.columns) {
      const Value value = readColumn(rows, index, column, shop_object::database);
      out << (index == 0 ? "" : ", ") << toUtf8(column.field.name) << " = "
          << value.visit(Printed{});
      ++index;
    }
    out << '\n';
  }
}

}  // namespace

void dumpShop(ShopFile& file, std::ostream& out) {
  dumpOptions(file, out);
  dumpPairs(file, out, "settings", "SELECT Name, Value FROM settings ORDER BY Name");
  for (const TableSchema* table : tables::all()) dumpTable(file, out, *table);
  dumpPairs(file, out, "strings", "SELECT Number, Value FROM strings ORDER BY Number");
}

}  // namespace tillora::host
