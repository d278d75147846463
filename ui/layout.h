#pragma once

#include <initializer_list>
#include <vector>

#include "ui/container.h"
#include "ui/text_box.h"

namespace tillora::ui {

/// One control of a row and the width it takes there, twips.
struct Cell {
  static constexpr int kNatural = -1;  ///< as wide as its caption needs
  static constexpr int kFill = -2;     ///< what the other cells of the row leave over; one a row

  Control& control;
  int width = kNatural;
};

/// Places controls in rows from the top of a container to the bottom, with the platform's margins
/// and spacing, so that no page is a list of coordinates.
class Rows {
 public:
  /// Rows in `area` of `holder` (twips of its client area).
  Rows(Container& holder, Rect area);
  /// Rows inside the margins of a form or of a tab's page.
  static Rows onPage(Container& page);
  /// The same below what has been placed on the page: how several parts share one.
  static Rows restOfPage(Container& page);

  /// The left column for labels becomes as wide as the widest of these captions.
  void labelColumn(std::initializer_list<const Control*> labels);
  /// A label in the label column and the rest of a row after it; `lines` text lines high.
  void field(Control& label, std::initializer_list<Cell> cells, int lines = 1);
  /// A row without a label; indented by `indent` twips.
  void row(std::initializer_list<Cell> cells, int indent = 0);
  /// A list or a box over the whole width, `height` twips high; 0 takes the rest of the area.
  void block(Control& control, int height);
  /// The wider distance between groups.
  void gap();

  /// Rows inside a group box that takes the whole width here, from the next row on.
  Rows group(Container& frame);
  /// Ends the group: the frame is made as high as its rows need.
  void endGroup(Container& frame, const Rows& rows);

  /// Rows side by side, from the next row on, in columns of these widths; what the others leave
  /// over is shared by those of Cell::kFill.
  std::vector<Rows> columns(std::initializer_list<int> widths) const;

  /// Below the last row so far, twips of the container's client area.
  int bottom() const { return top_; }

  /// Push buttons along the bottom right of a form, left to right; returns the top of their row.
  static int buttonRow(Container& form, std::initializer_list<Control*> buttons);

 private:
  void place(std::initializer_list<Cell> cells, int indent, int height);

  Container& holder_;
  Rect area_;
  int top_;
  int labelWidth_ = 0;
};

/// Height of a text box, combo box or button's row with this many lines of text, twips.
int fieldHeight(const Form& form, int lines = 1);

}  // namespace tillora::ui
