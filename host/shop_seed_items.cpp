#include <array>
#include <string>

#include "base/numbers.h"
#include "host/shop_file.h"
#include "host/shop_seed.h"

namespace tillora::host {
namespace {

struct ItemRow {
  TextView type;
  TextView number;
  TextView group;
  TextView name;
  TextView description;
  TextView account;
};

constexpr std::array kItems = {
    ItemRow{u"GRP", u"", u"", u"Fuel", u"Fuel at the pumps", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0001", u"Fuel", u"Unleaded 91", u"Unleaded petrol", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0002", u"Fuel", u"Premium 95", u"Premium unleaded petrol", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0003", u"Fuel", u"Premium 98", u"High octane petrol", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0004", u"Fuel", u"Diesel", u"Diesel", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0005", u"Fuel", u"LPG", u"Liquefied petroleum gas", u"Fuel Sales"},
    ItemRow{u"STOCK", u"0006", u"Fuel", u"AdBlue", u"Diesel exhaust fluid", u"Fuel Sales"},
    ItemRow{u"GRP", u"", u"", u"Medicines", u"Over the counter medicines", u"Sales"},
    ItemRow{u"STOCK", u"1001", u"Medicines", u"Aspirin 24", u"Aspirin 300 mg, 24 tablets",
            u"Sales"},
    ItemRow{u"STOCK", u"1002", u"Medicines", u"Paracetamol 20", u"Paracetamol 500 mg, 20 tablets",
            u"Sales"},
    ItemRow{u"STOCK", u"1003", u"Medicines", u"Paracetamol 100", u"Paracetamol 500 mg, 100 tablets",
            u"Sales"},
    ItemRow{u"STOCK", u"1004", u"Medicines", u"Ibuprofen 24", u"Ibuprofen 200 mg, 24 tablets",
            u"Sales"},
    ItemRow{u"STOCK", u"1005", u"Medicines", u"Cough Syrup", u"Cough syrup, 200 mL", u"Sales"},
    ItemRow{u"STOCK", u"1006", u"Medicines", u"Throat Lozenges", u"Honey and lemon, 16", u"Sales"},
    ItemRow{u"STOCK", u"1007", u"Medicines", u"Antihistamine 30", u"Non-drowsy, 30 tablets",
            u"Sales"},
    ItemRow{u"STOCK", u"1008", u"Medicines", u"Nasal Spray", u"Saline nasal spray, 30 mL",
            u"Sales"},
    ItemRow{u"STOCK", u"1009", u"Medicines", u"Antacid 48", u"Chewable, 48 tablets", u"Sales"},
    ItemRow{u"STOCK", u"1010", u"Medicines", u"Eye Drops", u"Lubricating, 15 mL", u"Sales"},
    ItemRow{u"GRP", u"", u"", u"First Aid", u"Dressings and first aid", u"Sales"},
    ItemRow{u"STOCK", u"2001", u"First Aid", u"Plasters 50", u"Assorted plasters, 50", u"Sales"},
    ItemRow{u"STOCK", u"2002", u"First Aid", u"Crepe Bandage", u"75 mm by 1.5 m", u"Sales"},
    ItemRow{u"STOCK", u"2003", u"First Aid", u"Antiseptic Cream", u"50 g tube", u"Sales"},
    ItemRow{u"STOCK", u"2004", u"First Aid", u"Saline Solution", u"Sterile, 250 mL", u"Sales"},
    ItemRow{u"STOCK", u"2005", u"First Aid", u"Thermometer", u"Digital thermometer", u"Sales"},
    ItemRow{u"STOCK", u"2006", u"First Aid", u"First Aid Kit", u"Car first aid kit", u"Sales"},
    ItemRow{u"GRP", u"", u"", u"Skin Care", u"Skin and sun care", u"Sales"},
    ItemRow{u"STOCK", u"3001", u"Skin Care", u"Sunscreen 50+", u"Sunscreen SPF 50+, 200 mL",
            u"Sales"},
    ItemRow{u"STOCK", u"3002", u"Skin Care", u"Hand Cream", u"Hand cream, 100 mL", u"Sales"},
    ItemRow{u"STOCK", u"3003", u"Skin Care", u"Lip Balm", u"Lip balm SPF 30", u"Sales"},
    ItemRow{u"STOCK", u"3004", u"Skin Care", u"Sorbolene", u"Sorbolene cream, 500 mL", u"Sales"},
    ItemRow{u"STOCK", u"3005", u"Skin Care", u"Cr\u00E8me de Jour", u"Day cream, 50 mL", u"Sales"},
    ItemRow{u"GRP", u"", u"", u"Vitamins", u"Vitamins and supplements", u"Sales"},
    ItemRow{u"STOCK", u"4001", u"Vitamins", u"Vitamin C 100", u"500 mg, 100 tablets", u"Sales"},
    ItemRow{u"STOCK", u"4002", u"Vitamins", u"Vitamin D 60", u"1000 IU, 60 capsules", u"Sales"},
    ItemRow{u"STOCK", u"4003", u"Vitamins", u"Fish Oil 200", u"1000 mg, 200 capsules", u"Sales"},
    ItemRow{u"STOCK", u"4004", u"Vitamins", u"Magnesium 50", u"50 tablets", u"Sales"},
    ItemRow{u"GRP", u"", u"", u"Baby", u"Baby goods", u"Sales"},
    ItemRow{u"STOCK", u"5001", u"Baby", u"Nappies Newborn", u"Pack of 54", u"Sales"},
    ItemRow{u"STOCK", u"5002", u"Baby", u"Nappies Toddler", u"Pack of 44", u"Sales"},
    ItemRow{u"STOCK", u"5003", u"Baby", u"Baby Wipes", u"Pack of 80", u"Sales"},
    ItemRow{u"STOCK", u"5004", u"Baby", u"Infant Formula", u"900 g tin", u"Sales"},
    ItemRow{u"GRP", u"", u"", u"Shop", u"Drinks, snacks and gifts", u"Sales"},
    ItemRow{u"STOCK", u"6001", u"Shop", u"Spring Water", u"600 mL", u"Sales"},
    ItemRow{u"STOCK", u"6002", u"Shop", u"Coffee", u"Regular cup", u"Sales"},
    ItemRow{u"STOCK", u"6003", u"Shop", u"Meat Pie", u"Hot meat pie", u"Sales"},
    ItemRow{u"STOCK", u"6004", u"Shop", u"Jelly Beans", u"Sold by weight", u"Sales"},
    ItemRow{u"STOCK", u"6005", u"Shop", u"Greeting Card", u"Assorted", u"Sales"},
    ItemRow{u"PART", u"7001", u"Car", u"Wiper Blade 450", u"450 mm wiper blade", u"Sales"},
    ItemRow{u"PART", u"7002", u"Car", u"Wiper Blade 550", u"550 mm wiper blade", u"Sales"},
    ItemRow{u"PART", u"7003", u"Car", u"Globe H4", u"Headlight globe", u"Sales"},
    ItemRow{u"PART", u"7004", u"Car", u"Engine Oil 1 L", u"10W-40, 1 litre", u"Sales"},
    ItemRow{u"PART", u"7005", u"Car", u"Coolant 1 L", u"Premixed coolant", u"Sales"},
    ItemRow{u"STOCK", u"8001", u"", u"Gift Card", u"Gift card without a group", u"Gift Vouchers"},
    ItemRow{u"SERV", u"8002", u"Services", u"Blood Pressure Check", u"In the pharmacy", u"Sales"},
    ItemRow{u"SERV", u"8003", u"Services", u"Photo Print", u"10 by 15 cm", u"Sales"},
    ItemRow{u"SUBT", u"", u"", u"Subtotal", u"Subtotal line", u""},
    ItemRow{u"OTHC", u"", u"Charges", u"Cash Rounding", u"Rounding of cash amounts", u"Rounding"},
    ItemRow{u"OTHC", u"", u"Charges", u"Card Surcharge", u"Surcharge on cards", u"Sales"},
    ItemRow{u"OTHC", u"", u"Charges", u"After Hours Fee", u"Dispensing after hours",
            u"Dispensing Fees"},
    ItemRow{u"OTHC", u"", u"Charges", u"Doctor's Bag", u"Account with an apostrophe",
            u"Doctors' Discounts"},
    ItemRow{u"OTHC", u"", u"Charges", u"Photo Handling", u"Account with a bar and a semicolon",
            u"Photo Lab; Prints|Frames"},
    ItemRow{u"OTHC", u"", u"", u"Delivery", u"Charge without a group", u"Sales"},
    ItemRow{u"OTHC", u"", u"Charges", u"Freight", u"Posts to an expense account", u"Freight Out"},
    ItemRow{u"OTHC", u"", u"Charges", u"Old Surcharge", u"Posts to an inactive account",
            u"Old Income"},
    ItemRow{u"OTHC", u"", u"Charges", u"Lost Charge", u"Posts to an account that is gone",
            u"No Such Account"},
    ItemRow{u"OTHC", u"", u"Charges", u"Voucher Breakage", u"Posts to a liability",
            u"Gift Vouchers"},
};

void insertItem(ShopFile& file, const ItemRow& item) {
  Statement row = file.writingStatement(
      "INSERT INTO items (ItemType, ProductNumber, \"Group\", Name, Description, Account) "
      "VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
      u"ItemList");
  row.bind(1, item.type);
  row.bind(2, item.number);
  row.bind(3, item.group);
  row.bind(4, item.name);
  row.bind(5, item.description);
  row.bind(6, item.account);
  row.execute();
}

}  // namespace

void seedItems(ShopFile& file) {
  for (const ItemRow& item : kItems) insertItem(file, item);
}

void seedCatalogue(ShopFile& file, std::int32_t count) {
  constexpr std::array kTypes = {u"STOCK", u"STOCK", u"STOCK", u"PART", u"STOCK",
                                 u"STOCK", u"GRP",   u"OTHC",  u"SERV", u"STOCK"};
  constexpr std::array kAccounts = {u"Sales", u"Fuel Sales", u"Rounding", u"Freight Out",
                                    u"Old Income"};
  constexpr std::int32_t kPerGroup = 250;
  for (std::int32_t i = 0; i < count; ++i) {
    const Text number = decimalText(i + 1);
    // Names come neither sorted nor reversed, so that sorting them has work to do.
    const auto scattered = static_cast<std::uint32_t>(i) * 2654435761U;
    const Text name = u"Item " + decimalText(scattered % 1000000U) + u"-" + number;
    const Text group = u"Group " + decimalText(i / kPerGroup + 1);
    const Text description = u"Made-up item number " + number;
    const auto position = static_cast<std::size_t>(i);
    insertItem(file, {kTypes[position % kTypes.size()], number, group, name, description,
                      kAccounts[position % kAccounts.size()]});
  }
}

}  // namespace tillora::host
