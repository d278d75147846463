#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "component/frmOptions.h"
#include "identity/passwords.h"
#include "identity/web_sites.h"
#include "operations/end_of_day.h"
#include "operations/frmPumpGrade.h"
#include "operations/pump.h"
#include "operations/random_price.h"
#include "sales/rounding.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/event_listener.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/options_test.h"
#include "tests/testing/win32/loop_watchdog.h"
#include "tests/testing/win32/windows_desk.h"
#include "ui/win32/thread_windows.h"

// The dialog is ended from outside, with each of its sub-dialogs on top.
namespace tillora::testing {
namespace {

using win32::ComPtr;

/// The whole component in real windows, which only the test closes.
class SubDialogTest : public OptionsTest {
 protected:
  using Press = std::function<ui::CommandButton*(ui::Form&)>;

  SubDialogTest() {
    host.grades = {{{u"GradeNumber", std::int32_t{1}},
                    {u"Product", Text(u"Fuel:ULP")},
                    {u"Caption", Text(u"Unleaded")}}};
  }

  /// Presses a button in each form in its turn and, in the last, destroys the owner of the first.
  void endUnder(TabPage page, const std::vector<Press>& presses) {
    auto& windows = dynamic_cast<WindowsDesk&>(*desk).windows();
    const HWND owner = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20,
                                       20, 400, 200, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(owner);
    SetActiveWindow(owner);
    const auto windowsBefore = ui::win32::threadWindows().size();
    std::size_t shown = 0;
    windows.modalShown = [&](ui::Form& form) {
      if (auto* dialog = dynamic_cast<frmOptions*>(&form)) {
        ui::TextBox& box = dialog->tabs().companyDetails.txtCompanyDetails[0];
        box.setText(u"not saved");
        dialog->tabOptions.setSelected(static_cast<int>(page));
      }
      if (shown < presses.size()) {
        const HWND button = windows.windowOf(*presses[shown](form));
        ASSERT_NE(button, nullptr);
        PostMessageW(GetParent(button), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
      } else {
        SetTimer(owner, 1, 1, &destroy);
      }
      ++shown;
    };
    const LoopWatchdog watchdog;
    EXPECT_TRUE(options_.ShowOptions());
    EXPECT_EQ(shown, presses.size() + 1);
    EXPECT_FALSE(IsWindow(owner));
    EXPECT_TRUE(IsWindowEnabled(dynamic_cast<WindowsDesk&>(*desk).host()));
    EXPECT_EQ(ui::win32::threadWindows().size(), windowsBefore - 1);
    EXPECT_TRUE(host.callsStarting("commit").empty());
    EXPECT_EQ(options_.DBJetObject.use_count(), 1);
    EXPECT_EQ(options_.AppObject.use_count(), 1);
    EXPECT_EQ(options_.SettingsObject.use_count(), 1);
    EXPECT_EQ(options_.MsgSndObject.use_count(), 1);
  }

  static void CALLBACK destroy(HWND window, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    DestroyWindow(window);
  }
  static Tabs& tabs(ui::Form& form) { return dynamic_cast<frmOptions&>(form).tabs(); }
};

TEST_F(SubDialogTest, TheOwnersEndEndsTheOptionsDialogAlone) { endUnder(TabPage::general, {}); }

TEST_F(SubDialogTest, TheOwnersEndEndsAGradesDialogAndTheBrowserOverIt) {
  endUnder(TabPage::pump, {[](ui::Form& form) { return &tabs(form).pumpGrades.cmdPump[0]; }});
  endUnder(TabPage::pump,
           {[](ui::Form& form) { return &tabs(form).pumpGrades.cmdPump[0]; },
            [](ui::Form& form) {
              return &dynamic_cast<frmPumpGrade&>(form).cmdPumpGrade[frmPumpGrade::browse];
            }});
}

TEST_F(SubDialogTest, TheOwnersEndEndsEachOtherDialogOverTheOptions) {
  endUnder(TabPage::rounding, {[](ui::Form& form) { return &tabs(form).rounding.cmdBrowse; }});
  endUnder(TabPage::web, {[](ui::Form& form) { return &tabs(form).webSites.cmdWeb[0]; }});
  endUnder(TabPage::scanning,
           {[](ui::Form& form) { return &tabs(form).randomPrice.cmdRandomPrice; }});
  for (const int reports : {0, 1}) {
    endUnder(TabPage::eod,
             {[&](ui::Form& form) { return &tabs(form).endOfDay.cmdReports[reports]; }});
  }
  endUnder(TabPage::security, {[](ui::Form& form) {
             tabs(form).passwords.chkSecurity[0].setValue(true);
             return &tabs(form).passwords.cmdSecurity[0];
           }});
}

/// The library as a host has it, with a program's own window and timer around it.
class LibraryLifeTest : public ::testing::Test {
 protected:
  struct Step {
    std::wstring title;
    std::function<void(HWND)> act;
  };

