#include "ui/win32/list_order.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tillora::ui::win32 {
namespace {

constexpr char kLevelEnd = 1;

/// The whole key of a text that is not empty.
std::string keyOf(TextView text, const wchar_t* locale) {
  constexpr DWORD kSortKey = LCMAP_SORTKEY | NORM_IGNORECASE;
  const auto* const source = reinterpret_cast<const wchar_t*>(text.data());
  const auto length = static_cast<int>(text.size());
  const auto map = [&](char* key, std::size_t room) {
    return static_cast<std::size_t>(LCMapStringEx(locale, kSortKey, source, length,
                                                  reinterpret_cast<wchar_t*>(key),
                                                  static_cast<int>(room), nullptr, nullptr, 0));
  };
  // Long enough for most texts; for others the required length is queried.
  std::string key(4 * text.size() + 16, '\0');
  std::size_t size = map(key.data(), key.size());
  if (size == 0) {
    key.resize(map(nullptr, 0));
    size = map(key.data(), key.size());
  }
  key.resize(size);
  return key;
}

/// Makes the first levels of keys: what counts before accents and hyphens.
///
/// For ASCII texts they are put together from the levels of the characters, in a tenth of the
/// platform's time. The platform is asked about each pair of neighbours once: if two characters
/// sort as one or affect each other, the platform makes the key.
class FirstLevels {
 public:
  explicit FirstLevels(const wchar_t* locale) : locale_(locale), pairs_(kAscii * kAscii) {
    for (std::size_t c = 0; c < kAscii; ++c) {
      const auto character = static_cast<char16_t>(c);
      const std::string level = ofWhole(TextView(&character, 1));
      if (level.size() > kLongest) continue;
      std::ranges::copy(level, levels_[c].bytes.begin());
      levels_[c].size = static_cast<int>(level.size());
    }
  }

  void append(TextView text, std::string& levels) {
    const std::size_t begin = levels.size();
    if (appendAscii(text, levels)) return;
    levels.resize(begin);
    levels += ofWhole(text);
  }

 private:
  static constexpr std::size_t kAscii = 128;
  static constexpr std::size_t kLongest = 4;
  struct Level {
    std::array<char, kLongest> bytes{};
    int size = -1;  // longer than kLongest

    std::string_view text() const { return {bytes.data(), static_cast<std::size_t>(size)}; }
  };
  enum class Pair : std::uint8_t { unknown, apart, together };

  std::string ofWhole(TextView text) const {
    std::string key = keyOf(text, locale_);
    key.resize(std::min(key.find(kLevelEnd), key.size()));
    return key;
  }

  bool appendAscii(TextView text, std::string& levels) {
    constexpr char16_t kNone = 0;
    char16_t before = kNone;
    char16_t sorted = kNone;  // the last one that has a first level
    const std::size_t begin = levels.size();
    levels.resize(begin + kLongest * text.size());
    char* end = levels.data() + begin;
    for (const char16_t c : text) {
      if (c == kNone || c >= kAscii || levels_[c].size < 0) return false;
      if (before != kNone && !standApart(before, c)) return false;
      if (sorted != kNone && sorted != before && !standApart(sorted, c)) return false;
      std::ranges::copy(levels_[c].bytes, end);
      end += levels_[c].size;
      before = c;
      if (levels_[c].size > 0) sorted = c;
    }
    levels.resize(static_cast<std::size_t>(end - levels.data()));
    return true;
  }

  bool standApart(char16_t first, char16_t second) {
    Pair& pair = pairs_[first * kAscii + second];
    if (pair == Pair::unknown) {
      std::string apart(levels_[first].text());
      apart += levels_[second].text();
      pair = ofWhole(Text{first, second}) == apart ? Pair::apart : Pair::together;
    }
    return pair == Pair::apart;
  }

  const wchar_t* locale_;
  std::array<Level, kAscii> levels_;
  std::vector<Pair> pairs_;
};

/// Eight bytes as a number in the same order; zeros stand for bytes beyond the end.
std::uint64_t eightBytes(std::string_view level, std::size_t from) {
  std::uint64_t number = 0;
  for (std::size_t i = from; i < from + sizeof number; ++i) {
    number = number << 8 | (i < level.size() ? static_cast<unsigned char>(level[i]) : 0U);
  }
  return number;
}

class Order {
 public:
  Order(std::span<const TextView> texts, const wchar_t* locale) : texts_(texts), locale_(locale) {
    FirstLevels firstLevels(locale);
    ends_.reserve(texts.size());
    for (const TextView text : texts) {
      firstLevels.append(text, levels_);
      ends_.push_back(levels_.size());
    }
  }

  std::vector<std::size_t> positions() {
    // Adjacent numbers are cheap to compare.
    struct Place {
      std::uint64_t start;  // the first bytes in which levels differ
      std::uint64_t next;   // those that follow
      std::size_t text;
    };
    const std::size_t alike = commonPrefix();
    std::vector<Place> places;
    places.reserve(texts_.size());
    for (std::size_t text = 0; text < texts_.size(); ++text) {
      places.push_back({eightBytes(level(text), alike),
                        eightBytes(level(text), alike + sizeof(std::uint64_t)), text});
    }
    std::ranges::sort(places, [this](const Place& a, const Place& b) {
      if (a.start != b.start) return a.start < b.start;
      if (a.next != b.next) return a.next < b.next;
      const int order = compare(a.text, b.text);
      return order != 0 ? order < 0 : a.text < b.text;
    });

    std::vector<std::size_t> positions;
    positions.reserve(places.size());
    for (const Place& place : places) positions.push_back(place.text);
    return positions;
  }

 private:
  std::string_view level(std::size_t text) const {
    const std::size_t begin = text == 0 ? 0 : ends_[text - 1];
    return std::string_view(levels_).substr(begin, ends_[text] - begin);
  }

  /// Length of the prefix that all levels share, in bytes.
  std::size_t commonPrefix() const {
    if (texts_.empty()) return 0;
    std::string_view common = level(0);
    for (std::size_t text = 1; text < texts_.size() && !common.empty(); ++text) {
      const auto differs = std::ranges::mismatch(common, level(text)).in1;
      common = common.substr(0, static_cast<std::size_t>(differs - common.begin()));
    }
    return common.size();
  }

  int compare(std::size_t a, std::size_t b) {
    if (const int order = level(a).compare(level(b)); order != 0) return order;
    return texts_[a] == texts_[b] ? 0 : wholeKey(a).compare(wholeKey(b));
  }

  const std::string& wholeKey(std::size_t text) {
    const auto [key, isNew] = wholeKeys_.try_emplace(text);
    if (isNew && !texts_[text].empty()) key->second = keyOf(texts_[text], locale_);
    return key->second;
  }

  std::span<const TextView> texts_;
  const wchar_t* locale_;
  std::string levels_;  // one after the other
  std::vector<std::size_t> ends_;
  std::map<std::size_t, std::string> wholeKeys_;
};

}  // namespace

std::vector<std::size_t> listOrder(std::span<const TextView> texts, const wchar_t* locale) {
  return Order(texts, locale).positions();
}

}  // namespace tillora::ui::win32
