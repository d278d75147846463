#include "ui/layout.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "ui/form.h"

namespace tillora::ui {
namespace {

// The platform's recommended distances at 96 DPI, in twips.
constexpr int kPageMargin = 150;
constexpr int kGroupMargin = 135;
constexpr int kTabMargin = 120;  // around a tab strip, whose pages have margins of their own
constexpr int kBetweenCells = 90;
constexpr int kBetweenRows = 75;
constexpr int kBetweenGroups = 135;

int widthOf(const Cell& cell) {
  return cell.width == Cell::kNatural ? cell.control->naturalSize().width : cell.width;
}

int heightOf(Height height, const Control& control) {
  switch (height.unit) {
    case Height::Unit::twips:
      return height.count;
    case Height::Unit::lines:
      return control.heightFor(height.count);
    default:
      return 0;
  }
}

void placeCell(const Cell& cell, const Rect& place) {
  cell.control->setBounds(place);
  if (cell.shadow != nullptr) cell.shadow->placeAsShadow(place);
}

}  // namespace

Cell engraved(Label& label, Label& shadow) {
  shadow.setVisible(false);
  Cell cell(label);
  cell.shadow = &shadow;
  return cell;
}

// As many whole pixels below as on the left, even if pixels are not square.
Margins Container::margins() const {
  const Size pixel = form().screen().twipsPerPixel();
  return {kPageMargin, kPageMargin, kPageMargin, kPageMargin / pixel.width * pixel.height};
}

Margins Frame::margins() const {
  if (border_ == Border::none) return Container::margins();
  const int caption = form().screen().lineHeight() + kBetweenRows;
  return {kGroupMargin, caption, kGroupMargin, kGroupMargin};
}

/// Something that spans the whole width.
class Rows::Item {
 public:
  Item() = default;
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;
  virtual ~Item() = default;

  virtual int height() const = 0;
  virtual void place(const Rect& area, int labelWidth) = 0;
  /// Takes the height that the others leave over.
  virtual bool stretches() const { return false; }
  /// Stretches with its column if it is the last in it.
  virtual bool endsWithColumn() const { return false; }
  virtual int labelWidth() const { return 0; }

  int distanceToNext = kBetweenRows;
};

class Rows::Row final : public Item {
 public:
  Row(std::vector<Cell> cells, int indent) : cells_(std::move(cells)), indent_(indent) {}

  int height() const override {
    int height = 0;
    for (const Cell& cell : cells_) {
      height = std::max(height, cell.control->naturalSize().height);
    }
    return height;
  }
  void place(const Rect& area, int /*labelWidth*/) override {
    placeCells({area.left + indent_, area.top, area.width - indent_, area.height});
  }
  void placeCells(const Rect& area) {
    int rest = area.width - kBetweenCells * (static_cast<int>(cells_.size()) - 1);
    for (const Cell& cell : cells_) rest -= std::max(0, widthOf(cell));
    int left = area.left;
    for (const Cell& cell : cells_) {
      const int width = cell.width == Cell::kFill ? std::max(0, rest) : widthOf(cell);
      // A text box is as high as its row; anything else keeps its own height, centred in it.
      const bool fills = cell.control->kind() == Kind::textBox;
      const int natural = cell.control->naturalSize().height;
      const int height = fills ? area.height : std::min(area.height, natural);
      placeCell(cell, {left, area.top + (area.height - height) / 2, width, height});
      left += width + kBetweenCells;
    }
  }

 private:
  std::vector<Cell> cells_;
  int indent_;
};

class Rows::Field final : public Item {
 public:
  Field(const Cell& label, std::vector<Cell> cells, int lines)
      : label_(label), cells_(std::move(cells), 0), lines_(lines) {}

  int height() const override { return fieldHeight(label_.control->form(), lines_); }
  int labelWidth() const override { return label_.control->naturalSize().width; }
  void place(const Rect& area, int labelWidth) override {
    const int height = label_.control->naturalSize().height;
    const int drop = (fieldHeight(label_.control->form()) - height) / 2;
    placeCell(label_, {area.left, area.top + drop, labelWidth, height});
    const int indent = labelWidth + kBetweenCells;
    cells_.placeCells({area.left + indent, area.top, area.width - indent, area.height});
  }

 private:
  Cell label_;
  Row cells_;
  int lines_;
};

class Rows::Block final : public Item {
 public:
  Block(Control& control, Height height) : control_(control), height_(height) {}

  int height() const override { return heightOf(height_, control_); }
  bool stretches() const override { return height_.unit == Height::Unit::rest; }
  void place(const Rect& area, int /*labelWidth*/) override { control_.setBounds(area); }

 private:
  Control& control_;
  Height height_;
};

class Rows::Group final : public Item {
 public:
  explicit Group(Frame& frame) : frame_(frame) { distanceToNext = kBetweenGroups; }

  int height() const override {
    const Margins margins = frame_.margins();
    return margins.top + frame_.rows().height() + margins.bottom;
  }
  bool stretches() const override { return frame_.rows().stretches(); }
  bool endsWithColumn() const override { return true; }
  void place(const Rect& area, int /*labelWidth*/) override { frame_.setBounds(area); }

 private:
  Frame& frame_;
};

class Rows::Columns final : public Item {
 public:
  explicit Columns(std::initializer_list<int> widths) : widths_(widths) {}

