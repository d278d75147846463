#include "host/option_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/text_encoding.h"
#include "tests/host/shop_fixture.h"

namespace tillora::host {
namespace {

std::vector<Text> valuesOf(OptionsRecord& record) {
  std::vector<Text> values;
  for (const OptionInfo& option : kOptionTable) {
    values.push_back(shownValue(option, record.read(option.option)));
  }
  return values;
}

const OptionRow& rowOf(const OptionList& list, OptionId option) {
  const auto found = std::ranges::find_if(
      list.rows(), [option](const OptionRow& row) { return row.option->option == option; });
  return *found;
}

std::vector<Text> changedNames(const OptionList& list) {
  std::vector<Text> names;
  for (const OptionRow& row : list.rows()) {
    if (row.changed) names.emplace_back(row.option->name);
  }
  return names;
}

class OptionListTest : public ShopFixture {
 protected:
  template <OptionType type>
  void save(const Option<type>& option, typename Option<type>::Type value) {
    const auto saving = shop_.database()->optionsRecord();
    saving->set(option, std::move(value));
    saving->commit();
  }
  void update(bool afterSave) {
    list_.update(valuesOf(*shop_.database()->optionsRecord()), afterSave);
  }

  Shop shop_ = open();
  OptionList list_;
};

TEST_F(OptionListTest, HasEveryOptionOnceInTheOrderOfTheTabs) {
  ASSERT_EQ(list_.rows().size(), kOptionTable.size());
  std::int16_t last = 1;
  for (const OptionRow& row : list_.rows()) {
    EXPECT_GE(row.tab, last) << toUtf8(row.option->name);
    EXPECT_LE(row.tab, 12) << "an unknown tab: " << row.option->tab;
    last = row.tab;
  }
  EXPECT_STREQ(list_.rows().front().option->tab, "General");
  EXPECT_STREQ(list_.rows().back().option->tab, "FRED");
  EXPECT_EQ(rowOf(list_, OptionId::PumpOptionBits).tab, 9);
}

TEST_F(OptionListTest, ShowsStoredValuesOnOneLine) {
  update(false);
  EXPECT_EQ(rowOf(list_, OptionId::CompanyAddress).value, u"12 Harbour Street / Windmere NSW 2999");
  EXPECT_EQ(rowOf(list_, OptionId::RoundingStep).value, u"0.0500");
  EXPECT_EQ(rowOf(list_, OptionId::DefaultCurrencyMargin).value, u"2.5");
  EXPECT_EQ(rowOf(list_, OptionId::FREDLinkActive).value, u"True");
  EXPECT_EQ(rowOf(list_, OptionId::FREDPollSeconds).value, u"15");
  EXPECT_EQ(rowOf(list_, OptionId::TaxRoundingMode).value, u"1");
  EXPECT_EQ(rowOf(list_, OptionId::LaybyStartNumber).value, u"1042");
  EXPECT_EQ(rowOf(list_, OptionId::TaxExemptCaption).value, u"(empty)");
  shop_.file().execute("DELETE FROM options WHERE Name = 'TotalCaption'", u"Test");
  update(false);
  EXPECT_EQ(rowOf(list_, OptionId::TotalCaption).value, u"(not stored)");
}

TEST_F(OptionListTest, EveryKindOfLineBreakIsOneSlash) {
  save(options::CompanyAddress, u"a\rb\nc\r\nd\r\re\r");
  update(false);
  EXPECT_EQ(rowOf(list_, OptionId::CompanyAddress).value, u"a / b / c / d /  / e / ");
}

TEST_F(OptionListTest, ShowsOnlyWhetherAPasswordIsSet) {
  save(options::PasswordStartAdmin, u"swordfish");
  update(false);
  int passwords = 0;
  for (const OptionRow& row : list_.rows()) {
    if (!isPassword(*row.option)) continue;
    ++passwords;
    EXPECT_TRUE(row.value == u"(set)" || row.value == u"(not set)") << toUtf8(row.value);
  }
  EXPECT_EQ(passwords, 11);
  EXPECT_EQ(rowOf(list_, OptionId::PasswordStartAdmin).value, u"(set)");
  EXPECT_EQ(rowOf(list_, OptionId::PasswordTransferData).value, u"(not set)");
}

TEST_F(OptionListTest, TheFirstValuesAreNotAChange) {
  update(true);
  EXPECT_EQ(changedNames(list_), std::vector<Text>{});
}

TEST_F(OptionListTest, ASaveMarksWhatItChangedAndNothingElse) {
  update(false);
  save(options::CompanyName, u"Corner Shop");
  save(options::PrintNRGT, false);
  update(true);
  EXPECT_EQ(changedNames(list_), (std::vector<Text>{u"CompanyName", u"PrintNRGT"}));
  EXPECT_EQ(rowOf(list_, OptionId::CompanyName).before, u"Harbour Street Pharmacy & Fuel");
  EXPECT_EQ(rowOf(list_, OptionId::PrintNRGT).before, u"True");
  EXPECT_EQ(rowOf(list_, OptionId::CompanyFax).before, u"");

  save(options::PrintNRGT, true);
  update(true);
  EXPECT_EQ(changedNames(list_), std::vector<Text>{u"PrintNRGT"});
  EXPECT_EQ(rowOf(list_, OptionId::CompanyName).before, u"");
}

TEST_F(OptionListTest, MarksStayWhileNothingIsSavedAndGoWithASaveThatChangesNothing) {
  update(false);
  save(options::CompanyName, u"Corner Shop");
  update(true);
  update(false);
  EXPECT_EQ(changedNames(list_), std::vector<Text>{u"CompanyName"});
  update(true);
  EXPECT_EQ(changedNames(list_), std::vector<Text>{});
  EXPECT_EQ(rowOf(list_, OptionId::CompanyName).value, u"Corner Shop");
}

TEST_F(OptionListTest, ASaveOfAnotherProgramIsMarkedWhenItIsSeen) {
  update(false);
  save(options::CompanyName, u"Corner Shop");
  update(false);
  EXPECT_EQ(changedNames(list_), std::vector<Text>{u"CompanyName"});
}

}  // namespace
}  // namespace tillora::host
