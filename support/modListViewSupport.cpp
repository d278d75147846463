#include "support/modListViewSupport.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "ui/form.h"

namespace tillora {
namespace {

constexpr int kNarrowColumnWidth = 1830;
constexpr int kCellMargin = 180;         // beside a cell's text, both sides together
constexpr int kSmallIcon = 270;          // the icon before the text of the first column
constexpr std::size_t kMostShown = 259;  // characters that the platform's list shows of a cell

/// Number of bytes with which all keys begin alike.
template <class Key>
std::size_t commonPrefix(std::size_t count, const Key& key) {
  if (count == 0) return 0;
  std::string_view common = key(0);
  for (std::size_t row = 1; row < count && !common.empty(); ++row) {
    const std::string_view other = key(row);
    const auto differs = std::ranges::mismatch(common, other).in1;
    common = common.substr(0, static_cast<std::size_t>(differs - common.begin()));
  }
  return common.size();
}

/// The first eight bytes as a number in the same order; zeros stand for bytes beyond the end.
std::uint64_t firstBytes(std::string_view key) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) {
    number = number << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return number;
}

int fittingWidth(const ui::ListView& list, int column, ColumnFit fit) {
  const ui::Screen& screen = list.form().screen();
  int width = 0;
  for (int row = 0; row < list.count(); ++row) {
    const auto& item = list.rows()[static_cast<std::size_t>(row)];
    int cell = screen.textWidth(item.texts[static_cast<std::size_t>(column)].substr(0, kMostShown));
    if (column == 0 && item.smallIcon != ui::PictureId::none) cell += kSmallIcon;
    width = std::max(width, cell);
  }
  if (fit == ColumnFit::contentsOrHeader) {
    const auto& header = list.columns()[static_cast<std::size_t>(column)].header;
    width = std::max(width, screen.textWidth(header));
  }
  return width + kCellMargin;
}

}  // namespace

void autoSizeColumns(ui::ListView& list, int column, ColumnFit fit, int minimum) {
  const int count = static_cast<int>(list.columns().size());
  const int first = column < 1 ? 0 : column - 1;
  const int last = column < 1 ? count - 1 : column - 1;
  for (int i = first; i <= last; ++i) {
    const int width = fittingWidth(list, i, fit);
    list.setColumnWidth(i, width < minimum ? kNarrowColumnWidth : width);
  }
}

void sortRows(std::vector<ui::ListItem>& rows, int column, const ui::Screen& screen) {
  // Keys are made once for each row, one after the other in one buffer: comparing the texts
  // themselves costs a hundred thousand rows a second or two.
  std::string keys;
  std::vector<std::size_t> ends;
  ends.reserve(rows.size());
  for (const ui::ListItem& row : rows) {
    screen.appendSortKey(row.texts[static_cast<std::size_t>(column)], keys);
    ends.push_back(keys.size());
  }
  const auto key = [&](std::size_t row) {
    const std::size_t begin = row == 0 ? 0 : ends[row - 1];
    return std::string_view(keys).substr(begin, ends[row] - begin);
  };
  const std::size_t alike = commonPrefix(rows.size(), key);

  struct Place {
    std::uint64_t start;  // the first bytes of the key in which keys differ
    std::size_t row;
  };
  std::vector<Place> places;
  places.reserve(rows.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    places.push_back({firstBytes(key(row).substr(alike)), row});
  }
  std::ranges::sort(places, [&](const Place& a, const Place& b) {
    if (a.start != b.start) return a.start < b.start;
    const int order = key(a.row).compare(key(b.row));
    return order != 0 ? order < 0 : a.row < b.row;
  });

  std::vector<ui::ListItem> sorted;
  sorted.reserve(rows.size());
  for (const Place& place : places) sorted.push_back(std::move(rows[place.row]));
  rows = std::move(sorted);
}

bool toggleHeaderButtons(ui::ListView& list) {
  list.setClickableHeaders(!list.clickableHeaders());
  return true;
}

void selectRow(ui::ListView& list, int row) {
  list.setSelectedRow(row);
  list.ensureVisible(row);
}

void onRowDoubleClick(ui::ListView& list, std::function<void()> act) {
  // Where a mouse button last went down or up on the list.
  const auto mouse = std::make_shared<ui::Point>();
  list.mouse = [mouse](ui::Point point) { *mouse = point; };
  list.doubleClick = [&list, mouse, act = std::move(act)] {
    if (list.hitTest(*mouse) >= 0) act();
  };
}

}  // namespace tillora
