#include "support/win32/platform_message_box.h"

#include <utility>

#include "support/win32/wide_text.h"

namespace tillora::win32 {

void PlatformMessageBox::setSettingsStore(const std::shared_ptr<SettingsStore>&) {}

MessageResult PlatformMessageBox::show(TextView text, std::int32_t style, TextView title,
                                       TextView secondaryText) {
  Text whole(text);
  if (!secondaryText.empty()) {
    whole += u"\r\n\r\n";
    whole += secondaryText;
  }
  whole = nulsAsBlanks(std::move(whole));
  const Text shownTitle = nulsAsBlanks(Text(title));
  const int button = MessageBoxW(owner_ != nullptr ? owner_ : GetActiveWindow(), wide(whole),
                                 wide(shownTitle), static_cast<UINT>(style));
  // 0: it could not be shown. Whoever asks must not take that for a yes.
  return button == 0 ? MessageResult::cancel : static_cast<MessageResult>(button);
}

}  // namespace tillora::win32
