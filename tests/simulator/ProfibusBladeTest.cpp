#include <gmock/gmock.h>

#include <cmath>

#include "simulator/ActionStatus.h"
#include "simulator/DeviceBench.h"

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const char* const kSampleData =
    "<item name=\"sample1ConsistencyAverage\" unit=\"noUnit\"/><item name=\"sample1Deviation\" unit=\"noUnit\"/>"
    "<item name=\"sample2ConsistencyAverage\" unit=\"noUnit\"/><item name=\"sample2Deviation\" unit=\"noUnit\"/>";

class ProfibusBladeTest : public DeviceBench {
 protected:
  ProfibusBladeTest() : DeviceBench("profibusBlade") {}

  std::string execute(int action, const std::string& request = "sampling") { return write(request, item("executeAction", std::to_string(action))); }
  // What is raised, without "actionStatus".
  std::vector<std::string> raised(const std::string& request = "sampling") {
    std::vector<std::string> names;
    for (const Answer& answer : ask(readOf({"actionStatus"}, request)))
      for (const Node& bit : answer.document.selectAll("//comm:item[starts-with(@name, 'actionStatus') and comm:integerVal='1']"))
        names.emplace_back(bit.attribute("name").substr(12));
    return names;
  }
  std::string quality(int sample) {
    const auto all = ask(requestText("sampling", "read", kSampleData));
    const Node found = all.size() == 1 ? ostrand::item(all[0].document, "sample" + std::to_string(sample) + "Quality") : Node();
    return found ? found.text() : "missing";
  }
  void sample(int number, double seconds) {
    ASSERT_EQ(execute(2 + number), "");
    ASSERT_THAT(raised(), ElementsAre("OK"));
    desktop->advance(seconds);
    ASSERT_EQ(execute(4 + number), "");
  }
  // Writes the results as a view does, and gives what the device says to them.
  std::vector<std::string> laboratory(const std::string& value1, const std::string& value2, const char* type, int recipe, const char* filler = "0") {
    EXPECT_EQ(write("laboratoryResults", item("sampleFiller", filler) + item("laboratoryValue1", value1) + item("laboratoryValue2", value2) +
                                             item("calibrationType", type) + item("laboratoryRecipe", std::to_string(recipe))),
              "");
    return raised("laboratoryResults");
  }
  static std::string shown(double value) { return fixedText(value, 2, '.'); }
  void takeBothSamples() {
    sample(1, 60);
    desktop->advance(240);
    sample(2, 60);
  }
  void expectReadingOfTheLaboratory() {
    sample(1, 60);
    EXPECT_NEAR(number("sample1ConsistencyAverage"), device->laboratoryValue(1).value(), 0.02);
  }
};

// --- The bus ---

TEST_F(ProfibusBladeTest, AnswersFasterAndInLargerSteps) {
  EXPECT_DOUBLE_EQ(device->busTimePerTransaction(), 0.1);
  const LocalTime start = desktop->now();
  const auto all = ask(requestText("recipes", "read", ""));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ((all[1].time - start).count(), 200);
  EXPECT_EQ(names(all[0].document).size(), 20u);
  EXPECT_EQ(response(all[0].document).attribute("isFinal"), "0");
  EXPECT_EQ(response(all[1].document).attribute("isFinal"), "1");
}

TEST_F(ProfibusBladeTest, TheActionStatusComesInOnePiece) {
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "2")), "");
  const auto all =
      ask("<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"activeRecipe\" "
          "access=\"read\"><item name=\"actionStatus\" unit=\"noUnit\"/></communicationRequest></dtm>");
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(names(all[0].document), simulator::ActionStatus::names());
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='actionStatusOK']/comm:integerVal"), "1");
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='actionStatusSamplingError']/comm:integerVal"), "0");
  EXPECT_EQ(response(all[0].document).attribute("name"), "activeRecipe");
  EXPECT_EQ(response(all[0].document).attribute("isFinal"), "1");
  // Beside others, and one bit alone.
  EXPECT_EQ(names(ask(readOf({"tag", "actionStatus", "actionStatusOK"}))[0].document).size(), 19u);
  EXPECT_EQ(value("actionStatusOK"), "1");
}

TEST_F(ProfibusBladeTest, BeforeTheFirstActionNothingIsRaised) { EXPECT_THAT(raised(), IsEmpty()); }

