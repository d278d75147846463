#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/container.h"
#include "ui/label.h"
#include "ui/tab_strip.h"

namespace tillora::ui {

/// One control of a row and the width it takes there, twips.
struct Cell {
  static constexpr int kNatural = -1;  ///< as wide as its caption needs
  static constexpr int kFill = -2;     ///< what the other cells leave over; at most one per row

  // Implicit, so that a row is written as a list of its controls.
  Cell(Control& control, int width = kNatural) : control(&control), width(width) {}

  Control* control;
  int width;
  Label* shadow = nullptr;  ///< stands one pixel right of and below the control
};

inline Cell fill(Control& control) { return {control, Cell::kFill}; }
inline Cell wide(Control& control, int twips) { return {control, twips}; }
/// A label with the copy that enableLabel shows behind it.
Cell engraved(Label& label, Label& shadow);

/// How high a block is.
struct Height {
  enum class Unit : std::uint8_t { twips, lines, rest };

  Unit unit = Unit::rest;
  int count = 0;
};
inline constexpr Height kRest{};  ///< what the other rows leave over; at most one per column
constexpr Height twips(int count) { return {Height::Unit::twips, count}; }
/// Lines of text in the control.
constexpr Height lines(int count) { return {Height::Unit::lines, count}; }

/// What a container shows, described once from top to bottom, and placed with the platform's
/// margins and spacing, so that no page lists coordinates. The row that names a control adds it to
/// the container, unless it is on one already: the order of the description is the tab order.
///
///     ui::Rows& group = page.rows().group(fraGeneral, u"Company Details");
///     group.field({label(u"&Phone"), wide(box(phone), 3000), label(u"&Fax"), fill(box(fax))});
class Rows {
 public:
  explicit Rows(Container& holder);
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;
  ~Rows();

  /// A row that begins with a label, or a button in its place. The labels of all fields form a
  /// column. `lines` text lines high.
  void field(std::initializer_list<Cell> cells, int lines = 1);
  /// A row without a label; indented by `indent` twips.
  void row(std::initializer_list<Cell> cells, int indent = 0);
  /// A list or a box over the whole width.
  void block(Control& control, Height height);
  /// The wider distance between groups, to the next row.
  void gap();

  /// A group box over the whole width, as high as the rows in it, which are returned.
  Rows& group(Frame& frame, Text caption);
  /// Rows side by side in columns of these widths; those of Cell::kFill share what the others leave
  /// over. Their label columns are equally wide, and groups at their ends end at the same height.
  std::vector<Rows*> columns(std::initializer_list<int> widths);
  /// A tab strip with its pages, in the height that the other rows leave.
  void tabs(TabStrip& strip, const std::vector<Frame*>& pages);
  /// Push buttons at the bottom right, left to right.
  void buttons(std::initializer_list<Control*> buttons);

  /// Places everything in this area of the container, twips of its client area.
  void place(const Rect& area);
  /// What the rows need, twips.
  int height() const;

 private:
  class Item;
  class Row;
  class Field;
  class Block;
  class Group;
  class Columns;
  class Tabs;

  template <class T, class... Args>
  T& append(Args&&... args);
  Control& take(Control& control);
  void takeAll(std::initializer_list<Cell> cells);
  int labelWidth() const;
  bool stretches() const;
  enum class End : std::uint8_t { open, ofColumn };
  void placeItems(Rect area, int labelWidth, End end);
  int placeButtons(const Rect& area);

  Container& holder_;
  std::vector<std::unique_ptr<Item>> items_;
  std::vector<Control*> buttons_;
};

}  // namespace tillora::ui