  std::vector<Rows*> make(Container& holder) {
    std::vector<Rows*> columns;
    columns.reserve(widths_.size());
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      columns.push_back(columns_.emplace_back(std::make_unique<Rows>(holder)).get());
    }
    return columns;
  }
  int height() const override {
    int height = 0;
    for (const auto& column : columns_) height = std::max(height, column->height());
    return height;
  }
  bool stretches() const override {
    return std::ranges::any_of(columns_, [](const auto& column) { return column->stretches(); });
  }
  void place(const Rect& area, int /*labelWidth*/) override {
    int rest = area.width - kBetweenGroups * (static_cast<int>(widths_.size()) - 1);
    for (const int width : widths_) rest -= std::max(0, width);
    const auto filling = static_cast<int>(std::ranges::count(widths_, Cell::kFill));
    const int share = rest / std::max(1, filling);
    int labelWidth = 0;
    for (const auto& column : columns_) labelWidth = std::max(labelWidth, column->labelWidth());

    Rect place = area;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      place.width = widths_[i] == Cell::kFill ? share : widths_[i];
      columns_[i]->placeItems(place, labelWidth, End::ofColumn);
      place.left += place.width + kBetweenGroups;
    }
  }

 private:
  std::vector<int> widths_;
  std::vector<std::unique_ptr<Rows>> columns_;
};

class Rows::Tabs final : public Item {
 public:
  Tabs(TabStrip& strip, std::vector<Frame*> pages) : strip_(strip), pages_(std::move(pages)) {}

  int height() const override { return 0; }
  bool stretches() const override { return true; }
  void place(const Rect& area, int /*labelWidth*/) override {
    constexpr int kOutwards = kPageMargin - kTabMargin;
    strip_.setBounds({area.left - kOutwards, area.top - kOutwards, area.width + 2 * kOutwards,
                      area.height + 2 * kOutwards});
    for (Frame* page : pages_) page->setBounds(strip_.clientArea());
  }

 private:
  TabStrip& strip_;
  std::vector<Frame*> pages_;
};

Rows::Rows(Container& holder) : holder_(holder) {}

Rows::~Rows() = default;

template <class T, class... Args>
T& Rows::append(Args&&... args) {
  auto item = std::make_unique<T>(std::forward<Args>(args)...);
  T& appended = *item;
  items_.push_back(std::move(item));
  return appended;
}

Control& Rows::take(Control& control) {
  if (control.parent() == nullptr) holder_.take(control);
  return control;
}

void Rows::takeAll(std::initializer_list<Cell> cells) {
  for (const Cell& cell : cells) {
    if (cell.shadow != nullptr) take(*cell.shadow);
    take(*cell.control);
  }
}

void Rows::field(std::initializer_list<Cell> cells, int lines) {
  takeAll(cells);
  append<Field>(*cells.begin(), std::vector<Cell>(cells.begin() + 1, cells.end()), lines);
}

void Rows::row(std::initializer_list<Cell> cells, int indent) {
  takeAll(cells);
  append<Row>(std::vector<Cell>(cells), indent);
}

void Rows::block(Control& control, Height height) { append<Block>(take(control), height); }

void Rows::gap() {
  if (!items_.empty()) items_.back()->distanceToNext = kBetweenGroups;
}

Rows& Rows::group(Frame& frame, Text caption) {
  take(frame.setCaption(std::move(caption)));
  append<Group>(frame);
  return frame.rows();
}

std::vector<Rows*> Rows::columns(std::initializer_list<int> widths) {
  return append<Columns>(widths).make(holder_);
}

void Rows::tabs(TabStrip& strip, const std::vector<Frame*>& pages) {
  take(strip);
  for (Frame* page : pages) take(*page);
  append<Tabs>(strip, pages);
}

void Rows::buttons(std::initializer_list<Control*> buttons) {
  for (Control* button : buttons) buttons_.push_back(&take(*button));
}

int Rows::height() const {
  int height = 0;
  for (const auto& item : items_) {
    height += item->height();
    if (item != items_.back()) height += item->distanceToNext;
  }
  return height;
}

int Rows::labelWidth() const {
  int width = 0;
  for (const auto& item : items_) width = std::max(width, item->labelWidth());
  return width;
}

bool Rows::stretches() const {
  return std::ranges::any_of(items_, [](const auto& item) { return item->stretches(); });
}

void Rows::place(const Rect& area) {
  Rect rest = area;
  if (!buttons_.empty()) rest.height = placeButtons(area) - kPageMargin - area.top;
  placeItems(rest, labelWidth(), End::open);
}

void Rows::placeItems(Rect area, int labelWidth, End end) {
  const int over = std::max(0, area.height - height());
  for (const auto& item : items_) {
    const bool endsColumn = end == End::ofColumn && item == items_.back() && item->endsWithColumn();
    area.height = item->height() + (item->stretches() || endsColumn ? over : 0);
    item->place(area, labelWidth);
    area.top += area.height + item->distanceToNext;
  }
}

int Rows::placeButtons(const Rect& area) {
  int left = area.right();
  int top = area.bottom();
  for (Control* button : std::views::reverse(buttons_)) {
    const Size size = button->naturalSize();
    left -= size.width;
    top = area.bottom() - size.height;
    button->setBounds({left, top, size.width, size.height});
    left -= kBetweenCells;
  }
  return top;
}

}  // namespace tillora::ui