TEST_F(ProfibusBladeTest, TheStatusItemsCannotBeWrittenNorGuessed) {
  EXPECT_EQ(write("x", item("actionStatusOK", "1")), "profibusErrAccessDenied");
  EXPECT_EQ(errorOf(ask(writeOf("x", item("actionStatus", "1")))), "missingItems");
  EXPECT_EQ(errorOf(ask(readOf({"executeAction"}))), "missingItems");
  EXPECT_EQ(errorOf(ask(readOf({"sampleStart"}))), "missingItems");
}

TEST_F(ProfibusBladeTest, AGroupReadKnowsNothingOfActions) {
  for (const char* group : {"sampling", "recipes", "laboratoryResults", "activeRecipe", "temperatureCalibration", "deviceStatus"}) {
    for (const Answer& answer : ask(requestText(group, "read", "")))
      for (const std::string& name : names(answer.document)) {
        EXPECT_FALSE(name.starts_with("actionStatus")) << group;
        EXPECT_FALSE(name.ends_with("Quality")) << group;
      }
  }
  // A host names the items of the group that it refreshes.
  const auto all = ask(readOf({"sample1ConsistencyAverage", "sample1Deviation", "sample1ShearForceAverage", "sample2ConsistencyAverage",
                               "sample2Deviation", "sample2ShearForceAverage", "consistency"},
                              "sampling"));
  EXPECT_EQ(names(all[0].document).size(), 7u);
}

TEST_F(ProfibusBladeTest, TheSameSeedAndClockGiveTheSameBytes) {
  const auto conversation = [&](unsigned seed) {
    restart(seed);
    std::string all;
    sample(2, 30);
    for (const char* group : {"monitoringVariables", "sampling", "recipes", "deviceStatus", "eventLog", "simulation"})
      for (const Answer& answer : ask(requestText(group, "read", ""))) all += answer.document.xml();
    for (const Answer& answer : ask(requestText("sampling", "read", kSampleData))) all += answer.document.xml();
    return all;
  };
  const std::string first = conversation(7);
  EXPECT_EQ(conversation(7), first);
  EXPECT_NE(conversation(8), first);
}

// These are the bytes on every machine.
TEST_F(ProfibusBladeTest, KnownValues) {
  EXPECT_EQ(value("consistency"), "3.88295");
  EXPECT_EQ(value("shearForce"), "28.4275");
}

