#include "base/text_rules.h"

namespace tillora {

Text trimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

Text beforeLastBlank(TextView text) {
  const std::size_t blank = text.rfind(u' ');
  return blank == TextView::npos ? Text() : Text(text.substr(0, blank));
}

}  // namespace tillora
