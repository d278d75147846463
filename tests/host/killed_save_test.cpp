#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

class KilledSaveTest : public ShopFixture {
 protected:
  /// Saves numbers as fast as it can; each save writes its number to an option, to a setting and to
  /// a new row. Does not return.
  [[noreturn]] void saveForEver() const {
    try {
      Shop shop = open();
      const auto table = shop.database()->gradeTable();
      for (std::int32_t number = saved(shop) + 1;; ++number) {
        const auto record = shop.database()->optionsRecord();
        record->set(options::LaybyStartNumber, number);
        table->addNew();
        table->set(fields::grade::GradeNumber, number);
        table->set(fields::grade::Caption, Text(3000, u'x'));
        table->update();
        shop.settings()->setSetting(u"Number", fromUtf8(std::to_string(number)));
        record->commit();
      }
    } catch (...) {
      _exit(1);
    }
  }

  static std::int32_t saved(const Shop& shop) {
    return shop.database()->optionsRecord()->getOrZero(options::LaybyStartNumber);
  }
};

TEST_F(KilledSaveTest, AProgramKilledAnywhereLeavesTheOldStateOrTheNew) {
  open({.seeded = false, .itemCount = std::nullopt}).settings()->setSetting(u"Number", u"0");
  std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same pauses each time
  std::uniform_int_distribution<useconds_t> pause(0, 40000);
  std::int32_t last = 0;
  for (int kill = 0; kill < 25; ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) saveForEver();
    usleep(20000 + pause(random));
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child failed by itself";

    Shop shop = open();
    const std::int32_t number = saved(shop);
    ASSERT_GE(number, last);
    ASSERT_EQ(shop.settings()->setting(u"Number"), fromUtf8(std::to_string(number)));
    std::int32_t rows = 0;
    const auto table = shop.database()->gradeTable();
    for (; !table->atEnd(); table->moveNext()) ++rows;
    ASSERT_EQ(rows, number);
    last = number;
  }
  EXPECT_GT(last, 25) << "the kills came before any save";
}

}  // namespace
}  // namespace tillora::host
