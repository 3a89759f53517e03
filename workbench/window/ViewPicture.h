#pragma once

#include <QPixmap>
#include <filesystem>

class QWidget;

namespace ostrand {

// PNG, or PDF where the file's name ends so: the picture on one page. RuntimeError 70 if it cannot be written.
void writePicture(const QPixmap& picture, const std::filesystem::path& file);
// Asks for a printer first.
void printPicture(const QPixmap& picture, QWidget& window);

}  // namespace ostrand
