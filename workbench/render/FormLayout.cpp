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
  Line line{};
  line.*edge = at;
  lines.push_back(line);
}

int total(const Extent& extent, int gap) {
  return extent.field + extent.tail + (extent.companion ? gap + extent.companion : 0) + (extent.state ? gap + extent.state : 0);
}

}  // namespace

bool FormLayout::hangsRight(const Cell& cell) const {
  return !cell.fills && cell.declared.x() > mMeasures.panel.width() / 2 && cell.declared.x() + cell.declared.width() >= mMeasures.panel.width() - kSameEdge;
}

int FormLayout::stateX(const Column& column) const {
  return column.x + column.field + mMeasures.companionGap + (column.companion ? column.companion + mMeasures.companionGap : 0);
}

int FormLayout::width(const Column& column) const {
  return total({.field = column.field, .companion = column.companion, .state = column.state}, mMeasures.companionGap);
}

void FormLayout::measure(std::vector<Cell> cells, const Measures& measures) {
  mCells = std::move(cells);
  mMeasures = measures;
  mColumns.clear();
  mRows.clear();
  mRowBottoms.clear();
  mColumnOf.assign(mCells.size(), 0);
  mRowOf.assign(mCells.size(), 0);

  for (const Cell& cell : mCells) {
    if (hangsRight(cell)) continue;
    if (!cell.fills) addLine(mColumns, &Column::left, cell.declared.x());
    addLine(mRows, &Row::top, cell.declared.y());
  }
  if (mRows.empty()) addLine(mRows, &Row::top, 0);
  std::sort(mColumns.begin(), mColumns.end(), [](const Column& a, const Column& b) { return a.left < b.left; });
  std::sort(mRows.begin(), mRows.end(), [](const Row& a, const Row& b) { return a.top < b.top; });
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    if (!hangsRight(mCells[i]) && !mCells[i].fills) mColumnOf[i] = lineOf(mColumns, &Column::left, mCells[i].declared.x());
    // What hangs on the right edge stands beside the first row, a little above it as it was declared.
    mRowOf[i] = hangsRight(mCells[i]) && mCells[i].declared.y() < mRows.front().top ? 0 : lineOf(mRows, &Row::top, mCells[i].declared.y());
  }

  // What reaches over the next column in its own declaration (a heading) does not widen its column.
  const auto reachesOver = [&](std::size_t i) {
    const std::size_t next = mColumnOf[i] + 1;
    return next < mColumns.size() && mCells[i].declared.x() + mCells[i].declared.width() > mColumns[next].left + kSameEdge;
  };
  // A tail that hangs over the end of its column is in nobody's way where the row ends there.
  const auto hasNeighbour = [&](std::size_t i) {
    for (std::size_t other = 0; other < mCells.size(); ++other)
      if (!mCells[other].fills && mRowOf[other] == mRowOf[i] && (mColumnOf[other] > mColumnOf[i] || hangsRight(mCells[other]))) return true;
    return false;
  };
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    if (hangsRight(cell) || cell.fills || reachesOver(i)) continue;
    Column& column = mColumns[mColumnOf[i]];
    // A control without a unit or a state may use the room of both.
    if (cell.extent.companion || cell.extent.state) {
      column.field = std::max(column.field, cell.extent.field);
      column.companion = std::max(column.companion, cell.extent.companion);
      column.state = std::max(column.state, cell.extent.state);
    }
  }
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    if (hangsRight(cell) || cell.fills || reachesOver(i) || cell.extent.companion || cell.extent.state) continue;
    Column& column = mColumns[mColumnOf[i]];
    const int needs = cell.extent.field + (hasNeighbour(i) ? cell.extent.tail : 0);
    column.field = std::max(column.field, needs - (width(column) - column.field));
  }
  int x = measures.margin;
  int right = x;
  for (Column& column : mColumns) {
    column.x = x;
    right = x + width(column);
    x = right + measures.columnGap;
  }

  // Rows: each as high as it needs, and as far from the one above as the form says.
  const double scale = double(measures.fieldHeight + measures.rowGap) / measures.rowTwips;
  // What is several rows high does not push its own row apart; the rows below it begin behind its end.
  const auto tall = [&](const Cell& cell) { return !cell.fills && cell.declared.height() > measures.rowTwips * 3 / 2; };
  for (std::size_t i = 0; i < mCells.size(); ++i)
    if (!mCells[i].fills && !tall(mCells[i])) mRows[mRowOf[i]].height = std::max(mRows[mRowOf[i]].height, mCells[i].extent.height);
  int y = measures.margin;
  for (std::size_t row = 0; row < mRows.size(); ++row) {
    if (row > 0) {
      const Row& above = mRows[row - 1];
      y = std::max(above.y + above.height + measures.rowGap, above.y + static_cast<int>((mRows[row].top - above.top) * scale));
    }
    for (std::size_t i = 0; i < mCells.size(); ++i)
      if (tall(mCells[i]) && mRowOf[i] < row && mCells[i].declared.y() + mCells[i].declared.height() <= mRows[row].top + kSameEdge)
        y = std::max(y, mRows[mRowOf[i]].y + mCells[i].extent.height + measures.rowGap);
    mRows[row].y = y;
    mRowBottoms.push_back(y + mRows[row].height);
  }

  int bottom = mRows.back().y + mRows.back().height + measures.margin;
  right += measures.margin;
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    const Cell& cell = mCells[i];
    const int wide = total(cell.extent, measures.companionGap);
    const int edge = cell.bare ? 0 : measures.margin;
    if (cell.fills) {
      right = std::max(right, wide + 2 * edge);
      bottom = std::max(bottom, (cell.bare && cell.declared.y() <= kSameEdge ? 0 : mRows[mRowOf[i]].y) + cell.extent.height + edge);
    } else if (hangsRight(cell)) {
      int beside = measures.margin;
      for (std::size_t other = 0; other < mCells.size(); ++other)
        if (!hangsRight(mCells[other]) && !mCells[other].fills && mRowOf[other] == mRowOf[i])
          beside = std::max(beside, mColumns[mColumnOf[other]].x + total(mCells[other].extent, measures.companionGap));
      right = std::max(right, beside + measures.columnGap + wide + measures.margin);
    } else {
      bottom = std::max(bottom, mRows[mRowOf[i]].y + cell.extent.height + measures.margin);
      right = std::max(right, mColumns[mColumnOf[i]].x + wide + measures.margin);
    }
  }
  mMinimum = QSize(right, bottom);
}

