#include <gtest/gtest.h>

#include "identity/ledvane_link.h"
#include "sales/currency_conversion.h"
#include "sales/rounding.h"
#include "tests/component/automation/options_fixture.h"

namespace tillora::automation {
namespace {

using testing::connectionPoint;
using testing::EventListener;
using win32::ComPtr;

class EventsTest : public OptionsObjectTest {
 protected:
  EventsTest() { giveHost(); }

  DWORD advise(const ComPtr<EventListener>& listener) {
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(listener.get(), &cookie), S_OK);
    return cookie;
  }
  /// One ShowOptions with this many applies.
  void apply(int times) {
    whileOpen([this, times](frmOptions& dialog) {
      for (int time = 0; time < times; ++time) {
        rename(dialog, time % 2 == 0 ? u"One" : u"Other");
        desk.user().accessKey(u'a');
      }
      desk.user().closeWindow(dialog);
    });
    client->call(u"ShowOptions");
  }

  ComPtr<IConnectionPoint> point = connectionPoint(*object.get());
};

HRESULT ignore(LONG&) { return S_OK; }

TEST_F(EventsTest, OneEventPerApply) {
  const auto listener = EventListener::make(ignore);
  advise(listener);
  apply(2);
  EXPECT_EQ(listener->heard, 2);
}

TEST_F(EventsTest, EachApplyRaisesItsOwnChangesOnly) {
  client->put(u"FirstUse", true);
  whileOpen([](frmOptions&) {});
  client->call(u"ShowOptions");
  client->put(u"FirstUse", false);

  std::vector<LONG> heard;
  advise(EventListener::make([&](LONG& changes) {
    heard.push_back(changes);
    return S_OK;
  }));
  whileOpen([&](frmOptions& dialog) {
    desk.user().clickTab(dialog.tabOptions, static_cast<int>(TabPage::rounding));
    desk.user().click(dialog.tabs().rounding.chkRounding[0]);
    desk.user().accessKey(u'a');
    desk.user().clickTab(dialog.tabOptions, static_cast<int>(TabPage::currency));
    desk.user().click(dialog.tabs().currencyConversion.txtCurrencyConversion[0]);
    desk.user().type(u"5");
    desk.user().accessKey(u'a');
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(heard, (std::vector<LONG>{512, 2048}));
}

TEST_F(EventsTest, EveryListenerHearsInTheOrderAdvisedAndGetsWhatTheOneBeforeLeft) {
  std::vector<LONG> heard;
  const auto first = EventListener::make([&](LONG& changes) {
    heard.push_back(changes);
    changes = 64;
    return S_OK;
  });
  const auto second = EventListener::make([&](LONG& changes) {
    heard.push_back(changes);
    return S_OK;
  });
  advise(first);
  advise(second);
  apply(1);
  ASSERT_EQ(heard.size(), 2U);
  EXPECT_NE(heard[0], 64);
  EXPECT_EQ(heard[1], 64);
}

TEST_F(EventsTest, AFailingListenerDoesNotAffectTheOthers) {
  const auto failing = EventListener::make([](LONG&) { return E_FAIL; });
  const auto other = EventListener::make(ignore);
  advise(failing);
  advise(other);
  apply(1);
  EXPECT_EQ(failing->heard, 1);
  EXPECT_EQ(other->heard, 1);
}

TEST_F(EventsTest, AListenerMayUnadviseItselfAndOthersInsideTheEvent) {
  DWORD firstCookie = 0;
  DWORD secondCookie = 0;
  const auto first = EventListener::make([&](LONG&) {
    EXPECT_EQ(point->Unadvise(firstCookie), S_OK);
    EXPECT_EQ(point->Unadvise(secondCookie), S_OK);
    return S_OK;
  });
  const auto second = EventListener::make(ignore);
  const auto third = EventListener::make(ignore);
  firstCookie = advise(first);
  secondCookie = advise(second);
  advise(third);
  apply(2);
  EXPECT_EQ(first->heard, 1);
  EXPECT_EQ(second->heard, 0);
  EXPECT_EQ(third->heard, 2);
  EXPECT_EQ(first->references(), 1U);
}

TEST_F(EventsTest, AListenerAddedInsideAnEventHearsTheNextOne) {
  const auto late = EventListener::make(ignore);
  bool added = false;
  const auto early = EventListener::make([&](LONG&) {
    if (!added) advise(late);
    added = true;
    return S_OK;
  });
  advise(early);
  apply(2);
  EXPECT_EQ(early->heard, 2);
  EXPECT_EQ(late->heard, 1);
}

TEST_F(EventsTest, TheHostMayReleaseTheComponentInsideTheEvent) {
  OptionsObject* const bare = object.get();
  const auto listener = EventListener::make([&](LONG&) {
    point.reset();
    client.reset();
    object.reset();
    return S_OK;
  });
  advise(listener);
  whileOpen([&](frmOptions& dialog) {
    rename(dialog, u"One");
    desk.user().accessKey(u'o');
  });
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(bare->ShowOptions(&shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
  EXPECT_EQ(listener->heard, 1);
  EXPECT_EQ(listener->references(), 1U);
  EXPECT_EQ(win32::ModuleLock::count(), locksBefore);
}

TEST_F(EventsTest, AListenerThatRaisesDoesNotAffectTheOthers) {
  const auto raising = EventListener::make([](LONG& changes) {
    changes = 64;
    return E_FAIL;
  });
  raising->raises = Error(basicError(1001), u"Host.Listener", u"The list cannot be refreshed.");
  const auto other = EventListener::make(ignore);
  advise(raising);
  advise(other);
  apply(2);  // ShowOptions raises nothing
  EXPECT_EQ(raising->heard, 2);
  EXPECT_EQ(other->heard, 2);
  EXPECT_EQ(host.value(options::CompanyName), u"Other");
  EXPECT_EQ(host.sent.size(), 2U);
}

TEST_F(EventsTest, AnAlteredMaskIsForgottenByTheNextApply) {
  std::vector<LONG> heard;
  const auto listener = EventListener::make([&](LONG& changes) {
    heard.push_back(changes);
    changes = -1;
    return S_OK;
  });
  advise(listener);
  apply(1);
  apply(2);
  ASSERT_EQ(heard.size(), 3U);
  EXPECT_NE(heard[0], 0) << "the first save of a shop stores the defaults";
  EXPECT_EQ(heard[1], 0);
  EXPECT_EQ(heard[2], 0);
}

TEST_F(EventsTest, ShowOptionsInsideTheEventIsAnErrorOfEveryOptionsObject) {
  const auto another = win32::ComPtr<OptionsObject>::adopt(new OptionsObject(makeServices()));
  DispatchObject other(win32::ComPtr<IDispatch>(another.get()), u"Options");
  const auto listener = EventListener::make([&](LONG&) {
    for (DispatchObject* const again : {&*client, &other}) {
      const Error error = failureOf([&] { again->call(u"ShowOptions"); });
      EXPECT_EQ(error.number(), error::alreadyShown);
      EXPECT_EQ(error.source(), u"TilloraOptions.Options");
      EXPECT_EQ(error.description(), u"An options dialog is already open.");
    }
    return S_OK;
  });
  advise(listener);
  apply(2);
  EXPECT_EQ(listener->heard, 2);
  EXPECT_EQ(host.value(options::CompanyName), u"Other");
  apply(1);
  EXPECT_EQ(listener->heard, 3) << "once it has closed the dialog can be shown again";
}

TEST_F(EventsTest, InsideTheEventTheDataFilesChangeIsThatOfTheShowOptionsBefore) {
  host.dataFile = u"C:\\Books\\books.lvd";
  machine.files.matches[u"C:\\Books\\LVPst*.pos"] = 0;
  client->put(u"LVFileExtension", u"lvd");
  std::vector<bool> read;
  const auto listener = EventListener::make([&](LONG&) {
    read.push_back(client->getBoolean(u"ChangedDataFile"));
    return S_OK;
  });
  advise(listener);
  whileOpen([&](frmOptions& dialog) {
    machine.fileDialogs.answers.emplace_back(u"C:\\Books\\other.lvd");
    desk.user().click(dialog.tabs().ledvaneLink.cmdLedvane);
    desk.user().accessKey(u'a');
    desk.user().closeWindow(dialog);
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(host.dataFile, u"C:\\Books\\other.lvd");
  EXPECT_TRUE(client->getBoolean(u"ChangedDataFile"));
  apply(1);
  EXPECT_EQ(read, (std::vector<bool>{false, true}));
  EXPECT_FALSE(client->getBoolean(u"ChangedDataFile"));
}

TEST_F(EventsTest, ObjectsAndValuesSetInsideTheEventAreForTheNextShowOptions) {
  testing::FakeHost otherShop;
  testing::AutomationHost other{otherShop};
  const auto listener = EventListener::make([&](LONG&) {
    client->putReference(u"DBJetObject", other.database.get());
    client->put(u"SelectedTab", std::int16_t{3});
    return S_OK;
  });
  const DWORD cookie = advise(listener);
  apply(2);
  EXPECT_EQ(host.value(options::CompanyName), u"Other");
  EXPECT_TRUE(otherShop.stored.empty());
  EXPECT_EQ(point->Unadvise(cookie), S_OK);

  int tab = 0;
  whileOpen([&](frmOptions& dialog) {
    tab = dialog.tabOptions.selected();
    desk.user().closeWindow(dialog);
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(tab, 3);
  EXPECT_FALSE(otherShop.calls.empty());
  client->putReference(u"DBJetObject", nullptr);  // before the shop goes
}

TEST_F(EventsTest, TheDialogMayBeClosedInsideTheEvent) {
  // As if the host let messages pass and the user pressed the close box meanwhile.
  frmOptions* open = nullptr;
  const auto listener = EventListener::make([&](LONG&) {
    desk.user().closeWindow(*open);
    return S_OK;
  });
  advise(listener);
  whileOpen([&](frmOptions& dialog) {
    open = &dialog;
    rename(dialog, u"One");
    desk.user().accessKey(u'a');
  });
  EXPECT_EQ(client->call(u"ShowOptions").get().boolVal, VARIANT_TRUE);
  EXPECT_EQ(listener->heard, 1);
  EXPECT_EQ(host.value(options::CompanyName), u"One");
}

TEST_F(EventsTest, NothingIsEditedOrSavedInsideTheEventOfASave) {
  frmOptions* open = nullptr;
  std::vector<Text> names;
  const auto listener = EventListener::make([&](LONG&) {
    names.push_back(host.value(options::CompanyName));
    if (names.size() == 1) {
      rename(*open, u"Two");
      desk.user().accessKey(u'a');
    }
    return S_OK;
  });
  advise(listener);
  whileOpen([&](frmOptions& dialog) {
    open = &dialog;
    rename(dialog, u"One");
    desk.user().accessKey(u'a');
    desk.user().closeWindow(dialog);
  });
  client->call(u"ShowOptions");
  EXPECT_EQ(names, std::vector<Text>{u"One"});
  EXPECT_EQ(host.sent.size(), 1U);
  EXPECT_EQ(host.value(options::CompanyName), u"One");
}

TEST_F(EventsTest, AListenerMayBeAdvisedTwiceAndHearsTwice) {
  const auto listener = EventListener::make(ignore);
  const DWORD first = advise(listener);
  const DWORD second = advise(listener);
  EXPECT_NE(first, second);
  apply(1);
  EXPECT_EQ(listener->heard, 2);
  EXPECT_EQ(point->Unadvise(first), S_OK);
  apply(1);
  EXPECT_EQ(listener->heard, 3);
}

TEST_F(EventsTest, ListenersAreReleasedWithTheObject) {
  const auto listener = EventListener::make(ignore);
  advise(listener);
  EXPECT_EQ(listener->references(), 2U);
  point.reset();
  client.reset();
  object.reset();
  EXPECT_EQ(listener->references(), 1U);
  EXPECT_EQ(win32::ModuleLock::count(), locksBefore);
}

TEST_F(EventsTest, ConnectionsAreCountedAndEnumerated) {
  const auto listener = EventListener::make(ignore);
  const DWORD cookie = advise(listener);
  EXPECT_EQ(listener->references(), 2U);

  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
  CONNECTDATA data[2] = {};
  ULONG fetched = 0;
  EXPECT_EQ(connections->Next(2, data, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1U);
  EXPECT_EQ(data[0].dwCookie, cookie);
  EXPECT_EQ(data[0].pUnk, static_cast<IUnknown*>(listener.get()));
  data[0].pUnk->Release();
  EXPECT_EQ(connections->Skip(1), S_FALSE);
  EXPECT_EQ(connections->Reset(), S_OK);
  ComPtr<IEnumConnections> copy;
  EXPECT_EQ(connections->Clone(copy.out()), S_OK);
  EXPECT_EQ(copy->Skip(1), S_OK);
  connections.reset();
  copy.reset();

  EXPECT_EQ(point->Unadvise(cookie), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(listener->references(), 1U);
}

TEST_F(EventsTest, TheOnlyConnectionPointIsThatOfTheEvents) {
  const auto container = ComPtr<_Options>(object.get()).query<IConnectionPointContainer>();
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.out()), S_OK);
  ComPtr<IConnectionPoint> found;
  EXPECT_EQ(points->Next(1, found.out(), nullptr), S_OK);
  IID events{};
  EXPECT_EQ(found->GetConnectionInterface(&events), S_OK);
  EXPECT_EQ(events, DIID___Options);
  ComPtr<IConnectionPointContainer> owner;
  EXPECT_EQ(found->GetConnectionPointContainer(owner.out()), S_OK);
  EXPECT_EQ(owner.get(), container.get());
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.out()), CONNECT_E_NOCONNECTION);
}

TEST_F(EventsTest, AnythingButAListenerIsRefused) {
  DWORD cookie = 5;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  const auto unknown = point.query<IUnknown>();
  EXPECT_EQ(point->Advise(unknown.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0U);
}

}  // namespace
}  // namespace tillora::automation
