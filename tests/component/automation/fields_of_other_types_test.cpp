// The tabs over a host that holds its tables in types of its own.
#include <gtest/gtest.h>

#include "identity/company_details.h"
#include "identity/web_sites.h"
#include "operations/pump.h"
#include "operations/random_price.h"
#include "tests/component/automation/options_fixture.h"
#include "tests/testing/function_ref.h"

namespace tillora::automation {
namespace {

using testing::FakeRow;
using Rows = std::vector<FakeRow>;

class FieldsOfOtherTypes : public OptionsObjectTest {
 protected:
  FieldsOfOtherTypes() { giveHost(); }

  static FakeRow grade(Value number, TextView product = u"Fuel:ULP", TextView caption = u"ULP") {
    return {{u"GradeNumber", std::move(number)},
            {u"Product", Text(product)},
            {u"Caption", Text(caption)}};
  }
  static FakeRow format(Value prefix, std::int32_t format, std::int32_t bits, bool inactive) {
    return {{u"Prefix", std::move(prefix)},
            {u"FormatID", format},
            {u"OptionBits", bits},
            {u"UOMUnitCaption", Text(u"12")},
            {u"UOMPriceUnitCaption", Text()},
            {u"Inactive", inactive}};
  }
  static FakeRow site(TextView description, TextView url, bool inactive) {
    return {{u"Description", Text(description)}, {u"URL", Text(url)}, {u"Inactive", inactive}};
  }
  /// What a list shows, row by row, from this column on.
  static std::vector<std::vector<Text>> shown(const ui::ListView& list, std::size_t column) {
    std::vector<std::vector<Text>> rows;
    for (const auto& row : list.rows()) {
      rows.emplace_back();
      for (std::size_t i = column; i < row.texts.size(); ++i) {
        rows.back().emplace_back(row.texts[i]);
      }
    }
    return rows;
  }
  /// Opens the dialog on a page, changes nothing of its lists, and presses OK.
  void save(TabPage page, const testing::FunctionRef<void(frmOptions&)>& look) {
    client->put(u"SelectedTab", static_cast<std::int16_t>(page));
    whileOpen([&](frmOptions& dialog) {
      look(dialog);
      desk.user().clickTab(dialog.tabOptions, static_cast<int>(TabPage::general));
      rename(dialog, u"Corner Shop");
      desk.user().accessKey(u'o');
    });
    client->call(u"ShowOptions");
    EXPECT_EQ(host.value(options::CompanyName), u"Corner Shop");
  }
};

class NumbersHeldAs : public FieldsOfOtherTypes, public ::testing::WithParamInterface<VARENUM> {
 protected:
  NumbersHeldAs() {
    for (const Text field : {u"GradeNumber", u"Prefix", u"FormatID", u"OptionBits", u"Inactive"}) {
      automationHost.fieldTypes[field] = static_cast<VARTYPE>(GetParam());
    }
  }
};

TEST_P(NumbersHeldAs, GradesAreListedSavedAndDeleted) {
  host.grades = {grade(std::int32_t{1}), grade(std::int32_t{3}), grade(std::int32_t{12})};
  const Rows before = host.grades;
  save(TabPage::pump, [&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog.tabs().pumpGrades.ltvPump, 0),
              (std::vector<std::vector<Text>>{{u"1", u"Fuel:ULP", u"ULP"},
                                              {u"3", u"Fuel:ULP", u"ULP"},
                                              {u"12", u"Fuel:ULP", u"ULP"}}));
  });
  EXPECT_EQ(host.grades, before);
  EXPECT_TRUE(host.callsStarting("delete").empty());

  boxes.answers = {MessageResult::yes};
  save(TabPage::pump, [&](frmOptions& dialog) {
    auto& tab = dialog.tabs().pumpGrades;
    desk.user().clickRow(tab.ltvPump, 1);
    desk.user().click(tab.cmdPump[PumpGrades::remove]);
  });
  EXPECT_EQ(host.grades, (Rows{before[0], before[2]}));
}

