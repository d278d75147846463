#include "ui/lists.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "ui/form.h"

namespace tillora::ui {
namespace {

// At 96 DPI, in twips.
constexpr int kListBorders = 60;
constexpr int kLeastRowHeight = 240;  // of the small icons and ticks
constexpr int kBetweenListRows = 30;
constexpr int kAboveAndBelowHeader = 120;
constexpr int kBesideCheckedText = 450;

int rowHeight(const Form& form) {
  return std::max(form.screen().lineHeight(), kLeastRowHeight) + kBetweenListRows;
}

const Text kNoText;

// Without a view rows are as high as the platform's at 96 DPI, below a header of this height.
constexpr int kHeaderHeight = 360;
constexpr int kRowHeight = 255;

void requirePosition(int position, int first, std::size_t count) {
  if (position >= first && position < static_cast<int>(count)) return;
  throw Error(error::invalidIndex, u"Invalid property value");
}

// The row that a key leads to from a row of a list; the same row for keys that do not move in one.
int rowAfter(Key key, int row, int count) {
  if (count == 0) return row;
  switch (key) {
    case Key::up:
      return std::max(row - 1, 0);
    case Key::down:
      return std::min(row + 1, count - 1);
    case Key::home:
      return 0;
    case Key::end:
      return count - 1;
    default:
      return row;
  }
}

}  // namespace

void ComboBox::addItem(Text item) {
  items_.push_back(std::move(item));
  notify(Property::items);
}

void ComboBox::clear() {
  items_.clear();
  listIndex_ = -1;
  notify(Property::items);
}

ComboBox& ComboBox::setListIndex(int index) {
  requirePosition(index, -1, items_.size());
  if (listIndex_ != index) select(index);
  return *this;
}

void ComboBox::userChose(int index) {
  requirePosition(index, 0, items_.size());
  select(index);
}

void ComboBox::userKey(Key key) { setListIndex(rowAfter(key, listIndex_, count())); }

int ComboBox::widthFor(int characters) const {
  return Control::widthFor(characters) + form().screen().scrollBars().width;
}

Size ComboBox::naturalSize() const {
  const Screen& screen = form().screen();
  int longest = 0;
  for (const Text& item : items_) longest = std::max(longest, screen.textWidth(item));
  return {widthFor(0) + longest, heightFor(1)};
}

void ComboBox::select(int index) {
  listIndex_ = index;
  notify(Property::value);
  edited();
  click.raise();
}

const Text& ComboBox::text() const {
  return listIndex_ < 0 ? kNoText : items_[static_cast<std::size_t>(listIndex_)];
}

Size CheckListBox::naturalSize() const {
  const Screen& screen = form().screen();
  int longest = 0;
  for (const Row& row : rows_) longest = std::max(longest, screen.textWidth(row.text));
  return {longest + kBesideCheckedText + screen.scrollBars().width, heightFor(count())};
}

int CheckListBox::heightFor(int lines) const { return rowHeight(form()) * lines + kListBorders; }

void CheckListBox::addRow(Text text, std::int32_t itemData) {
  rows_.push_back({std::move(text), itemData, false});
  if (listIndex_ < 0) listIndex_ = 0;
  notify(Property::items);
}

CheckListBox& CheckListBox::setChecked(int row, bool checked) {
  requirePosition(row, 0, rows_.size());
  Row& changed = rows_[static_cast<std::size_t>(row)];
  if (changed.checked == checked) return *this;
  changed.checked = checked;
  notify(Property::checks);
  edited();
  itemCheck.raise(row);
  return *this;
}

CheckListBox& CheckListBox::setListIndex(int row) {
  requirePosition(row, -1, rows_.size());
  if (listIndex_ == row) return *this;
  listIndex_ = row;
  notify(Property::value);
  return *this;
}

void CheckListBox::userChecked(int row, bool checked) {
  setListIndex(row);
  setChecked(row, checked);
}

void CheckListBox::userKey(Key key) {
  if (key == Key::space && listIndex_ >= 0) userChecked(listIndex_, !checked(listIndex_));
  setListIndex(rowAfter(key, listIndex_, count()));
}

CellTexts::CellTexts(std::span<const TextView> texts) {
  std::size_t end = 1 + 2 * texts.size();
  for (const TextView text : texts) end += text.size();
  units_.reserve(end);
  units_.push_back(static_cast<char16_t>(texts.size()));
  end = 1 + 2 * texts.size();
  for (const TextView text : texts) {
    end += text.size();
    units_.push_back(static_cast<char16_t>(end & 0xFFFF));
    units_.push_back(static_cast<char16_t>(end >> 16));
  }
  for (const TextView text : texts) units_.append(text);
}

std::size_t CellTexts::end(std::size_t cell) const {
  return units_[1 + 2 * cell] | std::size_t{units_[2 + 2 * cell]} << 16;
}

TextView CellTexts::operator[](std::size_t cell) const {
  if (cell >= size()) return {};
  const std::size_t begin = cell == 0 ? 1 + 2 * size() : end(cell - 1);
  return TextView(units_).substr(begin, end(cell) - begin);
}

ListView::ListView() {
  setForeColour(kWindowText);
  setBackColour(kWindowBackground);
}

void ListView::addColumn(Text header, int width) {
  columns_.push_back({std::move(header), width});
  notify(Property::columns);
}

ListView& ListView::setColumnHeader(int column, Text header) {
  columns_.at(static_cast<std::size_t>(column)).header = std::move(header);
  notify(Property::columns);
  return *this;
}

ListView& ListView::setColumnWidth(int column, int width, bool fills) {
  ListColumn& resized = columns_.at(static_cast<std::size_t>(column));
  resized.width = width;
  resized.fills = fills;
  notify(Property::columns);
  return *this;
}

ListView& ListView::setHeaderStyle(std::uint32_t style) {
  headerStyle_ = style;
  notify(Property::columns);
  return *this;
}

Text ListView::text(int row, int column) const {
  return Text(rows_.at(static_cast<std::size_t>(row)).texts[static_cast<std::size_t>(column)]);
}

int ListView::addRow(ListItem item) {
  rows_.push_back(std::move(item));
  notify(Property::items);
  return count() - 1;
}

ListView& ListView::setRows(std::vector<ListItem> rows) {
  rows_ = std::move(rows);
  selectedRow_ = rowToShow_ = -1;
  notify(Property::items);
  return *this;
}

ListView& ListView::putInOrder(const std::vector<std::size_t>& order) {
  std::vector<ListItem> rows;
  rows.reserve(order.size());
  for (const std::size_t row : order) rows.push_back(std::move(rows_.at(row)));
  return setRows(std::move(rows));
}

ListView& ListView::setRow(int row, ListItem item) {
  requirePosition(row, 0, rows_.size());
  rows_[static_cast<std::size_t>(row)] = std::move(item);
  notify(Property::items);
  return *this;
}

void ListView::removeRow(int row) {
  requirePosition(row, 0, rows_.size());
  rows_.erase(rows_.begin() + row);
  if (selectedRow_ > row || selectedRow_ == count()) --selectedRow_;
  rowToShow_ = selectedRow_;
  notify(Property::items);
  notify(Property::value);
}

ListView& ListView::setSelectedRow(int row) {
  requirePosition(row, -1, rows_.size());
  if (selectedRow_ == row) return *this;
  selectedRow_ = row;
  notify(Property::value);
  itemClick.raise();
  return *this;
}

void ListView::userKey(Key key) { setSelectedRow(rowAfter(key, selectedRow_, count())); }

void ListView::ensureVisible(int row) {
  requirePosition(row, 0, rows_.size());
  rowToShow_ = row;
  notify(Property::value);
}

Size ListView::naturalSize() const {
  int width = kListBorders;
  for (const ListColumn& column : columns_) width += column.width;
  return {width, heightFor(1)};
}

int ListView::heightFor(int lines) const {
  return form().screen().lineHeight() + kAboveAndBelowHeader + rowHeight(form()) * lines +
         kListBorders;
}

int ListView::hitTest(Point point) const {
  if (const FormView* view = form().view()) return view->hitTest(*this, point);
  if (point.y < kHeaderHeight) return -1;
  const int row = (point.y - kHeaderHeight) / kRowHeight;
  return row < count() ? row : -1;
}

}  // namespace tillora::ui
