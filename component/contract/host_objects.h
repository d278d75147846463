#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/error.h"
#include "base/secret_text.h"
#include "base/text.h"
#include "base/values.h"
#include "component/contract/option_table.h"

/// The host program's objects, as the component uses them. Every operation can fail with an Error,
/// which nothing below ShowOptions catches unless its caller says so.
namespace tillora {

/// The record of stored options. A new one is obtained for each load and each save; a save's writes
/// become permanent with commit() and are undone if the record is released without it.
class OptionsRecord {
 public:
  virtual ~OptionsRecord() = default;

  /// The stored value converted to the option's type; none if nothing is stored.
  virtual Value read(OptionId option) = 0;
  virtual void write(OptionId option, const Value& value) = 0;
  /// Makes everything permanent that was written since the record was obtained, including table
  /// rows and settings.
  virtual void commit() = 0;

  /// The stored value; none if nothing is stored (a stored empty text is a value).
  template <OptionType type>
  std::optional<typename Option<type>::Type> get(const Option<type>& option) {
    Value value = read(option.id);
    if (value.isNone()) return std::nullopt;
    return std::move(value).template get<typename Option<type>::Type>();
  }
  /// The stored value, or the option's default if nothing is stored.
  template <OptionType type>
  typename Option<type>::Type getOrDefault(const Option<type>& option) {
    return get(option).value_or(option.defaultValue);
  }
  /// The stored value, or the type's zero (0, empty text, False) if nothing is stored.
  template <OptionType type>
  typename Option<type>::Type getOrZero(const Option<type>& option) {
    return get(option).value_or(typename Option<type>::Type{});
  }
  /// The stored text, or the empty one; no copy of it is left behind.
  SecretText getSecret(const Option<OptionType::Text>& option);
  void setSecret(const Option<OptionType::Text>& option, const SecretText& secret);
  template <OptionType type>
  void set(const Option<type>& option, typename Option<type>::Type value) {
    write(option.id, Value(std::move(value)));
  }
  /// The same, and returns whether the value differs from the one stored before; a save uses this
  /// to set its change bits.
  template <OptionType type>
  bool replace(const Option<type>& option, typename Option<type>::Type value) {
    const bool differs = getOrZero(option) != value;
    set(option, std::move(value));
    return differs;
  }
};

enum class FieldType : std::uint8_t { Text, Long, Boolean };

/// A table's column: its name, as criteria and hosts use it, and what it holds.
struct Field {
  const char16_t* name;
  FieldType type = FieldType::Text;
};

/// A table of the shop database with one current row.
class Table {
 public:
  virtual ~Table() = default;

  virtual void moveFirst() = 0;
  virtual void moveNext() = 0;
  /// No current row: past the last one, or the table is empty.
  virtual bool atEnd() = 0;

  /// Makes the first row that satisfies the criteria the current one; see noMatch(). Criteria are
  /// written as in "[Prefix] = 2"; texts are quoted by QuoteJetLiteral.
  virtual void findFirst(TextView criteria) = 0;
  /// The same for the first one after the current row.
  virtual void findNext(TextView criteria) = 0;
  /// The last find found nothing.
  virtual bool noMatch() = 0;

  /// Starts a new row, or editing of the current one; set() its fields, then update().
  virtual void addNew() = 0;
  virtual void edit() = 0;
  virtual void update() = 0;
  /// Deletes the current row. moveNext() goes on to the next one.
  virtual void remove() = 0;

  /// A field of the current row: a Text, std::int32_t or bool, as its type says. None if it
  /// holds no value, or one that cannot be converted.
  virtual Value get(Field field) = 0;
  virtual void set(Field field, const Value& value) = 0;

  /// The same; empty, 0 or False for none.
  Text text(Field field);
  std::int32_t integer(Field field);
  bool boolean(Field field);
};

/// The fields of the tables that the component uses.
namespace fields {
namespace class_ {  ///< accounting classes
inline constexpr Field Name{u"Name"};
inline constexpr Field Hidden{u"Hidden", FieldType::Boolean};
}  // namespace class_
namespace account {  ///< ledger accounts
inline constexpr Field Name{u"Name"};
inline constexpr Field Inactive{u"Inactive", FieldType::Boolean};
inline constexpr Field AccountType{u"AccountType"};  ///< "INC" is an income account
}  // namespace account
namespace randomPrice {  ///< random-price barcode formats, one per prefix
inline constexpr Field Prefix{u"Prefix", FieldType::Long};  ///< the key
inline constexpr Field FormatID{u"FormatID", FieldType::Long};
inline constexpr Field OptionBits{u"OptionBits", FieldType::Long};
inline constexpr Field UOMUnitCaption{u"UOMUnitCaption"};
inline constexpr Field UOMPriceUnitCaption{u"UOMPriceUnitCaption"};
inline constexpr Field Inactive{u"Inactive", FieldType::Boolean};
}  // namespace randomPrice
namespace grade {                                                     ///< fuel pump grades
inline constexpr Field GradeNumber{u"GradeNumber", FieldType::Long};  ///< the key
inline constexpr Field Product{u"Product"};                           ///< group, colon, item name
inline constexpr Field Caption{u"Caption"};
}  // namespace grade
namespace webSite {  ///< web-site links
inline constexpr Field Description{u"Description"};
inline constexpr Field URL{u"URL"};  ///< the key
inline constexpr Field Inactive{u"Inactive", FieldType::Boolean};
}  // namespace webSite
namespace currency {                   ///< currencies
inline constexpr Field Name{u"Name"};  ///< the key
}  // namespace currency
namespace terminal {  ///< shop terminals
/// 0 means un-processed transactions
inline constexpr Field ReportingBits{u"ReportingBits", FieldType::Long};
}  // namespace terminal
}  // namespace fields

/// One item of the catalogue.
struct Item {
  Text itemType;  ///< "STOCK", "PART", "GRP", "OTHC", ...
  Text productNumber;
  Text group;
  Text name;
  Text description;
  Text account;  ///< name of the ledger account it posts to
};

/// A payment item.
struct PaymentItem {
  Text name;
  Text description;
  Text account;
};

/// A walk over items from the first to the last.
template <class T>
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual void moveFirst() = 0;
  virtual bool atEnd() = 0;
  virtual void moveNext() = 0;
  /// Replaces `text` by a property of the current item. Nothing else of the item is read.
  virtual void read(Text T::* property, Text& text) = 0;
  Text get(Text T::* property) {
    Text text;
    read(property, text);
    return text;
  }
  /// The whole current item.
  T current();
};
template <>
inline Item Cursor<Item>::current() {
  return {get(&Item::itemType), get(&Item::productNumber), get(&Item::group),
          get(&Item::name),     get(&Item::description),   get(&Item::account)};
}
template <>
inline PaymentItem Cursor<PaymentItem>::current() {
  return {get(&PaymentItem::name), get(&PaymentItem::description), get(&PaymentItem::account)};
}

