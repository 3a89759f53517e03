#include "workbench/render/FormLayout.h"

#include <algorithm>
#include <numeric>

namespace ostrand {

void FormLayout::measure(const Extent& title, const Extent& stamp, std::vector<Block> blocks, const Measures& measures) {
  mMeasures = measures;
  mTitle = title;
  mStamp = stamp;
  const int margin = measures.margin;
  int right = 0, bottom = 0;
  mLeastRight = 0;
  BlockLayout::Measures below{.top = measures.top,
                              .isFirst = !hasHeading(),
                              .bottom = margin,
                              .columnGap = measures.columnGap,
                              .rowGap = measures.rowGap,
                              .companionGap = measures.companionGap,
                              .rowHeight = measures.fieldHeight};
  if (hasHeading()) {
    right = margin + title.field + margin;
    bottom = measures.top + headingHeight() + margin;
    if (stamp.height > 0) mLeastRight = margin + title.field + measures.columnGap + stamp.field + margin;
    // As far below the heading as a row and a half.
    below.top += std::max(headingHeight() + measures.rowGap, (measures.fieldHeight + measures.rowGap) * 3 / 2);
  }
  mBlocks.assign(blocks.size(), {});
  mShares.clear();
  int blocksWidth = 0;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    below.before = i == 0 ? margin : measures.columnGap / 2;
    below.after = i + 1 == blocks.size() ? margin : measures.columnGap / 2;
    mBlocks[i].measure(std::move(blocks[i].cells), below);
    mShares.push_back(blocks[i].share);
    blocksWidth += mBlocks[i].minimumWidth();
    bottom = std::max(bottom, mBlocks[i].bottom());
  }
  mMinimum = QSize(std::max({right, mLeastRight, blocksWidth}), bottom);
}

int FormLayout::headingBottom() const {
  if (hasHeading()) return mMeasures.top + headingHeight();
  return mBlocks.empty() ? 0 : mBlocks.front().firstRowBottom();
}

void FormLayout::arrange(const QSize& size, int visibleWidth) {
  const auto centred = [&](int x, const Extent& extent) {
    return QRect(x, mMeasures.top + (headingHeight() - extent.height) / 2, extent.field, extent.height);
  };
  const int hangOn = std::min(size.width(), std::max(visibleWidth, mLeastRight));
  mTitlePosition.field = centred(mMeasures.margin, mTitle);
  mStampPosition.field = centred(hangOn - mMeasures.margin - mStamp.field, mStamp);

  int spare = size.width(), shares = std::accumulate(mShares.begin(), mShares.end(), 0), left = 0;
  for (const BlockLayout& block : mBlocks) spare -= block.minimumWidth();
  for (std::size_t i = 0; i < mBlocks.size(); ++i) {
    const int more = spare * mShares[i] / shares;
    const int width = mBlocks[i].minimumWidth() + more;
    mBlocks[i].arrange(left, width, std::max(0, size.height() - mBlocks[i].bottom()));
    left += width;
    spare -= more;
    shares -= mShares[i];
  }
}

}  // namespace ostrand
