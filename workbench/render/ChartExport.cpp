#include "workbench/render/ChartExport.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/base/File.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

constexpr QSize kOnPaper(1040, 700);  // in pixels of 1/96 inch: the printable part of a page across

void write(const std::filesystem::path& file, const QByteArray& bytes) {
  writeWholeFile(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void paintOnPage(QPagedPaintDevice& device, Chart& chart) {
  ChartPlot plot(chart);
  plot.resize(kOnPaper);
  plot.restyle(Theme::make(Theme::Kind::Light));
  plot.follow();
  QCPPainter painter;
  if (!painter.begin(&device)) throw RuntimeError(RuntimeError::PermissionDenied, "the page cannot be painted");
  const QRect page = painter.viewport();
  const double scale = std::min(double(page.width()) / kOnPaper.width(), double(page.height()) / kOnPaper.height());
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  painter.scale(scale, scale);
  plot.toPainter(&painter, kOnPaper.width(), kOnPaper.height());
}

// A text of a line: between quotes where it would be taken apart.
std::string field(const std::string& text, char separator) {
  if (text.find_first_of(std::string("\"\n\r") + separator) == text.npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + "\"";
}

}  // namespace

void copyChart(ChartPlot& plot) { QGuiApplication::clipboard()->setPixmap(plot.toPixmap()); }

void saveChartPng(ChartPlot& plot, const std::filesystem::path& file) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!plot.toPixmap(0, 0, 2.0).save(&buffer, "PNG"))
    throw RuntimeError(RuntimeError::PermissionDenied, "there is nothing to be seen that could be saved");
  write(file, bytes);
}

void saveChartPdf(Chart& chart, const std::filesystem::path& file) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    paintOnPage(writer, chart);
  }
  write(file, bytes);
}

void printChart(Chart& chart, QWidget& window) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, &window);
  if (dialog.exec() == QDialog::Accepted) paintOnPage(printer, chart);
}

std::string chartCsv(const Chart& chart, char decimalSeparator) {
  const char separator = decimalSeparator == ',' ? ';' : ',';
  // Table programs take a text for one of another alphabet without this mark.
  std::string text = "\xEF\xBB\xBF";
  const auto line = [&](std::initializer_list<std::string> fields) {
    for (const std::string& each : fields) text += (&each == fields.begin() ? "" : std::string(1, separator)) + field(each, separator);
    text += "\r\n";
  };
  line({"series", "point", chart.x().label, chart.y().label});
  for (int series = 0; series < Chart::kSeries; ++series)
    for (int i = 0; i < Chart::kPoints; ++i)
      if (const Chart::Point point = chart.point(series, i); point.isDrawn())
        line({chart.series(series).label, std::to_string(i + 1), plainTextOfSingle(point.x, decimalSeparator),
              plainTextOfSingle(point.y, decimalSeparator)});
  return text;
}

}  // namespace ostrand
