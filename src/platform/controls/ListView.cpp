#include "platform/controls/ListView.h"

#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

namespace {

template <class T>
const T& element(const std::vector<T>& list, int index, const char* what, const std::string& name) {
  if (index < 1 || index > static_cast<int>(list.size()))
    throw RuntimeError(RuntimeError::OutOfRange, name + " has no " + what + " " + std::to_string(index));
  return list[static_cast<std::size_t>(index) - 1];
}

int only(std::span<const int> indices) {
  if (indices.size() != 1) throw RuntimeError(RuntimeError::BadArgument, "one index is wanted");
  return indices[0];
}

// "Cell(2,1)", or with one index "Header(2)".
std::string member(const char* property, int first, int second) {
  return std::string(property) + "(" + std::to_string(first) + (second ? "," + std::to_string(second) : "") + ")";
}

}  // namespace

const ListView::Column& ListView::columnAt(int column) const { return element(mColumns, column, "column", name()); }

const ListView::Row& ListView::rowAt(int row) const { return element(mRows, row, "row", name()); }

const ListView::CellData& ListView::cellAt(int row, int column) const {
  const Row& at = rowAt(row);
  columnAt(column);
  // A column that came after the row has no cell there yet.
  static const CellData kEmpty;
  if (column > static_cast<int>(at.cells.size())) return kEmpty;
  return at.cells[static_cast<std::size_t>(column) - 1];
}

void ListView::traceCell(const char* property, int first, int second, const Value& value) {
  if (probe()) probeSetting(member(property, first, second), value);
}

void ListView::traceReading(const char* property, int first, int second) const {
  if (ControlProbe* listener = probe()) listener->reading(const_cast<ListView&>(*this), member(property, first, second));
}

void ListView::changedRow(Row& row) {
  row.change = ++mChanges;
  changedNow();
}

void ListView::changedForm() {
  mFormChange = ++mChanges;
  changedNow();
}

void ListView::writeForm(bool& field, bool value, const char* property) {
  if (field != value) mFormChange = ++mChanges;
  write(field, value, property);
}

void ListView::AddColumn(std::string tag, int width, Content content) {
  if (probe()) announce("AddColumn", " " + inQuotes(tag) + " " + std::to_string(width));
  mColumns.push_back({std::move(tag), {}, width, content});
  for (Row& row : mRows) row.cells.resize(mColumns.size());
  changedForm();
}

void ListView::Header(int column, std::string text) {
  traceCell("Header", column, 0, text);
  if (std::string& at = columnAt(column).text; at != text) {
    at = std::move(text);
    changedForm();
  }
}

void ListView::HeaderTag(int column, std::string tag) {
  traceCell("HeaderTag", column, 0, tag);
  columnAt(column).tag = std::move(tag);
}

void ListView::ColumnWidth(int column, int width) {
  traceCell("ColumnWidth", column, 0, width);
  if (int& at = columnAt(column).width; at != width) {
    at = width;
    changedForm();
  }
}

void ListView::AddRow() {
  announce("AddRow");
  mRows.emplace_back().cells.resize(mColumns.size());
  ++mCount;
  changedRow(mRows.back());
}

void ListView::RemoveRow(int row) {
  if (probe()) announce("RemoveRow", " " + std::to_string(row));
  rowAt(row);
  mRows.erase(mRows.begin() + row - 1);
  --mCount;
  ++mChanges;
  for (auto moved = mRows.begin() + row - 1; moved != mRows.end(); ++moved) moved->change = mChanges;
  if (mSelectedRow == row)
    mSelectedRow = 0;
  else if (mSelectedRow > row)
    --mSelectedRow;
  changedNow();
}

void ListView::Clear() {
  announce("Clear");
  mRows.clear();
  mCount = mSelectedRow = 0;
  ++mChanges;
  changedNow();
}

void ListView::RowTag(int row, std::string tag) {
  traceCell("RowTag", row, 0, tag);
  rowAt(row).tag = std::move(tag);
}

void ListView::Cell(int row, int column, std::string text) {
  traceCell("Cell", row, column, text);
  cellAt(row, column);
  if (std::string& at = rowAt(row).cells[static_cast<std::size_t>(column) - 1].text; at != text) {
    at = std::move(text);
    changedRow(rowAt(row));
  }
}

void ListView::CellColor(int row, int column, ostrand::Color color) {
  traceCell("Color", row, column, color.rgb);
  cellAt(row, column);
  if (ostrand::Color& at = rowAt(row).cells[static_cast<std::size_t>(column) - 1].color; at != color) {
    at = color;
    changedRow(rowAt(row));
  }
}

void ListView::Checked(int row, bool checked) {
  traceCell("Checked", row, 0, checked);
  if (bool& at = rowAt(row).checked; at != checked) {
    at = checked;
    changedRow(rowAt(row));
  }
}

void ListView::SelectedRow(int row) {
  if (row != 0) rowAt(row);
  write(mSelectedRow, row, "SelectedRow");
}

void ListView::check(int row, bool on) {
  requireUsable();
  if (!mCheckBoxes) throw RuntimeError(RuntimeError::PermissionDenied, name() + " has no boxes");
  Row& at = rowAt(row);
  if (at.checked == on) return;
  const Ref<Component> pin(owner());
  at.checked = on;
  changedRow(at);
  ItemCheck(row);
}

void ListView::clickRow(int row) {
  requireUsable();
  rowAt(row);
  const Ref<Component> pin(owner());
  mSelectedRow = row;
  changedNow();
  ItemClick(row);
}

void ListView::editRow(int row, const std::string& text) {
  requireUsable();
  if (!mLabelEdit) throw RuntimeError(RuntimeError::PermissionDenied, name() + " cannot be edited in place");
  cellAt(row, 1);
  const auto show = [&](const std::string& shown) {
    std::string& at = rowAt(row).cells.front().text;
    if (at == shown) return;
    at = shown;
    changedRow(rowAt(row));
  };
  const Ref<Component> pin(owner());
  show(text);
  std::string result = text;
  AfterLabelEdit(row, result);
  // Whoever heard of it may have taken the row away.
  if (result != text && row <= mCount) show(result);
}

Value ListView::get(std::string_view property, std::span<const int> indices) const {
  if (property == "Count") return mCount;
  if (property == "SelectedRow") return mSelectedRow;
  if (property == "Header") return columnAt(only(indices)).text;
  if (property == "HeaderTag") return columnAt(only(indices)).tag;
  if (property == "ColumnWidth") return columnAt(only(indices)).width;
  if (property == "Checked") return rowAt(only(indices)).checked;
  if (property == "RowTag") return rowAt(only(indices)).tag;
  if ((property == "Cell" || property == "Color") && indices.size() == 2) {
    const CellData& cell = cellAt(indices[0], indices[1]);
    return property == "Cell" ? Value(cell.text) : Value(cell.color.rgb);
  }
  return Control::get(property, indices);
}

void ListView::set(std::string_view property, std::span<const int> indices, const Value& value) {
  if (property == "Header") return Header(only(indices), asText(value));
  if (property == "HeaderTag") return HeaderTag(only(indices), asText(value));
  if (property == "ColumnWidth") return ColumnWidth(only(indices), asInt(value));
  if (property == "Checked") return Checked(only(indices), asBool(value));
  if (property == "RowTag") return RowTag(only(indices), asText(value));
  if (property == "Cell" && indices.size() == 2) return Cell(indices[0], indices[1], asText(value));
  if (property == "Color" && indices.size() == 2) return CellColor(indices[0], indices[1], {ostrand::Color::Role::Given, asInt(value)});
  Control::set(property, indices, value);
}

}  // namespace ostrand
