#include "host/transcript/ChartText.h"

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/Chart.h"

namespace ostrand {

namespace {

std::string number(float value) { return plainTextOfSingle(value, '.'); }

std::string coordinate(float value) { return value == Chart::kNull ? "none" : number(value); }

std::string axis(const char* name, const Chart::Axis& axis) {
  return std::string(name) + " " + number(axis.minimum) + " " + number(axis.maximum) + " " + number(axis.tick) + " " + inQuotes(axis.label);
}

std::string counted(int count, const char* what) { return std::to_string(count) + " " + what + (count == 1 ? "" : "s"); }

bool isOfMarks(const Chart& chart, int series) { return chart.series(series).style == Chart::Style::Marks; }

int drawnPoints(const Chart& chart, int series) {
  int count = 0;
  for (int point = 0; point < Chart::kPoints; ++point) count += chart.point(series, point).isDrawn();
  return count;
}

}  // namespace

std::vector<std::string> chartAsText(const Chart& chart) {
  std::vector<std::string> lines{"title " + inQuotes(chart.title()[0]) + " " + inQuotes(chart.title()[1]), axis("x", chart.x()),
                                 axis("y", chart.y())};
  for (int i = 0; i < Chart::kSeries; ++i) {
    const Chart::Series& series = chart.series(i);
    lines.push_back("series " + std::to_string(i) + (isOfMarks(chart, i) ? " marks " : " line ") + series.color.inDigits() + " " +
                    inQuotes(series.label));
  }
  lines.push_back("annotation " + number(chart.annotationX()) + " " + number(chart.annotationY()) + " " + inQuotes(chart.annotationText()));
  return lines;
}

std::vector<std::string> pointsAsText(const Chart& chart, int series, std::span<const int> points) {
  const bool isOfMarks = ostrand::isOfMarks(chart, series);
  std::vector<std::string> lines;
  const auto add = [&](int number, const Chart::Point& point) {
    lines.push_back(std::to_string(number) + " " + coordinate(point.x) + " " + coordinate(point.y) +
                    (isOfMarks ? " " + point.color.inDigits() + " " + std::to_string(point.type) : ""));
  };
  for (const int number : points) {
    if (number >= Chart::kPoints) throw RuntimeError(RuntimeError::OutOfRange, chart.name() + " has no point " + std::to_string(number));
    add(number, chart.point(series, number));
  }
  for (int number = 0; points.empty() && number < Chart::kPoints; ++number)
    if (const Chart::Point point = chart.point(series, number); point.isDrawn()) add(number, point);
  return lines;
}

std::string chartInWords(const Chart& chart) {
  int marks = 0;
  int lines = 0;
  for (int i = 0; i < Chart::kSeries; ++i) {
    const int points = drawnPoints(chart, i);
    isOfMarks(chart, i) ? marks += points : lines += points > 0;
  }
  const std::string words = counted(marks, "mark") + ", " + counted(lines, "line");
  return chart.annotationText().empty() ? words : words + " " + inQuotes(chart.annotationText());
}

}  // namespace ostrand
