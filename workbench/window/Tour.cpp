#include "workbench/window/Tour.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>

#include "platform/base/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrComboEdit.h"
#include "workbench/window/CompareDialog.h"
#include "workbench/window/DeviceMenu.h"
#include "workbench/window/Pictures.h"
#include "workbench/window/SettingsMenu.h"

namespace ostrand {

namespace {

void press(QWidget& widget, Qt::Key key) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier), up(QEvent::KeyRelease, key, Qt::NoModifier);
  QApplication::sendEvent(&widget, &down);
  QApplication::sendEvent(&widget, &up);
}

// The widget of the first control of a class on the page.
template <class Model, class Widget>
Widget* shownWidget(const ViewPanel& panel) {
  for (Control* const control : panel.shownControls())
    if (dynamic_cast<Model*>(control))
      if (auto* const widget = dynamic_cast<Widget*>(panel.widgetOf(*control))) return widget;
  return nullptr;
}

}  // namespace

Tour::Tour(MainWindow& window, std::filesystem::path folder) : mWindow(window), mFolder(std::move(folder)) {}

void Tour::step(const char* text) { std::printf("\n== %s\n\n", text); }

void Tour::settle(double seconds) {
  Workbench& workbench = mWindow.workbench();
  workbench.desktop().wait(seconds);
  for (int i = 0; i < 200 && !mWindow.host().communication().idle(); ++i) workbench.desktop().wait(0.1);
  mWindow.panel().refresh();
  QApplication::processEvents();
}

void Tour::printConversation() {
  const ConversationLog& log = mWindow.workbench().log();
  for (; mPrinted < log.size(); ++mPrinted) {
    const ConversationLog::Line& line = log.line(mPrinted);
    const std::string time = standardDateAndTime(line.time);
    std::printf("%s  %-8s %s\n", time.substr(time.find(' ') + 1).c_str(), ConversationLog::word(line.kind), line.text.c_str());
  }
}

void Tour::picture(const std::string& name) {
  QApplication::processEvents();
  const std::filesystem::path file = mFolder / (std::to_string(++mPictures) + "-" + name + ".png");
  Pictures::save(mWindow.grab(), file);
  std::printf("\n   picture: %s\n", file.string().c_str());
}

void Tour::chooseRecipe(int down) {
  auto* const combo = shownWidget<CtrComboEdit, QComboBox>(mWindow.panel());
  if (!combo) throwNothingThere("the choice of the active recipe");
  combo->setFocus();
  for (int i = 0; i < down; ++i) press(*combo, Qt::Key_Down);
  settle(0.1);
}

void Tour::play() {
  DeviceMenu& device = mWindow.deviceMenu();
  SettingsMenu& settings = mWindow.settingsMenu();
  Workbench& workbench = mWindow.workbench();
  PlantDevice& transmitter = workbench.current();
  // Nobody sits here: questions are answered by yes.
  workbench.prompt().standIn = [](const std::string& title, const std::string& message) {
    std::printf("   asked: %s. %s -> yes\n", title.c_str(), message.c_str());
    return UserPrompt::kGoOn;
  };

  step("A blade transmitter on HART. The page with the active recipe is open and is read from the device.");
  mWindow.show({&transmitter, "measurement", "activeRecipe"});
  device.readPage();
  settle(1.0);
  printConversation();
  picture("active-recipe");

  step("Another recipe is chosen with the arrow keys. It is an edit until it is written.");
  chooseRecipe(2);
  printConversation();
  picture("recipe-edited");

  step("The button writes it to the device, and the device's answer clears the edit.");
  if (auto* const button = shownWidget<CommandButton, QPushButton>(mWindow.panel())) button->click();
  settle(1.0);
  printConversation();
  picture("recipe-written");

  step("Live values are read again and again while their page is in front.");
  mWindow.show({&transmitter, "measurement", "monitoringVariables"});
  settle(6.0);
  printConversation();
  picture("live-values");

  step("The same in Finnish, with a decimal comma, degrees Fahrenheit, and dark.");
  settings.setLanguage("fi");
  settings.setLocale("fi");
  settings.setUnit("temperature", "degF");
  workbench.setTheme(Theme::Kind::Dark, 1.0);
  settle(2.0);
  picture("finnish-dark");
  settings.setLanguage("en");
  settings.setLocale("en");
  settings.setUnit("temperature", "degC");
  workbench.setTheme(Theme::Kind::Light, 1.0);

  step("Data set and device side by side.");
  transmitter.host().communication().device()->setFault("slow", "0.1");
  device.compare();
  settle(1.0);
  if (CompareDialog* const compare = device.compareDialog()) {
    QApplication::processEvents();
    Pictures::save(compare->grab(), mFolder / "compare.png");
    std::printf("   picture: %s\n", (mFolder / "compare.png").string().c_str());
    compare->close();
  }

  step("A device that has fallen silent: the page says so, and the window goes on.");
  transmitter.host().communication().device()->setFault("silent", "");
  mWindow.show({&transmitter, "measurement", "activeRecipe"});
  device.readPage();
  settle(1.0);
  printConversation();
  picture("no-answer");
  transmitter.host().communication().device()->setFault("none", "");
  settle(0.5);
  std::printf("\nThat was the tour. With a display, ostrand-workbench opens this window.\n");
}

}  // namespace ostrand
