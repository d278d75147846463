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
      found.push_back(row.at(u"Description").get<Text>());
    }
    return found;
  }
  std::unique_ptr<Table> open() const { return objects.database->webSiteTable(); }

  FakeHost host;
  HostObjects objects = host.objects();
};

TEST_F(TableRows, AKeyIsATextOrAWholeNumberInDecimalAsItsFieldSays) {
  const auto keyIn = [this](Field field, const Value& stored) {
    host.webSites = {{{field.name, stored}}};
    return keyOf(*open(), field);
  };
  constexpr Field kText = fields::webSite::URL;
  EXPECT_EQ(keyIn(kText, Text(u" x ")), u" x ");
  EXPECT_EQ(keyIn(kText, Text()), u"");
  EXPECT_EQ(keyIn(kText, Value()), std::nullopt);
  constexpr Field kNumber = fields::grade::GradeNumber;
  EXPECT_EQ(keyIn(kNumber, std::int32_t{-1}), u"-1");
  EXPECT_EQ(keyIn(kNumber, std::numeric_limits<std::int32_t>::min()), u"-2147483648");
  EXPECT_EQ(keyIn(kNumber, Text(u"3")), std::nullopt);
  EXPECT_EQ(keyIn(kNumber, Value()), std::nullopt);
}

TEST_F(TableRows, TheFirstRowThatSatisfiesTheCriteriaIsEdited) {
  host.webSites = {site(u"a", u"1"), site(u"b", u"2"), site(u"b", u"3")};
  const auto table = open();
  EXPECT_FALSE(editOrAdd(*table, u"[URL] = 'b'"));
  table->set(fields::webSite::Description, Text(u"new"));
  table->update();
  EXPECT_EQ(descriptions(), (std::vector<Text>{u"1", u"new", u"3"}));
}

TEST_F(TableRows, ARowIsAddedIfNoneSatisfiesThem) {
  host.webSites = {site(u"a", u"1")};
  const auto table = open();
  EXPECT_TRUE(editOrAdd(*table, u"[URL] = 'b'"));
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

TEST_F(TableRows, OfAListedKeyTheFirstRowStaysAndOfAForeignKeyAll) {
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
