#include "workbench/tour/Tour.h"

#include <QApplication>
#include <cstdio>

#include "platform/base/NumberText.h"
#include "platform/base/RuntimeError.h"
#include "workbench/dialogs/CompareDialog.h"
#include "workbench/tour/Pictures.h"

namespace ostrand {

namespace {

// The mill moves to another consistency 200 seconds after the start, and has got there 40 seconds later.
constexpr double kMoved = 245;
constexpr double kSampling = 25;
// Seconds of the mill in one of the program.
constexpr double kPace = 10;
constexpr double kPaceOfWaiting = 80;

}  // namespace

Tour::Tour(MainWindow& window, std::filesystem::path folder)
    : mWindow(window), mGuest(window), mFolder(std::move(folder)), mStart(window.workbench().desktop().now()) {}

// --- how it is told

void Tour::step(const std::string& text) { std::printf("\n== %s\n\n", text.c_str()); }

void Tour::show(const std::string& branch, const std::string& frame) { mWindow.show({&mWindow.workbench().current(), branch, frame}); }

void Tour::settle(double seconds) {
  Workbench& workbench = mWindow.workbench();
  workbench.desktop().wait(seconds);
  for (int i = 0; i < 200 && !mWindow.host().communication().idle(); ++i) workbench.desktop().wait(0.1);
  mWindow.panel().refresh();
  QApplication::processEvents();
}

void Tour::passUntil(double secondsSinceStart) {
  QtDesktop& desktop = mWindow.workbench().desktop();
  desktop.setPace(kPaceOfWaiting);
  desktop.wait(secondsSinceStart - static_cast<double>((desktop.now() - mStart).count()) / 1000.0);
  desktop.setPace(kPace);
}

void Tour::tell(const std::string& name) {
  const ConversationLog& log = mWindow.workbench().log();
  for (; mPrinted < log.size(); ++mPrinted) {
    const ConversationLog::Line& line = log.line(mPrinted);
    const std::string time = standardDateAndTime(line.time);
    std::printf("%s  %-8s %s\n", time.substr(time.find(' ') + 1).c_str(), ConversationLog::word(line.kind), line.text.c_str());
  }
  picture(mWindow, name);
}

void Tour::picture(QWidget& widget, const std::string& name) {
  QApplication::processEvents();
  const std::string number = std::to_string(100 + ++mPictures).substr(1);
  const std::filesystem::path file = mFolder / (number + "-" + name + ".png");
  Pictures::save(widget.grab(), file);
  std::printf("\n   picture: %s\n", file.string().c_str());
}

Device& Tour::device() const {
  Device* const device = mWindow.host().communication().device();
  if (!device) throwNothingThere("the simulated device");
  return *device;
}

// --- what there is to see

void Tour::play() {
  Workbench& workbench = mWindow.workbench();
  // Nobody sits here: questions are answered by yes.
  workbench.prompt().standIn = [](const std::string& title, const std::string& message) {
    std::printf("   the view says: %s. %s\n", title.c_str(), message.c_str());
    return UserPrompt::kGoOn;
  };
  workbench.desktop().setPace(kPace);
  activeRecipe();
  liveValues();
  sample(1);
  step("The mill moves to another consistency. The second sample shall come from there.");
  passUntil(kMoved);
  sample(2);
  laboratory();
  recipes();
  proof();
  loopTest();
  eventLog();
  anotherRecipe();
  anotherLanguage();
  comparison();
  silence();
  std::printf("\nThat was the tour. With a display, ./run opens this window.\n");
}

void Tour::activeRecipe() {
  step("A blade transmitter on HART. The page with the active recipe is open and is read from the device.");
  show("measurement", "activeRecipe");
  mWindow.transfers().readPage();
  settle(1.0);
  tell("active-recipe");
}

void Tour::liveValues() {
  step("Live values are read again and again while their page is in front.");
  show("measurement", "monitoringVariables");
  settle(12.0);
  tell("live-values");
}

void Tour::sample(int number) {
  const std::string n = std::to_string(number);
  const std::string button = "Sample" + n + "Button";
  step("Sample " + n + ": the device averages its reading while somebody draws a sample of the pulp for the laboratory.");
  show("calibration", "sampling");
  mGuest.click(button + "(0)");
  settle(kSampling);
  if (number == 1) tell("sample-1-running");
  mGuest.click(button + "(1)");
  settle(1.0);
  tell("sample-" + n + "-taken");
}

void Tour::laboratory() {
  step("The laboratory has weighed the samples. What it found is entered, for both samples and recipe 1, and goes to the device.");
  show("calibration", "laboratoryResults");
  mGuest.choose("cce_laboratoryResults(0)", "useBothSamples");
  mGuest.choose("cce_laboratoryResults(1)", "recipe1");
  mGuest.type("cte_laboratoryResults(0)", "0");
  for (int sample : {1, 2})
    mGuest.type("cte_laboratoryResults(" + std::to_string(sample) + ")", fixedText(device().laboratoryValue(sample).value_or(0), 2, '.'));
  tell("laboratory-results");
  mGuest.click("LabCalibrateBtn");
  settle(2.0);
  tell("calibrated");
}

void Tour::recipes() {
  step("The recipes are read back: the device has given recipe 1 another slope and offset.");
  show("calibration", "recipes");
  mWindow.transfers().readPage();
  settle(2.0);
  tell("recipes");
}

void Tour::proof() {
  step("The proof: one more sample, and the device's average beside what the laboratory finds in it.");
  show("calibration", "sampling");
  mGuest.click("Sample1Button(0)");
  settle(kSampling);
  mGuest.click("Sample1Button(1)");
  settle(1.0);
  const std::string average = mGuest.read("cte_sampling(0)");
  show("measurement", "monitoringVariables");
  settle(3.0);
  tell("live-values-calibrated");
  std::printf("\n   The transmitter has measured %s, the laboratory finds %s %%Cs.\n", average.c_str(),
              fixedText(device().laboratoryValue(1).value_or(0), 2, '.').c_str());
}

void Tour::loopTest() {
  step("The loop test drives the output with 12 mA. While it may, a banner says so.");
  show("diagnostics", "loopTest");
  mGuest.type("cteLoopTest", "12");
  mGuest.click("cmdLoopTest");
  settle(1.0);
  tell("loop-test");
  step("Only the device's answer of 0 ends the warning.");
  mGuest.click("cmdStopLoopTest");
  settle(1.0);
  tell("loop-test-stopped");
}

void Tour::eventLog() {
  step("What the device has noted since its logs were reset last.");
  show("diagnostics", "eventLog");
  mWindow.transfers().readPage();
  settle(2.0);
  tell("event-log");
}

void Tour::anotherRecipe() {
  step("Another recipe is chosen with the arrow keys. It is an edit until the button writes it, and the device's answer clears it.");
  show("measurement", "activeRecipe");
  mGuest.choose("cceActiveRecipe", "recipe3");
  tell("recipe-edited");
  mGuest.click("cmdActiveRecipeSetButton");
  settle(1.0);
  tell("recipe-written");
}

void Tour::anotherLanguage() {
  step("The recipes in Finnish, with a decimal comma, and dark.");
  SettingsMenu& settings = mWindow.settingsMenu();
  show("calibration", "recipes");
  settings.setLanguage("fi");
  settings.setLocale("fi");
  mWindow.workbench().setTheme(Theme::Kind::Dark, 1.0);
  mWindow.transfers().readPage();
  settle(2.0);
  tell("recipes-finnish-dark");
  settings.setLanguage("en");
  settings.setLocale("en");
  mWindow.workbench().setTheme(Theme::Kind::Light, 1.0);
}

void Tour::comparison() {
  step("Data set and device side by side.");
  device().setFault("slow", "0.1");
  mWindow.transfers().compare();
  settle(2.0);
  if (CompareDialog* const compare = mWindow.transfers().compareDialog()) {
    picture(*compare, "compare");
    compare->close();
  }
  mPrinted = mWindow.workbench().log().size();  // a read of everything is long
  device().setFault("none", "");
}

void Tour::silence() {
  step("A device that has fallen silent: the window says so, and goes on.");
  device().setFault("silent", "");
  show("measurement", "activeRecipe");
  mWindow.transfers().readPage();
  settle(1.0);
  tell("no-answer");
  device().setFault("none", "");
  settle(0.5);
}

}  // namespace ostrand
