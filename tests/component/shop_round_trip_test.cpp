// The component over a real shop database: what is saved is there after the program has ended.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "host/shop.h"
#include "host/shop_error.h"
#include "identity/company_details.h"
#include "identity/fred_link.h"
#include "identity/ledvane_link.h"
#include "identity/passwords.h"
#include "identity/web_sites.h"
#include "operations/end_of_day.h"
#include "operations/frmEODDefaultReports.h"
#include "operations/frmPumpGrade.h"
#include "operations/frmRandomPrice.h"
#include "operations/frmReportCaptions.h"
#include "operations/layby.h"
#include "operations/pump.h"
#include "operations/random_price.h"
#include "sales/currency_conversion.h"
#include "sales/frmBrowseItems.h"
#include "sales/list_columns.h"
#include "sales/rounding.h"
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
  /// Another program on the same shop. Waits for a lock only as long as a test can.
  host::Shop openAnother(const host::ShopContents& contents = {}) const {
    return host::Shop::open(file_.u16string(), contents, std::chrono::milliseconds(50));
  }
  void chooseDataFile(frmOptions& dialog, const Text& file) {
    machine.fileDialogs.answers.emplace_back(file);
    user.click(dialog.tabs().ledvaneLink.cmdLedvane);
  }
  Text stored(const Option<OptionType::Text>& option) {
    return shop->database()->optionsRecord()->get(option).value_or(u"<none>");
  }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      ("tillora-round-trip-" + std::to_string(std::random_device{}()));
  const std::filesystem::path file_ = folder_ / "shop.db";
  std::unique_ptr<host::Shop> shop;
};

class SeededShop : public ShopRoundTrip {
 protected:
  std::vector<std::string> dumped() const {
    std::ostringstream out;
    shop->dump(out);
    std::vector<std::string> lines;
    std::istringstream in(out.str());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(SeededShop, OpeningAndClosingTheDialogChangesNothing) {
  const auto before = dumped();
  open([&](frmOptions&) { user.accessKey(u'o'); });
  EXPECT_EQ(dumped(), before);
  EXPECT_TRUE(changes.empty());
}

TEST_F(SeededShop, ASaveChangesTheEditedValueAloneAndRaisesNoBit) {
  const auto before = dumped();
  open([&](frmOptions&) {
    user.selectAll();
    user.type(u"Corner Shop");
    user.accessKey(u'o');
  });
  const auto after = dumped();
  ASSERT_EQ(after.size(), before.size());
  std::vector<std::string> different;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (after[i] != before[i]) different.push_back(after[i]);
  }
  EXPECT_EQ(different, std::vector<std::string>{"CompanyName = \"Corner Shop\""});
  EXPECT_EQ(changes, std::vector<std::int32_t>{0});
}

TEST_F(SeededShop, EveryTabWithCheckBoxesShowsATickedOne) {
  openOn(TabPage::security, [&](frmOptions& dialog) {
    const auto anyTicked = [](const auto& boxes) {
      bool ticked = false;
      for (const auto& [index, box] : boxes) ticked |= box->value();
      return ticked;
    };
    EXPECT_TRUE(anyTicked(dialog.tabs().ledvaneLink.chkLedvane));
    EXPECT_TRUE(anyTicked(dialog.tabs().transactionOptions.chkTransaction));
    EXPECT_TRUE(anyTicked(dialog.tabs().randomPrice.chkRandomPrice));
    EXPECT_TRUE(anyTicked(dialog.tabs().endOfDay.chkEOD));
    EXPECT_TRUE(anyTicked(dialog.tabs().endOfDay.chkEODReconcile));
    EXPECT_TRUE(anyTicked(dialog.tabs().endOfDay.chkReports));
    EXPECT_TRUE(anyTicked(dialog.tabs().pumpGrades.chkPump));
    EXPECT_TRUE(anyTicked(dialog.tabs().passwords.chkSecurity));
    EXPECT_TRUE(anyTicked(dialog.tabs().fredLink.chkDispense));
  });
}

TEST_F(ShopRoundTrip, CompanyDetailsSurviveTheProgram) {
  const Text name = u"O'Neil; a|b;c \u00e9\u4e2d \"quoted\"";
  edit([&](frmOptions& dialog) {
    user.selectAll();
    user.type(name);
    user.click(dialog.tabs().companyDetails.txtCompanyDetails[CompanyDetails::firstOfAbn]);
    user.type(u"51824753556");
  });
  reopen();
  EXPECT_EQ(stored(options::CompanyName), name);
  EXPECT_EQ(stored(options::CompanyABN), u"51824753556");
  open([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabs().companyDetails.txtCompanyDetails[0].text(), name);
    EXPECT_EQ(dialog.tabs().companyDetails.txtCompanyDetails[11].text(), u"556");
  });
}

