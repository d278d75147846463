// The reference host as another program sees it: its window, and the start-up entry that leads to
// it.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/automation/program_objects.h"
#include "host/shop.h"
#include "identity/start_up_entry.h"
#include "tests/component/automation/options_fixture.h"
#include "tests/testing/win32/child_program.h"
#include "tests/testing/win32/other_program.h"

namespace tillora::testing {
namespace {

constexpr const wchar_t* kTitle = L"Tillora Administrator";
constexpr DWORD kPatience = 60000;

/// Reads the texts of a list view of another program, through memory in that program.
class ListOfOtherProgram {
 public:
  ListOfOtherProgram(HANDLE process, HWND list) : process_(process), list_(list) {
    remote_ = VirtualAllocEx(process, nullptr, sizeof(Exchange), MEM_COMMIT, PAGE_READWRITE);
    if (remote_ == nullptr) throw std::runtime_error("VirtualAllocEx");
  }
  ~ListOfOtherProgram() { VirtualFreeEx(process_, remote_, 0, MEM_RELEASE); }
  ListOfOtherProgram(const ListOfOtherProgram&) = delete;
  ListOfOtherProgram& operator=(const ListOfOtherProgram&) = delete;

  int count() const { return static_cast<int>(SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0)); }
  std::wstring text(int row, int column) const {
    Exchange exchange{};
    exchange.item.iSubItem = column;
    exchange.item.pszText =
        reinterpret_cast<wchar_t*>(static_cast<std::byte*>(remote_) + offsetof(Exchange, text));
    exchange.item.cchTextMax = static_cast<int>(exchange.text.size());
    WriteProcessMemory(process_, remote_, &exchange, sizeof exchange, nullptr);
    SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(remote_));
    ReadProcessMemory(process_, remote_, &exchange, sizeof exchange, nullptr);
    return exchange.text.data();
  }
  std::vector<std::wstring> row(const std::wstring& name) const {
    for (int index = 0; index < count(); ++index) {
      if (text(index, 1) == name) {
        return {text(index, 0), text(index, 1), text(index, 2), text(index, 3)};
      }
    }
    return {};
  }

 private:
  struct Exchange {
    LVITEMW item;
    std::array<wchar_t, 512> text;
  };

  HANDLE process_;
  HWND list_;
  void* remote_;
};

class AdministratorTest : public ::testing::Test {
 protected:
  AdministratorTest()
      : folder_(std::filesystem::temp_directory_path() /
                ("administrator-" + std::to_string(GetCurrentProcessId()))) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    program_.emplace(quoted(programFolder() / (std::wstring(kTitle) + L".exe")) + L" --database " +
                         quoted(folder_ / L"shop.db"),
                     folder_ / L"printed.txt");
    drive(std::wstring(L"wait \"") + kTitle + L"\" 60");
    window_ = FindWindowW(L"TilloraAdministrator", nullptr);
    options_ = GetDlgItem(window_, 300);
    events_ = GetDlgItem(window_, 301);
    waitUntil([this] { return SendMessageW(events_, LVM_GETITEMCOUNT, 0, 0) > 0; });
  }
  ~AdministratorTest() override {
    TerminateProcess(program_->process(), 9);
    WaitForSingleObject(program_->process(), kPatience);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  void drive(const std::wstring& commands) const { testing::drive(*program_, commands); }
  template <class Condition>
  static bool waitUntil(Condition&& condition) {
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (!condition()) {
      if (GetTickCount64() > end) return false;
      Sleep(20);
    }
    return true;
  }
  HWND focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
    return info.hwndFocus;
  }
  HWND button() const { return FindWindowExW(window_, nullptr, L"Button", nullptr); }
  std::wstring labelOfOptions() const {
    std::array<wchar_t, 100> text{};
    SendMessageW(FindWindowExW(window_, nullptr, L"Static", nullptr), WM_GETTEXT, text.size(),
                 reinterpret_cast<LPARAM>(text.data()));
    return text.data();
  }
  ListOfOtherProgram list(HWND window) const { return {program_->process(), window}; }
  RECT inWindow(HWND control) const {
    RECT bounds;
    GetWindowRect(control, &bounds);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
  }

  std::filesystem::path folder_;
  std::optional<ChildProgram> program_;
  HWND window_ = nullptr;
  HWND options_ = nullptr;
  HWND events_ = nullptr;
};

TEST_F(AdministratorTest, ShowsTheStoredOptionsAndNoPassword) {
  const auto stored = list(options_);
  using Row = std::vector<std::wstring>;
  EXPECT_EQ(stored.count(), static_cast<int>(kOptionTable.size()));
  EXPECT_EQ(stored.row(L"CompanyName"),
            (Row{L"General", L"CompanyName", L"Harbour Street Pharmacy & Fuel", L""}));
  EXPECT_EQ(stored.row(L"RoundingStep"), (Row{L"Rounding", L"RoundingStep", L"0.0500", L""}));
  EXPECT_EQ(stored.row(L"PasswordChangePrices"),
            (Row{L"Security", L"PasswordChangePrices", L"(set)", L""}));
  EXPECT_EQ(stored.row(L"PasswordStartAdmin"),
            (Row{L"Security", L"PasswordStartAdmin", L"(not set)", L""}));
  EXPECT_NE(list(events_).text(0, 1).find(L"Opened "), std::wstring::npos);
}

