#include "tests/testing/fake_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "support/modJetSQLFixup.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {
namespace {

/// Counts itself among the objects that the host has handed out.
class Counted {
 public:
  explicit Counted(FakeHost& host) : host_(host) { ++host_.live; }
  ~Counted() { --host_.live; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 protected:
  FakeHost& host_;
};

class FakeRecord final : public OptionsRecord, Counted {
 public:
  explicit FakeRecord(FakeHost& host) : Counted(host), written_(host.stored) {
    ++host_.liveRecords;
  }
  ~FakeRecord() override { --host_.liveRecords; }
  FakeRecord(const FakeRecord&) = delete;
  FakeRecord& operator=(const FakeRecord&) = delete;

  Value read(OptionId option) override {
    host_.called("get " + toUtf8(optionInfo(option).name));
    const auto found = written_.find(option);
    if (found == written_.end()) return {};
    Value value = found->second;
    disguise(value);
    return value;
  }
  void write(OptionId option, const Value& value) override {
    host_.called("put " + toUtf8(optionInfo(option).name));
    written_[option] = value;
    disguise(written_[option]);
  }
  void commit() override {
    host_.called("commit");
    auto committed = written_;
    host_.stored.swap(committed);  // all or nothing, even if memory runs out
  }

 private:
  void disguise(Value& value) const {
    Text* text = value.as<Text>();
    if (host_.storesReversed && text != nullptr) std::ranges::reverse(*text);
  }

  std::map<OptionId, Value> written_;
};

Text literalOf(const Value& value) {
  if (const auto* text = value.as<Text>()) return QuoteJetLiteral(*text);
  if (const auto* flag = value.as<bool>()) return Text(jetBoolean(*flag));
  const auto* number = value.as<std::int32_t>();
  return number != nullptr ? decimalText(*number) : Text(u"Null");  // which no criteria ask for
}

// The condition is [Field] = literal or Field=literal.
bool holds(const FakeRow::value_type& field, TextView condition) {
  const bool bracketed = condition.starts_with(u'[');
  condition.remove_prefix(bracketed ? 1 : 0);
  if (!condition.starts_with(field.first)) return false;
  condition.remove_prefix(field.first.size());
  const TextView equals = bracketed ? u"] = " : u"=";
  return condition.starts_with(equals) &&
         condition.substr(equals.size()) == literalOf(field.second);
}

// Understands the criteria that the component writes: conditions joined by AND.
bool satisfies(const FakeRow& row, TextView criteria) {
  constexpr TextView kAnd = u" AND ";
  while (!criteria.empty()) {
    const std::size_t end = std::min(criteria.find(kAnd), criteria.size());
    const TextView condition = criteria.substr(0, end);
    criteria.remove_prefix(std::min(criteria.size(), end + kAnd.size()));
    if (std::ranges::none_of(row, [&](const auto& field) { return holds(field, condition); })) {
      return false;
    }
  }
  return true;
}

class FakeTable final : public Table, Counted {
 public:
  FakeTable(FakeHost& host, std::string name, std::vector<FakeRow>& rows)
      : Counted(host), name_(std::move(name)), rows_(rows), left_(host.tablePositions[name_]) {
    if (host.keepsTables) row_ = left_;
  }
  FakeTable(const FakeTable&) = delete;
  FakeTable& operator=(const FakeTable&) = delete;
  ~FakeTable() override { left_ = row_; }

  void moveFirst() override {
    step();
    editing_ = Editing::none;
    row_ = 0;
  }
  void moveNext() override {
    step();
    editing_ = Editing::none;
    if (!std::exchange(removed_, false)) ++row_;
  }
  bool atEnd() override {
    step();
    return row_ >= rows_.size();
  }
  void findFirst(TextView criteria) override { find(criteria, 0); }
  void findNext(TextView criteria) override { find(criteria, row_ + 1); }
  bool noMatch() override {
    step();
    return noMatch_;
  }
  void addNew() override {
    step();
    written("add");
    edited_.clear();
    editing_ = Editing::added;
  }
  void edit() override {
    step();
    written("edit");
    editing_ = Editing::none;
    edited_ = rows_.at(row_);
    editing_ = Editing::current;
  }
  void update() override {
    host_.called("update " + name_);
    written("update");
    switch (std::exchange(editing_, Editing::none)) {
      case Editing::none:
        ADD_FAILURE() << name_ << " is updated without AddNew or Edit";
        break;
      case Editing::added:
        rows_.push_back(edited_);
        break;
      case Editing::current:
        rows_.at(row_).swap(edited_);
        break;
    }
  }
  void remove() override {
    host_.called("delete " + name_);
    written("delete");
    editing_ = Editing::none;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row_));
    removed_ = true;
  }
  Value get(Field field) override {
    step();
    const FakeRow& row = rows_.at(row_);
    const auto found = row.find(field.name);
    return found == row.end() ? Value() : found->second;
  }
  void set(Field field, const Value& value) override {
    step();
    written("set", " " + toUtf8(field.name));
    if (editing_ == Editing::none) {
      ADD_FAILURE() << toUtf8(field.name) << " of " << name_ << " is set without AddNew or Edit";
    }
    edited_[field.name] = value;
  }

