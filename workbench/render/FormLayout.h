#pragma once

#include <QRect>
#include <QSize>
#include <vector>

#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// Rows and columns of a form. What the form declares in twips are relations: which controls begin at the same left edge, which
// stand in the same row, what hangs on the right edge, what fills the rest. The pixels come from what the texts need; a column
// moves right as far as the longest content before it wants, and everything in it moves together.
class FormLayout {
 public:
  struct Cell {
    QRect declared;  // twips
    Extent extent;   // pixels
    bool fills = false;   // takes what is left of the panel
    bool bare = false;    // without a margin: a panel in the panel
    Place place;     // the result, pixels
  };
  struct Measures {
    QSize panel;     // twips: what the form was declared for
    int margin = 0;  // pixels, as all below
    int columnGap = 0;
    int rowGap = 0;
    int companionGap = 0;
    int fieldHeight = 0;
    int rowTwips = 400;
  };

  // Finds rows and columns and the least size that they need.
  void measure(std::vector<Cell> cells, const Measures& measures);
  const QSize& minimum() const { return mMinimum; }
  // Gives every cell its place on a panel of this size, which is not smaller than the minimum.
  void place(const QSize& size);
  const std::vector<Cell>& cells() const { return mCells; }
  // The lower edge of the first row, which is the heading's where there is one.
  int firstRowBottom() const { return mRowBottoms.empty() ? 0 : mRowBottoms.front(); }

 private:
  struct Column {
    int left;  // twips
    int field = 0;
    int companion = 0;
    int state = 0;
    int x = 0;
  };
  struct Row {
    int top;  // twips
    int y = 0;
    int height = 0;
  };
  bool hangsRight(const Cell& cell) const;
  int companionX(const Column& column) const { return column.x + column.field + mMeasures.companionGap; }
  int stateX(const Column& column) const;
  int width(const Column& column) const;

  Measures mMeasures;
  std::vector<Cell> mCells;
  std::vector<Column> mColumns;
  std::vector<Row> mRows;
  std::vector<std::size_t> mColumnOf;
  std::vector<std::size_t> mRowOf;
  std::vector<int> mRowBottoms;
  QSize mMinimum;
};

}  // namespace ostrand
