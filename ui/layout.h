#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/container.h"
#include "ui/label.h"
#include "ui/tab_strip.h"

namespace tillora::ui {

/// How wide or how high something is.
struct Length {
  enum class Unit : std::uint8_t {
    natural,  ///< what its content needs
    rest,     ///< what the others leave over
    twips,
    characters,  ///< width of a box that shows so many digits; letters are about as wide
    lines,       ///< height with so many lines of text
    wrapped,     ///< height that the caption needs, broken into lines of the present width
  };

  Unit unit = Unit::natural;
  int count = 0;
};
inline constexpr Length kNatural{};
/// What the others leave over, but at least the natural size; at most one in a row or column.
inline constexpr Length kRest{Length::Unit::rest};
inline constexpr Length kWrapped{Length::Unit::wrapped};
constexpr Length twips(int count) { return {Length::Unit::twips, count}; }
constexpr Length characters(int count) { return {Length::Unit::characters, count}; }
constexpr Length lines(int count) { return {Length::Unit::lines, count}; }
/// The height that the others leave over, but at least that of so many lines.
constexpr Length restFromLines(int least) { return {Length::Unit::rest, least}; }

/// One control of a row.
struct Cell {
  // Implicit, so that a row is written as a list of its controls.
  Cell(Control& control, Length width = kNatural) : control(&control), width(width) {}

  Control* control;
  Length width;
  Length least{};           ///< for kRest
  Label* shadow = nullptr;  ///< stands one pixel right of and below the control
  bool joined = false;      ///< touches the cell before it
};

Cell fill(Control& control, Length least = kNatural);
inline Cell wide(Control& control, Length width) { return {control, width}; }
/// A label with the copy that enableLabel shows behind it.
Cell engraved(Label& label, Label& shadow);
/// An up-down at its box.
Cell joined(Control& control);

/// What a container shows, described once from top to bottom, and placed with the platform's
/// margins and spacing, so that no page lists coordinates. The row that names a control adds it to
/// the container, unless it is on one already: the order of the description is the tab order.
///
///     ui::Rows& group = page.rows().group(fraGeneral, u"Company Details");
///     group.field({label(u"&Phone"), wide(box(phone), characters(20)), label(u"&Fax"),
///                  fill(box(fax))});
///
/// What the rows need follows the font, and so does the size of a form, which is that of its rows.
class Rows {
 public:
  explicit Rows(Container& holder);
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;
  ~Rows();

  /// A row that begins with a label, or a button in its place. The labels of all fields form a
  /// column, which the groups of a page share. `lines` text lines high.
  void field(std::initializer_list<Cell> cells, int lines = 1);
  /// A row without a label; indented by `indent` twips.
  void row(std::initializer_list<Cell> cells, int indent = 0);
  /// A list, a box or a text over the whole width, which is at least `least`.
  void block(Control& control, Length height, Length least = kNatural);
  /// The wider distance between groups, to the next row.
  void gap();

  /// A group box over the whole width, as high as the rows in it, which are returned.
  Rows& group(Frame& frame, Text caption);
  /// Rows side by side in columns of these widths; those of kRest are equally wide and share what
  /// the others leave over. Their label columns are equally wide, and groups at their ends end at
  /// the same height.
  std::vector<Rows*> columns(std::initializer_list<Length> widths);
  /// A tab strip with its pages, in the height that the other rows leave.
  void tabs(TabStrip& strip, const std::vector<Frame*>& pages);
  /// Push buttons at the bottom right, left to right.
  void buttons(std::initializer_list<Control*> buttons);

  /// Places everything in this area of the container, twips of its client area.
  void place(const Rect& area);
  /// The width in which everything is seen in full, twips.
  int width() const;
  /// The height that the rows need in this width, twips.
  int height(int width) const;
  /// The size below which a container scrolls: the pages behind a tab strip scroll by themselves.
  int leastWidth() const;
  int leastHeight(int width) const;

 private:
  class Item;
  class Row;
  class Field;
  class Block;
  class Group;
  class Columns;
  class Tabs;
  /// Whether the pages behind a tab strip are measured in full.
  enum class Pages : std::uint8_t { inFull, scrolled };

  template <class T, class... Args>
  T& append(Args&&... args);
  Control& take(Control& control);
  void takeAll(std::initializer_list<Cell> cells);
  int labelWidth() const;
  bool stretches() const;
  int width(int labelWidth, Pages pages) const;
  int height(int width, int labelWidth, Pages pages) const;
  enum class End : std::uint8_t { open, ofColumn };
  void placeItems(Rect area, int labelWidth, End end);
  Size buttonsSize() const;
  void placeButtons(const Rect& area);

  Container& holder_;
  std::vector<std::unique_ptr<Item>> items_;
  std::vector<Control*> buttons_;
  int sharedLabelWidth_ = 0;  // of the page around a group
};

}  // namespace tillora::ui
