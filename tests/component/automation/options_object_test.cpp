#include "component/automation/options_object.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "component/contract/option_changes.h"
#include "sales/currency_conversion.h"
#include "tests/component/automation/options_fixture.h"

namespace tillora::automation {
namespace {

using testing::Call;
using testing::Failing;
using testing::ScriptedObject;
using win32::ComPtr;
using win32::Variant;

const char16_t* const kObjectProperties[] = {u"DBJetObject", u"MsgSndObject", u"ResourceObject",
                                             u"SettingsObject"};

TEST_F(OptionsObjectTest, ShowsTheDialogAndSaves) {
  giveHost();
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"Corner Shop");
    desk.user().accessKey(u'o');
  });
  EXPECT_EQ(client->call(u"ShowOptions").get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_EQ(host.sent.size(), 1U);
  EXPECT_FALSE(client->getBoolean(u"ChangedDataFile"));
}

TEST_F(OptionsObjectTest, MembersAreInTheOrderOfTheInterface) {
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(object->GetTypeInfo(0, LOCALE_NEUTRAL, info.out()), S_OK);
  ComPtr<ITypeInfo> members;
  HREFTYPE dual = 0;
  // The description of the vtable behind the dispatch one.
  if (SUCCEEDED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &dual))) {
    ASSERT_EQ(info->GetRefTypeInfo(dual, members.out()), S_OK);
  } else {
    members = info;
  }
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(members->GetTypeAttr(&attributes), S_OK);
  std::vector<Text> names;
  for (UINT index = 0; index < attributes->cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(members->GetFuncDesc(index, &function), S_OK);
    win32::Bstr name;
    ASSERT_EQ(members->GetDocumentation(function->memid, name.out(), nullptr, nullptr, nullptr),
              S_OK);
    if (function->memid > 0 && function->memid < 100) {
      names.push_back(name.text());
      EXPECT_EQ(function->memid, static_cast<MEMBERID>(names.size()));
    }
    members->ReleaseFuncDesc(function);
  }
  members->ReleaseTypeAttr(attributes);
  EXPECT_EQ(names, (std::vector<Text>{u"DBJetObject", u"AppObject", u"ChangedDataFile", u"FirstUse",
                                      u"MsgSndObject", u"LVFileExtension", u"ResourceObject",
                                      u"SelectedTab", u"SettingsObject", u"ShowOptions"}));
}

TEST_F(OptionsObjectTest, NamesAreFoundInAnyLetterCase) {
  wchar_t name[] = L"showoptions";
  LPOLESTR names[] = {name};
  DISPID id = 0;
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
  EXPECT_EQ(id, 10);
}

TEST_F(OptionsObjectTest, DescribesItsClassAndEvents) {
  const auto provider = ComPtr<_Options>(object.get()).query<IProvideClassInfo2>();
  ASSERT_TRUE(provider);
  GUID events{};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_EQ(events, DIID___Options);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.out()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->guid, CLSID_Options);
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(object->InterfaceSupportsErrorInfo(IID__Options), S_OK);
  EXPECT_EQ(object->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
}

TEST_F(OptionsObjectTest, IdentityIsTheSameFromEveryInterface) {
  const auto fromDual = ComPtr<_Options>(object.get()).query<IUnknown>();
  const auto fromInfo =
      ComPtr<_Options>(object.get()).query<IProvideClassInfo2>().query<IUnknown>();
  const auto fromContainer =
      ComPtr<_Options>(object.get()).query<IConnectionPointContainer>().query<IUnknown>();
  EXPECT_EQ(fromDual.get(), fromInfo.get());
  EXPECT_EQ(fromDual.get(), fromContainer.get());
}

TEST_F(OptionsObjectTest, ObjectsThatKnowEveryNameAreTaken) {
  giveHost();
  for (const auto& [name, count] : automationHost.database->lookUps) EXPECT_EQ(count, 1);
  EXPECT_EQ(automationHost.database->lookUps.size(), 11U);
}

TEST_F(OptionsObjectTest, EachNameIsLookedUpOncePerObject) {
  giveHost();
  for (int round = 0; round < 2; ++round) {
    whileOpen([&](frmOptions& dialog) {
      rename(dialog, round == 0 ? u"First" : u"Second");
      desk.user().accessKey(u'a');
      rename(dialog, u"Again");
      desk.user().accessKey(u'o');
    });
    client->call(u"ShowOptions");
  }
  const auto expectOnce = [](const ScriptedObject& asked) {
    for (const auto& [name, count] : asked.lookUps) {
      EXPECT_EQ(count, 1) << Error(0, u"", name).what();
    }
  };
  expectOnce(*automationHost.database.get());
  expectOnce(*automationHost.app.get());
  expectOnce(*automationHost.sender.get());
  expectOnce(*automationHost.settings.get());
  ASSERT_EQ(automationHost.records.size(), 6U);  // a load and two saves each
  for (const auto& record : automationHost.records) expectOnce(*record.get());
}

