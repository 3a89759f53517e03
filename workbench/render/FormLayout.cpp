#include "workbench/render/FormLayout.h"

#include <algorithm>

namespace ostrand {

namespace {

// Edges that lie nearer together than this are meant to be one.
constexpr int kSameEdge = 60;  // twips

template <class Line>
std::size_t lineOf(const std::vector<Line>& lines, int Line::*edge, int at) {
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (std::abs(lines[i].*edge - at) <= kSameEdge) return i;
  return 0;
}

template <class Line>
void addLine(std::vector<Line>& lines, int Line::*edge, int at) {
  for (const Line& line : lines)
    if (std::abs(line.*edge - at) <= kSameEdge) return;
  Line line;
  line.*edge = at;
  lines.push_back(line);
}

template <class Line>
void sortLines(std::vector<Line>& lines, int Line::*edge) {
  std::sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) { return a.*edge < b.*edge; });
}

}  // namespace

bool FormLayout::hangsRight(const Cell& cell) const {
  return !cell.fills && cell.declared.x() > mMeasures.panel.width() / 2 && cell.declared.x() + cell.declared.width() >= mMeasures.panel.width() - kSameEdge;
}

// What is several rows high does not push its own row apart; the rows below it begin behind its end.
bool FormLayout::isTall(const Cell& cell) const { return !cell.fills && cell.declared.height() > mMeasures.rowTwips * 3 / 2; }

// What reaches over the next column in its own declaration (a heading) does not widen its column.
bool FormLayout::reachesOver(std::size_t cell) const {
  const std::size_t next = mColumnOf[cell] + 1;
  return next < mColumns.size() && mCells[cell].declared.x() + mCells[cell].declared.width() > mColumns[next].left + kSameEdge;
}

bool FormLayout::hasNeighbour(std::size_t cell) const {
  for (std::size_t other = 0; other < mCells.size(); ++other)
    if (!mCells[other].fills && mRowOf[other] == mRowOf[cell] && (mColumnOf[other] > mColumnOf[cell] || hangsRight(mCells[other]))) return true;
  return false;
}

int FormLayout::width(const Extent& extent) const {
  const int gap = mMeasures.companionGap;
  return extent.field + extent.tail + (extent.companion ? gap + extent.companion : 0) + (extent.state ? gap + extent.state : 0);
}

int FormLayout::width(const Column& column) const { return width(Extent{.field = column.field, .companion = column.companion, .state = column.state}); }

void FormLayout::measure(std::vector<Cell> cells, const Measures& measures) {
  mCells = std::move(cells);
  mMeasures = measures;
  findLines();
  measureColumns();
  measureRows();
  measureWhole();
}

void FormLayout::findLines() {
  mColumns.clear();
  mRows.clear();
  for (const Cell& cell : mCells) {
    if (hangsRight(cell)) continue;
    if (!cell.fills) addLine(mColumns, &Column::left, cell.declared.x());
    addLine(mRows, &Row::top, cell.declared.y());
  }
  if (mColumns.empty()) mColumns.emplace_back();
  if (mRows.empty()) mRows.emplace_back();
  sortLines(mColumns, &Column::left);
  sortLines(mRows, &Row::top);
  mColumnOf.assign(mCells.size(), 0);
  mRowOf.assign(mCells.size(), 0);
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    if (!hangsRight(cell) && !cell.fills) mColumnOf[i] = lineOf(mColumns, &Column::left, cell.declared.x());
    // What hangs on the right edge may stand a little above the first row; it belongs there.
    mRowOf[i] = lineOf(mRows, &Row::top, cell.declared.y());
  }
}

void FormLayout::measureColumns() {
  const auto inColumns = [&](std::size_t i) { return !hangsRight(mCells[i]) && !mCells[i].fills && !reachesOver(i); };
  const auto alone = [&](std::size_t i) { return !mCells[i].extent.companion && !mCells[i].extent.state; };
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    if (!inColumns(i) || alone(i)) continue;
    const Extent& extent = mCells[i].extent;
    Column& column = mColumns[mColumnOf[i]];
    column.field = std::max(column.field, extent.field);
    column.companion = std::max(column.companion, extent.companion);
    column.state = std::max(column.state, extent.state);
  }
  // A control without a unit or a state may use the room of both. A tail is in nobody's way where the row ends with it.
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    if (!inColumns(i) || !alone(i)) continue;
    Column& column = mColumns[mColumnOf[i]];
    const int needs = mCells[i].extent.field + (hasNeighbour(i) ? mCells[i].extent.tail : 0);
    column.field = std::max(column.field, needs - (width(column) - column.field));
  }
  int x = mMeasures.margin;
  for (Column& column : mColumns) {
    column.x = x;
    if (const int wide = width(column)) x += wide + mMeasures.columnGap;
  }
}

