#include <gmock/gmock.h>

#include <cmath>

#include "simulator/GyreBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

class HartGYREHistoryTest : public GyreBench {};

// --- Samples ---

TEST_F(HartGYREHistoryTest, ASampleBeginsByOneReadAndEndsByAnother) {
  ASSERT_EQ(errorOf(startSample()), "");
  EXPECT_EQ(value("statusSamplingActive"), "1");
  desktop->advance(60);
  const auto all = stopSample();
  EXPECT_EQ(errorOf(all), "");
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='sampleTime']/*"), "2026-01-05 08:00:00");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_EQ(value("recipe1SampleCount"), "21");
  EXPECT_EQ(told(1, 21, "historyId"), "21");
  EXPECT_EQ(told(1, 21, "historyTime"), "2026-01-05 08:00:00");
  EXPECT_EQ(told(1, 21, "historyConsistency"), value("sampleConsistency"));
  EXPECT_EQ(told(1, 21, "historyProcessTemperature"), value("sampleProcessTemperature"));
  EXPECT_EQ(told(1, 21, "historyLabConsistency"), "");
  EXPECT_EQ(told(1, 21, "historyLabFiller"), "0");
  EXPECT_LE(toldNumber(1, 21, "historyMin"), toldNumber(1, 21, "historyConsistency"));
  EXPECT_GE(toldNumber(1, 21, "historyMax"), toldNumber(1, 21, "historyConsistency"));
  EXPECT_GT(toldNumber(1, 21, "historyDeviation"), 0);
}

TEST_F(HartGYREHistoryTest, WhoOnlyLooksEndsNoSample) {
  startSample();
  desktop->advance(10);
  ask(requestText("sampling", "read", ""));
  EXPECT_EQ(value("statusSamplingActive"), "1");
  EXPECT_EQ(value("recipe1SampleCount"), "20");
  // And a read of the group starts none.
  stopSample();
  ask(requestText("sampling", "read", ""));
  EXPECT_EQ(value("statusSamplingActive"), "0");
  stopSample();
  EXPECT_EQ(value("recipe1SampleCount"), "21") << "there was none to end";
  EXPECT_EQ(write("sampling", item("sampleStart", "0")), "hartCmdErrCommandIsNotImplemented");
}

TEST_F(HartGYREHistoryTest, ASampleWithoutItsSensorOrItsPowerIsNone) {
  startSample();
  device->setFault("failure", "sensor");
  EXPECT_EQ(errorOf(stopSample()), "");
  EXPECT_EQ(value("sampleConsistency"), "NaN");
  device->setFault("none", "");
  startSample();
  device->setFault("powerCycle", "");
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_EQ(value("recipe1SampleCount"), "20");
}

TEST_F(HartGYREHistoryTest, ASampleBelongsToTheRecipeThatIsActive) {
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "4")), "");
  takeSample(20);
  EXPECT_EQ(value("recipe4SampleCount"), "1");
  EXPECT_EQ(value("recipe1SampleCount"), "20");
  EXPECT_EQ(told(4, 1, "historyRecipe"), "4");
}

// --- Records ---

TEST_F(HartGYREHistoryTest, ARecordIsToldInHalvesThatBothBearItsNumber) {
  const auto first = askHalf(1, 2, 5);
  ASSERT_EQ(first.size(), 1u);
  EXPECT_THAT(names(first[0].document),
              ElementsAre("sampleHistory1Recipe", "sampleHistory1Index", "historyId", "historyTime", "historyProcessTemperature", "historyTorque",
                          "historyConsistency", "historyUncompensatedConsistency"));
  EXPECT_EQ(response(first[0].document).attribute("name"), "recipe2sampleHistory");
  EXPECT_EQ(response(first[0].document).attribute("isFinal"), "1");
  const auto second = askHalf(2, 2, 5);
  EXPECT_THAT(names(second[0].document), ElementsAre("sampleHistory2Recipe", "sampleHistory2Index", "historyId", "historyRecipe", "historyDeviation",
                                                     "historyMin", "historyMax", "historyLabConsistency", "historyLabFiller"));
  for (const auto& half : {first, second}) EXPECT_EQ(ostrand::item(half[0].document, "historyId").text(), "5");
  EXPECT_EQ(ostrand::item(first[0].document, "historyTorque").attribute("unit"), "Nm");
}

TEST_F(HartGYREHistoryTest, Record0IsTheWater) {
  for (const int recipe : {1, 2, 3, 4}) {
    EXPECT_EQ(told(recipe, 0, "historyId"), "0");
    EXPECT_NEAR(toldNumber(recipe, 0, "historyTorque"), 0.048, 0.003);
    EXPECT_EQ(told(recipe, 0, "historyConsistency"), "0");
    EXPECT_EQ(told(recipe, 0, "historyLabConsistency"), "");
  }
  EXPECT_EQ(tellLaboratory(1, 0, "4"), "hartCmdErrNoDataAvailable");
}

TEST_F(HartGYREHistoryTest, ThereIsNoRecordBehindTheLast) {
  EXPECT_EQ(errorOf(askHalf(1, 2, 6)), "hartCmdErrNoDataAvailable");
  EXPECT_EQ(errorOf(askHalf(2, 4, 1)), "hartCmdErrNoDataAvailable");
  EXPECT_EQ(errorOf(askHalf(1, 5, 1)), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(errorOf(askHalf(1, 1, 31)), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(write("recipe1sampleHistory", item("sampleHistory1Index", "1")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(errorOf(ask(readOf({"sampleHistory1Index"}))), "missingItems");
}

TEST_F(HartGYREHistoryTest, OfThirtyRecordsTheOldestGoesAndTheNumbersStay) {
  EXPECT_EQ(value("recipe3SampleCount"), "30");
  const std::string second = told(3, 2, "historyTime");
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "3")), "");
  takeSample(20);
  EXPECT_EQ(value("recipe3SampleCount"), "30");
  EXPECT_EQ(told(3, 1, "historyTime"), second);
  EXPECT_EQ(told(3, 1, "historyId"), "2");
  EXPECT_EQ(told(3, 30, "historyId"), "31");
  EXPECT_EQ(tellLaboratory(3, 1, "4"), "hartCmdErrNoDataAvailable");
}

// --- What the laboratory says ---

TEST_F(HartGYREHistoryTest, TheLaboratoryHasNotComeToTheNewestYet) {
  EXPECT_EQ(told(1, 20, "historyLabConsistency"), "");
  EXPECT_EQ(told(1, 18, "historyLabConsistency"), "");
  for (const int index : {1, 17}) EXPECT_NEAR(toldNumber(1, index, "historyLabConsistency"), device->laboratoryValue(index).value(), 0.15) << index;
  EXPECT_EQ(toldNumber(3, 1, "historyLabFiller"), 4);
}

TEST_F(HartGYREHistoryTest, WhatTheLaboratorySaysIsKeptWithItsRecord) {
  EXPECT_EQ(tellLaboratory(1, 20, "6.25", "3.5"), "");
  EXPECT_EQ(told(1, 20, "historyLabConsistency"), "6.25");
  EXPECT_EQ(told(1, 20, "historyLabFiller"), "3.5");
  EXPECT_EQ(told(1, 19, "historyLabConsistency"), "");
  // Its index moves, its number does not.
  takeSample(20);
  EXPECT_EQ(tellLaboratory(1, 20, "6.5"), "");
  EXPECT_EQ(told(1, 20, "historyLabConsistency"), "6.5");
  EXPECT_EQ(tellLaboratory(1, 20, ""), "");
  EXPECT_EQ(told(1, 20, "historyLabConsistency"), "");
}

TEST_F(HartGYREHistoryTest, WhatTheLaboratorySaysIsNeverWrittenToTheRecordThatWasToldLast) {
  ASSERT_EQ(told(1, 17, "historyId"), "17");
  const std::string before = told(1, 17, "historyLabConsistency");
  EXPECT_EQ(write("recipe1sample1", item("historyLabConsistency", "9")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("recipe1sample1", item("historyId", "16") + item("historyLabConsistency", "9")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(told(1, 17, "historyLabConsistency"), before);
  EXPECT_EQ(tellLaboratory(1, 17, "101"), "hartCmdErrParameterTooLarge");
  EXPECT_EQ(tellLaboratory(1, 17, "4,5"), "hartCmdErrInvalidSelection");
  EXPECT_EQ(told(1, 17, "historyLabConsistency"), before);
}

TEST_F(HartGYREHistoryTest, AnotherCurveShowsInTheUncompensatedConsistencyAndNotInWhatWasSeen) {
  const double before = toldNumber(1, 20, "historyUncompensatedConsistency");
  const std::string seen = told(1, 20, "historyConsistency");
  ASSERT_EQ(write("recipe1", item("recipe1PulpType", "8") + item("recipe1LinearizationSlopeP1", "1.2")), "");
  EXPECT_GT(toldNumber(1, 20, "historyUncompensatedConsistency"), before + 1);
  EXPECT_EQ(told(1, 20, "historyConsistency"), seen);
}

// A line through what the laboratory has found is the curve of a special grade.
TEST_F(HartGYREHistoryTest, ASpecialGradeIsCalibratedByItsSamples) {
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "4")), "");
  for (const int id : {1, 2}) {
    takeSample(40);
    ASSERT_EQ(tellLaboratory(4, id, fixedText(device->laboratoryValue(id).value(), 2, '.')), "");
    EXPECT_EQ(value("activeRecipeCalibrated"), id == 1 ? "0" : "1");
    desktop->advance(260);
  }
  takeSample(40);
  EXPECT_NEAR(number("sampleConsistency"), device->laboratoryValue(3).value(), 0.2);
}

// What the recipe control computes, done by hand: the reading is then that of the laboratory.
TEST_F(HartGYREHistoryTest, TwoSamplesCalibrateTheTransmitter) {
  takeSample(60);
  const double error = number("sampleConsistency") - device->laboratoryValue(21).value();
  EXPECT_GT(std::abs(error), 0.08);
  desktop->advance(240);
  takeSample(60);
  const double u1 = toldNumber(1, 21, "historyUncompensatedConsistency");
  const double u2 = toldNumber(1, 22, "historyUncompensatedConsistency");
  const double lab1 = device->laboratoryValue(21).value();
  const double lab2 = device->laboratoryValue(22).value();
  const double slope = (lab2 - lab1) / (u2 - u1);
  EXPECT_NEAR(slope, 1.12, 0.05);
  EXPECT_EQ(write("recipe1", item("recipe1LinearizationSlopeP1", fixedText(slope, 4, '.')) +
                                 item("recipe1LinearizationOffsetP2", fixedText(lab1 - slope * u1, 4, '.'))),
            "");
  for (const int id : {23, 24}) {
    desktop->advance(240);
    takeSample(60);
    EXPECT_NEAR(number("sampleConsistency"), device->laboratoryValue(id).value(), 0.05);
  }
}

}  // namespace
}  // namespace ostrand::test
