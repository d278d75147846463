#pragma once

#include <functional>

#include "ui/buttons.h"
#include "ui/lists.h"
#include "ui/screen.h"

namespace tillora {

enum class ColumnFit : std::uint8_t {
  contents,          ///< LVSCW_AUTOSIZE: the widest text of the column
  contentsOrHeader,  ///< LVSCW_AUTOSIZE_USEHEADER: the wider of texts and header; the last column
                     ///< takes what the list has left, too
};

/// Width of a column that holds nothing but a small icon, twips: 18 pixels at 96 DPI.
inline constexpr int kIconColumnWidth = 270;

/// Makes columns as wide as what they hold.
/// @param column 1-based; below 1 is every column.
/// @param minimum a column that comes out narrower (twips) becomes 1830 twips wide; 0 for none.
void autoSizeColumns(ui::ListView& list, int column, ColumnFit fit, int minimum = 0);

/// Sorts the rows of a list by the texts of a column (from 0) in the platform's order for lists;
/// rows of equal texts keep their order.
void sortRows(ui::ListView& list, int column);

/// Turns headers that can be pressed into flat ones, and back on the next call. A header that would
/// be left without any style keeps its own. Always returns True.
bool toggleHeaderButtons(ui::ListView& list);

/// Selects a row and scrolls it into view.
void selectRow(ui::ListView& list, int row);

/// Calls `act` for a double-click on a row, not below the last row. Takes the list's mouse and
/// doubleClick events.
void onRowDoubleClick(ui::ListView& list, std::function<void()> act);

/// Insert in the list presses one button and Delete the other, as clicks do. Takes the list's
/// keyDown event.
void onInsertAndDelete(ui::ListView& list, ui::CommandButton& add, ui::CommandButton& remove);

}  // namespace tillora
