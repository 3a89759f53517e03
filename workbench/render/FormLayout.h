#pragma once

#include <QRect>
#include <QSize>
#include <vector>

#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// Rows and columns of a form. What the form declares in twips are relations: which controls begin at the same left edge, which
// stand in the same row, what hangs on the right edge, what takes the room that is left. The pixels come from what the texts
// need; a column moves right as far as the longest content before it wants, and everything in it moves together.
class FormLayout {
 public:
  struct Cell {
    QRect declared;      // twips
    Extent extent;       // pixels
    bool fills = false;  // takes the whole width, and its share of the height that is left
    bool bare = false;   // without a margin: a panel in the panel
    Place place;         // the result, pixels
  };
  struct Measures {
    QSize panel;     // twips: what the form was declared for
    int margin = 0;  // pixels, as all below
    int top = 0;     // the margin above the first row
    int columnGap = 0;
    int rowGap = 0;
    int companionGap = 0;
    int fieldHeight = 0;
    int rowTwips = 400;
  };

  // Finds rows and columns and the least size that they need.
  void measure(std::vector<Cell> cells, const Measures& measures);
  const QSize& minimum() const { return mMinimum; }
  // Gives every cell its place on a panel of this size, which is not smaller than the minimum. Of a wider one than can be seen,
  // what hangs on the right edge stays where it can be seen, if it has room there.
  void place(const QSize& size, int visibleWidth);
  const std::vector<Cell>& cells() const { return mCells; }
  // The lower edge of the first row, which is the heading's where there is one.
  int firstRowBottom() const { return mRows.empty() ? 0 : mRows.front().y + mRows.front().height; }

 private:
  struct Column {
    int left = 0;  // twips
    int field = 0;
    int companion = 0;
    int state = 0;
    int x = 0;
  };
  struct Row {
    int top = 0;     // twips
    int shares = 0;  // of the height that is left: the declared height of what fills
    bool bare = false;
    int y = 0;
    int height = 0;
  };
  bool hangsRight(const Cell& cell) const;
  bool isTall(const Cell& cell) const;
  bool reachesOver(std::size_t cell) const;
  bool hasNeighbour(std::size_t cell) const;
  void findLines();
  void measureColumns();
  void measureRows();
  void measureWhole();
  int width(const Extent& extent) const;
  int width(const Column& column) const;

  Measures mMeasures;
  std::vector<Cell> mCells;
  std::vector<Column> mColumns;
  std::vector<Row> mRows;
  std::vector<std::size_t> mColumnOf;  // by cell
  std::vector<std::size_t> mRowOf;
  QSize mMinimum;
  int mLeastRight = 0;  // what hangs on the right edge ends there at the least
};

}  // namespace ostrand
