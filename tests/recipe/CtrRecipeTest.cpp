#include "recipe/CtrRecipe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/desktop/VirtualDesktop.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

namespace ostrand {
namespace {

using namespace test;

const std::string kFloat = "type=\"floatVal\" unit=\"noUnit\" decimals=\"3\" minVal=\"\" maxVal=\"\" access=\"readWrite\" synchronised=\"1\"";
const std::string kTorque = "type=\"floatVal\" unit=\"Nm\" decimals=\"3\" minVal=\"\" maxVal=\"\" access=\"read\" synchronised=\"1\"";
const std::string kWhole = "type=\"integerVal\" unit=\"noUnit\" decimals=\"\" minVal=\"\" maxVal=\"\" access=\"readWrite\" synchronised=\"1\"";

Document recipeData() {
  std::string parameters = parameterXml("sensorType", "S") + parameterXml("recipe1PulpType", "pulp") + parameterXml("recipe1CurveType", "pulp") +
                           parameterXml("recipe1LinearizationSlopeP1", "1", kFloat) + parameterXml("recipe1LinearizationOffsetP2", "0", kFloat) +
                           parameterXml("swRevisionNumber", "1.67");
  for (const char* whole : {"historyRecipe", "historyId"}) parameters += parameterXml(whole, "", kWhole);
  for (const char* number : {"historyLabConsistency", "historyLabFiller", "historyProcessTemperature", "historyConsistency", "historyDeviation",
                             "historyMax", "historyMin", "historyUncompensatedConsistency"})
    parameters += parameterXml(number, "", kFloat);
  parameters +=
      parameterXml("historyTime", "", "type=\"stringVal\" unit=\"\" access=\"read\" synchronised=\"1\"") + parameterXml("historyTorque", "", kTorque);
  return dataSet(parameters);
}

struct CtrRecipeTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<CtrRecipe> recipe{new CtrRecipe};

  CtrRecipeTest() {
    messenger->treeDocument = Document::read(
        "<dtm><relations><parameterA value=\"S\"><parameterB value=\"pulp\" x0=\"1\" x1=\"2\" x2=\"0\" x3=\"0\" min=\"0\" max=\"1.5\" maxC=\"6\""
        " minA=\"-99999\" minB=\"-99999\" maxA=\"-99999\" maxB=\"-99999\"/></parameterA></relations></dtm>");
    recipe->Place(desktop, nullptr, "recipe1");
    recipe->SetMessenger(messenger);
    recipe->SetOfflineData(recipeData());
    recipe->SetOnlineData(record("9"));
    calls.take();
  }
  ~CtrRecipeTest() override {
    if (recipe) recipe->Terminate();
    recipe = nullptr;
    EXPECT_EQ(messenger->count(), 1u) << "somebody still holds the messenger";
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
  }

