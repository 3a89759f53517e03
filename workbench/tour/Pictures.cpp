#include "workbench/tour/Pictures.h"

#include <QApplication>
#include <QBuffer>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "platform/base/File.h"
#include "platform/controls/EditControl.h"

namespace ostrand {

namespace {

constexpr int kColumns = 3;
constexpr int kThumbWidth = 560;
constexpr int kGap = 28;
constexpr int kCaption = 34;

// The most frequent colours stay as they are; the many shades between letter and ground become the nearest of them.
QImage inFewColors(const QImage& picture) {
  constexpr qsizetype kMost = 256;
  const QImage full = picture.convertToFormat(QImage::Format_RGB32);
  QHash<QRgb, int> counts;
  for (int y = 0; y < full.height(); ++y)
    for (int x = 0; x < full.width(); ++x) ++counts[full.pixel(x, y)];
  QList<QRgb> colors = counts.keys();
  std::sort(colors.begin(), colors.end(), [&](QRgb a, QRgb b) { return std::pair(counts[a], a) > std::pair(counts[b], b); });
  const QList<QRgb> table = colors.mid(0, kMost);
  const auto distance = [](QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b), green = qGreen(a) - qGreen(b), blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
  };
  QHash<QRgb, uint> places;
  for (const QRgb color : colors)
    places[color] = static_cast<uint>(
        std::min_element(table.begin(), table.end(), [&](QRgb a, QRgb b) { return distance(a, color) < distance(b, color); }) - table.begin());
  QImage few(full.size(), QImage::Format_Indexed8);
  few.setColorTable(table);
  for (int y = 0; y < full.height(); ++y)
    for (int x = 0; x < full.width(); ++x) few.setPixel(x, y, places[full.pixel(x, y)]);
  few.setDevicePixelRatio(picture.devicePixelRatio());
  return few;
}

}  // namespace

Pictures::Pictures(MainWindow& window, std::filesystem::path folder) : mWindow(window), mFolder(std::move(folder)) {}

void Pictures::save(const QPixmap& picture, const std::filesystem::path& file) {
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path(), ignored);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  inFewColors(picture.toImage()).save(&buffer, "PNG");
  writeWholeFile(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

int Pictures::takeAll() {
  Workbench& workbench = mWindow.workbench();
  workbench.prompt().standIn = [](const std::string&, const std::string&) { return UserPrompt::kGoOn; };
  int count = 0;
  for (const TextTables::Language& language : mWindow.host().user().textTables().languages()) {
    for (const Theme::Kind kind : {Theme::Kind::Light, Theme::Kind::Dark}) {
      workbench.setLanguage(language.code);
      workbench.setLocale(language.code);
      workbench.setTheme(kind, workbench.settings().scale);
      const std::string theme = kind == Theme::Kind::Light ? "light" : "dark";
      const std::vector<Shot> shots = takeFrames(mFolder / language.code / theme);
      save(mWindow.grab(), mFolder / language.code / theme / "window.png");
      save(contactSheet(shots, QStringLiteral("%1, %2").arg(qt(language.name), qt(theme)), mWindow.theme()),
           mFolder / ("sheet-" + language.code + "-" + theme + ".png"));
      count += static_cast<int>(shots.size()) + 2;
    }
  }
  return count;
}

std::vector<Pictures::Shot> Pictures::takeFrames(const std::filesystem::path& folder) {
  std::vector<Shot> shots;
  for (const auto& device : mWindow.workbench().devices()) {
    device->host().views().setLiveReading(false);
    // Texts that a view has taken from an answer are those of the language that it came in.
    while (!device->host().views().sites().empty()) device->host().views().release(*device->host().views().sites().back());
    mWindow.show(mWindow.tree().pages(*device).front());
    readAll();
    for (const PlantTree::Page& page : mWindow.tree().pages(*device)) {
      mWindow.show(page);
      QApplication::processEvents();
      const std::string name = std::string(device->kind().name) + "-" + page.branch + "-" + page.frame + ".png";
      shots.push_back(
          {QStringLiteral("%1 / %2 / %3").arg(qt(device->title()), mWindow.workbench().texts()(page.branch), mWindow.workbench().texts()(page.frame)),
           mWindow.panel().picture()});
      save(shots.back().picture, folder / name);
      takeTooltip(folder / "tips" / name);
    }
  }
  return shots;
}

// Quickly: nobody waits for the bus.
void Pictures::readAll() {
  Host& host = mWindow.host();
  if (host.communication().device()) host.communication().device()->setFault("slow", "0.001");
  for (const PlantTree::Page& page : mWindow.tree().pages(mWindow.workbench().current())) {
    mWindow.show(page);
    mWindow.transfers().readPage();
    for (int i = 0; i < 100 && !host.communication().idle(); ++i) mWindow.workbench().desktop().wait(0.01);
  }
  if (host.communication().device()) host.communication().device()->setFault("none", "");
}

// Of the first value on the page.
void Pictures::takeTooltip(const std::filesystem::path& file) {
  const ViewPanel& panel = mWindow.panel();
  for (Control* const control : panel.shownControls()) {
    const QString text = dynamic_cast<EditControl*>(control) ? panel.explanation(*control) : QString();
    if (text.isEmpty()) continue;
    QToolTip::showText(mWindow.mapToGlobal(QPoint(300, 200)), text, &mWindow);
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (each->inherits("QTipLabel") && each->isVisible()) save(each->grab(), file);
    QToolTip::hideText();
    QApplication::processEvents();
    return;
  }
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
