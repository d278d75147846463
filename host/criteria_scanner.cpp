#include "host/criteria_scanner.h"

#include <limits>

#include "base/numbers.h"
#include "host/shop_error.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isNameStart(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}
bool isNamePart(char16_t c) { return isNameStart(c) || isDigit(c); }

}  // namespace

void CriteriaScanner::skipBlanks() {
  while (at_ < text_.size() && (text_[at_] == u' ' || text_[at_] == u'\t')) ++at_;
}

char16_t CriteriaScanner::peek(std::size_t ahead) const {
  return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
}

bool CriteriaScanner::atEnd() {
  skipBlanks();
  return at_ == text_.size();
}

bool CriteriaScanner::take(char16_t symbol) {
  skipBlanks();
  if (at_ == text_.size() || text_[at_] != symbol) return false;
  ++at_;
  return true;
}

bool CriteriaScanner::takeWord(TextView word) {
  skipBlanks();
  if (!sameName(text_.substr(at_, word.size()), word)) return false;
  if (isNamePart(word.back()) && (isNamePart(peek(word.size())) || peek(word.size()) == u'$')) {
    return false;
  }
  at_ += word.size();
  return true;
}

std::optional<std::int64_t> CriteriaScanner::takeNumber() {
  skipBlanks();
  const std::size_t start = at_;
  const bool negative = peek() == u'-';
  if (negative || peek() == u'+') ++at_;
  skipBlanks();
  if (!isDigit(peek())) {
    at_ = start;
    return std::nullopt;
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / 10 - 1;
  std::int64_t number = 0;
  while (isDigit(peek())) {
    if (number > kMost) refuse(u"a smaller number");
    number = number * 10 + (peek() - u'0');
    ++at_;
  }
  return negative ? -number : number;
}

std::optional<Text> CriteriaScanner::takeQuoted() {
  skipBlanks();
  if (peek() != u'\'') return std::nullopt;
  const std::size_t end = text_.find_first_of(u"'|;", at_ + 1);
  if (end == TextView::npos) refuse(u"a closing quote");
  if (text_[end] != u'\'') {
    at_ = end;
    refuse(u"Chr$ for this character");
  }
  Text quoted(text_.substr(at_ + 1, end - at_ - 1));
  at_ = end + 1;
  return quoted;
}

Text CriteriaScanner::name() {
  skipBlanks();
  const std::size_t start = at_;
  if (peek() == u'[') {
    const std::size_t end = text_.find(u']', at_);
    if (end == TextView::npos) refuse(u"]");
    at_ = end + 1;
    return Text(text_.substr(start + 1, end - start - 1));
  }
  const bool keyword = takeWord(u"AND");
  at_ = start;
  if (keyword || !isNameStart(peek())) refuse(u"a field name");
  while (isNamePart(peek())) ++at_;
  return Text(text_.substr(start, at_ - start));
}

void CriteriaScanner::refuse(TextView expected) const {
  fail(shop_error::criteriaSyntax, shop_object::database,
       u"Syntax error in criteria at character " + decimalText(static_cast<std::int64_t>(at_) + 1) +
           u": " + Text(expected) + u" expected (criteria: " + Text(text_) + u").");
}

}  // namespace tillora::host
