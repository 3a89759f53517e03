#include "workbench/render/ChartMark.h"

namespace ostrand {

namespace {

struct Shape {
  QCPScatterStyle::ScatterShape shape;
  bool isFilled;
  double size;  // in pixels at scale 1: shapes of one size do not look it
};

// By type; a type above these begins anew.
constexpr Shape kShapes[] = {
    {QCPScatterStyle::ssPlus, false, 10},    {QCPScatterStyle::ssCross, false, 9},   {QCPScatterStyle::ssCircle, false, 9},
    {QCPScatterStyle::ssCircle, true, 10},   {QCPScatterStyle::ssSquare, false, 8},  {QCPScatterStyle::ssSquare, true, 8},
    {QCPScatterStyle::ssDiamond, false, 11}, {QCPScatterStyle::ssDiamond, true, 11}, {QCPScatterStyle::ssTriangle, false, 13},
    {QCPScatterStyle::ssTriangle, true, 15},
};

}  // namespace

QCPScatterStyle ChartMark::style(const Theme& theme) const {
  const Shape& shape = kShapes[static_cast<unsigned>(type) % std::size(kShapes)];
  // A filled mark has an edge of the ground, so that marks that overlap can be told apart.
  const QPen pen(shape.isFilled ? theme.surface : color, (shape.isFilled ? 1.0 : 1.5) * theme.scale);
  return {shape.shape, pen, QBrush(shape.isFilled ? color : theme.surface), shape.size * theme.scale};
}

}  // namespace ostrand
