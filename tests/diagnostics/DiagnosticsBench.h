#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diagnostics/VwDiagnostics.h"
#include "diagnostics/VwDiagnosticsQX5.h"
#include "platform/types/Query.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"
#include "support/RecordingProbe.h"
#include "support/TestView.h"

namespace ostrand::test {

// A container that hears of loop tests.
class HearingContainer : public FakeObject<IHostContainer, INotifyStatus> {
 public:
  explicit HearingContainer(FakeCalls& calls) : mCalls(calls) {}
  Result queryInterface(const Guid& id, void** out) noexcept override {
    return offer<IHostContainer>(id, this, out) || offer<INotifyStatus>(id, this, out) ? Result::Ok : Result::NoInterface;
  }
  std::uint32_t addRef() noexcept override { return FakeObject::addRef(); }
  std::uint32_t release() noexcept override { return FakeObject::release(); }
  void DTMGUIDownload(const std::string&, const std::string&, int) override { mCalls.arrive("DTMGUIDownload", "DTMGUIDownload"); }
  std::string DTMGUIGetXmlPath() override { return mCalls.arrive("DTMGUIGetXmlPath"), "/xml/"; }
  void NotifyStatus(const std::string& key, int first, int second) override {
    mCalls.arrive("NotifyStatus", "NotifyStatus \"" + key + "\" " + std::to_string(first) + " " + std::to_string(second));
  }

 private:
  FakeCalls& mCalls;
};

// A host that writes down every report, "prefix number", announced or not.
class ReportedMessenger : public FakeMessenger {
 public:
  using FakeMessenger::FakeMessenger;
  std::vector<std::string> reports;

  void ReportError(const std::string& prefix, int number, const std::string&) override {
    reports.push_back(prefix + std::to_string(number));
    calls.arrive("ReportError");
  }
};

// A diagnostics view on a virtual desktop, with a host behind it.
template <class V, class B>
class DiagnosticsBench {
 public:
  DiagnosticsBench() {
    desktop.setProbe(&probe);
    view->Place(desktop, container, "");
  }
  ~DiagnosticsBench() {
    desktop.setProbe(nullptr);
    release();
    EXPECT_EQ(messenger->count(), 1u) << "somebody still holds the messenger";
    EXPECT_EQ(messenger->listeners(), 0u) << "somebody still listens";
    EXPECT_EQ(container->count(), 1u);
  }

  void release() {
    if (!view) return;
    view->PrepareToRelease();
    view->Terminate();
    view = nullptr;
  }
  void begin(const Document& data) {
    view->SetMessenger(messenger);
    view->Localize(messenger->textTable);
    view->SetOfflineData(data);
  }
  template <class T>
  T& get(std::string_view name) {
    for (Control* control : view->GetControls())
      if (control->name() == name) return dynamic_cast<T&>(*control);
    throw RuntimeError(RuntimeError::BadArgument, "no control " + std::string(name));
  }
  // A test runs, with the question answered.
  void run() {
    begin(B::data());
    static_cast<B&>(*this).drive("12");
    start().click();
    view->SetSelectedView("loopTest");
    calls.take();
  }
  CommandButton& start() { return get<CommandButton>("cmdLoopTest"); }
  CommandButton& stop() { return get<CommandButton>("cmdStopLoopTest"); }
  void online(const std::string& name, const std::string& items) {
    view->SetOnlineData(answer("name=\"" + name + "\" isFinal=\"1\" responseStatus=\"device\"", items));
  }

  // Carries a step out. What fails while the user types, or at a button that a failure has left disabled, goes to whoever
  // raised the event.
  template <class F>
  void step(F&& body) {
    try {
      body();
    } catch (const RuntimeError&) {
      ++left;
    }
  }

  int left = 0;  // errors that left a control
  FakeCalls calls;
  RecordingProbe probe;
  VirtualDesktop desktop;
  Ref<ReportedMessenger> messenger{new ReportedMessenger(calls)};
  Ref<HearingContainer> container{new HearingContainer(calls)};
  Ref<V> view{new V};
};

// --- a single-channel device

inline Document bladeData(const std::string& category = "DPV1") {
  std::string log;
  for (const char* name : {"eventLogErrorEvent01", "eventLogErrorEvent02", "eventLogWarningEvent01", "eventLogInfoEvent01"})
    log += parameterXml(name, "");
  for (const char* name : {"eventLogErrorCount01", "eventLogInfoCount01"}) log += parameterXml(name, "0", "type=\"integerVal\"");
  return dataSet(parameterXml("loopTestValue", "", "type=\"floatVal\" unit=\"noUnit\" decimals=\"1\" minVal=\"0\" maxVal=\"22\" access=\"write\"") +
                     log + parameterXml("statusSensorFailure", "0", "type=\"integerVal\""),
                 "<data:mappedParam name=\"failure\"><data:mappedItem value=\"1\" key=\"on\" category=\"failure\"/></data:mappedParam>",
                 "<data:requestGroup name=\"deviceStatus\" lastUpdate=\"01/02/2025 03:04:05\"><data:includedParam "
                 "name=\"statusSensorFailure\"/></data:requestGroup>",
                 category);
}

struct BladeDiagnostics : DiagnosticsBench<VwDiagnostics, BladeDiagnostics> {
  static constexpr const char* kReports = "VwDiagnostics ";
  static Document data() { return bladeData(); }