TEST_P(NumbersHeldAs, BarcodeFormatsAreListedAndSaved) {
  host.randomPrices = {format(std::int32_t{2}, 3, 1, true), format(std::int32_t{33}, 5, 2, false)};
  const Rows before = host.randomPrices;
  save(TabPage::scanning, [&](frmOptions& dialog) {
    const auto& list = dialog.tabs().randomPrice.ltvRandomPrice;
    EXPECT_EQ(shown(list, RandomPrice::prefix),
              (std::vector<std::vector<Text>>{
                  {u"02", u"5 Product; 1 Price Check Digit; 4 Price; 1 Check Digit", u"Yes", u"No",
                   u"12", u""},
                  {u"33", u"4 Product; 2 Price Check Digits; 4 Price; 1 Check Digit", u"No", u"Yes",
                   u"12", u""}}));
    EXPECT_EQ(list.rows()[0].smallIcon, ui::PictureId::inactive);
    EXPECT_EQ(list.rows()[1].smallIcon, ui::PictureId::active);
  });
  EXPECT_EQ(host.randomPrices, before);
}

INSTANTIATE_TEST_SUITE_P(Types, NumbersHeldAs,
                         ::testing::Values(VT_BSTR, VT_UI1, VT_I2, VT_I8, VT_R4, VT_R8, VT_CY,
                                           VT_DECIMAL));

class TextsHeldAs : public FieldsOfOtherTypes, public ::testing::WithParamInterface<VARENUM> {};

TEST_P(TextsHeldAs, NumbersAreShownAndSavedAsTheirText) {
  for (const Text field :
       {u"Product", u"Caption", u"Description", u"URL", u"UOMUnitCaption", u"Name"}) {
    automationHost.fieldTypes[field] = static_cast<VARTYPE>(GetParam());
  }
  host.grades = {grade(std::int32_t{1}, u"95", u"98")};
  host.webSites = {site(u"2024", u"7", true), site(u"2025", u"8", false)};
  host.randomPrices = {format(std::int32_t{2}, 3, 1, true)};
  host.classes = {{{u"Name", Text(u"44")}, {u"Hidden", false}}};
  host.store(options::LVClass, u"44");
  const auto grades = host.grades;
  const auto sites = host.webSites;
  const auto formats = host.randomPrices;
  save(TabPage::pump, [&](frmOptions& dialog) {
    EXPECT_EQ(shown(dialog.tabs().pumpGrades.ltvPump, 0),
              (std::vector<std::vector<Text>>{{u"1", u"95", u"98"}}));
    EXPECT_EQ(shown(dialog.tabs().webSites.ltvWeb, WebSites::description),
              (std::vector<std::vector<Text>>{{u"2024", u"7"}, {u"2025", u"8"}}));
    EXPECT_EQ(dialog.tabs().randomPrice.ltvRandomPrice.text(0, RandomPrice::unitCaption), u"12");
    EXPECT_EQ(dialog.tabs().companyDetails.cboClass.text(), u"44");
  });
  EXPECT_EQ(host.grades, grades);
  EXPECT_EQ(host.webSites, sites);
  EXPECT_EQ(host.randomPrices, formats);
  EXPECT_EQ(host.value(options::LVClass), u"44");
}

INSTANTIATE_TEST_SUITE_P(Types, TextsHeldAs,
                         ::testing::Values(VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DECIMAL));

TEST_F(FieldsOfOtherTypes, RowsWhoseKeyIsNotAWholeNumberAreNeitherListedNorTouched) {
  host.grades = {grade(Text(u"three")), grade(1.5F), grade(std::int32_t{4}), grade(Value()),
                 grade(Text())};
  host.randomPrices = {format(Text(u"x"), 1, 1, true), format(std::int32_t{2}, 3, 1, true),
                       format(Money{15000}, 2, 3, false), format(Value(), 4, 0, false)};
  const Rows grades = host.grades;
  const Rows formats = host.randomPrices;
  save(TabPage::pump, [&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabs().pumpGrades.ltvPump.count(), 1);
    EXPECT_EQ(dialog.tabs().randomPrice.ltvRandomPrice.count(), 1);
  });
  EXPECT_EQ(host.grades, grades);
  EXPECT_EQ(host.randomPrices, formats);
}

TEST_F(FieldsOfOtherTypes, AKeyThatIsTooLargeEndsTheDialogAndNothingIsDeleted) {
  host.grades = {grade(Text(u"99999999999")), grade(std::int32_t{4})};
  const Rows before = host.grades;
  const Error failure = failureOf([&] { client->call(u"ShowOptions"); });
  EXPECT_EQ(failure.number(), error::overflow);
  EXPECT_EQ(failure.description(), u"GradeTable.Field gave a value that is too large.");
  EXPECT_EQ(host.grades, before);
}

}  // namespace
}  // namespace tillora::automation