/// The shop database.
class JetDatabase {
 public:
  virtual ~JetDatabase() = default;

  virtual std::unique_ptr<OptionsRecord> optionsRecord() = 0;

  virtual std::unique_ptr<Table> classTable() = 0;
  virtual std::unique_ptr<Table> accountTable() = 0;
  virtual std::unique_ptr<Table> randomPriceTable() = 0;
  virtual std::unique_ptr<Table> gradeTable() = 0;
  virtual std::unique_ptr<Table> webSiteTable() = 0;
  virtual std::unique_ptr<Table> currencyTable() = 0;
  virtual std::unique_ptr<Cursor<Item>> itemList() = 0;
  virtual std::unique_ptr<Cursor<PaymentItem>> paymentItemList() = 0;

  /// Number of shop terminals that satisfy the criteria.
  virtual std::int32_t terminalCount(TextView criteria) = 0;

  /// Path of the accounting package's data file; empty for none.
  virtual Text dataFile() = 0;
  virtual void setDataFile(TextView path) = 0;
};

/// Settings of this machine.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Decimal places of the currency, 0 to 4; none if the host does not say.
  virtual std::optional<std::int16_t> decimalPlaces() = 0;
  /// Number format of currency amounts, e.g. "$#,##0.00".
  virtual Text currencyFormat() = 0;
  /// Decimal separator of the regional settings; empty if the host does not say.
  virtual Text decimalSeparator() = 0;
  /// Pharmacy dispensing is used; False if the host does not know the member.
  virtual bool dispensingAvailable() = 0;
  /// A named setting (report captions); none if it does not exist.
  virtual std::optional<Text> setting(TextView name) = 0;
  virtual void setSetting(TextView name, TextView value) = 0;
};

/// Numbered strings in the host's language.
class ResourceStrings {
 public:
  virtual ~ResourceStrings() = default;
  virtual Text string(std::int32_t number) = 0;
};

/// Notifies the other programs of the system.
class MessageSender {
 public:
  virtual ~MessageSender() = default;
  /// Options were saved at this time.
  virtual void send(DateTime when) = 0;
};

/// The host application's `App` object.
class App {
 public:
  virtual ~App() = default;
  /// Title of the product, e.g. "Tillora Administrator".
  virtual Text title() = 0;
  /// Folder of the host program, without a backslash at its end.
  virtual Text path() = 0;
};

/// Buttons, icon and default button of a message box (MB_*).
namespace message_style {
inline constexpr std::int32_t exclamation = 48;     ///< MB_ICONEXCLAMATION with OK
inline constexpr std::int32_t questionYesNo = 292;  ///< MB_ICONQUESTION, MB_YESNO, No the default
}  // namespace message_style

/// The button that closed a message box, as the platform numbers it (IDOK, IDYES, IDNO).
enum class MessageResult : std::int32_t { ok = 1, cancel = 2, yes = 6, no = 7 };

/// The host's message box: one object per message.
class HostMessageBox {
 public:
  virtual ~HostMessageBox() = default;
  /// Given before show().
  virtual void setSettingsStore(const std::shared_ptr<SettingsStore>& settings) = 0;
  /// Lines of the texts end with CR LF. `secondaryText` may be empty.
  virtual MessageResult show(TextView text, std::int32_t style, TextView title,
                             TextView secondaryText) = 0;
};

/// The objects that the host hands over. One that was not set is null and fails at its first use.
struct HostObjects {
  std::shared_ptr<JetDatabase> database;
  std::shared_ptr<App> app;
  std::shared_ptr<MessageSender> messageSender;
  std::shared_ptr<ResourceStrings> resources;
  std::shared_ptr<SettingsStore> settings;
};

/// The object; if it is null, the Error "object variable not set" (91) that names `property`.
template <class T>
T& requireObject(const std::shared_ptr<T>& object, TextView property) {
  if (!object) {
    throw Error(error::objectNotSet, Text(property) + u" was not set.");
  }
  return *object;
}

}  // namespace tillora
