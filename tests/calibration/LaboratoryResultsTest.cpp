#include "calibration/CalibrationBench.h"
#include "support/ErrorOf.h"
#include "support/RecordingProbe.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kVerdict = R"(ShowMessage "laboratoryResults" "calibrationWasSuccessfullPleaseUpdateRecipesView")";
constexpr const char* kTypes[] = {"useSample1Only", "useSample2Only", "useBothSamples"};

class LaboratoryResultsTest : public testing::TestWithParam<Way> {
 protected:
  const Way way = GetParam();
  CalibrationBench bench{way};

  // "3.21 open" or "0 closed".
  std::string field(int sample) {
    CtrTextEdit& value = bench.laboratoryValue(sample);
    EXPECT_EQ(value.Enabled(), value.TabStop());
    return value.Text() + (value.Enabled() ? " open" : " closed");
  }
  std::string fields() { return field(1) + ", " + field(2); }
  // Ready to be accepted: both samples.
  void fill() {
    bench.calibrationType().choose("useBothSamples");
    bench.laboratoryValue(1).type("1.4");
    bench.laboratoryValue(2).type("1.6");
    bench.laboratoryRecipe().choose("recipe2");
    bench.calls.take();
  }
  std::string write(const std::string& first, const std::string& second, const std::string& type, const std::string& recipe = "2") const {
    return std::string("DTMGUIDownload write laboratoryResults: ") + (way == Way::Fjell ? "" : "sampleFiller=0.0 ") + "laboratoryValue1=" + first +
           " laboratoryValue2=" + second + " calibrationType=" + type + " laboratoryRecipe=" + recipe;
  }
  // What follows the write.
  std::vector<std::string> written(const std::string& line) const {
    std::vector<std::string> lines{line};
    if (way == Way::Profibus) lines.push_back("ReadRequest read laboratoryResults: actionStatus");
    return lines;
  }
};

INSTANTIATE_TEST_SUITE_P(Ways, LaboratoryResultsTest, testing::Values(Way::Hart, Way::Profibus, Way::Fjell),
                         [](const auto& each) { return nameOf(each.param); });

TEST_P(LaboratoryResultsTest, TheFrameHoldsItsControls) {
  std::vector<std::string> names = {"sampleFiller", "laboratoryValue1", "laboratoryValue2", "calibrationType", "laboratoryRecipe"};
  if (way == Way::Fjell) names.erase(names.begin());
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(bench.get("lblLaboratoryResults(" + std::to_string(i) + ")").Tag(), names[i]);
    const std::size_t texts = names.size() - 2;
    const std::string control =
        i < texts ? "cte_laboratoryResults(" + std::to_string(i) + ")" : "cce_laboratoryResults(" + std::to_string(i - texts) + ")";
    EXPECT_EQ(bench.get(control).Tag(), "ctr_" + names[i]);
  }
  EXPECT_EQ(bench.accept().Tag(), "accept");
  EXPECT_EQ(bench.accept().Caption(), "Accept");
  bench.view->SetSelectedView("laboratoryResults");
  bench.view->RequestFocus();
  EXPECT_EQ(bench.view->focused(), &bench.calibrationType());
}

TEST_P(LaboratoryResultsTest, EveryEditOfTheTwoFramesIsAppliedByItsButton) {
  for (Control* control : bench.view->GetControls()) {
    auto* const edit = dynamic_cast<EditControl*>(control);
    if (!edit) continue;
    EXPECT_EQ(edit->ExplicitApply(), !edit->name().starts_with("cte_sampling")) << edit->name();
    EXPECT_FALSE(edit->KeepLocal()) << edit->name();
  }
  fill();
  bench.slope(1).type("1.1");
  bench.calls.take();
  bench.messenger->raiseGetChanges(2);
  EXPECT_THAT(bench.lines(), IsEmpty()) << "nothing of it travels with the host's collection";
}

// --- the calibration type

TEST_P(LaboratoryResultsTest, TheTypeOpensAndClosesTheFields) {
  const char* const kExpected[] = {" open, 0 closed", "0 closed,  open", " open,  open"};
  for (int before = 0; before < 3; ++before)
    for (int after = 0; after < 3; ++after) {
      if (before == after) continue;
      bench.calibrationType().choose(kTypes[before]);
      for (const int sample : {1, 2})
        if (bench.laboratoryValue(sample).Enabled()) bench.laboratoryValue(sample).type("1.5");
      bench.calibrationType().choose(kTypes[after]);
      EXPECT_EQ(fields(), kExpected[after]) << kTypes[before] << " to " << kTypes[after];
    }
  for (const char* other : {"useNoSample", "", "usesample1only"}) {
    bench.calibrationType().choose("useBothSamples");
    bench.calibrationType().Text(other);
    EXPECT_EQ(fields(), "0 closed, 0 closed") << other;
  }
}