TEST_F(ShopRoundTrip, ReceiptsAndColumnsSurviveTheProgram) {
  const Text caption = u" Till no. '1' ";
  openOn(TabPage::transactions, [&](frmOptions& dialog) {
    const auto& receipt = dialog.tabs().transactionOptions;
    auto& box = receipt.chkTransaction[TransactionOptions::printTerminalId];
    if (!box.value()) user.click(box);
    user.click(receipt.txtCaption[TransactionOptions::terminalId]);
    user.selectAll();
    user.type(caption);
    user.clickTab(dialog.tabOptions, 2);
    auto& products = dialog.tabs().listColumns.lstListShow[ListColumns::product];
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

TEST_F(ShopRoundTrip, RoundingSurvivesTheProgram) {
  const Text caption = u" O'Neil's; a|b \u4e2d ";
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    auto& part = dialog.tabs().rounding;
    EXPECT_EQ(part.txtRoundingCaption[Rounding::item].text(), u"Charges:Cash Rounding");
    EXPECT_EQ(part.cboRounding[Rounding::step].text(), u"$0.05");
    user.choose(part.cboRounding[Rounding::direction], Rounding::upTo);
    user.choose(part.cboRounding[Rounding::step], 5);
    user.choose(part.cboRounding[Rounding::taxDirection], Rounding::downTo);
    user.click(part.optRounding[2]);
    user.click(part.chkRounding[0]);
    user.click(part.txtRoundingCaption[Rounding::roundedCaption]);
    user.paste(caption);
    user.click(part.txtRoundingCaption[Rounding::varianceCaption]);
    user.press(ui::Key::backspace);
    user.accessKey(u'o');
  });
  reopen();
  const auto record = shop->database()->optionsRecord();
  EXPECT_EQ(record->get(options::RoundingStep), Money{2500});
  EXPECT_EQ(record->get(options::RoundingDirection), 0);
  EXPECT_EQ(record->get(options::TaxRoundingDirection), 1);
  EXPECT_EQ(record->get(options::TaxRoundingMode), 2);
  EXPECT_EQ(record->get(options::RoundingFlags), 1);
  EXPECT_EQ(record->get(options::RoundedCaption), caption);
  EXPECT_EQ(record->get(options::RoundingVarianceCaption), u"");
  EXPECT_EQ(record->get(options::RoundingItem), u"Charges:Cash Rounding");
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    auto& part = dialog.tabs().rounding;
    EXPECT_EQ(part.cboRounding[Rounding::direction].text(), u"up to");
    EXPECT_EQ(part.cboRounding[Rounding::step].text(), u"$0.25");
    EXPECT_EQ(part.cboRounding[Rounding::taxDirection].text(), u"down to");
    EXPECT_TRUE(part.optRounding[2].value());
    EXPECT_TRUE(part.chkRounding[0].value());
    EXPECT_EQ(part.txtRoundingCaption[Rounding::roundedCaption].text(), caption);
  });
}

