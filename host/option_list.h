#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.h"
#include "component/contract/option_table.h"

namespace tillora::host {

/// Whether the option is a password; only whether one is set is shown.
bool isPassword(const OptionInfo& option);

/// A stored value on one line, for people: texts as they are, with " / " for a line break, an
/// amount with four decimals. "(empty)" stands for a stored empty text, "(not stored)" for no
/// value.
Text shownValue(const OptionInfo& option, const Value& value);

/// A row of the list of stored options.
struct OptionRow {
  const OptionInfo* option;
  std::int16_t tab;  ///< of the options dialog, from 1
  Text value;
  Text before;   ///< the former value of a changed one
  bool changed;  ///< by the last save
};

/// The stored options of a shop as a program shows them, in the order of the dialog's tabs.
class OptionList {
 public:
  OptionList();

  /// Takes the current values in the order of the option table, each from shownValue(). Those that
  /// differ from before are marked as changed. If none differs, `afterSave` says whether the marks
  /// of an earlier save are removed (a save that changed nothing) or stay (a mere refresh). The
  /// first values do not count as changes.
  void update(const std::vector<Text>& values, bool afterSave);

  const std::vector<OptionRow>& rows() const { return rows_; }

 private:
  std::vector<OptionRow> rows_;
  bool isFilled_ = false;
};

}  // namespace tillora::host
