#include "calibration/CalibrationRoom.h"
#include "platform/base/NumberText.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kSuccess = "laboratoryResults/calibrationWasSuccessfullPleaseUpdateRecipesView";

class WholeCalibrationTest : public testing::TestWithParam<const char*> {
 protected:
  CalibrationRoom room{GetParam()};
  const bool isProfibus = std::string(GetParam()) == "profibusBlade";

  // The user takes a sample of a minute, and reads its average from the screen.
  double takeSample(int sample) {
    room.take(sample).click();
    EXPECT_TRUE(room.stop(sample).Visible());
    room.desktop.wait(60);
    room.stop(sample).click();
    room.settle();
    EXPECT_TRUE(room.take(sample).Visible());
    return number(room.average(sample));
  }
  // What the laboratory finds in that sample.
  double laboratory(int sample) { return room.device().laboratoryValue(sample).value(); }
  static double number(CtrTextEdit& edit) { return parseNumber(edit.Text(), '.').value_or(-1e9); }
  void enter(const char* type, const char* recipe) {
    room.host.views().bringToFront(*room.site, "laboratoryResults");
    room.calibrationType().choose(type);
    for (const int sample : {1, 2})
      if (room.laboratoryValue(sample).Enabled()) room.laboratoryValue(sample).type(fixedText(laboratory(sample), 2, '.'));
    room.laboratoryRecipe().choose(recipe);
  }
  std::vector<std::string> accept() {
    room.diary.take();
    room.accept().click();
    room.settle();
    return room.diary.take();
  }
  void readRecipes() {
    room.host.exchange().readGroup("recipes");
    room.settle();
  }
  void TearDown() override {
    EXPECT_THAT(room.diary.reports, IsEmpty());
    EXPECT_THAT(room.diary.unhandled, IsEmpty());
  }
};