TEST_F(ShopRoundTrip, ARoundingItemOfTheSeededCatalogueSurvivesTheProgram) {
  std::vector<Text> names;
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form& form) {
      auto& items = dynamic_cast<frmBrowseItems&>(form).ltvItems;
      for (int row = 0; row < items.count(); ++row) names.push_back(items.text(row, 1));
      ASSERT_EQ(items.selectedRow(), 2);
      user.clickRow(items, 4);
      user.press(ui::Key::enter);
    });
    user.click(dialog.tabs().rounding.cmdBrowse);
    user.accessKey(u'o');
  });
  EXPECT_EQ(names, (std::vector<Text>{u"After Hours Fee", u"Card Surcharge", u"Cash Rounding",
                                      u"Delivery", u"Doctor's Bag", u"Photo Handling"}));
  reopen();
  EXPECT_EQ(stored(options::RoundingItem), u"Charges:Doctor's Bag");
  openOn(TabPage::rounding, [&](frmOptions& dialog) {
    desk->whenShown([&](ui::Form& form) {
      auto& items = dynamic_cast<frmBrowseItems&>(form).ltvItems;
      ASSERT_EQ(items.selectedRow(), 4);
      user.doubleClickRow(items, 3);
    });
    user.click(dialog.tabs().rounding.cmdBrowse);
    user.accessKey(u'o');
  });
  reopen();
  EXPECT_EQ(stored(options::RoundingItem), u"Delivery");
}

TEST_F(ShopRoundTrip, AMarginSurvivesTheProgram) {
  const auto margin = [&] {
    return shop->database()->optionsRecord()->get(options::DefaultCurrencyMargin);
  };
  EXPECT_EQ(margin(), 2.5F);
  openOn(TabPage::currency, [&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabs().currencyConversion.txtCurrencyConversion[0].text(), u"2.50");
    user.type(u"-1.015");
    user.accessKey(u'o');
  });
  reopen();
  EXPECT_EQ(margin(), -1.015F);
  openOn(TabPage::currency, [&](frmOptions& dialog) {
    auto& part = dialog.tabs().currencyConversion;
    EXPECT_EQ(part.txtCurrencyConversion[0].text(), u"-1.02");
    EXPECT_EQ(part.udCurrencyConversion.value(), -102);
    user.spin(part.udCurrencyConversion, +1);
    user.accessKey(u'o');
  });
  reopen();
  EXPECT_EQ(margin(), -1.0F);
}

TEST_F(ShopRoundTrip, GradesAreInTheTableAsTheyWereListed) {
  openOn(TabPage::pump, [&](frmOptions& dialog) {
    auto& pump = dialog.tabs().pumpGrades;
    ASSERT_EQ(pump.ltvPump.count(), 4);
    boxes.answers = {MessageResult::yes, MessageResult::yes};
    for (const int row : {1, 2}) {
      user.clickRow(pump.ltvPump, row);
      user.click(pump.cmdPump[PumpGrades::remove]);
    }
    desk->whenShown([&](ui::Form& form) {
      EXPECT_EQ(dynamic_cast<frmPumpGrade&>(form).GradeNumber, 2);
      user.type(u"O'Neil; a|b \u4e2d");
      user.press(ui::Key::enter);
    });
    user.click(pump.cmdPump[PumpGrades::add]);
    user.accessKey(u'o');
  });
  reopen();
  const auto table = shop->database()->gradeTable();
  std::vector<std::int32_t> numbers;
  std::vector<Text> captions;
  for (; !table->atEnd(); table->moveNext()) {
    numbers.push_back(table->integer(fields::grade::GradeNumber));
    captions.push_back(table->text(fields::grade::Caption));
  }
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(captions, (std::vector<Text>{u"ULP 91", u"O'Neil; a|b \u4e2d", u"Diesel"}));
}

