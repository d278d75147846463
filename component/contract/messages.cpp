#include "component/contract/messages.h"

namespace tillora {

void Messages::warn(TextView text, TextView title, TextView secondaryText) {
  show(text, message_style::exclamation, title, secondaryText);
}

bool Messages::ask(TextView text, TextView title) {
  return show(text, message_style::questionYesNo, title, {}) == MessageResult::yes;
}

MessageResult Messages::show(TextView text, std::int32_t style, TextView title,
                             TextView secondaryText) {
  if (!screen_.canShow()) return MessageResult::cancel;
  const std::unique_ptr<HostMessageBox> box = boxes_.create();
  box->setSettingsStore(settings_);
  return box->show(text, style, title, secondaryText);
}

}  // namespace tillora
