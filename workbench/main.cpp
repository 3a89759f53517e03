#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "host/DataFolder.h"
#include "platform/base/RuntimeError.h"
#include "workbench/tour/Pictures.h"
#include "workbench/tour/Tour.h"
#include "workbench/window/MainWindow.h"

using namespace ostrand;

namespace {

struct Options {
  std::string dataSet;
  std::string language;
  std::string theme = "light";
  int scale = 100;
  bool tour = false;
  bool takesPictures = false;
  std::string pictures = "out/pictures";
};

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value && *value;
}

// Qt ends the program when it finds no way to show a window; the user is to hear what to do.
void onQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg && text.contains(QStringLiteral("platform plugin"))) {
    std::fprintf(stderr,
                 "ostrand-workbench: there is no display that can be used, and no way to do without one.\n"
                 "Set DISPLAY or WAYLAND_DISPLAY, or install the platform plugin \"offscreen\" (Debian: libqt6gui6).\n");
    std::_Exit(1);
  }
  // What a platform cannot do is of no use to the user: to raise a window, to hint at its size.
  const bool isOfPlatform = text.startsWith(QStringLiteral("This plugin does not support")) || text.startsWith(QStringLiteral("QStandardPaths"));
  if (type != QtDebugMsg && type != QtInfoMsg && !isOfPlatform) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
  if (type == QtFatalMsg) std::abort();
}

int run(QApplication& application, const Options& options, bool hasDisplay) {
  Workbench workbench(dataFolder());
  MainWindow window(workbench);
  if (!options.language.empty()) workbench.setLanguage(options.language);
  workbench.setTheme(options.theme == "dark" ? Theme::Kind::Dark : Theme::Kind::Light, options.scale / 100.0);
  if (!options.dataSet.empty()) workbench.openDataSet(options.dataSet);
  window.QWidget::show();
  if (options.takesPictures || !hasDisplay) workbench.desktop().setLeaping(true);
  if (options.takesPictures) {
    std::printf("%d pictures are in %s\n", Pictures(window, options.pictures).takeAll(), options.pictures.c_str());
    return 0;
  }
  if (options.tour || !hasDisplay) {
    Tour(window, "out").play();
    return 0;
  }
  window.show(window.tree().firstPage());
  return application.exec();
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  CLI::App app("The workbench of the pulp-consistency transmitters: every view in a window, before simulated devices", "ostrand-workbench");
  app.add_option("DATASET", options.dataSet, "the data set to open");
  app.add_option("--language", options.language, "en, fi, sv, de, or keys");
  app.add_option("--theme", options.theme, "light or dark")->check(CLI::IsMember({"light", "dark"}));
  app.add_option("--scale", options.scale, "size of texts and distances in per cent, 100 to 200")->check(CLI::Range(100, 200));
  app.add_flag("--tour", options.tour, "play the guided tour; pictures go to out/");
  CLI::Option* const pictures =
      app.add_option("--pictures", options.pictures, "take pictures of all pages in all languages, into this folder (out/pictures)")
          ->expected(0, 1)
          ->type_name("FOLDER");
  CLI11_PARSE(app, argc, argv);
  options.takesPictures = pictures->count() > 0;
  if (options.pictures.empty()) options.pictures = "out/pictures";

  const bool hasDisplay = isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
  const bool unattended = options.takesPictures || options.tour || !hasDisplay;
  if (unattended && !isSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(onQtMessage);
  QApplication application(argc, argv);
  application.setApplicationName(QStringLiteral("Ostrand"));
  try {
    return run(application, options, hasDisplay);
  } catch (const RuntimeError& error) {
    std::fprintf(stderr, "ostrand-workbench: %s\n", error.description().c_str());
    return 1;
  }
}
