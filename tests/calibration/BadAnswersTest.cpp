#include "calibration/CalibrationBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

// Answers as a damaged line or another master may bring them. Nothing of them is believed but what they say.
class BadAnswersTest : public testing::TestWithParam<Way> {
 protected:
  const Way way = GetParam();
  CalibrationBench bench{way};

  // What a stopped sample is answered with.
  std::string sample(int n, const std::string& average, const std::string& deviation, const char* quality = "0") const {
    const std::string name = "sample" + std::to_string(n);
    const std::string values = itemXml(name + "ConsistencyAverage", average, "floatVal") + itemXml(name + "Deviation", deviation, "floatVal");
    // A status item makes it a status document.
    return way == Way::Profibus ? values + itemXml(name + "Quality", quality, "integerVal") + itemXml("actionStatusOther", "0", "integerVal")
                                : values;
  }
  void stopped(int n) {
    bench.take(n).click();
    bench.stop(n).click();
    bench.lines();
  }
  std::string shown(int n) { return bench.average(n).Text() + " " + bench.deviation(n).Text(); }
  Lines verdictOf(int n, bool isLarge) const {
    const std::string message = "sample" + std::to_string(n) + "DeviationLarge";
    if (way != Way::Profibus) return isLarge ? Lines{"ShowMessage \"warning\" \"" + message + "\""} : Lines{};
    return {isLarge ? "ShowMessage \"error\" \"" + message + "\"" : R"(ShowMessage "sampling" "actionStatusOK")"};
  }
  // Numbers are read on HART alone; there what cannot be read is told by who reads it.
  void announceUnreadable(int number) {
    if (way == Way::Hart) bench.messenger->announce("BusHart IBusDependent_CalibrationSetOnlineData: ", number);
    if (way == Way::Fjell) bench.announce("ITaviDataUser_setOnlineData", number);
  }
  Lines withoutReports() {
    Lines all = bench.lines();
    std::erase_if(all, [](const std::string& line) { return line.starts_with("ReportError"); });
    return all;
  }
  // The next good answer is shown as if nothing had been.
  void expectInUse() {
    stopped(1);
    bench.online("sampling", sample(1, "2.25", "0.01"));
    EXPECT_EQ(shown(1), "2.25 0.010");
    EXPECT_EQ(bench.lines(), verdictOf(1, false));
  }
};

INSTANTIATE_TEST_SUITE_P(Ways, BadAnswersTest, testing::Values(Way::Hart, Way::Profibus, Way::Fjell),
                         [](const auto& each) { return nameOf(each.param); });

TEST_P(BadAnswersTest, AnAnswerThatComesTwice) {
  stopped(1);
  for (int i = 0; i < 2; ++i) {
    bench.online("sampling", sample(1, "2.50", "0.50", "1"));
    EXPECT_EQ(shown(1), "2.50 0.500");
    // A sample's verdict is told once on PROFIBUS; on HART each answer is judged anew.
    EXPECT_EQ(bench.lines(), i == 0 || way != Way::Profibus ? verdictOf(1, true) : Lines{});
  }
  expectInUse();
}

TEST_P(BadAnswersTest, AnAnswerThatNobodyWaitsFor) {
  bench.online("sampling", sample(1, "2.50", "0.01"));
  EXPECT_EQ(shown(1), "2.50 0.010") << "what the device says is shown";
  EXPECT_THAT(bench.lines(), IsEmpty()) << "and there is nothing to judge";
  expectInUse();
}

TEST_P(BadAnswersTest, AnAnswerThatIsLate) {
  stopped(1);
  bench.take(2).click();
  bench.lines();
  bench.online("sampling", sample(1, "2.50", "0.01"));
  EXPECT_EQ(shown(1), "2.50 0.010");
  EXPECT_EQ(shown(2), " ") << "the sample that runs has no values yet";
  EXPECT_TRUE(bench.average(2).Modified());
  EXPECT_THAT(bench.lines(), IsEmpty()) << "on PROFIBUS it is read as the answer to the start";
}

TEST_P(BadAnswersTest, AnswersInTheWrongOrder) {
  stopped(1);
  stopped(2);
  bench.online("sampling", sample(2, "3.50", "0.90", "1"));
  EXPECT_EQ(bench.lines(), verdictOf(2, true));
  bench.online("sampling", sample(1, "2.50", "0.01"));
  EXPECT_THAT(bench.lines(), IsEmpty());
  EXPECT_EQ(shown(1) + ", " + shown(2), "2.50 0.010, 3.50 0.900");
}

