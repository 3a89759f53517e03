#pragma once

#include <gtest/gtest.h>

#include "platform/base/NumberText.h"
#include "platform/desktop/VirtualDesktop.h"
#include "platform/xml/Vocabulary.h"
#include "simulator/Device.h"

namespace ostrand::test {

// A device on a virtual desktop, and a host that only asks and keeps the answers.
class DeviceBench : public testing::Test {
 protected:
  struct Answer {
    LocalTime time;
    Document document;
  };

  explicit DeviceBench(std::string name = "hartBlade") : mName(std::move(name)) { restart(1); }

  void restart(unsigned seed) {
    device.reset();
    desktop = std::make_unique<VirtualDesktop>();
    for (const DeviceKind& kind : deviceKinds())
      if (kind.name == mName) device = makeDevice(mName, *desktop, dataSetOf(kind), seed);
    ASSERT_TRUE(device);
    answers.clear();
  }

  static Document dataSetOf(const DeviceKind& kind) { return Document::readFile(OSTRAND_SOURCE_DIR "/data/" + std::string(kind.dataSet)); }

  static std::string readOf(std::initializer_list<const char*> names, const std::string& request = "any") {
    std::string items;
    for (const char* name : names) items += "<item name=\"" + std::string(name) + "\" unit=\"noUnit\"/>";
    return requestText(request, "read", items);
  }
  static std::string item(const std::string& name, const std::string& text) {
    return "<item name=\"" + name + "\" unit=\"noUnit\"><floatVal>" + text + "</floatVal></item>";
  }
  static std::string writeOf(const std::string& request, const std::string& items) { return requestText(request, "write", items); }
  static std::string requestText(const std::string& name, const std::string& access, const std::string& items) {
    return "<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"" + name + "\" access=\"" +
           access + "\">" + items + "</communicationRequest></dtm>";
  }

  void send(const std::string& request) {
    device->request(Document::read(request), [this](const Document& answer) { answers.push_back({desktop->now(), answer}); });
  }
  // Lets the device answer until nothing is under way.
  void run() {
    for (int i = 0; i < 100000 && device->underWay() > 0; ++i) desktop->advance(0.05);
    ASSERT_EQ(device->underWay(), 0);
  }
  // Sends, lets answer, and gives the answers to this one alone.
  std::vector<Answer> ask(const std::string& request) {
    answers.clear();
    send(request);
    run();
    return answers;
  }
  // The text of one item, read from the device.
  std::string value(const char* name) {
    for (const Answer& answer : ask(readOf({name})))
      if (const Node found = ostrand::item(answer.document, name)) return found.text();
    return "missing";
  }
  double number(const char* name) { return parseNumber(value(name), '.').value_or(-1e9); }
  // The error key of the last answer to a write, or an empty text.
  std::string write(const std::string& request, const std::string& items) { return errorOf(ask(writeOf(request, items))); }
  static std::string errorOf(const std::vector<Answer>& all) {
    return all.empty() ? "no answer" : std::string(response(all.back().document).findAttribute("errorCode").value_or(""));
  }
  static std::vector<std::string> names(const Document& answer) {
    std::vector<std::string> found;
    for (const Node& node : answer.selectAll("//comm:item")) found.emplace_back(node.attribute("name"));
    return found;
  }
  // A sample on HART is ended by the read of its own values, which may or may not include the force.
  std::string stopSample(int number, bool withForce = true) {
    std::string items;
    for (const char* what : {"Deviation", "ConsistencyAverage", "ShearForceAverage"})
      if (withForce || std::string_view(what) != "ShearForceAverage")
        items += "<item name=\"sample" + std::to_string(number) + what + "\" unit=\"noUnit\"><floatVal/></item>";
    return errorOf(ask(requestText("sampling", "read", items)));
  }
  std::string takeSample(int number, double seconds, bool withForce = true) {
    EXPECT_EQ(write("sampling", item("sampleStart", std::to_string(number - 1))), "");
    desktop->advance(seconds);
    return stopSample(number, withForce);
  }

  std::string mName;
  std::unique_ptr<VirtualDesktop> desktop;
  std::unique_ptr<Device> device;
  std::vector<Answer> answers;
};

}  // namespace ostrand::test
