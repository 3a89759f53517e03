#include "benchmarks/Rows.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "benchmarks/workbench/Charts.h"
#include "benchmarks/workbench/Windows.h"
#include "workbench/render/Theme.h"

namespace ostrand::bench {

namespace {

// One for the whole program, without a screen.
void makeApplication() {
  static int argc = 1;
  static char name[] = "ostrand_workbench_bench";
  static char* argv[] = {name, nullptr};
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // What a platform without a screen cannot do is of no interest here.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", text.toUtf8().constData()), std::abort();
  });
  static QApplication* const application = new QApplication(argc, argv);
  startIfAsked();
  Theme::make(Theme::Kind::Light).apply(*application);
}

}  // namespace

std::vector<Section> sections() {
  makeApplication();
  Section section{"The workbench, until it is painted, against plain Qt widgets by hand", {}};
  const Work open = openRecipes();
  section.rows.push_back({"opening the recipes from the click", open, "by hand", openRecipesByHand(), {Figure::Share}});
  section.rows.push_back({"opening the recipes from the click", open, "a frame of 60 Hz", {}, {Figure::Seconds, 0.016}});
  section.rows.push_back({"start to the first painted window", start(), "by hand", startByHand(), {Figure::Share, 2.0}});
  section.rows.push_back({"the list of 500 values that wait", openWaitingList(), "a frame of 60 Hz", {}, {Figure::Seconds, 0.016}});
  for (const int items : {8, 200})
    section.rows.push_back(
        {"a live answer of " + std::to_string(items) + " items", showAnswer(items), "by hand", showAnswerByHand(items), {Figure::Share}});
  section.rows.push_back({"three curves and 17 samples that move", paintChart(), "a bare plot", paintChartByHand(), {Figure::Share, 1.1}});
  section.rows.push_back({"paints of the chart for 17 samples at once", {}, "", {}, {Figure::Number, 1}, paintsOfAnAnswer});
  return {section};
}

}  // namespace ostrand::bench
