#include "host/shop_table.h"

#include <gtest/gtest.h>

#include "host/shop_error.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

namespace site = fields::webSite;

class ShopTableTest : public ShopFixture {
 protected:
  ShopTableTest() {
    for (const char16_t* url : {u"a", u"b", u"c"}) add(*table_, url);
    table_->moveFirst();
  }

  static void add(Table& table, const char16_t* url) {
    table.addNew();
    table.set(site::URL, Text(url));
    table.set(site::Description, Text(u"site ") + url);
    table.update();
  }

  static Text urls(Table& table) {
    Text all;
    for (table.moveFirst(); !table.atEnd(); table.moveNext()) {
      all += table.get(site::URL).get<Text>();
    }
    return all;
  }

  Shop shop_ = open({.seeded = false, .itemCount = std::nullopt});
  std::unique_ptr<Table> table_ = shop_.database()->webSiteTable();
};

TEST_F(ShopTableTest, WalksInTheOrderOfAdding) {
  EXPECT_EQ(urls(*table_), u"abc");
  EXPECT_TRUE(table_->atEnd());
  EXPECT_EQ(errorOf([&] { table_->moveNext(); }).number(), shop_error::noCurrentRow);
  EXPECT_EQ(errorOf([&] { table_->get(site::URL); }).number(), shop_error::noCurrentRow);
}

TEST_F(ShopTableTest, AnEmptyTableIsAtItsEnd) {
  const auto empty = shop_.database()->gradeTable();
  EXPECT_TRUE(empty->atEnd());
  EXPECT_FALSE(empty->noMatch());  // nothing was searched for
  empty->moveFirst();
  EXPECT_TRUE(empty->atEnd());
  empty->findFirst(u"[GradeNumber] = 1");
  EXPECT_TRUE(empty->noMatch());
  empty->findNext(u"[GradeNumber] = 1");
  EXPECT_TRUE(empty->noMatch());
  EXPECT_EQ(errorOf([&] { empty->edit(); }).number(), shop_error::noCurrentRow);
  EXPECT_EQ(errorOf([&] { empty->remove(); }).number(), shop_error::noCurrentRow);
}

TEST_F(ShopTableTest, FindsARowAndKeepsItWhenNoneMatches) {
  table_->findFirst(u"[URL] = 'b'");
  EXPECT_FALSE(table_->noMatch());
  EXPECT_EQ(table_->get(site::Description).get<Text>(), u"site b");
  table_->findFirst(u"[URL] = 'x'");
  EXPECT_TRUE(table_->noMatch());
  EXPECT_EQ(table_->get(site::URL).get<Text>(), u"b");
  table_->moveNext();
  EXPECT_EQ(table_->get(site::URL).get<Text>(), u"c");
}

TEST_F(ShopTableTest, FindsTheNextOnes) {
  add(*table_, u"b");
  table_->findFirst(u"[URL] = 'b'");
  EXPECT_FALSE(table_->noMatch());
  table_->findNext(u"[URL] = 'b'");
  EXPECT_FALSE(table_->noMatch());
  table_->findNext(u"[URL] = 'b'");
  EXPECT_TRUE(table_->noMatch());
}

TEST_F(ShopTableTest, EditsTheCurrentRow) {
  table_->findFirst(u"[URL] = 'b'");
  table_->edit();
  table_->set(site::Inactive, true);
  EXPECT_EQ(table_->get(site::Inactive), Value(true));
  table_->update();
  EXPECT_EQ(table_->get(site::Inactive), Value(true));
  const auto other = shop_.database()->webSiteTable();
  other->findFirst(u"[Inactive] = True");
  EXPECT_EQ(other->get(site::URL).get<Text>(), u"b");
  EXPECT_EQ(urls(*other), u"abc");
}

TEST_F(ShopTableTest, FieldsNotSetHoldNoValue) {
  EXPECT_EQ(table_->get(site::Inactive), Value());
  table_->addNew();
  EXPECT_EQ(table_->get(site::URL), Value());
  table_->set(site::URL, Text());
  table_->update();
  table_->findFirst(u"[URL] = ''");
  EXPECT_FALSE(table_->noMatch());
  EXPECT_EQ(table_->get(site::URL), Value(Text()));
  EXPECT_EQ(table_->get(site::Description), Value());
}

