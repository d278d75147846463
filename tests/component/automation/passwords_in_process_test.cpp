// Passwords in the memory and in the windows of a host program, once the library's dialog has
// known them.
#include <gtest/gtest.h>

#include <windows.h>
// commctrl.h needs windows.h first.
#include <commctrl.h>

#include <array>
#include <cwchar>
#include <string>
#include <utility>

#include "component/contract/options_tab.h"
#include "tests/component/automation/automation_host.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/dialog_person.h"
#include "tests/testing/win32/other_program.h"
#include "tests/testing/win32/process_memory.h"

namespace tillora::testing {
namespace {

constexpr std::array kCanaries = {Canary(u"zq8wx4kv7jt5yb3n"), Canary(u"Pf6Hd2GmLc9RsVxA"),
                                  Canary(u"TN0eIU1oYBQkWZ3j")};
constexpr const Canary& kStored = kCanaries[0];
constexpr const Canary& kTyped = kCanaries[1];
constexpr const Canary& kOther = kCanaries[2];

constexpr const wchar_t* kDialog = L"Password to access Options";

std::size_t partsIn(const void* memory, std::size_t size) {
  std::size_t found = 0;
  for (const Canary& canary : kCanaries) {
    found += canary.partsIn(static_cast<const unsigned char*>(memory), size);
  }
  return found;
}

/// Back to front, as the host in memory stores it.
Text reversed(const Canary& canary) {
  Text text;
  for (std::size_t i = Canary::kLength; i > 0; --i) text += canary.storedAt(i - 1);
  return text;
}

void expectNothingLeft() {
  const MemorySearch seen = searchMemory(kCanaries);
  EXPECT_EQ(seen.inHeaps, 0U);
  EXPECT_EQ(seen.elsewhere, 0U);
  EXPECT_GT(seen.heaps, 0U);
  // A platform may list many small blocks as one.
  EXPECT_GT(seen.blocks, 100U);
  EXPECT_GT(seen.bytes, std::size_t{1} << 20);
}

class MemorySearchTest : public ::testing::Test {
 protected:
  void TearDown() override { expectNothingLeft(); }
};

TEST_F(MemorySearchTest, ACopyInABlockInUseOrFreeIsSeen) {
  for (const std::size_t width : {1U, 2U}) {
    const HANDLE heap = HeapCreate(0, 0, 0);
    const std::size_t size = 400;
    auto* block = static_cast<unsigned char*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, size));
    void* const after = HeapAlloc(heap, 0, size);
    for (std::size_t i = 0; i < Canary::kLength; ++i) {
      block[101 + i * width] = static_cast<unsigned char>(kTyped.at(i));
    }
    EXPECT_GT(searchMemory(kCanaries).inHeaps, 0U) << width << " bytes a character, in use";
    HeapFree(heap, 0, block);
    EXPECT_GT(searchMemory(kCanaries).inHeaps, 0U) << width << " bytes a character, free";
    HeapFree(heap, 0, after);
    HeapDestroy(heap);
  }
}

