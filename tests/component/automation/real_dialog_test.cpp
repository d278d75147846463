#include <gtest/gtest.h>

#include <windows.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>

#include <vector>

#include "base/numbers.h"
#include "component/automation/dispatch_object.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/event_listener.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/win32/dialog_person.h"
#include "tests/testing/win32/holdings.h"
#include "tests/testing/win32/key_strokes.h"
#include "tests/testing/win32/thread_of_window.h"

// The library as a host has it: loaded, its dialog in real windows, a person in front of it.
namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::AutomationHost;
using testing::connectionPoint;
using testing::DialogPerson;
using testing::EventListener;
using testing::FakeHost;
using testing::Holdings;
using testing::ServerLibrary;
using testing::windowsOfThread;
using win32::ComPtr;

/// The library's objects for a host, and a person who closes the dialog.
void openOnce(_Options& options, AutomationHost& host) {
  options.putref_DBJetObject(host.database.get());
  options.putref_AppObject(host.app.get());
  options.putref_MsgSndObject(host.sender.get());
  options.putref_ResourceObject(host.strings.get());
  options.putref_SettingsObject(host.settings.get());
  DialogPerson person([](HWND) {});
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(options.ShowOptions(&shown), S_OK);
  EXPECT_EQ(person.finish(), 1);
}

TEST(UnloadTest, ComUnloadsTheLibraryAfterUseAndLoadsItAgain) {
  const Apartment apartment;
  FakeHost host;
  AutomationHost automationHost{host};
  for (int round = 0; round < 3; ++round) {
    {
      ComPtr<_Options> options;
      ASSERT_EQ(CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                                 options.outVoid()),
                S_OK);
      openOnce(*options.get(), automationHost);
      EXPECT_NE(GetModuleHandleW(L"TilloraOptions.dll"), nullptr);
    }
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"TilloraOptions.dll"), nullptr) << "round " << round;
  }
}

BOOL CALLBACK countLongLists(HWND window, LPARAM found) {
  const auto rows = SendMessageW(window, LVM_GETITEMCOUNT, 0, 0);
  if (rows == 1000) ++*reinterpret_cast<int*>(found);
  return TRUE;
}

/// Shows every tab, one after the other; `paint`: painted whole, which takes twice the time.
void walkThroughTabs(HWND dialog, bool paint) {
  const HWND strip = FindWindowExW(dialog, nullptr, WC_TABCONTROLW, nullptr);
  const auto tabs = static_cast<WPARAM>(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0));
  EXPECT_EQ(tabs, 12U);
  // What a click does; keys would have to wait for the focus, 200 times.
  for (WPARAM tab = 0; tab < tabs; ++tab) {
    SendMessageW(strip, TCM_SETCURFOCUS, tab, 0);
    if (paint)
      RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  EXPECT_EQ(SendMessageW(strip, TCM_GETCURSEL, 0, 0), 11);
  int lists = 0;
  EnumChildWindows(dialog, &countLongLists, reinterpret_cast<LPARAM>(&lists));
  EXPECT_EQ(lists, 1) << "the list of web sites was not made";
}

class RealDialogTest : public ::testing::Test {
 protected:
  RealDialogTest()
      : owner(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400,
                              200, nullptr, nullptr, nullptr, nullptr)) {
    SetForegroundWindow(owner);
  }
  ~RealDialogTest() override { DestroyWindow(owner); }

  ComPtr<_Options> create() {
    auto options = server.create();
    options->putref_DBJetObject(automationHost.database.get());
    options->putref_AppObject(automationHost.app.get());
    options->putref_MsgSndObject(automationHost.sender.get());
    options->putref_ResourceObject(automationHost.strings.get());
    options->putref_SettingsObject(automationHost.settings.get());
    return options;
  }
  static HRESULT show(_Options& options) {
    VARIANT_BOOL shown = VARIANT_FALSE;
    const HRESULT result = options.ShowOptions(&shown);
    EXPECT_EQ(shown, SUCCEEDED(result) ? VARIANT_TRUE : VARIANT_FALSE);
    return result;
  }

  /// Listens to the events of an object during its lifetime.
  class Listening {
   public:
    Listening(_Options& options, EventListener& listener) : point_(connectionPoint(options)) {
      EXPECT_EQ(point_->Advise(&listener, &cookie_), S_OK);
    }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { point_->Unadvise(cookie_); }

   private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
  };

  Apartment apartment;
  HWND owner;
  ServerLibrary server;
  FakeHost host;
  AutomationHost automationHost{host};
};

