#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/UserActions.h"

namespace ostrand {

class CtrGraphMenu;

// A chart of measured points and curves: series of points in two flat blocks, two axes, a title, and one annotation in the
// middle. Series and points count from 0. A point above the last is dropped; a series that there is not is error 9, and so is a
// point below the first.
//
// Values of points are told to whoever shows the chart when the view asks for a rebuild, everything else at once.
class Chart : public Control, public UserActions {
 public:
  static constexpr float kNull = -99999.0f;  // no value: a point with one such coordinate is not drawn
  static constexpr int kSeries = 5;
  static constexpr int kPoints = 50;
  static constexpr int kBlock = kSeries * kPoints + 1;  // the element behind the last point is not drawn

  enum class Style { Marks, Line };
  struct Axis {
    float minimum = 0;
    float maximum = 1;
    float tick = 0;  // 0 is automatic
    std::string label;
  };
  struct Series {
    std::string label;
    Color color = Color::text();
    Style style = Style::Line;
  };
  // A point of marks has a colour and a type of its own.
  struct Point {
    float x = kNull;
    float y = kNull;
    Color color;
    int type = 0;
    bool isDrawn() const;
  };
  // A part of the plane.
  struct Range {
    double xMinimum, xMaximum, yMinimum, yMaximum;
    friend bool operator==(const Range&, const Range&) = default;
  };

  explicit Chart(std::string name);
  std::string_view className() const override { return "Chart"; }

  // The blocks, series behind series. `count` elements are taken over; error 9 if there are not so many.
  const std::vector<float>& XData() const { return read(mXData, "XData"); }
  void XData(std::span<const float> data, int count) { writeBlock(mXData, data, count, "XData"); }
  const std::vector<float>& YData() const { return read(mYData, "YData"); }
  void YData(std::span<const float> data, int count) { writeBlock(mYData, data, count, "YData"); }

  void XValue(int series, int point, float value) { writeValue(mXData, series, point, value, "XValue"); }
  void YValue(int series, int point, float value) { writeValue(mYData, series, point, value, "YValue"); }
  void PointColor(int series, int point, Color color);
  void PointType(int series, int point, int type);
  // What is told in words about a point under the pointer; more than one line is allowed.
  void PointText(int series, int point, std::string text);

  float XMinimum() const { return read(mX.minimum, "XMinimum"); }
  void XMinimum(float value) { writeBound(mX.minimum, value, "XMinimum"); }
  float XMaximum() const { return read(mX.maximum, "XMaximum"); }
  void XMaximum(float value) { writeBound(mX.maximum, value, "XMaximum"); }
  float YMinimum() const { return read(mY.minimum, "YMinimum"); }
  void YMinimum(float value) { writeBound(mY.minimum, value, "YMinimum"); }
  float YMaximum() const { return read(mY.maximum, "YMaximum"); }
  void YMaximum(float value) { writeBound(mY.maximum, value, "YMaximum"); }
  // The distance of the ticks; 0 is automatic.
  float XTick() const { return read(mX.tick, "XTick"); }
  void XTick(float value) { writeNumber(mX.tick, value, "XTick"); }
  float YTick() const { return read(mY.tick, "YTick"); }
  void YTick(float value) { writeNumber(mY.tick, value, "YTick"); }
  const std::string& XLabel() const { return read(mX.label, "XLabel"); }
  void XLabel(std::string label) { write(mX.label, std::move(label), "XLabel"); }
  const std::string& YLabel() const { return read(mY.label, "YLabel"); }
  void YLabel(std::string label) { write(mY.label, std::move(label), "YLabel"); }

  // A text in the plane, centred on its position in the units of the axes.
  float AnnotationX() const { return read(mAnnotationX, "AnnotationX"); }
  void AnnotationX(float value) { writeNumber(mAnnotationX, value, "AnnotationX"); }
  float AnnotationY() const { return read(mAnnotationY, "AnnotationY"); }
  void AnnotationY(float value) { writeNumber(mAnnotationY, value, "AnnotationY"); }
  const std::string& AnnotationText() const { return read(mAnnotationText, "AnnotationText"); }
  void AnnotationText(std::string text) { write(mAnnotationText, std::move(text), "AnnotationText"); }