 private:
  enum class Editing : std::uint8_t { none, added, current };

  void step() {
    if (host_.tableSteps++ == host_.failingStep) throw FakeHost::failure();
  }
  void written(const std::string& what, const std::string& field = {}) {
    host_.writes.push_back(what + " " + name_ + field);
  }
  void find(TextView criteria, std::size_t from) {
    host_.called("find " + name_ + " " + toUtf8(criteria));
    editing_ = Editing::none;
    const auto found =
        std::find_if(rows_.begin() + static_cast<std::ptrdiff_t>(std::min(from, rows_.size())),
                     rows_.end(), [&](const FakeRow& row) { return satisfies(row, criteria); });
    noMatch_ = found == rows_.end();
    if (!noMatch_) row_ = static_cast<std::size_t>(found - rows_.begin());
  }

  std::string name_;
  std::vector<FakeRow>& rows_;
  std::size_t& left_;
  FakeRow edited_;
  std::size_t row_ = 0;
  Editing editing_ = Editing::none;
  bool noMatch_ = false;
  bool removed_ = false;
};

template <class T>
class FakeCursor final : public Cursor<T>, Counted {
 public:
  /// @param at where the host's list stands
  FakeCursor(FakeHost& host, std::string name, const std::vector<T>& items, std::size_t& at)
      : Counted(host), name_(std::move(name)), items_(items), at_(at) {}
  void moveFirst() override {
    host_.called("MoveFirst " + name_);
    at_ = 0;
  }
  bool atEnd() override {
    host_.called("EOF " + name_);
    return at_ >= items_.size();
  }
  void read(Text T::* property, Text& text) override {
    host_.called("Current " + name_);
    text = items_.at(at_).*property;
  }
  void moveNext() override {
    host_.called("MoveNext " + name_);
    ++at_;
  }

 private:
  std::string name_;
  const std::vector<T>& items_;
  std::size_t& at_;
};

class FakeDatabase final : public JetDatabase, Counted {
 public:
  using Counted::Counted;

  std::unique_ptr<OptionsRecord> optionsRecord() override {
    host_.called("OptionsRecord");
    return std::make_unique<FakeRecord>(host_);
  }
  std::unique_ptr<Table> classTable() override { return open("ClassTable", host_.classes); }
  std::unique_ptr<Table> accountTable() override { return open("AccountTable", host_.accounts); }
  std::unique_ptr<Table> randomPriceTable() override {
    return open("RandomPriceTable", host_.randomPrices);
  }
  std::unique_ptr<Table> gradeTable() override { return open("GradeTable", host_.grades); }
  std::unique_ptr<Table> webSiteTable() override { return open("WebSiteTable", host_.webSites); }
  std::unique_ptr<Table> currencyTable() override {
    return open("CurrencyTable", host_.currencies);
  }
  std::unique_ptr<Cursor<Item>> itemList() override {
    host_.called("ItemList");
    return std::make_unique<FakeCursor<Item>>(host_, "ItemList", host_.items, host_.itemAt);
  }
  std::unique_ptr<Cursor<PaymentItem>> paymentItemList() override {
    host_.called("PaymentItemList");
    return std::make_unique<FakeCursor<PaymentItem>>(host_, "PaymentItemList", host_.paymentItems,
                                                     host_.paymentItemAt);
  }
  std::int32_t terminalCount(TextView criteria) override {
    host_.called("TerminalCount " + toUtf8(criteria));
    return static_cast<std::int32_t>(std::ranges::count_if(
        host_.terminals, [&](const FakeRow& row) { return satisfies(row, criteria); }));
  }
  Text dataFile() override {
    host_.called("get DataFile");
    return host_.dataFile;
  }
  void setDataFile(TextView path) override {
    host_.called("put DataFile");
    host_.dataFile = path;
  }

 private:
  std::unique_ptr<Table> open(const std::string& name, std::vector<FakeRow>& rows) {
    host_.called(name);
    return std::make_unique<FakeTable>(host_, name, rows);
  }
};

class FakeSettings final : public SettingsStore, Counted {
 public:
  using Counted::Counted;
  std::optional<std::int16_t> decimalPlaces() override {
    host_.called("DecimalPlaces");
    return host_.decimalPlaces;
  }
  Text currencyFormat() override {
    host_.called("CurrencyFormat");
    return host_.currencyFormat;
  }
  Text decimalSeparator() override {
    host_.called("DecimalSeparator");
    return host_.decimalSeparator;
  }
  bool dispensingAvailable() override {
    host_.called("DispensingAvailable");
    return host_.dispensingAvailable;
  }
  std::optional<Text> setting(TextView name) override {
    host_.called("get setting " + toUtf8(name));
    const auto found = host_.settings.find(Text(name));
    return found == host_.settings.end() ? std::nullopt : std::optional(found->second);
  }
  void setSetting(TextView name, TextView value) override {
    host_.called("put setting " + toUtf8(name));
    host_.settings[Text(name)] = value;
  }
};

