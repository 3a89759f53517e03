#include "views/VwMeasurement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/TestView.h"
#include "views/VwMeasurementGYRE.h"
#include "views/VwMeasurementQX5.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

template <class V>
struct MeasurementBench : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<FakeContainer> container{new FakeContainer(calls)};
  Ref<V> view{new V};

  MeasurementBench() {
    view->Place(desktop, container, "");
    view->SetMessenger(messenger);
    calls.take();
  }
  ~MeasurementBench() override {
    if (view) view->Terminate();
    view = nullptr;
    EXPECT_EQ(messenger->count(), 1u);
    EXPECT_EQ(messenger->listeners(), 0u);
    EXPECT_EQ(container->count(), 1u);
  }
  template <class T>
  T& get(std::string_view name) {
    for (Control* control : view->GetControls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, std::string(name));
  }
  std::vector<std::string> names() {
    std::vector<std::string> all;
    for (Control* control : view->GetControls()) all.push_back(control->name());
    return all;
  }
  static Document data(const std::string& category = "HART", const std::string& value = "1") {
    return dataSet(
        parameterXml("activeRecipe", value, "type=\"integerVal\" access=\"readWrite\"") + parameterXml("activeGrade", "grade1") +
            parameterXml("binaryInputGrade", "1"),
        "<data:mappedParam name=\"activeRecipe\">" + choice("1", "recipe1") + choice("2", "recipe2") + "</data:mappedParam>",
        "<data:requestGroup name=\"activeRecipe\" lastUpdate=\"01/02/2025 03:04:05\"><data:includedParam name=\"activeRecipe\"/></data:requestGroup>",
        category);
  }
  // The two lines of the mapping search that a data set without mappings costs are of no interest here.
  std::vector<std::string> take() {
    std::vector<std::string> lines = calls.take();
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("Log 77") || line.starts_with("SetParameterStatus"); });
    return lines;
  }
};

constexpr const char* kOnline = "VwMeasurement ITaviDataUser_setOnlineData: ";
constexpr const char* kClick = "VwMeasurement cmdActiveRecipeSetButton_Click: ";
const std::string kStatusRequest =
    "<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"activeRecipeStatus\" access=\"read\">"
    "<item name=\"activeRecipeCalibrated\" unit=\"noUnit\"><integerVal/></item></communicationRequest></dtm>";

// --- VwMeasurement

struct VwMeasurementTest : MeasurementBench<VwMeasurement> {
  CtrComboEdit& combo() { return get<CtrComboEdit>("cceActiveRecipe"); }
  CommandButton& button() { return get<CommandButton>("cmdActiveRecipeSetButton"); }
  static std::string download(const std::string& value) {
    return "DTMGUIDownload \"activeRecipe\" 1 | <communicationRequest name=\"activeRecipe\" access=\"write\"><item name=\"activeRecipe\" unit=\"noUnit\">"
           "<integerVal>" +
           value + "</integerVal></item></communicationRequest>";
  }
};

TEST_F(VwMeasurementTest, HasOneFrameAndTheLiveValues) {
  EXPECT_THAT(names(), ElementsAre("frmViews(0)", "lblTitle(0)", "ctrDateLabels(0)", "CtrFocusTransfer1", "lblActiveRecipe", "cceActiveRecipe",
                                   "cmdActiveRecipeSetButton", "CtrFocusTransfer2", "CtrMonitoring1"));
  EXPECT_EQ(combo().Tag(), "ctr_activeRecipe");
  EXPECT_TRUE(combo().KeepLocal());
  EXPECT_EQ(button().Tag(), "accept");
  EXPECT_EQ(button().Caption(), "Accept");
  EXPECT_EQ(get<Control>("CtrMonitoring1").Tag(), "monitoringVariables");
  EXPECT_EQ(get<Control>("CtrMonitoring1").className(), "CtrMonitoring");
  EXPECT_EQ(get<Control>("lblActiveRecipe").Tag(), "selectActiveRecipe");
  EXPECT_EQ(get<Control>("ctrDateLabels(0)").Tag(), "date_activeRecipe");
  EXPECT_EQ(get<Control>("lblTitle(0)").Tag(), "activeRecipe");
}

TEST_F(VwMeasurementTest, SelectsAndFocuses) {
  view->SetSelectedView("measurement");
  EXPECT_EQ(view->GetSelectedView(), "activeRecipe");
  view->RequestFocus();
  EXPECT_EQ(view->focused(), &combo());
  view->SetSelectedView("monitoringVariables");
  EXPECT_EQ(view->GetSelectedView(), "monitoringVariables");
  view->RequestFocus();
  EXPECT_EQ(view->focused()->name(), "lsvMonitoring");
}