  CtrTextEdit& value() { return get<CtrTextEdit>("cteLoopTest"); }
  void drive(const std::string& text) { value().type(text); }
  static bool isStop(const std::string& line) {
    return line.starts_with("SendRequest \"loopTest\"") && line.find("<floatVal>0</floatVal>") != line.npos;
  }
  ListView& log(int category) { return get<ListView>("lsvEventLog(" + std::to_string(category) + ")"); }
  CheckBox& box(int index) { return get<CheckBox>("chkReset(" + std::to_string(index) + ")"); }
  CommandButton& reset() { return get<CommandButton>("cmdReset"); }
  void answers(const std::string& value) { online("loopTest", itemXml("loopTestValue", value, "floatVal")); }

  // Everything that a user and a device do with this view in one day.
  void day() {
    step([&] { begin(bladeData()); });
    step([&] { view->SetImportData(bladeData()); });
    step([&] { view->SetSelectedView("deviceStatus"); });
    step([&] { view->RequestFocus(); });
    step([&] { online("deviceStatus", itemXml("statusHARTPVOutOfLimits", "1", "integerVal") + itemXml("statusSensorFailure", "1", "integerVal")); });
    step([&] { view->SetErrorData(answer("name=\"deviceStatus\" errorCode=\"communicationError\"")); });
    step([&] { view->SetSelectedView("loopTest"); });
    step([&] { view->RequestFocus(); });
    step([&] { start().click(); });
    step([&] { value().type("12"); });
    step([&] { start().click(); });
    step([&] { answers("12"); });
    step([&] { value().type("13"); });
    step([&] { start().click(); });
    step([&] { view->LeaveSelectedView(); });
    step([&] { answers("0"); });
    step([&] { view->SetErrorData(answer("name=\"loopTest\" errorCode=\"communicationError\"", itemXml("loopTestValue", "13", "floatVal"))); });
    step([&] { view->SetSelectedView("eventLog"); });
    step([&] {
      online("eventLog", itemXml("eventLogInfoCount01", "3", "integerVal") + itemXml("eventLogErrorEvent02", "eventTwo") +
                             itemXml("eventLogErrorCount01", "7", "integerVal") + itemXml("eventLogErrorEvent01", "eventOne"));
    });
    step([&] { view->SetSelectedView("resetingEventLog"); });
    step([&] { box(0).click(); });
    step([&] { box(3).click(); });
    step([&] { reset().click(); });
    step([&] { view->Resize(9000, 6000); });
    step([&] { desktop.tabDown = true; });
    step([&] { get<CommandButton>("cmdReset").LostFocus(); });
    desktop.tabDown = false;
  }
  // Whatever happened, a test can be run, a log be read and be reset.
  void isStillInUse() {
    if (!box(0).Value()) box(0).click();
    view->SetMessenger(messenger);
    view->Localize(messenger->textTable);
    view->SetOfflineData(bladeData());
    view->SetSelectedView("loopTest");
    EXPECT_EQ(view->GetSelectedView(), "loopTest");
    answers("0");
    EXPECT_EQ(start().Tag(), "startTest");
    EXPECT_EQ(start().Caption(), "T:startTest");
    EXPECT_FALSE(stop().Enabled());
    value().type("5");
    calls.take();
    start().click();
    EXPECT_THAT(
        calls.take(),
        testing::ElementsAre(
            R"(AskUser "loopTest" "loopTestWarning")",
            "SendRequest \"loopTest\" | <communicationRequest name=\"loopTest\" access=\"write\"><item name=\"loopTestValue\" unit=\"noUnit\">"
            "<floatVal>5.0</floatVal></item></communicationRequest>",
            "NotifyStatus \"testing\" 0 0"));
    EXPECT_TRUE(stop().Enabled());
    stop().click();
    answers("0");
    online("eventLog", itemXml("eventLogErrorCount01", "9", "integerVal"));
    EXPECT_EQ(log(0).Cell(1, 2), "9");
    box(1).click();
    EXPECT_TRUE(reset().Enabled());
    calls.take();
    reset().click();
    EXPECT_THAT(calls.take(), testing::Contains(testing::StartsWith("SendRequest \"resetingEventLog\"")));
  }
};

// --- the optical transmitter

inline Document opticalData() {
  std::string channels;
  for (int i = 0; i < 6; ++i)
    channels += parameterXml("channel" + std::to_string(i) + "LoopTestValue", "9",
                             "type=\"floatVal\" unit=\"noUnit\" decimals=\"1\" minVal=\"0\" maxVal=\"22\" access=\"write\"");
  return dataSet(channels + parameterXml("waterALedV", "1", "type=\"floatVal\" decimals=\"1\""));
}

struct OpticalDiagnostics : DiagnosticsBench<VwDiagnosticsQX5, OpticalDiagnostics> {
  static constexpr const char* kReports = "VwDiagnosticsQX5 ";
  static Document data() { return opticalData(); }