class FakeStrings final : public ResourceStrings, Counted {
 public:
  using Counted::Counted;
  Text string(std::int32_t number) override {
    host_.called("string " + std::to_string(number));
    return host_.strings[number];
  }
};

class FakeSender final : public MessageSender, Counted {
 public:
  using Counted::Counted;
  void send(DateTime when) override {
    host_.called("send");
    host_.sent.push_back(when.days);
  }
};

class FakeApp final : public App, Counted {
 public:
  using Counted::Counted;
  Text title() override {
    host_.called("Title");
    return host_.title;
  }
  Text path() override {
    host_.called("Path");
    return host_.path;
  }
};

}  // namespace

class ScriptedMessageBox final : public HostMessageBox {
 public:
  explicit ScriptedMessageBox(ScriptedMessageBoxes& boxes) : boxes_(boxes) {}

  void setSettingsStore(const std::shared_ptr<SettingsStore>& settings) override {
    message_.settingsGiven = settings != nullptr;
  }
  MessageResult show(TextView text, std::int32_t style, TextView title,
                     TextView secondaryText) override {
    message_.text = text;
    message_.style = style;
    message_.title = title;
    message_.secondaryText = secondaryText;
    message_.pointer = boxes_.screen_.pointer();
    boxes_.shown.push_back(message_);
    if (boxes_.onShow) boxes_.onShow(message_);
    if (boxes_.answers.empty()) return MessageResult::ok;
    const MessageResult answer = boxes_.answers.front();
    boxes_.answers.erase(boxes_.answers.begin());
    return answer;
  }

 private:
  ScriptedMessageBoxes& boxes_;
  ShownMessage message_;
};

std::unique_ptr<HostMessageBox> ScriptedMessageBoxes::create() {
  return std::make_unique<ScriptedMessageBox>(*this);
}

FakeHost::FakeHost() : strings{{20000, u"Local"}, {20001, u"Foreign"}} {}

Error FakeHost::failure() {
  return {basicError(3051), u"Shop.Database", u"The shop database cannot be opened.", u"shop.chm",
          77};
}

void FakeHost::fillEveryTab() {
  dispensingAvailable = true;
  classes = {{{u"Name", Text(u"Retail")}, {u"Hidden", false}}};
  accounts = {{{u"Name", Text(u"Sales")}, {u"Inactive", false}, {u"AccountType", Text(u"INC")}}};
  grades = {{{u"GradeNumber", std::int32_t{1}},
             {u"Product", Text(u"Fuel:ULP")},
             {u"Caption", Text(u"Unleaded")}}};
  webSites = {{{u"Description", Text(u"Our shop")},
               {u"URL", Text(u"https://shop.example")},
               {u"Inactive", false}}};
  items = {{u"STOCK", u"1", u"Fuel", u"ULP", u"Unleaded", u"Sales"},
           {u"OTHC", u"2", u"Other", u"Rounding", u"Rounding", u"Sales"}};
  paymentItems = {{u"Cash", u"Cash", u"Sales"}};
}

void FakeHost::expectFailure(const FunctionRef<void()>& act) {
  try {
    act();
    ADD_FAILURE() << "the failure was swallowed";
  } catch (const Error& raised) {
    const Error expected = failure();
    EXPECT_EQ(raised.number(), expected.number());
    EXPECT_EQ(raised.source(), expected.source());
    EXPECT_EQ(raised.description(), expected.description());
    EXPECT_EQ(raised.helpFile(), expected.helpFile());
    EXPECT_EQ(raised.helpContext(), expected.helpContext());
  }
}

void FakeHost::called(const std::string& call) {
  const int number = static_cast<int>(calls.size());
  calls.push_back(call);
  if (onCall) onCall(call);
  if (call == failingCall || number == failingNumber) throw failure();
}

std::vector<std::string> FakeHost::callsStarting(const std::string& prefix) const {
  std::vector<std::string> found;
  std::ranges::copy_if(calls, std::back_inserter(found),
                       [&](const std::string& call) { return call.starts_with(prefix); });
  return found;
}

std::vector<std::string> FakeHost::writesOf(const std::string& table) const {
  std::vector<std::string> found;
  std::ranges::copy_if(writes, std::back_inserter(found), [&](const std::string& write) {
    return write.find(" " + table) != std::string::npos;
  });
  return found;
}

HostObjects FakeHost::objects() {
  return {std::make_shared<FakeDatabase>(*this), std::make_shared<FakeApp>(*this),
          std::make_shared<FakeSender>(*this), std::make_shared<FakeStrings>(*this),
          std::make_shared<FakeSettings>(*this)};
}

}  // namespace tillora::testing