TEST_F(MemorySearchTest, ACopyInOtherMemoryIsSeen) {
  static std::array<char16_t, Canary::kPart> data{};
  std::array<char16_t, Canary::kPart> local{};
  auto* page =
      static_cast<char16_t*>(VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
  for (const auto& [where, place] : {std::pair{"static data", data.data()},
                                     std::pair{"stack", local.data()}, std::pair{"page", page}}) {
    for (std::size_t i = 0; i < Canary::kPart; ++i) place[i] = kStored.storedAt(i + 3);
    EXPECT_EQ(searchMemory(kCanaries).elsewhere, 1U) << where;
    wipe(place, Canary::kPart * sizeof(char16_t));
  }
  VirtualFree(page, 0, MEM_RELEASE);
}

/// The library's dialog on its Security page, with a password for the Options window stored.
class PasswordsInProcessTest : public ::testing::Test {
 protected:
  PasswordsInProcessTest()
      : owner_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400,
                               200, nullptr, nullptr, nullptr, nullptr)) {
    SetForegroundWindow(owner_);
    host.storesReversed = true;
    host.store(options::AdminSecurityBits, 8);
    host.store(options::PasswordAdminOptions, reversed(kStored));
  }
  ~PasswordsInProcessTest() override { DestroyWindow(owner_); }

  /// Shows the dialog to a person who does this, and searches the memory when ShowOptions has
  /// returned.
  HRESULT show(const FunctionRef<void()>& act) {
    const auto options = server.create();
    options->putref_DBJetObject(automationHost.database.get());
    options->putref_AppObject(automationHost.app.get());
    options->putref_MsgSndObject(automationHost.sender.get());
    options->putref_ResourceObject(automationHost.strings.get());
    options->putref_SettingsObject(automationHost.settings.get());
    options->put_SelectedTab(static_cast<short>(TabPage::security));
    HRESULT result = E_FAIL;
    {
      DialogPerson person([&](HWND dialog) {
        dialog_ = dialog;
        person_ = &person;
        act();
      });
      VARIANT_BOOL shown = VARIANT_FALSE;
      result = options->ShowOptions(&shown);
      EXPECT_EQ(person.finish(), 1);
    }
    expectNothingLeft();
    return result;
  }

  // What the person does, on a thread of its own.

  static BOOL CALLBACK findPasswordButton(HWND window, LPARAM found) {
    wchar_t caption[32]{};
    GetWindowTextW(window, caption, 32);
    if (std::wcscmp(caption, L"Passwor&d...") != 0 || !IsWindowEnabled(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  HWND passwordButton() {
    HWND button = nullptr;
    EnumChildWindows(dialog_, &PasswordsInProcessTest::findPasswordButton,
                     reinterpret_cast<LPARAM>(&button));
    EXPECT_NE(button, nullptr);
    return button;
  }
  void openPasswordDialog() {
    PostMessageW(passwordButton(), BM_CLICK, 0, 0);
    waitFor(kDialog);
  }
  static void type(const Canary& canary, std::size_t length = Canary::kLength) {
    for (std::size_t i = 0; i < length; ++i) {
      DialogPerson::type(static_cast<wchar_t>(canary.at(i)));
    }
  }
  static void press(WORD key) { DialogPerson::press(key); }
  void apply() {
    waitFor(L"Options");
    DialogPerson::press('A', true);
    waitFor(L"Options");
  }
  /// The message that a refusal shows; looks at what others can see meanwhile, and closes it.
  void refused(const wchar_t* title) {
    press(VK_RETURN);
    waitFor(title);
    lookAround();
    press(VK_RETURN);
    waitFor(kDialog);
  }
  void waitFor(const wchar_t* title) { EXPECT_TRUE(person_->waitFor(title)); }

  /// What another program reads in the windows, and what the tool tips say.
  void lookAround() {
    seen_ = drive(L"texts");
    EXPECT_EQ(partsIn(seen_.data(), seen_.size()), 0U) << "in the windows";
    EXPECT_NE(seen_.find("Button\tPasswor&d..."), std::string::npos);
    toolTips_ = 0;
    // The mouse comes over a control that has a tool tip, and all are made.
    SendMessageW(passwordButton(), WM_MOUSEMOVE, 0, 0);
    EnumWindows(&PasswordsInProcessTest::lookAtWindow, reinterpret_cast<LPARAM>(this));
    EXPECT_GE(toolTips_, 11);
  }
  static BOOL CALLBACK lookAtWindow(HWND window, LPARAM test) {
    reinterpret_cast<PasswordsInProcessTest*>(test)->lookAtToolTips(window);
    return TRUE;
  }
  void lookAtToolTips(HWND window) {
    wchar_t name[32]{};
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 32);
    if (process != GetCurrentProcessId() || lstrcmpiW(name, TOOLTIPS_CLASSW) != 0) return;
    const auto count = static_cast<int>(SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
      std::array<wchar_t, 1024> text{};
      TTTOOLINFOW tool{};
      tool.cbSize = TTTOOLINFOW_V2_SIZE;
      tool.lpszText = text.data();
      SendMessageW(window, TTM_ENUMTOOLSW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tool));
      EXPECT_NE(text[0], L'\0');
      EXPECT_EQ(partsIn(text.data(), sizeof text), 0U) << "in a tool tip";
      ++toolTips_;
    }
  }

  /// Whether this is the stored password, compared in its stored form.
  bool isStored(const Canary& canary) {
    return host.value(options::PasswordAdminOptions) == reversed(canary);
  }

  Apartment apartment;
  ServerLibrary server;
  FakeHost host;
  AutomationHost automationHost{host};

 private:
  HWND owner_;
  HWND dialog_ = nullptr;
  DialogPerson* person_ = nullptr;
  std::string seen_;
  int toolTips_ = 0;
};

TEST_F(PasswordsInProcessTest, NothingIsLeftOfPasswordsThatAreSetChangedRefusedAndCleared) {
  EXPECT_EQ(show([this] {
              openPasswordDialog();
              type(kOther);
              refused(L"Old Password incorrect");
              type(kStored);
              press(VK_TAB);
              type(kTyped);
              press(VK_TAB);
              type(kOther);
              lookAround();
              refused(L"Passwords do not match");
              type(kTyped, 3);
              refused(L"Password not valid");
              DialogPerson::press('A', false, true);
              type(kTyped);
              press(VK_TAB);
              type(kTyped);
              press(VK_RETURN);
              apply();
              EXPECT_TRUE(isStored(kTyped));

              openPasswordDialog();
              type(kTyped);
              press(VK_RETURN);
              apply();
              EXPECT_EQ(host.value(options::PasswordAdminOptions), u"");

              openPasswordDialog();
              type(kOther);
              press(VK_TAB);
              type(kOther);
              press(VK_RETURN);
              waitFor(L"Options");

              openPasswordDialog();
              type(kTyped);
              press(VK_ESCAPE);
              waitFor(L"Options");
              DialogPerson::press('O', true);
            }),
            S_OK);
  EXPECT_TRUE(isStored(kOther));
}

TEST_F(PasswordsInProcessTest, NothingIsLeftOfPasswordsThatAreDropped) {
  EXPECT_EQ(show([this] {
              openPasswordDialog();
              type(kStored);
              press(VK_TAB);
              type(kTyped);
              press(VK_TAB);
              type(kTyped);
              press(VK_RETURN);
              waitFor(L"Options");
              press(VK_ESCAPE);
            }),
            S_OK);
  EXPECT_TRUE(isStored(kStored));
}

TEST_F(PasswordsInProcessTest, NothingIsLeftOrRevealedWhenTheHostFails) {
  for (const std::string call : {"put PasswordAdminOptions", "commit"}) {
    host.failingCall = call;
    EXPECT_EQ(show([this] {
                openPasswordDialog();
                type(kStored);
                press(VK_TAB);
                type(kTyped);
                press(VK_TAB);
                type(kTyped);
                press(VK_RETURN);
                waitFor(L"Options");
                DialogPerson::press('A', true);
              }),
              FakeHost::failure().number());
    win32::ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
    win32::Bstr description;
    info->GetDescription(description.out());
    EXPECT_EQ(description.text(), FakeHost::failure().description());
  }
}

}  // namespace
}  // namespace tillora::testing
