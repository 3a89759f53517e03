#include "host/OutputWatch.h"

#include "host/HostBench.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

// Stands before a transmitter that answers by hand.
class OutputWatchTest : public HostTest {
 protected:
  void openDevice(const std::string& name) {
    host.openDataSet(sourceData() / "devices" / (name + ".xml"));
    diary.take();
  }
  static std::string write(const std::string& name, const std::vector<std::pair<std::string, std::string>>& items) {
    std::string xml = "<communicationRequest name=\"" + name + "\" access=\"write\">";
    for (const auto& [item, value] : items) xml += "<item name=\"" + item + "\" unit=\"noUnit\"><floatVal>" + value + "</floatVal></item>";
    return xml + "</communicationRequest>";
  }
  std::string send(const std::string& xml) { return host.exchange().submit("", xml, {}, {}, 0, 0); }
  void start(const std::string& item = "loopTestValue", const std::string& value = "12") { ASSERT_EQ(send(write("loopTest", {{item, value}})), ""); }
  // "loopTestValue confirmed": each watched output on a line.
  Lines forced() {
    Lines lines;
    for (const ForcedOutput& each : host.outputs().forced()) lines.push_back(each.item + (each.confirmed ? " confirmed" : ""));
    return lines;
  }
  static Document refusal(const std::string& name, const std::vector<std::string>& items, const std::string& code = "hartCmdErrInvalidSelection") {
    std::vector<std::pair<std::string, std::string>> named;
    for (const std::string& each : items) named.emplace_back(each, "");
    return answer(name, "write", named, "isFinal=\"1\" errorCode=\"" + code + "\"");
  }
  Lines onTheBus() {
    Lines lines;
    for (const auto& each : asked) lines.push_back(told(each.request));
    return lines;
  }
  int changes = 0;
  void SetUp() override {
    HostTest::SetUp();
    openDevice("hartBlade");
    host.outputs().changed.connect([this] { ++changes; });
  }
};

TEST_F(OutputWatchTest, AValueIsWatchedFromItsSendingUntilTheDeviceHasFreedIt) {
  start();
  EXPECT_EQ(forced(), Lines{"loopTestValue"});
  EXPECT_GT(changes, 0);
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  EXPECT_EQ(forced(), Lines{"loopTestValue confirmed"});
  start("loopTestValue", "0");
  EXPECT_EQ(forced(), Lines{"loopTestValue confirmed"}) << "sent is not done";
  reply(answer("loopTest", "write", {{"loopTestValue", "0"}}));
  EXPECT_FALSE(host.outputs().mayBeForced());
}

TEST_F(OutputWatchTest, AFaultOfTheCommunicationClearsNothing) {
  start();
  reply(refusal("loopTest", {"loopTestValue"}, "communicationError"));
  EXPECT_EQ(forced(), Lines{"loopTestValue"});
  start();
  desktop.wait(3);
  EXPECT_EQ(diary.lines.back(), "finished loopTest no answer");
  EXPECT_EQ(forced(), Lines{"loopTestValue"});
}

TEST_F(OutputWatchTest, ARefusalClearsTheItemsThatItNames) {
  openDevice("hartQX5");
  ASSERT_EQ(send(write("loopTest", {{"channel0LoopTestValue", "12"}, {"channel1LoopTestValue", "3"}, {"channel2LoopTestValue", "8"}})), "");
  reply(answer("loopTest", "write", {{"channel0LoopTestValue", "12"}}, "isFinal=\"0\""));
  reply(refusal("loopTest", {"channel1LoopTestValue"}));
  EXPECT_EQ(forced(), (Lines{"channel0LoopTestValue confirmed", "channel2LoopTestValue"}));
}

TEST_F(OutputWatchTest, ARefusalOfALaterValueProvesNothingOfAnEarlierOne) {
  start();
  desktop.wait(3);
  start("loopTestValue", "8");
  reply(refusal("loopTest", {"loopTestValue"}));
  EXPECT_EQ(forced(), Lines{"loopTestValue"});
}

TEST_F(OutputWatchTest, AChannelIsFreeWithinATenth) {
  openDevice("hartQX5");
  start("channel4LoopTestValue", "12");
  reply(answer("loopTest", "write", {{"channel4LoopTestValue", "0.2"}}));
  EXPECT_TRUE(host.outputs().mayBeForced(OutputKind::LoopTest));
  start("channel4LoopTestValue", "0");
  reply(answer("loopTest", "write", {{"channel4LoopTestValue", "0.1"}}));
  EXPECT_FALSE(host.outputs().mayBeForced());
}

