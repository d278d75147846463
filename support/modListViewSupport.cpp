#include "support/modListViewSupport.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "ui/form.h"

namespace tillora {
namespace {

constexpr int kNarrowColumnWidth = 1830;
constexpr int kCellMargin = 180;         // beside a cell's text, both sides together
constexpr int kHeaderMargin = 255;       // four edges of the platform on both sides, and rounding
constexpr int kSmallIcon = 270;          // the icon before the text of the first column
constexpr std::size_t kMostShown = 259;  // characters that the platform's list shows of a cell

/// The widths of the widest texts of the columns from `first` to before `end`, by column. Goes row
/// by row, because walking through a hundred thousand rows costs more than measuring them.
std::vector<int> widestTexts(const ui::ListView& list, std::size_t first, std::size_t end) {
  const ui::Screen& screen = list.form().screen();
  std::vector<int> widths(end);
  for (const ui::ListItem& row : list.rows()) {
    for (std::size_t column = first; column < end; ++column) {
      int cell = screen.textWidth(row.texts[column].substr(0, kMostShown));
      if (column == 0 && row.smallIcon != ui::PictureId::none) cell += kSmallIcon;
      widths[column] = std::max(widths[column], cell);
    }
  }
  return widths;
}

}  // namespace

void autoSizeColumns(ui::ListView& list, int column, ColumnFit fit, int minimum) {
  const bool every = column < 1;
  const std::size_t first = every ? 0 : static_cast<std::size_t>(column) - 1;
  const std::size_t count = list.columns().size();
  const std::size_t end = every ? count : std::min(first + 1, count);
  const std::vector<int> widths = widestTexts(list, first, end);
  for (std::size_t i = first; i < end; ++i) {
    int width = widths[i] + kCellMargin;
    if (fit == ColumnFit::contentsOrHeader) {
      width =
          std::max(width, list.form().screen().textWidth(list.columns()[i].header) + kHeaderMargin);
    }
    const bool fills = fit == ColumnFit::contentsOrHeader && i + 1 == count;
    list.setColumnWidth(static_cast<int>(i), width < minimum ? kNarrowColumnWidth : width, fills);
  }
}

void sortRows(ui::ListView& list, int column) {
  std::vector<TextView> texts;
  texts.reserve(list.rows().size());
  for (const ui::ListItem& row : list.rows()) {
    texts.push_back(row.texts[static_cast<std::size_t>(column)]);
  }
  list.putInOrder(list.form().screen().listOrder(texts));
}

bool toggleHeaderButtons(ui::ListView& list) {
  const std::uint32_t style = list.headerStyle() ^ ui::kHeaderButtons;
  if (style != 0) list.setHeaderStyle(style);
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

void onInsertAndDelete(ui::ListView& list, ui::CommandButton& add, ui::CommandButton& remove) {
  list.keyDown = [&add, &remove](ui::Key& key, ui::Modifiers modifiers) {
    if (modifiers != ui::Modifiers{} || (key != ui::Key::insert && key != ui::Key::del)) return;
    ui::CommandButton& button = key == ui::Key::insert ? add : remove;
    key = ui::Key::none;
    button.press();
  };
}

}  // namespace tillora