void FormLayout::measureRows() {
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    Row& row = mRows[mRowOf[i]];
    if (!isTall(cell)) row.height = std::max(row.height, cell.extent.height);
    if (cell.fills) row.shares = std::max(row.shares, cell.declared.height());
    row.bare |= cell.fills && cell.bare;
  }
  const double scale = double(mMeasures.fieldHeight + mMeasures.rowGap) / mMeasures.rowTwips;
  int y = mRows.front().bare ? 0 : mMeasures.top;
  for (std::size_t r = 0; r < mRows.size(); ++r) {
    if (r > 0) {
      const Row& above = mRows[r - 1];
      y = above.y + above.height + mMeasures.rowGap;
      if (!above.shares) y = std::max(y, above.y + static_cast<int>((mRows[r].top - above.top) * scale));
    }
    for (std::size_t i = 0; i < mCells.size(); ++i)
      if (isTall(mCells[i]) && mRowOf[i] < r && mCells[i].declared.y() + mCells[i].declared.height() <= mRows[r].top + kSameEdge)
        y = std::max(y, mRows[mRowOf[i]].y + mCells[i].extent.height + mMeasures.rowGap);
    mRows[r].y = y;
  }
}

void FormLayout::measureWhole() {
  int right = 0;
  int bottom = 0;
  mLeastRight = 0;
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    const int edge = cell.bare ? 0 : mMeasures.margin;
    bottom = std::max(bottom, mRows[mRowOf[i]].y + cell.extent.height + edge);
    if (cell.fills) {
      right = std::max(right, width(cell.extent) + 2 * edge);
    } else if (!hangsRight(cell)) {
      right = std::max(right, mColumns[mColumnOf[i]].x + std::max(width(cell.extent), reachesOver(i) ? 0 : width(mColumns[mColumnOf[i]])) + edge);
    } else {
      int beside = mMeasures.margin;
      for (std::size_t other = 0; other < mCells.size(); ++other)
        if (!hangsRight(mCells[other]) && mRowOf[other] == mRowOf[i]) beside = std::max(beside, mColumns[mColumnOf[other]].x + width(mCells[other].extent));
      mLeastRight = std::max(mLeastRight, beside + mMeasures.columnGap + width(cell.extent) + edge);
    }
  }
  mMinimum = QSize(std::max(right, mLeastRight), bottom);
}

void FormLayout::place(const QSize& size, int visibleWidth) {
  const int hangOn = std::min(size.width(), std::max(visibleWidth, mLeastRight));
  int shares = 0;
  for (const Row& row : mRows) shares += row.shares;
  const int spare = std::max(0, size.height() - mMinimum.height());
  std::vector<int> down(mRows.size()), more(mRows.size());
  int given = 0;
  for (std::size_t r = 0; r < mRows.size(); ++r) {
    down[r] = given;
    more[r] = shares ? static_cast<int>(double(spare) * mRows[r].shares / shares) : 0;
    given += more[r];
  }
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    Cell& cell = mCells[i];
    const Row& row = mRows[mRowOf[i]];
    const int y = row.y + down[mRowOf[i]];
    cell.place = {};
    if (cell.fills) {
      const int edge = cell.bare ? 0 : mMeasures.margin;
      cell.place.field = QRect(edge, y, size.width() - 2 * edge, row.height + more[mRowOf[i]]);
      continue;
    }
    const int top = y + std::max(0, row.height - cell.extent.height) / 2;
    const auto centred = [&](int x, int wide) { return QRect(x, top, wide, cell.extent.height); };
    if (hangsRight(cell)) {
      cell.place.field = centred(hangOn - mMeasures.margin - cell.extent.field, cell.extent.field);
      continue;
    }
    const Column& column = mColumns[mColumnOf[i]];
    if (!cell.extent.companion && !cell.extent.state) {
      const int own = cell.extent.field + cell.extent.tail;
      cell.place.field = centred(column.x, reachesOver(i) ? own : std::max(own, width(column)));
      continue;
    }
    cell.place.field = centred(column.x, column.field);
    int x = column.x + column.field + mMeasures.companionGap;
    cell.place.companion = centred(x, column.companion);
    if (column.companion) x += column.companion + mMeasures.companionGap;
    cell.place.state = centred(x, column.state);
  }
}

}  // namespace ostrand
