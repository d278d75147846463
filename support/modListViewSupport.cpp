#include "support/modListViewSupport.h"

#include <algorithm>
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

int fittingWidth(const ui::ListView& list, int column, ColumnFit fit) {
  const ui::Screen& screen = list.form().screen();
  int width = 0;
  for (int row = 0; row < list.count(); ++row) {
    int cell = screen.textWidth(TextView(list.text(row, column)).substr(0, kMostShown));
    const auto& item = list.rows()[static_cast<std::size_t>(row)];
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
  struct Place {
    std::size_t keyBegin;
    std::size_t keyEnd;
    std::size_t row;
  };
  std::string keys;
  std::vector<Place> places;
  places.reserve(rows.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::size_t begin = keys.size();
    screen.appendSortKey(rows[row].texts[static_cast<std::size_t>(column)], keys);
    places.push_back({begin, keys.size(), row});
  }
  std::ranges::stable_sort(places, {}, [all = std::string_view(keys)](const Place& place) {
    return all.substr(place.keyBegin, place.keyEnd - place.keyBegin);
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
