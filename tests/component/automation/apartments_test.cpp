#include <gtest/gtest.h>

#include <future>
#include <optional>

#include "component/automation/dispatch_object.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/event_listener.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/dialog_person.h"

// The component belongs to a single-threaded apartment; hosts of other threads reach it through the
// system, which needs the registered type library.
namespace tillora::automation {
namespace {

using testing::AutomationHost;
using testing::connectionPoint;
using testing::DialogPerson;
using testing::EventListener;
using testing::FakeHost;
using testing::ServerLibrary;
using win32::ComPtr;

/// Runs something in a thread of its own that belongs to the multi-threaded apartment.
void inMultiThreadedApartment(const testing::FunctionRef<void()>& body) {
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    body();
    CoUninitialize();
  }).join();
}

/// A thread with an apartment of its own and a message loop, like the main thread of a program with
/// windows.
class WindowThread {
 public:
  WindowThread() {
    std::promise<DWORD> started;
    thread_ = std::thread([&started] { loop(started); });
    id_ = started.get_future().get();
  }
  ~WindowThread() {
    PostThreadMessageW(id_, kEnd, 0, 0);
    thread_.join();
  }
  WindowThread(const WindowThread&) = delete;
  WindowThread& operator=(const WindowThread&) = delete;

  DWORD id() const { return id_; }
  /// Runs something there, from the loop, and waits for it.
  void run(std::function<void()> body) {
    std::packaged_task<void()> task(std::move(body));
    PostThreadMessageW(id_, kRun, 0, reinterpret_cast<LPARAM>(&task));
    task.get_future().get();
  }

 private:
  static constexpr UINT kRun = WM_APP + 1;
  static constexpr UINT kEnd = WM_APP + 2;

  static void loop(std::promise<DWORD>& started) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the queue
    started.set_value(GetCurrentThreadId());
    // It survives a WM_QUIT, which may have ended a dialog that would not close.
    for (;;) {
      if (GetMessageW(&message, nullptr, 0, 0) <= 0) continue;
      if (message.hwnd == nullptr && message.message == kEnd) break;
      if (message.hwnd == nullptr && message.message == kRun) {
        (*reinterpret_cast<std::packaged_task<void()>*>(message.lParam))();
      } else {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
    }
    CoUninitialize();
  }

  std::thread thread_;
  DWORD id_ = 0;
};

class ApartmentsTest : public ::testing::Test {
 protected:
  /// An object of another thread's apartment, created from here through the class factory there.
  /// The system does the same for a host in the multi-threaded apartment
  /// (tests/clients/apartments.cpp), but Wine keeps a reference to the factory then, and the
  /// tests that count objects would see it.
  ComPtr<_Options> createIn(WindowThread& owner) {
    IStream* passed = nullptr;
    owner.run([&] {
      EXPECT_EQ(
          CoMarshalInterThreadInterfaceInStream(IID_IClassFactory, server.factory().get(), &passed),
          S_OK);
    });
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(CoGetInterfaceAndReleaseStream(passed, IID_IClassFactory, factory.outVoid()), S_OK);
    ComPtr<_Options> options;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__Options, options.outVoid()), S_OK);
    return options;
  }
  static void give(_Options& options, AutomationHost& objects) {
    EXPECT_EQ(options.putref_DBJetObject(objects.database.get()), S_OK);
    EXPECT_EQ(options.putref_AppObject(objects.app.get()), S_OK);
    EXPECT_EQ(options.putref_MsgSndObject(objects.sender.get()), S_OK);
    EXPECT_EQ(options.putref_ResourceObject(objects.strings.get()), S_OK);
    EXPECT_EQ(options.putref_SettingsObject(objects.settings.get()), S_OK);
  }
  static void show(_Options& options) {
    VARIANT_BOOL shown = VARIANT_FALSE;
    EXPECT_EQ(options.ShowOptions(&shown), S_OK);
    EXPECT_EQ(shown, VARIANT_TRUE);
  }
  static void renameAndApply() {
    DialogPerson::retype(L"Corner Shop");
    DialogPerson::press('A', true);
  }
  static void expectReleased(const AutomationHost& objects) {
    EXPECT_EQ(objects.database->references(), 1U);
    EXPECT_EQ(objects.app->references(), 1U);
    EXPECT_EQ(objects.sender->references(), 1U);
    EXPECT_EQ(objects.strings->references(), 1U);
    EXPECT_EQ(objects.settings->references(), 1U);
    for (const auto& record : objects.records) EXPECT_EQ(record->references(), 1U);
  }

  ServerLibrary server;
  FakeHost host;
};

