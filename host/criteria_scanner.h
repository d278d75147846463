#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/text.h"

namespace tillora::host {

/// Takes tokens off the front of a criteria text, with the blanks before them. A take that does not
/// find its token takes nothing.
class CriteriaScanner {
 public:
  explicit CriteriaScanner(TextView text) : text_(text) {}

  bool atEnd();
  bool take(char16_t symbol);
  /// A whole word in any case; a `$` at its end belongs to it.
  bool takeWord(TextView word);
  /// Digits with or without a sign.
  std::optional<std::int64_t> takeNumber();
  /// The text between single quotes.
  std::optional<Text> takeQuoted();
  /// A field name with or without brackets; throws an Error if there is none.
  Text name();

  /// Throws the Error that says what was expected where.
  [[noreturn]] void refuse(TextView expected) const;
  Text all() const { return Text(text_); }

 private:
  void skipBlanks();
  char16_t peek(std::size_t ahead = 0) const;

  TextView text_;
  std::size_t at_ = 0;
};

}  // namespace tillora::host