TEST_F(OptionsObjectTest, ObjectsThatAnswerTheInterfaceIdAreTakenWithoutAskingForNames) {
  const auto database = ScriptedObject::make();
  database->offers = DIID_JetDatabase;
  EXPECT_EQ(object->putref_DBJetObject(database.get()), S_OK);
  EXPECT_TRUE(database->lookUps.empty());
}

TEST_F(OptionsObjectTest, WrongObjectsAreATypeMismatchAndTheOneBeforeStays) {
  giveHost();
  const auto stranger = ScriptedObject::make();
  for (const char16_t* property : kObjectProperties) {
    const Error error = failureOf([&] { client->putReference(property, stranger.get()); });
    EXPECT_EQ(error.number(), error::typeMismatch);
    EXPECT_EQ(error.source(), u"TilloraOptions.Options");
    EXPECT_EQ(error.description().rfind(Text(property) + u" must be a ", 0), 0U) << error.what();
  }
  EXPECT_EQ(stranger->references(), 1U);
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"Still here");
    desk.user().accessKey(u'o');
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(host.value(options::CompanyName), u"Still here");
}

TEST_F(OptionsObjectTest, OneMissingNameRefusesTheObjectAndIsNamed) {
  automationHost.database->remove(u"GradeTable");
  const Error error =
      failureOf([&] { client->putReference(u"DBJetObject", automationHost.database.get()); });
  EXPECT_EQ(error.number(), error::typeMismatch);
  EXPECT_EQ(error.description(),
            u"DBJetObject must be a JetDatabase; the object given has no member GradeTable.");
}

TEST_F(OptionsObjectTest, AnyAppObjectIsTaken) {
  const auto stranger = ScriptedObject::make();
  client->putReference(u"AppObject", stranger.get());
  EXPECT_TRUE(stranger->lookUps.empty());
  EXPECT_EQ(stranger->references(), 2U);
}

TEST_F(OptionsObjectTest, NothingReleasesTheObjectSetBefore) {
  giveHost();
  EXPECT_EQ(automationHost.database->references(), 2U);
  client->putReference(u"DBJetObject", nullptr);
  EXPECT_EQ(automationHost.database->references(), 1U);
}

TEST_F(OptionsObjectTest, ObjectsCanBeAssignedWithoutSet) {
  client->put(u"SettingsObject", static_cast<IDispatch*>(automationHost.settings.get()));
  EXPECT_EQ(automationHost.settings->references(), 2U);
}

TEST_F(OptionsObjectTest, ValuesThatAreNotObjectsAreRefused) {
  EXPECT_EQ(failureOf([&] { client->put(u"DBJetObject", std::int32_t{5}); }).number(),
            DISP_E_TYPEMISMATCH);
}

