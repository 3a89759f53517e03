#include <set>

#include "calibration/CalibrationBench.h"

namespace ostrand::test {
namespace {

// One whole conversation of a calibration view, of which in each run another call to the host fails: what is reported then,
// by whom, and whether the view is still good for the next calibration.
class Conversation {
 public:
  explicit Conversation(Way theWay) : way(theWay), bench(theWay, "") { bench.messenger->takesAnyReport = true; }

  // The steps in their order. What an error leaves to the caller of a click is the caller's affair.
  void run(int failing) {
    bench.calls.arrived = 0;
    bench.calls.fail("*", failing);
    const auto sample = [&](const std::string& name) {
      return itemXml(name + "ConsistencyAverage", "3.5", "floatVal") + itemXml(name + "Deviation", "0.5", "floatVal") +
             itemXml(name + "Quality", "1", "integerVal") + itemXml("actionStatusOther", "0", "integerVal");
    };
    step("messenger", [&] { bench.view->SetMessenger(bench.messenger); });
    step("localize", [&] { bench.view->Localize(bench.messenger->textTable); });
    step("mode", [&] { bench.messenger->raiseMode(21); });
    step("data", [&] { bench.view->SetOfflineData(dataSetOf(way)); });
    step("select", [&] { bench.view->SetSelectedView("sampling"); });
    step("focus", [&] { bench.view->RequestFocus(); });
    step("take 1", [&] { bench.take(1).click(); });
    step("refused", [&] { bench.take(2).click(); });
    step("stop 1", [&] { bench.stop(1).click(); });
    step("answer 1", [&] { bench.online("sampling", sample("sample1")); });
    step("take 2", [&] { bench.take(2).click(); });
    step("leave", [&] { bench.view->LeaveSelectedView(); });
    step("answer 2", [&] { bench.online("sampling", sample("sample2")); });
    step("choice", [&] { bench.calibrationType().choose("useBothSamples"); });
    step("incomplete", [&] { bench.accept().click(); });
    step("entry", [&] { bench.laboratoryValue(1).type("1.4"); });
    step("entry", [&] { bench.laboratoryValue(2).type("1.6"); });
    step("accept", [&] { bench.accept().click(); });
    step("verdict", [&] { bench.online("laboratoryResults", itemXml("actionStatusOK", "1", "integerVal")); });
    step("blade", [&] { bench.messenger->raiseReceiveValue("ctr_bladeType", "bladeTypeGL"); });
    step("entry", [&] { bench.slope(1).type("1.2"); });
    step("apply", [&] { bench.apply().click(); });
    step("refused pulp", [&] { bench.online("recipes", itemXml("actionStatusInvalidPulpType", "1", "integerVal")); });
    step("error",
         [&] { bench.view->SetErrorData(answer("name=\"recipes\" errorCode=\"communicationError\"", "<comm:item name=\"recipe1Filler\"/>")); });
    total = bench.calls.arrived;
  }
  void failAlways() { bench.calls.failAlways("*"); }

  // The call that failed, the step, and what was reported there: "NotifyStatus in stop 1: [VwCalibration Sample1Button_Click: 440]".
  std::string told;
  int total = 0;

  // Whatever happened, the next answer is shown and the next results are written.
  void isStillInUse() {
    told.clear();
    bench.view->SetMessenger(bench.messenger);
    bench.view->SetOfflineData(dataSetOf(way));
    bench.online("sampling", itemXml("sample1ConsistencyAverage", "2.5", "floatVal"));
    EXPECT_EQ(bench.average(1).Text(), "2.50");
    bench.calibrationType().choose("useSample2Only");
    bench.laboratoryValue(2).type("1.5");
    bench.laboratoryRecipe().choose("recipe2");
    bench.calls.take();
    bench.accept().click();
    const auto lines = bench.lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.front(), testing::StartsWith("DTMGUIDownload write laboratoryResults:"));
    bench.view->SetSelectedView("recipes");
    EXPECT_EQ(bench.view->GetSelectedView(), "recipes");
    EXPECT_TRUE(bench.view->LeaveSelectedView());
  }

 private:
  void step(const std::string& name, const std::function<void()>& body) {
    const std::size_t reports = bench.messenger->reports.size();
    bench.calls.lastFailed.clear();
    std::string left;
    try {
      body();
    } catch (const RuntimeError& error) {
      // A button that a failure has hidden or left disabled is not clicked.
      if (error.number() != RuntimeError::PermissionDenied) left = " left the control";
    }
    if (bench.calls.lastFailed.empty() && bench.messenger->reports.size() == reports && left.empty()) return;
    told += (told.empty() ? "" : "; ") + bench.calls.lastFailed + " in " + name + ":";
    for (std::size_t i = reports; i < bench.messenger->reports.size(); ++i) told += " [" + bench.messenger->reports[i] + "]";
    told += left;
  }

