#pragma once

#include "base/text.h"
#include "host/automation/host_object.h"

namespace tillora::host::automation {

/// The host program. A program may give its own title and folder.
class AppObject final : public TableObject<AppObject> {
 public:
  AppObject();
  static std::span<const Member<AppObject>> members();

 private:
  Text title_ = u"Tillora Administrator";
  Text path_;  ///< the running program's folder
};

/// Broadcasts OptionsSavedMessage to the programs of the machine.
class MessageSenderObject final : public TableObject<MessageSenderObject> {
 public:
  MessageSenderObject();
  static std::span<const Member<MessageSenderObject>> members();
};

/// The platform's message box, owned by the thread's active window.
class HostMessageBoxObject final : public TableObject<HostMessageBoxObject> {
 public:
  HostMessageBoxObject();
  static std::span<const Member<HostMessageBoxObject>> members();

 private:
  ComPtr<IDispatch> settings_;
};

}  // namespace tillora::host::automation