TEST_F(ProfibusBladeTest, RefusesOtherWritesWithAnError) {
  EXPECT_EQ(write("rangeValues", item("damping", "100")), "profibusErrInvalidRange");
  EXPECT_THAT(raised(), ElementsAre("DampingValueInvalid"));
  EXPECT_EQ(write("rangeValues", item("damping", "x")), "profibusErrInvalidParameter");
  EXPECT_EQ(write("rangeValues", item("upperSensorLimit", "3")), "profibusErrAccessDenied");
  EXPECT_THAT(raised(), ElementsAre("DeviceWriteFailed"));
  EXPECT_EQ(write("specialGrade", item("consistencyValue03", "2.00")), "actionStatusSpecialGradePointInvalid");
  EXPECT_THAT(raised(), ElementsAre("SpecialGradePointInvalid"));
  EXPECT_EQ(write("identification", item("message", std::string(33, 'x'))), "profibusErrInvalidRange");
  EXPECT_EQ(write("identification", item("message", "Small letters: \xc3\xa4")), "");
  EXPECT_EQ(write("identification", item("deviceDate", "2026-02-30")), "profibusErrInvalidParameter");
  EXPECT_EQ(errorOf(ask(requestText("x", "execute", item("tag", "A")))), "commandIsNotImplemented");
  EXPECT_EQ(write("rangeValues", item("damping", "3")), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  EXPECT_EQ(write("rangeValues", item("damping", "3")), "");
  EXPECT_THAT(raised(), UnorderedElementsAre("OK", "NewValuesSameAsOld"));
}

TEST_F(ProfibusBladeTest, EveryErrorHasItsText) {
  for (const char* language : {"en", "fi", "sv", "de"}) {
    const Document texts = Document::readFile(OSTRAND_SOURCE_DIR "/data/texts/" + std::string(language) + ".xml");
    std::vector<std::string> keys = simulator::ActionStatus::names();
    keys.insert(keys.end(), {"communicationError", "missingItems", "commandIsNotImplemented", "profibusErrAccessDenied", "profibusErrInvalidRange",
                             "profibusErrInvalidParameter", "sample1Quality", "sample2Quality"});
    for (const std::string& key : keys) EXPECT_TRUE(texts.select("/texts/text[@key='" + key + "']")) << language << " " << key;
  }
}

// --- Samples ---

TEST_F(ProfibusBladeTest, ASampleRunsFromActionToAction) {
  EXPECT_EQ(value("statusSamplingActive"), "0");
  ASSERT_EQ(execute(3), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  desktop->advance(60);
  // No read ends it.
  ask(requestText("sampling", "read", kSampleData));
  ask(readOf({"sample1Deviation", "sample1ConsistencyAverage", "sample1ShearForceAverage"}));
  EXPECT_EQ(value("statusSamplingActive"), "1");
  ASSERT_EQ(execute(5), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  EXPECT_EQ(value("statusSamplingActive"), "0");
  EXPECT_NEAR(number("sample1ConsistencyAverage"), 4.1, 0.7);
  EXPECT_GT(number("sample1Deviation"), 0.01);
  EXPECT_EQ(value("sample2ConsistencyAverage"), "0");
}

TEST_F(ProfibusBladeTest, TheSampleDataBringTheQuality) {
  sample(1, 30);
  const auto all = ask(requestText("sampling", "read", kSampleData));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_THAT(names(all[0].document), ElementsAre("sample1ConsistencyAverage", "sample1Deviation", "sample2ConsistencyAverage", "sample2Deviation",
                                                  "sample1Quality", "sample2Quality"));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='sample1Quality']/comm:integerVal"), "0");
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='sample2Quality']/comm:integerVal"), "1");  // none taken
  sample(2, 30);
  EXPECT_EQ(quality(2), "0");
  EXPECT_EQ(quality(1), "0");
}

TEST_F(ProfibusBladeTest, AnUnevenSampleIsNotGood) {
  device->setFault("unsteady", "20");
  sample(1, 60);
  EXPECT_EQ(quality(1), "1");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  device->setFault("none", "");
  desktop->advance(100);
  sample(1, 60);
  EXPECT_EQ(quality(1), "0");
}

TEST_F(ProfibusBladeTest, ASampleWithoutASensorIsNotGood) {
  sample(2, 30);
  device->setFault("failure", "sensor");
  sample(2, 30);
  EXPECT_EQ(quality(2), "1");
  EXPECT_EQ(value("sample2ConsistencyAverage"), "NaN");
}

TEST_F(ProfibusBladeTest, RefusesToStartOverTheOtherSample) {
  ASSERT_EQ(execute(3), "");
  EXPECT_EQ(execute(4), "");  // acknowledged
  EXPECT_THAT(raised(), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
  desktop->advance(10);
  EXPECT_EQ(execute(6), "");
  EXPECT_THAT(raised(), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
  EXPECT_EQ(value("statusSamplingActive"), "1");
  // The same one starts anew.
  ASSERT_EQ(execute(3), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  ASSERT_EQ(execute(5), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  ASSERT_EQ(execute(4), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  ASSERT_EQ(execute(3), "");
  EXPECT_THAT(raised(), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
}

TEST_F(ProfibusBladeTest, AStopOfNothingLeavesNoGoodSample) {
  sample(1, 30);
  sample(2, 30);
  EXPECT_EQ(quality(1), "0");
  ASSERT_EQ(execute(5), "");
  EXPECT_THAT(raised(), UnorderedElementsAre("SamplingError", "InvalidSampleNumber"));
  EXPECT_EQ(quality(1), "1");
  EXPECT_EQ(quality(2), "0");
  ASSERT_EQ(execute(6), "");
  EXPECT_EQ(quality(2), "1");
}

TEST_F(ProfibusBladeTest, KnowsNoOtherActions) {
  for (const char* action : {"0", "2", "7", "10", "19", "81", "149", "153", "255", "256", "-1", "x", ""}) {
    const auto all = ask(writeOf("sampling", item("executeAction", action)));
    EXPECT_EQ(errorOf(all), "");
    EXPECT_THAT(names(all.back().document), IsEmpty());
    EXPECT_THAT(raised(), UnorderedElementsAre("DeviceWriteFailed", "InvalidSampleNumber")) << action;
  }
  EXPECT_EQ(execute(0, "resetingEventLog"), "");
  EXPECT_THAT(raised(), ElementsAre("DeviceWriteFailed"));
}

TEST_F(ProfibusBladeTest, SilentInTheMiddleOfASample) {
  ASSERT_EQ(execute(3), "");
  device->setFault("silent", "sampling");
  desktop->advance(30);
  EXPECT_TRUE(ask(writeOf("sampling", item("executeAction", "5"))).empty());
  EXPECT_TRUE(ask(requestText("sampling", "read", kSampleData)).empty());
  EXPECT_EQ(value("statusSamplingActive"), "1");
  device->setFault("none", "");
  ASSERT_EQ(execute(5), "");
  EXPECT_EQ(quality(1), "0");
}

// --- Calibration ---

TEST_F(ProfibusBladeTest, ACalibrationByTwoSamplesBringsTheReadingToTheLaboratory) {
  takeBothSamples();
  const double first = device->laboratoryValue(1).value();
  const double second = device->laboratoryValue(2).value();
  EXPECT_GT(std::abs(second - first), 0.2);
  EXPECT_GT(std::abs(number("sample1ConsistencyAverage") - first), 0.05);
  EXPECT_THAT(laboratory(shown(first), shown(second), "3", 1), ElementsAre("OK"));
  EXPECT_NE(value("recipe1LinearizationSlopeP1"), "1");
  for (int i = 0; i < 3; ++i) {
    expectReadingOfTheLaboratory();
    desktop->advance(240);
  }
}

TEST_F(ProfibusBladeTest, ACalibrationByOneSampleMovesTheOffset) {
  sample(2, 60);
  EXPECT_THAT(laboratory("0", shown(device->laboratoryValue(2).value()), "2", 1), ElementsAre("OK"));
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  expectReadingOfTheLaboratory();
}

TEST_F(ProfibusBladeTest, RefusesACalibration) {
  EXPECT_THAT(laboratory("4", "0", "1", 1), ElementsAre("CalibrationSampleNotTaken"));
  sample(1, 20);
  EXPECT_THAT(laboratory("4", "4.4", "3", 1), ElementsAre("CalibrationSampleNotTaken"));
  sample(2, 20);
  EXPECT_THAT(laboratory("4", "4.4", "3", 1), UnorderedElementsAre("CalPointsSpanTooSmall", "CalibrationError"));
  EXPECT_THAT(laboratory("9", "0", "1", 1), ElementsAre("CalibrationSuspicious"));
  EXPECT_THAT(laboratory("17", "0", "1", 1), UnorderedElementsAre("LowerCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(laboratory("4", "-1", "3", 1), UnorderedElementsAre("UpperCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(laboratory("4,1", "0", "1", 1), UnorderedElementsAre("LowerCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(laboratory("", "0", "1", 1), UnorderedElementsAre("LowerCalPointInvalidValue", "CalibrationError"));
  EXPECT_THAT(laboratory("4", "0", "4", 1), UnorderedElementsAre("InvalidCalibrationData", "CalibrationError"));
  EXPECT_THAT(laboratory("4", "0", "1", 9), UnorderedElementsAre("InvalidRecipeNumber", "CalibrationError"));
  EXPECT_THAT(laboratory("4", "0", "1", 1, "60"), UnorderedElementsAre("InvalidCalibrationData", "CalibrationError"));
  ASSERT_EQ(write("assemblyRelated", item("bladeType", "7")), "");
  EXPECT_THAT(laboratory("4", "0", "1", 1), UnorderedElementsAre("InvalidPulpType", "CalibrationError"));
  device->setFault("writeProtected", "");
  EXPECT_THAT(laboratory("4", "0", "1", 1), UnorderedElementsAre("DeviceWriteFailed", "CalibrationError"));
  // Nothing has changed.
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  EXPECT_EQ(value("recipe1LinearizationOffsetP2"), "0");
  EXPECT_EQ(value("recipe1Filler"), "0");
  EXPECT_EQ(value("laboratoryValue1"), "3.78");
}

TEST_F(ProfibusBladeTest, ARefusalIsAcknowledgedWithoutValues) {
  const auto all = ask(writeOf("laboratoryResults", item("laboratoryValue1", "4") + item("calibrationType", "1") + item("laboratoryRecipe", "1")));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].document.xml(),
            "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"laboratoryResults\" access=\"write\" "
            "isFinal=\"1\" responseStatus=\"device\"/></comm:dtm>");
}

TEST_F(ProfibusBladeTest, AWriteOfUnknownItemsIsNoSuccess) {
  ASSERT_EQ(write("activeRecipe", item("activeRecipe", "2")), "");
  EXPECT_EQ(write("laboratoryResults", item("moonPhase", "1")), "missingItems");
  EXPECT_THAT(raised("laboratoryResults"), UnorderedElementsAre("DeviceWriteFailed", "CalibrationError"));
}

TEST_F(ProfibusBladeTest, TheActiveRecipe) {
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "9")), "");
  EXPECT_THAT(raised("activeRecipe"), ElementsAre("InvalidRecipeNumber"));
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "8")), "");  // a special grade without points
  EXPECT_THAT(raised("activeRecipe"), ElementsAre("RecipeNotCalibrated"));
  EXPECT_EQ(value("activeRecipe"), "1");
  const auto all = ask(writeOf("activeRecipe", item("activeRecipe", "4")));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='activeRecipe']/comm:integerVal"), "4");
  EXPECT_THAT(raised("activeRecipe"), ElementsAre("OK"));
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "4")), "");
  EXPECT_THAT(raised("activeRecipe"), UnorderedElementsAre("OK", "NewValuesSameAsOld"));
  ASSERT_EQ(write("assemblyRelated", item("bladeType", "7")), "");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "1")), "");
  EXPECT_THAT(raised("activeRecipe"), UnorderedElementsAre("InvalidPulpType", "RecipeNotCalibrated"));
}

