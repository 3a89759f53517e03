#include "host/BindingAudit.h"
#include "host/ComponentServer.h"
#include "host/HostBench.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "views/VwMeasurement.h"
#include "views/VwMeasurementQX5.h"

namespace ostrand::test {

namespace {

// The views themselves, without a library.
class LinkedViews : public ComponentSource {
 public:
  Ref<IObject> create(const std::string& className) override {
    IPlaceable* made = nullptr;
    if (className == "VwMeasurement") made = new VwMeasurement;
    if (className == "VwMeasurementQX5") made = new VwMeasurementQX5;
    if (!made) throw RuntimeError(RuntimeError::BadArgument, "no such component class: \"" + className + "\"");
    return Ref<IObject>(made);
  }
};

// A measurement view before a simulated transmitter.
class ConversationTest : public ::testing::Test {
 protected:
  VirtualDesktop desktop;
  LinkedViews views;
  PaperPrompt prompt;
  Diary diary;
  Host host{desktop, views, prompt, sourceData()};
  Ref<ViewSite> site;

  void SetUp() override {
    host.observers().add(diary);
    host.openDataSet(sourceData() / "devices" / "hartBlade.xml");
    host.connect(makeDevice("hartBlade", desktop, host.dataSet()->document(), 7));
    site = host.views().place("VwMeasurement");
    host.views().open(*site, "activeRecipe");
  }
  template <class T>
  T& control(const std::string& name) {
    for (Control* each : site->view()->GetControls())
      if (each->name() == name) return dynamic_cast<T&>(*each);
    throw std::logic_error(name);
  }
  void settle() {
    while (!host.communication().idle()) desktop.wait(0.1);
  }
};

TEST_F(ConversationTest, TheActiveRecipeIsChangedAndConfirmed) {
  auto& recipe = control<CtrComboEdit>("cceActiveRecipe");
  EXPECT_EQ(recipe.Text(), "recipe1");
  recipe.choose("recipe3");
  control<CommandButton>("cmdActiveRecipeSetButton").click();
  EXPECT_TRUE(recipe.Modified());
  settle();
  EXPECT_EQ(recipe.Text(), "recipe3");
  EXPECT_FALSE(recipe.Modified());
  EXPECT_EQ(host.dataSet()->value("activeRecipe"), "3");
  EXPECT_EQ(diary.lines, (std::vector<std::string>{"queued activeRecipe", "sent activeRecipe",
                                                   "answered activeRecipe <- write activeRecipe: activeRecipe=3", "finished activeRecipe done"}));
}

TEST_F(ConversationTest, ARefusalReachesTheUser) {
  host.communication().device()->setFault("writeProtected", "");
  control<CtrComboEdit>("cceActiveRecipe").choose("recipe3");
  control<CommandButton>("cmdActiveRecipeSetButton").click();
  settle();
  ASSERT_EQ(prompt.lines.size(), 1u);
  EXPECT_NE(prompt.lines[0].find("\"activeRecipe\""), std::string::npos) << prompt.lines[0];
  EXPECT_EQ(host.dataSet()->value("activeRecipe"), "1");
}

TEST_F(ConversationTest, LocalAcceptanceTurnsTheButtonAndKeepsTheEdit) {
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  auto& button = control<CommandButton>("cmdActiveRecipeSetButton");
  EXPECT_EQ(button.Caption(), "Accept");
  control<CtrComboEdit>("cceActiveRecipe").choose("recipe2");
  button.click();
  settle();
  EXPECT_EQ(host.dataSet()->edited(), std::vector<std::string>{"activeRecipe"});
  host.setCommunicationMode(CommunicationMode::Download);
  EXPECT_EQ(button.Caption(), "Download");
  host.exchange().writeParameters(host.dataSet()->edited());
  settle();
  EXPECT_TRUE(host.exchange().transfer().failures().empty());
  EXPECT_TRUE(host.dataSet()->edited().empty());
  EXPECT_EQ(host.dataSet()->value("activeRecipe"), "2");
}

TEST_F(ConversationTest, LiveValuesArriveWhileTheyAreInFront) {
  host.views().bringToFront(*site, "monitoringVariables");
  desktop.wait(10);
  Control* place = nullptr;
  for (Control* each : site->view()->GetControls())
    if (each->Tag() == "monitoringVariables") place = each;
  ASSERT_TRUE(place && place->view());
  auto& list = dynamic_cast<ListView&>(*place->view()->GetControls().front());
  EXPECT_EQ(list.Count(), static_cast<int>(host.dataSet()->parametersOf("monitoringVariables").size()));
  EXPECT_EQ(host.dataSet()->lastUpdate("monitoringVariables").substr(0, 14), "05/01/2026 08:");
  EXPECT_GT(
      std::count_if(diary.lines.begin(), diary.lines.end(), [](const std::string& line) { return line == "finished monitoringVariables done"; }), 4);
}

TEST_F(ConversationTest, EveryGroupOfTheDataSetCanBeReadAndComparesEqual) {
  host.exchange().readAll();
  settle();
  std::string failed;
  for (const auto& each : host.exchange().transfer().failures()) failed += each.group + " " + each.item + " " + each.errorCode + each.reason + "; ";
  EXPECT_EQ(failed, "");
  host.exchange().comparison().start({});
  settle();
  std::size_t same = 0;
  for (const auto& row : host.exchange().comparison().rows()) same += row.same;
  EXPECT_GT(same, host.exchange().comparison().rows().size() * 9 / 10) << "live values move, settings do not";
}

TEST_F(ConversationTest, ASilentDeviceDoesNotStopTheHost) {
  host.communication().device()->setFault("silent", "");
  host.views().bringToFront(*site, "monitoringVariables");
  desktop.wait(10);
  host.communication().device()->setFault("none", "");
  diary.take();
  desktop.wait(10);
  EXPECT_NE(std::find(diary.lines.begin(), diary.lines.end(), "finished monitoringVariables done"), diary.lines.end());
}

TEST_F(ConversationTest, GarbageDoesNotStopTheHost) {
  host.communication().device()->setFault("garbage", "");
  host.views().bringToFront(*site, "monitoringVariables");
  desktop.wait(30);
  host.communication().device()->setFault("none", "");
  desktop.wait(5);
  diary.take();
  desktop.wait(5);
  EXPECT_NE(std::find(diary.lines.begin(), diary.lines.end(), "finished monitoringVariables done"), diary.lines.end());
  for (const std::string& name : host.dataSet()->parametersOf("monitoringVariables")) EXPECT_NE(host.dataSet()->value(name), "%&/") << name;
}

TEST_F(ConversationTest, TheAuditFindsWhatDoesNotFit) {
  using Kind = BindingAudit::Kind;
  const auto subjects = [](BindingAudit& audit, Kind kind) {
    std::vector<std::string> found;
    for (const auto& each : audit.findings())
      if (each.kind == kind) found.push_back(each.view + " " + each.subject);
    return found;
  };
  Host fresh(desktop, views, prompt, sourceData());
  fresh.openDataSet(sourceData() / "devices" / "hartBlade.xml");
  BindingAudit fitting(fresh);
  fitting.lookAtTree();
  EXPECT_EQ(fitting.views(), std::vector<std::string>{"VwMeasurement"});
  EXPECT_FALSE(subjects(fitting, Kind::ViewMissing).empty()) << "only the measurement views are linked here";
  for (const Kind kind :
       {Kind::TagWithoutParameter, Kind::MappingMissing, Kind::UnitUnknown, Kind::TextMissing, Kind::FrameMissing, Kind::ErrorReported})
    EXPECT_TRUE(subjects(fitting, kind).empty()) << subjects(fitting, kind).front();
  const auto unbound = subjects(fitting, Kind::ParameterUnbound);
  EXPECT_NE(std::find(unbound.begin(), unbound.end(), " lowerRangeValue"), unbound.end());
  EXPECT_EQ(std::find(unbound.begin(), unbound.end(), " activeRecipe"), unbound.end());
  EXPECT_EQ(std::find(unbound.begin(), unbound.end(), " shearForce"), unbound.end());

  BindingAudit asked(fresh);
  asked.look({"VwMeasurementQX5"});
  EXPECT_EQ(
      subjects(asked, Kind::TagWithoutParameter),
      (std::vector<std::string>{"VwMeasurementQX5 date_activeGrade", "VwMeasurementQX5 ctr_activeGrade", "VwMeasurementQX5 ctr_binaryInputGrade"}));
  EXPECT_EQ(refusalOf([&] { asked.look({"VwNothing"}); }).number, RuntimeError::BadArgument);
}

TEST_F(ConversationTest, TheAuditFindsHolesInADataSet) {
  using Kind = BindingAudit::Kind;
  Host fresh(desktop, views, prompt, sourceData());
  fresh.setDataSet(DataSet(Document::read(
      "<data:dtm xmlns:data='x-schema:TAVPersistentDataSchema.xml' xmlns:typeInfo='t'><typeInfo:internalInfo busCategory='HART'/><data:persistentData><data:parameters>"
      "<data:parameter name='activeRecipe' type='integerVal' value='1' offlineValue='' unit='parsec' decimals='0' minVal='' maxVal='' access='readWrite' synchronised='1'/>"
      "</data:parameters></data:persistentData><data:requestGroups><data:requestGroup name='activeRecipe' lastUpdate='18/12/2025 07:41:16'>"
      "<data:includedParam name='activeRecipe'/></data:requestGroup></data:requestGroups></data:dtm>")));
  BindingAudit audit(fresh);
  audit.look({"VwMeasurement"});
  std::vector<std::string> found;
  for (const auto& each : audit.findings()) found.push_back(std::to_string(static_cast<int>(each.kind)) + " " + each.subject + " " + each.detail);
  EXPECT_EQ(found, (std::vector<std::string>{std::to_string(static_cast<int>(Kind::MappingMissing)) + " activeRecipe cceActiveRecipe",
                                             std::to_string(static_cast<int>(Kind::UnitUnknown)) + " parsec activeRecipe",
                                             std::to_string(static_cast<int>(Kind::TextMissing)) + " parsec (unit) de en fi sv"}));
}

}  // namespace

}  // namespace ostrand::test
