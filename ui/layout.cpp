#include "ui/layout.h"

#include <algorithm>
#include <numeric>
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

int widthOf(const Control& control, Length width) {
  switch (width.unit) {
    case Length::Unit::twips:
      return width.count;
    case Length::Unit::characters:
      return control.widthFor(width.count);
    default:
      return control.naturalSize().width;
  }
}

int widthOf(const Cell& cell) {
  const bool fills = cell.width.unit == Length::Unit::rest;
  return widthOf(*cell.control, fills ? cell.least : cell.width);
}

int distanceBefore(const Cell& cell) { return cell.joined ? 0 : kBetweenCells; }

void placeCell(const Cell& cell, const Rect& place) {
  cell.control->setBounds(place);
  if (cell.shadow != nullptr) cell.shadow->placeAsShadow(place);
}

}  // namespace

Cell fill(Control& control, Length least) {
  Cell cell(control, kRest);
  cell.least = least;
  return cell;
}

Cell joined(Control& control) {
  Cell cell(control);
  cell.joined = true;
  return cell;
}

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

  virtual int width(int labelWidth, Pages pages) const = 0;
  virtual int height(int width, int labelWidth, Pages pages) const = 0;
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

  int width(int /*labelWidth*/, Pages /*pages*/) const override {
    int width = indent_ - kBetweenCells;
    for (const Cell& cell : cells_) width += distanceBefore(cell) + widthOf(cell);
    return width;
  }
  int height(int /*width*/, int /*labelWidth*/, Pages /*pages*/) const override {
    int height = 0;
    for (const Cell& cell : cells_) {
      height = std::max(height, cell.control->naturalSize().height);
    }
    return height;
  }
  void place(const Rect& area, int /*labelWidth*/) override {
    int rest = area.width - width(0, Pages::inFull);
    int left = area.left + indent_ - kBetweenCells;
    for (const Cell& cell : cells_) {
      int width = widthOf(cell);
      if (cell.width.unit == Length::Unit::rest)
        width = std::max(0, width + std::exchange(rest, 0));
      const int natural = cell.control->naturalSize().height;
      const int height = cell.control->fillsRow() ? area.height : std::min(area.height, natural);
      left += distanceBefore(cell);
      placeCell(cell, {left, area.top + (area.height - height) / 2, width, height});
      left += width;
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

  int labelWidth() const override { return widthOf(label_); }
  int width(int labelWidth, Pages pages) const override {
    return labelWidth + kBetweenCells + cells_.width(0, pages);
  }
  int height(int /*width*/, int /*labelWidth*/, Pages /*pages*/) const override {
    return fieldHeight(label_.control->form(), lines_);
  }
  void place(const Rect& area, int labelWidth) override {
    const int first = fieldHeight(label_.control->form());
    const int height = label_.control->fillsRow() ? first : label_.control->naturalSize().height;
    placeCell(label_, {area.left, area.top + (first - height) / 2, labelWidth, height});
    const int indent = labelWidth + kBetweenCells;
    cells_.place({area.left + indent, area.top, area.width - indent, area.height}, 0);
  }

 private:
  Cell label_;
  Row cells_;
  int lines_;
};

class Rows::Block final : public Item {
 public:
  Block(Control& control, Length height, Length least)
      : control_(control), height_(height), least_(least) {}

  int width(int /*labelWidth*/, Pages /*pages*/) const override {
    const bool fitsAnyWidth = height_.unit == Length::Unit::wrapped;
    return fitsAnyWidth && least_.unit == Length::Unit::natural ? 0 : widthOf(control_, least_);
  }
  int height(int width, int /*labelWidth*/, Pages /*pages*/) const override {
    switch (height_.unit) {
      case Length::Unit::twips:
        return height_.count;
      case Length::Unit::wrapped:
        return control_.form().screen().wrappedHeight(control_.caption(), width);
      default:
        return control_.heightFor(std::max(1, height_.count));
    }
  }
  bool stretches() const override { return height_.unit == Length::Unit::rest; }
  void place(const Rect& area, int /*labelWidth*/) override { control_.setBounds(area); }

 private:
  Control& control_;
  Length height_;
  Length least_;
};

class Rows::Group final : public Item {
 public:
  explicit Group(Frame& frame) : frame_(frame) { distanceToNext = kBetweenGroups; }

  int labelWidth() const override { return frame_.rows().labelWidth(); }
  int width(int labelWidth, Pages pages) const override {
    const Margins margins = frame_.margins();
    return margins.left + frame_.rows().width(labelWidth, pages) + margins.right;
  }
  int height(int width, int labelWidth, Pages pages) const override {
    const Margins margins = frame_.margins();
    const int inside = width - margins.left - margins.right;
    return margins.top + frame_.rows().height(inside, labelWidth, pages) + margins.bottom;
  }
  bool stretches() const override { return frame_.rows().stretches(); }
  bool endsWithColumn() const override { return true; }
  void place(const Rect& area, int labelWidth) override {
    frame_.rows().sharedLabelWidth_ = labelWidth;
    frame_.setBounds(area);
    frame_.layOut();
  }

 private:
  Frame& frame_;
};

class Rows::Columns final : public Item {
 public:
  explicit Columns(std::initializer_list<Length> widths) : widths_(widths) {}

  std::vector<Rows*> make(Container& holder) {
    std::vector<Rows*> columns;
    columns.reserve(widths_.size());
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      columns.push_back(columns_.emplace_back(std::make_unique<Rows>(holder)).get());
    }
    return columns;
  }
  int width(int /*labelWidth*/, Pages pages) const override {
    const std::vector<int> widths = naturalWidths(pages);
    return std::accumulate(widths.begin(), widths.end(), betweenColumns());
  }
  int height(int width, int /*labelWidth*/, Pages pages) const override {
    const std::vector<int> widths = widthsIn(width);
    int height = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      height = std::max(height, columns_[i]->height(widths[i], columnLabelWidth(), pages));
    }
    return height;
  }
  bool stretches() const override {
    return std::ranges::any_of(columns_, [](const auto& column) { return column->stretches(); });
  }
  void place(const Rect& area, int /*labelWidth*/) override {
    const std::vector<int> widths = widthsIn(area.width);
    Rect place = area;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      place.width = widths[i];
      columns_[i]->placeItems(place, columnLabelWidth(), End::ofColumn);
      place.left += place.width + kBetweenGroups;
    }
  }

 private:
  bool shares(std::size_t column) const { return widths_[column].unit == Length::Unit::rest; }
  int betweenColumns() const { return kBetweenGroups * (static_cast<int>(widths_.size()) - 1); }
  int columnLabelWidth() const {
    int width = 0;
    for (const auto& column : columns_) width = std::max(width, column->labelWidth());
    return width;
  }
  std::vector<int> naturalWidths(Pages pages) const {
    std::vector<int> widths;
    int share = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const bool isGiven = widths_[i].unit == Length::Unit::twips;
      widths.push_back(isGiven ? widths_[i].count : columns_[i]->width(columnLabelWidth(), pages));
      if (shares(i)) share = std::max(share, widths.back());
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (shares(i)) widths[i] = share;
    }
    return widths;
  }
  std::vector<int> widthsIn(int total) const {
    std::vector<int> widths = naturalWidths(Pages::inFull);
    const int rest = total - std::accumulate(widths.begin(), widths.end(), betweenColumns());
    int sharing = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) sharing += shares(i) ? 1 : 0;
    if (sharing == 0) return widths;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (shares(i)) widths[i] = std::max(0, widths[i] + rest / sharing);
    }
    return widths;
  }

  std::vector<Length> widths_;
  std::vector<std::unique_ptr<Rows>> columns_;
};

