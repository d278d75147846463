#include <gtest/gtest.h>

#include <windows.h>

#include <dlgs.h>
#include <sddl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "base/error.h"
#include "com/wide_text.h"
#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "platform/file_system.h"
#include "platform/user_registry.h"
#include "tests/testing/random_choices.h"
#include "tests/testing/win32/dialog_person.h"

namespace tillora::win32 {
namespace {

namespace fs = std::filesystem;
using testing::DialogPerson;

/// A folder with letters of several scripts in its name.
class MachineTest : public ::testing::Test {
 protected:
  MachineTest() { fs::create_directories(folder); }
  ~MachineTest() override {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  void write(const fs::path& name, const std::string& content = {}) const {
    std::ofstream(folder / name, std::ios::binary) << content;
  }
  Text path(const fs::path& name) const { return (folder / name).u16string(); }
  int count(const fs::path& pattern) { return countPath(path(pattern)); }
  int countPath(const Text& pattern) {
    const auto listing = files.list(pattern);
    if (!listing) return -1;
    int found = 0;
    while (listing->next()) ++found;
    return found;
  }

  fs::path folder = fs::temp_directory_path() /
                    u"Tillora \u0394\u03BF\u03BA\u03B9\u03BC\u03AE \u6771" /
                    std::to_wstring(GetCurrentProcessId());
  FileSystem files;
};

TEST_F(MachineTest, ListsNormalFilesThatMatch) {
  write("LVPst1.pos");
  write("lvpst2.POS");
  write("LVPst.pos");
  EXPECT_EQ(count("LVPst*.pos"), 3);
  write("LVPst3.pos1");
  write("LVPst4.txt");
  write("Pst5.pos");
  EXPECT_EQ(count("LVPst*.pos"), 3);
  fs::create_directory(folder / "LVPstFolder.pos");
  write("LVPstHidden.pos");
  SetFileAttributesW((folder / "LVPstHidden.pos").c_str(), FILE_ATTRIBUTE_HIDDEN);
  write("LVPstReadOnly.pos");
  SetFileAttributesW((folder / "LVPstReadOnly.pos").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(count("LVPst*.pos"), 4);
  SetFileAttributesW((folder / "LVPstReadOnly.pos").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(MachineTest, AFolderMayEndWithASlashOrAColon) {
  write("LVPst1.pos");
  Text slashes = path("LVPst*.pos");
  std::ranges::replace(slashes, u'\\', u'/');
  EXPECT_EQ(countPath(slashes), 1);

  // C:file is in the present folder of that drive.
  const fs::path before = fs::current_path();
  fs::current_path(folder);
  const Text drive = fromWide(folder.root_name().c_str());
  EXPECT_EQ(countPath(drive + u"LVPst*.pos"), 1);
  fs::current_path(before);
}

TEST_F(MachineTest, AListingThatCannotBeStartedIsNone) {
  EXPECT_EQ(files.list(path("no such folder/LVPst*.pos")), nullptr);
  EXPECT_EQ(files.list(u""), nullptr);
}

TEST_F(MachineTest, ReadsAValueOfAFileInAFolderOfAnyName) {
  write(u"\u0421\u0430\u0439\u0442.url",
        "[InternetShortcut]\r\nURL=https://shop.example/?a=1;b|'c\r\nIconIndex=0\r\n");
  EXPECT_EQ(files.profileValue(path(u"\u0421\u0430\u0439\u0442.url"), u"InternetShortcut", u"URL"),
            u"https://shop.example/?a=1;b|'c");
  EXPECT_EQ(files.profileValue(path(u"\u0421\u0430\u0439\u0442.url"), u"internetshortcut", u"url"),
            u"https://shop.example/?a=1;b|'c");
}

TEST_F(MachineTest, AMissingValueSectionOrFileIsEmpty) {
  write("empty.url",
        "[InternetShortcut]\r\nIconIndex=0\r\n[Other]\r\nURL=https://other.example\r\n");
  EXPECT_EQ(files.profileValue(path("empty.url"), u"InternetShortcut", u"URL"), u"");
  EXPECT_EQ(files.profileValue(path("empty.url"), u"Nothing", u"URL"), u"");
  EXPECT_EQ(files.profileValue(path("missing.url"), u"InternetShortcut", u"URL"), u"");
}

TEST_F(MachineTest, LongValuesAreReadWhole) {
  for (const std::size_t length : {2046U, 2047U, 2048U, 9000U}) {
    const std::string url = "https://shop.example/" + std::string(length - 21, 'x');
    const std::string name = std::to_string(length) + ".url";
    write(name, "[InternetShortcut]\r\nURL=" + url + "\r\n");
    const Text read = files.profileValue(path(name), u"InternetShortcut", u"URL");
    EXPECT_EQ(read.size(), length);
    EXPECT_EQ(read, Text(url.begin(), url.end()));
  }
}

/// A shortcut file, whole or damaged, with values of any length.
std::string anyShortcut(testing::RandomChoices& choices) {
  constexpr std::array<std::string_view, 22> kParts = {"[InternetShortcut]",
                                                       "[Other]",
                                                       "[",
                                                       "]",
                                                       "URL=",
                                                       "URL",
                                                       "=",
                                                       "\r\n",
                                                       "\n",
                                                       "\r",
                                                       ";",
                                                       "\"",
                                                       "'",
                                                       " ",
                                                       "\t",
                                                       "https://shop.example/?a=1",
                                                       "%20",
                                                       "\xE9",
                                                       "\xEF\xBB\xBF",
                                                       "\xFF\xFE",
                                                       "\x1A",
                                                       std::string_view("\0", 1)};
  std::string content = choices.chance(10) ? "\xFF\xFE" : "";
  if (choices.chance(70)) content += "[InternetShortcut]\r\nURL=";
  if (choices.chance(40)) content.append(static_cast<std::size_t>(choices.below(9000)), 'x');
  for (int parts = choices.below(16); parts > 0; --parts) content += choices.oneOf(kParts);
  return content;
}

TEST_F(MachineTest, AnyShortcutFileIsReadAsThePlatformReadsIt) {
  const int wanted = testing::isLongRun() ? 100000 : 100;
  testing::RandomChoices choices;
  if (testing::isLongRun()) std::printf("seed %u\n", choices.seed());
  std::string room(1 << 20, '\0');
  std::array<char, MAX_PATH> name{};
  int found = 0;
  for (int number = 0; number < wanted; ++number) {
    const std::string content = anyShortcut(choices);
    // The platform may remember a file that it has read.
    const std::string file = std::to_string(number) + ".url";
    write(file, content);
    std::array<wchar_t, MAX_PATH> shortPath{};
    GetShortPathNameW((folder / file).c_str(), shortPath.data(), MAX_PATH);
    WideCharToMultiByte(CP_ACP, 0, shortPath.data(), -1, name.data(), MAX_PATH, nullptr, nullptr);
    const DWORD length = GetPrivateProfileStringA("InternetShortcut", "URL", "", room.data(),
                                                  static_cast<DWORD>(room.size()), name.data());
    ASSERT_EQ(files.profileValue(path(file), u"InternetShortcut", u"URL"),
              fromCodePage(GetACP(), room.substr(0, length)))
        << "seed " << choices.seed() << ", file " << number << ": "
        << ::testing::PrintToString(content);
    if (length > 0) ++found;
    fs::remove(folder / file);
  }
  EXPECT_GT(found, wanted / 4);
  EXPECT_LT(found, wanted);
}

TEST(CodePage, ReportsCharactersThatItLacks) {
  const Text text = u"Caf\u00E9 \u20AC";
  bool lossless = false;
  EXPECT_EQ(toCodePage(1252, text, lossless), "Caf\xE9 \x80");
  EXPECT_TRUE(lossless);
  EXPECT_EQ(fromCodePage(1252, "Caf\xE9 \x80"), text);
  EXPECT_EQ(toCodePage(1252, u"a\u6771", lossless), "a?");
  EXPECT_FALSE(lossless);
  EXPECT_EQ(toCodePage(1252, u"", lossless), "");
  EXPECT_TRUE(lossless);
}

TEST(CodePage, Utf8HoldsEverything) {
  const Text text = u"Caf\u00E9 \u6771 \U0001F600";
  bool lossless = false;
  const std::string converted = toCodePage(CP_UTF8, text, lossless);
  EXPECT_EQ(converted, "Caf\xC3\xA9 \xE6\x9D\xB1 \xF0\x9F\x98\x80");
  EXPECT_TRUE(lossless);
  EXPECT_EQ(fromCodePage(CP_UTF8, converted), text);
}

class UserRegistryTest : public ::testing::Test {
 protected:
  static constexpr const char16_t* kKey = u"Software\\TilloraOptionsTest\\Run";
  UserRegistryTest() {
    HKEY created = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, wide(kKey), 0, nullptr, 0, KEY_WRITE, nullptr, &created,
                    nullptr);
    RegCloseKey(created);
  }
  ~UserRegistryTest() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\TilloraOptionsTest");
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\TilloraOptionsTest");
  }

  static std::wstring stored(const wchar_t* name, DWORD& type) {
    wchar_t data[600] = {};
    DWORD size = sizeof data;
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, wide(kKey), name, RRF_RT_ANY, &type, data, &size);
    return status == ERROR_SUCCESS ? data : L"<none>";
  }
  /// Gives the key these rights, as a security descriptor's text.
  static void allow(const wchar_t* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, wide(kKey), 0, WRITE_DAC, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    RegCloseKey(key);
    LocalFree(descriptor);
  }
  UserRegistry registry;
};

TEST_F(UserRegistryTest, WritesReplacesAndRemovesTextValues) {
  const auto key = registry.open(kKey, Registry::Access::write);
  EXPECT_TRUE(key->valueNames().empty());
  key->writeText(u"Tillora Administrator", u"\"C:\\Old.exe\"");
  key->writeText(u"Tillora Administrator", u"\"C:\\Tillora \u0394\\Tillora Administrator.exe\"");
  DWORD type = 0;
  EXPECT_EQ(stored(L"Tillora Administrator", type),
            L"\"C:\\Tillora \u0394\\Tillora Administrator.exe\"");
  EXPECT_EQ(type, DWORD{REG_SZ});
  key->writeText(u"Other", u"");
  std::vector<Text> names = key->valueNames();
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<Text>{u"Other", u"Tillora Administrator"}));
  key->removeValue(u"Tillora Administrator");
  EXPECT_EQ(registry.open(kKey, Registry::Access::read)->valueNames(), std::vector<Text>{u"Other"});
}

TEST_F(UserRegistryTest, AKeyThatIsOpenedForReadingIsOnlyRead) {
  registry.open(kKey, Registry::Access::write)->writeText(u"Tillora", u"x");
  const auto key = registry.open(kKey, Registry::Access::read);
  EXPECT_EQ(key->valueNames(), std::vector<Text>{u"Tillora"});
  EXPECT_THROW(key->writeText(u"Tillora", u"y"), Error);
  EXPECT_THROW(key->removeValue(u"Tillora"), Error);
  DWORD type = 0;
  EXPECT_EQ(stored(L"Tillora", type), L"x");
}

TEST_F(UserRegistryTest, AKeyThatTheUserMayOnlyReadIsRead) {
  registry.open(kKey, Registry::Access::write)->writeText(u"Tillora", u"x");
  allow(L"D:P(A;;KRSD;;;WD)");
  EXPECT_EQ(registry.open(kKey, Registry::Access::read)->valueNames(),
            std::vector<Text>{u"Tillora"});
  EXPECT_THROW(registry.open(kKey, Registry::Access::write), Error);
  allow(L"D:P(A;;KA;;;WD)");
}

TEST_F(UserRegistryTest, AnOperationThatCannotBeDoneIsAnError) {
  EXPECT_THROW(registry.open(u"Software\\TilloraOptionsTest\\Missing", Registry::Access::write),
               Error);
  const auto key = registry.open(kKey, Registry::Access::write);
  EXPECT_THROW(key->removeValue(u"Missing"), Error);
}

/// Chooses a file in a file dialog, or none.
void answer(HWND dialog, const fs::path& file) {
  if (!file.empty()) {
    const std::wstring name = file.wstring();
    for (const int box : {cmb13, edt1}) {
      const HWND edit = GetDlgItem(dialog, box);
      if (edit) SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
  }
  PostMessageW(dialog, WM_COMMAND, file.empty() ? IDCANCEL : IDOK, 0);
}

TEST_F(MachineTest, AFileDialogAsksForExistingFilesAndFollowsShortcutsUnlessTheyAreWanted) {
  OPENFILENAMEW asked{};
  std::wstring filters;
  std::wstring title;
  SystemFileDialogs dialogs(nullptr, [&](OPENFILENAMEW* dialog) -> BOOL {
    asked = *dialog;
    const wchar_t* end = dialog->lpstrFilter;
    while (*end != L'\0' || end[1] != L'\0') ++end;
    filters.assign(dialog->lpstrFilter, end + 2);
    title = dialog->lpstrTitle;
    std::wcscpy(dialog->lpstrFile, L"C:\\Links\\News.url");
    return TRUE;
  });
  constexpr DWORD kAlways =
      OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  FileRequest request{.title = u"Select", .filter = u"Shortcut (*.URL)", .pattern = u"*.URL"};
  EXPECT_EQ(dialogs.open(request), u"C:\\Links\\News.url");
  EXPECT_EQ(asked.Flags, kAlways);
  EXPECT_EQ(filters, std::wstring(L"Shortcut (*.URL)\0*.URL\0\0", 24));
  EXPECT_EQ(title, L"Select");
  request.keepsShortcuts = true;
  dialogs.open(request);
  EXPECT_EQ(asked.Flags, kAlways | OFN_NODEREFERENCELINKS);
}

TEST_F(MachineTest, AShortcutThatWasChosenIsGivenItself) {
  write("news.url", "[InternetShortcut]\r\nURL=https://news.example/?a=1\r\n");
  SystemFileDialogs dialogs(nullptr);
  DialogPerson person([&](HWND dialog) { answer(dialog, folder / "news.url"); });
  const std::optional<Text> chosen = dialogs.open({.title = u"Choose a shortcut.",
                                                   .filter = u"Shortcut (*.URL)",
                                                   .pattern = u"*.URL",
                                                   .keepsShortcuts = true});
  ASSERT_EQ(chosen, path("news.url"));
  EXPECT_EQ(files.profileValue(*chosen, u"InternetShortcut", u"URL"), u"https://news.example/?a=1");
}

TEST_F(MachineTest, TheFileThatWasChosenIsGivenWithItsPath) {
  write("chosen.url");
  SystemFileDialogs dialogs(nullptr);
  wchar_t before[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, before);
  DialogPerson person([&](HWND dialog) { answer(dialog, folder / "chosen.url"); });
  EXPECT_EQ(dialogs.open(
                {.title = u"Choose the file.", .filter = u"Shortcut (*.URL)", .pattern = u"*.URL"}),
            path("chosen.url"));
  wchar_t after[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(before, after);
}

TEST_F(MachineTest, ACancelledFileDialogGivesNone) {
  SystemFileDialogs dialogs(nullptr);
  DialogPerson person([](HWND dialog) { answer(dialog, {}); });
  EXPECT_EQ(dialogs.open({.title = u"Choose nothing.", .filter = u"All files", .pattern = u"*.*"}),
            std::nullopt);
}

}  // namespace
}  // namespace tillora::win32