TEST_P(BadAnswersTest, AnAnswerOfAnotherName) {
  stopped(1);
  const std::string before = bench.get<CtrDateLabel>("ctrDateLabels(1)").Caption();
  bench.online("activeRecipe", sample(1, "2.50", "0.50", "1"));
  EXPECT_EQ(shown(1), "2.50 0.500") << "values are known by their items";
  EXPECT_EQ(bench.get<CtrDateLabel>("ctrDateLabels(1)").Caption(), before) << "the stamp by the name";
  EXPECT_EQ(bench.lines(), verdictOf(1, true));
  bench.online("sampling");
  EXPECT_NE(bench.get<CtrDateLabel>("ctrDateLabels(1)").Caption(), before);
  EXPECT_EQ(shown(1), "2.50 0.500") << "items that are not there take nothing away";
}

TEST_P(BadAnswersTest, NotANumber) {
  stopped(1);
  announceUnreadable(13);
  bench.online("sampling", sample(1, "2.50", "NaN") + sample(2, "3.50", "0.90"));
  EXPECT_EQ(bench.average(1).Text(), "2.50");
  EXPECT_FALSE(bench.deviation(1).Modified());
  // The strategy ends there; the low-consistency view looks at the other sample all the same.
  EXPECT_EQ(withoutReports(), way == Way::Fjell ? verdictOf(2, true) : way == Way::Profibus ? verdictOf(1, false) : Lines{});
  expectInUse();
}

TEST_P(BadAnswersTest, NeitherIsANumber) {
  stopped(1);
  announceUnreadable(13);
  // Each that the low-consistency view cannot read is told.
  if (way == Way::Fjell) announceUnreadable(13);
  bench.online("sampling", sample(1, "NaN", "-Inf"));
  EXPECT_EQ(withoutReports(), way == Way::Profibus ? verdictOf(1, false) : Lines{});
  expectInUse();
}

TEST_P(BadAnswersTest, ANumberWithAComma) {
  stopped(1);
  announceUnreadable(13);
  if (way == Way::Fjell) announceUnreadable(13);
  bench.online("sampling", sample(1, "2,50", "0,9"));
  expectInUse();
}

TEST_P(BadAnswersTest, EmptyValues) {
  stopped(1);
  announceUnreadable(13);
  if (way == Way::Fjell) announceUnreadable(13);
  bench.online("sampling", sample(1, "", ""));
  EXPECT_EQ(shown(1), " ");
  EXPECT_FALSE(bench.average(1).Modified()) << "the device has said so";
  expectInUse();
}

TEST_P(BadAnswersTest, ItemsWithoutAValue) {
  stopped(1);
  announceUnreadable(91);
  if (way == Way::Fjell) announceUnreadable(91);
  bench.online("sampling", "<comm:item name='sample1Deviation'/><comm:item name='sample1ConsistencyAverage'/>");
  EXPECT_EQ(shown(1), " ");
  EXPECT_TRUE(bench.average(1).Modified()) << "nothing was said";
  expectInUse();
}

TEST_P(BadAnswersTest, AnAnswerThatDoesNotSayWhetherItIsTheLast) {
  stopped(1);
  bench.online("sampling", sample(1, "2.50", "0.01"), "");
  EXPECT_EQ(shown(1), "2.50 0.010");
  EXPECT_EQ(bench.lines(), verdictOf(1, false));
  announceUnreadable(91);
  bench.online("laboratoryResults", {}, "");
  EXPECT_THAT(withoutReports(), IsEmpty());
  expectInUse();
}

TEST_P(BadAnswersTest, AnAnswerWithoutAName) {
  stopped(1);
  bench.messenger->announce("modView setOnlineData: ", 91);
  announceUnreadable(91);
  bench.view->SetOnlineData(answer("access=\"read\" isFinal=\"1\" responseStatus=\"device\"", sample(1, "2.50", "0.01")));
  EXPECT_EQ(shown(1), "2.50 0.010");
  bench.lines();
  expectInUse();
}

TEST_P(BadAnswersTest, AnAnswerThatIsNone) {
  for (const char* text : {"<noise/>", "<comm:dtm/>", "<comm:dtm><comm:other/></comm:dtm>"}) {
    bench.messenger->takesAnyReport = true;
    const std::string before = shown(1);
    bench.view->SetOnlineData(Document::read(text));
    bench.view->SetErrorData(Document::read(text));
    EXPECT_EQ(shown(1), before) << text;
    EXPECT_FALSE(bench.messenger->reports.empty()) << text;
    bench.messenger->takesAnyReport = false;
    bench.messenger->reports.clear();
    bench.lines();
    expectInUse();
  }
}

