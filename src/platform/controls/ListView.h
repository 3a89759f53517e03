#pragma once

#include <cstdint>
#include <vector>

#include "platform/controls/Control.h"

namespace ostrand {

// A table. Rows and columns count from 1; an index outside is error 9.
class ListView : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "ListView"; }

  // What the cells of a column hold: a text; a number, which stands on the right; or a course of values, in block characters.
  enum class Content { Text, Number, Trend };

  // Columns; the tag of a column is a key of the text table.
  void AddColumn(std::string tag, int width, Content content = Content::Text);
  Content ColumnContent(int column) const { return columnAt(column).content; }
  int ColumnCount() const { return static_cast<int>(mColumns.size()); }
  const std::string& Header(int column) const { return traceReading("Header", column), columnAt(column).text; }
  void Header(int column, std::string text);
  const std::string& HeaderTag(int column) const { return traceReading("HeaderTag", column), columnAt(column).tag; }
  void HeaderTag(int column, std::string tag);
  int ColumnWidth(int column) const { return traceReading("ColumnWidth", column), columnAt(column).width; }
  void ColumnWidth(int column, int width);

  int Count() const { return read(mCount, "Count"); }
  void AddRow();
  void RemoveRow(int row);
  void Clear();
  const std::string& Cell(int row, int column) const { return traceReading("Cell", row, column), cellAt(row, column).text; }
  void Cell(int row, int column, std::string text);
  ostrand::Color CellColor(int row, int column) const { return traceReading("Color", row, column), cellAt(row, column).color; }
  void CellColor(int row, int column, ostrand::Color color);

  // What a row is about, for whoever hears of it.
  const std::string& RowTag(int row) const { return traceReading("RowTag", row), rowAt(row).tag; }
  void RowTag(int row, std::string tag);

  // Boxes before the rows, and an edit in place of the first column; both off at first.
  bool CheckBoxes() const { return read(mCheckBoxes, "CheckBoxes"); }
  void CheckBoxes(bool boxes) { writeForm(mCheckBoxes, boxes, "CheckBoxes"); }
  bool LabelEdit() const { return read(mLabelEdit, "LabelEdit"); }
  void LabelEdit(bool edit) { writeForm(mLabelEdit, edit, "LabelEdit"); }
  bool Checked(int row) const { return traceReading("Checked", row), rowAt(row).checked; }
  void Checked(int row, bool checked);
  int SelectedRow() const { return read(mSelectedRow, "SelectedRow"); }
  void SelectedRow(int row);

  Signal<int> ItemCheck;                     // row; its box has changed
  Signal<int> ItemClick;                     // row
  Signal<int, std::string&> AfterLabelEdit;  // row, the text that the user typed; the cell bears it, or what becomes of it here

  // For who follows the list: changes are counted, and a row, and the columns with what belongs to all rows, bear the count of
  // their last one. A row that moves to another index has changed there.
  std::uint64_t changeCount() const { return mChanges; }
  std::uint64_t changeOfRow(int row) const { return rowAt(row).change; }
  std::uint64_t changeOfForm() const { return mFormChange; }

  // The user's actions; error 70 if the list cannot be reached or has no boxes or edit.
  void check(int row, bool on);
  void clickRow(int row);
  void editRow(int row, const std::string& text);

  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::ListView; }

 private:
  struct Column {
    std::string tag;
    std::string text;
    int width;
    Content content;
  };
  struct CellData {
    std::string text;
    ostrand::Color color = ostrand::Color::text();
  };
  struct Row {
    std::vector<CellData> cells;
    bool checked = false;
    std::string tag;
    std::uint64_t change = 0;
  };
  const Column& columnAt(int column) const;
  Column& columnAt(int column) { return const_cast<Column&>(std::as_const(*this).columnAt(column)); }
  const Row& rowAt(int row) const;
  Row& rowAt(int row) { return const_cast<Row&>(std::as_const(*this).rowAt(row)); }
  const CellData& cellAt(int row, int column) const;
  CellData& cellAt(int row, int column) { return const_cast<CellData&>(std::as_const(*this).cellAt(row, column)); }
  void changedRow(Row& row);
  void changedForm();
  void writeForm(bool& field, bool value, const char* property);
  void traceCell(const char* property, int first, int second, const Value& value);
  void traceReading(const char* property, int first, int second = 0) const;

  std::vector<Column> mColumns;
  std::vector<Row> mRows;
  int mCount = 0;
  int mSelectedRow = 0;
  std::uint64_t mChanges = 0;
  std::uint64_t mFormChange = 0;
  bool mCheckBoxes = false;
  bool mLabelEdit = false;
};

}  // namespace ostrand
