#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calibration/VwCalibration.h"
#include "calibration/VwCalibrationFjell.h"
#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/IHostContainer.h"
#include "platform/types/Query.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

namespace ostrand::test {

// The three ways in which a sample is taken: the view on either bus, and the view of the low-consistency blade.
enum class Way { Hart, Profibus, Fjell };

inline std::string nameOf(Way way) { return way == Way::Hart ? "Hart" : way == Way::Profibus ? "Profibus" : "Fjell"; }

inline Document dataSetOf(Way way) {
  const char* const name = way == Way::Hart ? "hartBlade" : way == Way::Profibus ? "profibusBlade" : "hartFjell";
  return Document::readFile(OSTRAND_SOURCE_DIR "/data/devices/" + std::string(name) + ".xml");
}

// A parent that takes downloads and wants to know what the view is busy with.
class CalibrationParent : public FakeObject<IHostContainer, INotifyStatus> {
 public:
  explicit CalibrationParent(FakeCalls& calls) : mCalls(calls) {}

  bool offersStatus = true;
  std::string folder = OSTRAND_SOURCE_DIR "/data/";

  Result queryInterface(const Guid& id, void** out) noexcept override {
    *out = nullptr;
    return offersStatus && offer<INotifyStatus>(id, this, out) ? Result::Ok : Result::NoInterface;
  }
  void DTMGUIDownload(const std::string& xml, const std::string& name, int one) override {
    mCalls.arrive("DTMGUIDownload", "DTMGUIDownload \"" + name + "\" " + std::to_string(one) + " | " + xml);
  }
  std::string DTMGUIGetXmlPath() override { return mCalls.arrive("DTMGUIGetXmlPath"), folder; }
  void NotifyStatus(const std::string& key, int first, int second) override {
    mCalls.arrive("NotifyStatus", "NotifyStatus \"" + key + "\" " + std::to_string(first) + " " + std::to_string(second));
  }

 private:
  FakeCalls& mCalls;
};

// "SendRequest write sampling: executeAction=3" for a call with a request, any other line as it is.
inline std::string brief(const std::string& line) {
  const std::size_t at = line.find(" | ");
  if (at == line.npos) return line;
  Node request = Document::read(line.substr(at + 3)).root();
  if (request.name() != "communicationRequest") request = request.firstChild();
  std::string text =
      line.substr(0, line.find(' ')) + " " + std::string(request.attribute("access")) + " " + std::string(request.attribute("name")) + ":";
  for (Node item = request.firstChild(); item; item = item.nextSibling()) {
    text += " " + std::string(item.attribute("name"));
    if (const std::string value = item.text(); !value.empty()) text += "=" + value;
  }
  return text;
}

// A host that may take any report, and keeps what was reported as "VwCalibration Sample1Button_Click: 440".
class CalibrationHost : public FakeMessenger {
 public:
  using FakeMessenger::FakeMessenger;

  bool takesAnyReport = false;
  std::vector<std::string> reports;

  void ReportError(const std::string& prefix, int number, const std::string& description) override {
    if (!takesAnyReport) return FakeMessenger::ReportError(prefix, number, description);
    reports.push_back(prefix + std::to_string(number));
    calls.arrive("ReportError");
  }
};

// A calibration view before a host of paper. Every report must be announced.
class CalibrationBench {
 public:
  explicit CalibrationBench(Way theWay, const char* category = nullptr) : way(theWay) {
    view = way == Way::Fjell ? Ref<CalibrationView>(new VwCalibrationFjell) : Ref<CalibrationView>(new VwCalibration);
    view->Place(desktop, parent, "");
    view->SetMessenger(messenger);
    if (!category)
      view->SetOfflineData(dataSetOf(way));
    else if (*category)
      view->SetOfflineData(dataSet("", "", "", category));
    calls.take();
  }
  ~CalibrationBench() {
    desktop.setProbe(nullptr);
    if (view) view->Terminate();
    view = nullptr;
    EXPECT_EQ(messenger->count(), 1u) << "somebody still holds the messenger";
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
    EXPECT_EQ(parent->count(), 1u) << "somebody still holds the parent";
  }

