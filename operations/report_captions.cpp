#include "operations/report_captions.h"

namespace tillora {

std::vector<Text> readCaptions(SettingsStore& settings, std::span<const ReportCaption> table) {
  std::vector<Text> captions;
  captions.reserve(table.size());
  for (const ReportCaption& caption : table) {
    captions.push_back(settings.setting(caption.setting).value_or(caption.standard));
  }
  return captions;
}

void writeCaptions(SettingsStore& settings, std::span<const ReportCaption> table,
                   const std::vector<Text>& captions) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    settings.setSetting(table[i].setting, captions.at(i));
  }
}

}  // namespace tillora
