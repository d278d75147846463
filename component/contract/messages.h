#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "component/contract/platform.h"

namespace tillora {

/// Shows messages of the dialogs: each through a message box of its own, given the host's settings
/// first. Nothing is shown over a dialog whose window is gone; a question is then not answered by
/// Yes.
class Messages {
 public:
  Messages(const ui::Screen& screen, MessageBoxes& boxes) : screen_(screen), boxes_(boxes) {}

  void setSettings(std::shared_ptr<SettingsStore> settings) { settings_ = std::move(settings); }

  /// A warning with an OK button.
  void warn(TextView text, TextView title, TextView secondaryText = {});
  /// A question answered by Yes or No, No being the default. True for Yes.
  bool ask(TextView text, TextView title);

 private:
  MessageResult show(TextView text, std::int32_t style, TextView title, TextView secondaryText);

  const ui::Screen& screen_;
  MessageBoxes& boxes_;
  std::shared_ptr<SettingsStore> settings_;
};

}  // namespace tillora