  static Document record(const std::string& id, const std::string& torque = "0.5") {
    return answer("name=\"recipe1sampleHistory\" access=\"write\" responseStatus=\"device\"",
                  itemXml("historyId", id, "integerVal") + itemXml("historyTorque", torque, "floatVal") +
                      itemXml("historyLabConsistency", "4.2", "floatVal") + itemXml("historyLabFiller", "0", "floatVal") +
                      itemXml("historyUncompensatedConsistency", "4", "floatVal"));
  }
  template <class T>
  T& get(std::string_view name) {
    for (Control* control : recipe->controls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + std::string(name));
  }
  Chart& chart() { return get<Chart>("pesgoValidation"); }
  ListView& list(std::string_view name) { return get<ListView>(name); }
};

TEST_F(CtrRecipeTest, AUnitThatCannotBeConvertedLeavesTheAxisAndTakesThePointsAway) {
  ASSERT_EQ(chart().point(0, 0).x, 0.5f);
  messenger->converter->userUnits["torque"] = "degC";
  recipe->ViewSetUnits();
  EXPECT_EQ(list("lsvValidation").Header(4), "degC");
  EXPECT_EQ(chart().x().maximum, 1.5f);
  EXPECT_EQ(chart().point(0, 0).x, Chart::kNull);
  EXPECT_EQ(chart().point(1, 10).x, Chart::kNull);
}

TEST_F(CtrRecipeTest, WithoutAUnitServiceACurveInAForeignUnitHasNoTorque) {
  messenger->converter->userUnits["torque"] = "kNm";
  recipe->ViewSetUnits();
  ASSERT_NEAR(chart().x().maximum, 0.0015f, 1e-9f);
  ASSERT_NE(chart().point(1, 10).x, Chart::kNull);
  messenger->converter = nullptr;
  get<CtrTextEdit>("ctePn(1)").Text("1");
  EXPECT_EQ(chart().point(4, 10).x, Chart::kNull);
  EXPECT_NE(chart().point(1, 10).x, Chart::kNull) << "what was drawn before stays";
}

TEST_F(CtrRecipeTest, UnitsThereAndBackBringTheSameAxis) {
  messenger->converter->userUnits["torque"] = "ftlbf";
  recipe->ViewSetUnits();
  messenger->converter->userUnits["torque"] = "Nm";
  recipe->ViewSetUnits();
  EXPECT_NEAR(chart().x().maximum, 1.5f, 1e-6f);
  EXPECT_NEAR(chart().point(1, 49).x, 1.5f, 1e-6f);
  EXPECT_EQ(chart().annotationX(), chart().x().maximum / 2);
}

TEST_F(CtrRecipeTest, AnEditorThatIsHeldLongerTellsNobody) {
  const Ref<Component> editor = get<NestedControl>("caeReadonlySample(0)").nested();
  recipe->Terminate();
  recipe = nullptr;
  EXPECT_FALSE(static_cast<CtrAnyEdit&>(*editor).Change.hasListeners());
}

TEST_F(CtrRecipeTest, TheLastPointOfTheLastSeriesIsTheChartsOwn) {
  EXPECT_NE(chart().point(4, 48).x, Chart::kNull);
  EXPECT_EQ(chart().point(4, 49).x, Chart::kNull);
}

TEST_F(CtrRecipeTest, TellsAPointInWords) { EXPECT_EQ(chart().pointText(0, 0), "Nm: 0.500\n--- Lab %Cs: 4.200\n--- Filler %: 0.000"); }

TEST_F(CtrRecipeTest, AChangedLocaleDoesNotKeepTheWaterFromBeingTakenOff) {
  recipe->SetOnlineData(answer("name=\"identification\" access=\"read\"", itemXml("tcuSWRevisionNumber", "0") + itemXml("swRevisionNumber", "1.65")));
  recipe->SetOnlineData(record("0", "0.0625"));
  ASSERT_TRUE(desktop.setLocale("fi"));
  recipe->SetOnlineData(record("9", "0.5625"));
  EXPECT_EQ(chart().point(0, 0).x, 0.5005f) << "0.563 on the screen";
}

TEST_F(CtrRecipeTest, ARestoredCorrectionHasEveryDigitOfTheDevice) {
  recipe->SetOnlineData(
      answer("name=\"recipe1\" access=\"read\" responseStatus=\"device\"",
             itemXml("recipe1LinearizationSlopeP1", "1.2345678", "floatVal") + itemXml("recipe1LinearizationOffsetP2", "0.25", "floatVal")));
  get<OptionButton>("optAction(0)").click();
  list("lsvUsed").check(1, true);
  get<OptionButton>("optAction(1)").click();
  EXPECT_EQ(get<CtrTextEdit>("ctePn(0)").GetXmlItem().text(), "1.2345678");
  EXPECT_FALSE(get<CtrTextEdit>("ctePn(0)").Modified());
  EXPECT_FALSE(get<CtrTextEdit>("ctePn(1)").Modified());
}

}  // namespace
}  // namespace ostrand
