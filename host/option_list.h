#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.h"
#include "component/contract/option_table.h"

namespace tillora::host {

/// Of a password nothing is shown but whether there is one.
bool isPassword(const OptionInfo& option);

/// A stored value on one line, for people: texts as they are, with " / " for a line break, an
/// amount with four decimals. "(empty)" is a stored empty text, "(not stored)" no value.
Text shownValue(const OptionInfo& option, const Value& value);

/// A row of the list of stored options.
struct OptionRow {
  const OptionInfo* option;
  std::int16_t tab;  ///< of the options dialog, from 1
  Text value;
  Text before;   ///< of a changed one: what it was
  bool changed;  ///< by the last save
};

/// The stored options of a shop as a program shows them, in the order of the dialog's tabs.
class OptionList {
 public:
  OptionList();

  /// Takes the values as they are now, in the order of the option table, each by shownValue(). What
  /// differs from before is changed. Where nothing differs, `afterSave` says whether the marks of
  /// an earlier save go (a save that changed nothing) or stay (somebody only looked again). The
  /// first values are no change.
  void update(const std::vector<Text>& values, bool afterSave);

  const std::vector<OptionRow>& rows() const { return rows_; }

 private:
  std::vector<OptionRow> rows_;
  bool isFilled_ = false;
};

}  // namespace tillora::host
