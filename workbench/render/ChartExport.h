#pragma once

#include <filesystem>
#include <string>

#include "platform/controls/Chart.h"
#include "workbench/render/ChartPlot.h"

class QWidget;

namespace ostrand {

// What leaves the program of a chart. A picture is that of the screen; what goes on paper is dark on white, as large as the
// page allows. Files are written whole or not at all; RuntimeError 70 if one cannot be written.
void copyChart(ChartPlot& plot);
void saveChartPng(ChartPlot& plot, const std::filesystem::path& file);
void saveChartPdf(Chart& chart, const std::filesystem::path& file);
void printChart(Chart& chart, QWidget& window);

// The drawn points, a line each, with a head: series, point, coordinates. Separated by commas, or where the comma is that of
// the numbers by semicolons.
std::string chartCsv(const Chart& chart, char decimalSeparator);

}  // namespace ostrand
