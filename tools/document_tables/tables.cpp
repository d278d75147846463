#include "tools/document_tables/tables.h"

#include <sstream>

#include "base/text.h"
#include "component/contract/option_table.h"
#include "operations/report_captions.h"

namespace tillora::docs {
namespace {

std::string quoted(TextView text) { return "`\"" + toUtf8(text) + "\"`"; }

const char* typeName(OptionType type) {
  switch (type) {
    case OptionType::Text:
      return "Text";
    case OptionType::Long:
      return "Long";
    case OptionType::Integer:
      return "Integer";
    case OptionType::Byte:
      return "Byte";
    case OptionType::Single:
      return "Single";
    case OptionType::Currency:
      return "Currency";
    case OptionType::Boolean:
      return "Boolean";
  }
  return "";
}

std::string defaultOf(const Option<OptionType::Text>& option) {
  const TextView text = option.defaultValue;
  if (text == kDefaultLaybyTerms) return "terms to be edited";
  return text.empty() ? "empty" : quoted(text);
}
std::string defaultOf(const Option<OptionType::Boolean>& option) {
  return option.defaultValue ? "True" : "False";
}
// Only the rounding step: which steps there are depends on the currency.
std::string defaultOf(const Option<OptionType::Currency>& /*option*/) { return "the third step"; }
template <OptionType type>
std::string defaultOf(const Option<type>& option) {
  std::ostringstream text;
  text << +option.defaultValue;
  return text.str();
}

std::string defaultOf(OptionId id) {
  switch (id) {
#define TILLORA_OPTION(dispatchId, name, type, default_, tab, help) \
  case OptionId::name:                                              \
    return defaultOf(options::name);
#include "component/contract/option_table.inc"
#undef TILLORA_OPTION
  }
  return {};
}

std::string allOptions() {
  std::ostringstream lines;
  lines << "| id | name | type | default | tab | meaning |\n|---|---|---|---|---|---|\n";
  for (const OptionInfo& info : kOptionTable) {
    lines << "| " << info.dispatchId << " | `" << toUtf8(info.name) << "` | " << typeName(info.type)
          << " | " << defaultOf(info.option) << " | " << info.tab << " | " << info.help << " |\n";
  }
  return lines.str();
}

std::optional<std::string> optionsOf(std::string_view tab) {
  std::ostringstream rows;
  for (const OptionInfo& info : kOptionTable) {
    if (info.tab != tab) continue;
    rows << "| `" << toUtf8(info.name) << "` | " << typeName(info.type) << " | "
         << defaultOf(info.option) << " | " << info.help << " |\n";
  }
  if (rows.view().empty()) return std::nullopt;
  return "| option | type | default | meaning |\n|---|---|---|---|\n" + rows.str();
}

std::string changes() {
  std::ostringstream lines;
  lines << "| name | value | hexadecimal | raised when |\n|---|---|---|---|\n";
#define TILLORA_CHANGE(name, value, help)                                          \
  lines << "| `" #name "` | " << value << " | &H" << std::hex << value << std::dec \
        << " | " help " |\n";
#include "component/contract/option_changes.inc"
#undef TILLORA_CHANGE
  return lines.str();
}

std::string reportCaptions() {
  std::string lines = "| setting | default |\n|---|---|\n";
  const auto add = [&lines](const ReportCaption& caption) {
    lines += "| `" + toUtf8(caption.setting) + "` | " + quoted(caption.standard) + " |\n";
  };
  for (const ReportCaption& title : kReportTitles) add(title);
  for (const ReportCaption& detail : kReportDetails) add(detail);
  return lines;
}

}  // namespace

std::optional<std::string> table(std::string_view name) {
  constexpr std::string_view kOfTab = "options ";
  if (name == "options") return allOptions();
  if (name == "changes") return changes();
  if (name == "report-captions") return reportCaptions();
  if (name.starts_with(kOfTab)) return optionsOf(name.substr(kOfTab.size()));
  return std::nullopt;
}

}  // namespace tillora::docs
