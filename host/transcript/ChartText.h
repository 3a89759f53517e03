#pragma once

#include <span>
#include <string>
#include <vector>

namespace ostrand {

class Chart;

// A chart as transcripts tell it, a line each: title, axes, series, annotation.
std::vector<std::string> chartAsText(const Chart& chart);
// The points of a series: those named, in that order, or else those that are drawn. RuntimeError 9 for one that there is not.
std::vector<std::string> pointsAsText(const Chart& chart, int series, std::span<const int> points);
// What is seen on it, in a few words: `17 marks, 2 lines "Message"`.
std::string chartInWords(const Chart& chart);

}  // namespace ostrand