TEST_F(ApartmentsTest, CallsFromTheMultiThreadedApartmentRunInTheObjectsApartment) {
  WindowThread owner;
  inMultiThreadedApartment([&] {
    AutomationHost objects(host);
    LONG heard = -1;
    const auto listener = EventListener::make([&](LONG& changes) {
      heard = changes;
      changes = 64;
      return S_OK;
    });
    DWORD dialogThread = 0;
    {
      const auto options = createIn(owner);
      ASSERT_TRUE(options);
      give(*options.get(), objects);
      DWORD cookie = 0;
      const auto point = connectionPoint(*options.get());
      ASSERT_EQ(point->Advise(listener.get(), &cookie), S_OK);
      DialogPerson person(
          [&](HWND dialog) {
            dialogThread = GetWindowThreadProcessId(dialog, nullptr);
            renameAndApply();
          },
          1, owner.id());
      show(*options.get());
      EXPECT_EQ(person.finish(), 1);
      EXPECT_EQ(server.canUnloadNow(), S_FALSE);
      EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
    EXPECT_EQ(dialogThread, owner.id());
    EXPECT_EQ(listener->heard, 1);
    EXPECT_GT(heard, 0);
    EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
    EXPECT_EQ(host.sent.size(), 1U);
    EXPECT_EQ(server.canUnloadNow(), S_OK);
    EXPECT_EQ(listener->references(), 1U);
    expectReleased(objects);
  });
}

TEST_F(ApartmentsTest, AHostsFailureKeepsItsNumberAcrossApartments) {
  WindowThread owner;
  inMultiThreadedApartment([&] {
    AutomationHost objects(host);
    host.failingCall = "OptionsRecord";
    const auto options = createIn(owner);
    ASSERT_TRUE(options);
    give(*options.get(), objects);
    VARIANT_BOOL shown = VARIANT_TRUE;
    EXPECT_EQ(options->ShowOptions(&shown), FakeHost::failure().number());

    // By name, the whole error arrives.
    DispatchObject named(ComPtr<IDispatch>(options.get()), u"Options");
    try {
      named.call(u"ShowOptions");
      ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), FakeHost::failure().number());
      EXPECT_EQ(error.source(), FakeHost::failure().source());
      EXPECT_EQ(error.description(), FakeHost::failure().description());
    }
  });
}

TEST_F(ApartmentsTest, AnotherThreadMayShowTheDialogOfAThreadWithAMessageLoop) {
  std::optional<AutomationHost> objects;
  ComPtr<_Options> options;
  IStream* passed = nullptr;
  WindowThread owner;
  owner.run([&] {
    objects.emplace(host);
    options = server.create();
    give(*options.get(), *objects);
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID__Options, options.get(), &passed), S_OK);
  });
  DWORD dialogThread = 0;
  inMultiThreadedApartment([&] {
    ComPtr<_Options> proxy;
    ASSERT_EQ(CoGetInterfaceAndReleaseStream(passed, IID__Options, proxy.outVoid()), S_OK);
    EXPECT_NE(proxy.get(), options.get());
    DialogPerson person(
        [&](HWND dialog) {
          dialogThread = GetWindowThreadProcessId(dialog, nullptr);
          renameAndApply();
        },
        1, owner.id());
    show(*proxy.get());
    EXPECT_EQ(person.finish(), 1);
    VARIANT_BOOL changed = VARIANT_TRUE;
    EXPECT_EQ(proxy->get_ChangedDataFile(&changed), S_OK);
    EXPECT_EQ(changed, VARIANT_FALSE);
  });
  EXPECT_EQ(dialogThread, owner.id());
  EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  owner.run([&] {
    options.reset();
    EXPECT_EQ(server.canUnloadNow(), S_OK);
    expectReleased(*objects);
    objects.reset();
  });
}

TEST_F(ApartmentsTest, EachThreadMayHaveADialogOfItsOwn) {
  WindowThread first;
  WindowThread second;
  FakeHost secondShop;
  first.run([&] {
    AutomationHost objects(host);
    const auto options = server.create();
    give(*options.get(), objects);
    DialogPerson person([&](HWND dialog) {
      second.run([&] {
        AutomationHost others(secondShop);
        const auto another = server.create();
        give(*another.get(), others);
        DialogPerson otherPerson([](HWND) {});
        show(*another.get());
        EXPECT_EQ(otherPerson.finish(), 1);
      });
      EXPECT_TRUE(IsWindow(dialog));
      EXPECT_TRUE(IsWindowEnabled(dialog));
    });
    show(*options.get());
    EXPECT_EQ(person.finish(), 1);
  });
  EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(ApartmentsTest, ObjectsEndInTheirApartmentWhetherShownOrNot) {
  WindowThread owner;
  owner.run([&] {
    AutomationHost objects(host);
    auto never = server.create();
    give(*never.get(), objects);
    auto shown = server.create();
    give(*shown.get(), objects);
    DialogPerson person([](HWND) {});
    show(*shown.get());
    EXPECT_EQ(person.finish(), 1);
    shown.reset();
    EXPECT_EQ(server.canUnloadNow(), S_FALSE);
    never.reset();
    EXPECT_EQ(server.canUnloadNow(), S_OK);
    expectReleased(objects);
  });
}

TEST_F(ApartmentsTest, TheLastReferenceMayGoFromAnotherApartment) {
  WindowThread owner;
  inMultiThreadedApartment([&] {
    AutomationHost objects(host);
    for (int round = 0; round < 20; ++round) {
      auto options = createIn(owner);
      give(*options.get(), objects);
      EXPECT_EQ(server.canUnloadNow(), S_FALSE);
      options.reset();
      ASSERT_EQ(server.canUnloadNow(), S_OK) << "round " << round;
    }
    expectReleased(objects);
  });
}

}  // namespace
}  // namespace tillora::automation
