// A host that does in the component's calls what no host should: it lets messages pass, calls back,
// releases, destroys windows, opens dialogs of its own, fails. The component may fail, but it
// returns, leaves nothing behind, and works again.
#include <gtest/gtest.h>

#include <windows.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/event_listener.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/random_choices.h"
#include "tests/testing/win32/holdings.h"
#include "tests/testing/win32/loop_watchdog.h"
#include "tests/testing/win32/scratch_registry.h"
#include "ui/win32/thread_windows.h"

namespace tillora::testing {
namespace {

using ui::win32::threadWindows;
using win32::ComPtr;

HWND makeHostWindow() {
  return CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400, 200,
                         nullptr, nullptr, nullptr, nullptr);
}

BOOL CALLBACK addButton(HWND window, LPARAM buttons) {
  wchar_t name[16] = L"";
  GetClassNameW(window, name, 16);
  if (lstrcmpiW(name, L"Button") == 0 && IsWindowVisible(window)) {
    reinterpret_cast<std::vector<HWND>*>(buttons)->push_back(window);
  }
  return TRUE;
}

std::vector<HWND> buttonsOf(HWND window) {
  std::vector<HWND> buttons;
  EnumChildWindows(window, &addButton, reinterpret_cast<LPARAM>(&buttons));
  return buttons;
}

bool isDialog(HWND window) {
  wchar_t name[16] = L"";
  GetClassNameW(window, name, 16);
  return lstrcmpW(name, L"#32770") == 0;
}

/// A host with something on every tab, its windows, and a person at whatever is in front.
class HostProgram {
 public:
  explicit HostProgram(const ServerLibrary& server)
      : server_(server), owner_(makeHostWindow()), other_(makeHostWindow()) {
    host.fillEveryTab();
    SetForegroundWindow(owner_);
    SetActiveWindow(owner_);
    options = server_.create();
    giveObjects(*options.get());
    listener = EventListener::make([](LONG&) { return S_OK; });
    connectionPoint(*options.get())->Advise(listener.get(), &cookie_);
    current_ = this;
  }
  virtual ~HostProgram() {
    current_ = nullptr;
    for (const HWND window : {owner_, other_}) {
      if (IsWindow(window)) DestroyWindow(window);
    }
  }
  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;

  HRESULT show() {
    const LoopWatchdog watchdog;
    const UINT_PTR timer = SetTimer(nullptr, 0, 1, &tick);
    VARIANT_BOOL shown = VARIANT_FALSE;
    _Options& called = *options.get();
    const HRESULT result = called.ShowOptions(&shown);
    KillTimer(nullptr, timer);
    EXPECT_EQ(shown, SUCCEEDED(result) ? VARIANT_TRUE : VARIANT_FALSE);
    return result;
  }

  /// Everything that the component had is released, and the host's windows can be used.
  void expectReleased() {
    options.reset();
    listener.reset();
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
    for (const auto& object : {automation.database, automation.app, automation.sender,
                               automation.strings, automation.settings}) {
      EXPECT_EQ(object->references(), 2U);  // one is of this loop
    }
    for (const auto& record : automation.records) EXPECT_EQ(record->references(), 1U);
    automation.records.clear();
    EXPECT_EQ(host.liveRecords, 0);
    EXPECT_EQ(host.live, 5);
    // The platform under test leaves the owner of a message disabled that ends with its program.
    for (const HWND window : {owner_, other_}) {
      EXPECT_TRUE(isEnding_ || !IsWindow(window) || IsWindowEnabled(window));
    }
  }

  FakeHost host;
  AutomationHost automation{host};
  ComPtr<_Options> options;
  ComPtr<EventListener> listener;

 protected:
  /// What the person does with the window in front, if any, whenever the thread takes messages.
  virtual void act(HWND inFront) = 0;

  void giveObjects(_Options& taker) {
    taker.putref_DBJetObject(automation.database.get());
    taker.putref_AppObject(automation.app.get());
    taker.putref_MsgSndObject(automation.sender.get());
    taker.putref_ResourceObject(automation.strings.get());
    taker.putref_SettingsObject(automation.settings.get());
  }
  bool isOwn(HWND window) const { return window == owner_ || window == other_; }
  static bool isUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

  const ServerLibrary& server_;
  HWND owner_;
  HWND other_;
  DWORD cookie_ = 0;
  bool isEnding_ = false;

 private:
  static void CALLBACK tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    if (current_ == nullptr) return;
    const std::vector<HWND> windows = threadWindows();
    const auto inFront = std::ranges::find_if(
        windows, [](HWND window) { return isUsable(window) && !current_->isOwn(window); });
    current_->act(inFront == windows.end() ? nullptr : *inFront);
  }