  LibraryLifeTest() : owner(makeWindow()), other(makeWindow()) {
    SetForegroundWindow(owner);
    SetActiveWindow(owner);
  }
  ~LibraryLifeTest() override {
    if (IsWindow(owner)) DestroyWindow(owner);
    DestroyWindow(other);
  }

  static HWND makeWindow() {
    return CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400,
                           200, nullptr, nullptr, nullptr, nullptr);
  }
  ComPtr<_Options> create(short tab) {
    auto options = server.create();
    options->putref_DBJetObject(automationHost.database.get());
    options->putref_AppObject(automationHost.app.get());
    options->putref_MsgSndObject(automationHost.sender.get());
    options->putref_ResourceObject(automationHost.strings.get());
    options->putref_SettingsObject(automationHost.settings.get());
    options->put_SelectedTab(tab);
    return options;
  }
  /// Calls ShowOptions; each step acts, from a timer of the program, on the window with its title
  /// as soon as that one can be used.
  HRESULT show(_Options& options, std::vector<Step> wanted) {
    steps = std::move(wanted);
    current = this;
    const UINT_PTR timer = SetTimer(nullptr, 0, 5, &tick);
    const LoopWatchdog watchdog;
    VARIANT_BOOL shown = VARIANT_FALSE;
    const HRESULT result = options.ShowOptions(&shown);
    EXPECT_EQ(shown, SUCCEEDED(result) ? VARIANT_TRUE : VARIANT_FALSE);
    KillTimer(nullptr, timer);
    EXPECT_TRUE(steps.empty());
    return result;
  }
  static void CALLBACK tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    if (current->steps.empty() || current->inTheHost) return;
    for (const HWND window : ui::win32::threadWindows()) {
      wchar_t text[128] = L"";
      GetWindowTextW(window, text, 128);
      const bool usable = IsWindowVisible(window) && IsWindowEnabled(window);
      if (!usable || current->steps.front().title != text) continue;
      const Step step = current->steps.front();
      current->steps.erase(current->steps.begin());
      step.act(window);
      return;
    }
  }
  /// Presses the visible button with this caption when the window next waits for the user.
  static Step press(const wchar_t* title, const wchar_t* caption) {
    return {title, [caption](HWND window) {
              struct Search {
                const wchar_t* caption;
                HWND found;
              } search{caption, nullptr};
              EnumChildWindows(window, &compare, reinterpret_cast<LPARAM>(&search));
              ASSERT_NE(search.found, nullptr);
              PostMessageW(GetParent(search.found), WM_COMMAND,
                           MAKEWPARAM(GetDlgCtrlID(search.found), BN_CLICKED),
                           reinterpret_cast<LPARAM>(search.found));
            }};
  }
  static BOOL CALLBACK compare(HWND window, LPARAM data) {
    struct Search {
      const wchar_t* caption;
      HWND found;
    };
    auto& search = *reinterpret_cast<Search*>(data);
    wchar_t text[64] = L"";
    GetWindowTextW(window, text, 64);
    if (lstrcmpW(text, search.caption) != 0 || !IsWindowVisible(window)) return TRUE;
    search.found = window;
    return FALSE;
  }
  Step destroyOwner(const wchar_t* title) {
    return {title, [this](HWND) { DestroyWindow(owner); }};
  }
  Step endSession(const wchar_t* title) {
    return {title, [](HWND) {
              const auto windows = ui::win32::threadWindows();
              for (const HWND window : windows) {
                if (IsWindow(window)) SendMessageW(window, WM_QUERYENDSESSION, 0, 0);
              }
              for (const HWND window : windows) {
                if (IsWindow(window)) SendMessageW(window, WM_ENDSESSION, TRUE, 0);
              }
            }};
  }
  /// The dialog ended as by its close box, and holds nothing of the host.
  void expectEnded() {
    EXPECT_TRUE(host.callsStarting("commit").empty());
    EXPECT_TRUE(IsWindowEnabled(other));
    for (const auto& record : automationHost.records) EXPECT_EQ(record->references(), 1U);
    EXPECT_EQ(automationHost.database->references(), 1U);
    EXPECT_EQ(automationHost.app->references(), 1U);
    EXPECT_EQ(automationHost.settings->references(), 1U);
    EXPECT_EQ(automationHost.sender->references(), 1U);
    EXPECT_EQ(automationHost.strings->references(), 1U);
    EXPECT_EQ(server.canUnloadNow(), S_OK);
  }