TEST_P(LaboratoryResultsTest, TheFirstValueIsHandledFirst) {
  bench.calibrationType().choose("useBothSamples");
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  bench.calibrationType().choose("useSample2Only");
  bench.desktop.setProbe(nullptr);
  const std::string one = bench.laboratoryValue(1).name(), two = bench.laboratoryValue(2).name();
  EXPECT_THAT(probe.calls.take(), ElementsAre(one + ".Text = \"0\"", one + ".Enabled = false", one + ".TabStop = false", two + ".Text = \"\"",
                                              two + ".Enabled = true", two + ".TabStop = true"));
}

TEST_P(LaboratoryResultsTest, TheOtherComboHasNoEffect) {
  bench.calibrationType().choose("useSample1Only");
  bench.laboratoryRecipe().choose("recipe3");
  bench.laboratoryRecipe().Text("useSample2Only");
  EXPECT_EQ(fields(), " open, 0 closed");
}

TEST_P(LaboratoryResultsTest, ADataSetLeavesAClosedFieldClosed) {
  Document doc = dataSetOf(way);
  doc.select("//data:parameter[@name='calibrationType']").setAttribute("value", "1");
  bench.view->SetOfflineData(doc);
  // Both had a value in the data set. The walk came to the type last.
  EXPECT_EQ(fields(), " open, 0 closed");
}

TEST_P(LaboratoryResultsTest, AnAnswerOfTheDeviceOpensAndClosesTheFieldsToo) {
  bench.calibrationType().choose("useBothSamples");
  bench.laboratoryValue(1).type("1.4");
  bench.online("laboratoryResults", itemXml("calibrationType", "2", "integerVal"), "isFinal=\"0\"");
  EXPECT_EQ(fields(), "0 closed,  open");
  bench.laboratoryValue(2).type("1.6");
  bench.online("laboratoryResults", itemXml("calibrationType", "2", "integerVal"), "isFinal=\"0\"");
  EXPECT_EQ(fields(), "0 closed, " + bench.laboratoryValue(2).Text() + " open") << "the type has not changed";
  EXPECT_NE(bench.laboratoryValue(2).Text(), "");
}

TEST_P(LaboratoryResultsTest, AFailingFieldCostsItsOwnStepOnly) {
  bench.calibrationType().choose("useBothSamples");
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail(bench.laboratoryValue(1).name() + ".Enabled =");
  bench.announce("cce_laboratoryResults_Change");
  bench.calibrationType().choose("useSample2Only");
  bench.desktop.setProbe(nullptr);
  EXPECT_EQ(bench.laboratoryValue(1).Text(), "0");
  EXPECT_FALSE(bench.laboratoryValue(1).TabStop());
  EXPECT_EQ(field(2), " open");
}

// --- accepting

TEST_P(LaboratoryResultsTest, TheResultsAreWrittenInTheirOrder) {
  fill();
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.40", "1.60", "3")));
}

TEST_P(LaboratoryResultsTest, TheWholeTextOfTheRequest) {
  fill();
  bench.accept().click();
  const std::string filler = way == Way::Fjell ? "" : R"(<item name="sampleFiller" unit="%"><floatVal>0.0</floatVal></item>)";
  EXPECT_EQ(bench.calls.lines.front(), R"(DTMGUIDownload "laboratoryResults" 1 | <communicationRequest name="laboratoryResults" access="write">)" +
                                           filler +
                                           R"(<item name="laboratoryValue1" unit="%Cs"><floatVal>1.40</floatVal></item>)"
                                           R"(<item name="laboratoryValue2" unit="%Cs"><floatVal>1.60</floatVal></item>)"
                                           R"(<item name="calibrationType" unit="noUnit"><integerVal>3</integerVal></item>)"
                                           R"(<item name="laboratoryRecipe" unit="noUnit"><integerVal>2</integerVal></item></communicationRequest>)");
}

