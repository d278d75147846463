#include "host/stored_options.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/shop_error.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

class StoredOptionsTest : public ShopFixture {
 protected:
  Shop shop_ = open({.seeded = false, .itemCount = std::nullopt});

  std::unique_ptr<OptionsRecord> record() { return shop_.database()->optionsRecord(); }

  void save(OptionId option, const Value& value) {
    const auto saving = record();
    saving->write(option, value);
    saving->commit();
  }
};

TEST_F(StoredOptionsTest, ANewShopStoresNone) {
  const auto options = record();
  for (const OptionInfo& option : kOptionTable) {
    EXPECT_EQ(options->read(option.option), Value()) << toUtf8(option.name);
  }
}

TEST_F(StoredOptionsTest, KeepsEveryTypeOverReopening) {
  using Int16 = std::numeric_limits<std::int16_t>;
  using Int32 = std::numeric_limits<std::int32_t>;
  using Int64 = std::numeric_limits<std::int64_t>;
  const std::pair<OptionId, Value> cases[] = {
      {OptionId::CompanyName, Text(u"O'Neil & S\u00F8n\r\n\0|;\xD83D\xDE00", 19)},
      {OptionId::CompanyFax, Text()},
      {OptionId::EODOptionFlags, Int32::min()},
      {OptionId::LaybyStartNumber, Int32::max()},
      {OptionId::FREDPollSeconds, Int16::min()},
      {OptionId::EODHistoryDays, std::int32_t{40000}},
      {OptionId::LaybyTermDays, Int32::max()},
      {OptionId::TaxRoundingMode, std::uint8_t{255}},
      {OptionId::DefaultCurrencyMargin, 0.1F},
      {OptionId::RoundingStep, Money{Int64::min()}},
      {OptionId::FREDLinkActive, true},
      {OptionId::PrintNRGT, false},
  };
  {
    const auto saving = record();
    for (const auto& [option, value] : cases) saving->write(option, value);
    saving->commit();
  }
  shop_.close();
  Shop again = open();
  const auto options = again.database()->optionsRecord();
  for (const auto& [option, value] : cases) {
    EXPECT_EQ(options->read(option), value) << toUtf8(optionInfo(option).name);
  }
  EXPECT_EQ(options->read(OptionId::CompanyPhone), Value());
}

TEST_F(StoredOptionsTest, NoValueRemovesTheStoredOne) {
  save(OptionId::CompanyName, Text(u"x"));
  save(OptionId::CompanyName, Value());
  EXPECT_EQ(record()->read(OptionId::CompanyName), Value());
}

TEST_F(StoredOptionsTest, RefusesValuesOfAnotherType) {
  const auto options = record();
  const Error error = errorOf([&] { options->write(OptionId::CompanyName, std::int32_t{1}); });
  EXPECT_EQ(error.number(), error::typeMismatch);
  EXPECT_EQ(error.source(), u"TilloraHost.OptionsRecord");
  EXPECT_NE(error.description().find(u"CompanyName"), Text::npos);
  EXPECT_THROW(options->write(OptionId::FREDPollSeconds, std::int32_t{1}), Error);
  EXPECT_THROW(options->write(OptionId::RoundingStep, 1.0F), Error);
}

TEST_F(StoredOptionsTest, ReportsStoredValuesThatDoNotFit) {
  shop_.file().execute(
      "INSERT INTO options VALUES ('FREDPollSeconds', 40000), "
      "('EODHistoryDays', 3000000000), ('CompanyName', 7)",
      u"Test");
  EXPECT_EQ(errorOf([&] { record()->read(OptionId::FREDPollSeconds); }).number(), error::overflow);
  EXPECT_EQ(errorOf([&] { record()->read(OptionId::EODHistoryDays); }).number(), error::overflow);
  EXPECT_EQ(errorOf([&] { record()->read(OptionId::CompanyName); }).number(), error::typeMismatch);
}

TEST_F(StoredOptionsTest, ASaveIsPermanentOnlyAfterItsCommit) {
  save(OptionId::CompanyName, Text(u"old"));
  const auto saving = record();
  saving->write(OptionId::CompanyName, Text(u"new"));
  EXPECT_EQ(saving->read(OptionId::CompanyName), Value(Text(u"new")));
  EXPECT_EQ(openAsAfterPowerCut().database()->optionsRecord()->read(OptionId::CompanyName),
            Value(Text(u"old")));
  saving->commit();
  EXPECT_EQ(openAsAfterPowerCut().database()->optionsRecord()->read(OptionId::CompanyName),
            Value(Text(u"new")));
}

TEST_F(StoredOptionsTest, ReleasingWithoutCommitUndoesTablesAndSettingsToo) {
  shop_.settings()->setSetting(u"ReportTitleX", u"before");
  {
    const auto saving = record();
    saving->write(OptionId::CompanyName, Text(u"new"));
    shop_.settings()->setSetting(u"ReportTitleX", u"after");
    shop_.settings()->setSetting(u"ReportTitleY", u"new");
    shop_.database()->setDataFile(u"C:\\new.lvd");
    const auto grades = shop_.database()->gradeTable();
    grades->addNew();
    grades->set(fields::grade::GradeNumber, std::int32_t{1});
    grades->update();
  }
  EXPECT_EQ(record()->read(OptionId::CompanyName), Value());
  EXPECT_EQ(shop_.settings()->setting(u"ReportTitleX"), u"before");
  EXPECT_EQ(shop_.settings()->setting(u"ReportTitleY"), std::nullopt);
  EXPECT_EQ(shop_.database()->dataFile(), u"");
  EXPECT_TRUE(shop_.database()->gradeTable()->atEnd());
}