TEST_F(ShopRoundTrip, WebSitesAreInTheTableAsTheyWereListed) {
  const Text address = u"http://\u4e2d.example/?q=O'Neil;a|b&\U0001f6d2";
  const auto enter = [&](TextView description, TextView url) {
    desk->whenShown([this, description, url](ui::Form&) {
      user.paste(description);
      user.press(ui::Key::tab);
      user.paste(url);
      user.press(ui::Key::enter);
    });
  };
  openOn(TabPage::web, [&](frmOptions& dialog) {
    auto& web = dialog.tabs().webSites;
    ASSERT_EQ(web.ltvWeb.count(), 2);
    {
      // Another program adds one meanwhile.
      host::Shop other = openAnother();
      const auto table = other.database()->webSiteTable();
      table->addNew();
      table->set(fields::webSite::Description, Text(u"Theirs"));
      table->set(fields::webSite::URL, Text(u"http://theirs"));
      table->update();
    }
    boxes.answers = {MessageResult::yes};
    user.click(web.cmdWeb[WebSites::remove]);
    enter(u"First", address);
    user.click(web.cmdWeb[WebSites::add]);
    enter(u"Second", address);
    user.click(web.cmdWeb[WebSites::add]);
    user.accessKey(u'o');
  });
  reopen();
  const auto table = shop->database()->webSiteTable();
  std::vector<Text> descriptions;
  for (; !table->atEnd(); table->moveNext()) {
    descriptions.push_back(table->text(fields::webSite::Description));
  }
  EXPECT_EQ(descriptions, (std::vector<Text>{u"Supplier's order desk", u"Theirs", u"Second"}));
  openOn(TabPage::web, [&](frmOptions& dialog) {
    const auto& list = dialog.tabs().webSites.ltvWeb;
    EXPECT_EQ(list.text(2, WebSites::url), address);
    EXPECT_EQ(list.rows()[0].smallIcon, ui::PictureId::inactive);
  });
}

TEST_F(ShopRoundTrip, AddressesThatLookLikeAnythingElseAreFoundAgain) {
  const std::vector<Text> addresses = {u"100% %s %1", u"&File && <b>",  u"a\r\nb", Text(u"x\0y", 3),
                                       u"x",          Text(10000, u'%')};
  shop->file().execute("DELETE FROM web_sites", u"Test");
  {
    const auto table = shop->database()->webSiteTable();
    for (const Text& address : addresses) {
      table->addNew();
      table->set(fields::webSite::Description, address);
      table->set(fields::webSite::URL, address);
      table->set(fields::webSite::Inactive, false);
      table->update();
    }
  }
  openOn(TabPage::web, [&](frmOptions& dialog) {
    auto& web = dialog.tabs().webSites;
    ASSERT_EQ(web.ltvWeb.count(), static_cast<int>(addresses.size()));
    user.clickRow(web.ltvWeb, 4);
    desk->whenShown([&](ui::Form&) {
      user.type(u"Edited");
      user.press(ui::Key::enter);
    });
    user.click(web.cmdWeb[WebSites::edit]);
    user.accessKey(u'o');
  });
  reopen();
  const auto table = shop->database()->webSiteTable();
  for (const Text& address : addresses) {
    ASSERT_FALSE(table->atEnd());
    EXPECT_EQ(table->text(fields::webSite::URL), address);
    EXPECT_EQ(table->text(fields::webSite::Description), address == u"x" ? u"Edited" : address);
    table->moveNext();
  }
  EXPECT_TRUE(table->atEnd());
}

TEST_F(ShopRoundTrip, AChosenDataFileSurvivesTheProgram) {
  const Text file = u"C:\\Books\\O'Neil; a|b \u4e2d.lvd";
  edit([&](frmOptions& dialog) { chooseDataFile(dialog, file); });
  EXPECT_TRUE(options_.ChangedDataFile());
  reopen();
  EXPECT_EQ(shop->database()->dataFile(), file);
  open([&](frmOptions& dialog) {
    EXPECT_EQ(dialog.tabs().ledvaneLink.txtLedvane.text(), file);
    user.click(dialog.tabs().ledvaneLink.cmdLedvane);
  });
  EXPECT_EQ(machine.files.listed.back(), u"C:\\Books\\LVPst*.pos");
}

TEST_F(ShopRoundTrip, ATerminalWithTransactionsKeepsTheDataFile) {
  const Text before = shop->database()->dataFile();
  shop->file().execute("UPDATE terminals SET ReportingBits = 0 WHERE rowid = 1", u"Test");
  open([&](frmOptions& dialog) { chooseDataFile(dialog, u"C:\\Books\\Shop.lvd"); });
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_TRUE(machine.fileDialogs.shown.empty());
  EXPECT_EQ(shop->database()->dataFile(), before);
}