  static LibraryLifeTest* current;
  Apartment apartment;
  ServerLibrary server;
  FakeHost host;
  AutomationHost automationHost{host};
  std::vector<Step> steps;
  /// The host is in a call, where steps wait.
  bool inTheHost = false;
  HWND owner;
  HWND other;
};

LibraryLifeTest* LibraryLifeTest::current = nullptr;

constexpr const wchar_t* kGrade = L"New Pump Grade Information";
constexpr const wchar_t* kSite = L"Enter Web Site Information";
constexpr const wchar_t* kMessage = L"Web site details missing";

TEST_F(LibraryLifeTest, ShowOptionsReturnsWhenAnAutomaticLogOffDestroysTheOwner) {
  EXPECT_EQ(show(*create(1).get(), {destroyOwner(L"Options")}), S_OK);
  EXPECT_FALSE(IsWindow(owner));
  expectEnded();
}

TEST_F(LibraryLifeTest, ShowOptionsReturnsFromTheItemBrowserToo) {
  EXPECT_EQ(show(*create(9).get(), {press(L"Options", L"&New"), press(kGrade, L"&Browse..."),
                                    destroyOwner(L"Grade Product")}),
            S_OK);
  expectEnded();
}

TEST_F(LibraryLifeTest, ShowOptionsReturnsFromAMessageOfTheHostOverASubDialog) {
  EXPECT_EQ(show(*create(10).get(),
                 {press(L"Options", L"&New"), press(kSite, L"&OK"), destroyOwner(kMessage)}),
            S_OK);
  expectEnded();
}

TEST_F(LibraryLifeTest, ShowOptionsReturnsWhenTheSessionEnds) {
  EXPECT_EQ(show(*create(1).get(), {endSession(L"Options")}), S_OK);
  EXPECT_EQ(show(*create(9).get(), {press(L"Options", L"&New"), press(kGrade, L"&Browse..."),
                                    endSession(L"Grade Product")}),
            S_OK);
  EXPECT_EQ(show(*create(10).get(),
                 {press(L"Options", L"&New"), press(kSite, L"&OK"), endSession(kMessage)}),
            S_OK);
  EXPECT_TRUE(IsWindowEnabled(owner));
  expectEnded();
}

TEST_F(LibraryLifeTest, ACloseUnderAMessageOfTheHostGoesToTheMessage) {
  HWND dialog = nullptr;
  EXPECT_EQ(
      show(*create(10).get(), {{L"Options",
                                [&](HWND window) {
                                  dialog = window;
                                  press(L"", L"&New").act(window);
                                }},
                               press(kSite, L"&OK"),
                               {kMessage, [&](HWND) { PostMessageW(dialog, WM_CLOSE, 0, 0); }},
                               {kSite, [&](HWND) { PostMessageW(dialog, WM_CLOSE, 0, 0); }},
                               {L"Options", [&](HWND) { PostMessageW(dialog, WM_CLOSE, 0, 0); }}}),
      S_OK);
  expectEnded();
}

/// Lets messages pass as a Basic program's DoEvents does.
void doEvents() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

TEST_F(LibraryLifeTest, AHostThatLetsMessagesPassInEveryCallOfASaveSeesOneSave) {
  const auto options = create(1);
  HWND dialog = nullptr;
  HWND box = nullptr;
  std::size_t passed = 0;
  const auto editAndSave = [&] {
    if (inTheHost) return;
    inTheHost = true;
    PostMessageW(box, WM_CHAR, L'x', 1);
    SendMessageW(box, WM_CHAR, L'y', 1);
    const HWND apply = FindWindowExW(dialog, nullptr, L"Button", L"&Apply");
    SendMessageW(apply, BM_CLICK, 0, 0);
    PostMessageW(FindWindowExW(dialog, nullptr, L"Button", L"&OK"), BM_CLICK, 0, 0);
    doEvents();
    ++passed;
    inTheHost = false;
  };
  const auto listener = EventListener::make([&](LONG&) {
    editAndSave();
    return S_OK;
  });
  const auto point = connectionPoint(*options.get());
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(listener.get(), &cookie), S_OK);
  EXPECT_EQ(show(*options.get(), {{L"Options",
                                   [&](HWND window) {
                                     dialog = window;
                                     box = GetFocus();
                                     SendMessageW(box, WM_CHAR, L'a', 1);
                                     host.onCall = [&](const std::string&) { editAndSave(); };
                                     press(L"", L"&Apply").act(window);
                                   }},
                                  {L"Options",
                                   [&](HWND window) {
                                     host.onCall = nullptr;
                                     PostMessageW(window, WM_CLOSE, 0, 0);
                                   }}}),
            S_OK);
  point->Unadvise(cookie);
  EXPECT_GT(passed, 200U);
  EXPECT_EQ(host.callsStarting("commit").size(), 1U);
  EXPECT_EQ(listener->heard, 1);
  EXPECT_EQ(host.value(options::CompanyName), u"a");
}