class Rows::Tabs final : public Item {
 public:
  Tabs(TabStrip& strip, std::vector<Frame*> pages) : strip_(strip), pages_(std::move(pages)) {}

  int width(int /*labelWidth*/, Pages pages) const override {
    int width = 0;
    if (pages == Pages::inFull) {
      for (const Frame* page : pages_) width = std::max(width, page->naturalSize().width);
    }
    const int tabs = strip_.naturalSize().width;
    const Margins around = strip_.marginsIn(tabs);
    return std::max(width + around.left + around.right, tabs) - 2 * kOutwards;
  }
  int height(int width, int /*labelWidth*/, Pages pages) const override {
    const Margins around = strip_.marginsIn(width + 2 * kOutwards);
    const int inside = width + 2 * kOutwards - around.left - around.right;
    int height = kLeastPageLines * strip_.form().screen().lineHeight();
    if (pages == Pages::inFull) {
      for (const Frame* page : pages_) height = std::max(height, page->heightIn(inside));
    }
    return height + around.top + around.bottom - 2 * kOutwards;
  }
  bool stretches() const override { return true; }
  void place(const Rect& area, int /*labelWidth*/) override {
    strip_.setBounds({area.left - kOutwards, area.top - kOutwards, area.width + 2 * kOutwards,
                      area.height + 2 * kOutwards});
    for (Frame* page : pages_) {
      page->setBounds(strip_.clientArea());
      page->layOut();
    }
  }

