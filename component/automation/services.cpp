#include "component/automation/services.h"

#include "component/automation/message_boxes.h"
#include "platform/file_dialogs.h"
#include "platform/file_system.h"
#include "platform/help_viewer.h"
#include "platform/system_clock.h"
#include "platform/user_locale.h"
#include "platform/user_registry.h"
#include "ui/win32/screen.h"

namespace tillora::automation {

namespace {

class SystemServices final : public Services {
 public:
  Platform platform() override {
    return {screen_,      messageBoxes_, clock_,    help_,
            fileDialogs_, files_,        registry_, win32::userNumberLocale()};
  }

 private:
  ui::win32::Screen screen_;
  AutomationMessageBoxes messageBoxes_{[this] { return screen_.topWindow(); }};
  win32::SystemClock clock_;
  win32::HelpViewer help_;
  win32::SystemFileDialogs fileDialogs_{[this] { return screen_.topWindow(); }};
  win32::FileSystem files_;
  win32::UserRegistry registry_;
};

}  // namespace

std::unique_ptr<Services> makeServices() { return std::make_unique<SystemServices>(); }

}  // namespace tillora::automation