TEST_P(LaboratoryResultsTest, AClosedFieldGoesToTheDeviceAsZero) {
  fill();
  bench.calibrationType().choose("useSample1Only");
  bench.laboratoryValue(1).type("1.5");
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.50", "0", "1")));
  bench.calibrationType().choose("useSample2Only");
  bench.laboratoryValue(2).type("1.3");
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("0", "1.30", "2")));
}

TEST_P(LaboratoryResultsTest, AClosedFieldGoesAsZeroAlsoWhereAReadHasFilledIt) {
  fill();
  bench.calibrationType().choose("useSample1Only");
  bench.laboratoryValue(1).type("1.5");
  bench.online("laboratoryResults", itemXml("laboratoryValue2", "1.7", "floatVal"), "isFinal=\"0\"");
  EXPECT_NE(bench.laboratoryValue(2).Text(), "0");
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.50", "0", "1")));
}

TEST_P(LaboratoryResultsTest, TheItemsAreAskedWithTheFlag) {
  fill();
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  bench.accept().click();
  bench.desktop.setProbe(nullptr);
  std::vector<std::string> lines = probe.calls.take();
  std::erase_if(lines, [](const std::string& line) { return line.find("GetXmlItem") == line.npos; });
  EXPECT_EQ(lines.size(), way == Way::Fjell ? 4u : 5u);
  EXPECT_THAT(lines, testing::Each(testing::EndsWith("GetXmlItem true")));
}

TEST_P(LaboratoryResultsTest, EveryFieldMustBeFilledAndCorrect) {
  fill();
  std::vector<EditControl*> edits = {&bench.laboratoryValue(1), &bench.laboratoryValue(2), &bench.calibrationType(), &bench.laboratoryRecipe()};
  if (way != Way::Fjell) edits.push_back(&bench.get<EditControl>("cte_laboratoryResults(0)"));
  for (EditControl* edit : edits) {
    fill();
    edit->Text("");
    bench.accept().click();
    EXPECT_THAT(bench.lines(), ElementsAre(kCheckTheValues)) << edit->name() << " empty";
    fill();
    if (way != Way::Fjell) bench.get<EditControl>("cte_laboratoryResults(0)").Text("0.0");
    edit->Correct(false);
    bench.accept().click();
    EXPECT_THAT(bench.lines(), ElementsAre(kCheckTheValues)) << edit->name() << " wrong";
    edit->Correct(true);
  }
}

TEST_P(LaboratoryResultsTest, ATypedValueThatDoesNotPassStopsTheWrite) {
  for (const char* typed : {"-1", "99", "abc", "1.5.5", "", "nan", "inf", "1e9", " "}) {
    fill();
    bench.laboratoryValue(2).type(typed);
    bench.accept().click();
    EXPECT_THAT(bench.lines(), ElementsAre(kCheckTheValues)) << typed;
  }
  fill();
  bench.laboratoryValue(2).type("0");
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.40", "0.00", "3"))) << "the limits themselves pass, and the view compares nothing";
}

TEST_P(LaboratoryResultsTest, AValueMayBeTypedWithEitherSeparator) {
  for (const char* locale : {"en", "fi", "sv", "de"}) {
    ASSERT_TRUE(bench.desktop.setLocale(locale));
    for (const char* typed : {"1.45", "1,45"}) {
      bench.calibrationType().choose("useSample1Only");
      fill();
      bench.laboratoryValue(1).type(typed);
      EXPECT_EQ(bench.laboratoryValue(1).Text(), std::string(locale) == "en" ? "1.45" : "1,45");
      bench.accept().click();
      EXPECT_EQ(bench.lines(), written(write("1.45", std::string("1.60"), "3"))) << locale << " " << typed;
    }
  }
}

TEST_P(LaboratoryResultsTest, TheCombosAreLookedAtAlsoBehindAWrongText) {
  fill();
  bench.laboratoryValue(1).Text("");
  RecordingProbe probe;
  probe.readings = true;
  bench.desktop.setProbe(&probe);
  bench.accept().click();
  bench.desktop.setProbe(nullptr);
  const auto lines = probe.calls.take();
  EXPECT_THAT(lines, testing::Contains(bench.calibrationType().name() + ".Correct?"));
  EXPECT_THAT(lines, testing::Not(testing::Contains(bench.laboratoryValue(2).name() + ".Correct?"))) << "the loop of the texts has ended";
}

