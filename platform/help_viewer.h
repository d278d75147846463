#pragma once

#include <functional>

#include "component/contract/platform.h"

namespace tillora::win32 {

/// Opens compiled help files in the system's help viewer, a program of its own: it stays open when
/// the component is unloaded.
class HelpViewer final : public Help {
 public:
  /// Starts a program with a command line and does not wait for it.
  using Start = std::function<void(const Text& program, const Text& commandLine)>;
  HelpViewer();
  explicit HelpViewer(Start start) : start_(std::move(start)) {}

  /// Does nothing if the file does not exist. A viewer that cannot be started is not an error.
  void show(TextView file, int context) override;

 private:
  Start start_;
};

/// Full path of the viewer.
Text helpViewerPath();
/// The command line that opens a topic of the file.
Text helpCommandLine(TextView file, int context);

}  // namespace tillora::win32