TEST_F(ShopTableTest, DeletesAndMovesOn) {
  table_->findFirst(u"[URL] = 'b'");
  table_->remove();
  EXPECT_FALSE(table_->atEnd());
  EXPECT_EQ(errorOf([&] { table_->get(site::URL); }).number(), shop_error::rowDeleted);
  EXPECT_EQ(errorOf([&] { table_->remove(); }).number(), shop_error::rowDeleted);
  table_->moveNext();
  EXPECT_EQ(table_->get(site::URL).get<Text>(), u"c");
  table_->remove();
  table_->moveNext();
  EXPECT_TRUE(table_->atEnd());
  EXPECT_EQ(urls(*table_), u"a");
}

TEST_F(ShopTableTest, DeletesEveryRowInOneWalk) {
  for (; !table_->atEnd(); table_->moveNext()) table_->remove();
  EXPECT_EQ(urls(*table_), u"");
}

TEST_F(ShopTableTest, RefusesWritingOutsideAnEdit) {
  EXPECT_EQ(errorOf([&] { table_->set(site::URL, Text(u"x")); }).number(),
            shop_error::noEditInProgress);
  EXPECT_EQ(errorOf([&] { table_->update(); }).number(), shop_error::noEditInProgress);
  table_->edit();
  table_->set(site::URL, Text(u"x"));
  table_->moveFirst();  // drops the edit
  EXPECT_EQ(errorOf([&] { table_->update(); }).number(), shop_error::noEditInProgress);
  EXPECT_EQ(urls(*table_), u"abc");
}

TEST_F(ShopTableTest, RefusesWrongFieldsAndValues) {
  EXPECT_EQ(errorOf([&] { table_->get({u"Name"}); }).number(), shop_error::unknownField);
  table_->addNew();
  EXPECT_EQ(errorOf([&] { table_->set({u"Name"}, Text()); }).number(), shop_error::unknownField);
  const Error error = errorOf([&] { table_->set(site::URL, std::int32_t{1}); });
  EXPECT_EQ(error.number(), error::typeMismatch);
  EXPECT_EQ(error.source(), u"TilloraHost.ShopTable");
  EXPECT_THROW(table_->set(site::Inactive, Text(u"True")), Error);
  EXPECT_THROW(table_->set(site::URL, Money{1}), Error);
}

TEST_F(ShopTableTest, FieldNamesTakeAnyCaseAndNumbersOfEachSize) {
  const auto grades = shop_.database()->gradeTable();
  grades->addNew();
  grades->set({u"gradenumber"}, std::uint8_t{7});
  EXPECT_EQ(grades->get(fields::grade::GradeNumber), Value(std::int32_t{7}));
  grades->set({u"GRADENUMBER"}, std::int16_t{-8});
  EXPECT_EQ(grades->get(fields::grade::GradeNumber), Value(std::int32_t{-8}));
  grades->set(fields::grade::GradeNumber, true);
  EXPECT_EQ(grades->get(fields::grade::GradeNumber), Value(std::int32_t{-1}));
}

TEST_F(ShopTableTest, NoticesThatAnotherProgramDeletedTheRow) {
  Shop other = open();
  table_->findFirst(u"[URL] = 'b'");
  const auto others = other.database()->webSiteTable();
  others->findFirst(u"[URL] = 'b'");
  others->remove();
  table_->edit();
  table_->set(site::Description, Text(u"changed"));
  EXPECT_EQ(errorOf([&] { table_->update(); }).number(), shop_error::rowDeleted);
  table_->moveNext();
  EXPECT_EQ(table_->get(site::URL).get<Text>(), u"c");
}

TEST_F(ShopTableTest, RowsAddedOutsideASaveAreCommittedAtOnce) {
  Shop copy = openAsAfterPowerCut();
  EXPECT_EQ(urls(*copy.database()->webSiteTable()), u"abc");
}

TEST_F(ShopTableTest, KeepsEveryTextAsItIs) {
  const Text texts[] = {Text(u"a\0b", 3),
                        Text(u"\xFEFF"
                             u"x"),
                        Text(u"\xFFFE"
                             u"x"),
                        Text(u"\xD800"),
                        Text(u"\xDC00 \xD83D\xDE00"),
                        Text(1, u'\0'),
                        Text(70000, u'y')};
  for (const Text& text : texts) {
    table_->addNew();
    table_->set(site::URL, text);
    table_->update();
  }
  table_->findFirst(u"[URL] = 'c'");
  for (const Text& text : texts) {
    table_->moveNext();
    EXPECT_EQ(table_->get(site::URL).get<Text>(), text);
  }
}

}  // namespace
}  // namespace tillora::host
