#pragma once

#include <QPixmap>
#include <filesystem>
#include <vector>

#include "workbench/window/MainWindow.h"

namespace ostrand {

// Takes a picture of every frame of every view that exists, as read from its device, in every language, light and dark, with a
// tooltip of each frame that has one, and lays the frames out on one contact sheet for each language and theme.
class Pictures {
 public:
  Pictures(MainWindow& window, std::filesystem::path folder);

  // Gives the number of pictures. RuntimeError 70 if one cannot be written.
  int takeAll();

  // Makes the folder if need be. In 256 colours, which is enough for a window and keeps the files small.
  static void save(const QPixmap& picture, const std::filesystem::path& file);

 private:
  struct Shot {
    QString title;
    QPixmap picture;
  };
  std::vector<Shot> takeFrames(const std::filesystem::path& folder);
  void readAll();
  void takeTooltip(const std::filesystem::path& file);
  static QPixmap contactSheet(const std::vector<Shot>& shots, const QString& title, const Theme& theme);

  MainWindow& mWindow;
  std::filesystem::path mFolder;
};

}  // namespace ostrand
