#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "ui/container.h"
#include "ui/image_list.h"
#include "ui/label.h"

namespace tillora::ui {

/// A drop-down list: one of its items is shown, and nothing can be typed.
class ComboBox final : public Control {
 public:
  Kind kind() const override { return Kind::comboBox; }
  /// As wide as its longest item.
  Size naturalSize() const override;
  int widthFor(int characters) const override;
  bool fillsRow() const override { return true; }
  const std::vector<Text>& items() const { return items_; }
  int count() const { return static_cast<int>(items_.size()); }
  void addItem(Text item);
  /// No items, nothing selected; raises nothing.
  void clear();

  /// Position of the selected item from 0; -1 for none.
  int listIndex() const { return listIndex_; }
  /// Raises click when the position differs. Error `invalid index` (380) outside -1 to count() - 1.
  ComboBox& setListIndex(int index);
  /// The user chose this item: raises click even if it was selected already. Error `invalid index`
  /// (380) outside 0 to count() - 1.
  void userChose(int index);
  /// Up, Down, Home and End select another item.
  void userKey(Key key) override;
  /// Text of the selected item; empty for none.
  const Text& text() const;

  Event<> click;

 protected:
  bool focusable() const override { return true; }

 private:
  void select(int index);

  std::vector<Text> items_;
  int listIndex_ = -1;
};

/// A list of rows with a check box each.
class CheckListBox final : public Control {
 public:
  struct Row {
    Text text;
    std::int32_t itemData = 0;
    bool checked = false;
  };

  Kind kind() const override { return Kind::checkListBox; }
  /// As wide as its longest row.
  Size naturalSize() const override;
  int heightFor(int lines) const override;
  const std::vector<Row>& rows() const { return rows_; }
  int count() const { return static_cast<int>(rows_.size()); }
  /// The first row added gets the selection bar, so that the keys have a place to start from.
  void addRow(Text text, std::int32_t itemData);
  bool checked(int row) const { return rows_.at(static_cast<std::size_t>(row)).checked; }
  /// Raises itemCheck when the tick differs.
  CheckListBox& setChecked(int row, bool checked);

  /// The row with the selection bar; -1 for none.
  int listIndex() const { return listIndex_; }
  CheckListBox& setListIndex(int row);
  /// The user ticked or unticked a row: moves the selection bar there, so that the keys continue
  /// from it.
  void userChecked(int row, bool checked);
  /// Space changes the tick of the row with the selection bar, which Up, Down, Home and End move.
  void userKey(Key key) override;

  Event<int> itemCheck;

 protected:
  bool focusable() const override { return true; }

 private:
  std::vector<Row> rows_;
  int listIndex_ = -1;
};

/// The texts of a row's cells, in one block of memory: a list may have a hundred thousand rows.
class CellTexts {
 public:
  CellTexts() = default;
  CellTexts(std::initializer_list<TextView> texts) : CellTexts(std::span(texts)) {}
  explicit CellTexts(std::span<const TextView> texts);

  std::size_t size() const { return units_.empty() ? 0 : units_.front(); }
  /// Empty for a cell that the row does not have.
  TextView operator[](std::size_t cell) const;

 private:
  std::size_t end(std::size_t cell) const;

  // The number of cells; for each cell the end of its text as two units, the lower one first; the
  // texts one after the other.
  Text units_;
};

/// One row of a list view: the text of each column and a small icon.
struct ListItem {
  CellTexts texts;
  PictureId smallIcon = PictureId::none;  ///< one of the list's smallIcons()
};

struct ListColumn {
  Text header;
  int width = 0;  ///< twips
  /// For the last column only: takes the rest of the list's width, but at least its own.
  bool fills = false;
};

/// Styles of a list's header, as the platform numbers them (HDS_*).
inline constexpr std::uint32_t kHeaderButtons = 0x2;    ///< headers can be pressed as buttons
inline constexpr std::uint32_t kHeaderFullDrag = 0x80;  ///< a column follows its dragged border

/// A list in columns (report view). The rows live here; a view asks for the ones it shows, so that
/// a hundred thousand rows open as fast as ten.
class ListView final : public Control {
 public:
  ListView();

  Kind kind() const override { return Kind::listView; }
  /// As wide as its columns.
  Size naturalSize() const override;
  /// With its headers.
  int heightFor(int lines) const override;

  const std::vector<ListColumn>& columns() const { return columns_; }
  void addColumn(Text header, int width = 0);
  ListView& setColumnHeader(int column, Text header);
  ListView& setColumnWidth(int column, int width, bool fills = false);
  std::uint32_t headerStyle() const { return headerStyle_; }
  ListView& setHeaderStyle(std::uint32_t style);
  /// Where the small icons of the rows come from; null for a list without icons. It outlives the
  /// list.
  const ImageList* smallIcons() const { return smallIcons_; }
  ListView& setSmallIcons(const ImageList& images) {
    smallIcons_ = &images;
    return *this;
  }

  /// The column in which typing finds a row; the first if none was set.
  int searchColumn() const { return searchColumn_; }
  ListView& setSearchColumn(int column) {
    searchColumn_ = column;
    return *this;
  }

  const std::vector<ListItem>& rows() const { return rows_; }
  int count() const { return static_cast<int>(rows_.size()); }
  /// Text of a cell; empty if the row has no such column.
  Text text(int row, int column) const;
  /// Adds a row at the end and returns its position.
  int addRow(ListItem item);
  /// Replaces all rows at once; nothing is selected then.
  ListView& setRows(std::vector<ListItem> rows);
  /// Puts the rows into another order; nothing is selected then.
  /// @param order the present position of each row, from the first to the last
  ListView& putInOrder(const std::vector<std::size_t>& order);
  ListView& setRow(int row, ListItem item);
  /// If the removed row was selected, the row that takes its place becomes selected (the last one
  /// if it was the last); -1 in an empty list.
  void removeRow(int row);

  /// The selected row; -1 for none.
  int selectedRow() const { return selectedRow_; }
  /// Raises itemClick when the row differs.
  ListView& setSelectedRow(int row);
  /// Up, Down, Home and End select another row.
  void userKey(Key key) override;
  /// Scrolls the row into view.
  void ensureVisible(int row);
  /// The row last asked to be in view; -1 for none.
  int rowToShow() const { return rowToShow_; }

  /// The row at a point of the list (twips); -1 below the last row and over the headers.
  int hitTest(Point point) const;

  Event<> itemClick;
  Event<> doubleClick;
  /// A mouse button went down or up at this point of the list (twips).
  Event<Point> mouse;

 protected:
  bool focusable() const override { return true; }

 private:
  std::vector<ListColumn> columns_;
  std::vector<ListItem> rows_;
  int selectedRow_ = -1;
  int rowToShow_ = -1;
  int searchColumn_ = 0;
  std::uint32_t headerStyle_ = kHeaderButtons | kHeaderFullDrag;
  const ImageList* smallIcons_ = nullptr;
};

}  // namespace tillora::ui