  static inline HostProgram* current_ = nullptr;
};

/// Changes the first box of the dialog and presses OK.
class BehavingHost final : public HostProgram {
 public:
  using HostProgram::HostProgram;

 private:
  void act(HWND inFront) override {
    if (isActed_ || inFront == nullptr || !IsChild(inFront, GetFocus())) return;
    isActed_ = true;
    SendMessageW(GetFocus(), WM_CHAR, L'x', 1);
    PostMessageW(FindWindowExW(inFront, nullptr, L"Button", L"&OK"), BM_CLICK, 0, 0);
  }
  bool isActed_ = false;
};

class MisbehavingHost final : public HostProgram {
 public:
  MisbehavingHost(const ServerLibrary& server, RandomChoices& random)
      : HostProgram(server), random_(random) {
    for (int i = 1 + random_.below(3); i > 0; --i) chosen_.push_back(random_.oneOf(kMisdeeds));
    every_ = 1 + random_.below(random_.chance(30) ? 3 : 200);
    options->put_SelectedTab(static_cast<short>(random_.below(13)));
    options->put_FirstUse(random_.chance(10) ? VARIANT_TRUE : VARIANT_FALSE);
    if (random_.chance(20)) host.failingNumber = random_.below(600);
    if (random_.chance(10)) host.failingStep = random_.below(300);
    ScriptedObject::onAsked = [this] { misbehave(); };
    listener.reset();
    listener = EventListener::make([this](LONG&) {
      misbehave();
      return random_.chance(10) ? E_FAIL : S_OK;
    });
    connectionPoint(*options.get())->Advise(listener.get(), &cookie_);
  }
  ~MisbehavingHost() override {
    ScriptedObject::onAsked = nullptr;
    for (const HWND window : made_) {
      if (IsWindow(window)) DestroyWindow(window);
    }
  }

  std::string description() const {
    std::string text;
    for (const Misdeed& misdeed : chosen_) text += std::string(misdeed.name) + ", ";
    return text + "in one of " + std::to_string(every_) + " calls";
  }
  int misdeeds() const { return done_; }
  /// From here on the host does nothing.
  void stop() { ScriptedObject::onAsked = nullptr; }

 private:
  struct Misdeed {
    const char* name;
    void (MisbehavingHost::*act)();
  };
  static const std::array<Misdeed, 20> kMisdeeds;

  void misbehave() {
    constexpr int kDeepest = 2;
    if (isOver_ || depth_ >= kDeepest || ++calls_ % every_ != 0) return;
    ++depth_;
    ++done_;
    (this->*random_.oneOf(chosen_).act)();
    --depth_;
  }

  void act(HWND inFront) override {
    constexpr int kMostActs = 15;
    if (++acts_ > kMostActs) {
      isOver_ = true;
      closeAll();
    } else if (inFront != nullptr) {
      use(inFront);
    }
  }

