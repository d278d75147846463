// The component over a real shop database: what is saved is there after the program has ended.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/shop.h"
#include "host/shop_error.h"
#include "identity/company_details.h"
#include "operations/end_of_day.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmReportCaptions.h"
#include "sales/list_columns.h"
#include "sales/transactions.h"
#include "support/modJetSQLFixup.h"
#include "tests/testing/options_test.h"

namespace tillora::testing {
namespace {

class ShopRoundTrip : public OptionsTest {
 protected:
  ShopRoundTrip() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    reopen();
  }
  ~ShopRoundTrip() override {
    shop.reset();
    std::filesystem::remove_all(folder_);
  }

  void reopen(const host::ShopContents& contents = {}) {
    shop.reset();
    shop = std::make_unique<host::Shop>(openAnother(contents));
    options_.DBJetObject = shop->database();
    options_.SettingsObject = shop->settings();
    options_.ResourceObject = shop->strings();
  }
  /// Another program on the same shop. Waits for a lock no longer than a test can.
  host::Shop openAnother(const host::ShopContents& contents = {}) const {
    return host::Shop::open(file_.u16string(), contents, std::chrono::milliseconds(50));
  }
  Text stored(const Option<OptionType::Text>& option) {
    return shop->database()->optionsRecord()->get(option).value_or(u"<none>");
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("tillora-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
  const std::filesystem::path file_ = folder_ / "shop.db";
  std::unique_ptr<host::Shop> shop;
};

TEST_F(ShopRoundTrip, CompanyDetailsSurviveTheProgram) {
  const Text name = u"O'Neil; a|b;c \u00e9\u4e2d \"quoted\"";
  edit([&](frmOptions& dialog) {
    user.selectAll();
    user.type(name);
    user.click(dialog.tab<CompanyDetails>().txtCompanyDetails[CompanyDetails::firstOfAbn]);
    user.type(u"51824753556");
  });
  reopen();
  EXPECT_EQ(stored(options::CompanyName), name);
  EXPECT_EQ(stored(options::CompanyABN), u"51824753556");
  open([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tab<CompanyDetails>().txtCompanyDetails[0].text(), name);
    EXPECT_EQ(dialog.tab<CompanyDetails>().txtCompanyDetails[11].text(), u"556");
  });
}

TEST_F(ShopRoundTrip, ReceiptsAndColumnsSurviveTheProgram) {
  const Text caption = u" Till no. '1' ";
  openOn(TabPage::transactions, [&](frmOptions& dialog) {
    const auto& receipt = dialog.tab<TransactionOptions>();
    auto& box = receipt.chkTransaction[TransactionOptions::printTerminalId];
    if (!box.value()) user.click(box);
    user.click(receipt.txtCaption[TransactionOptions::terminalId]);
    user.selectAll();
    user.type(caption);
    user.clickTab(dialog.tabOptions, 2);
    auto& products = dialog.tab<ListColumns>().lstListShow[ListColumns::product];
    for (int row = 0; row < products.count(); ++row) {
      const bool wanted = row == products.count() - 1;
      if (products.checked(row) != wanted) user.clickCheck(products, row);
    }
    user.accessKey(u'o');
  });
  reopen();
  const auto record = shop->database()->optionsRecord();
  EXPECT_EQ(record->get(options::TerminalIDCaption), caption);
  EXPECT_EQ(record->getOrZero(options::TransactionOptionBits) & 1, 1);
  EXPECT_EQ(record->get(options::ProductListColumns), -0x8000);
}

TEST_F(ShopRoundTrip, ReportsAndTheirCaptionsSurviveTheProgram) {
  const Text title = Text(10000, u'&') + u" 'Day' | ; \u4e2d ";
  openOn(TabPage::eod, [&](frmOptions& dialog) {
    auto& part = dialog.tab<EndOfDay>();
    user.click(part.txtEOD);
    user.selectAll();
    user.paste(u"99999");
    desk->whenShown([&](ui::Form& form) {
      auto& reports = dynamic_cast<frmEODDefaultReports&>(form);
      user.click(reports.cmdCommand[frmEODDefaultReports::selectAll]);
      user.click(reports.cmdCommand[frmEODDefaultReports::ok]);
    });
    user.click(part.cmdReports[EndOfDay::defaultReports]);
    desk->whenShown([&](ui::Form& form) {
      auto& captions = dynamic_cast<frmReportCaptions&>(form);
      user.paste(title);
      user.clickTab(captions.tabReportCaptions, 2);
      user.click(captions.txtReportDetailCaption[0]);
      user.type(u"Notes && coins");
      user.click(captions.cmdCommand[frmReportCaptions::ok]);
    });
    user.click(part.cmdReports[EndOfDay::reportCaptions]);
    user.accessKey(u'o');
  });
  reopen();
  const auto record = shop->database()->optionsRecord();
  EXPECT_EQ(record->get(options::EODHistoryDays), 730);
  EXPECT_EQ(record->getOrZero(options::EODDefaultReportBits) & 0x1FF, 0x1FF);
  EXPECT_EQ(shop->settings()->setting(u"ReportTitleBalanceReport"), title);
  EXPECT_EQ(shop->settings()->setting(u"ReportDetailCashInDrawer"), u"Notes && coins");
  EXPECT_EQ(shop->settings()->setting(u"ReportTitleEndofDay"), u"End of Day");
}

TEST_F(ShopRoundTrip, CancelLeavesTheShopAsItWas) {
  const Text before = stored(options::CompanyName);
  open([&](frmOptions&) { user.type(u"Other"); });
  reopen();
  EXPECT_EQ(stored(options::CompanyName), before);
}

TEST_F(ShopRoundTrip, EveryClassOfTheSeededShopCanBeChosenAndKept) {
  int count = 0;
  open([&](frmOptions& dialog) { count = dialog.tab<CompanyDetails>().cboClass.count(); });
  ASSERT_GT(count, 2);
  for (int item = count - 1; item >= 0; --item) {
    Text chosen;
    edit([&](frmOptions& dialog) {
      auto& classes = dialog.tab<CompanyDetails>().cboClass;
      user.choose(classes, item);
      chosen = item == 0 ? Text() : classes.text();
    });
    EXPECT_EQ(stored(options::LVClass), chosen);
  }
}

TEST_F(ShopRoundTrip, AFailureWhileSavingLeavesTheOldState) {
  const Text before = stored(options::CompanyName);
  // The class is written last; the message sender fails after the commit, a missing record before.
  struct FailingRecord final : OptionsRecord {
    explicit FailingRecord(std::unique_ptr<OptionsRecord> r) : record(std::move(r)) {}
    Value read(OptionId option) override { return record->read(option); }
    void write(OptionId option, const Value& value) override {
      if (option == OptionId::LVClass) throw FakeHost::failure();
      record->write(option, value);
    }
    void commit() override { record->commit(); }
    std::unique_ptr<OptionsRecord> record;
  };
  struct FailingDatabase final : JetDatabase {
    explicit FailingDatabase(std::shared_ptr<JetDatabase> d) : database(std::move(d)) {}
    std::unique_ptr<OptionsRecord> optionsRecord() override {
      return std::make_unique<FailingRecord>(database->optionsRecord());
    }
    std::unique_ptr<Table> classTable() override { return database->classTable(); }
    std::unique_ptr<Table> accountTable() override { return database->accountTable(); }
    std::unique_ptr<Table> randomPriceTable() override { return database->randomPriceTable(); }
    std::unique_ptr<Table> gradeTable() override { return database->gradeTable(); }
    std::unique_ptr<Table> webSiteTable() override { return database->webSiteTable(); }
    std::unique_ptr<Table> currencyTable() override { return database->currencyTable(); }
    std::unique_ptr<Cursor<Item>> itemList() override { return database->itemList(); }
    std::unique_ptr<Cursor<PaymentItem>> paymentItemList() override {
      return database->paymentItemList();
    }
    std::int32_t terminalCount(TextView criteria) override {
      return database->terminalCount(criteria);
    }
    Text dataFile() override { return database->dataFile(); }
    void setDataFile(TextView path) override { database->setDataFile(path); }
    std::shared_ptr<JetDatabase> database;
  };
  options_.DBJetObject = std::make_shared<FailingDatabase>(shop->database());
  desk->whenShown([&](ui::Form&) {
    user.type(u"Other");
    user.accessKey(u'o');
  });
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_EQ(stored(options::CompanyName), before);
  reopen();
  EXPECT_EQ(stored(options::CompanyName), before);
}

TEST_F(ShopRoundTrip, ASaveWhileAnotherProgramSavesIsAClearErrorAndLosesNothing) {
  const Text before = stored(options::CompanyName);
  host::Shop other = openAnother();
  auto saving = other.database()->optionsRecord();
  saving->set(options::CompanyFax, u"from elsewhere");
  desk->whenShown([&](ui::Form&) {
    user.type(u"Other");
    user.accessKey(u'o');
  });
  try {
    options_.ShowOptions();
    ADD_FAILURE();
  } catch (const Error& failure) {
    EXPECT_EQ(failure.number(), host::shop_error::locked);
    EXPECT_TRUE(failure.source().starts_with(u"TilloraHost."));
    EXPECT_NE(failure.description(), u"");
  }
  EXPECT_TRUE(changes.empty());
  EXPECT_TRUE(host.sent.empty());
  saving->commit();
  saving.reset();
  EXPECT_EQ(stored(options::CompanyName), before);
  EXPECT_EQ(stored(options::CompanyFax), u"from elsewhere");
  edit([&](frmOptions&) { user.type(u"Later"); });
  EXPECT_EQ(stored(options::CompanyName), u"Later");
}

TEST_F(ShopRoundTrip, ADamagedShopIsAClearErrorBeforeAnyDialog) {
  shop.reset();
  options_.DBJetObject.reset();
  options_.SettingsObject.reset();
  options_.ResourceObject.reset();
  {
    std::fstream raw(file_, std::ios::in | std::ios::out | std::ios::binary);
    for (int page = 1; page < 8; ++page) {
      raw.seekp(page * 4096);
      raw << std::string(4096, '?');
    }
  }
  try {
    openAnother();
    ADD_FAILURE();
  } catch (const Error& failure) {
    EXPECT_EQ(failure.number(), host::shop_error::damaged);
    EXPECT_NE(failure.description(), u"");
  }
}

TEST_F(ShopRoundTrip, FirstUseFillsAnEmptyShop) {
  shop.reset();
  std::filesystem::remove(file_);
  reopen({.seeded = false, .itemCount = std::nullopt});
  EXPECT_EQ(stored(options::CompanyName), u"<none>");
  options_.FirstUse = true;
  open([&](frmOptions&) {});
  EXPECT_EQ(stored(options::CompanyName), u"");
  const auto currencies = shop->database()->currencyTable();
  for (const Text name : {u"Local", u"Foreign"}) {
    currencies->findFirst(u"[Name] = " + QuoteJetLiteral(name));
    EXPECT_FALSE(currencies->noMatch()) << toUtf8(name);
  }
}

TEST_F(ShopRoundTrip, AnyClassNameIsFoundByItsLiteral) {
  const auto table = shop->database()->classTable();
  for (const Text name : {u"O'Neil", u"a|b;c", u"'", u"", u"x' AND [Hidden] = 'y", u"Chr$(39)"}) {
    table->addNew();
    table->set(fields::class_::Name, name);
    table->set(fields::class_::Hidden, false);
    table->update();
    table->findFirst(u"[Name] = " + QuoteJetLiteral(name));
    ASSERT_FALSE(table->noMatch()) << toUtf8(name);
    EXPECT_EQ(table->text(fields::class_::Name), name);
  }
}

}  // namespace
}  // namespace tillora::testing
