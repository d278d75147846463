#pragma once

#include "component/platform.h"

namespace tillora::win32 {

/// Opens compiled help files in the system's help viewer, a program of its own: it stays open when
/// the component is unloaded.
class HelpViewer final : public Help {
 public:
  /// Nothing where the file does not exist; a viewer that cannot be started is no failure.
  void show(TextView file, int context) override;
};

/// Full path of the viewer.
Text helpViewerPath();
/// What starts the viewer on a topic of the file.
Text helpCommandLine(TextView file, int context);

}  // namespace tillora::win32