TEST_F(ProfibusBladeTest, RecipesAreRefusedAsAWholeAndReadBack) {
  EXPECT_EQ(write("recipes", item("recipe1LinearizationSlopeP1", "1.5") + item("recipe2PulpType", "5")), "");  // not for this blade
  EXPECT_THAT(raised("recipes"), ElementsAre("InvalidPulpType"));
  for (int action = 11; action <= 18; ++action) {
    EXPECT_EQ(execute(action, "recipes"), "");
    EXPECT_THAT(raised("recipes"), ElementsAre("OK"));
  }
  const auto all = ask(readOf({"recipe1PulpType", "recipe2PulpType", "recipe3PulpType", "recipe4PulpType", "recipe5PulpType", "recipe6PulpType",
                               "recipe7PulpType", "recipe8PulpType"},
                              "recipes"));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='recipe2PulpType']/comm:integerVal"), "2");
  EXPECT_EQ(value("recipe1LinearizationSlopeP1"), "1");
  EXPECT_EQ(write("recipes", item("recipe2PulpType", "3") + item("recipe2LinearizationSlopeP1", "1.1")), "");
  EXPECT_THAT(raised("recipes"), ElementsAre("OK"));
}

TEST_F(ProfibusBladeTest, TheTemperatureCalibration) {
  const double before = number("processTemperature");
  const auto calibrate = [&](const char* correction) {
    return write("temperatureCalibration", item("temperatureCalibrationMeasurement", "1") + item("temperatureCalibrationCorrection", correction));
  };
  EXPECT_EQ(calibrate("5"), "");
  EXPECT_THAT(raised("temperatureCalibration"), ElementsAre("OK"));
  EXPECT_NEAR(number("processTemperature"), before + 5, 0.5);
  for (const char* tooLarge : {"-15", "25"}) {
    EXPECT_EQ(calibrate(tooLarge), "");
    EXPECT_THAT(raised("temperatureCalibration"), ElementsAre("TempCorrectionTooLarge"));
  }
  EXPECT_NEAR(number("processTemperature"), before + 5, 0.5);
}