TEST_P(BadAnswersTest, AnItemThatComesTwice) {
  stopped(1);
  bench.online("sampling", sample(1, "2.50", "0.01") + sample(1, "9.99", "9.99"));
  EXPECT_EQ(shown(1), "2.50 0.010") << "the first one counts";
  EXPECT_EQ(bench.lines(), verdictOf(1, false));
}

TEST_P(BadAnswersTest, AStatusThatNobodyKnows) {
  stopped(1);
  bench.online("sampling", itemXml("actionStatusSomethingNew", "1", "integerVal"));
  EXPECT_EQ(bench.lines(), way == Way::Profibus ? verdictOf(1, false) : Lines{}) << "only what is asked for is looked at";
  bench.online("sampling", itemXml("sample3Quality", "1", "integerVal") + itemXml("", "1", "integerVal"));
  EXPECT_THAT(bench.lines(), IsEmpty());
}

TEST_P(BadAnswersTest, AnErrorThatNobodyKnows) {
  stopped(1);
  bench.view->SetErrorData(answer("name=\"sampling\" errorCode=\"somethingNew\"", "<comm:item name=\"sample1Deviation\"/>"));
  EXPECT_THAT(bench.lines(), ElementsAre(R"(ShowMessage "T:error" "T:somethingNew\r\n\"sample1Deviation\"\r\n")"));
  EXPECT_EQ(bench.deviation(1).Error(), "");
  EXPECT_EQ(shown(1), " ");
  expectInUse();
}

TEST_P(BadAnswersTest, AnErrorInTheMiddleOfASample) {
  bench.take(1).click();
  bench.lines();
  bench.view->SetErrorData(answer("name=\"sampling\" errorCode=\"communicationError\"", "<comm:item name=\"sample1Deviation\"/>"));
  EXPECT_THAT(bench.lines(), ElementsAre(R"(ShowMessage "T:error" "T:communicationError\r\n\"sample1Deviation\"\r\n")"));
  EXPECT_EQ(bench.visible(), "S1 T2") << "the sample goes on";
  EXPECT_EQ(bench.deviation(1).Error(), "communicationError");
  bench.stop(1).click();
  bench.lines();
  bench.online("sampling", sample(1, "2.50", "0.01"));
  EXPECT_EQ(bench.deviation(1).Error(), "");
}

TEST_P(BadAnswersTest, WhatTheHostMadeUpIsShownToo) {
  stopped(1);
  bench.view->SetOnlineData(answer("name=\"sampling\" access=\"read\" isFinal=\"1\" responseStatus=\"local\"", sample(1, "2.50", "0.01")));
  EXPECT_EQ(shown(1), "2.50 0.010");
}

TEST_P(BadAnswersTest, AValueBeyondItsLimitsIsShownAsItIs) {
  stopped(1);
  bench.online("sampling", sample(1, "99", "0.01"));
  EXPECT_EQ(shown(1), "99.00 0.010");
  EXPECT_FALSE(bench.average(1).Correct());
}

TEST_P(BadAnswersTest, AnAnswerWhileAMessageIsOpen) {
  stopped(1);
  bench.calls.during("ShowMessage", [&] { bench.online("sampling", sample(1, "3.00", "0.01")); });
  bench.online("sampling", sample(1, "2.50", "0.50", "1"));
  EXPECT_EQ(shown(1), "3.00 0.010") << "the later one stays";
  // The verdict that is on the screen is not given up yet: on PROFIBUS the second answer is judged under it.
  Lines expected = verdictOf(1, true);
  if (way == Way::Profibus) expected.push_back(verdictOf(1, false).front());
  EXPECT_EQ(bench.lines(), expected);
}

TEST_P(BadAnswersTest, ARoundOfDataSetsAndAnswersAddsNoListener) {
  const std::size_t before = bench.messenger->listeners();
  for (int i = 0; i < 20; ++i) {
    bench.view->SetMessenger(bench.messenger);
    bench.view->SetOfflineData(dataSetOf(way));
    expectInUse();
  }
  EXPECT_EQ(bench.messenger->listeners(), before);
}

}  // namespace
}  // namespace ostrand::test