TEST_F(OptionsObjectTest, ReadingAWriteOnlyPropertyFails) {
  EXPECT_EQ(failureOf([&] { client->get(u"FirstUse"); }).number(), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(failureOf([&] { client->put(u"ChangedDataFile", true); }).number(),
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(OptionsObjectTest, ValuesAreConverted) {
  giveHost();
  client->put(u"SelectedTab", u"3");
  client->put(u"FirstUse", std::int32_t{0});
  client->put(u"LVFileExtension", u".mdb");
  int tab = 0;
  whileOpen([&](frmOptions& dialog) {
    tab = dialog.tabOptions.selected();
    EXPECT_EQ(dialog.LVFileExtension, u".mdb");
    desk.user().closeWindow(dialog);
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(tab, 3);
}

TEST_F(OptionsObjectTest, ATabBeyondTheLastIsAnError) {
  giveHost();
  client->put(u"SelectedTab", std::int16_t{99});
  EXPECT_EQ(failureOf([&] { client->call(u"ShowOptions"); }).number(), error::indexOutOfBounds);
  EXPECT_EQ(desk.unexpectedForms(), 0);
}

TEST_F(OptionsObjectTest, NoHostObjectsAtAllIsAnErrorThatNamesTheFirstOneNeeded) {
  const Error error = failureOf([&] { client->call(u"ShowOptions"); });
  EXPECT_EQ(error.number(), error::objectNotSet);
  EXPECT_EQ(error.source(), u"TilloraOptions.Options");
  EXPECT_NE(error.description().find(u"was not set."), Text::npos);
}

TEST_F(OptionsObjectTest, ASecondShowOptionsIsAnErrorAndLeavesTheOpenDialogAlone) {
  giveHost();
  bool stillOpen = false;
  whileOpen([&](frmOptions& dialog) {
    const Error error = failureOf([&] { client->call(u"ShowOptions"); });
    EXPECT_EQ(error.number(), error::alreadyShown);
    stillOpen = dialog.isShown();
    desk.user().closeWindow(dialog);
  });
  EXPECT_EQ(client->call(u"ShowOptions").get().boolVal, VARIANT_TRUE);
  EXPECT_TRUE(stillOpen);
}

TEST_F(OptionsObjectTest, SurvivesItsLastReferenceBeingReleasedWhileTheDialogIsOpen) {
  giveHost();
  // The test's own references go inside the dialog, as a host may do in its event.
  OptionsObject* const bare = object.get();
  whileOpen([&](frmOptions& dialog) {
    client.reset();
    object.reset();
    desk.user().closeWindow(dialog);
  });
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(bare->ShowOptions(&shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
  EXPECT_EQ(win32::ModuleLock::count(), locksBefore);
}

TEST_F(OptionsObjectTest, HoldsNoReferenceOfTheHostAfterwards) {
  giveHost();
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"Corner Shop");
    desk.user().accessKey(u'o');
  });
  client->call(u"ShowOptions");
  for (const auto& record : automationHost.records) EXPECT_EQ(record->references(), 1U);
  client.reset();
  object.reset();
  EXPECT_EQ(automationHost.database->references(), 1U);
  EXPECT_EQ(automationHost.app->references(), 1U);
  EXPECT_EQ(automationHost.sender->references(), 1U);
  EXPECT_EQ(automationHost.strings->references(), 1U);
  EXPECT_EQ(automationHost.settings->references(), 1U);
  EXPECT_EQ(win32::ModuleLock::count(), locksBefore);
}

TEST_F(OptionsObjectTest, AsItEndsItReleasesDatabaseAppAndSettingsBeforeTheOthers) {
  giveHost();
  std::vector<Text> order;
  const std::vector<std::pair<const ComPtr<ScriptedObject>*, Text>> objects = {
      {&automationHost.database, u"database"},
      {&automationHost.app, u"app"},
      {&automationHost.sender, u"sender"},
      {&automationHost.strings, u"strings"},
      {&automationHost.settings, u"settings"}};
  for (const auto& [held, name] : objects) {
    (*held)->released = [&order, name = name](ULONG left) {
      if (left == 1) order.push_back(name);
    };
  }
  client.reset();
  object.reset();
  for (const auto& [held, name] : objects) (*held)->released = nullptr;
  ASSERT_EQ(order.size(), 5U);
  std::ranges::sort(order.begin(), order.begin() + 3);
  std::ranges::sort(order.begin() + 3, order.end());
  EXPECT_EQ(order, (std::vector<Text>{u"app", u"database", u"settings", u"sender", u"strings"}));
}

TEST_F(OptionsObjectTest, EachDialogFollowsTheRegionalSettingsOfItsOwnTime) {
  giveHost();
  host.decimalSeparator.clear();
  host.store(options::DefaultCurrencyMargin, 2.5F);
  std::vector<Text> shown;
  for (const Text separator : {u".", u","}) {
    machine.numbers.decimalSeparator = separator;
    machine.numbers.thousandsSeparator = u" ";
    whileOpen([&](frmOptions& dialog) {
      shown.push_back(dialog.tabs().currencyConversion.txtCurrencyConversion[0].text());
    });
    client->call(u"ShowOptions");
  }
  EXPECT_EQ(shown, (std::vector<Text>{u"2.50%", u"2,50%"}));
}

TEST_F(OptionsObjectTest, AHostsFailureArrivesAsItWasRaised) {
  giveHost();
  host.failingCall = "OptionsRecord";
  const Error raised = testing::FakeHost::failure();
  const Error error = failureOf([&] { client->call(u"ShowOptions"); });
  EXPECT_EQ(error.number(), raised.number());
  EXPECT_EQ(error.source(), raised.source());
  EXPECT_EQ(error.description(), raised.description());
  EXPECT_EQ(error.helpFile(), raised.helpFile());
  EXPECT_EQ(error.helpContext(), raised.helpContext());
}

TEST_F(OptionsObjectTest, AFailureInASaveEndsTheDialogAndArrives) {
  giveHost();
  host.failingCall = "commit";
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"Lost");
    desk.user().accessKey(u'a');
  });
  EXPECT_EQ(failureOf([&] { client->call(u"ShowOptions"); }).number(),
            testing::FakeHost::failure().number());
  EXPECT_EQ(host.stored.count(OptionId::CompanyName), 0U);
  EXPECT_EQ(desk.screen().pointer(), ui::Pointer::standard);
}

TEST_F(OptionsObjectTest, EarlyBoundCallersGetTheErrorObject) {
  VARIANT_BOOL shown = VARIANT_TRUE;
  const HRESULT result = object->ShowOptions(&shown);
  EXPECT_EQ(result, error::objectNotSet);
  EXPECT_EQ(shown, VARIANT_FALSE);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
  GUID from{};
  info->GetGUID(&from);
  EXPECT_EQ(from, IID__Options);
}

TEST_F(OptionsObjectTest, NullPointersAreRefused) {
  EXPECT_EQ(object->ShowOptions(nullptr), E_POINTER);
  EXPECT_EQ(object->get_ChangedDataFile(nullptr), E_POINTER);
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(object->FindConnectionPoint(DIID___Options, nullptr), E_POINTER);
}

TEST_F(OptionsObjectTest, MissingStoredValuesAreNoneEitherWay) {
  giveHost();
  for (const bool asEmpty : {false, true}) {
    automationHost.missingIsEmpty = asEmpty;
    whileOpen([&](frmOptions& dialog) { desk.user().closeWindow(dialog); });
    client->call(u"ShowOptions");
    EXPECT_TRUE(host.stored.empty());
  }
}

}  // namespace
}  // namespace tillora::automation