// --- Output, status, events ---

TEST_F(ProfibusBladeTest, TheOutputFollowsTheMeasurement) {
  desktop->advance(20);
  const auto all = ask(readOf({"consistency", "outputValue"}));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='outputValue']/comm:floatVal"),
            all[0].document.selectText("//comm:item[@name='consistency']/comm:floatVal"));
  EXPECT_EQ(value("outputQuality"), "0");
  EXPECT_EQ(errorOf(ask(readOf({"outputCurrent"}))), "missingItems");
}

TEST_F(ProfibusBladeTest, ALoopTestDrivesTheOutput) {
  const auto all = ask(writeOf("loopTest", item("loopTestValue", "0.5")));
  EXPECT_EQ(all[0].document.selectText("//comm:item[@name='loopTestValue']/comm:floatVal"), "0.5");
  EXPECT_EQ(value("outputValue"), "0.5");
  EXPECT_GT(number("consistency"), 3);
  EXPECT_EQ(value("statusLoopTestActive"), "1");
  EXPECT_EQ(ask(writeOf("loopTest", item("loopTestValue", "0")))[0].document.selectText("//comm:floatVal"), "0");
  EXPECT_GT(number("outputValue"), 3);
  EXPECT_EQ(value("statusLoopTestActive"), "0");
  EXPECT_EQ(write("loopTest", item("loopTestValue", "17")), "profibusErrInvalidRange");
}

