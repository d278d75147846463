#include "host/shop_dump.h"

#include <iomanip>
#include <sstream>
#include <string>

#include "component/option_table.h"
#include "host/column_value.h"
#include "host/shop_schema.h"
#include "host/stored_options.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

constexpr TextView kObject = u"JetDatabase";

/// A text in double quotes on one line.
std::string inQuotes(TextView text) {
  std::ostringstream out;
  out << '"';
  for (const char c : toUtf8(text)) {
    if (c == '"' || c == '\\') {
      out << '\\' << c;
    } else if (c == '\r') {
      out << "\\r";
    } else if (c == '\n') {
      out << "\\n";
    } else if (static_cast<unsigned char>(c) < 0x20) {
      out << "\\x" << std::hex << std::setw(2) << std::setfill('0') << static_cast<int>(c);
    } else {
      out << c;
    }
  }
  out << '"';
  return out.str();
}

std::string money(Money amount) {
  constexpr std::int64_t kUnit = 10000;
  const bool negative = amount.tenThousandths < 0;
  // The magnitude of the most negative amount fits only without a sign.
  const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(amount.tenThousandths)
                                  : static_cast<std::uint64_t>(amount.tenThousandths);
  std::ostringstream out;
  out << (negative ? "-" : "") << magnitude / kUnit << '.' << std::setw(4) << std::setfill('0')
      << magnitude % kUnit;
  return out.str();
}

struct Printed {
  std::string operator()(std::monostate) const { return "(none)"; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::uint8_t value) const { return std::to_string(value); }
  std::string operator()(std::int16_t value) const { return std::to_string(value); }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(float value) const {
    std::ostringstream out;
    out << std::setprecision(9) << value;
    return out.str();
  }
  std::string operator()(Money value) const { return money(value); }
  std::string operator()(const Text& value) const { return inQuotes(value); }
};

bool isPassword(const OptionInfo& option) { return TextView(option.name).starts_with(u"Password"); }

std::string printedOption(const OptionInfo& option, const Value& value) {
  if (!isPassword(option)) return std::visit(Printed{}, value);
  const auto* password = std::get_if<Text>(&value);
  return password != nullptr && !password->empty() ? "(set)" : "(not set)";
}

void dumpOptions(ShopFile& file, std::ostream& out) {
  out << "[options]\n";
  for (const OptionInfo& option : kOptionTable) {
    const Value value = readOption(file, option);
    if (std::holds_alternative<std::monostate>(value)) continue;
    out << toUtf8(option.name) << " = " << printedOption(option, value) << '\n';
  }
}

void dumpPairs(ShopFile& file, std::ostream& out, const char* title, const char* sql) {
  out << '\n' << '[' << title << "]\n";
  Statement rows = file.statement(sql, kObject);
  while (rows.step()) {
    out << toUtf8(rows.text(0)) << " = " << inQuotes(rows.text(1)) << '\n';
  }
}

void dumpTable(ShopFile& file, std::ostream& out, const TableSchema& table) {
  out << '\n' << '[' << table.name << "]\n";
  Statement rows = file.statement("SELECT " + columnList(table) + " FROM " +
                                      quotedName(fromUtf8(table.name)) + " ORDER BY rowid",
                                  kObject);
  while (rows.step()) {
    int index = 0;
    for (const Column& column : table.columns) {
      const Value value = readColumn(rows, index, column, kObject);
      out << (index == 0 ? "" : ", ") << toUtf8(column.field.name) << " = "
          << std::visit(Printed{}, value);
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