TEST_F(ShopRoundTrip, LaybyAndDispensingSurviveTheProgram) {
  machine.fileDialogs.answers = {u"D:\\\u4e2d\\pos.dat"};
  openOn(TabPage::layby, [&](frmOptions& dialog) {
    user.type(u"2147483648");
    user.accessKey(u'e');
    user.type(u"O'Neil; a|b");
    user.press(ui::Key::enter);
    user.type(u"\u00e9");
    user.clickTab(dialog.tabOptions, static_cast<int>(TabPage::fred));
    if (!dialog.tabs().fredLink.chkDispense[0].value()) user.accessKey(u't');
    user.accessKey(u'r');
    user.accessKey(u'e');
    user.type(u"99");
    user.press(ui::Key::enter);
    EXPECT_FALSE(dialog.isShown());
  });
  reopen();
  const auto record = shop->database()->optionsRecord();
  EXPECT_EQ(record->get(options::LaybyStartNumber), 2147483647);
  EXPECT_EQ(record->get(options::LaybyTermsText), u"O'Neil; a|b\r\n\u00e9");
  EXPECT_EQ(record->get(options::FREDLinkActive), true);
  EXPECT_EQ(record->get(options::FREDDataFile), u"D:\\\u4e2d\\pos.dat");
  EXPECT_EQ(record->get(options::FREDPollSeconds), 60);
}

TEST_F(ShopRoundTrip, PasswordsSurviveTheProgramAndAreNotDumped) {
  const auto set = [&](Passwords::Protection protection, const std::vector<TextView>& texts) {
    openOn(TabPage::security, [&](frmOptions& dialog) {
      const auto& tab = dialog.tabs().passwords;
      if (!tab.chkSecurity[protection].value()) user.click(tab.chkSecurity[protection]);
      desk->whenShown([&](ui::Form&) {
        for (const TextView text : texts) {
          user.type(text);
          user.press(ui::Key::tab);
        }
        user.press(ui::Key::enter);
      });
      user.click(tab.cmdSecurity[protection]);
      user.accessKey(u'o');
    });
    reopen();
  };
  set(Passwords::startAdmin, {u"O'Ne;l|\"\u00c9\u4e2d", u"o'ne;l|\"\u00e9\u4e2d"});
  EXPECT_EQ(stored(options::PasswordStartAdmin), u"o'ne;l|\"\u00e9\u4e2d");
  EXPECT_EQ(shop->database()->optionsRecord()->get(options::AdminSecurityBits), 16 | 32 | 64);
  std::ostringstream dump;
  shop->dump(dump);
  EXPECT_NE(dump.str().find("PasswordStartAdmin = (set)"), std::string::npos);
  EXPECT_EQ(dump.str().find("o'ne"), std::string::npos);
  set(Passwords::startAdmin, {u"O'NE;L|\"\u00c9\u4e2d", u"", u""});
  EXPECT_EQ(stored(options::PasswordStartAdmin), u"");
  EXPECT_EQ(shop->database()->optionsRecord()->get(options::AdminSecurityBits), 16 | 32 | 64);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ShopRoundTrip, BarcodeFormatsSurviveTheProgram) {
  openOn(TabPage::scanning, [&](frmOptions&) { user.press(ui::Key::escape); });
  reopen();
  openOn(TabPage::scanning, [&](frmOptions& dialog) {
    auto& formats = dialog.tabs().randomPrice;
    ASSERT_EQ(formats.ltvRandomPrice.count(), 11);
    user.clickRow(formats.ltvRandomPrice, 10);
    desk->whenShown([&](ui::Form& form) {
      auto& editor = dynamic_cast<frmRandomPrice&>(form);
      user.choose(editor.cboRandomPrice, 4);
      user.click(editor.chkRandomPrice[frmRandomPrice::calculateUnitOfMeasure]);
      user.click(editor.chkRandomPrice[frmRandomPrice::inactive]);
      user.click(editor.txtRandomPrice[frmRandomPrice::unitCaption]);
      user.type(u"O'Neil's; a|b");
      user.press(ui::Key::enter);
    });
    user.click(formats.cmdRandomPrice);
    user.click(formats.chkRandomPrice[0]);
    user.accessKey(u'o');
  });
  reopen();
  EXPECT_EQ(shop->database()->optionsRecord()->get(options::RandomPriceScanningFlags), 0);
  const auto table = shop->database()->randomPriceTable();
  int count = 0;
  for (; !table->atEnd(); table->moveNext()) ++count;
  EXPECT_EQ(count, 11);
  table->findFirst(u"[Prefix] = 2");
  ASSERT_FALSE(table->noMatch());
  EXPECT_EQ(table->integer(fields::randomPrice::FormatID), 5);
  EXPECT_EQ(table->integer(fields::randomPrice::OptionBits), 3);
  EXPECT_EQ(table->text(fields::randomPrice::UOMUnitCaption), u"O'Neil's; a|b");
  EXPECT_EQ(table->text(fields::randomPrice::UOMPriceUnitCaption), u"/kg");
  EXPECT_FALSE(table->boolean(fields::randomPrice::Inactive));
}

