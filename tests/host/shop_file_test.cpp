#include "host/shop_file.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <thread>

#include "host/shop_error.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

class ShopFileTest : public ShopFixture {
 protected:
  void overwrite(std::streamoff at, const std::string& bytes) const {
    std::fstream stream(file(), std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(at);
    stream << bytes;
    ASSERT_TRUE(stream.good());
  }
};

TEST_F(ShopFileTest, AFileThatIsNotADatabaseIsDamaged) {
  std::ofstream(file()) << std::string(5000, 'x');
  const Error error = errorOf([&] { open(); });
  EXPECT_EQ(error.number(), shop_error::damaged);
  EXPECT_EQ(error.source(), u"TilloraHost.JetDatabase");
  EXPECT_NE(error.description().find(u"shop.db"), Text::npos);
  EXPECT_NE(error.description().find(u"is damaged. Restore it from a backup"), Text::npos);
}

TEST_F(ShopFileTest, DamageInAnyPageIsFoundOnOpening) {
  open().close();
  const auto size = static_cast<std::streamoff>(std::filesystem::file_size(file()));
  ASSERT_GT(size, 8192);
  overwrite(12288, std::string(4096, '\x5A'));
  EXPECT_EQ(errorOf([&] { open(); }).number(), shop_error::damaged);
}

TEST_F(ShopFileTest, ATruncatedFileIsDamaged) {
  open().close();
  std::filesystem::resize_file(file(), 16384);
  EXPECT_EQ(errorOf([&] { open(); }).number(), shop_error::damaged);
}

TEST_F(ShopFileTest, AnEmptyFileIsANewShop) {
  std::ofstream(file()).close();
  Shop shop = open();
  EXPECT_NE(shop.database()->optionsRecord()->read(OptionId::CompanyName), Value());
}

TEST_F(ShopFileTest, SaysWhatToDoAboutAPathThatCannotBeOpened) {
  for (const char* name : {"no-such-folder/shop.db", "."}) {
    const Error error = errorOf([&] { open({}, name); });
    EXPECT_EQ(error.number(), shop_error::cannotOpen) << name;
    EXPECT_NE(error.description().find(u"Check that its folder exists"), Text::npos);
  }
  EXPECT_EQ(errorOf([&] { Shop::open(u""); }).number(), shop_error::cannotOpen);
}

TEST_F(ShopFileTest, LeavesAnotherProgramsDatabaseAlone) {
  {
    const auto other = ShopFile::open(fromUtf8(file().string()));
    other->execute("CREATE TABLE mine (x)", u"Test");
  }
  EXPECT_EQ(errorOf([&] { open(); }).number(), shop_error::wrongVersion);
}

TEST_F(ShopFileTest, RefusesANewerLayout) {
  open().file().execute("PRAGMA user_version = 2", u"Test");
  const Error error = errorOf([&] { open(); });
  EXPECT_EQ(error.number(), shop_error::wrongVersion);
  EXPECT_NE(error.description().find(u"newer version"), Text::npos);
}

TEST_F(ShopFileTest, ALockedFileIsReportedAfterWaiting) {
  open().close();
  const auto holder = ShopFile::open(fromUtf8(file().string()));
  holder->execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE", u"Test");
  holder->execute("COMMIT", u"Test");
  const auto start = std::chrono::steady_clock::now();
  const Error error = errorOf([&] { open().settings()->setSetting(u"X", u"1"); });
  EXPECT_EQ(error.number(), shop_error::locked);
  EXPECT_GE(std::chrono::steady_clock::now() - start, kPatience / 2);
}

TEST_F(ShopFileTest, WaitsForAProgramThatReadsAFileNotYetWrittenAhead) {
  const std::string path = file().string();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  const auto run = [other](const char* sql) {
    return sqlite3_exec(other, sql, nullptr, nullptr, nullptr);
  };
  ASSERT_EQ(run("PRAGMA user_version = 0; BEGIN; SELECT count(*) FROM sqlite_schema"), SQLITE_OK);
  std::jthread reader([&run] {
    std::this_thread::sleep_for(kPatience / 4);
    run("COMMIT");
  });
  const std::shared_ptr<ShopFile> opened = ShopFile::open(fromUtf8(path), 100 * kPatience);
  reader.join();
  sqlite3_close(other);
  Statement journal = opened->statement("PRAGMA journal_mode", u"Test");
  ASSERT_TRUE(journal.step());
  EXPECT_EQ(journal.text(0), u"wal");
}

TEST_F(ShopFileTest, TheFileTellsWhoseItIs) {
  open().close();
  constexpr std::streamoff kApplicationIdInHeader = 68;
  std::ifstream stream(file(), std::ios::binary);
  stream.seekg(kApplicationIdInHeader);
  std::string id(4, '\0');
  stream.read(id.data(), static_cast<std::streamsize>(id.size()));
  EXPECT_EQ(id, "Till");
}

TEST_F(ShopFileTest, IsSafeAgainstPowerCuts) {
  Shop shop = open();
  Statement journal = shop.file().statement("PRAGMA journal_mode", u"Test");
  ASSERT_TRUE(journal.step());
  EXPECT_EQ(journal.text(0), u"wal");
  Statement synchronous = shop.file().statement("PRAGMA synchronous", u"Test");
  ASSERT_TRUE(synchronous.step());
  EXPECT_EQ(synchronous.integer(0), 2);
}

TEST_F(ShopFileTest, ObjectsOfAClosedShopFail) {
  Shop shop = open();
  const auto classes = shop.database()->classTable();
  const auto items = shop.database()->itemList();
  auto saving = shop.database()->optionsRecord();
  saving->write(OptionId::CompanyName, Text(u"new"));
  shop.close();
  shop.close();
  EXPECT_EQ(errorOf([&] { classes->moveNext(); }).number(), shop_error::shopClosed);
  EXPECT_EQ(errorOf([&] { items->moveFirst(); }).number(), shop_error::shopClosed);
  EXPECT_EQ(errorOf([&] { saving->commit(); }).number(), shop_error::shopClosed);
  EXPECT_EQ(errorOf([&] { shop.settings()->currencyFormat(); }).number(), shop_error::shopClosed);
  saving.reset();
  EXPECT_NE(open().database()->optionsRecord()->read(OptionId::CompanyName), Value(Text(u"new")));
}

TEST_F(ShopFileTest, ProgramsThatStartAtOnceMakeTheShopOnce) {
  const Text path = fromUtf8(file().string());
  std::vector<std::thread> programs;
  std::vector<std::string> dumps(4);
  for (std::string& dump : dumps) {
    programs.emplace_back([&path, &dump] {
      std::ostringstream out;
      try {
        Shop::open(path, {}, std::chrono::seconds(20)).dump(out);
      } catch (const Error& error) {
        out << error.what();
      }
      dump = out.str();
    });
  }
  for (std::thread& program : programs) program.join();
  EXPECT_NE(dumps[0].find("Harbour Street"), std::string::npos) << dumps[0];
  for (const std::string& dump : dumps) EXPECT_EQ(dump, dumps[0]);
}

TEST_F(ShopFileTest, OpensPathsInAnyScript) {
  Shop shop = open({}, "\xE5\xBA\x97 caf\xC3\xA9 %20#?.db");
  EXPECT_TRUE(std::filesystem::exists(file("\xE5\xBA\x97 caf\xC3\xA9 %20#?.db")));
}

TEST_F(ShopFileTest, ForgetsStatementsOfManyShapes) {
  Shop shop = open();
  for (int i = 0; i < 1000; ++i) {
    const std::string sql = "SELECT " + std::to_string(i);
    Statement number = shop.file().statement(sql, u"Test");
    ASSERT_TRUE(number.step());
    ASSERT_EQ(number.integer(0), i);
  }
}

}  // namespace
}  // namespace tillora::host