TEST_F(ProfibusBladeTest, ASimulationTakesThePlaceOfTheMeasurement) {
  EXPECT_EQ(value("outputLimit"), "0");
  ASSERT_EQ(
      write("simulation", item("simulation", "1") + item("simulationValue", "2.5") + item("simulationQuality", "1") + item("simulationLimit", "2")),
      "");
  EXPECT_EQ(value("consistency"), "2.5");
  EXPECT_EQ(value("outputValue"), "2.5");
  EXPECT_EQ(value("outputQuality"), "1");
  EXPECT_EQ(value("outputLimit"), "2");
  EXPECT_EQ(value("statusSimulationActive"), "1");
  EXPECT_GT(number("consistencyUnfiltered"), 3);
  ASSERT_EQ(write("simulation", item("simulation", "0")), "");
  EXPECT_GT(number("consistency"), 3);
  EXPECT_EQ(value("statusSimulationActive"), "0");
}

TEST_F(ProfibusBladeTest, TheModeDeterminesTheOutput) {
  const std::string held = value("outputValue");
  ASSERT_EQ(write("simulation", item("targetMode", "1")), "");
  EXPECT_EQ(value("actualMode"), "1");
  const double now = number("outputValue");
  desktop->advance(300);
  EXPECT_EQ(number("outputValue"), now);
  EXPECT_NEAR(now, parseNumber(held, '.').value_or(0), 0.2);
  EXPECT_EQ(value("outputQuality"), "0");
  EXPECT_EQ(value("outputLimit"), "3");
  // Out of service the value stands too, and is not to be used; neither a simulation nor a test gets through.
  ASSERT_EQ(write("simulation", item("targetMode", "2") + item("simulation", "1") + item("simulationValue", "1")), "");
  ASSERT_EQ(write("loopTest", item("loopTestValue", "0.5")), "");
  EXPECT_EQ(value("actualMode"), "2");
  EXPECT_EQ(number("outputValue"), now);
  EXPECT_EQ(value("outputQuality"), "2");
  EXPECT_EQ(value("outputLimit"), "3");
  ASSERT_EQ(write("loopTest", item("loopTestValue", "0")), "");
  ASSERT_EQ(write("simulation", item("targetMode", "0") + item("simulation", "0")), "");
  const double last = number("outputValue");
  device->setFault("failure", "memory");
  EXPECT_EQ(value("actualMode"), "2");
  EXPECT_EQ(value("targetMode"), "0");
  EXPECT_NEAR(number("outputValue"), last, 0.1);
  EXPECT_EQ(value("outputQuality"), "2");
  device->setFault("none", "");
  EXPECT_EQ(value("actualMode"), "0");
}

TEST_F(ProfibusBladeTest, ATestIsNotHeldWhenItIsOver) {
  ASSERT_EQ(write("loopTest", item("loopTestValue", "0.5")), "");
  ASSERT_EQ(write("simulation", item("targetMode", "1")), "");
  EXPECT_EQ(value("outputValue"), "0.5");
  ASSERT_EQ(write("loopTest", item("loopTestValue", "0")), "");
  EXPECT_GT(number("outputValue"), 3);
}

