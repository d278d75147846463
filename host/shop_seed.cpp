#include "host/shop_seed.h"

#include <array>
#include <memory>

#include "host/shop_settings.h"
#include "host/shop_table.h"
#include "host/stored_options.h"

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

void seedString(ShopFile& file, std::int64_t number, TextView text) {
  Statement row = file.writingStatement("INSERT INTO strings (Number, Value) VALUES (?1, ?2)",
                                        u"ResourceStrings");
  row.bind(1, number);
  row.bind(2, text);
  row.execute();
}

void seedOption(ShopFile& file, OptionId option, const Value& value) {
  writeOption(file, optionInfo(option), value);
}

}  // namespace

void seedSettings(ShopFile& file) {
  constexpr TextView kObject = u"SettingsStore";
  writeSetting(file, setting_names::decimalPlaces, u"2", kObject);
  writeSetting(file, setting_names::currencyFormat, u"$#,##0.00", kObject);
  writeSetting(file, setting_names::dispensingAvailable, u"True", kObject);
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
  seedOption(file, OptionId::CompanyName, Text(u"Harbour Street Pharmacy & Fuel"));
  seedOption(file, OptionId::CompanyAddress, Text(u"12 Harbour Street\r\nWindmere NSW 2999"));
  seedOption(file, OptionId::CompanyPhone, Text(u"(02) 5550 0142"));
  seedOption(file, OptionId::CompanyEmail, Text(u"counter@harbour-street.example"));
  seedOption(file, OptionId::CompanyABN, Text(u"51824753556"));
  seedOption(file, OptionId::CompanyACN, Text(u"004085616"));
  seedOption(file, OptionId::LVClass, Text(u"Online and mail orders"));
  seedOption(file, OptionId::LVSummariseBits, std::int32_t{1});
  seedOption(file, OptionId::RoundingItem, Text(u"Charges:Cash Rounding"));
  seedOption(file, OptionId::RoundingStep, Money{500});
  seedOption(file, OptionId::DefaultCurrencyMargin, 2.5F);
  seedOption(file, OptionId::PumpOptionBits, std::int32_t{1});
  seedOption(file, OptionId::TaxExemptCaption, Text());
}

}  // namespace tillora::host