TEST_F(VwMeasurementTest, TheButtonFollowsLevelAndMode) {
  EXPECT_TRUE(button().Enabled());
  messenger->userLevel = 2;
  view->SetMessenger(messenger);
  EXPECT_FALSE(button().Enabled());
  messenger->raiseMode(11);
  EXPECT_EQ(button().Caption(), "T:download");
  messenger->raiseMode(21);
  EXPECT_FALSE(button().Enabled());
  messenger->userLevel = 3;
  messenger->raiseMode(21);
  EXPECT_TRUE(button().Enabled());
  messenger->raiseMode(20);
  EXPECT_FALSE(button().Enabled());
}

TEST_F(VwMeasurementTest, TheButtonDownloadsTheRecipe) {
  view->SetOfflineData(data());
  combo().choose("recipe2");
  button().click();
  EXPECT_THAT(take(), ElementsAre(download("2")));
}

TEST_F(VwMeasurementTest, OnTheOtherBusThePollFollows) {
  view->SetOfflineData(data("DPV1"));
  button().click();
  EXPECT_THAT(take(), ElementsAre(download("1"), testing::StartsWith("ReadRequest 0 | ")));
  view->SetOnlineData(answer("name=\"activeRecipe\" responseStatus=\"ok\"", itemXml("actionStatusOK", "1", "integerVal")));
  EXPECT_THAT(take(), ElementsAre(R"(ShowMessage "activeRecipe" "actionStatusOK")"));
  view->SetOfflineData(data("HART"));
  view->SetOnlineData(answer("name=\"activeRecipe\" responseStatus=\"ok\"", itemXml("actionStatusOK", "1", "integerVal")));
  EXPECT_THAT(take(), IsEmpty()) << "the later strategy serves";
}

TEST_F(VwMeasurementTest, WithoutAValidRecipeNothingIsSent) {
  button().click();
  EXPECT_THAT(take(), ElementsAre(R"(ShowMessage "informationError" "pleaseCheckTheValues")")) << "before any data";
  view->SetOfflineData(data("HART", ""));
  button().click();
  view->SetOfflineData(data("HART", "9"));
  button().click();
  EXPECT_THAT(take(),
              ElementsAre(R"(ShowMessage "informationError" "pleaseCheckTheValues")", R"(ShowMessage "informationError" "pleaseCheckTheValues")"));
}

TEST_F(VwMeasurementTest, ThisValueIsNotCollected) {
  view->SetOfflineData(data());
  combo().choose("recipe2");
  messenger->raiseGetChanges(1);
  messenger->raiseGetChanges(2);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(VwMeasurementTest, AnUnknownCategoryIsToldAndTheMissingStrategyReported) {
  view->SetOfflineData(data("FF"));
  EXPECT_THAT(take(), ElementsAre(R"(ShowMessage "VwMeasurement" "Not recognizing the bus category: FF")"));
  EXPECT_EQ(combo().Text(), "recipe1") << "the walk runs all the same";
  messenger->announce(kOnline, 91);
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"ok\"", itemXml("activeRecipe", "2", "integerVal")));
  EXPECT_EQ(combo().Text(), "recipe2");
  messenger->announce(kClick, 91);
  button().click();
  EXPECT_THAT(take(), ElementsAre(testing::StartsWith("ReportError"), download("2"), testing::StartsWith("ReportError")));
}

TEST_F(VwMeasurementTest, TheChannelItemReachesNobody) {
  view->SetOfflineData(data());
  const Document doc =
      answer("name=\"x\" responseStatus=\"ok\"", itemXml("mChannel", "1") + itemXml("activeRecipe", "2", "integerVal") + itemXml("mChannel", "2"));
  view->SetOnlineData(doc);
  EXPECT_EQ(doc.selectAll("//comm:item[@name='mChannel']").size(), 1u) << "the first is taken out of the document";
  EXPECT_EQ(combo().Text(), "recipe2");
}

TEST_F(VwMeasurementTest, AFalseOfTheStrategyIsReportedOnceMore) {
  view->SetOfflineData(data("DPV1"));
  calls.fail("ReadRequest", 1, 70, "busy");
  messenger->announce("BusProfibus AskActionStatus: ", 70);
  messenger->announce("BusProfibus IBusDependent_SetActiveRecipe: ", 70);
  messenger->announce(kClick, 70);
  button().click();
  EXPECT_EQ(messenger->lastDescription(), "busy");
}

TEST_F(VwMeasurementTest, EachFailingStatementOfTheClickIsReported) {
  view->SetOfflineData(data("DPV1"));
  take();
  calls.fail("DTMGUIDownload");
  messenger->announce(kClick, 440);
  button().click();
  EXPECT_THAT(take(), ElementsAre(download("1"), testing::StartsWith("ReportError"), testing::StartsWith("ReadRequest")))
      << "the poll goes out all the same";
}