TEST_F(AdministratorTest, AnApplyShowsWhatItChangedWhileTheDialogIsStillOpen) {
  EXPECT_EQ(focus(), button());
  drive(L"key ENTER -- wait Options 60 -- key CTRL+A -- type \"Corner Shop\" -- key ALT+A");
  const auto stored = list(options_);
  ASSERT_TRUE(waitUntil([&] { return stored.row(L"CompanyName")[2] == L"Corner Shop"; }));
  EXPECT_EQ(stored.row(L"CompanyName")[3], L"Harbour Street Pharmacy & Fuel");
  for (int row = 0; row < stored.count(); ++row) {
    if (stored.text(row, 1) == L"CompanyName") continue;
    EXPECT_EQ(stored.text(row, 3), L"") << row;
  }
  EXPECT_EQ(labelOfOptions(), L"&Stored options (1 changed by the last save)");
  EXPECT_FALSE(IsWindowEnabled(window_));

  drive(L"key ESC -- gone Options 60");
  const auto events = list(events_);
  ASSERT_TRUE(waitUntil([&] { return events.count() == 3; }));
  EXPECT_NE(events.text(1, 1).find(L"OptionsChanged 0x00000000"), std::wstring::npos);
  EXPECT_EQ(events.text(2, 1), L"Options closed; ChangedDataFile is False");
  EXPECT_EQ(stored.row(L"CompanyName")[3], L"Harbour Street Pharmacy & Fuel") << "the mark stays";
  PostMessageW(window_, WM_CLOSE, 0, 0);
  EXPECT_EQ(program_->wait(kPatience), 0U);
}

TEST_F(AdministratorTest, AChangeByAnotherProgramIsShownWhenItIsAnnounced) {
  {
    const host::Shop other = host::Shop::open((folder_ / L"shop.db").u16string());
    const auto record = other.database()->optionsRecord();
    record->set(options::CompanyFax, u"(02) 5550 0199");
    record->commit();
  }
  PostMessageW(window_, RegisterWindowMessageW(L"TilloraOptionsSaved"), 0, 0);
  const auto stored = list(options_);
  EXPECT_TRUE(waitUntil([&] { return stored.row(L"CompanyFax")[2] == L"(02) 5550 0199"; }));
  EXPECT_EQ(stored.row(L"CompanyFax")[3], L"(02) 5550 0143");
}

TEST_F(AdministratorTest, EveryControlIsReachedByTheKeyboard) {
  ASSERT_EQ(focus(), button());
  drive(L"key TAB");
  EXPECT_TRUE(waitUntil([this] { return focus() == options_; }));
  drive(L"key TAB");
  EXPECT_TRUE(waitUntil([this] { return focus() == events_; }));
  drive(L"key TAB");
  EXPECT_TRUE(waitUntil([this] { return focus() == button(); }));
  drive(L"key ALT+W");
  EXPECT_TRUE(waitUntil([this] { return focus() == events_; }));
  drive(L"key ALT+S");
  EXPECT_TRUE(waitUntil([this] { return focus() == options_; }));
  drive(L"key ALT+O -- wait Options 60 -- key ESC -- gone Options 60");
  drive(std::wstring(L"wait \"") + kTitle + L"\" 60 -- key CTRL+O -- wait Options 60 -- key ESC");
  drive(L"gone Options 60");
}

TEST_F(AdministratorTest, ControlsFollowTheWindowsSizeAndDoNotOverlap) {
  for (const SIZE size : {SIZE{1100, 800}, SIZE{10, 10}}) {
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER);
    RECT client;
    GetClientRect(window_, &client);
    const RECT options = inWindow(options_);
    const RECT events = inWindow(events_);
    const RECT top = inWindow(button());
    EXPECT_GE(options.top, top.bottom);
    EXPECT_GT(events.top, options.bottom);
    EXPECT_LT(events.bottom, client.bottom);
    for (const RECT& bounds : {options, events}) {
      EXPECT_GT(bounds.bottom - bounds.top, 40) << "a few rows can be seen at any size";
      EXPECT_GE(bounds.left, 0);
      EXPECT_LE(bounds.right, client.right);
      EXPECT_GE(bounds.right, client.right - 20) << "lists fill the width";
    }
  }
}

class AdministratorStartUp : public automation::OptionsObjectTest {};

TEST_F(AdministratorStartUp, TheEntryThatTheDialogWritesLeadsToTheProgram) {
  giveHost();
  const auto app = win32::ComPtr<IDispatch>::adopt(new host::automation::AppObject);
  ASSERT_EQ(object->putref_AppObject(app.get()), S_OK);
  whileOpen([&](frmOptions& dialog) {
    desk.user().click(dialog.tabs().startUpEntry.chkShortcut);
    desk.user().accessKey(u'o');
  });
  client->call(u"ShowOptions");
  ASSERT_EQ(machine.registry.values.size(), 1U);
  const Text data = machine.registry.values.front().second;
  ASSERT_GT(data.size(), 2U);
  const std::filesystem::path program(data.substr(1, data.size() - 2));
  EXPECT_TRUE(std::filesystem::exists(program)) << program.string();
}

}  // namespace
}  // namespace tillora::testing
