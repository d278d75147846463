#include <gtest/gtest.h>

#include "component/option_changes.h"
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

TEST_F(EventsTest, AFailingListenerConcernsNobodyElse) {
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

TEST_F(EventsTest, AListenerThatComesInsideAnEventHearsTheNextOne) {
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
  EXPECT_EQ(ModuleLock::count(), locksBefore);
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

TEST_F(EventsTest, WhatIsNoListenerIsRefused) {
  DWORD cookie = 5;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  const auto unknown = point.query<IUnknown>();
  EXPECT_EQ(point->Advise(unknown.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0U);
}

}  // namespace
}  // namespace tillora::automation
