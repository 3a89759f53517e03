#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/ComponentServer.h"
#include "host/Host.h"
#include "platform/base/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/ITaviView.h"

namespace ostrand::test {

// The user behind a calibration: answers as it is told, and keeps what was shown.
class CalibrationUser : public UserPrompt {
 public:
  std::function<int()> answer = [] { return kGoOn; };
  std::function<void()> meanwhile;  // what happens while a message or a question is open

  int ask(const std::string&, const std::string&, const Answers&) override {
    if (meanwhile) meanwhile();
    return answer();
  }
  void show(const std::string&, const std::string&) override {
    if (meanwhile) meanwhile();
  }
};

// What the views show and report, as "sampling/actionStatusOK" and "BusHart IBusDependent_StartSampling1: 70".
class CalibrationDiary : public HostObserver {
 public:
  std::vector<std::string> messages;
  std::vector<std::string> reports;
  std::vector<std::string> unhandled;
  std::vector<std::string> take() { return std::exchange(messages, {}); }

  void messageShown(const std::string&, const std::string& title, const std::string& message) override { messages.push_back(title + "/" + message); }
  void errorReported(const std::string&, const std::string& prefix, int number, const std::string&) override {
    reports.push_back(prefix + std::to_string(number));
  }
  void errorUnhandled(const std::string&, int number, const std::string& description) override {
    unhandled.push_back(std::to_string(number) + " " + description);
  }
};

// A registration file of one's own for as long as it lives.
class OwnRegistry {
 public:
  OwnRegistry() : mFolder(std::filesystem::path(testing::TempDir()) / ("ostrand-calibration-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(mFolder);
    if (const char* const before = std::getenv("OSTRAND_REGISTRY")) mBefore = before;
    setenv("OSTRAND_REGISTRY", (mFolder / "components.xml").c_str(), 1);
  }
  ~OwnRegistry() {
    if (mBefore)
      setenv("OSTRAND_REGISTRY", mBefore->c_str(), 1);
    else
      unsetenv("OSTRAND_REGISTRY");
    std::filesystem::remove_all(mFolder);
  }

 private:
  std::filesystem::path mFolder;
  std::optional<std::string> mBefore;
};

// A calibration view from the component server, in the real host, before a simulated transmitter.
class CalibrationRoom {
 public:
  explicit CalibrationRoom(const std::string& deviceName, unsigned seed = 7)
      : isFjell(deviceName == "hartFjell"),
        server(std::filesystem::path(OSTRAND_BINARY_DIR) / ownLibraryName()),
        host(desktop, server, user, data()) {
    host.observers().add(diary);
    host.openDataSet(data() / "devices" / (deviceName + ".xml"));
    host.connect(makeDevice(deviceName, desktop, host.dataSet()->document(), seed));
    enter();
  }

  static std::filesystem::path data() { return std::filesystem::path(OSTRAND_SOURCE_DIR) / "data"; }

  // A view of its own, in place of the one before.
  void enter(const std::string& frame = "sampling") {
    if (site && site->alive()) host.views().release(*site);
    site = host.views().place(isFjell ? "VwCalibrationFjell" : "VwCalibration", "calibration");
    host.views().open(*site, frame);
  }
  Device& device() { return *host.communication().device(); }
  // Until nothing is under way.
  void settle() {
    for (int i = 0; i < 6000 && !host.communication().idle(); ++i) desktop.wait(0.1);
    EXPECT_TRUE(host.communication().idle());
  }

  template <class T = Control>
  T& get(const std::string& name) {
    for (Control* each : site->view()->GetControls())
      if (each->name() == name) return dynamic_cast<T&>(*each);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + name);
  }
  CommandButton& take(int sample) { return get<CommandButton>("Sample" + std::to_string(sample) + "Button(0)"); }
  CommandButton& stop(int sample) { return get<CommandButton>("Sample" + std::to_string(sample) + "Button(1)"); }
  CtrTextEdit& average(int sample) { return get<CtrTextEdit>(sample == 1 ? "cte_sampling(0)" : "cte_sampling(2)"); }
  CtrTextEdit& laboratoryValue(int sample) {
    return get<CtrTextEdit>("cte_laboratoryResults(" + std::to_string(isFjell ? sample - 1 : sample) + ")");
  }
  CtrComboEdit& calibrationType() { return get<CtrComboEdit>("cce_laboratoryResults(0)"); }
  CtrComboEdit& laboratoryRecipe() { return get<CtrComboEdit>("cce_laboratoryResults(1)"); }
  CommandButton& accept() { return get<CommandButton>("LabCalibrateBtn"); }
  CommandButton& apply() { return get<CommandButton>(isFjell ? "RecipeApplyButton" : "cmdRecipeApplyButton"); }
  CtrComboEdit& pulpType(int recipe) { return get<CtrComboEdit>((isFjell ? "cce_pulpType(" : "ccePulpType(") + std::to_string(recipe - 1) + ")"); }
  CtrTextEdit& slope(int recipe) { return get<CtrTextEdit>((isFjell ? "cte_slope(" : "cteSlope(") + std::to_string(recipe - 1) + ")"); }
  CtrTextEdit& offset(int recipe) { return get<CtrTextEdit>((isFjell ? "cte_offset(" : "cteOffset(") + std::to_string(recipe - 1) + ")"); }

  const bool isFjell;
  OwnRegistry registry;
  VirtualDesktop desktop;
  ComponentServer server;
  CalibrationUser user;
  CalibrationDiary diary;
  Host host;
  Ref<ViewSite> site;
};

}  // namespace ostrand::test