TEST_F(VwMeasurementTest, MayBeReleasedDuringTheWaitOfItsClick) {
  view->SetOfflineData(data("DPV1"));
  desktop.schedule(0.5, [&] {
    view->PrepareToRelease();
    view->Terminate();
    view = nullptr;
  });
  button().click();
  EXPECT_FALSE(view);
  EXPECT_THAT(take(), ElementsAre(download("1"), testing::StartsWith("ReadRequest 0 | "))) << "the operation ends with the messenger that it had";
}

TEST_F(VwMeasurementTest, MayGetAnotherStrategyDuringTheWaitOfItsClick) {
  view->SetOfflineData(data("DPV1"));
  desktop.schedule(0.5, [&] { view->SetOfflineData(data("HART")); });
  button().click();
  EXPECT_THAT(take(), ElementsAre(download("1"), testing::StartsWith("ReadRequest 0 | ")));
}

TEST_F(VwMeasurementTest, TheTabKeyLeavesAtItsEdges) {
  desktop.tabDown = true;
  combo().leave();
  EXPECT_THAT(take(), IsEmpty());
  button().LostFocus();
  EXPECT_THAT(take(), ElementsAre("FocusOut"));
  desktop.shiftDown = true;
  combo().leave();
  EXPECT_THAT(take(), ElementsAre("FocusOut"));
  button().LostFocus();
  EXPECT_THAT(take(), IsEmpty());
}

// --- VwMeasurementGYRE

struct VwMeasurementGYRETest : MeasurementBench<VwMeasurementGYRE> {
  CtrComboEdit& combo() { return get<CtrComboEdit>("cceActiveRecipe"); }
  std::vector<std::string> online(const std::string& attributes, const std::string& items = {}) {
    view->SetOnlineData(answer(attributes + " responseStatus=\"ok\"", items));
    return take();
  }
};

TEST_F(VwMeasurementGYRETest, HasNoButtonAndNoStrategy) {
  EXPECT_THAT(names(), ElementsAre("frmViews(0)", "lblTitle(0)", "ctrDateLabels(0)", "lblActiveRecipe", "cceActiveRecipe", "CtrMonitoring1"));
  view->SetOfflineData(data("FF"));
  EXPECT_THAT(take(), IsEmpty());
  EXPECT_FALSE(combo().KeepLocal());
  combo().choose("recipe2");
  messenger->raiseGetChanges(2);
  EXPECT_EQ(take().size(), 1u);
}

TEST_F(VwMeasurementGYRETest, AfterAWriteItAsksWhetherTheRecipeIsCalibrated) {
  for (const char* attributes :
       {"name=\"activeRecipe\" access=\"write\"", "name=\"myactiveRecipes\" access=\"write\"", "name=\"activeRecipeStatus\" access=\"read\""})
    EXPECT_THAT(online(attributes),
                ElementsAre(testing::StartsWith("Log 68 \"Sending <?xml"), "SendRequestWithStatus \"reading\" 2 1 | " + kStatusRequest))
        << attributes;
  for (const char* attributes :
       {"name=\"activeRecipe\" access=\"read\"", "name=\"other\" access=\"write\"", "name=\"activerecipe\" access=\"write\""})
    EXPECT_THAT(online(attributes), IsEmpty()) << attributes;
}

TEST_F(VwMeasurementGYRETest, WarnsOfARecipeThatIsNotCalibrated) {
  view->SetOfflineData(data());
  take();
  constexpr const char* kStatus = "name=\"activeRecipeStatus\" access=\"read\"";
  EXPECT_THAT(online(kStatus, itemXml("activeRecipeCalibrated", "0", "integerVal")),
              ElementsAre(R"(ShowMessage "recipe1" "actionStatusRecipeNotCalibrated")"));
  EXPECT_THAT(online(kStatus, itemXml("activeRecipeCalibrated", "1", "integerVal")), IsEmpty());
}

TEST_F(VwMeasurementGYRETest, AMissingNameOrAccessIsReported) {
  constexpr const char* kPrefix = "VwMeasurementGYRE ITaviDataUser_setOnlineData: ";
  messenger->announce("modView setOnlineData: ", 91);
  messenger->announce(kPrefix, 91);
  online("access=\"write\"");
  messenger->announce(kPrefix, 91);
  online("name=\"activeRecipe\"");
  messenger->announce(kPrefix, 91);
  EXPECT_EQ(online("name=\"activeRecipeStatus\"").size(), 3u) << "this name asks whatever the access is";
}

