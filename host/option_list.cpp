#include "host/option_list.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <variant>

#include "host/text_encoding.h"
#include "host/value_text.h"

namespace tillora::host {
namespace {

constexpr std::array<std::string_view, 12> kTabs = {
    "General", "Lists", "Transactions", "Rounding", "Currency", "Scanning",
    "Layby",   "EOD",   "Pump",         "Web",      "Security", "FRED"};

std::int16_t tabOf(const OptionInfo& option) {
  const auto found = std::ranges::find(kTabs, std::string_view(option.tab));
  return static_cast<std::int16_t>(found - kTabs.begin() + 1);
}

Text onOneLine(TextView text) {
  Text line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    if (c == u'\r' || c == u'\n') {
      line += u" / ";
    } else {
      line += c < u' ' ? u' ' : c;
    }
  }
  return line;
}

struct Shown {
  Text operator()(std::monostate) const { return u"(not stored)"; }
  Text operator()(bool value) const { return value ? u"True" : u"False"; }
  Text operator()(std::uint8_t value) const { return fromUtf8(std::to_string(value)); }
  Text operator()(std::int16_t value) const { return fromUtf8(std::to_string(value)); }
  Text operator()(std::int32_t value) const { return fromUtf8(std::to_string(value)); }
  Text operator()(float value) const { return fromUtf8(singleText(value)); }
  Text operator()(Money value) const { return fromUtf8(amountText(value)); }
  Text operator()(const Text& value) const {
    return value.empty() ? Text(u"(empty)") : onOneLine(value);
  }
};

}  // namespace

bool isPassword(const OptionInfo& option) { return TextView(option.name).starts_with(u"Password"); }

Text shownValue(const OptionInfo& option, const Value& value) {
  if (!isPassword(option)) return value.visit(Shown{});
  const auto* const password = value.as<Text>();
  return password != nullptr && !password->empty() ? u"(set)" : u"(not set)";
}

OptionList::OptionList() {
  for (const OptionInfo& option : kOptionTable)
    rows_.push_back({&option, tabOf(option), {}, {}, false});
  std::ranges::stable_sort(rows_, {}, &OptionRow::tab);
}

void OptionList::update(const std::vector<Text>& values, bool afterSave) {
  const auto newValue = [&values](const OptionRow& row) -> const Text& {
    return values.at(static_cast<std::size_t>(row.option->option));
  };
  const bool differs =
      std::ranges::any_of(rows_, [&](const OptionRow& row) { return row.value != newValue(row); });
  if (!differs && !afterSave) return;
  for (OptionRow& row : rows_) {
    row.changed = isFilled_ && row.value != newValue(row);
    row.before = row.changed ? row.value : Text();
    row.value = newValue(row);
  }
  isFilled_ = true;
}

}  // namespace tillora::host
