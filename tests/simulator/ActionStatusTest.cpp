#include "simulator/ActionStatus.h"

#include <gmock/gmock.h>

namespace ostrand::simulator {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class ActionStatusTest : public testing::Test {
 protected:
  std::vector<std::string> raisedBy(std::string_view command, Verdict verdict, std::vector<std::string> items = {}) {
    status.record(command, {verdict, std::move(items)});
    std::vector<std::string> raised;
    for (const std::string& name : ActionStatus::names())
      if (table.number(name) != 0) raised.push_back(name.substr(std::string("actionStatus").size()));
    return raised;
  }

  ParameterTable table{Document::read("<data:dtm xmlns:data=\"d\"/>")};
  ActionStatus status{table};
};

TEST_F(ActionStatusTest, HasABitForEverything) {
  EXPECT_EQ(ActionStatus::names().size(), 18u);
  for (const std::string& name : ActionStatus::names()) {
    ASSERT_TRUE(table.find(name)) << name;
    EXPECT_EQ(table.find(name)->element(), "comm:integerVal");
    EXPECT_FALSE(table.find(name)->writable);
    EXPECT_EQ(table.number(name), 0);
  }
}

TEST_F(ActionStatusTest, ASuccessIsOK) {
  EXPECT_THAT(raisedBy("recipes", Verdict::Accepted), ElementsAre("OK"));
  status.record("recipes", {Verdict::Accepted, {}, true});
  EXPECT_EQ(table.number("actionStatusNewValuesSameAsOld"), 1);
  EXPECT_EQ(table.number("actionStatusOK"), 1);
  EXPECT_THAT(raisedBy("recipes", Verdict::Accepted), ElementsAre("OK"));
}

TEST_F(ActionStatusTest, ARefusalRaisesWhatItIsAboutAndWhatIsLookedAt) {
  EXPECT_THAT(raisedBy("sampling", Verdict::SampleRunning), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
  EXPECT_THAT(raisedBy("sampling", Verdict::SampleNotRunning), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
  EXPECT_THAT(raisedBy("sampling", Verdict::CommandNotImplemented), UnorderedElementsAre("DeviceWriteFailed", "InvalidSampleNumber"));

  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::SampleNotTaken), ElementsAre("CalibrationSampleNotTaken"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::CalibrationSuspicious), ElementsAre("CalibrationSuspicious"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::PointsTooClose), UnorderedElementsAre("CalPointsSpanTooSmall", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::PulpTypeNotAllowed), UnorderedElementsAre("InvalidPulpType", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::WriteProtected), UnorderedElementsAre("DeviceWriteFailed", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::TooLarge, {"laboratoryValue1"}),
              UnorderedElementsAre("LowerCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::TooSmall, {"laboratoryValue2"}),
              UnorderedElementsAre("UpperCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::InvalidSelection, {"calibrationType"}),
              UnorderedElementsAre("InvalidCalibrationData", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::TooLarge, {"sampleFiller"}), UnorderedElementsAre("InvalidCalibrationData", "CalibrationError"));
  EXPECT_THAT(raisedBy("laboratoryResults", Verdict::InvalidSelection, {"laboratoryRecipe"}),
              UnorderedElementsAre("InvalidRecipeNumber", "CalibrationError"));

  EXPECT_THAT(raisedBy("activeRecipe", Verdict::InvalidSelection, {"activeRecipe"}), ElementsAre("InvalidRecipeNumber"));
  EXPECT_THAT(raisedBy("activeRecipe", Verdict::RecipeNotCalibrated), ElementsAre("RecipeNotCalibrated"));
  EXPECT_THAT(raisedBy("activeRecipe", Verdict::PulpTypeNotAllowed), UnorderedElementsAre("InvalidPulpType", "RecipeNotCalibrated"));
  EXPECT_THAT(raisedBy("activeRecipe", Verdict::WriteProtected), UnorderedElementsAre("DeviceWriteFailed", "RecipeNotCalibrated"));

  EXPECT_THAT(raisedBy("recipes", Verdict::PulpTypeNotAllowed), ElementsAre("InvalidPulpType"));
  EXPECT_THAT(raisedBy("recipes", Verdict::InvalidSelection, {"recipe3PulpType"}), ElementsAre("InvalidPulpType"));
  EXPECT_THAT(raisedBy("recipes", Verdict::TooLarge, {"recipe3Filler"}), UnorderedElementsAre("InvalidCalibrationData", "InvalidPulpType"));

  EXPECT_THAT(raisedBy("temperatureCalibration", Verdict::TemperatureCorrectionTooLarge), ElementsAre("TempCorrectionTooLarge"));
  EXPECT_THAT(raisedBy("temperatureCalibration", Verdict::TooLarge, {"temperatureCalibrationCorrection"}), ElementsAre("TempCorrectionTooLarge"));
  EXPECT_THAT(raisedBy("temperatureCalibration", Verdict::InvalidSelection, {"temperatureCalibrationMeasurement"}),
              UnorderedElementsAre("DeviceWriteFailed", "TempCorrectionTooLarge"));
}

TEST_F(ActionStatusTest, OtherWritesRaiseOneBit) {
  EXPECT_THAT(raisedBy("rangeValues", Verdict::TooLarge, {"damping"}), ElementsAre("DampingValueInvalid"));
  EXPECT_THAT(raisedBy("specialGrade", Verdict::SpecialGradePointInvalid), ElementsAre("SpecialGradePointInvalid"));
  EXPECT_THAT(raisedBy("specialGrade", Verdict::TooLarge, {"consistencyOffset03"}), ElementsAre("SpecialGradePointInvalid"));
  EXPECT_THAT(raisedBy("identification", Verdict::AccessRestricted, {"manufacturer"}), ElementsAre("DeviceWriteFailed"));
  EXPECT_THAT(raisedBy("x", Verdict::InvalidSelection), ElementsAre("DeviceWriteFailed"));
}

}  // namespace
}  // namespace ostrand::simulator