TEST_F(ProfibusBladeTest, TheModulesAreWhatASlotCanHold) {
  ASSERT_EQ(write("moduleSelection", item("consistencyModule", "2") + item("activeRecipeModule", "3")), "");
  EXPECT_EQ(value("consistencyModule"), "2");
  EXPECT_EQ(write("moduleSelection", item("processTemperatureModule", "2")), "profibusErrInvalidParameter");
  EXPECT_EQ(value("processTemperatureModule"), "1");
}

TEST_F(ProfibusBladeTest, WithoutPowerNoSimulationGoesOn) {
  ASSERT_EQ(write("simulation", item("simulation", "1") + item("simulationValue", "2.5")), "");
  ASSERT_EQ(execute(3), "");
  ASSERT_EQ(write("loopTest", item("loopTestValue", "0.5")), "");
  device->setFault("powerCycle", "");
  EXPECT_GT(number("outputValue"), 3);
  EXPECT_THAT(raised(), IsEmpty());
  for (const char* bit : {"statusSimulationActive", "statusSamplingActive", "statusLoopTestActive"}) EXPECT_EQ(value(bit), "0");
  EXPECT_EQ(quality(1), "1");
}

TEST_F(ProfibusBladeTest, AFailedSensorShows) {
  device->setFault("failure", "sensor");
  EXPECT_EQ(value("statusSensorFailure"), "1");
  EXPECT_EQ(value("outputQuality"), "1");  // the last valid value
  ASSERT_EQ(write("failSafeAction", item("failSafeType", "3")), "");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(value("outputQuality"), "2");
  EXPECT_EQ(write("failSafeAction", item("failSafeType", "2")), "profibusErrInvalidParameter");  // there is no alarm current
}

TEST_F(ProfibusBladeTest, OutOfLimitsIsTheOnlyBitOfTheOtherBus) {
  EXPECT_EQ(value("statusHARTPVOutOfLimits"), "0");
  ASSERT_EQ(write("recipes", item("recipe1LinearizationSlopeP1", "9")), "");
  EXPECT_EQ(value("statusHARTPVOutOfLimits"), "1");
  EXPECT_EQ(value("outputQuality"), "1");
  EXPECT_EQ(errorOf(ask(readOf({"statusHARTColdStart"}))), "missingItems");
}

TEST_F(ProfibusBladeTest, TheSensorLimitsAreTheRange) {
  EXPECT_EQ(value("outputLimit"), "0");
  const double before = number("eventLogWarningCount02");
  ASSERT_EQ(value("eventLogWarningEvent02"), "eventConsistencyAboveRange");
  ASSERT_EQ(write("recipes", item("recipe1LinearizationSlopeP1", "9")), "");
  EXPECT_EQ(value("statusHARTPVOutOfLimits"), "1");
  EXPECT_EQ(value("outputLimit"), "2");
  EXPECT_EQ(value("outputQuality"), "1");
  EXPECT_EQ(number("eventLogWarningCount02"), before + 1);
}

TEST_F(ProfibusBladeTest, EventLogsAreResetOneByOne) {
  EXPECT_EQ(value("eventLogErrorCount01"), "2");
  EXPECT_EQ(execute(150, "resetingEventLog"), "");
  EXPECT_THAT(raised(), ElementsAre("OK"));
  for (const char* name : {"eventLogErrorEvent01", "eventLogErrorEvent02", "eventLogErrorEvent08"}) EXPECT_EQ(value(name), "");
  EXPECT_EQ(value("eventLogErrorCount01"), "0");
  EXPECT_NE(value("eventLogWarningEvent01"), "");
  EXPECT_EQ(value("eventLogInfoEvent05"), "eventLogReset");
  EXPECT_EQ(execute(151, "resetingEventLog"), "");
  EXPECT_EQ(value("eventLogWarningEvent01"), "");
  EXPECT_EQ(value("eventLogInfoCount05"), "2");
  EXPECT_EQ(execute(152, "resetingEventLog"), "");
  EXPECT_EQ(value("eventLogInfoEvent01"), "eventLogReset");
  EXPECT_EQ(value("eventLogInfoCount01"), "1");
  EXPECT_EQ(value("eventLogInfoEvent02"), "");
}

}  // namespace
}  // namespace ostrand::test