  void use(HWND window) {
    const HWND focus = GetFocus();
    switch (random_.below(6)) {
      case 0:
        pressAny(window, true);
        break;
      case 1:
        if (const HWND tabs = FindWindowExW(window, nullptr, WC_TABCONTROLW, nullptr)) {
          const auto count = static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
          PostMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(random_.below(count)), 0);
        }
        break;
      case 2:
      case 3:
        PostMessageW(focus, WM_CHAR, static_cast<WPARAM>(L'0' + random_.below(10)), 1);
        break;
      case 4: {
        constexpr std::array kKeys = {VK_TAB, VK_RETURN, VK_SPACE, VK_DOWN, VK_BACK};
        PostMessageW(focus, WM_KEYDOWN, static_cast<WPARAM>(random_.oneOf(kKeys)), 1);
        break;
      }
      default:
        if (const HWND apply = FindWindowExW(window, nullptr, L"Button", L"&Apply")) {
          PostMessageW(apply, BM_CLICK, 0, 0);
        }
    }
  }

  /// Those that open a dialog of the platform for files are left alone: under test it does not
  /// survive what is done to it here.
  void pressAny(HWND window, bool later) {
    std::vector<HWND> buttons = buttonsOf(window);
    std::erase_if(buttons, [](HWND button) {
      wchar_t caption[64] = L"";
      GetWindowTextW(button, caption, 64);
      return std::wstring_view(caption).ends_with(L"...");
    });
    if (buttons.empty()) return;
    const HWND button = random_.oneOf(buttons);
    if (later) {
      PostMessageW(button, BM_CLICK, 0, 0);
    } else {
      SendMessageW(button, BM_CLICK, 0, 0);
    }
  }

  /// Every dialog, hidden or not.
  static void closeAll() {
    const auto component =
        reinterpret_cast<LONG_PTR>(GetModuleHandleW(ServerLibrary::path().c_str()));
    for (const HWND window : threadWindows()) {
      if (!isDialog(window) || !IsWindowEnabled(window)) continue;
      if (GetWindowLongPtrW(window, GWLP_HINSTANCE) == component) {
        PostMessageW(window, WM_CLOSE, 0, 0);
        continue;
      }
      // Messages have no close box unless they have Cancel.
      constexpr std::array kEnds = {IDCANCEL, IDNO, IDOK};
      const auto* const end = std::ranges::find_if(
          kEnds, [window](int id) { return GetDlgItem(window, id) != nullptr; });
      if (end != kEnds.end()) PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(*end), 0);
    }
  }

  /// A window of the thread that is not the host's; null for none.
  HWND anyWindow() {
    std::vector<HWND> windows = threadWindows();
    std::erase_if(windows,
                  [this](HWND window) { return isOwn(window) || !IsWindowVisible(window); });
    return windows.empty() ? nullptr : random_.oneOf(windows);
  }

  void letMessagesPass() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  void setProperties() {
    const ComPtr<_Options> called = options;  // released meanwhile, perhaps
    if (!called) return;
    VARIANT_BOOL changed = VARIANT_FALSE;
    EXPECT_EQ(called->get_ChangedDataFile(&changed), S_OK);
    EXPECT_EQ(called->put_SelectedTab(static_cast<short>(random_.below(100) - 50)), S_OK);
    EXPECT_EQ(called->put_FirstUse(VARIANT_TRUE), S_OK);
    const win32::Bstr extension(u".ldv");
    EXPECT_EQ(called->put_LVFileExtension(extension.get()), S_OK);
  }
  void showAgain() {
    VARIANT_BOOL shown = VARIANT_TRUE;
    if (const ComPtr<_Options> called = options) {
      EXPECT_EQ(called->ShowOptions(&shown), error::alreadyShown);
      EXPECT_EQ(shown, VARIANT_FALSE);
    }
    const auto another = server_.create();
    another->putref_AppObject(automation.app.get());
    // If the first object has been released, it outlives its dialog, and releases the host's
    // objects only then.
    const HRESULT result = another->ShowOptions(&shown);
    EXPECT_TRUE(result == error::alreadyShown || (!options && result == error::objectNotSet))
        << std::hex << result;
    EXPECT_EQ(shown, VARIANT_FALSE);
  }
  void takeObjectsBack() {
    const ComPtr<_Options> called = options;  // released meanwhile, perhaps
    if (!called) return;
    called->putref_DBJetObject(nullptr);
    called->putref_AppObject(nullptr);
    called->putref_MsgSndObject(nullptr);
    called->putref_ResourceObject(nullptr);
    called->putref_SettingsObject(nullptr);
  }
  void giveObjectsAgain() {
    const ComPtr<_Options> called = options;  // released meanwhile, perhaps
    if (!called) return;
    giveObjects(*called.get());
    EXPECT_EQ(called->putref_DBJetObject(automation.sender.get()), DISP_E_TYPEMISMATCH);
  }
  void releaseOptions() { options.reset(); }
  void changeListeners() {
    const ComPtr<_Options> called = options;
    if (!called) return;
    const auto point = connectionPoint(*called.get());
    if (random_.chance(50)) point->Unadvise(cookie_);
    point->Advise(listener.get(), &cookie_);
  }
  void destroyOwner() {
    if (IsWindow(owner_)) DestroyWindow(owner_);
  }
  void destroyAny() {
    if (const HWND window = anyWindow()) DestroyWindow(window);
  }
  void closeAny() {
    if (const HWND window = anyWindow()) SendMessageW(window, WM_CLOSE, 0, 0);
  }
  void hideAny() {
    if (const HWND window = anyWindow()) ShowWindow(window, SW_HIDE);
  }
  void endSession() {
    const std::vector<HWND> windows = threadWindows();
    for (const HWND window : windows) {
      if (IsWindow(window)) SendMessageW(window, WM_QUERYENDSESSION, 0, 0);
    }
    for (const HWND window : windows) {
      if (IsWindow(window)) SendMessageW(window, WM_ENDSESSION, TRUE, 0);
    }
  }
  void showMessage() {
    const HWND owner = random_.chance(50) ? nullptr : GetActiveWindow();
    MessageBoxW(owner, L"A message of the host", L"Host",
                random_.chance(50) ? MB_OK : MB_YESNO | MB_TASKMODAL);
  }
  void openWindow() {
    constexpr std::size_t kMost = 5;
    if (made_.size() < kMost) made_.push_back(makeHostWindow());
  }
  void takeFocus() {
    SetForegroundWindow(other_);
    SetFocus(other_);
  }
  void enableAll() {
    for (const HWND window : threadWindows()) EnableWindow(window, TRUE);
  }
  void changeSettings() {
    constexpr int kMost = 20;  // each takes as long as a dialog that opens
    if (++settingsChanges_ > kMost) return;
    constexpr std::array<UINT, 3> kChanges = {WM_SETTINGCHANGE, WM_SYSCOLORCHANGE, WM_THEMECHANGED};
    const UINT change = random_.oneOf(kChanges);
    for (const HWND window : threadWindows()) {
      if (IsWindow(window)) SendMessageW(window, change, 0, 0);
    }
  }
  void pressInside() {
    if (const HWND window = anyWindow()) pressAny(window, false);
  }
  void typeInside() { SendMessageW(GetFocus(), WM_CHAR, L'7', 1); }
  void endProgram() {
    isEnding_ = true;
    PostQuitMessage(0);
  }

  RandomChoices& random_;
  std::vector<Misdeed> chosen_;
  int every_ = 1;
  int calls_ = 0;
  int depth_ = 0;
  int done_ = 0;
  int acts_ = 0;
  int settingsChanges_ = 0;
  bool isOver_ = false;
  std::vector<HWND> made_;
};

