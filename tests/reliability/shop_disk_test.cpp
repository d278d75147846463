// The disk of the shop fails, fills up, tears a write or stops with the machine, at every
// operation: the shop holds the old state or the new one, and can be saved again.
#include <gtest/gtest.h>

#include <iostream>
#include <new>

#include "host/shop_error.h"
#include "tests/reliability/memory_disk.h"
#include "tests/reliability/shop_work.h"
#include "tests/testing/long_run.h"

namespace tillora::testing {
namespace {

using Fault = MemoryDisk::Fault;
using Mode = MemoryDisk::Mode;
using Files = std::map<std::string, MemoryDisk::Bytes>;

class FailingDiskTest : public ::testing::Test {
 protected:
  /// A shop with the first save, closed.
  void makeShop() {
    {
      const host::Shop shop = openShop({.seeded = true, .itemCount = 60});
      save(shop, 1);
    }
    made_ = disk.files();
  }

  /// Runs the act with each operation failing in its turn; `check` looks at what is left, with a
  /// disk that works again.
  template <class Act, class Check>
  void walk(Fault fault, Mode mode, const Files& files, Act act, Check check) {
    disk.setFiles(files);
    disk.failNever(fault);
    act();
    const long operations = disk.operations();
    ASSERT_GT(operations, 2);
    const long step = isLongRun() ? 1 : operations / 12 + 1;
    for (long number = 0; number < operations && !HasFailure(); number += step) {
      SCOPED_TRACE("operation " + std::to_string(number));
      disk.setFiles(files);
      disk.failAt(number, fault, mode);
      const bool done = succeeds(act);
      EXPECT_TRUE(done || disk.hasFailed());
      disk.endProgram();
      check(done);
      ++runs_;
    }
  }
  void TearDown() override {
    if (isLongRun()) std::cout << runs_ << " runs\n";
  }

  /// False if it failed in a way that a host program can pass on.
  template <class Act>
  static bool succeeds(Act act) {
    try {
      act();
      return true;
    } catch (const std::bad_alloc&) {
      ADD_FAILURE() << "a failure of the disk counts as one of memory";
    } catch (const Error& error) {
      EXPECT_NE(error.number(), host::shop_error::damaged) << error.what();
    }
    return false;
  }

  /// The shop holds save 1 or 2 as a whole (2 if it was reported as done), and can be saved.
  static void expectOldOrNew(bool done) {
    const host::Shop shop = openShop();
    EXPECT_TRUE(holdsSave(shop, 2) || (!done && holdsSave(shop, 1)));
    save(shop, 3);
    EXPECT_TRUE(holdsSave(shop, 3));
  }

  static void saveOnce() { save(openShop(), 2); }

  MemoryDisk disk;
  Files made_;
  std::mt19937 random_{20261122};

 private:
  int runs_ = 0;
};

TEST_F(FailingDiskTest, ASaveIsStoredWholeOrNotAtAll) {
  makeShop();
  for (const Fault fault : {Fault::error, Fault::full, Fault::torn}) {
    for (const Mode mode : {Mode::once, Mode::fromThenOn}) {
      walk(fault, mode, made_, saveOnce, expectOldOrNew);
    }
  }
}

TEST_F(FailingDiskTest, ASaveThatFailedCanBeMadeAgainOverTheSameConnection) {
  makeShop();
  for (const Fault fault : {Fault::error, Fault::full, Fault::torn}) {
    const auto saveTwice = [&] {
      const host::Shop shop = openShop();
      if (succeeds([&] { save(shop, 2); })) return;
      disk.endFailures();
      EXPECT_TRUE(holdsSave(shop, 1) || holdsSave(shop, 2));
      save(shop, 2);
      EXPECT_TRUE(holdsSave(shop, 2));
    };
    walk(fault, Mode::fromThenOn, made_, saveTwice, expectOldOrNew);
  }
}

TEST_F(FailingDiskTest, AProgramThatEndsInASaveLeavesItWholeOrUndone) {
  makeShop();
  walk(Fault::dies, Mode::once, made_, saveOnce, expectOldOrNew);
}

TEST_F(FailingDiskTest, APowerCutInASaveLeavesItWholeOrUndone) {
  makeShop();
  const int rounds = isLongRun() ? 100 : 1;
  for (int round = 0; round < rounds; ++round) {
    walk(Fault::dies, Mode::once, made_, saveOnce, [&](bool done) {
      disk.cutPower(random_);
      expectOldOrNew(done);
    });
  }
}

TEST_F(FailingDiskTest, AShopIsMadeWholeOrMadeByTheNextOpening) {
  const auto make = [] { openShop({.seeded = true, .itemCount = 60}); };
  make();
  const std::string whole = contentsOf(openShop());
  const auto expectWhole = [&](bool) { EXPECT_EQ(contentsOf(openShop({.itemCount = 60})), whole); };
  for (const Fault fault : {Fault::error, Fault::full, Fault::torn, Fault::dies}) {
    for (const Mode mode : {Mode::once, Mode::fromThenOn}) {
      walk(fault, mode, {}, make, expectWhole);
    }
  }
  walk(Fault::dies, Mode::once, {}, make, [&](bool done) {
    disk.cutPower(random_);
    expectWhole(done);
  });
}

TEST_F(FailingDiskTest, WhatCannotBeReadFailsAndChangesNothing) {
  makeShop();
  std::string whole;
  std::string read;
  disk.setFiles(made_);
  {
    const host::Shop shop = openShop();
    whole = contentsOf(shop);
    read = readAll(shop);
  }
  walk(
      Fault::error, Mode::once, made_, [&] { EXPECT_EQ(readAll(openShop()), read); },
      [&](bool) { EXPECT_EQ(contentsOf(openShop()), whole); });
}

}  // namespace
}  // namespace tillora::testing