void FormLayout::place(const QSize& size) {
  for (std::size_t i = 0; i < mCells.size(); ++i) {
    Cell& cell = mCells[i];
    const Row& row = mRows[mRowOf[i]];
    cell.place = {};
    if (cell.fills) {
      const int edge = cell.bare ? 0 : mMeasures.margin;
      const int start = cell.bare && cell.declared.y() <= kSameEdge ? 0 : row.y;
      cell.place.field = QRect(edge, start, size.width() - 2 * edge, size.height() - start - edge);
      continue;
    }
    const int top = row.y + std::max(0, row.height - cell.extent.height) / 2;
    const auto centred = [&](int x, int width) { return QRect(x, top, width, cell.extent.height); };
    if (hangsRight(cell)) {
      cell.place.field = centred(size.width() - mMeasures.margin - cell.extent.field, cell.extent.field);
      continue;
    }
    if (cell.holder || mColumns.empty()) continue;
    const Column& column = mColumns[mColumnOf[i]];
    const bool alone = !cell.extent.companion && !cell.extent.state;
    cell.place.field = centred(column.x, alone ? std::max(cell.extent.field + cell.extent.tail, width(column)) : column.field);
    cell.place.companion = centred(companionX(column), std::max(column.companion, 0));
    cell.place.state = centred(stateX(column), column.state);
  }
}

}  // namespace ostrand