TEST_F(OutputWatchTest, ASimulationIsWatchedAndWhatTheDeviceTellsOfItCounts) {
  openDevice("profibusBlade");
  asked.clear();
  ASSERT_EQ(send(write("simulation", {{"simulation", "1"}, {"simulationValue", "3"}})), "");
  EXPECT_TRUE(host.outputs().mayBeForced(OutputKind::Simulation));
  reply(answer("simulation", "write", {{"simulation", "1"}}));
  EXPECT_EQ(forced(), Lines{"simulation confirmed"});
  host.exchange().readGroup("simulation");
  reply(answer("simulation", "read", {{"simulation", "0"}}));
  EXPECT_TRUE(forced().empty()) << "somebody has switched it off";
  host.exchange().readGroup("simulation");
  reply(answer("simulation", "read", {{"simulation", "1"}}));
  EXPECT_EQ(forced(), Lines{"simulation confirmed"}) << "and on again";
}

TEST_F(OutputWatchTest, AReadingOfALoopTestProvesNothing) {
  start();
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  ASSERT_EQ(send("<communicationRequest name=\"loopTest\" access=\"read\"><item name=\"loopTestValue\"/></communicationRequest>"), "");
  reply(answer("loopTest", "read", {{"loopTestValue", "0"}}));
  EXPECT_TRUE(host.outputs().mayBeForced());
}

TEST_F(OutputWatchTest, FreeingNeedsNoViewAndTellsWhenTheDeviceHasConfirmed) {
  openDevice("hartQX5");
  ASSERT_EQ(send(write("loopTest", {{"channel0LoopTestValue", "12"}, {"channel3LoopTestValue", "8"}})), "");
  reply(answer("loopTest", "write", {{"channel0LoopTestValue", "12"}, {"channel3LoopTestValue", "8"}}));
  std::vector<bool> ended;
  host.outputs().freeOutput([&](bool free) { ended.push_back(free); });
  ASSERT_EQ(onTheBus(), Lines{"write loopTest: channel0LoopTestValue=0 channel3LoopTestValue=0"});
  EXPECT_TRUE(ended.empty());
  reply(answer("loopTest", "write", {{"channel0LoopTestValue", "0"}}, "isFinal=\"0\""));
  reply(refusal("loopTest", {"channel3LoopTestValue"}));
  EXPECT_EQ(ended, std::vector<bool>{false});
  EXPECT_EQ(forced(), Lines{"channel3LoopTestValue confirmed"});
  host.outputs().freeOutput([&](bool free) { ended.push_back(free); });
  reply(answer("loopTest", "write", {{"channel3LoopTestValue", "0"}}));
  EXPECT_EQ(ended, (std::vector<bool>{false, true}));
  host.outputs().freeOutput([&](bool free) { ended.push_back(free); });
  EXPECT_EQ(ended.size(), 3u) << "nothing to free";
}

TEST_F(OutputWatchTest, AStopWaitsForTheNextDevice) {
  start();
  host.outputs().freeOutput();
  ASSERT_EQ(onTheBus(), Lines{"write loopTest: loopTestValue=12"});
  host.connect(nullptr);
  EXPECT_TRUE(host.outputs().mayBeForced());
  asked.clear();
  host.connect(std::make_unique<HandDevice>(asked));
  ASSERT_EQ(onTheBus(), Lines{"write loopTest: loopTestValue=0"});
  host.connect(std::make_unique<HandDevice>(asked));
  ASSERT_EQ(asked.size(), 2u) << "one that is under way is put again too";
  asked.back().answer(answer("loopTest", "write", {{"loopTestValue", "0"}}));
  EXPECT_FALSE(host.outputs().mayBeForced());
}

TEST_F(OutputWatchTest, ASampleRunsFromItsStartUntilItsValuesHaveBeenRead) {
  ASSERT_EQ(send(write("sampling", {{"sampleStart", "1"}})), "");
  EXPECT_TRUE(host.outputs().sampling());
  reply(answer("sampling", "write", {{"sampleStart", "1"}}));
  host.exchange().readGroup("sampling");
  reply(answer("sampling", "read", {{"sample2Deviation", "0.1"}, {"sample2ConsistencyAverage", "3"}}));
  EXPECT_TRUE(host.outputs().sampling()) << "who reads them among others only looks";
  std::vector<bool> ended;
  host.outputs().stopSampling([&](bool stopped) { ended.push_back(stopped); });
  EXPECT_EQ(onTheBus(), Lines{"read sampling: sample2Deviation sample2ConsistencyAverage sample2ShearForceAverage"});
  reply(answer("sampling", "read", {{"sample2Deviation", "0.1"}, {"sample2ConsistencyAverage", "3"}}));
  EXPECT_FALSE(host.outputs().sampling());
  EXPECT_EQ(ended, std::vector<bool>{true});
}