using Host = MisbehavingHost;
const std::array<Host::Misdeed, 20> Host::kMisdeeds = {{
    {"lets messages pass", &Host::letMessagesPass},
    {"sets properties", &Host::setProperties},
    {"shows again", &Host::showAgain},
    {"takes its objects back", &Host::takeObjectsBack},
    {"gives its objects again", &Host::giveObjectsAgain},
    {"releases Options", &Host::releaseOptions},
    {"changes its listeners", &Host::changeListeners},
    {"destroys the owner", &Host::destroyOwner},
    {"destroys a window", &Host::destroyAny},
    {"closes a window", &Host::closeAny},
    {"hides a window", &Host::hideAny},
    {"ends the session", &Host::endSession},
    {"shows a message", &Host::showMessage},
    {"opens a window", &Host::openWindow},
    {"takes the focus", &Host::takeFocus},
    {"enables everything", &Host::enableAll},
    {"changes the settings", &Host::changeSettings},
    {"presses a button", &Host::pressInside},
    {"types", &Host::typeInside},
    {"ends the program", &Host::endProgram},
}};

class MisbehavingHostTest : public ::testing::Test {
 protected:
  ~MisbehavingHostTest() override { DestroyWindow(first_); }

  void expectWorks() {
    BehavingHost program(server_);
    EXPECT_EQ(program.show(), S_OK);
    EXPECT_EQ(program.host.callsStarting("commit").size(), 1U);
    EXPECT_EQ(program.listener->heard, 1);
    EXPECT_EQ(program.host.value(options::CompanyName), u"x");
    program.expectReleased();
  }

  /// Returns how often the host misbehaved.
  int sit(unsigned seed) {
    const auto before = windowsOfThread();
    int misdeeds = 0;
    {
      RandomChoices random(seed);
      MisbehavingHost program(server_, random);
      const std::string description = "seed " + std::to_string(seed) + ": " + program.description();
      SCOPED_TRACE(description);
      if (isLongRun()) std::cout << description << std::endl;  // a crash must not lose it
      const HRESULT result = program.show();
      EXPECT_TRUE(result == S_OK || result == FakeHost::failure().number()) << std::hex << result;
      program.stop();
      MSG message;
      while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE) {
      }
      program.expectReleased();
      misdeeds = program.misdeeds();
    }
    EXPECT_EQ(windowsOfThread(), before) << "windows are left";
    return misdeeds;
  }

  ScratchRegistry registry_;
  Apartment apartment_;
  ServerLibrary server_;
  /// The platform keeps windows of its own for a thread as long as it has one.
  HWND first_ =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
};

TEST_F(MisbehavingHostTest, IsSurvivedWhateverItDoesInACall) {
  const int wanted = isLongRun() ? 1000 : 6;
  const unsigned first = RandomChoices().seed();
  expectWorks();
  const Holdings before;
  int rounds = 0;
  int misdeeds = 0;
  for (; rounds < wanted && !HasFailure(); ++rounds) {
    misdeeds += sit(first + static_cast<unsigned>(rounds));
    expectWorks();
  }
  if (isLongRun()) std::cout << rounds << " hosts, " << misdeeds << " misdeeds\n";
  EXPECT_GT(misdeeds, rounds);
  const Holdings after;
  EXPECT_FALSE(before.leaked(after, static_cast<DWORD>(std::max(rounds, 40))))
      << before << ", then " << after;
}

}  // namespace
}  // namespace tillora::testing
