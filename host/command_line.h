#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"

namespace tillora::host {

/// What the Administrator is asked to do. Without --options, --first-use, --dump or --set-option it
/// shows its window and waits for the user.
struct CommandLine {
  std::optional<std::int16_t>
      optionsTab;                     ///< --options [TAB]: open the dialog, then end; 0: any tab
  bool firstUse = false;              ///< --first-use: the same for a shop not used before
  std::optional<Text> database;       ///< --database FILE
  std::optional<std::int32_t> items;  ///< --items N: catalogue of a new database
  std::optional<Text> log;            ///< --log FILE
  bool dump = false;                  ///< --dump [FILE]: print what is stored, then end
  std::optional<Text> dumpFile;       ///< of --dump, or --out FILE; else the standard output
  std::vector<std::pair<Text, Text>> optionsToSet;  ///< --set-option NAME VALUE, then end

  bool opensDialog() const { return optionsTab || firstUse; }
};

/// Throws an Error for an invalid command line.
CommandLine parseCommandLine(const std::vector<Text>& arguments);

}  // namespace tillora::host