  Way way;
  CalibrationBench bench;
};

class EveryCallFailsTest : public testing::TestWithParam<Way> {};

INSTANTIATE_TEST_SUITE_P(Ways, EveryCallFailsTest, testing::Values(Way::Hart, Way::Profibus, Way::Fjell),
                         [](const auto& each) { return nameOf(each.param); });

// What is reported for every call that may fail. A call of the strategy is told twice: by it, and by the click that got a False.
std::set<std::string> expected(Way way) {
  std::set<std::string> all;
  const auto add = [&](const std::string& call, std::initializer_list<const char*> steps, const std::string& reports) {
    for (const char* name : steps) all.insert(call + " in " + name + ":" + reports);
  };
  const std::string click = " [VwCalibration Sample1Button_Click: 440]";
  const std::string strategy = way == Way::Profibus ? " [BusProfibus " : " [BusHart ";
  const std::string verdict =
      way == Way::Fjell ? " [VwCalibration ITaviDataUser_setOnlineData: 440]" : strategy + "IBusDependent_CalibrationSetOnlineData: 440]";

  add("AskUser", {"take 1", "refused", "take 2"}, click);
  add("AskUser", {"leave"}, " [VwCalibration ITaviView_LeaveSelectedView: 440]");
  add("NotifyStatus", {"take 1", "stop 1", "take 2", "leave"}, click);
  add("ShowMessage", {"refused"}, click);
  add("ShowMessage", {"answer 1", "answer 2", "verdict"}, verdict);
  add("ShowMessage", {"error"}, " [modView setErrorData: 440]");
  add("ShowMessage", {"incomplete"}, " left the control");
  add("DTMGUIDownload", {"accept"}, " [VwCalibration sendValues: 440]");
  add("DTMGUIDownload", {"apply"}, " [VwCalibration sendRecipes: 440]");

  if (way == Way::Profibus) {
    add("SendRequest", {"take 1", "stop 1", "take 2", "leave"}, " [BusProfibus ExecuteAction: 440]" + click);
    add("ReadRequest", {"take 1", "take 2"}, " [BusProfibus AskActionStatus: 440]" + click);
    add("ReadRequest", {"stop 1", "leave"}, " [BusProfibus ReadSampleData: 440]" + click);
    add("ReadRequest", {"accept"}, " [BusProfibus AskActionStatus: 440] [VwCalibration LabCalibrateBtn_Click: 440]");
    add("ReadRequest", {"apply"}, " [BusProfibus AskActionStatus: 440] [VwCalibration cmdRecipeApplyButton_Click: 440]");
    add("ShowMessage", {"refused pulp"}, verdict);
    add("SendRequest", {"refused pulp"}, " [BusProfibus ExecuteAction: 440]");
    add("ReadRequest", {"refused pulp"}, " [BusProfibus ReadRecipes: 440]");
  } else {
    for (const char* sample : {"1", "2"}) {
      const std::string take = std::string("take ") + sample;
      add("SendRequest", {take.c_str()}, " [BusHart IBusDependent_StartSampling" + std::string(sample) + ": 440]" + click);
    }
    // The low-consistency view reads by itself.
    add("ReadRequest", {"stop 1"}, way == Way::Fjell ? click : " [BusHart IBusDependent_StopSampling1: 440]" + click);
    add("ReadRequest", {"leave"}, way == Way::Fjell ? click : " [BusHart IBusDependent_StopSampling2: 440]" + click);
  }
  if (way != Way::Fjell) add("DTMGUIGetXmlPath", {"blade"}, " [VwCalibration mMessenger_ViewReceiveValue: 440]");

  // Levels, texts, statuses. A nested failure of SetMessenger is silent. A button that has no level yet cannot take the focus.
  add("Subscribe", {"messenger"}, " [VwCalibration ITaviComponent_SetMessenger: 440]");
  add("Subscribe", {"messenger"}, "");
  add("Unsubscribe", {"messenger"}, "");
  add("GetUserLevel", {"messenger"}, " [VwCalibration ITaviComponent_SetMessenger: 440]");
  add("GetUserLevel", {"messenger"}, " [VwCalibration ITaviComponent_SetMessenger: 440];  in focus: [VwCalibration ITaviView_RequestFocus: 5]");
  add("GetUserLevel", {"mode"}, " [VwCalibration mMessenger_ViewSetCommunicationMode: 440]");
  add("GetTextTable", {"mode"}, " [VwCalibration mMessenger_ViewSetCommunicationMode: 440]");
  add("GetText", {"mode"}, " [VwCalibration mMessenger_ViewSetCommunicationMode: 440]");
  add("GetLabel", {"localize"}, " [modView Localize: 440]");
  add("Log", {"data"}, " [ modView setOfflineData440]");
  add("GetTextTable", {"error"}, " [modView setErrorData: 440] [modView setErrorData: 91] [modView setErrorData: 91]");
  add("GetText", {"error"}, " [modView setErrorData: 440]");
  add("SetParameterStatus", {"take 1", "take 2"}, click);
  add("SetParameterStatus", {"answer 1", "answer 2"}, " [modView setOnlineData: 440]");
  add("SetParameterStatus", {"entry"}, " left the control");
  if (way != Way::Fjell) add("SetParameterStatus", {"error"}, " [modView setErrorData: 440]");
  return all;
}

TEST_P(EveryCallFailsTest, EachIsReportedByItsProcedureAndTheViewLives) {
  Conversation undisturbed(GetParam());
  undisturbed.run(1 << 30);
  EXPECT_EQ(undisturbed.told, "");
  std::set<std::string> told;
  for (int n = 1; n <= undisturbed.total; ++n) {
    Conversation conversation(GetParam());
    conversation.run(n);
    told.insert(conversation.told);
    SCOPED_TRACE(conversation.told);
    conversation.isStillInUse();
  }
  const std::set<std::string> all = expected(GetParam());
  for (const std::string& each : told) EXPECT_TRUE(all.contains(each)) << each;
  for (const std::string& each : all) EXPECT_TRUE(told.contains(each)) << "never: " << each;
}

TEST_P(EveryCallFailsTest, AHostWhoseEveryCallFailsIsSurvived) {
  Conversation conversation(GetParam());
  conversation.failAlways();
  conversation.run(1 << 30);
  EXPECT_NE(conversation.told, "");
}

}  // namespace
}  // namespace ostrand::test
