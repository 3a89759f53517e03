#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/View.h"
#include "platform/base/File.h"
#include "workbench/window/MainWindow.h"

namespace ostrand::test {

// The registered components, and beside them classes of the test's own.
class TestCatalog : public ComponentCatalog {
 public:
  std::map<std::string, std::function<Component*()>> own;

  Ref<IObject> create(const std::string& className) override {
    const auto found = own.find(className);
    return found == own.end() ? mRegistered.create(className) : Ref<IObject>(static_cast<IPlaceable*>(found->second()));
  }
  bool has(const std::string& className) override { return own.contains(className) || mRegistered.has(className); }

 private:
  RegisteredComponents mRegistered;
};

// The workbench's window over a copy of the mill's data. The clock stands, and leaps to what is due when a test waits.
class WindowBench : public testing::Test {
 protected:
  WindowBench() : data(mFolder / "data") {
    std::filesystem::remove_all(mFolder);  // of a test that crashed
    std::filesystem::create_directories(mFolder);
    std::filesystem::copy(std::string(OSTRAND_SOURCE_DIR) + "/data", data, std::filesystem::copy_options::recursive);
    setenv("OSTRAND_REGISTRY", (mFolder / "components.xml").c_str(), 1);
  }
  ~WindowBench() override {
    window.reset();
    workbench.reset();
    std::filesystem::remove_all(mFolder);
    unsetenv("OSTRAND_REGISTRY");
  }

  void open() {
    workbench = std::make_unique<Workbench>(data, &catalog);
    workbench->desktop().setLeaping(true);
    workbench->setLocale("en");
    workbench->prompt().standIn = [this](const std::string& title, const std::string& message) {
      asked.push_back(title + ": " + message);
      return answer;
    };
    workbench->desktop().fileStandIn = [this](const FileDialog&) { return nextFile; };
    window = std::make_unique<MainWindow>(*workbench);
    window->QWidget::show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  bool show(const std::string& branch, const std::string& frame) {
    const bool shown = window->show({&workbench->current(), branch, frame});
    settle();
    return shown;
  }
  // Until nothing is on its way to the device.
  void settle() {
    EXPECT_TRUE(until([&] { return workbench->host().communication().idle(); })) << "the device is not done";
    pump();
    window->panel().refresh();
  }
  // What waits in the event loop, and what that brings there.
  static void pump() {
    for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
  }
  // Lets time pass until it is so; false if nothing more would happen, or only what comes again for ever.
  bool until(const std::function<bool()>& isSo) {
    constexpr int kMostLeaps = 20000;
    for (int leaps = 0; leaps < kMostLeaps; ++leaps) {
      pump();
      if (isSo()) return true;
      if (!workbench->desktop().leap()) break;
    }
    return isSo();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focused = QApplication::focusWidget();
    QTest::keyClick(focused ? focused : window.get(), key, modifiers);
    pump();
  }
  // Does something to the dialog that opens next.
  void inDialog(std::function<void(QWidget&)> act) {
    auto* const poll = new QTimer(window.get());
    QObject::connect(poll, &QTimer::timeout, [poll, act = std::move(act)] {
      QWidget* const dialog = QApplication::activeModalWidget();
      if (!dialog) return;
      poll->stop();
      poll->deleteLater();
      act(*dialog);
    });
    poll->start(0);
  }
  static void clickButton(QWidget& dialog, const QString& text) {
    for (QPushButton* const button : dialog.findChildren<QPushButton*>())
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "no button " << text.toStdString();
    dialog.close();
  }
  // A control of the view in front.
  template <class T>
  T& control(const std::string& name) {
    for (Control* each : workbench->host().views().front()->view()->GetControls())
      if (each->name() == name) return dynamic_cast<T&>(*each);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + name);
  }
  QWidget* widget(const std::string& name) { return window->panel().widgetOf(control<Control>(name)); }
  // The parameter as the device has it.
  std::string deviceValue(const std::string& group, const std::string& name) {
    Host& host = workbench->host();
    bool done = false;
    host.exchange().readGroup(group, [&] { done = true; });
    EXPECT_TRUE(until([&] { return done; }));
    return host.dataSet()->value(name);
  }
  std::vector<std::string> said(ConversationLog::Kind kind) const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < workbench->log().size(); ++i)
      if (workbench->log().line(i).kind == kind) lines.push_back(workbench->log().line(i).text);
    return lines;
  }
  // --- the user's hands

  PlantDevice& device(const std::string& kind) {
    for (const auto& each : workbench->devices())
      if (each->kind().name == kind) return *each;
    throw RuntimeError(RuntimeError::BadArgument, "no device " + kind);
  }
  bool show(PlantDevice& of, const std::string& branch, const std::string& frame) {
    const bool shown = window->show({&of, branch, frame});
    settle();
    return shown;
  }
  void clickOn(const std::string& name) {
    window->panel().ensureWidgetVisible(widget(name));
    QTest::mouseClick(widget(name), Qt::LeftButton);
    settle();
  }
  // With the tab key from wherever the focus is.
  void tabTo(const std::string& name) {
    window->panel().refresh();
    if (!window->panel().isAncestorOf(QApplication::focusWidget())) window->panel().enter();
    for (int i = 0; i < 60 && QApplication::focusWidget() != widget(name); ++i) press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), widget(name)) << name << " is not reached by the tab key";
  }
  void typeInto(const std::string& name, const QString& text) {
    tabTo(name);
    QTest::keyClick(widget(name), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget(name), text);
    press(Qt::Key_Return);
  }
  void chooseIn(const std::string& name, const std::string& key) {
    tabTo(name);
    auto& box = dynamic_cast<QComboBox&>(*widget(name));
    const int row = box.findData(QString::fromStdString(key));
    ASSERT_GE(row, 0) << key;
    press(Qt::Key_Home);
    for (int i = 0; i < row; ++i) press(Qt::Key_Down);
  }
  void grab(const std::string& name) {
    if (const char* const folder = std::getenv("OSTRAND_PICTURES"))
      window->grab().save(QString::fromStdString(std::string(folder) + "/" + name + ".png"));
  }

 private:
  std::filesystem::path mFolder = std::filesystem::temp_directory_path() / ("ostrand-window-" + std::to_string(::getpid()));

 protected:
  std::filesystem::path data;
  TestCatalog catalog;
  std::unique_ptr<Workbench> workbench;
  std::unique_ptr<MainWindow> window;
  std::vector<std::string> asked;
  int answer = UserPrompt::kGoOn;
  std::optional<std::filesystem::path> nextFile;
};

}  // namespace ostrand::test
