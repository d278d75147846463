#include "support/table_rows.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/testing/fake_host.h"

namespace tillora::testing {
namespace {

class TableRows : public ::testing::Test {
 protected:
  static FakeRow site(Value url, TextView description = {}) {
    return {{u"URL", std::move(url)}, {u"Description", Text(description)}};
  }
  std::vector<Text> descriptions() const {
    std::vector<Text> found;
    for (const FakeRow& row : host.webSites) {
      found.push_back(std::get<Text>(row.at(u"Description")));
    }
    return found;
  }
  std::unique_ptr<Table> open() const { return objects.database->webSiteTable(); }

  FakeHost host;
  HostObjects objects = host.objects();
};

TEST_F(TableRows, AKeyIsATextOrAWholeNumberInDecimal) {
  const std::vector<std::pair<Value, std::optional<Text>>> keys = {
      {Text(u" x "), u" x "},    {Text(), u""},
      {std::int32_t{-1}, u"-1"}, {std::int16_t{300}, u"300"},
      {std::uint8_t{7}, u"7"},   {std::numeric_limits<std::int32_t>::min(), u"-2147483648"},
      {1.5F, std::nullopt},      {Value(), std::nullopt}};
  for (const auto& [stored, key] : keys) {
    host.webSites = {site(stored)};
    EXPECT_EQ(keyOf(*open(), fields::webSite::URL), key);
  }
}

TEST_F(TableRows, TheFirstRowThatSatisfiesTheCriteriaIsEdited) {
  host.webSites = {site(u"a", u"1"), site(u"b", u"2"), site(u"b", u"3")};
  const auto table = open();
  editOrAdd(*table, u"[URL] = 'b'");
  table->set(fields::webSite::Description, Text(u"new"));
  table->update();
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"1", u"new", u"3"}));
}

TEST_F(TableRows, ARowIsAddedWhereNoneDoes) {
  host.webSites = {site(u"a", u"1")};
  const auto table = open();
  editOrAdd(*table, u"[URL] = 'b'");
  table->set(fields::webSite::Description, Text(u"new"));
  table->update();
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"1", u"new"}));
}

TEST_F(TableRows, UnlistedRowsOfOursAreDeleted) {
  host.webSites = {site(u"a", u"1"), site(u"b", u"2"), site(u"c", u"3"), site(u"d", u"4")};
  removeUnlisted(*open(), fields::webSite::URL, {u"b"},
                 [](const Text& key) { return key != u"c"; });
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"2", u"3"}));
}

TEST_F(TableRows, OfOneListedKeyTheFirstRowIsLeftAndOfAForeignKeyAll) {
  host.webSites = {site(u"b", u"1"), site(u"b", u"2"), site(u"b", u"3"), site(u"c", u"4"),
                   site(u"c", u"5")};
  removeUnlisted(*open(), fields::webSite::URL, {u"b"}, [](const Text&) { return false; });
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"1", u"4", u"5"}));
}

TEST_F(TableRows, RowsWithoutAKeyAreLeft) {
  host.webSites = {site(Value(), u"1"), site(u"a", u"2"), site(Value(), u"3")};
  removeUnlisted(*open(), fields::webSite::URL, {}, [](const Text&) { return true; });
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"1", u"3"}));
}

TEST_F(TableRows, AnEmptyTableIsLeftAlone) {
  removeUnlisted(*open(), fields::webSite::URL, {u"a"}, [](const Text&) { return true; });
  EXPECT_TRUE(host.callsStarting("delete").empty());
}

}  // namespace
}  // namespace tillora::testing
