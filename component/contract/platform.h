#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "base/numbers.h"
#include "component/contract/host_objects.h"
#include "ui/screen.h"

namespace tillora {

/// The present time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime now() = 0;
};

/// Makes the message boxes: the host's own if its class is registered, else the platform's.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual std::unique_ptr<HostMessageBox> create() = 0;
};

/// Opens help files.
class Help {
 public:
  virtual ~Help() = default;
  /// Shows the topic with this number if the file exists.
  virtual void show(TextView file, int context) = 0;
};

/// What a file dialog asks for.
struct FileRequest {
  TextView title;
  /// What the files are called, and their names' pattern ("*.url").
  TextView filter;
  TextView pattern;
  /// Returns a chosen shortcut itself, not the file that it leads to.
  bool keepsShortcuts = false;
};

/// Lets the user choose files.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// The existing file that was chosen; none if the user cancelled.
  virtual std::optional<Text> open(const FileRequest& request) = 0;
};

/// A listing of files, one by one.
class FileListing {
 public:
  virtual ~FileListing() = default;
  /// Goes on to the next file; False after the last one.
  virtual bool next() = 0;
};

/// The file system.
class Files {
 public:
  virtual ~Files() = default;
  /// The normal files that match a path with wildcards in its last part. Null if the listing cannot
  /// be started (the folder does not exist, for example).
  virtual std::unique_ptr<FileListing> list(TextView pattern) = 0;
  /// The value of a key of an initialisation file; empty if there is none.
  virtual Text profileValue(TextView file, TextView section, TextView key) = 0;
};

/// The values of an opened key of the registry. Every operation can fail with an Error.
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;
  virtual std::vector<Text> valueNames() = 0;
  virtual void writeText(TextView name, TextView data) = 0;
  virtual void removeValue(TextView name) = 0;
};

/// The registry of the current user.
class Registry {
 public:
  virtual ~Registry() = default;
  enum class Access : std::uint8_t { read, write };
  /// Fails with an Error if the key does not exist or may not be opened for this. A key opened for
  /// writing can also be read.
  virtual std::unique_ptr<RegistryKey> open(TextView key, Access access) = 0;
};

/// What the component needs of the machine. Chosen once, by the creator of the Options object: the
/// real services in the automation server, scripted ones in tests.
struct Platform {
  ui::Screen& screen;
  MessageBoxes& messageBoxes;
  Clock& clock;
  Help& help;
  FileDialogs& fileDialogs;
  Files& files;
  Registry& registry;
  /// The user's regional settings.
  NumberLocale numbers{};
};

}  // namespace tillora