  void Title(std::string first, std::string second);
  void SeriesLabel(int series, std::string label);
  void SeriesColor(int series, Color color);
  void SeriesStyle(int series, Style style);
  Color GridColor() const { return read(mGridColor, "GridColor"); }
  void GridColor(Color color) { write(mGridColor, color, "GridColor"); }

  // What was set so far is to be seen; the code tells why. Painting is the matter of whoever shows the chart.
  void Rebuild(int code);

  // Whether a copy in a window of its own may be opened. Without the permission `Maximize` does nothing.
  bool MaximizeAllowed() const { return read(mMaximizeAllowed, "MaximizeAllowed"); }
  void MaximizeAllowed(bool allowed) { write(mMaximizeAllowed, allowed, "MaximizeAllowed"); }
  void Maximize();

  Signal<bool, int, int> DataHotSpot;  // a double click, or a single one; series, point
  Signal<> MouseDown;                  // the second button
  Signal<> ZoomIn;                     // a part of the axes is seen from now on
  Signal<> ZoomOut;                    // the whole is seen again

  // For whoever shows the chart.
  const Axis& x() const { return mX; }
  const Axis& y() const { return mY; }
  const Series& series(int series) const;
  // A point that there is not is a null one.
  Point point(int series, int point) const;
  const std::string& pointText(int series, int point) const;
  const std::array<std::string, 2>& title() const { return mTitle; }
  float annotationX() const { return mAnnotationX; }
  float annotationY() const { return mAnnotationY; }
  const std::string& annotationText() const { return mAnnotationText; }
  Color gridColor() const { return mGridColor; }
  bool maximizeAllowed() const { return mMaximizeAllowed; }
  Signal<> maximizing;              // the copy is to be opened
  Signal<CtrGraphMenu&> menuOpens;  // the menu is to be shown for this chart

  // What of the plane is seen. Setting an axis to another range shows the whole again: a part of it was meant in the old one.
  Range shown() const { return mZoom.value_or(whole()); }
  bool isZoomed() const { return mZoom.has_value(); }

  // The user's actions. Error 5 for a range that is none.
  void zoom(const Range& range);
  void undoZoom();
  // To the samples with the curves around them, or to the curves if there is no sample. Nothing drawn: nothing happens.
  void zoomToSamples();
  void maximize();
  void hotspot(int series, int point, bool twice) override;
  void menu() override;

  // Numbers are texts with a point here.
  Value get(std::string_view property, std::span<const int> indices) const override;
  void set(std::string_view property, std::span<const int> indices, const Value& value) override;

 protected:
  Kind ownKind() const override { return Kind::Chart; }

 private:
  struct Extra {
    std::optional<Color> color;
    int type = 0;
    std::string text;
  };
  struct NumberProperty;
  struct TextProperty;
  static const NumberProperty kNumbers[];
  static const TextProperty kTexts[];

  Range whole() const { return {mX.minimum, mX.maximum, mY.minimum, mY.maximum}; }
  Series& seriesAt(int series);
  // The element of the blocks; nothing for a point above the last.
  static std::optional<std::size_t> element(int series, int point);
  void writeBlock(std::vector<float>& block, std::span<const float> data, int count, const char* operation);
  void writeValue(std::vector<float>& block, int series, int point, float value, const char* operation);
  bool writeNumber(float& field, float value, const char* property);
  void writeBound(float& field, float value, const char* property);

  std::vector<float> mXData;
  std::vector<float> mYData;
  std::vector<Extra> mExtras;
  std::array<Series, kSeries> mSeries;
  Axis mX;
  Axis mY;
  float mAnnotationX = 0;
  float mAnnotationY = 0;
  std::string mAnnotationText;
  std::array<std::string, 2> mTitle;
  Color mGridColor{Color::Role::Given, 0x969696};
  bool mMaximizeAllowed = false;
  bool mIsStale = false;
  std::optional<Range> mZoom;
};

}  // namespace ostrand
