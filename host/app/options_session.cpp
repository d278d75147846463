#include "host/app/options_session.h"

#include <utility>

#include "host/app/options_events.h"
#include "host/option_list.h"

namespace tillora::host::app {

namespace {

/// A password's text is not read: it is enough to know that there is one.
Value shownPartOf(const OptionInfo& option, const Variant& value) {
  const VARIANT& held = value.get();
  if (held.vt == VT_BSTR && isPassword(option)) {
    return Text(SysStringLen(held.bstrVal) == 0 ? 0 : 1, u'*');
  }
  return win32::toValue(held);
}

}  // namespace

OptionsSession::OptionsSession(EventLog& log, std::function<void()> saved)
    : log_(log), saved_(std::move(saved)), shop_(createObject(u"TilloraHost.Shop")) {}

void OptionsSession::openShop(const Text& database, std::int32_t items, bool firstUse) {
  if (firstUse) {
    shop_.call(u"CreateEmpty", database);
  } else if (items > 0) {
    shop_.call(u"OpenSeeded", database, items);
  } else {
    shop_.call(u"Open", database);
  }
  log_.write(u"Opened " + database);
}

void OptionsSession::showOptions(std::int16_t tab, bool firstUse) {
  // 1. Create the component and listen to its event.
  const auto options = createObject(u"TilloraOptions.Options").query<_Options>(IID__Options);
  const OptionsEvents events(*options.get(), [this](std::int32_t mask) {
    log_.write(u"OptionsChanged " + hexadecimal(static_cast<std::uint32_t>(mask)) + u": " +
               namesOfChanges(mask));
    if (saved_) saved_();
  });

  // 2. Hand over the host's objects and say how to open, in any order.
  check(options->putref_DBJetObject(shop_.object(u"Database").dispatch()), u"DBJetObject");
  check(options->putref_AppObject(shop_.object(u"App").dispatch()), u"AppObject");
  check(options->putref_MsgSndObject(shop_.object(u"Messages").dispatch()), u"MsgSndObject");
  check(options->putref_ResourceObject(shop_.object(u"Strings").dispatch()), u"ResourceObject");
  check(options->putref_SettingsObject(shop_.object(u"Settings").dispatch()), u"SettingsObject");
  check(options->put_LVFileExtension(Bstr(u".lvd").get()), u"LVFileExtension");
  check(options->put_FirstUse(firstUse ? VARIANT_TRUE : VARIANT_FALSE), u"FirstUse");
  check(options->put_SelectedTab(tab), u"SelectedTab");

  // 3. Show the dialog; this returns when it has closed.
  VARIANT_BOOL shown = VARIANT_FALSE;
  check(options->ShowOptions(&shown), u"ShowOptions");

  // Read what the event does not report.
  VARIANT_BOOL changedDataFile = VARIANT_FALSE;
  check(options->get_ChangedDataFile(&changedDataFile), u"ChangedDataFile");
  log_.write(changedDataFile != VARIANT_FALSE ? u"Options closed; ChangedDataFile is True"
                                              : u"Options closed; ChangedDataFile is False");
}

void OptionsSession::setOption(const Text& name, const Text& value) {
  const Late record = shop_.object(u"Database").object(u"OptionsRecord");
  record.put(name.c_str(), Variant(value));
  record.call(u"Commit");
  log_.write(u"Stored option " + name);
}

Text OptionsSession::dump() { return shop_.text(u"Dump"); }

std::vector<Text> OptionsSession::storedOptions() {
  const Late record = shop_.object(u"Database").object(u"OptionsRecord");
  std::vector<Text> values;
  values.reserve(kOptionTable.size());
  for (const OptionInfo& option : kOptionTable) {
    const Variant value = record.call(option.name);
    const bool isNone = record.call(u"NoValue").get().boolVal != VARIANT_FALSE;
    values.push_back(shownValue(option, isNone ? Value() : shownPartOf(option, value)));
  }
  return values;
}

}  // namespace tillora::host::app