TEST_F(VwMeasurementGYRETest, EachFailingStatementIsReported) {
  calls.fail("Log");
  calls.fail("SendRequestWithStatus");
  messenger->announce("VwMeasurementGYRE ITaviDataUser_setOnlineData: ", 440);
  messenger->announce("VwMeasurementGYRE ITaviDataUser_setOnlineData: ", 440);
  EXPECT_EQ(online("name=\"activeRecipe\" access=\"write\"").size(), 4u);
}

TEST_F(VwMeasurementGYRETest, TheTabKeyLeavesEitherWay) {
  desktop.tabDown = true;
  combo().leave();
  desktop.shiftDown = true;
  combo().leave();
  EXPECT_THAT(take(), ElementsAre("FocusOut", "FocusOut"));
}

// --- VwMeasurementQX5

struct VwMeasurementQX5Test : MeasurementBench<VwMeasurementQX5> {
  CtrOptionEdit& grade() { return get<CtrOptionEdit>("coeActiveGrade"); }
  OptionButton& option(int i) { return get<OptionButton>("optActiveGrade(" + std::to_string(i) + ")"); }
  bool binaryInput() { return get<CtrComboEdit>("cceActiveGrade").Enabled() && get<Label>("lblActiveGrade").Enabled(); }
  int on() {
    for (int i = 0; i < 3; ++i)
      if (option(i).Value()) return i;
    return -1;
  }
  void online(const std::string& value) { view->SetOnlineData(answer("name=\"x\" responseStatus=\"ok\"", itemXml("activeGrade", value))); }
};

TEST_F(VwMeasurementQX5Test, HasItsForm) {
  EXPECT_FALSE(grade().Visible());
  EXPECT_EQ(grade().Tag(), "ctr_activeGrade");
  EXPECT_EQ(option(0).Tag(), "grade1");
  EXPECT_EQ(option(1).Tag(), "grade2");
  EXPECT_EQ(option(2).Tag(), "digitalInput");
  EXPECT_EQ(get<Control>("cceActiveGrade").Tag(), "ctr_binaryInputGrade");
  EXPECT_EQ(get<Control>("lblActiveGrade").Tag(), "binaryInputGrade");
  EXPECT_TRUE(binaryInput());
  EXPECT_EQ(on(), -1);
}

TEST_F(VwMeasurementQX5Test, TheButtonsShowTheDevicesGrade) {
  for (const auto& [value, button] : {std::pair{"grade2", 1}, {"grade1", 0}, {"digitalInput", 2}, {"grade1", 0}, {"grade17", 2}}) {
    online(value);
    EXPECT_EQ(on(), button) << value;
    EXPECT_EQ(binaryInput(), button == 2) << value;
  }
}

TEST_F(VwMeasurementQX5Test, AnUnknownGradeShowsAsDigitalInputAndBecomesIt) {
  online("grade17");
  EXPECT_EQ(on(), 2);
  EXPECT_EQ(grade().Text(), "digitalInput") << "the third button's click sets its own tag";
}

TEST_F(VwMeasurementQX5Test, AnEmptyGradeChangesNothing) {
  online("grade2");
  online("");
  EXPECT_EQ(on(), 1);
  EXPECT_FALSE(binaryInput());
}

TEST_F(VwMeasurementQX5Test, AClickSetsTheGrade) {
  view->SetOfflineData(data());
  EXPECT_EQ(on(), 0);
  option(2).click();
  EXPECT_EQ(grade().Text(), "digitalInput");
  EXPECT_TRUE(grade().Modified());
  EXPECT_TRUE(binaryInput());
  option(0).click();
  EXPECT_EQ(grade().Text(), "grade1");
  EXPECT_FALSE(grade().Modified());
  EXPECT_FALSE(binaryInput());
}

TEST_F(VwMeasurementQX5Test, OnlyTheNestedViewEverGetsTheFocus) {
  view->SetSelectedView("activeGrade");
  view->RequestFocus();
  EXPECT_EQ(view->focused(), nullptr);
  view->SetSelectedView("monitoringVariables");
  view->RequestFocus();
  EXPECT_EQ(view->focused()->name(), "lsvMonitoring");
}

TEST_F(VwMeasurementQX5Test, TheTabKeyLeavesAtItsEdges) {
  desktop.tabDown = true;
  option(0).LostFocus();
  get<CtrComboEdit>("cceActiveGrade").leave();
  EXPECT_THAT(take(), ElementsAre("FocusOut"));
  desktop.shiftDown = true;
  option(0).LostFocus();
  get<CtrComboEdit>("cceActiveGrade").leave();
  option(1).LostFocus();
  EXPECT_THAT(take(), ElementsAre("FocusOut"));
}

}  // namespace
}  // namespace ostrand