TEST_P(LaboratoryResultsTest, NothingIsComparedAndNoSampleIsAskedFor) {
  fill();
  bench.laboratoryValue(1).type("1.4");
  bench.laboratoryValue(2).type("1.4");
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.40", "1.40", "3")));
}

TEST_P(LaboratoryResultsTest, WithoutADataSetNothingIsWritten) {
  CalibrationBench empty(way, "HART");
  empty.accept().click();
  EXPECT_THAT(empty.lines(), ElementsAre(kCheckTheValues)) << "no type is chosen";
}

// --- the device's verdict

TEST_P(LaboratoryResultsTest, TheVerdictIsTold) {
  fill();
  bench.accept().click();
  bench.lines();
  bench.online("laboratoryResults", itemXml("actionStatusOK", "1", "integerVal"), "isFinal=\"1\"");
  EXPECT_THAT(bench.lines(), ElementsAre(kVerdict));
  bench.online("laboratoryResults", itemXml("actionStatusOK", "1", "integerVal"), "isFinal=\"1\"");
  EXPECT_THAT(bench.lines(), ElementsAre(kVerdict)) << "once for each such document";
  bench.online("laboratoryResults", {}, "isFinal=\"0\"");
  EXPECT_THAT(bench.lines(), IsEmpty()) << "it is not the last one, and no status document";
  bench.online("recipes");
  EXPECT_THAT(bench.lines(), IsEmpty());
}

TEST_P(LaboratoryResultsTest, AfterARefusalTheFieldsKeepWhatWasTyped) {
  fill();
  bench.accept().click();
  bench.lines();
  bench.view->SetErrorData(answer("name=\"laboratoryResults\" access=\"write\" isFinal=\"1\" errorCode=\"hartCmdErrSuspiciousCalibration\"",
                                  "<comm:item name=\"laboratoryValue1\"/><comm:item name=\"laboratoryValue2\"/>"));
  EXPECT_THAT(bench.lines(),
              ElementsAre(R"(ShowMessage "T:error" "T:hartCmdErrSuspiciousCalibration\r\n\"laboratoryValue1\"\r\n\"laboratoryValue2\"\r\n")"));
  EXPECT_EQ(fields(), "1.40 open, 1.60 open");
  EXPECT_EQ(bench.laboratoryValue(1).Error(), "hartCmdErrSuspiciousCalibration");
  EXPECT_TRUE(bench.laboratoryValue(1).Modified());
  bench.accept().click();
  EXPECT_EQ(bench.lines(), written(write("1.40", "1.60", "3"))) << "and can be tried again";
}

// --- levels and modes

TEST_P(LaboratoryResultsTest, BothWriteButtonsFollowLevelAndMode) {
  for (CommandButton* button : {&bench.accept(), &bench.apply()}) {
    EXPECT_TRUE(button->Enabled());
    bench.messenger->raiseMode(10);
    EXPECT_EQ(button->Tag(), "accept");
    EXPECT_EQ(button->Caption(), "T:accept");
    bench.messenger->raiseMode(11);
    EXPECT_EQ(button->Tag(), "download");
    EXPECT_EQ(button->Caption(), "T:download");
    bench.messenger->raiseMode(20);
    EXPECT_FALSE(button->Enabled());
    button->Caption("x");
    bench.messenger->raiseMode(12);
    EXPECT_EQ(button->Caption(), "T:download") << "after any mode";
    EXPECT_FALSE(button->Enabled());
    bench.messenger->userLevel = 2;
    bench.messenger->raiseMode(21);
    EXPECT_FALSE(button->Enabled()) << "it stays as it is";
    bench.messenger->userLevel = 3;
    bench.messenger->raiseMode(21);
    EXPECT_TRUE(button->Enabled());
    bench.messenger->userLevel = 2;
    bench.messenger->raiseMode(21);
    EXPECT_TRUE(button->Enabled()) << "it stays as it is";
    bench.view->SetMessenger(bench.messenger);
    EXPECT_FALSE(button->Enabled());
    bench.messenger->userLevel = 4;
    bench.view->SetMessenger(bench.messenger);
    EXPECT_TRUE(button->Enabled());
  }
}

// --- failures

TEST_P(LaboratoryResultsTest, AWriteThatFailsIsReportedAndTheClickGoesOn) {
  fill();
  bench.calls.fail("DTMGUIDownload");
  bench.announce("sendValues");
  bench.accept().click();
  auto lines = bench.lines();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[1], R"(ReportError "VwCalibration sendValues: " 440)");
  EXPECT_EQ(lines.size(), way == Way::Profibus ? 3u : 2u) << "the status is asked for all the same";
}

