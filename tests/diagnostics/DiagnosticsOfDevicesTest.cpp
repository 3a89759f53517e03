// The diagnostics views before simulated transmitters: what the host reads again and again from the bus shows on the screen, and
// the data set follows.

#include <gtest/gtest.h>

#include "diagnostics/VwDiagnostics.h"
#include "diagnostics/VwDiagnosticsQX5.h"
#include "host/HostBench.h"

namespace ostrand {
namespace {

using namespace test;

class LinkedViews : public ComponentSource {
  Ref<IObject> create(const std::string& className) override {
    if (className == "VwDiagnosticsQX5") return Ref<IObject>(static_cast<ITaviView*>(new VwDiagnosticsQX5));
    return Ref<IObject>(static_cast<ITaviView*>(new VwDiagnostics));
  }
};

struct Room {
  VirtualDesktop desktop;
  LinkedViews views;
  PaperPrompt prompt;
  Diary diary;
  Host host{desktop, views, prompt, sourceData()};
  Ref<ViewSite> site;

  Room(const std::string& device, const std::string& className, const std::string& frame) {
    host.observers().add(diary);
    host.openDataSet(sourceData() / "devices" / (device + ".xml"));
    host.connect(makeDevice(device, desktop, host.dataSet()->document(), 7));
    host.views().setLiveReading(false);
    site = host.views().place(className);
    host.views().open(*site, frame);
  }
  template <class T>
  T& get(const std::string& name) {
    for (Control* each : site->view()->GetControls())
      if (each->name() == name) return dynamic_cast<T&>(*each);
    throw std::logic_error(name);
  }
  CtrStatus& status() { return *get<Nested<CtrStatus>>("CtrStatus1"); }
  void settle() {
    do desktop.wait(0.1);
    while (!host.communication().idle());
  }
  void read(const std::string& group) {
    host.exchange().readGroup(group);
    settle();
  }
  std::string stored(const std::string& parameter) {
    return std::string(host.dataSet()->document().select("//data:parameter[@name='" + parameter + "']").attribute("value"));
  }
  std::string errors() {
    std::string all;
    for (const std::string& line : diary.take())
      if (line.starts_with("error") || line.starts_with("unhandled")) all += line + "\n";
    return all;
  }
};

struct DiagnosticsOfDevicesTest : testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Blades, DiagnosticsOfDevicesTest, testing::Values("hartBlade", "profibusBlade"),
                         [](const auto& each) { return each.param; });

TEST_P(DiagnosticsOfDevicesTest, ALoopTestShowsInTheStatusAndEnds) {
  Room room(GetParam(), "VwDiagnostics", "loopTest");
  room.read("deviceStatus");
  room.read("deviceStatus");  // the first read clears what is told once after a power up
  const Ne107 before = room.status().worst();
  room.get<CtrTextEdit>("cteLoopTest").type("8");
  room.get<CommandButton>("cmdLoopTest").click();
  room.settle();
  EXPECT_TRUE(room.get<CommandButton>("cmdStopLoopTest").Enabled());
  room.read("deviceStatus");
  EXPECT_GE(room.status().worst(), Ne107::FunctionCheck) << "a test runs";
  room.get<CommandButton>("cmdStopLoopTest").click();
  room.settle();
  EXPECT_EQ(room.prompt.lines.back().substr(0, 2), "! ") << "done";
  EXPECT_FALSE(room.get<CommandButton>("cmdStopLoopTest").Enabled());
  room.read("deviceStatus");
  EXPECT_EQ(room.status().worst(), before);
  EXPECT_EQ(room.errors(), "");
}

TEST_P(DiagnosticsOfDevicesTest, TheLogIsReadIntoTheListsAndTheDataSet) {
  Room room(GetParam(), "VwDiagnostics", "eventLog");
  auto& errors = room.get<ListView>("lsvEventLog(0)");
  auto& stamp = room.get<CtrDateLabel>("ctrDateLabels(2)");
  const std::string before = stamp.Caption();
  room.read("eventLog");
  EXPECT_EQ(room.errors(), "");
  EXPECT_NE(stamp.Caption(), before);
  ASSERT_EQ(errors.Count(), 8);
  EXPECT_EQ(errors.Cell(1, 2), room.stored("eventLogErrorCount01"));
  EXPECT_FALSE(errors.Cell(1, 1).empty());
}

TEST(DiagnosticsOfProfibusTest, AResetLogReadsBackEmpty) {
  Room room("profibusBlade", "VwDiagnostics", "resetingEventLog");
  room.read("eventLog");
  const std::string shown = room.get<ListView>("lsvEventLog(0)").Cell(1, 1);
  EXPECT_NE(room.stored("eventLogErrorCount01"), "0");
  const std::string warnings = room.stored("eventLogWarningCount01");
  room.get<CheckBox>("chkReset(0)").click();
  room.get<CommandButton>("cmdReset").click();
  room.settle();
  EXPECT_NE(room.stored("eventLogErrorCount01"), "0") << "the rows change when the log is read again";
  room.read("eventLog");
  EXPECT_EQ(room.stored("eventLogErrorCount01"), "0");
  EXPECT_EQ(room.stored("eventLogWarningCount01"), warnings) << "its box was not ticked";
  EXPECT_EQ(room.get<ListView>("lsvEventLog(0)").Cell(1, 2), "0");
  EXPECT_EQ(room.get<ListView>("lsvEventLog(0)").Cell(1, 1), shown) << "an old text stays until a new one comes";
  EXPECT_EQ(room.errors(), "");
}

TEST(DiagnosticsOfOpticalTest, SixChannelsAreDrivenAndStopped) {
  Room room("hartQX5", "VwDiagnosticsQX5", "loopTest");
  const auto channel = [&](int i) -> CtrTextEdit& { return room.get<CtrTextEdit>("cteLoopTest(" + std::to_string(i) + ")"); };
  for (int i = 0; i < 6; ++i) channel(i).type(std::to_string(6 + i));
  room.get<CommandButton>("cmdLoopTest").click();
  room.settle();
  EXPECT_TRUE(room.get<CommandButton>("cmdStopLoopTest").Enabled());
  for (int i = 0; i < 6; ++i) EXPECT_FALSE(channel(i).Modified()) << "answered";
  room.read("deviceStatus");
  EXPECT_GE(room.status().worst(), Ne107::FunctionCheck);
  room.get<CommandButton>("cmdStopLoopTest").click();
  room.settle();
  for (int i = 0; i < 6; ++i) EXPECT_EQ(channel(i).Text(), "");
  EXPECT_FALSE(room.get<CommandButton>("cmdStopLoopTest").Enabled());
  room.read("waterValues");
  EXPECT_NE(room.get<CtrTextEdit>("cteWaterValues(0)").Text(), "");
  EXPECT_EQ(room.errors(), "");
}

}  // namespace
}  // namespace ostrand