TEST_F(ShopRoundTrip, StrangeBarcodeFormatsAreShownAndKept) {
  struct Row {
    std::int32_t prefix;
    std::int32_t format;
  };
  const std::vector<Row> strange = {{2, 9}, {100, 0}, {2, 4}, {-7, 3}};
  shop->file().execute("DELETE FROM random_prices", u"Test");
  {
    const auto table = shop->database()->randomPriceTable();
    for (const Row& row : strange) {
      table->addNew();
      table->set(fields::randomPrice::Prefix, row.prefix);
      table->set(fields::randomPrice::FormatID, row.format);
      table->update();
    }
  }
  openOn(TabPage::scanning, [&](frmOptions& dialog) {
    const auto& list = dialog.tabs().randomPrice.ltvRandomPrice;
    ASSERT_EQ(list.count(), 3);
    const std::vector<Text> prefixes = {u"02", u"100", u"-07"};
    for (int row = 0; row < 3; ++row) {
      EXPECT_EQ(list.text(row, RandomPrice::prefix), prefixes[static_cast<std::size_t>(row)]);
    }
    user.click(dialog.tabs().randomPrice.chkRandomPrice[0]);
    user.accessKey(u'o');
  });
  reopen();
  const auto table = shop->database()->randomPriceTable();
  for (const Row& row : strange) {
    ASSERT_FALSE(table->atEnd());
    EXPECT_EQ(table->integer(fields::randomPrice::Prefix), row.prefix);
    EXPECT_EQ(table->integer(fields::randomPrice::FormatID), row.format);
    table->moveNext();
  }
  EXPECT_TRUE(table->atEnd());
}

TEST_F(ShopRoundTrip, ReportsAndTheirCaptionsSurviveTheProgram) {
  const Text title = Text(10000, u'&') + u" 'Day' | ; \u4e2d ";
  openOn(TabPage::eod, [&](frmOptions& dialog) {
    auto& part = dialog.tabs().endOfDay;
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
  open([&](frmOptions& dialog) { count = dialog.tabs().companyDetails.cboClass.count(); });
  ASSERT_GT(count, 2);
  for (int item = count - 1; item >= 0; --item) {
    Text chosen;
    edit([&](frmOptions& dialog) {
      auto& classes = dialog.tabs().companyDetails.cboClass;
      user.choose(classes, item);
      chosen = item == 0 ? Text() : classes.text();
    });
    EXPECT_EQ(stored(options::LVClass), chosen);
  }
}

TEST_F(ShopRoundTrip, AFailureWhileSavingLeavesTheOldState) {
  const Text before = stored(options::CompanyName);
  const Text fileBefore = shop->database()->dataFile();
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
  desk->whenShown([&](ui::Form& form) {
    user.type(u"Other");
    chooseDataFile(dynamic_cast<frmOptions&>(form), u"C:\\Books\\Other.lvd");
    user.accessKey(u'o');
  });
  EXPECT_THROW(options_.ShowOptions(), Error);
  EXPECT_EQ(stored(options::CompanyName), before);
  EXPECT_EQ(shop->database()->dataFile(), fileBefore);
  reopen();
  EXPECT_EQ(stored(options::CompanyName), before);
  EXPECT_EQ(shop->database()->dataFile(), fileBefore);
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
      raw.seekp(std::streamoff{page} * 4096);
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
