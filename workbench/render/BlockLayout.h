#pragma once

#include <cstddef>
#include <vector>

#include "workbench/render/ControlRenderer.h"

namespace ostrand {

// Rows and columns of a block of a form, or of the whole. The form declares which controls stand in the same row and column and
// what takes the room that is left; the pixels come from what the texts need. A column moves right as far as the longest content
// before it wants, and everything in it moves together. A row without cells takes no room.
class BlockLayout {
 public:
  struct Cell {
    int row = 0;
    int column = 0;
    bool loose = false;   // follows what stands before it in its row, and is in no column with what stands above and below
    int share = 0;        // above 0: takes the whole width, with others of its row, and this share of the height that is left
    bool bare = false;    // without a margin: a panel in the panel
    Extent extent;        // pixels, as all below
    Position position{};  // the result
  };
  struct Measures {
    int before = 0;  // the margins at the sides
    int after = 0;
    int top = 0;           // where the first row begins
    bool isFirst = false;  // nothing stands above the block
    int bottom = 0;
    int columnGap = 0;
    int rowGap = 0;
    int companionGap = 0;
    int rowHeight = 0;  // at the least, of a row of controls
  };

  // Finds the least size that rows and columns need.
  void measure(std::vector<Cell> cells, const Measures& measures);
  int minimumWidth() const { return mWidth; }
  int bottom() const { return mBottom; }
  // The lower edge of the first row.
  int firstRowBottom() const { return mRows.empty() ? 0 : mRows.front().y + mRows.front().height; }
  // Arranges every cell, from `left` on, on so much width, which is not less than the minimum; rows that grow share out
  // what there is more in height.
  void arrange(int left, int width, int moreHeight);
  const std::vector<Cell>& cells() const { return mCells; }

 private:
  struct Column {
    int field = 0;
    int companion = 0;
    int state = 0;
    int x = 0;
  };
  struct Row {
    int number = 0;  // in the form
    int share = 0;
    bool bare = false;
    int y = 0;
    int height = 0;
  };
  bool hasNeighbour(const Cell& cell) const;
  Row& rowOf(const Cell& cell);
  int width(const Extent& extent) const;
  int width(const Column& column) const;
  // Where a loose cell begins: behind the labels and the loose cells before it.
  int looseX(const Cell& cell) const;
  // What a row of cells with a share needs, up to a cell of it, or all of it.
  int widthBefore(const Cell& cell) const;
  int widthOfStrip(const Cell& cell) const;
  void measureColumns();
  void measureRows();
  void arrangeInColumn(Cell& cell, int left, int y, int rowHeight) const;

  Measures mMeasures;
  std::vector<Cell> mCells;
  std::vector<Column> mColumns;
  std::vector<Row> mRows;
  int mWidth = 0;
  int mBottom = 0;
};

}  // namespace ostrand