TEST_F(RealDialogTest, TwoAppliesRaiseTwoEventsAndStore) {
  auto options = create();
  const auto listener = EventListener::make([](LONG&) { return S_OK; });
  const Listening listening(*options.get(), *listener.get());
  DialogPerson person([](HWND) {
    for (const wchar_t* name : {L"First Shop", L"Second Shop"}) {
      DialogPerson::press('M', true);
      DialogPerson::retype(name);
      DialogPerson::press('A', true);
    }
  });
  EXPECT_EQ(show(*options.get()), S_OK);
  EXPECT_EQ(person.finish(), 1);
  EXPECT_EQ(listener->heard, 2);
  EXPECT_EQ(host.value(options::CompanyName), u"Second Shop");
  EXPECT_EQ(host.sent.size(), 2U);
}

TEST_F(RealDialogTest, TheHostMayCallBackAndLetMessagesPassInsideTheEvent) {
  auto options = create();
  HWND dialog = nullptr;
  VARIANT_BOOL changed = VARIANT_TRUE;
  std::vector<HRESULT> again;
  const auto listener = EventListener::make([&](LONG&) {
    VARIANT_BOOL shown = VARIANT_TRUE;
    again.push_back(options->ShowOptions(&shown));
    EXPECT_EQ(shown, VARIANT_FALSE);
    EXPECT_EQ(options->get_ChangedDataFile(&changed), S_OK);
    // A host that shows something itself, while the user closes the dialog.
    PostMessageW(dialog, WM_CLOSE, 0, 0);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    return S_OK;
  });
  const Listening listening(*options.get(), *listener.get());
  DialogPerson person([&](HWND shown) {
    dialog = shown;
    DialogPerson::retype(L"Corner Shop");
    DialogPerson::press('A', true);
  });
  EXPECT_EQ(show(*options.get()), S_OK);
  EXPECT_EQ(person.finish(), 1);
  EXPECT_EQ(again, std::vector<HRESULT>{error::alreadyShown});
  EXPECT_EQ(changed, VARIANT_FALSE);
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  EXPECT_FALSE(IsWindow(dialog));
  EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(RealDialogTest, ADialogClosedByOkIsOffTheScreenBeforeTheHostsObjectsAreReleased) {
  auto options = create();
  HWND dialog = nullptr;
  std::vector<bool> visibleAtRelease;
  // The host releases its references inside the event: from then on only the dialog holds its
  // objects.
  const auto listener = EventListener::make([&](LONG&) {
    automationHost.app->released = [&](ULONG left) {
      if (left == 1) visibleAtRelease.push_back(IsWindowVisible(dialog) != FALSE);
    };
    options->putref_AppObject(nullptr);
    EXPECT_TRUE(visibleAtRelease.empty());
    EXPECT_TRUE(IsWindowVisible(dialog));
    return S_OK;
  });
  const Listening listening(*options.get(), *listener.get());
  DialogPerson person([&](HWND shown) {
    dialog = shown;
    DialogPerson::retype(L"Corner Shop");
    DialogPerson::press('O', true);
  });
  EXPECT_EQ(show(*options.get()), S_OK);
  EXPECT_EQ(person.finish(), 1);
  automationHost.app->released = nullptr;
  EXPECT_EQ(visibleAtRelease, std::vector<bool>{false});
  EXPECT_EQ(GetActiveWindow(), owner);
}

TEST_F(RealDialogTest, TheHostsWindowIsDisabledMeanwhileAndThenInFrontAgain) {
  auto options = create();
  bool enabledMeanwhile = true;
  HWND dialogOwner = nullptr;
  DialogPerson person([&](HWND dialog) {
    enabledMeanwhile = IsWindowEnabled(owner) != FALSE;
    dialogOwner = GetWindow(dialog, GW_OWNER);
  });
  EXPECT_EQ(show(*options.get()), S_OK);
  EXPECT_EQ(person.finish(), 1);
  EXPECT_FALSE(enabledMeanwhile);
  EXPECT_EQ(dialogOwner, owner);
  EXPECT_TRUE(IsWindowEnabled(owner));
  EXPECT_EQ(GetActiveWindow(), owner);
}

TEST_F(RealDialogTest, AHostsFailureInASaveLeavesNoWindowAndArrives) {
  const auto before = windowsOfThread();
  auto options = create();
  host.failingCall = "commit";
  DialogPerson person([](HWND) {
    DialogPerson::type(L"x");
    DialogPerson::press('A', true);
  });
  EXPECT_EQ(show(*options.get()), FakeHost::failure().number());
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
  win32::Bstr description;
  info->GetDescription(description.out());
  EXPECT_EQ(description.text(), FakeHost::failure().description());
  EXPECT_EQ(person.finish(), 1);
  EXPECT_TRUE(IsWindowEnabled(owner));
  options.reset();
  EXPECT_EQ(windowsOfThread(), before);
  EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(RealDialogTest, AFailureWhileLoadingShowsNoWindow) {
  auto options = create();
  host.failingCall = "OptionsRecord";
  const auto before = windowsOfThread();
  EXPECT_EQ(show(*options.get()), FakeHost::failure().number());
  EXPECT_EQ(windowsOfThread(), before);
  EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(RealDialogTest, ATabBeyondTheLastIsAnErrorWithoutAWindow) {
  auto options = create();
  options->put_SelectedTab(99);
  EXPECT_EQ(show(*options.get()), error::indexOutOfBounds);
  EXPECT_EQ(host.sent.size(), 0U);
  options->put_SelectedTab(-1);
  DialogPerson person([](HWND) {});
  EXPECT_EQ(show(*options.get()), S_OK);
  EXPECT_EQ(person.finish(), 1);
}

TEST_F(RealDialogTest, ManyFullDialogsLeaveNothingBehind) {
  constexpr int rounds = 40;
  constexpr int kPainted = 4;  // one in this many dialogs
  host.dispensingAvailable = true;
  for (int i = 0; i < 1000; ++i) {
    const Text number = decimalText(i);
    host.webSites.push_back({{u"Description", u"Site " + number},
                             {u"URL", u"http://site/" + number},
                             {u"Inactive", i % 2 == 0}});
  }
  const auto walk = [](HWND dialog, bool paint) {
    EXPECT_TRUE(testing::runOnThreadOf(dialog, [&] { walkThroughTabs(dialog, paint); }, 60000));
  };
  const auto once = [this] {
    auto options = create();
    show(*options.get());
  };
  // What the platform keeps for the process after its first dialog is not counted.
  {
    DialogPerson person([&](HWND dialog) { walk(dialog, true); });
    once();
  }
  const Holdings before;
  EXPECT_GT(before.gdi, 0U);

  int shown = 0;
  DialogPerson person([&](HWND dialog) { walk(dialog, shown++ % kPainted == 0); }, rounds);
  for (int round = 0; round < rounds; ++round) {
    once();
    ASSERT_EQ(server.canUnloadNow(), S_OK) << "after round " << round;
    for (const auto& record : automationHost.records) ASSERT_EQ(record->references(), 1U);
    automationHost.records.clear();
    automationHost.database->calls.clear();
    host.calls.clear();
  }
  EXPECT_EQ(person.finish(), rounds);

  EXPECT_EQ(server.canUnloadNow(), S_OK);
  EXPECT_EQ(automationHost.database->references(), 1U);
  EXPECT_EQ(automationHost.app->references(), 1U);
  EXPECT_EQ(automationHost.sender->references(), 1U);
  EXPECT_EQ(automationHost.strings->references(), 1U);
  EXPECT_EQ(automationHost.settings->references(), 1U);
  const Holdings after;
  EXPECT_FALSE(before.leaked(after, static_cast<DWORD>(rounds / kPainted)))
      << before << ", then " << after;
  EXPECT_EQ(host.live, 5) << "only what the test itself holds";
}

TEST_F(RealDialogTest, ALeakOfOneObjectOfADialogWouldBeSeen) {
  const Holdings before;
  EXPECT_FALSE(before.leaked(Holdings(), 10));
  {
    const auto leaked = server.create();
    EXPECT_EQ(server.canUnloadNow(), S_FALSE);
  }
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  EXPECT_TRUE(before.leaked(Holdings(), 10));
  DestroyWindow(window);
  EXPECT_FALSE(before.leaked(Holdings(), 10));
  // One for each of the ten painted dialogs of forty.
  std::vector<HGDIOBJ> brushes;
  for (int i = 0; i < 10; ++i) brushes.push_back(CreateSolidBrush(static_cast<COLORREF>(i)));
  EXPECT_TRUE(before.leaked(Holdings(), 10));
  for (const HGDIOBJ brush : brushes) DeleteObject(brush);
  EXPECT_FALSE(before.leaked(Holdings(), 10));
  if (before.handles == 0) return;  // a platform that does not count them
  std::vector<HANDLE> events;
  for (int i = 0; i < 10; ++i) events.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  EXPECT_TRUE(before.leaked(Holdings(), 10));
  for (const HANDLE event : events) CloseHandle(event);
}

}  // namespace
}  // namespace tillora::automation
