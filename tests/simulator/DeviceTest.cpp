#include "simulator/Device.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "platform/base/RuntimeError.h"
#include "simulator/DeviceBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;

// What a device does with requests, whatever it measures.
class DeviceTest : public DeviceBench {
 protected:
  int errorNumber(const std::function<void()>& call) {
    try {
      call();
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  }
};

TEST_F(DeviceTest, EveryKindCanBeMade) {
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    const std::string before = dataSet.xml();
    const auto made = makeDevice(kind.name, *desktop, dataSet, 1);
    EXPECT_EQ(made->underWay(), 0);
    EXPECT_EQ(dataSet.xml(), before);
    EXPECT_FALSE(kind.description.empty());
  }
}

TEST_F(DeviceTest, AnUnknownKindAndAnEmptyDataSet) {
  const Document dataSet = Document::read("<data:dtm xmlns:data=\"d\"/>");
  EXPECT_EQ(errorNumber([&] { makeDevice("HartBlade", *desktop, dataSet, 1); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorNumber([&] { makeDevice("hartBlade", *desktop, Document(), 1); }), RuntimeError::NothingThere);
  for (const DeviceKind& kind : deviceKinds()) {
    device = makeDevice(kind.name, *desktop, dataSet, 1);
    EXPECT_EQ(errorOf(ask(readOf({"consistency"}))), "missingItems");
  }
}

// No mappings, no limits, and values that no transmitter would hold.
TEST_F(DeviceTest, ABadDataSetDoesNoHarm) {
  std::string parameters;
  for (const char* name : {"executeAction", "flushingInterval", "flushingTime", "flushingMode", "targetMode", "actualMode", "outputValue",
                           "activeRecipe", "laboratoryRecipe", "sampleStart", "recipe1Filler", "damping", "hartAddress", "eventLogInfoCount01"})
    parameters += "<data:parameter name=\"" + std::string(name) + "\" type=\"integerVal\" value=\"1e300\" access=\"readWrite\"/>";
  parameters += "<data:parameter name=\"consistency\" type=\"floatVal\" value=\"x\" access=\"read\"/><data:parameter/><data:parameter name='\"'/>";
  const Document dataSet = Document::read("<data:dtm xmlns:data=\"d\"><data:persistentData><data:parameters>" + parameters +
                                          "</data:parameters></data:persistentData></data:dtm>");
  for (const DeviceKind& kind : deviceKinds()) {
    device = makeDevice(kind.name, *desktop, dataSet, 1);
    EXPECT_GT(number("consistency"), 0);
    ask(writeOf("sampling", item("executeAction", "1e300")));
    ask(writeOf("x", item("flushingTime", "-1e300") + item("targetMode", "7")));
    EXPECT_GT(number("consistency"), 0);
  }
  device = makeDevice("hartBlade", *desktop, dataSet, 1);
  EXPECT_GT(number("consistency"), 0);
  EXPECT_EQ(write("sampling", item("sampleStart", "7")), "hartCmdErrInvalidSelection");
  EXPECT_EQ(write("sampling", item("sampleStart", "1")), "");
  EXPECT_EQ(write("activeRecipe", item("activeRecipe", "-1e300")), "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed");
  EXPECT_EQ(write("laboratoryResults", item("laboratoryRecipe", "1e300")), "hartCmdErrSuspiciousCalibration");
}

TEST_F(DeviceTest, NamesWhatItDoesNotHave) {
  const auto all = ask(readOf({"moonPhase", "tag", "tideLevel"}));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_THAT(names(all[0].document), ElementsAre("tag"));
  EXPECT_EQ(response(all[0].document).attribute("isFinal"), "0");
  EXPECT_THAT(names(all[1].document), ElementsAre("moonPhase", "tideLevel"));
  EXPECT_EQ(response(all[1].document).attribute("isFinal"), "1");
  EXPECT_EQ(errorOf(all), "missingItems");

  // A write with an unknown item writes nothing; what can only be written cannot be read.
  const auto written = ask(writeOf("x", item("damping", "9") + item("moonPhase", "1")));
  ASSERT_EQ(written.size(), 1u);
  EXPECT_EQ(errorOf(written), "missingItems");
  EXPECT_EQ(value("damping"), "2");
  EXPECT_EQ(errorOf(ask(readOf({"sampleStart"}))), "missingItems");
}

TEST_F(DeviceTest, AnItemThatComesTwiceCountsOnce) {
  EXPECT_THAT(names(ask(readOf({"tag", "tag", "message", "tag"}))[0].document), ElementsAre("tag", "message"));
  EXPECT_EQ(write("x", item("damping", "4") + item("damping", "5")), "");
  EXPECT_EQ(value("damping"), "4");
}

TEST_F(DeviceTest, TenThousandItems) {
  std::string same;
  std::string unknown;
  for (int i = 0; i < 10000; ++i) {
    same += "<item name=\"tag\" unit=\"noUnit\"/>";
    unknown += "<item name=\"unknown" + std::to_string(i) + "\" unit=\"noUnit\"/>";
  }
  EXPECT_EQ(ask(requestText("x", "read", same)).size(), 1u);
  const auto all = ask(requestText("x", "read", unknown));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(errorOf(all), "missingItems");
  EXPECT_EQ(names(all[0].document).size(), 10000u);
}

TEST_F(DeviceTest, WhatIsNoRequest) {
  const char* const texts[] = {"<nothing/>", "<dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"/>",
                               "<communicationRequest name=\"x\" access=\"read\"/>",
                               "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"x\"/></comm:dtm>"};
  for (const char* text : texts) {
    const auto all = ask(text);
    ASSERT_EQ(all.size(), 1u) << text;
    EXPECT_EQ(errorOf(all), "communicationError") << text;
    EXPECT_EQ(response(all[0].document).attribute("isFinal"), "1");
  }
  answers.clear();
  device->request(Document(), [this](const Document& answer) { answers.push_back({desktop->now(), answer}); });
  run();
  EXPECT_EQ(errorOf(answers), "communicationError");
  device->request(Document(), nullptr);
  run();

  for (const char* access : {"", "READ", "execute"})
    EXPECT_EQ(errorOf(ask(requestText("x", access, item("tag", "A")))), "hartCmdErrCommandIsNotImplemented");
  EXPECT_EQ(errorOf(ask(requestText("moonPhase", "read", ""))), "hartCmdErrCommandIsNotImplemented");
  EXPECT_EQ(errorOf(ask(requestText("damping", "write", ""))), "hartCmdErrCommandIsNotImplemented");
  EXPECT_EQ(errorOf(ask(requestText("x", "write", "<item/><other name=\"tag\"/>text<item name=\"&quot;'&lt;&#1;\"/>"))), "missingItems");
  EXPECT_EQ(errorOf(ask(requestText("x", "write", "<item name=\"damping\"><floatVal><deep><er>3</er></deep></floatVal></item>"))), "");
  EXPECT_EQ(value("damping"), "3");
}

TEST_F(DeviceTest, CancelledRequestsStayUnanswered) {
  send(readOf({"tag"}));
  send(readOf({"message"}));
  device->cancelAll();
  EXPECT_EQ(device->underWay(), 0);
  desktop->advance(10);
  EXPECT_TRUE(answers.empty());
  EXPECT_EQ(value("tag"), "QC-1201");
}

TEST_F(DeviceTest, AnAnswerMayAskCancelAndDestroy) {
  int count = 0;
  std::function<void(const Document&)> again = [&](const Document&) {
    if (++count == 3) {
      device->setFault("twice", "");
      send(readOf({"tag"}));
      device->cancelAll();
    } else {
      device->request(Document::read(readOf({"tag"})), again);
    }
  };
  device->request(Document::read(readOf({"tag"})), again);
  desktop->advance(10);
  EXPECT_EQ(count, 3);
  EXPECT_TRUE(answers.empty());

  // The second of two answers is not given any more once the first one has cancelled, or destroyed the device.
  count = 0;
  device->request(Document::read(readOf({"tag"})), [&](const Document&) { ++count, device->cancelAll(); });
  desktop->advance(10);
  EXPECT_EQ(count, 1);
  device->request(Document::read(readOf({"tag"})), [&](const Document&) { ++count, device.reset(); });
  desktop->advance(10);
  EXPECT_EQ(count, 2);
}

TEST_F(DeviceTest, AnAnswerMayWait) {
  int finals = 0;
  bool waited = false;
  device->request(Document::read(requestText("rangeValues", "read", "")), [&](const Document& answer) {
    if (response(answer).attribute("isFinal") == "1") ++finals;
    if (!std::exchange(waited, true)) {
      desktop->wait(5);
      EXPECT_EQ(finals, 1);
    }
  });
  run();
  EXPECT_EQ(finals, 1);
}

TEST_F(DeviceTest, ADestroyedDeviceIsSilent) {
  send(readOf({"tag"}));
  device.reset();
  desktop->advance(10);
  EXPECT_TRUE(answers.empty());
}

// --- Faults ---

TEST_F(DeviceTest, EveryFaultOfTheListIsKnown) {
  for (const FaultKind& fault : Device::faults()) {
    const char* argument = fault.argument.empty() ? "" : fault.name == "failure" ? "sensor" : "2";
    EXPECT_NO_THROW(device->setFault(fault.name, argument)) << fault.name;
    EXPECT_FALSE(fault.description.empty());
  }
  device->setFault("none", "");
  EXPECT_EQ(value("tag"), "QC-1201");
}

TEST_F(DeviceTest, RefusesFaultsThatItDoesNotKnow) {
  const auto fails = [&](const char* name, const char* argument) {
    return errorNumber([&] { device->setFault(name, argument); }) == RuntimeError::BadArgument;
  };
  EXPECT_TRUE(fails("earthquake", ""));
  EXPECT_TRUE(fails("", ""));
  EXPECT_TRUE(fails("refuse", ""));
  EXPECT_TRUE(fails("nan", ""));
  EXPECT_TRUE(fails("slow", ""));
  EXPECT_TRUE(fails("slow", "0"));
  EXPECT_TRUE(fails("slow", "fast"));
  EXPECT_TRUE(fails("unsteady", "-1"));
  EXPECT_TRUE(fails("heat", "a lot"));
  EXPECT_TRUE(fails("drift", "101"));
  EXPECT_TRUE(fails("failure", "coffeeMachine"));
  EXPECT_TRUE(fails("software", ""));
  EXPECT_TRUE(fails("lacks", ""));
}

TEST_F(DeviceTest, FaultRefuse) {
  device->setFault("refuse", "sampling");
  device->setFault("refuse", "identification errCommunicationError");
  const auto all = ask(writeOf("sampling", item("sampleStart", "0")));
  EXPECT_EQ(errorOf(all), "hartCmdErrCommandIsNotImplemented");
  EXPECT_THAT(names(all[0].document), ElementsAre("sampleStart"));
  EXPECT_EQ(errorOf(ask(readOf({"tag"}, "identification"))), "errCommunicationError");
  EXPECT_EQ(errorOf(ask(readOf({"statusSamplingActive"}))), "");
  EXPECT_EQ(value("statusSamplingActive"), "0");
}

TEST_F(DeviceTest, FaultSilent) {
  device->setFault("silent", "");
  const LocalTime start = desktop->now();
  EXPECT_TRUE(ask(writeOf("x", item("damping", "9"))).empty());
  EXPECT_GE(desktop->now() - start, std::chrono::milliseconds(1050));  // the master tries three times
  device->setFault("none", "");
  EXPECT_EQ(value("damping"), "2");
  device->setFault("silent", "slowpoke");
  EXPECT_TRUE(ask(readOf({"tag"}, "slowpoke")).empty());
  EXPECT_EQ(ask(readOf({"tag"}, "other")).size(), 1u);
}

TEST_F(DeviceTest, FaultsOfValues) {
  device->setFault("nan", "consistency");
  device->setFault("value", "activeRecipe 99");
  device->setFault("value", "tag");
  EXPECT_EQ(value("consistency"), "NaN");
  EXPECT_EQ(value("activeRecipe"), "99");
  EXPECT_EQ(value("tag"), "");
  device->setFault("none", "");
  EXPECT_EQ(value("activeRecipe"), "1");
}

TEST_F(DeviceTest, FaultLacks) {
  device->setFault("lacks", "damping");
  const auto all = ask(readOf({"damping", "tag"}));
  ASSERT_EQ(all.size(), 2u);
  EXPECT_THAT(names(all[0].document), ElementsAre("tag"));
  EXPECT_THAT(names(all[1].document), ElementsAre("damping"));
  EXPECT_EQ(errorOf(all), "hartCmdErrCommandIsNotImplemented");
  EXPECT_EQ(errorOf(ask(readOf({"damping", "moonPhase"}))), "missingItems");
  EXPECT_EQ(write("outputSignal", item("damping", "9")), "hartCmdErrCommandIsNotImplemented");
  device->setFault("none", "");
  EXPECT_EQ(value("damping"), "2");
}

TEST_F(DeviceTest, FaultSoftware) {
  const std::string own = value("swRevision");
  device->setFault("software", "9.8");
  EXPECT_EQ(value("swRevision"), "9.8");
  device->setFault("none", "");
  EXPECT_EQ(value("swRevision"), own);
}

TEST_F(DeviceTest, FaultSlow) {
  EXPECT_DOUBLE_EQ(device->busTimePerTransaction(), 0.35);
  device->setFault("slow", "10");
  EXPECT_DOUBLE_EQ(device->busTimePerTransaction(), 3.5);
  send(readOf({"tag"}));
  desktop->advance(3.4);
  EXPECT_TRUE(answers.empty());
  desktop->advance(0.1);
  EXPECT_EQ(answers.size(), 1u);
}

TEST_F(DeviceTest, FaultsOfAnswers) {
  device->setFault("twice", "");
  device->setFault("foreign", "deviceStatus");
  device->setFault("unfinished", "");
  const auto all = ask(readOf({"tag"}, "identification"));
  ASSERT_EQ(all.size(), 2u);
  for (const Answer& answer : all) {
    EXPECT_EQ(response(answer.document).attribute("name"), "deviceStatus");
    EXPECT_EQ(response(answer.document).attribute("isFinal"), "0");
  }
}

TEST_F(DeviceTest, FaultGarbage) {
  device->setFault("garbage", "");
  EXPECT_EQ(ask(readOf({"tag"}))[0].document.xml(), "<noise/>");
  EXPECT_FALSE(response(ask(readOf({"tag"}))[0].document).findAttribute("isFinal"));
  EXPECT_EQ(ask(readOf({"tag"}))[0].document.selectText("//comm:item"), "");
  EXPECT_EQ(ask(readOf({"damping"}))[0].document.selectText("//comm:floatVal"), "%&/");
}

// --- A conversation of all kinds of requests, with faults that come and go: every request ends

class AnyDeviceTest : public DeviceBench, public testing::WithParamInterface<const char*> {
 protected:
  AnyDeviceTest() : DeviceBench(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(, AnyDeviceTest, testing::Values("hartBlade", "profibusBlade", "hartFjell", "hartQX5", "hartGYRE"),
                         [](const auto& device) { return std::string(device.param); });

TEST_P(AnyDeviceTest, AnythingGoes) {
  std::vector<std::string> all = {"actionStatus", "sample1Quality"};
  const std::vector<DeviceKind>& kinds = deviceKinds();
  const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const DeviceKind& each) { return each.name == mName; });
  const Document dataSet = dataSetOf(*kind);
  for (const Node& node : dataSet.selectAll("//data:parameter")) all.emplace_back(node.attribute("name"));
  const char* const texts[] = {"0", "1", "2", "3", "4", "5", "6", "3.5", "-1", "", "NaN", "1e308", "99999999999999999", "abc", "2026-01-01", "A,B"};
  std::uint32_t state = 12345;
  const auto pick = [&](std::size_t count) { return (state = state * 1664525u + 1013904223u) / 65536u % count; };
  for (int i = 0; i < 2000; ++i) {
    std::string items;
    for (std::size_t n = pick(7); n-- > 0;) items += item(all[pick(all.size())], texts[pick(std::size(texts))]);
    send(pick(2) ? writeOf(pick(3) ? "laboratoryResults" : pick(2) ? "sampling" : "x", items) : requestText("x", "read", items));
    if (pick(50) == 0) {
      const FaultKind& fault = Device::faults()[pick(Device::faults().size())];
      device->setFault(fault.name, fault.argument.empty() ? "" : fault.name == "failure" ? "sensor" : "2");
    }
    if (pick(20) == 0) device->setFault("none", "");
    if (pick(100) == 0) device->cancelAll();
    desktop->advance(static_cast<double>(pick(30)) / 10);
  }
  device->setFault("none", "");
  run();
  EXPECT_NE(value("consistency"), "missing");
}

}  // namespace
}  // namespace ostrand::test
