#pragma once

#include <memory>

#include "component/host_objects.h"
#include "support/numbers.h"
#include "ui/screen.h"

namespace tillora {

/// The present time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime now() = 0;
};

/// Makes the message boxes: the host's own where its class is registered, else the platform's.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual std::unique_ptr<HostMessageBox> create() = 0;
};

/// Opens help files.
class Help {
 public:
  virtual ~Help() = default;
  /// Shows the topic with this number where the file exists; else nothing.
  virtual void show(TextView file, int context) = 0;
};

/// What the component needs of the machine. Chosen once, by whoever makes the Options object: the
/// real services in the automation server, scripted ones in tests.
struct Platform {
  ui::Screen& screen;
  MessageBoxes& messageBoxes;
  Clock& clock;
  Help& help;
  /// The user's regional settings.
  NumberLocale numbers{};
};

}  // namespace tillora