TEST_F(LibraryLifeTest, APerMonitorAwareHostIsCalledInItsOwnContext) {
  using SetContext = HANDLE(WINAPI*)(HANDLE);
  using ContextOf = HANDLE(WINAPI*)(HWND);
  using Current = HANDLE(WINAPI*)();
  using Awareness = int(WINAPI*)(HANDLE);
  const auto find = [](const char* name) {
    return reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"user32"), name));
  };
  const auto setContext = reinterpret_cast<SetContext>(find("SetThreadDpiAwarenessContext"));
  const auto current = reinterpret_cast<Current>(find("GetThreadDpiAwarenessContext"));
  const auto contextOf = reinterpret_cast<ContextOf>(find("GetWindowDpiAwarenessContext"));
  const auto awareness = reinterpret_cast<Awareness>(find("GetAwarenessFromDpiAwarenessContext"));
  ASSERT_TRUE(setContext && current && contextOf && awareness);
  constexpr int kSystemAware = 1;
  constexpr int kPerMonitorAware = 2;
  const HANDLE former = setContext(reinterpret_cast<HANDLE>(INT_PTR{-4}));

  const auto options = create(1);
  std::map<int, int> calls;
  host.onCall = [&](const std::string&) { ++calls[awareness(current())]; };
  const auto listener = EventListener::make([&](LONG&) {
    EXPECT_EQ(awareness(current()), kPerMonitorAware);
    return S_OK;
  });
  const auto point = connectionPoint(*options.get());
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(listener.get(), &cookie), S_OK);
  int dialogs = 0;
  EXPECT_EQ(show(*options.get(), {{L"Options",
                                   [&](HWND window) {
                                     dialogs = awareness(contextOf(window));
                                     SendMessageW(GetFocus(), WM_CHAR, L'a', 1);
                                     press(L"", L"&OK").act(window);
                                   }}}),
            S_OK);
  point->Unadvise(cookie);
  host.onCall = nullptr;
  EXPECT_EQ(awareness(current()), kPerMonitorAware);
  setContext(former);
  EXPECT_EQ(dialogs, kSystemAware);
  EXPECT_EQ(calls.size(), 1U);
  EXPECT_GT(calls[kPerMonitorAware], 200);
  EXPECT_EQ(listener->heard, 1);
}

}  // namespace
}  // namespace tillora::testing