TEST_F(StoredOptionsTest, CommitCoversTablesAndSettings) {
  const auto saving = record();
  saving->write(OptionId::CompanyName, Text(u"new"));
  shop_.settings()->setSetting(u"ReportTitleX", u"after");
  const auto grades = shop_.database()->gradeTable();
  grades->addNew();
  grades->set(fields::grade::GradeNumber, std::int32_t{1});
  grades->update();
  {
    Shop cut = openAsAfterPowerCut();
    EXPECT_EQ(cut.settings()->setting(u"ReportTitleX"), std::nullopt);
    EXPECT_TRUE(cut.database()->gradeTable()->atEnd());
  }
  saving->commit();
  Shop cut = openAsAfterPowerCut();
  EXPECT_EQ(cut.settings()->setting(u"ReportTitleX"), u"after");
  EXPECT_FALSE(cut.database()->gradeTable()->atEnd());
}

TEST_F(StoredOptionsTest, OtherRecordsReadWhileOneSaves) {
  const auto loading = record();
  const auto saving = record();
  saving->write(OptionId::CompanyName, Text(u"new"));
  EXPECT_EQ(loading->read(OptionId::CompanyName), Value(Text(u"new")));
  EXPECT_EQ(errorOf([&] { loading->write(OptionId::CompanyFax, Text(u"x")); }).number(),
            shop_error::locked);
  loading->commit();  // nothing of its own to commit
  saving->commit();
  loading->write(OptionId::CompanyFax, Text(u"x"));
  loading->commit();
  EXPECT_EQ(record()->read(OptionId::CompanyFax), Value(Text(u"x")));
}

TEST_F(StoredOptionsTest, ASaveThatTheDiskUndidStaysUndone) {
  shop_.file().execute("PRAGMA max_page_count = 30", u"Test");
  {
    const auto saving = record();
    saving->write(OptionId::CompanyName, Text(u"new"));
    const Error full =
        errorOf([&] { saving->write(OptionId::CompanyAddress, Text(1000000, u'x')); });
    EXPECT_EQ(full.number(), shop_error::diskFull);
    // Whether or not the transaction is gone, no part of it can be committed.
    bool committed = true;
    try {
      shop_.settings()->setSetting(u"ReportTitleX", u"late");
      saving->commit();
    } catch (const Error& error) {
      committed = false;
      EXPECT_EQ(error.number(), shop_error::saveLost);
    }
    Shop cut = openAsAfterPowerCut();
    const bool name = cut.database()->optionsRecord()->read(OptionId::CompanyName) != Value();
    EXPECT_EQ(name, committed);
    EXPECT_EQ(cut.settings()->setting(u"ReportTitleX").has_value(), committed);
  }
  save(OptionId::CompanyFax, Text(u"works again"));
}

TEST_F(StoredOptionsTest, WritesAreRefusedAfterTheDatabaseUndidTheSave) {
  {
    const auto saving = record();
    saving->write(OptionId::CompanyName, Text(u"new"));
    shop_.file().execute("ROLLBACK", u"Test");  // as SQLite does by itself on some failures
    EXPECT_EQ(errorOf([&] { shop_.settings()->setSetting(u"X", u"1"); }).number(),
              shop_error::saveLost);
    EXPECT_EQ(errorOf([&] { saving->write(OptionId::CompanyFax, Text(u"x")); }).number(),
              shop_error::saveLost);
    EXPECT_EQ(errorOf([&] { saving->commit(); }).number(), shop_error::saveLost);
  }
  EXPECT_EQ(shop_.settings()->setting(u"X"), std::nullopt);
  save(OptionId::CompanyName, Text(u"new"));
}

TEST_F(StoredOptionsTest, ASecondProgramsSaveIsRefusedUntilTheFirstEnds) {
  Shop other = open();
  auto saving = record();
  saving->write(OptionId::CompanyName, Text(u"first"));
  {
    const auto late = other.database()->optionsRecord();
    EXPECT_EQ(late->read(OptionId::CompanyName), Value());  // readers see what is committed
    const Error error = errorOf([&] { late->write(OptionId::CompanyName, Text(u"second")); });
    EXPECT_EQ(error.number(), shop_error::locked);
    EXPECT_NE(error.description().find(u"in use by another program"), Text::npos);
    EXPECT_EQ(errorOf([&] { other.settings()->setSetting(u"X", u"1"); }).number(),
              shop_error::locked);
  }
  saving->commit();
  saving.reset();
  const auto late = other.database()->optionsRecord();
  EXPECT_EQ(late->read(OptionId::CompanyName), Value(Text(u"first")));
  late->write(OptionId::CompanyName, Text(u"second"));
  late->commit();
  EXPECT_EQ(record()->read(OptionId::CompanyName), Value(Text(u"second")));
}

TEST_F(StoredOptionsTest, AWalkElsewhereDoesNotBlockASave) {
  Shop other = open();
  const auto items = other.database()->itemList();
  const auto classes = other.database()->classTable();
  save(OptionId::CompanyName, Text(u"saved"));
  const auto late = other.database()->optionsRecord();
  late->write(OptionId::CompanyFax, Text(u"also saved"));
  late->commit();
  EXPECT_EQ(record()->read(OptionId::CompanyFax), Value(Text(u"also saved")));
}

TEST_F(StoredOptionsTest, OptionsAreFoundByNameInAnyCase) {
  ASSERT_NE(findOption(u"companyname"), nullptr);
  EXPECT_EQ(findOption(u"COMPANYNAME")->option, OptionId::CompanyName);
  EXPECT_EQ(findOption(u"CompanyNam"), nullptr);
}

}  // namespace
}  // namespace tillora::host
