#include "component/automation/offered_interface.h"

#include "TilloraOptions.h"

namespace tillora::automation {

using win32::ComPtr;

namespace {

constexpr const char16_t* kJetDatabase[] = {
    u"OptionsRecord",   u"ClassTable",    u"AccountTable",  u"RandomPriceTable",
    u"GradeTable",      u"WebSiteTable",  u"CurrencyTable", u"ItemList",
    u"PaymentItemList", u"TerminalCount", u"DataFile",
};
constexpr const char16_t* kMessageSender[] = {u"Send"};
constexpr const char16_t* kResourceStrings[] = {u"ResourceString"};
constexpr const char16_t* kSettingsStore[] = {u"DecimalPlaces", u"CurrencyFormat",
                                              u"DecimalSeparator", u"Setting"};

}  // namespace

namespace host_interfaces {
const HostInterface jetDatabase{u"JetDatabase", &DIID_JetDatabase, kJetDatabase};
const HostInterface messageSender{u"MessageSender", &DIID_MessageSender, kMessageSender};
const HostInterface resourceStrings{u"ResourceStrings", &DIID_ResourceStrings, kResourceStrings};
const HostInterface settingsStore{u"SettingsStore", &DIID_SettingsStore, kSettingsStore};
}  // namespace host_interfaces

DispatchObject requireInterface(IDispatch& object, const HostInterface& wanted, TextView property) {
  const ComPtr<IDispatch> given(&object);
  if (auto offered = given.query<IDispatch>(*wanted.id)) return {std::move(offered), wanted.name};

  DispatchObject byName(given, wanted.name);
  for (const char16_t* const member : wanted.members) {
    if (byName.knows(member)) continue;
    Text description(property);
    description += u" must be a ";
    description += wanted.name;
    description += u"; the object given has no member ";
    description += member;
    description += u'.';
    throw Error(error::typeMismatch, std::move(description));
  }
  return byName;
}

}  // namespace tillora::automation
