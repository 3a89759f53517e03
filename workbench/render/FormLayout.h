#pragma once

#include <QRect>
#include <QSize>
#include <vector>

#include "workbench/render/BlockLayout.h"

namespace ostrand {

// A form on the screen: its heading with the stamp on the right edge, and below it its blocks, side by side.
class FormLayout {
 public:
  struct Block {
    int share = 1;  // of the width that is left
    std::vector<BlockLayout::Cell> cells;
  };
  struct Measures {
    int margin = 0;  // pixels, as all
    int top = 0;     // the margin above the first row
    int columnGap = 0;
    int rowGap = 0;
    int companionGap = 0;
    int fieldHeight = 0;
  };

  // Finds the least size that everything needs. A heading without an extent is not there.
  void measure(const Extent& title, const Extent& stamp, std::vector<Block> blocks, const Measures& measures);
  const QSize& minimum() const { return mMinimum; }
  // Arranges everything on a panel of this size, which is not smaller than the minimum. Of a wider one than can be seen,
  // the stamp stays where it can be seen, if it has room there.
  void arrange(const QSize& size, int visibleWidth);
  const Position& title() const { return mTitlePosition; }
  const Position& stamp() const { return mStampPosition; }
  const std::vector<BlockLayout::Cell>& cells(std::size_t block) const { return mBlocks[block].cells(); }
  // The lower edge of the heading, or of the first row where there is none.
  int headingBottom() const;

 private:
  bool hasHeading() const { return mTitle.height > 0 || mStamp.height > 0; }
  int headingHeight() const { return std::max(mTitle.height, mStamp.height); }

  Measures mMeasures;
  Extent mTitle;
  Extent mStamp;
  Position mTitlePosition;
  Position mStampPosition;
  std::vector<BlockLayout> mBlocks;
  std::vector<int> mShares;
  QSize mMinimum;
  int mLeastRight = 0;  // the stamp ends there at the least
};

}  // namespace ostrand
