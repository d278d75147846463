#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "component/contract/host_objects.h"
#include "component/contract/platform.h"
#include "ui/event.h"

namespace tillora {

/// The component's entry point: the host sets objects and values in any order, calls ShowOptions,
/// receives OptionsChanged for every successful save, and reads ChangedDataFile afterwards. The
/// names are those of the automation interface.
class Options {
 public:
  explicit Options(Platform platform);
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;

  std::shared_ptr<JetDatabase> DBJetObject;
  std::shared_ptr<App> AppObject;
  std::shared_ptr<MessageSender> MsgSndObject;
  std::shared_ptr<ResourceStrings> ResourceObject;
  std::shared_ptr<SettingsStore> SettingsObject;
  /// The options are being set up for the first time: defaults are saved while loading.
  bool FirstUse = false;
  /// File extension of the accounting package's data files, with or without its dot.
  Text LVFileExtension;
  /// Number of the tab to open, from 1; 0 or less keeps the dialog's own choice. A number beyond
  /// the tabs is an error of ShowOptions.
  std::int16_t SelectedTab = 0;

  /// The user's regional settings, for the dialogs to come.
  void setNumbers(NumberLocale numbers) { platform_.numbers = std::move(numbers); }

  /// The last ShowOptions changed the accounting package's data file. A failed call leaves the
  /// former value, unless a save of its dialog had committed another data file.
  bool ChangedDataFile() const { return changedDataFile_; }

  /// Shows the dialog and returns True when it has closed. Failures of the host's objects are
  /// passed on unchanged, and no window is left behind. Error `already shown` (400) while a dialog
  /// of the component is open on the thread.
  bool ShowOptions();

  /// A save succeeded. The mask of option_changes.h says what changed; the host may alter it.
  ui::Event<std::int32_t&> OptionsChanged;

 private:
  Platform platform_;
  bool changedDataFile_ = false;
};

}  // namespace tillora
