#include "workbench/window/Pictures.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "workbench/window/DeviceMenu.h"
#include "workbench/window/ViewPicture.h"

namespace ostrand {

namespace {

constexpr int kColumns = 3;
constexpr int kThumbWidth = 560;
constexpr int kGap = 28;
constexpr int kCaption = 34;

}  // namespace

Pictures::Pictures(MainWindow& window, std::filesystem::path folder) : mWindow(window), mFolder(std::move(folder)) {}

void Pictures::save(const QPixmap& picture, const std::filesystem::path& file) {
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path(), ignored);
  writePicture(picture, file);
}

int Pictures::takeAll() {
  Workbench& workbench = mWindow.workbench();
  int count = 0;
  for (const TextTables::Language& language : mWindow.host().textTables().languages()) {
    for (const Theme::Kind kind : {Theme::Kind::Light, Theme::Kind::Dark}) {
      workbench.setLanguage(language.code);
      workbench.setTheme(kind, 1.0);
      const std::string theme = kind == Theme::Kind::Light ? "light" : "dark";
      const std::vector<Shot> shots = takeFrames(mFolder / language.code / theme);
      save(mWindow.grab(), mFolder / language.code / theme / "window.png");
      save(contactSheet(shots, QStringLiteral("%1, %2").arg(qt(language.name), qt(theme)), mWindow.theme()), mFolder / ("sheet-" + language.code + "-" + theme + ".png"));
      count += static_cast<int>(shots.size()) + 2;
    }
  }
  return count;
}

std::vector<Pictures::Shot> Pictures::takeFrames(const std::filesystem::path& folder) {
  std::vector<Shot> shots;
  for (const auto& device : mWindow.workbench().devices()) {
    device->host().setLiveReading(false);
    for (const PlantTree::Place& place : mWindow.tree().places(*device)) {
      mWindow.show(place);
      QApplication::processEvents();
      shots.push_back({QStringLiteral("%1 / %2 / %3").arg(qt(device->title()), mWindow.workbench().texts()(place.branch), mWindow.workbench().texts()(place.frame)), mWindow.panel().picture()});
      save(shots.back().picture, folder / (std::string(device->kind().name) + "-" + place.branch + "-" + place.frame + ".png"));
    }
  }
  return shots;
}

QPixmap Pictures::contactSheet(const std::vector<Shot>& shots, const QString& title, const Theme& theme) {
  int thumbHeight = 1;
  for (const Shot& shot : shots) thumbHeight = std::max(thumbHeight, shot.picture.height() * kThumbWidth / std::max(1, shot.picture.width()));
  const int columns = std::clamp(static_cast<int>(shots.size()), 1, kColumns);
  const int rows = (static_cast<int>(shots.size()) + columns - 1) / columns;
  const int cell = thumbHeight + kCaption + kGap;
  QPixmap sheet(kGap + columns * (kThumbWidth + kGap), kGap + 2 * kCaption + rows * cell);
  sheet.fill(theme.window);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setPen(theme.text);
  painter.setFont(theme.font(Theme::Text::Title));
  painter.drawText(kGap, kGap + kCaption - 8, title);
  painter.setFont(theme.font(Theme::Text::Small));
  for (std::size_t i = 0; i < shots.size(); ++i) {
    const int x = kGap + static_cast<int>(i) % columns * (kThumbWidth + kGap);
    const int y = kGap + 2 * kCaption + static_cast<int>(i) / columns * cell;
    painter.setPen(theme.secondaryText);
    painter.drawText(QRect(x, y, kThumbWidth, kCaption - 6), Qt::AlignLeft | Qt::AlignVCenter, shots[i].title);
    const int height = shots[i].picture.height() * kThumbWidth / std::max(1, shots[i].picture.width());
    painter.drawPixmap(QRect(x, y + kCaption, kThumbWidth, height), shots[i].picture);
    painter.setPen(theme.line);
    painter.drawRect(QRect(x, y + kCaption, kThumbWidth, height));
  }
  return sheet;
}

}  // namespace ostrand
