#include "host/shop_seed.h"

#include <array>
#include <memory>
#include <span>
#include <utility>

#include "host/shop_error.h"
#include "host/shop_settings.h"
#include "host/shop_table.h"
#include "host/stored_options.h"
#include "operations/clsRandomPrice.h"
#include "operations/report_captions.h"

namespace tillora::host {
namespace {

/// Borrows the caller's file for the tables and records below.
std::shared_ptr<ShopFile> borrowed(ShopFile& file) {
  return std::shared_ptr<ShopFile>(std::shared_ptr<void>(), &file);
}

void seedClasses(ShopFile& file) {
  struct Row {
    TextView name;
    bool hidden;
  };
  constexpr std::array kRows = {
      Row{u"Pharmacy", false},   Row{u"Fuel", false},
      Row{u"Shop", false},       Row{u"Online and mail orders", false},
      Row{u"Old system", true},  Row{u"Retail", false},
      Row{u"Adjustments", true},
  };
  ShopTable table(borrowed(file), tables::classes);
  for (const Row& row : kRows) {
    table.addNew();
    table.set(fields::class_::Name, Text(row.name));
    table.set(fields::class_::Hidden, row.hidden);
    table.update();
  }
}

void seedAccounts(ShopFile& file) {
  struct Row {
    TextView name;
    TextView type;
    bool inactive;
  };
  constexpr std::array kRows = {
      Row{u"Sales", u"INC", false},
      Row{u"Fuel Sales", u"INC", false},
      Row{u"Rounding", u"INC", false},
      Row{u"Dispensing Fees", u"INC", false},
      Row{u"Doctors' Discounts", u"INC", false},
      Row{u"Photo Lab; Prints|Frames", u"INC", false},
      Row{u"Old Income", u"INC", true},
      Row{u"Cash at Bank", u"BANK", false},
      Row{u"Cash Float", u"BANK", false},
      Row{u"Trade Debtors", u"AR", false},
      Row{u"Freight Out", u"EXP", false},
      Row{u"Bank Charges", u"EXP", false},
      Row{u"GST Collected", u"LIAB", false},
      Row{u"Gift Vouchers", u"LIAB", false},
      Row{u"Layby Deposits", u"LIAB", false},
  };
  ShopTable table(borrowed(file), tables::accounts);
  for (const Row& row : kRows) {
    table.addNew();
    table.set(fields::account::Name, Text(row.name));
    table.set(fields::account::Inactive, row.inactive);
    table.set(fields::account::AccountType, Text(row.type));
    table.update();
  }
}

void seedPaymentItems(ShopFile& file) {
  const std::array kRows = {
      PaymentItem{u"Cash", u"Notes and coins", u"Cash Float"},
      PaymentItem{u"Cheque", u"Personal and bank cheques", u"Cash at Bank"},
      PaymentItem{u"Credit Card", u"Credit cards", u"Cash at Bank"},
      PaymentItem{u"EFT", u"Debit cards at the terminal", u"Cash at Bank"},
      PaymentItem{u"Voucher", u"Gift vouchers of this shop", u"Gift Vouchers"},
      PaymentItem{u"Account", u"Charged to the customer's account", u"Trade Debtors"},
      PaymentItem{u"Foreign Cash", u"Notes of another currency", u"Cash Float"},
  };
  ShopTable table(borrowed(file), tables::paymentItems);
  for (const PaymentItem& row : kRows) {
    table.addNew();
    table.set({u"Name"}, row.name);
    table.set({u"Description"}, row.description);
    table.set({u"Account"}, row.account);
    table.update();
  }
}

void seedTerminals(ShopFile& file) {
  // Bit 1: all transactions of the terminal have been processed.
  constexpr std::array kRows = {u"Front Counter", u"Dispensary", u"Forecourt"};
  ShopTable table(borrowed(file), tables::terminals);
  for (const char16_t* name : kRows) {
    table.addNew();
    table.set({u"Name"}, Text(name));
    table.set(fields::terminal::ReportingBits, std::int32_t{1});
    table.update();
  }
}

void seedGrades(ShopFile& file) {
  struct Row {
    std::int32_t number;
    TextView product;
    TextView caption;
  };
  constexpr std::array kRows = {
      Row{1, u"Fuel:Unleaded 91", u"ULP 91"},
      Row{2, u"Fuel:Premium 95", u"PULP 95"},
      Row{3, u"Fuel:Diesel", u"Diesel"},
      Row{4, u"(None)", u""},
  };
  ShopTable table(borrowed(file), tables::grades);
  for (const Row& row : kRows) {
    table.addNew();
    table.set(fields::grade::GradeNumber, row.number);
    table.set(fields::grade::Product, Text(row.product));
    table.set(fields::grade::Caption, Text(row.caption));
    table.update();
  }
}

void seedWebSites(ShopFile& file) {
  struct Row {
    TextView description;
    TextView url;
    bool inactive;
  };
  constexpr std::array kRows = {
      Row{u"Fuel prices of the district", u"https://fuel.example/prices?area=windmere", false},
      Row{u"Supplier's order desk", u"https://orders.supplier.example/", true},
  };
  ShopTable table(borrowed(file), tables::webSites);
  for (const Row& row : kRows) {
    table.addNew();
    table.set(fields::webSite::Description, Text(row.description));
    table.set(fields::webSite::URL, Text(row.url));
    table.set(fields::webSite::Inactive, row.inactive);
    table.update();
  }
}

void seedRandomPrices(ShopFile& file) {
  struct Row {
    std::int32_t prefix;
    std::int32_t format;
    std::int32_t options;
    bool inactive;
  };
  constexpr std::array kRows = {
      Row{20, 1, kPriceIncludesTax, false},
      Row{21, 2, kPriceIncludesTax | kCalculateUnitOfMeasure, false},
      Row{22, 1, kPriceIncludesTax, true},
      Row{23, 1, kPriceIncludesTax, true},
      Row{24, 1, kPriceIncludesTax, true},
      Row{25, 1, kPriceIncludesTax, true},
      Row{26, 1, kPriceIncludesTax, true},
      Row{27, 1, kPriceIncludesTax, true},
      Row{28, 1, kPriceIncludesTax, true},
      Row{29, 1, kPriceIncludesTax, true},
      Row{2, 3, kPriceIncludesTax, true},
  };
  ShopTable table(borrowed(file), tables::randomPrices);
  for (const Row& row : kRows) {
    table.addNew();
    table.set(fields::randomPrice::Prefix, row.prefix);
    table.set(fields::randomPrice::FormatID, row.format);
    table.set(fields::randomPrice::OptionBits, row.options);
    table.set(fields::randomPrice::UOMUnitCaption, Text(u"kg"));
    table.set(fields::randomPrice::UOMPriceUnitCaption, Text(u"/kg"));
    table.set(fields::randomPrice::Inactive, row.inactive);
    table.update();
  }
}

void seedCurrencies(ShopFile& file) {
  ShopTable table(borrowed(file), tables::currencies);
  for (const char16_t* name : {u"Local", u"Foreign"}) {
    table.addNew();
    table.set(fields::currency::Name, Text(name));
    table.update();
  }
}

void seedReportCaptions(ShopFile& file) {
  const auto seed = [&file](std::span<const ReportCaption> captions) {
    for (const ReportCaption& caption : captions) {
      writeSetting(file, caption.setting, caption.standard, shop_object::settings);
    }
  };
  seed(kReportTitles);
  seed(kReportDetails);
}

void seedString(ShopFile& file, std::int64_t number, TextView text) {
  Statement row = file.writingStatement("INSERT INTO strings (Number, Value) VALUES (?1, ?2)",
                                        shop_object::strings);
  row.bind(1, number);
  row.bind(2, text);
  row.execute();
}

template <OptionType type>
void seedOption(ShopFile& file, const Option<type>& option, typename Option<type>::Type value) {
  writeOption(file, optionInfo(option.id), Value(std::move(value)));
}

void seedCompany(ShopFile& file) {
  seedOption(file, options::CompanyName, u"Harbour Street Pharmacy & Fuel");
  seedOption(file, options::CompanyAddress, u"12 Harbour Street\r\nWindmere NSW 2999");
  seedOption(file, options::CompanyPhone, u"(02) 5550 0142");
  seedOption(file, options::CompanyFax, u"(02) 5550 0143");
  seedOption(file, options::CompanyEmail, u"counter@harbour-street.example");
  seedOption(file, options::CompanyABN, u"51824753556");
  seedOption(file, options::CompanyACN, u"004085616");
  seedOption(file, options::LVClass, u"Online and mail orders");
  seedOption(file, options::LVSummariseBits, 3);
}

void seedListColumns(ShopFile& file) {
  seedOption(file, options::SalesPersonListColumns, 0x19);
  seedOption(file, options::ProductListColumns, 0x6399);
  seedOption(file, options::CustomerListColumns, 0x26B206);
  seedOption(file, options::LaybyCustomerListColumns, 0x794);
  seedOption(file, options::CurrencyListColumns, 0x7A);
}

void seedReceipts(ShopFile& file) {
  seedOption(file, options::TransactionOptionBits, 0x5E7);
  for (const auto* caption : {&options::TerminalIDCaption,
                              &options::TransactionNumberCaption,
                              &options::SalesPersonCaption,
                              &options::ItemsSoldCaption,
                              &options::TotalCaption,
                              &options::ChangeCaption,
                              &options::BalanceDueCaption,
                              &options::LaybyOpeningBalanceCaption,
                              &options::LaybyClosingBalanceCaption,
                              &options::LaybyDateDueCaption,
                              &options::TaxTotalCaption,
                              &options::TaxedSellPriceCaption,
                              &options::TaxedWholesaleCaption,
                              &options::TaxExemptCaption,
                              &options::ItemTaxCaption,
                              &options::TotalExTaxCaption,
                              &options::RoundedCaption,
                              &options::RoundingVarianceCaption,
                              &options::PumpPriceUnitCaption,
                              &options::PumpVolumeUnitCaption}) {
    seedOption(file, *caption, caption->defaultValue);
  }
}

void seedSales(ShopFile& file) {
  seedOption(file, options::RoundingItem, u"Charges:Cash Rounding");
  seedOption(file, options::RoundingStep, Money{500});
  seedOption(file, options::RoundingDirection, 1);
  seedOption(file, options::RoundingFlags, 0);
  seedOption(file, options::TaxRoundingMode, 1);
  seedOption(file, options::TaxRoundingDirection, 0);
  seedOption(file, options::DefaultCurrencyMargin, 2.5F);
  seedOption(file, options::RandomPriceScanningFlags, 1);
  seedOption(file, options::LaybyStartNumber, 1042);
  seedOption(file, options::LaybyTermDays, 90);
  seedOption(file, options::LaybyHistoryDays, 180);
  seedOption(file, options::LaybyTermsText, kDefaultLaybyTerms);
  seedOption(file, options::PumpOptionBits, 1);
}

void seedEndOfDay(ShopFile& file) {
  seedOption(file, options::EODOptionFlags, 0x131);
  seedOption(file, options::EODReconcileTotalFlags, 0xF);
  seedOption(file, options::EODDefaultReportBits, 0x203);
  seedOption(file, options::EODHistoryDays, 365);
  seedOption(file, options::TimeReportPeriod, 2);
  seedOption(file, options::PrintNRGT, true);
}

void seedDispensing(ShopFile& file) {
  seedOption(file, options::FREDLinkActive, true);
  seedOption(file, options::FREDDataFile, u"C:\\FRED\\pos.dat");
  seedOption(file, options::FREDPollSeconds, std::int16_t{15});
}

/// The passwords of four protected functions, so that the dialogs which change them can be tried;
/// the other functions ask for none.
void seedPasswords(ShopFile& file) {
  seedOption(file, options::AdminSecurityBits, 16 | 64);
  seedOption(file, options::PasswordDeleteTerminal, u"terminal");
  seedOption(file, options::PasswordChangePrices, u"prices");
  seedOption(file, options::TerminalSecurityBits, 1 | 4);
  seedOption(file, options::PasswordEndOfDay, u"evening");
  seedOption(file, options::PasswordGlobalOverride, u"manager");
  for (const auto* none : {&options::PasswordStartAdmin, &options::PasswordTransferData,
                           &options::PasswordPostTransactions, &options::PasswordCompactDatabase,
                           &options::PasswordAdminOptions, &options::PasswordPromotions,
                           &options::PasswordTerminalOptions}) {
    seedOption(file, *none, Text());
  }
}

}  // namespace

void seedSettings(ShopFile& file) {
  writeSetting(file, setting_names::decimalPlaces, u"2", shop_object::settings);
  writeSetting(file, setting_names::currencyFormat, u"$#,##0.00", shop_object::settings);
  writeSetting(file, setting_names::dispensingAvailable, u"True", shop_object::settings);
  seedString(file, 20000, u"Local");
  seedString(file, 20001, u"Foreign");
}

void seedShop(ShopFile& file) {
  seedClasses(file);
  seedAccounts(file);
  seedPaymentItems(file);
  seedTerminals(file);
  seedGrades(file);
  seedWebSites(file);
  seedRandomPrices(file);
  seedCurrencies(file);
  seedReportCaptions(file);
  writeSetting(file, setting_names::dataFile, u"C:\\Ledvane\\Harbour Street.lvd",
               shop_object::database);
  seedCompany(file);
  seedListColumns(file);
  seedReceipts(file);
  seedSales(file);
  seedEndOfDay(file);
  seedDispensing(file);
  seedPasswords(file);
}

}  // namespace tillora::host
