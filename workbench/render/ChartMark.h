#pragma once

#include "workbench/render/Plot.h"
#include "workbench/render/Theme.h"

namespace ostrand {

// How a mark of a chart looks: each type has a shape of its own, so that no colour has to be told from another.
struct ChartMark {
  int type;
  QColor color;

  QCPScatterStyle style(const Theme& theme) const;
  friend bool operator==(const ChartMark&, const ChartMark&) = default;
};

}  // namespace ostrand
