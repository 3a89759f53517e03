#include "workbench/render/BlockLayout.h"

#include <algorithm>

namespace ostrand {

void BlockLayout::measure(std::vector<Cell> cells, const Measures& measures) {
  mCells = std::move(cells);
  mMeasures = measures;
  measureColumns();
  measureRows();
  mWidth = mBottom = 0;
  for (const Cell& cell : mCells) {
    mBottom = std::max(mBottom, rowOf(cell).y + cell.extent.height + (cell.bare ? 0 : mMeasures.bottom));
    if (cell.share) {
      mWidth = std::max(mWidth, widthOfStrip(cell) + (cell.bare ? 0 : mMeasures.before + mMeasures.after));
    } else if (cell.loose) {
      mWidth = std::max(mWidth, looseX(cell) + width(cell.extent) + mMeasures.after);
    } else {
      const Column& column = mColumns[static_cast<std::size_t>(cell.column)];
      mWidth = std::max(mWidth, column.x + std::max(width(cell.extent), width(column)) + mMeasures.after);
    }
  }
}

bool BlockLayout::hasNeighbour(const Cell& cell) const {
  return std::any_of(mCells.begin(), mCells.end(),
                     [&](const Cell& other) { return !other.share && other.row == cell.row && other.column > cell.column; });
}

BlockLayout::Row& BlockLayout::rowOf(const Cell& cell) {
  return *std::lower_bound(mRows.begin(), mRows.end(), cell.row, [](const Row& row, int number) { return row.number < number; });
}

int BlockLayout::width(const Extent& extent) const {
  const int gap = mMeasures.companionGap;
  return extent.field + extent.tail + (extent.companion ? gap + extent.companion : 0) + (extent.state ? gap + extent.state : 0);
}

int BlockLayout::width(const Column& column) const {
  return width(Extent{.field = column.field, .companion = column.companion, .state = column.state});
}

int BlockLayout::looseX(const Cell& cell) const {
  const int labels = width(mColumns.front());
  int x = mColumns.front().x + (labels ? labels + mMeasures.columnGap : 0);
  for (const Cell& other : mCells)
    if (other.loose && other.row == cell.row && other.column < cell.column) x += width(other.extent) + mMeasures.columnGap;
  return x;
}

int BlockLayout::widthBefore(const Cell& cell) const {
  int sum = 0;
  for (const Cell& other : mCells)
    if (other.share && other.row == cell.row && other.column < cell.column) sum += width(other.extent);
  return sum;
}

int BlockLayout::widthOfStrip(const Cell& cell) const {
  int sum = 0;
  for (const Cell& other : mCells)
    if (other.share && other.row == cell.row) sum += width(other.extent);
  return sum;
}

void BlockLayout::measureColumns() {
  mColumns.clear();
  for (const Cell& cell : mCells)
    if (static_cast<std::size_t>(cell.column) >= mColumns.size()) mColumns.resize(static_cast<std::size_t>(cell.column) + 1);
  const auto alone = [](const Cell& cell) { return !cell.extent.companion && !cell.extent.state; };
  for (const Cell& cell : mCells) {
    if (cell.share || cell.loose || alone(cell)) continue;
    Column& column = mColumns[static_cast<std::size_t>(cell.column)];
    column.field = std::max(column.field, cell.extent.field);
    column.companion = std::max(column.companion, cell.extent.companion);
    column.state = std::max(column.state, cell.extent.state);
  }
  // A control without a unit or a state may use the room of both. A tail is in nobody's way where the row ends with it.
  for (const Cell& cell : mCells) {
    if (cell.share || cell.loose || !alone(cell)) continue;
    Column& column = mColumns[static_cast<std::size_t>(cell.column)];
    const int needs = cell.extent.field + (hasNeighbour(cell) ? cell.extent.tail : 0);
    column.field = std::max(column.field, needs - (width(column) - column.field));
  }
  int x = mMeasures.before;
  for (Column& column : mColumns) {
    column.x = x;
    if (const int wide = width(column)) x += wide + mMeasures.columnGap;
  }
}

void BlockLayout::measureRows() {
  mRows.clear();
  for (const Cell& cell : mCells) mRows.push_back({.number = cell.row});
  std::sort(mRows.begin(), mRows.end(), [](const Row& a, const Row& b) { return a.number < b.number; });
  mRows.erase(std::unique(mRows.begin(), mRows.end(), [](const Row& a, const Row& b) { return a.number == b.number; }), mRows.end());
  for (const Cell& cell : mCells) {
    Row& row = rowOf(cell);
    row.height = std::max(row.height, cell.extent.height);
    row.share = std::max(row.share, cell.share);
    row.bare |= cell.share && cell.bare;
  }
  if (mRows.empty()) return;
  int y = mMeasures.isFirst && mRows.front().bare ? 0 : mMeasures.top;
  for (Row& row : mRows) {
    row.y = y;
    y += (row.share ? row.height : std::max(row.height, mMeasures.rowHeight)) + mMeasures.rowGap;
  }
}

void BlockLayout::arrange(int left, int width, int moreHeight) {
  int shares = 0, given = 0;
  for (const Row& row : mRows) shares += row.share;
  std::vector<int> down, more;
  for (const Row& row : mRows) {
    down.push_back(given);
    more.push_back(shares ? static_cast<int>(double(moreHeight) * row.share / shares) : 0);
    given += more.back();
  }
  for (Cell& cell : mCells) {
    const Row& row = rowOf(cell);
    const auto at = static_cast<std::size_t>(&row - mRows.data());
    const int y = row.y + down[at];
    cell.position = {};
    if (cell.share) {
      const int before = cell.bare ? 0 : mMeasures.before, after = cell.bare ? 0 : mMeasures.after;
      // What there is more in width is shared out as the contents need it.
      const int room = width - before - after, needed = std::max(1, widthOfStrip(cell)), from = widthBefore(cell);
      const auto scaled = [&](int x) { return static_cast<int>(static_cast<long long>(x) * room / needed); };
      const int to = from + this->width(cell.extent);
      cell.position.field = QRect(left + before + scaled(from), y, scaled(to) - scaled(from), row.height + more[at]);
    } else {
      arrangeInColumn(cell, left, y, row.height);
    }
  }
}

void BlockLayout::arrangeInColumn(Cell& cell, int left, int y, int rowHeight) const {
  const Column& column = mColumns[static_cast<std::size_t>(cell.column)];
  const int top = y + std::max(0, rowHeight - cell.extent.height) / 2;
  const auto centred = [&](int x, int wide) { return QRect(left + x, top, wide, cell.extent.height); };
  if (cell.loose) {
    cell.position.field = centred(looseX(cell), width(cell.extent));
    return;
  }
  if (!cell.extent.companion && !cell.extent.state) {
    cell.position.field = centred(column.x, std::max(cell.extent.field + cell.extent.tail, width(column)));
    return;
  }
  cell.position.field = centred(column.x, column.field);
  int x = column.x + column.field + mMeasures.companionGap;
  cell.position.companion = centred(x, column.companion);
  if (column.companion) x += column.companion + mMeasures.companionGap;
  cell.position.state = centred(x, column.state);
}

}  // namespace ostrand
