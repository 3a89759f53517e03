#include "workbench/window/ViewPicture.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

// As large as the page allows, and not larger than it is on the screen.
void paintOnPage(QPagedPaintDevice& device, const QPixmap& picture, int resolution) {
  QPainter painter(&device);
  const QRect page = painter.viewport();
  const double screen = resolution / 96.0 / picture.devicePixelRatio();
  const double scale = std::min({screen, static_cast<double>(page.width()) / picture.width(), static_cast<double>(page.height()) / picture.height()});
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRectF(0, 0, picture.width() * scale, picture.height() * scale), picture, QRectF(picture.rect()));
}

}  // namespace

void writePicture(const QPixmap& picture, const std::filesystem::path& file) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (file.extension() == ".pdf") {
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(picture.width() > picture.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    paintOnPage(writer, picture, writer.resolution());
  } else if (!picture.save(&buffer, "PNG")) {
    throw RuntimeError(RuntimeError::PermissionDenied, "there is nothing to be seen that could be saved");
  }
  writeWholeFile(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void printPicture(const QPixmap& picture, QWidget& window) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, &window);
  if (dialog.exec() == QDialog::Accepted) paintOnPage(printer, picture, printer.resolution());
}

}  // namespace ostrand