  template <class T = Control>
  T& get(const std::string& name) {
    for (Control* control : view->GetControls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + name);
  }
  CommandButton& button(const std::string& name) { return get<CommandButton>(name); }
  CommandButton& take(int sample) { return button("Sample" + std::to_string(sample) + "Button(0)"); }
  CommandButton& stop(int sample) { return button("Sample" + std::to_string(sample) + "Button(1)"); }
  // The average of a sample, and its deviation.
  CtrTextEdit& average(int sample) { return get<CtrTextEdit>(sample == 1 ? "cte_sampling(0)" : "cte_sampling(2)"); }
  CtrTextEdit& deviation(int sample) { return get<CtrTextEdit>(sample == 1 ? "cte_sampling(1)" : "cte_sampling(3)"); }
  CtrTextEdit& laboratoryValue(int sample) {
    return get<CtrTextEdit>("cte_laboratoryResults(" + std::to_string(way == Way::Fjell ? sample - 1 : sample) + ")");
  }
  CtrComboEdit& calibrationType() { return get<CtrComboEdit>("cce_laboratoryResults(0)"); }
  CtrComboEdit& laboratoryRecipe() { return get<CtrComboEdit>("cce_laboratoryResults(1)"); }
  CommandButton& accept() { return button("LabCalibrateBtn"); }
  CommandButton& apply() { return button(way == Way::Fjell ? "RecipeApplyButton" : "cmdRecipeApplyButton"); }
  CtrComboEdit& pulpType(int recipe) {
    return get<CtrComboEdit>((way == Way::Fjell ? "cce_pulpType(" : "ccePulpType(") + std::to_string(recipe - 1) + ")");
  }
  CtrTextEdit& slope(int recipe) { return get<CtrTextEdit>((way == Way::Fjell ? "cte_slope(" : "cteSlope(") + std::to_string(recipe - 1) + ")"); }
  CtrTextEdit& offset(int recipe) { return get<CtrTextEdit>((way == Way::Fjell ? "cte_offset(" : "cteOffset(") + std::to_string(recipe - 1) + ")"); }
  CtrTextEdit& filler(int recipe) { return get<CtrTextEdit>("cteFiller(" + std::to_string(recipe - 1) + ")"); }

  // Which of the four sample buttons are on the screen: "T1 T2" when no sample runs.
  std::string visible() {
    std::string text;
    const auto add = [&](const char* name, CommandButton& which) {
      if (which.Visible()) text += (text.empty() ? "" : " ") + std::string(name);
    };
    add("T1", take(1));
    add("S1", stop(1));
    add("T2", take(2));
    add("S2", stop(2));
    return text;
  }
  // The calls since the last time, requests in short, without those that every edit makes.
  std::vector<std::string> lines() {
    std::vector<std::string> all = calls.take();
    std::erase_if(all, [](const std::string& line) { return line.starts_with("Log 77") || line.starts_with("SetParameterStatus"); });
    for (std::string& line : all) line = brief(line);
    return all;
  }
  // A report under a prefix of the view's own.
  void announce(const std::string& procedure, int number = 440) { messenger->announce("VwCalibration " + procedure + ": ", number); }

  void online(const std::string& name, const std::string& items = {}, const std::string& more = "isFinal=\"1\"") {
    view->SetOnlineData(answer("name=\"" + name + "\" access=\"read\" responseStatus=\"device\" " + more, items));
  }

  Way way;
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<CalibrationHost> messenger{new CalibrationHost(calls)};
  Ref<CalibrationParent> parent{new CalibrationParent(calls)};
  Ref<CalibrationView> view;
};

const std::string kQuestion = R"(AskUser "sampling" "checkThatRecipeToBeCalibratedIsActive")";
const std::string kExitWarning = R"(AskUser "sampling" "samplingExitWarning")";
const std::string kStarted = R"(NotifyStatus "sampling" 0 0)";
const std::string kStopped = R"(NotifyStatus "" 0 0)";
const std::string kCheckTheValues = R"(ShowMessage "informationError" "pleaseCheckTheValues")";

}  // namespace ostrand::test
