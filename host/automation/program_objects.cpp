#include "host/automation/program_objects.h"

#include <TilloraOptions.h>

#include <array>

#include "host/automation/system_failure.h"
#include "host/options_saved_message.h"
#include "platform/platform_message_box.h"

namespace tillora::host::automation {
namespace {

Text folderOf(const Text& path) {
  const std::size_t end = path.find_last_of(u"\\/");
  return end == Text::npos ? Text() : path.substr(0, end);
}

void broadcast(const OptionsSavedMessage& message) {
  const UINT number = RegisterWindowMessageW(OptionsSavedMessage::kName);
  if (number == 0 ||
      !PostMessageW(HWND_BROADCAST, number, message.low, static_cast<LPARAM>(message.high))) {
    failWithLastError(u"MessageSender", u"The other programs could not be told of the save.");
  }
}

std::int32_t showMessage(const Arguments& arguments) {
  const Text secondary = arguments.missing(3) ? Text() : arguments.text(3);
  win32::PlatformMessageBox box;
  return static_cast<std::int32_t>(
      box.show(arguments.text(0), arguments.number(1), arguments.text(2), secondary));
}

}  // namespace

AppObject::AppObject() : TableObject(DIID_App), path_(folderOf(win32::pathOfModule(nullptr))) {}

std::span<const Member<AppObject>> AppObject::members() {
  using Self = AppObject;
  static constexpr std::array<Member<Self>, 2> kMembers = {{
      {1, u"Title", 0, [](Self& self, const Arguments&) { return Variant(self.title_); },
       [](Self& self, const Arguments& arguments) { self.title_ = arguments.text(0); }},
      {2, u"Path", 0, [](Self& self, const Arguments&) { return Variant(self.path_); },
       [](Self& self, const Arguments& arguments) { self.path_ = arguments.text(0); }},
  }};
  return kMembers;
}

MessageSenderObject::MessageSenderObject() : TableObject(DIID_MessageSender) {}

std::span<const Member<MessageSenderObject>> MessageSenderObject::members() {
  using Self = MessageSenderObject;
  static constexpr std::array<Member<Self>, 1> kMembers = {{
      {1, u"Send", 1,
       [](Self&, const Arguments& arguments) {
         broadcast(OptionsSavedMessage::of({arguments.date(0)}));
         return Variant();
       }},
  }};
  return kMembers;
}

HostMessageBoxObject::HostMessageBoxObject() : TableObject(DIID_HostMessageBox) {}

std::span<const Member<HostMessageBoxObject>> HostMessageBoxObject::members() {
  using Self = HostMessageBoxObject;
  static constexpr std::array<Member<Self>, 2> kMembers = {{
      {1, u"SettingsStore", 0, nullptr,
       [](Self& self, const Arguments& arguments) { self.settings_ = arguments.object(0); }},
      {2, u"Show", 3,
       [](Self&, const Arguments& arguments) { return Variant(showMessage(arguments)); }, nullptr,
       1},
  }};
  return kMembers;
}

}  // namespace tillora::host::automation
