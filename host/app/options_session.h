#pragma once

#include <TilloraOptions.h>

#include <functional>
#include <vector>

#include "host/app/automation.h"
#include "host/app/event_log.h"

namespace tillora::host::app {

/// The host's side of the options component: the shop with its objects, and the dialog over them.
/// This is the part to copy into a host program.
class OptionsSession {
 public:
  /// `saved` is called after each save of the options dialog, while that is still open.
  explicit OptionsSession(EventLog& log, std::function<void()> saved = nullptr);

  /// Opens the shop's database and makes it if there is none: with `items` made-up items if that is
  /// above 0, or without any stored option and row for a first use.
  void openShop(const Text& database, std::int32_t items, bool firstUse);

  /// Shows the options dialog on a tab (from 1; 0 for the dialog's own choice) and returns when it
  /// has closed. Raises what the host's objects raised meanwhile.
  void showOptions(std::int16_t tab, bool firstUse);

  /// Stores one option, as any program of the shop does.
  void setOption(const Text& name, const Text& value);
  /// Everything that the shop stores, as text.
  Text dump();
  /// What is stored for each option, in the order of the option table, as text for people
  /// (shownValue()).
  std::vector<Text> storedOptions();

 private:
  EventLog& log_;
  std::function<void()> saved_;
  Late shop_;
};

}  // namespace tillora::host::app
