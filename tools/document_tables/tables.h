#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tillora::docs {

/// The lines of a table for a document, made from the tables of the component:
///
///   options              every stored option
///   options TAB          those of a tab
///   changes              the bits of OptionsChanged
///   report-captions      the settings that keep the captions of reports
///
/// None for any other name, or for a tab without options.
std::optional<std::string> table(std::string_view name);

}  // namespace tillora::docs
