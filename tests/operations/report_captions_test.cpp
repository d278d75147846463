#include "operations/report_captions.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/testing/fake_host.h"

namespace tillora::testing {
namespace {

struct Set {
  std::span<const ReportCaption> table;
  Text prefix;
};
const std::vector<Set> kSets = {{kReportTitles, u"ReportTitle"}, {kReportDetails, u"ReportDetail"}};

Text withoutBlanksAndAmpersands(Text text) {
  std::erase(text, u' ');
  std::erase(text, u'&');
  return text;
}

TEST(ReportCaptions, TheTitlesWithTheirLabels) {
  const std::vector<Text> defaults = {
      u"B&alance Report",          u"Reconciliation Report",   u"&Group Sales Report",
      u"&Department Sales Report", u"&Product Sales Report",   u"C&ustomer Sales Report",
      u"Layby Sales &Report",      u"&Sales Person Report",    u"Ti&me Report",
      u"&Journal Report",          u"Pr&omotion Sales Report", u"End of Day"};
  ASSERT_EQ(kReportTitles.size(), defaults.size());
  for (std::size_t i = 0; i < defaults.size(); ++i) {
    EXPECT_EQ(kReportTitles[i].standard, defaults[i]);
    const bool isWindow = i == static_cast<std::size_t>(ReportTitle::endOfDayWindow);
    EXPECT_EQ(kReportTitles[i].label(), isWindow ? u"&End Of Day window" : defaults[i]);
  }
}

TEST(ReportCaptions, TheDetailsBeginWithTheInDrawerTotals) {
  const std::vector<Text> totals = {u"Cash In Drawer", u"Cheque In Drawer",
                                    u"Credit Card In Drawer", u"EFT In Drawer",
                                    u"Voucher In Drawer"};
  ASSERT_EQ(kInDrawerTotals, totals.size());
  for (std::size_t i = 0; i < totals.size(); ++i) EXPECT_EQ(kReportDetails[i].standard, totals[i]);
}

TEST(ReportCaptions, EveryDefaultIsUniqueAndNoneIsEmpty) {
  for (const Set& set : kSets) {
    std::set<Text> seen;
    for (const ReportCaption& caption : set.table) {
      EXPECT_NE(caption.standard, Text());
      EXPECT_TRUE(seen.insert(caption.standard).second) << toUtf8(caption.standard);
    }
  }
}

TEST(ReportCaptions, ASettingIsNamedAfterItsDefault) {
  std::set<Text> seen;
  for (const Set& set : kSets) {
    for (const ReportCaption& caption : set.table) {
      EXPECT_EQ(caption.setting, set.prefix + withoutBlanksAndAmpersands(caption.standard));
      EXPECT_TRUE(seen.insert(caption.setting).second) << toUtf8(caption.setting);
    }
  }
}

TEST(ReportCaptions, AMissingSettingReadsAsItsDefaultAndAnEmptyOneStaysEmpty) {
  FakeHost host;
  host.settings[u"ReportTitleTimeReport"] = u"";
  host.settings[u"ReportTitleJournalReport"] = u"Day & night";
  const auto titles = readCaptions(*host.objects().settings, kReportTitles);
  ASSERT_EQ(titles.size(), kReportTitles.size());
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const Text expected = i == 8 ? u"" : i == 9 ? u"Day & night" : kReportTitles[i].standard;
    EXPECT_EQ(titles[i], expected) << i;
  }
}

TEST(ReportCaptions, WhatIsWrittenIsReadAgain) {
  FakeHost host;
  const auto settings = host.objects().settings;
  std::vector<Text> captions;
  for (std::size_t i = 0; i < kReportDetails.size(); ++i) captions.emplace_back(i + 1, u'&');
  writeCaptions(*settings, kReportDetails, captions);
  EXPECT_EQ(readCaptions(*settings, kReportDetails), captions);
  EXPECT_EQ(host.settings.size(), kReportDetails.size());
}

}  // namespace
}  // namespace tillora::testing
