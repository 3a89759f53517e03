#include "platform/controls/Chart.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Component.h"

namespace ostrand {

namespace {

// Two bounds that take in more and more.
struct Extent {
  double low = std::numeric_limits<double>::infinity();
  double high = -low;

  bool isEmpty() const { return low > high; }
  void add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  // With some room around, and more where everything stands on one value.
  void widen() {
    const double room = high > low ? (high - low) * 0.08 : std::max(std::abs(high) * 0.08, 0.01);
    low -= room;
    high += room;
  }
};

std::string place(int series, int point) { return " " + std::to_string(series) + " " + std::to_string(point) + " "; }

float toNumber(const Value& value) {
  if (const auto* const text = std::get_if<std::string>(&value)) return static_cast<float>(requireNumber(*text, '.'));
  return static_cast<float>(asInt(value));
}

}  // namespace

bool Chart::Point::isDrawn() const { return x != kNull && y != kNull && std::isfinite(x) && std::isfinite(y); }

Chart::Chart(std::string name) : Control(std::move(name)), mXData(kBlock, kNull), mYData(kBlock, kNull), mExtras(kSeries * kPoints) {}

// --- points

std::optional<std::size_t> Chart::element(int series, int point) {
  if (series < 0 || series >= kSeries || point < 0)
    throw RuntimeError(RuntimeError::OutOfRange, "a chart has no point" + place(series, point) + "(series, point)");
  if (point >= kPoints) return std::nullopt;
  return static_cast<std::size_t>(series * kPoints + point);
}

void Chart::writeBlock(std::vector<float>& block, std::span<const float> data, int count, const char* operation) {
  if (probe()) announce(operation, " " + std::to_string(count));
  if (count < 0 || count > kBlock || count > static_cast<int>(data.size()))
    throw RuntimeError(RuntimeError::OutOfRange, name() + " cannot take " + std::to_string(count) + " elements");
  // The view's block may be the one that it has read here.
  const std::span<const float> taken = data.first(static_cast<std::size_t>(count));
  if (std::equal(taken.begin(), taken.end(), block.begin())) return;
  std::copy(taken.begin(), taken.end(), block.begin());
  mIsStale = true;
}

void Chart::writeValue(std::vector<float>& block, int series, int point, float value, const char* operation) {
  if (probe()) announce(operation, place(series, point) + plainTextOfSingle(value, '.'));
  const auto at = element(series, point);
  if (!at || block[*at] == value) return;
  block[*at] = value;
  mIsStale = true;
}

void Chart::PointColor(int series, int point, Color color) {
  if (probe()) announce("PointColor", place(series, point) + color.inDigits());
  const auto at = element(series, point);
  if (!at || mExtras[*at].color == color) return;
  mExtras[*at].color = color;
  mIsStale = true;
}

void Chart::PointType(int series, int point, int type) {
  if (probe()) announce("PointType", place(series, point) + std::to_string(type));
  const auto at = element(series, point);
  if (!at || mExtras[*at].type == type) return;
  mExtras[*at].type = type;
  mIsStale = true;
}

void Chart::PointText(int series, int point, std::string text) {
  if (const auto at = element(series, point)) mExtras[*at].text = std::move(text);
}

void Chart::Rebuild(int code) {
  if (probe()) announce("Rebuild", " " + std::to_string(code));
  if (std::exchange(mIsStale, false)) changedNow();
}

Chart::Point Chart::point(int series, int point) const {
  const auto at = element(series, point);
  if (!at) return {};
  return {mXData[*at], mYData[*at], mExtras[*at].color.value_or(this->series(series).color), mExtras[*at].type};
}

const std::string& Chart::pointText(int series, int point) const {
  static const std::string kNone;
  const auto at = element(series, point);
  return at ? mExtras[*at].text : kNone;
}

// --- axes and series

bool Chart::writeNumber(float& field, float value, const char* property) {
  if (ControlProbe* const listener = probe()) listener->setting(*this, property, plainTextOfSingle(value, '.'));
  if (field == value) return false;
  field = value;
  changedNow();
  return true;
}

void Chart::writeBound(float& field, float value, const char* property) {
  if (writeNumber(field, value, property)) undoZoom();
}

void Chart::Title(std::string first, std::string second) {
  if (probe()) announce("Title", " " + inQuotes(first) + " " + inQuotes(second));
  std::array<std::string, 2> title{std::move(first), std::move(second)};
  if (mTitle == title) return;
  mTitle = std::move(title);
  changedNow();
}

const Chart::Series& Chart::series(int series) const {
  element(series, 0);
  return mSeries[static_cast<std::size_t>(series)];
}

Chart::Series& Chart::seriesAt(int series) { return const_cast<Series&>(std::as_const(*this).series(series)); }

void Chart::SeriesLabel(int series, std::string label) {
  if (probe()) announce("SeriesLabel", " " + std::to_string(series) + " " + inQuotes(label));
  if (std::string& field = seriesAt(series).label; field != label) {
    field = std::move(label);
    changedNow();
  }
}

void Chart::SeriesColor(int series, Color color) {
  if (probe()) announce("SeriesColor", " " + std::to_string(series) + " " + color.inDigits());
  if (Color& field = seriesAt(series).color; field != color) {
    field = color;
    changedNow();
  }
}

void Chart::SeriesStyle(int series, Style style) {
  if (probe()) announce("SeriesStyle", " " + std::to_string(series) + (style == Style::Marks ? " marks" : " line"));
  if (Style& field = seriesAt(series).style; field != style) {
    field = style;
    changedNow();
  }
}

// --- what is seen

void Chart::Maximize() {
  announce("Maximize");
  maximize();
}

void Chart::maximize() {
  const Ref<Component> pin(owner());
  if (mMaximizeAllowed) maximizing();
}

void Chart::zoom(const Range& range) {
  const auto isRange = [](double low, double high) { return std::isfinite(low) && std::isfinite(high) && low < high; };
  if (!isRange(range.xMinimum, range.xMaximum) || !isRange(range.yMinimum, range.yMaximum))
    throw RuntimeError(RuntimeError::BadArgument, name() + " cannot zoom to nothing");
  if (range == whole()) return undoZoom();
  if (mZoom == range) return;
  const Ref<Component> pin(owner());
  const bool isFirst = !std::exchange(mZoom, range);
  changedNow();
  if (isFirst) ZoomIn();
}

void Chart::undoZoom() {
  if (!mZoom) return;
  const Ref<Component> pin(owner());
  mZoom.reset();
  changedNow();
  ZoomOut();
}

void Chart::zoomToSamples() {
  Extent x, y;
  for (const Style style : {Style::Marks, Style::Line}) {
    // A curve counts where the samples are, or as a whole where there is none.
    const Extent among = x;
    for (int series = 0; series < kSeries; ++series)
      for (int i = 0; i < kPoints && this->series(series).style == style; ++i) {
        const Point at = point(series, i);
        if (!at.isDrawn() || (!among.isEmpty() && (at.x < among.low || at.x > among.high))) continue;
        x.add(at.x);
        y.add(at.y);
      }
    if (style == Style::Marks && !x.isEmpty()) x.widen();
  }
  if (x.isEmpty()) return;
  y.widen();
  if (x.low < x.high) zoom({x.low, x.high, y.low, y.high});
}

void Chart::hotspot(int series, int point, bool twice) {
  requireUsable();
  if (series < 0 || series >= kSeries || point < 0 || point >= kPoints)
    throw RuntimeError(RuntimeError::PermissionDenied, name() + " has no point" + place(series, point) + "to click on");
  const Ref<Component> pin(owner());
  DataHotSpot(twice, series, point);
}

void Chart::menu() {
  requireUsable();
  const Ref<Component> pin(owner());
  MouseDown();
}

// --- by name

struct Chart::NumberProperty {
  std::string_view name;
  const float& (*field)(const Chart&);
  void (Chart::*write)(float);
};

struct Chart::TextProperty {
  std::string_view name;
  const std::string& (*field)(const Chart&);
  void (Chart::*write)(std::string);
};

// clang-format off
const Chart::NumberProperty Chart::kNumbers[] = {
    {"XMinimum",    [](const Chart& at) -> const float& { return at.mX.minimum; },    &Chart::XMinimum},
    {"XMaximum",    [](const Chart& at) -> const float& { return at.mX.maximum; },    &Chart::XMaximum},
    {"XTick",       [](const Chart& at) -> const float& { return at.mX.tick; },       &Chart::XTick},
    {"YMinimum",    [](const Chart& at) -> const float& { return at.mY.minimum; },    &Chart::YMinimum},
    {"YMaximum",    [](const Chart& at) -> const float& { return at.mY.maximum; },    &Chart::YMaximum},
    {"YTick",       [](const Chart& at) -> const float& { return at.mY.tick; },       &Chart::YTick},
    {"AnnotationX", [](const Chart& at) -> const float& { return at.mAnnotationX; },  &Chart::AnnotationX},
    {"AnnotationY", [](const Chart& at) -> const float& { return at.mAnnotationY; },  &Chart::AnnotationY},
};
const Chart::TextProperty Chart::kTexts[] = {
    {"XLabel",         [](const Chart& at) -> const std::string& { return at.mX.label; },         &Chart::XLabel},
    {"YLabel",         [](const Chart& at) -> const std::string& { return at.mY.label; },         &Chart::YLabel},
    {"AnnotationText", [](const Chart& at) -> const std::string& { return at.mAnnotationText; },  &Chart::AnnotationText},
};
// clang-format on

Value Chart::get(std::string_view property, std::span<const int> indices) const {
  for (const NumberProperty& each : kNumbers)
    if (each.name == property) return plainTextOfSingle(each.field(*this), '.');
  for (const TextProperty& each : kTexts)
    if (each.name == property) return each.field(*this);
  if (property == "MaximizeAllowed") return mMaximizeAllowed;
  return Control::get(property, indices);
}

void Chart::set(std::string_view property, std::span<const int> indices, const Value& value) {
  for (const NumberProperty& each : kNumbers)
    if (each.name == property) return (this->*each.write)(toNumber(value));
  for (const TextProperty& each : kTexts)
    if (each.name == property) return (this->*each.write)(asText(value));
  if (property == "MaximizeAllowed") return MaximizeAllowed(asBool(value));
  Control::set(property, indices, value);
}

}  // namespace ostrand