TEST_F(OutputWatchTest, ARefusedStartStartsNothing) {
  ASSERT_EQ(send(write("sampling", {{"sampleStart", "1"}})), "");
  reply(refusal("sampling", {"sampleStart"}));
  EXPECT_FALSE(host.outputs().sampling());
}

TEST_F(OutputWatchTest, OnTheOtherBusACodeStopsTheSample) {
  openDevice("profibusBlade");
  ASSERT_EQ(send(write("sampling", {{"executeAction", "3"}})), "");
  reply(answer("sampling", "write", {{"executeAction", "3"}}));
  host.outputs().stopSampling();
  EXPECT_EQ(onTheBus(), Lines{"write sampling: executeAction=5"});
  reply(answer("sampling", "write", {}));
  EXPECT_TRUE(host.outputs().sampling()) << "acknowledged without a word of what it did";
  host.exchange().readGroup("deviceStatus");
  reply(answer("deviceStatus", "read", {{"statusSamplingActive", "0"}}));
  EXPECT_FALSE(host.outputs().sampling()) << "the device says so itself";
}

// --- a stop goes first and always

TEST_F(OutputWatchTest, AStopGoesBeforeAllThatWait) {
  host.exchange().readAll();
  start("loopTestValue", "12");
  EXPECT_GT(host.communication().waiting(), 5u);
  start("loopTestValue", "0");
  EXPECT_EQ(diary.lines.back(), "finished loopTest withdrawn") << "the start that waited";
  reply(answer(host.communication().underWay()->name, "read", {}));
  ASSERT_EQ(onTheBus(), Lines{"write loopTest: loopTestValue=0"});
}

TEST_F(OutputWatchTest, NoMessageStandsBeforeAStop) {
  PaperView& paper = view();
  openDevice("hartBlade");
  host.exchange().readGroup("sampling");
  paper.messenger->SendRequest(write("loopTest", {{"loopTestValue", "12"}}), "loopTest");
  paper.take();
  paper.messenger->SendRequest(write("loopTest", {{"loopTestValue", "0"}}), "loopTest");
  EXPECT_TRUE(paper.take().empty()) << "what the stop has taken the place of is no error to read before it leaves";
  EXPECT_FALSE(host.outputs().mayBeForced()) << "it was never sent";
}

// Whoever hears that a request is finished may ask the user, and the event pump turns meanwhile.
TEST_F(OutputWatchTest, AStopIsOnItsWayBeforeTheEndOfOthersIsTold) {
  struct Waiter : HostObserver {
    explicit Waiter(Host& of) : host(of) {}
    void requestFinished(const Request&, Outcome outcome) override {
      if (outcome != Outcome::Cancelled) return;
      const Request* const underWay = host.communication().underWay();
      seen.push_back(underWay ? told(underWay->document) : "nothing under way");
    }
    Host& host;
    Lines seen;
  } waiter(host);
  start("loopTestValue", "12");
  reply(answer("loopTest", "write", {{"loopTestValue", "12"}}));
  start("loopTestValue", "0");
  host.exchange().readGroup("sampling");
  host.observers().add(waiter);
  asked.clear();
  host.connect(std::make_unique<HandDevice>(asked));
  host.observers().remove(waiter);
  EXPECT_EQ(waiter.seen, Lines{"write loopTest: loopTestValue=0"});
}

TEST_F(OutputWatchTest, TheStopOfASampleTakesThePlaceOfAStartThatWaits) {
  host.exchange().readAll();
  ASSERT_EQ(send(write("sampling", {{"sampleStart", "0"}})), "");
  host.setCommunicationMode(CommunicationMode::Busy);
  ASSERT_EQ(host.exchange().submit(
                "",
                "<communicationRequest name=\"sampling\" access=\"read\"><item name=\"sample1Deviation\" unit=\"noUnit\"><floatVal/></item>"
                "<item name=\"sample1ConsistencyAverage\" unit=\"%\"><floatVal/></item></communicationRequest>",
                {}, {}, 0, 0),
            "")
      << "it is a stop already";
  EXPECT_EQ(diary.lines.back(), "finished sampling withdrawn");
  EXPECT_FALSE(host.outputs().sampling());
}