INSTANTIATE_TEST_SUITE_P(Devices, WholeCalibrationTest, testing::Values("hartBlade", "profibusBlade", "hartFjell"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(WholeCalibrationTest, TwoSamplesBringTheReadingToTheLaboratory) {
  const double before = takeSample(1);
  EXPECT_GT(std::abs(before - laboratory(1)), 0.02) << "the transmitter shows too much at first";
  room.desktop.wait(240);
  takeSample(2);
  EXPECT_THAT(room.diary.take(),
              isProfibus ? ElementsAre("sampling/actionStatusOK", "sampling/actionStatusOK") : testing::Matcher<std::vector<std::string>>(IsEmpty()));
  enter("useBothSamples", "recipe1");
  EXPECT_THAT(accept(), ElementsAre(kSuccess));
  EXPECT_FALSE(room.laboratoryValue(1).Modified()) << "the device has confirmed it";

  // The recipes on the screen are those from before until the user reads them.
  EXPECT_EQ(room.slope(1).Text(), "1.000");
  readRecipes();
  EXPECT_NE(room.slope(1).Text(), "1.000");
  EXPECT_EQ(number(room.slope(1)), parseNumber(fixedText(*parseNumber(room.host.dataSet()->value("recipe1LinearizationSlopeP1"), '.'), 3, '.'), '.'));

  room.host.views().bringToFront(*room.site, "sampling");
  for (int i = 0; i < 3; ++i) {
    const double after = takeSample(1);
    EXPECT_NEAR(after, laboratory(1), room.isFjell ? 0.015 : 0.03);
    room.desktop.wait(180);
  }
}

TEST_P(WholeCalibrationTest, OneSampleMovesTheOffset) {
  takeSample(2);
  enter("useSample2Only", "recipe1");
  EXPECT_EQ(room.laboratoryValue(1).Text(), "0");
  EXPECT_THAT(accept(), ElementsAre(kSuccess));
  readRecipes();
  EXPECT_EQ(room.slope(1).Text(), "1.000");
  EXPECT_NE(number(room.offset(1)), 0.0);
  room.host.views().bringToFront(*room.site, "sampling");
  const double after = takeSample(1);
  EXPECT_NEAR(after, laboratory(1), 0.03);
}

TEST_P(WholeCalibrationTest, WithoutASampleTheDeviceRefuses) {
  room.host.views().bringToFront(*room.site, "laboratoryResults");
  room.calibrationType().choose("useSample1Only");
  room.laboratoryValue(1).type("1.4");
  const auto shown = accept();
  ASSERT_EQ(shown.size(), 1u);
  if (isProfibus) {
    EXPECT_EQ(shown[0], "error/actionStatusCalibrationSampleNotTaken");
  } else {
    EXPECT_TRUE(shown[0].starts_with("Error/")) << shown[0];
    EXPECT_EQ(room.laboratoryValue(1).Error(), "hartCmdErrSuspiciousCalibration");
  }
  EXPECT_EQ(room.laboratoryValue(1).Text(), "1.40") << "what was typed stays";
  readRecipes();
  EXPECT_EQ(room.slope(1).Text(), "1.000");
}

TEST_P(WholeCalibrationTest, SamplesFarFromTheLaboratoryAreSuspicious) {
  takeSample(1);
  room.diary.take();
  room.host.views().bringToFront(*room.site, "laboratoryResults");
  room.calibrationType().choose("useSample1Only");
  room.laboratoryValue(1).type("5.9");
  const auto shown = accept();
  ASSERT_EQ(shown.size(), 1u);
  if (isProfibus)
    EXPECT_EQ(shown[0], "error/actionStatusCalibrationSuspicious");
  else
    EXPECT_TRUE(shown[0].starts_with("Error/")) << shown[0];
}

TEST_P(WholeCalibrationTest, AnUnevenSampleIsToldAndCanBeTakenAnew) {
  room.device().setFault("unsteady", "20");
  takeSample(1);
  EXPECT_THAT(room.diary.take(), ElementsAre(isProfibus ? "error/sample1DeviationLarge" : "warning/sample1DeviationLarge"));
  room.device().setFault("none", "");
  takeSample(1);
  EXPECT_THAT(room.diary.take(), isProfibus ? ElementsAre("sampling/actionStatusOK") : testing::Matcher<std::vector<std::string>>(IsEmpty()));
}

TEST_P(WholeCalibrationTest, RecipesAreChangedByHand) {
  room.host.views().bringToFront(*room.site, "recipes");
  room.slope(2).type("1.1");
  room.offset(3).type("-0.2");
  room.apply().click();
  room.settle();
  EXPECT_THAT(room.diary.take(), isProfibus ? ElementsAre("recipes/actionStatusOK") : testing::Matcher<std::vector<std::string>>(IsEmpty()));
  EXPECT_FALSE(room.slope(2).Modified());
  EXPECT_FALSE(room.offset(3).Modified());
  readRecipes();
  EXPECT_EQ(room.slope(2).Text(), "1.100");
  EXPECT_EQ(room.offset(3).Text(), "-0.20");
}

TEST_P(WholeCalibrationTest, ADeviceThatGoesSilentInASampleIsToldAndTheSampleGoesOn) {
  room.take(1).click();
  room.settle();
  room.desktop.wait(20);
  room.device().setFault("silent", "");
  room.stop(1).click();
  room.settle();
  // Each request that got no answer is told once: on PROFIBUS the write and the read.
  const auto shown = room.diary.take();
  EXPECT_EQ(shown.size(), isProfibus ? 2u : 1u);
  for (const std::string& message : shown) EXPECT_NE(message.find("Communication with the device failed."), message.npos) << message;
  EXPECT_TRUE(room.take(1).Visible()) << "the view has stopped";
  EXPECT_EQ(room.average(1).Text(), "") << "and shows no value that it did not get";
  room.device().setFault("none", "");
  const double after = takeSample(1);
  EXPECT_NEAR(after, laboratory(1), 0.5);
  EXPECT_FALSE(room.average(1).Modified());
}

TEST_P(WholeCalibrationTest, ALateAnswerIsShownAllTheSame) {
  room.take(1).click();
  room.settle();
  room.desktop.wait(30);
  room.device().setFault("slow", "20");
  room.stop(1).click();
  EXPECT_TRUE(room.take(1).Visible());
  EXPECT_EQ(room.average(1).Text(), "");
  room.settle();
  EXPECT_NEAR(number(room.average(1)), laboratory(1), 0.5);
}

TEST_P(WholeCalibrationTest, LeavingTheFrameStopsTheSample) {
  room.take(1).click();
  room.desktop.wait(30);
  room.user.answer = [] { return UserPrompt::kStop; };
  EXPECT_FALSE(room.host.views().bringToFront(*room.site, "recipes"));
  EXPECT_EQ(room.site->selected(), "sampling");
  EXPECT_EQ(room.site->busyWith(), "sampling");
  room.user.answer = [] { return UserPrompt::kGoOn; };
  EXPECT_TRUE(room.host.views().bringToFront(*room.site, "recipes"));
  EXPECT_EQ(room.site->busyWith(), "");
  room.settle();
  EXPECT_TRUE(room.device().laboratoryValue(1)) << "the device has the sample";
  EXPECT_NEAR(number(room.average(1)), laboratory(1), 0.5);
}

// A blade type chosen elsewhere filters the pulp types; the device refuses what the user chooses all the same.
TEST(WholeCalibrationProfibusTest, ARefusedPulpTypeIsReadBack) {
  CalibrationRoom room("profibusBlade");
  room.host.views().bringToFront(*room.site, "recipes");
  const std::string before = room.pulpType(2).Text();
  room.pulpType(2).choose("pulpTypeBroke");
  room.apply().click();
  room.settle();
  EXPECT_THAT(room.diary.take(), ElementsAre("error/actionStatusInvalidPulpType"));
  EXPECT_EQ(room.pulpType(2).Text(), before) << "as the device has it";
  EXPECT_FALSE(room.pulpType(2).Modified());
  EXPECT_THAT(room.diary.reports, IsEmpty());
}

TEST(WholeCalibrationProfibusTest, AStopThatTheDeviceDoesNotKnowIsNoSample) {
  CalibrationRoom room("profibusBlade");
  room.device().setFault("silent", "sampling");
  room.take(1).click();
  room.settle();
  room.device().setFault("none", "");
  room.diary.take();
  // The view believes that a sample runs, the device does not.
  room.stop(1).click();
  room.settle();
  EXPECT_THAT(room.diary.take(), ElementsAre("error/sample1DeviationLarge"));
  EXPECT_THAT(room.diary.reports, IsEmpty());
}

}  // namespace
}  // namespace ostrand::test