 private:
  static constexpr int kOutwards = kPageMargin - kTabMargin;
  static constexpr int kLeastPageLines = 8;

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

void Rows::block(Control& control, Length height, Length least) {
  append<Block>(take(control), height, least);
}

void Rows::gap() {
  if (!items_.empty()) items_.back()->distanceToNext = kBetweenGroups;
}

Rows& Rows::group(Frame& frame, Text caption) {
  take(frame.setCaption(std::move(caption)));
  append<Group>(frame);
  return frame.rows();
}

std::vector<Rows*> Rows::columns(std::initializer_list<Length> widths) {
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

int Rows::labelWidth() const {
  int width = sharedLabelWidth_;
  for (const auto& item : items_) width = std::max(width, item->labelWidth());
  return width;
}

bool Rows::stretches() const {
  return std::ranges::any_of(items_, [](const auto& item) { return item->stretches(); });
}

int Rows::width() const { return width(labelWidth(), Pages::inFull); }

int Rows::height(int width) const { return height(width, labelWidth(), Pages::inFull); }

int Rows::leastWidth() const { return width(labelWidth(), Pages::scrolled); }

int Rows::leastHeight(int width) const { return height(width, labelWidth(), Pages::scrolled); }

int Rows::width(int labelWidth, Pages pages) const {
  int width = buttonsSize().width;
  for (const auto& item : items_) width = std::max(width, item->width(labelWidth, pages));
  return width;
}

int Rows::height(int width, int labelWidth, Pages pages) const {
  int height = 0;
  for (const auto& item : items_) {
    height += item->height(width, labelWidth, pages);
    if (item != items_.back()) height += item->distanceToNext;
  }
  if (buttons_.empty()) return height;
  return height + buttonsSize().height + (items_.empty() ? 0 : kPageMargin);
}

void Rows::place(const Rect& area) {
  Rect rest = area;
  if (!buttons_.empty()) {
    placeButtons(area);
    rest.height -= buttonsSize().height + kPageMargin;
  }
  placeItems(rest, labelWidth(), End::open);
}

void Rows::placeItems(Rect area, int labelWidth, End end) {
  std::vector<int> heights;
  int over = area.height;
  for (const auto& item : items_) {
    // A tab strip takes whatever is left; its pages scroll.
    heights.push_back(item->height(area.width, labelWidth, Pages::scrolled));
    over -= heights.back() + (item != items_.back() ? item->distanceToNext : 0);
  }
  auto height = heights.begin();
  for (const auto& item : items_) {
    const bool endsColumn = end == End::ofColumn && item == items_.back() && item->endsWithColumn();
    area.height = *height++ + (item->stretches() || endsColumn ? std::max(0, over) : 0);
    item->place(area, labelWidth);
    area.top += area.height + item->distanceToNext;
  }
}

Size Rows::buttonsSize() const {
  Size size;
  for (const Control* button : buttons_) {
    const Size natural = button->naturalSize();
    if (size.width > 0) size.width += kBetweenCells;
    size = {size.width + natural.width, std::max(size.height, natural.height)};
  }
  return size;
}

void Rows::placeButtons(const Rect& area) {
  int left = area.right();
  for (Control* button : std::views::reverse(buttons_)) {
    const Size size = button->naturalSize();
    left -= size.width;
    button->setBounds({left, area.bottom() - size.height, size.width, size.height});
    left -= kBetweenCells;
  }
}

}  // namespace tillora::ui
