#pragma once

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "component/contract/platform.h"

namespace tillora::testing {

/// A clock that stands still.
class FixedClock final : public Clock {
 public:
  DateTime now() override { return time; }
  DateTime time{45000.5};
};

/// Help that records what it was asked for.
class RecordedHelp final : public Help {
 public:
  void show(TextView file, int context) override { topics.emplace_back(Text(file), context); }
  std::vector<std::pair<Text, int>> topics;
};

/// File-open dialogs with answers given beforehand; cancelled if none is left.
class ScriptedFileDialogs final : public FileDialogs {
 public:
  struct Shown {
    Text title;
    Text filter;
    Text pattern;
    bool keepsShortcuts = false;
  };
  std::optional<Text> open(const FileRequest& request) override;

  std::vector<Shown> shown;
  std::vector<std::optional<Text>> answers;
};

/// A file system in memory.
class FakeFiles final : public Files {
 public:
  /// Number of files by the pattern that they are listed with; any other pattern cannot be listed.
  std::map<Text, int> matches;
  /// Values of initialisation files by "file|section|key".
  std::map<Text, Text> profile;
  /// The patterns that were listed, in order.
  std::vector<Text> listed;

  std::unique_ptr<FileListing> list(TextView pattern) override;
  Text profileValue(TextView file, TextView section, TextView key) override;
};

/// The user's registry in memory: the text values of one key.
class FakeRegistry final : public Registry {
 public:
  /// The only key that can be opened; empty for none.
  Text key = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
  /// By name. As in the real one, a name in other letter case is the same name.
  std::vector<std::pair<Text, Text>> values;
  /// Writing and removing, or listing the values, fail though the key is open.
  bool writesFail = false;
  bool readsFail = false;
  /// Values can be removed, but none can be written.
  bool textsCannotBeWritten = false;
  /// The user may open the key for reading only.
  bool readOnly = false;

  std::unique_ptr<RegistryKey> open(TextView path, Access access) override;
};

/// What the component needs of the machine, in memory.
struct FakeMachine {
  explicit FakeMachine(NumberLocale regionalSettings = {}) : numbers(std::move(regionalSettings)) {}

  FixedClock clock;
  RecordedHelp help;
  ScriptedFileDialogs fileDialogs;
  FakeFiles files;
  FakeRegistry registry;
  NumberLocale numbers;

  Platform platform(ui::Screen& screen, MessageBoxes& boxes) {
    return {screen, boxes, clock, help, fileDialogs, files, registry, numbers};
  }
};

}  // namespace tillora::testing
