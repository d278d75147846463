#include "ui/layout.h"

#include <algorithm>
#include <ranges>

#include "ui/form.h"

namespace tillora::ui {
namespace {

// The platform's recommended distances at 96 DPI, in twips.
constexpr int kPageMargin = 150;
constexpr int kGroupMargin = 135;
constexpr int kBetweenCells = 90;
constexpr int kBetweenRows = 75;
constexpr int kBetweenGroups = 135;
constexpr int kTextMargin = 120;    // a box's borders and inner margins, above and below together
constexpr int kCheckMark = 270;     // the box of a check box and the blank after it
constexpr int kButtonMargin = 240;  // beside a button's caption, both sides together
constexpr int kButtonWidth = 1125;
constexpr int kButtonHeight = 345;

int heightOf(const Control& control) {
  const int line = control.form().screen().lineHeight();
  switch (control.kind()) {
    case Kind::label:
      return line;
    case Kind::checkBox:
    case Kind::optionButton:
      return std::max(line, 240);
    case Kind::commandButton:
      return std::max(line + 150, kButtonHeight);
    default:
      return line + kTextMargin;
  }
}

int naturalWidth(const Control& control) {
  const int text = control.form().screen().textWidth(withoutAccessKey(control.caption()));
  switch (control.kind()) {
    case Kind::checkBox:
    case Kind::optionButton:
      return text + kCheckMark + 30;
    case Kind::commandButton:
      return std::max(text + kButtonMargin, kButtonWidth);
    default:
      return text + 30;
  }
}

}  // namespace

int fieldHeight(const Form& form, int lines) {
  return form.screen().lineHeight() * lines + kTextMargin;
}

Rows::Rows(Container& holder, Rect area) : holder_(holder), area_(area), top_(area.top) {}

Rows Rows::onPage(Container& page) {
  const Size size = page.clientSize();
  return {page,
          {kPageMargin, kPageMargin, size.width - 2 * kPageMargin, size.height - 2 * kPageMargin}};
}

Rows Rows::restOfPage(Container& page) {
  Rows rows = onPage(page);
  for (const auto& child : page.children()) {
    rows.top_ = std::max(rows.top_, child->bounds().bottom() + kBetweenGroups);
  }
  rows.area_ = {rows.area_.left, rows.top_, rows.area_.width, rows.area_.bottom() - rows.top_};
  return rows;
}

void Rows::labelColumn(std::initializer_list<const Control*> labels) {
  for (const Control* label : labels) labelWidth_ = std::max(labelWidth_, naturalWidth(*label));
}

void Rows::field(Control& label, std::initializer_list<Cell> cells, int lines) {
  const int height = fieldHeight(holder_.form(), lines);
  const int labelHeight = heightOf(label);
  const int drop = (fieldHeight(holder_.form()) - labelHeight) / 2;
  label.setBounds({area_.left, top_ + drop, labelWidth_, labelHeight});
  place(cells, labelWidth_ + kBetweenCells, height);
}

void Rows::row(std::initializer_list<Cell> cells, int indent) {
  int height = 0;
  for (const Cell& cell : cells) height = std::max(height, heightOf(cell.control));
  place(cells, indent, height);
}

void Rows::place(std::initializer_list<Cell> cells, int indent, int height) {
  int fixed = indent + kBetweenCells * (static_cast<int>(cells.size()) - 1);
  for (const Cell& cell : cells) {
    if (cell.width == Cell::kNatural) fixed += naturalWidth(cell.control);
    if (cell.width >= 0) fixed += cell.width;
  }
  int left = area_.left + indent;
  for (const Cell& cell : cells) {
    int width = cell.width;
    if (width == Cell::kNatural) width = naturalWidth(cell.control);
    if (width == Cell::kFill) width = std::max(0, area_.width - fixed);
    // A text box is as high as its row; anything else keeps its own height, centred in it.
    const bool fills = cell.control.kind() == Kind::textBox;
    const int own = fills ? height : std::min(height, heightOf(cell.control));
    cell.control.setBounds({left, top_ + (height - own) / 2, width, own});
    left += width + kBetweenCells;
  }
  top_ += height + kBetweenRows;
}

void Rows::block(Control& control, int height) {
  if (height == 0) height = std::max(0, area_.bottom() - top_);
  control.setBounds({area_.left, top_, area_.width, height});
  top_ += height + kBetweenRows;
}

void Rows::gap() { top_ += kBetweenGroups - kBetweenRows; }

Rows Rows::group(Container& frame) {
  const int captionHeight = holder_.form().screen().lineHeight() + kBetweenRows;
  frame.setBounds({area_.left, top_, area_.width, 0});
  return {frame, {kGroupMargin, captionHeight, area_.width - 2 * kGroupMargin, 0}};
}

void Rows::endGroup(Container& frame, const Rows& rows) {
  Rect bounds = frame.bounds();
  bounds.height = rows.bottom() - kBetweenRows + kGroupMargin;
  frame.setBounds(bounds);
  top_ = bounds.bottom() + kBetweenGroups;
}

std::vector<Rows> Rows::columns(std::initializer_list<int> widths) const {
  int left = area_.width - kBetweenGroups * (static_cast<int>(widths.size()) - 1);
  for (const int width : widths) left -= std::max(0, width);
  const auto filling = static_cast<int>(std::ranges::count(widths, Cell::kFill));
  const int share = left / std::max(1, filling);
  std::vector<Rows> columns;
  Rect area{area_.left, top_, 0, area_.bottom() - top_};
  for (const int width : widths) {
    area.width = width == Cell::kFill ? share : width;
    columns.emplace_back(holder_, area);
    area.left += area.width + kBetweenGroups;
  }
  return columns;
}

int Rows::buttonRow(Container& form, std::initializer_list<Control*> buttons) {
  const Size size = form.clientSize();
  int left = size.width - kPageMargin;
  int top = size.height;
  for (Control* button : std::views::reverse(buttons)) {
    const int width = naturalWidth(*button);
    const int height = heightOf(*button);
    left -= width;
    top = size.height - kPageMargin - height;
    button->setBounds({left, top, width, height});
    left -= kBetweenCells;
  }
  return top;
}

}  // namespace tillora::ui
