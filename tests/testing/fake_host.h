#pragma once

#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "component/contract/host_objects.h"
#include "component/contract/platform.h"
#include "tests/testing/function_ref.h"

namespace tillora::testing {

/// A row of a table in memory, by field name. The component gets what it holds: Text, std::int32_t
/// or bool, as the field's type says, unless it is converted by AutomationHost on its way.
using FakeRow = std::map<Text, Value>;

/// A message box that was shown.
struct ShownMessage {
  Text text;
  std::int32_t style = 0;
  Text title;
  Text secondaryText;
  ui::Pointer pointer = ui::Pointer::standard;  ///< the mouse pointer meanwhile
  bool settingsGiven = false;
};

/// A host program in memory. It keeps what is stored, records every call that the component makes,
/// and can be told to fail.
class FakeHost {
 public:
  FakeHost();

  /// The stored options by id; written by a save that commits.
  std::map<OptionId, Value> stored;
  std::vector<FakeRow> classes;
  std::vector<FakeRow> accounts;
  std::vector<FakeRow> randomPrices;
  std::vector<FakeRow> grades;
  std::vector<FakeRow> webSites;
  std::vector<FakeRow> currencies;
  std::vector<FakeRow> terminals;
  std::vector<Item> items;
  std::vector<PaymentItem> paymentItems;
  /// Where the lists of items stand: at their end until a walk moves them, and again after it.
  std::size_t itemAt = std::numeric_limits<std::size_t>::max();
  std::size_t paymentItemAt = std::numeric_limits<std::size_t>::max();
  Text dataFile;
  std::map<Text, Text> settings;
  std::map<std::int32_t, Text> strings;
  Text title = u"Tillora Administrator";
  Text path = u"C:\\Tillora";
  std::optional<std::int16_t> decimalPlaces = 2;
  Text currencyFormat = u"$#,##0.00";
  Text decimalSeparator = u".";
  bool dispensingAvailable = false;
  /// Texts are stored back to front, so that a search of the memory does not find them here.
  bool storesReversed = false;
  std::vector<double> sent;  ///< times of the messages sent

  /// Every call in order: "get CompanyName", "put CompanyName", "commit", "send", "Title", ...
  std::vector<std::string> calls;
  /// Moves, tests, edits and fields of tables, which `calls` does not list.
  int tableSteps = 0;
  /// The step with this number (from 0) fails; -1 for none.
  int failingStep = -1;
  /// What is done to the rows of tables, in order: "add GradeTable", "edit GradeTable",
  /// "set GradeTable Caption", "update GradeTable", "delete GradeTable". A field that is set, or an
  /// update, without a row being added or edited fails the test.
  std::vector<std::string> writes;
  /// Those of one table.
  std::vector<std::string> writesOf(const std::string& table) const;
  /// A table that is handed out again is where it was left, as if it were always the same object.
  bool keepsTables = false;
  std::map<std::string, std::size_t> tablePositions;  ///< by name of the table
  /// Called after each call was recorded.
  std::function<void(const std::string&)> onCall;
  /// The call with this text fails from its nth time on; none if empty.
  std::string failingCall;
  /// The call with this number (from 0, over all calls) fails; -1 for none.
  int failingNumber = -1;
  /// Calls that start with `prefix`, in order.
  std::vector<std::string> callsStarting(const std::string& prefix) const;

  /// A pharmacy with something on every tab, and items and payment items to choose from.
  void fillEveryTab();

  /// The error that all failures raise.
  static Error failure();
  /// Runs `act`, which must raise this very error.
  static void expectFailure(const FunctionRef<void()>& act);

  HostObjects objects();
  template <OptionType type>
  void store(const Option<type>& option, typename Option<type>::Type value) {
    stored[option.id] = Value(std::move(value));
  }
  /// The stored value; fails the test with bad_variant_access or out_of_range if there is none.
  template <OptionType type>
  typename Option<type>::Type value(const Option<type>& option) const {
    return stored.at(option.id).template get<typename Option<type>::Type>();
  }

  /// Records a call and fails if it is to.
  void called(const std::string& call);
  /// The objects that the component still holds, records and tables included.
  int live = 0;
  /// The options records among them.
  int liveRecords = 0;
};

/// Message boxes with answers given beforehand; OK if none is left.
class ScriptedMessageBoxes final : public MessageBoxes {
 public:
  explicit ScriptedMessageBoxes(ui::Screen& screen) : screen_(screen) {}
  std::unique_ptr<HostMessageBox> create() override;

  std::vector<ShownMessage> shown;
  std::vector<MessageResult> answers;
  /// Called while a message is shown.
  std::function<void(const ShownMessage&)> onShow;

 private:
  friend class ScriptedMessageBox;
  ui::Screen& screen_;
};

}  // namespace tillora::testing