TEST_P(LaboratoryResultsTest, AnItemThatFailsSendsNothing) {
  fill();
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail(bench.calibrationType().name() + ".GetXmlItem");
  bench.announce("sendValues");
  bench.accept().click();
  bench.desktop.setProbe(nullptr);
  EXPECT_THAT(bench.lines(), testing::Not(testing::Contains(testing::StartsWith("DTMGUIDownload"))));
}

TEST_P(LaboratoryResultsTest, AnErrorOfTheClickGoesToItsCaller) {
  fill();
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail(bench.laboratoryValue(2).name() + ".Correct?", 1, 7);
  EXPECT_EQ(errorOf([&] { bench.accept().click(); }), 7);
  bench.desktop.setProbe(nullptr);
  EXPECT_THAT(bench.lines(), IsEmpty());
  bench.laboratoryValue(1).Text("");
  bench.calls.fail("ShowMessage", 1, 8);
  EXPECT_EQ(errorOf([&] { bench.accept().click(); }), 8);
}

TEST_P(LaboratoryResultsTest, AfterTheReleaseTheClickHasNobodyToTell) {
  fill();
  bench.view->PrepareToRelease();
  if (way == Way::Fjell)
    bench.accept().click();
  else
    EXPECT_EQ(errorOf([&] { bench.accept().click(); }), 91);
  EXPECT_EQ(bench.lines().front(), write("1.40", "1.60", "3")) << "the parent is there until the end of the view";
}

TEST(LaboratoryResultsBusTest, APollThatFailsIsReportedOnceMore) {
  CalibrationBench bench(Way::Profibus);
  bench.calls.fail("ReadRequest");
  bench.messenger->announce("BusProfibus AskActionStatus: ", 440);
  bench.announce("LabCalibrateBtn_Click");
  bench.laboratoryValue(1).type("1.4");
  bench.laboratoryValue(2).type("1.6");
  if (bench.laboratoryRecipe().Text().empty()) bench.laboratoryRecipe().choose("recipe1");
  bench.accept().click();
}

TEST(LaboratoryResultsBusTest, WithoutAStrategyTheErrorLeavesTheClickBehindTheWrite) {
  CalibrationBench bench(Way::Hart, "");
  for (const char* name : {"cte_laboratoryResults(0)", "cte_laboratoryResults(1)", "cte_laboratoryResults(2)"})
    bench.get<CtrTextEdit>(name).Text("1");
  bench.calibrationType().Text("useBothSamples");
  bench.laboratoryRecipe().Text("recipe1");
  for (const int sample : {1, 2}) bench.laboratoryValue(sample).Text("1");
  bench.calls.take();
  EXPECT_EQ(errorOf([&] { bench.accept().click(); }), 91);
  EXPECT_THAT(bench.lines(), ElementsAre(testing::StartsWith("DTMGUIDownload write laboratoryResults:")));
}

TEST(LaboratoryResultsBusTest, TheStatusIsAskedForAfterOneSecond) {
  for (const Way way : {Way::Hart, Way::Profibus, Way::Fjell}) {
    CalibrationBench bench(way);
    bench.calibrationType().choose("useSample1Only");
    bench.laboratoryValue(1).type("1.4");
    const LocalTime before = bench.desktop.now();
    bench.accept().click();
    EXPECT_EQ(bench.desktop.now() - before, std::chrono::seconds(way == Way::Profibus ? 1 : 0)) << nameOf(way);
  }
}

TEST(LaboratoryResultsBusTest, AnotherSampleDuringTheWaitTakesOverTheAnswer) {
  CalibrationBench bench(Way::Profibus);
  bench.calibrationType().choose("useSample1Only");
  bench.laboratoryValue(1).type("1.4");
  bench.desktop.schedule(0.5, [&] { bench.take(1).click(); });
  bench.accept().click();
  bench.lines();
  bench.online("laboratoryResults", itemXml("actionStatusCalibrationError", "1", "integerVal"));
  EXPECT_THAT(bench.lines(), IsEmpty()) << "it is read as the answer to a start";
}

}  // namespace
}  // namespace ostrand::test