  CtrTextEdit& channel(int index) { return get<CtrTextEdit>("cteLoopTest(" + std::to_string(index) + ")"); }
  void drive(const std::string& text) { channel(2).type(text); }
  static bool isStop(const std::string& line) {
    return line.starts_with("SendRequestWithStatus \"stopping\"") && line.find("channel2LoopTestValue") != line.npos &&
           line.find("<floatVal>0</floatVal>") != line.npos;
  }
  void answers(int index, const std::string& value) {
    online("loopTest", itemXml("channel" + std::to_string(index) + "LoopTestValue", value, "floatVal"));
  }
  // The items of the last request, "0=12.0 3=4.0".
  std::string sent() {
    for (const std::string& line : calls.take()) {
      if (!line.starts_with("SendRequestWithStatus")) continue;
      const Document request = Document::read(line.substr(line.find(" | ") + 3));
      std::string items;
      for (const Node& item : request.selectAll("//*[local-name()='item']"))
        items += std::string(items.empty() ? "" : " ") + std::string(item.attribute("name")).substr(7, 1) + "=" + item.text();
      return items;
    }
    return "nothing";
  }

  void day() {
    step([&] { begin(opticalData()); });
    step([&] { view->SetImportData(opticalData()); });
    step([&] { view->SetOfflineData(opticalData()); });
    step([&] { view->SetSelectedView("loopTest"); });
    step([&] { view->RequestFocus(); });
    step([&] { start().click(); });
    step([&] { channel(0).type("12"); });
    step([&] { channel(3).type("4"); });
    step([&] { start().click(); });
    step([&] {
      view->SetErrorData(
          answer("name=\"loopTest\" isFinal=\"1\" errorCode=\"communicationError\"", itemXml("channel0LoopTestValue", "12", "floatVal")));
    });
    step([&] { start().click(); });
    step([&] { answers(0, "12"); });
    step([&] { answers(3, "4"); });
    step([&] { view->LeaveSelectedView(); });
    step([&] { answers(0, "0"); });
    step([&] { answers(3, "0"); });
    step([&] { online("waterValues", itemXml("waterALedV", "2", "floatVal")); });
    step([&] { online("deviceStatus", ""); });
    step([&] { view->SetErrorData(answer("name=\"deviceStatus\" errorCode=\"x\"")); });
    step([&] { view->Resize(9000, 6000); });
    desktop.tabDown = true;
    step([&] { get<CtrTextEdit>("cteSensorLimits(9)").leave(); });
    desktop.tabDown = false;
  }
  void isStillInUse() {
    view->SetMessenger(messenger);
    view->Localize(messenger->textTable);
    view->SetOfflineData(opticalData());
    view->SetSelectedView("loopTest");
    EXPECT_EQ(view->GetSelectedView(), "loopTest");
    answers(0, "0");
    EXPECT_EQ(start().Tag(), "startTest");
    EXPECT_FALSE(stop().Enabled());
    channel(1).type("5");
    channel(5).type("6");
    calls.take();
    start().click();
    EXPECT_EQ(sent(), "1=5.0 5=6.0");
    EXPECT_TRUE(stop().Enabled());
    stop().click();
    EXPECT_EQ(sent(), "1=0 5=0");
    answers(5, "0");
    EXPECT_TRUE(stop().Enabled());
    answers(1, "0");
    EXPECT_FALSE(stop().Enabled());
    EXPECT_EQ(start().Caption(), "T:startTest");
  }
};

}  // namespace ostrand::test