TEST_F(OutputWatchTest, NothingButZeroIsAStop) {
  openDevice("hartQX5");
  host.user().setLevel(1);
  for (const char* const value : {"0.05", "-5"}) EXPECT_NE(send(write("loopTest", {{"channel0LoopTestValue", value}})), "") << value;
  host.user().setLevel(3);
  start("channel0LoopTestValue", "0.05");
  EXPECT_EQ(forced(), Lines{"channel0LoopTestValue"});
}

TEST_F(OutputWatchTest, WithoutADeviceNoTestIsDone) {
  const Document text = Document::read(host.dataSet()->document().xml());
  ostrand::parameter(text, "loopTestValue").setAttribute("access", "readWrite");
  host.setDataSet(DataSet(text));
  host.connect(nullptr);
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  EXPECT_EQ(send(write("loopTest", {{"loopTestValue", "0"}})), "no device is connected");
}

TEST_F(OutputWatchTest, ANumberIsTakenBesideATextThatIsNone) {
  openDevice("hartQX5");
  ASSERT_EQ(send(write("loopTest", {{"channel0LoopTestValue", "12"}, {"channel1LoopTestValue", "3"}})), "");
  const int before = changes;
  reply(answer("loopTest", "write", {{"channel0LoopTestValue", "12"}, {"channel1LoopTestValue", "NaN"}}));
  EXPECT_EQ(forced(), (Lines{"channel0LoopTestValue confirmed", "channel1LoopTestValue"}));
  EXPECT_GT(changes, before) << "the banner follows";
}

TEST_F(OutputWatchTest, AStopPassesInEveryModeAndAtEveryLevel) {
  host.user().setLevel(1);
  for (const CommunicationMode mode : {CommunicationMode::LocalAcceptance, CommunicationMode::Busy}) {
    host.setCommunicationMode(mode);
    asked.clear();
    host.connect(std::make_unique<HandDevice>(asked));
    EXPECT_EQ(send(write("loopTest", {{"loopTestValue", "0"}})), "");
    EXPECT_EQ(onTheBus(), Lines{"write loopTest: loopTestValue=0"});
    reply(answer("loopTest", "write", {{"loopTestValue", "0"}}));
  }
}

TEST_F(OutputWatchTest, CancellingATransferLeavesAStop) {
  host.exchange().readAll();
  start("loopTestValue", "0");
  host.communication().cancelWaiting();
  EXPECT_EQ(host.communication().waiting(), 1u);
}

TEST_F(OutputWatchTest, WhatActsIsNeverAnsweredLocally) {
  const Document text = Document::read(host.dataSet()->document().xml());
  ostrand::parameter(text, "loopTestValue").setAttribute("access", "readWrite");
  host.setDataSet(DataSet(text));
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  const std::string reason = "it makes the device act, and values are accepted locally only";
  EXPECT_EQ(send(write("loopTest", {{"loopTestValue", "12"}})), reason);
  EXPECT_EQ(send(write("sampling", {{"sampleStart", "1"}})), reason);
  EXPECT_TRUE(host.dataSet()->edited().empty());
}

TEST_F(OutputWatchTest, BelowTheThirdLevelNothingIsWritten) {
  host.user().setLevel(2);
  const std::string reason = "the user level does not allow to write";
  EXPECT_EQ(send(write("loopTest", {{"loopTestValue", "12"}})), reason);
  EXPECT_EQ(send(write("outputSignal", {{"damping", "2"}})), reason);
  EXPECT_EQ(send("<communicationRequest name=\"sampleStart\" access=\"read\"><item name=\"sampleStart\"/></communicationRequest>"), reason)
      << "it starts a sample";
  EXPECT_EQ(send("<communicationRequest name=\"outputSignal\" access=\"read\"><item name=\"damping\"/></communicationRequest>"), "");
}

TEST_F(OutputWatchTest, ATestValueThatIsNoNumberGoesNowhere) {
  EXPECT_EQ(send(write("loopTest", {{"loopTestValue", "12,5"}})), "the test value of loopTestValue is no number");
  EXPECT_EQ(send(write("loopTest", {{"loopTestValue", ""}})), "the test value of loopTestValue is no number");
  EXPECT_TRUE(asked.empty());
  EXPECT_FALSE(host.outputs().mayBeForced());
}

}  // namespace

}  // namespace ostrand::test
