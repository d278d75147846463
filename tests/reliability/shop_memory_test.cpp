// Memory runs out at every allocation of the shop, SQLite's included.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sqlite3.h>

#include <cstdlib>
#include <new>

#include "tests/reliability/memory_disk.h"
#include "tests/reliability/memory_walk.h"
#include "tests/reliability/shop_work.h"

namespace tillora::testing {
namespace {

/// During its lifetime SQLite's memory runs out with the program's.
class FailingSqlite {
 public:
  FailingSqlite() {
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &usual_);
    sqlite3_mem_methods methods = {&allocate, &std::free, &reallocate, &sizeOf,
                                   &rounded,  &start,     &stop,       nullptr};
    sqlite3_config(SQLITE_CONFIG_MALLOC, &methods);
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);  // a store of small blocks, which never runs out
    sqlite3_initialize();
  }
  ~FailingSqlite() {
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_MALLOC, &usual_);
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 1200, 40);
    sqlite3_initialize();
  }
  FailingSqlite(const FailingSqlite&) = delete;
  FailingSqlite& operator=(const FailingSqlite&) = delete;

 private:
  static void* allocate(int size) {
    return FailingMemory::failsNext() ? nullptr : std::malloc(static_cast<std::size_t>(size));
  }
  static void* reallocate(void* block, int size) {
    return FailingMemory::failsNext() ? nullptr
                                      : std::realloc(block, static_cast<std::size_t>(size));
  }
  static int sizeOf(void* block) {
    return block == nullptr ? 0 : static_cast<int>(malloc_usable_size(block));
  }
  static int rounded(int size) { return (size + 7) / 8 * 8; }
  static int start(void*) { return SQLITE_OK; }
  static void stop(void*) {}

  sqlite3_mem_methods usual_{};
};

class FailingMemoryOfShopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    {
      const host::Shop shop = openShop({.seeded = true, .itemCount = 60});
      save(shop, 1);
    }
    made_ = disk.files();
  }

  /// @param act may fail with std::bad_alloc only
  /// @param check looks at what is left; `done` says whether the act succeeded
  template <class Act, class Check>
  void walk(const std::map<std::string, MemoryDisk::Bytes>& files, Act act, Check check) {
    const auto run = [&](long number, FailingMemory::Mode mode) {
      disk.setFiles(files);
      const long blocks = FailingMemory::blocks();
      bool done = true;
      long allocations = 0;
      {
        const FailingMemory memory(number, mode);
        try {
          act();
        } catch (const std::bad_alloc&) {
          done = false;
        }
        allocations = memory.allocations();
      }
      disk.endProgram();
      check(done);
      disk.setFiles(files);
      EXPECT_EQ(FailingMemory::blocks(), blocks) << "memory is still held";
      return allocations;
    };
    run(FailingMemory::kNever, FailingMemory::Mode::once);
    EXPECT_GT(walkAllocations(40, run), 40);
  }

  FailingSqlite sqlite;
  MemoryDisk disk;
  std::map<std::string, MemoryDisk::Bytes> made_;
};

TEST_F(FailingMemoryOfShopTest, OpeningAndReading) {
  const std::string read = readAll(openShop());
  walk(
      made_, [&] { EXPECT_EQ(readAll(openShop()), read); },
      [&](bool) { EXPECT_EQ(readAll(openShop()), read); });
}

TEST_F(FailingMemoryOfShopTest, ASaveIsStoredWholeOrNotAtAll) {
  walk(
      made_, [] { save(openShop(), 2); },
      [](bool done) {
        const host::Shop shop = openShop();
        EXPECT_TRUE(holdsSave(shop, 2) || (!done && holdsSave(shop, 1)));
        save(shop, 3);
        EXPECT_TRUE(holdsSave(shop, 3));
      });
}

TEST_F(FailingMemoryOfShopTest, ASaveThatFailedIsUndoneAndCanBeMadeAgainOverTheSameConnection) {
  const auto run = [&](long number, FailingMemory::Mode mode) {
    disk.setFiles(made_);
    bool done = true;
    long allocations = 0;
    {
      const host::Shop shop = openShop();
      {
        const FailingMemory memory(number, mode);
        try {
          save(shop, 2);
        } catch (const std::bad_alloc&) {
          done = false;
        }
        allocations = memory.allocations();
      }
      EXPECT_TRUE(holdsSave(shop, 2) || (!done && holdsSave(shop, 1)));
      save(shop, 3);
      EXPECT_TRUE(holdsSave(shop, 3));
    }
    EXPECT_TRUE(holdsSave(openShop(), 3));
    return allocations;
  };
  EXPECT_GT(walkAllocations(40, run), 40);
}

TEST_F(FailingMemoryOfShopTest, AShopIsMadeWholeOrMadeByTheNextOpening) {
  const auto make = [] { return openShop({.seeded = true, .itemCount = 20}); };
  disk.setFiles({});
  const std::string whole = contentsOf(make());
  walk({}, make, [&](bool) { EXPECT_EQ(contentsOf(make()), whole); });
}

TEST_F(FailingMemoryOfShopTest, AFailedRollbackIsNotForgotten) {
  {
    const host::Shop shop = openShop();
    auto record = shop.database()->optionsRecord();
    record->set(options::CompanyName, Text(u"Half a save"));
    {
      const FailingMemory memory(0, FailingMemory::Mode::fromThenOn);
      record.reset();
    }
    EXPECT_EQ(shop.database()->optionsRecord()->get(options::CompanyName), u"Shop 1");
    save(shop, 2);
  }
  EXPECT_TRUE(holdsSave(openShop(), 2));
}

}  // namespace
}  // namespace tillora::testing
