#pragma once

#include <optional>

#include "base/text.h"

namespace tillora {

enum class Compare : std::uint8_t {
  binary = 0,  ///< character codes
  text = 1,    ///< case-insensitive
};

/// Replaces every occurrence of `find` in `source`; the search goes on after what was put in. A
/// null source comes back as null, an empty `find` occurs nowhere.
std::optional<Text> ReplaceText(const std::optional<Text>& source, TextView find,
                                TextView replacement, Compare compare = Compare::binary);

/// The text as a literal for criteria: quoted, with quote, bar and semicolon as Chr$() of their
/// code, so that no text can break out of the literal. O'Neil gives 'O' & Chr$(39) & 'Neil'.
Text QuoteJetLiteral(TextView text);

/// A Boolean for criteria: the word True or False.
TextView jetBoolean(bool value);

}  // namespace tillora
