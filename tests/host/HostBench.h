#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Host.h"
#include "platform/base/RuntimeError.h"
#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/IPlaceable.h"

namespace ostrand::test {

inline std::filesystem::path sourceData() { return std::filesystem::path(OSTRAND_SOURCE_DIR) / "data"; }

// The number and the description of the error that a call ends with; 0 if it ends well.
inline ErrorText refusalOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return {error.number(), error.description()};
  }
  return {};
}

inline const char* const kSmallDataSet =
    R"(<data:dtm xmlns:data="x-schema:TAVPersistentDataSchema.xml" xmlns:typeInfo="x-schema:TAVTypeInfoSchema.xml">
  <typeInfo:internalInfo busCategory="HART" deviceType="test"/>
  <data:persistentData><data:parameters>
    <data:parameter name="speed" type="floatVal" value="1.25" offlineValue="" unit="N" decimals="1" minVal="0" maxVal="10" access="readWrite" synchronised="1"/>
    <data:parameter name="mode" type="integerVal" value="1" offlineValue="" unit="noUnit" decimals="0" minVal="" maxVal="" access="readWrite" synchronised="0"/>
    <data:parameter name="name" type="stringVal" value="A" offlineValue="" unit="noUnit" decimals="0" minVal="" maxVal="" access="readWrite" synchronised="1"/>
    <data:parameter name="start" type="integerVal" value="" offlineValue="" unit="noUnit" decimals="0" minVal="" maxVal="" access="write" synchronised="0"/>
    <data:parameter name="load" type="floatVal" value="7" offlineValue="" unit="%" decimals="0" minVal="" maxVal="" access="read" synchronised="1"/>
  </data:parameters></data:persistentData>
  <data:requestGroups>
    <data:requestGroup name="drive" lastUpdate="01/01/2020 00:00:00"><data:includedParam name="speed"/><data:includedParam name="mode"/><data:includedParam name="start"/></data:requestGroup>
    <data:requestGroup name="monitoringVariables" lastUpdate=""><data:includedParam name="load"/><data:includedParam name="speed" clone="1"/></data:requestGroup>
    <data:requestGroup name="labels" lastUpdate=""><data:includedParam name="name"/></data:requestGroup>
  </data:requestGroups>
</data:dtm>)";

inline DataSet smallDataSet() { return DataSet(Document::read(kSmallDataSet)); }

// "read drive: speed mode=1": a request or an answer on one line.
inline std::string told(const Document& document) {
  const Node root = document.root();
  if (root.name() != "comm:dtm") return "<" + std::string(root.name()) + ">";
  const Node body = root.firstChild();
  std::string text = std::string(body.findAttribute("access").value_or("?")) + " " + std::string(body.findAttribute("name").value_or("?"));
  if (const auto error = body.findAttribute("errorCode")) text += " " + std::string(*error);
  if (body.findAttribute("responseStatus") == "local") text += " local";
  if (body.findAttribute("isFinal") == "0") text += " more";
  text += ":";
  for (Node item = body.firstChild(); item; item = item.nextSibling()) {
    text += " " + std::string(item.attribute("name"));
    if (const std::string value = item.text(); !value.empty()) text += "=" + value;
  }
  return text;
}

// An answer in the form that `told` tells, made from its parts.
inline Document answer(const std::string& name, const std::string& access, const std::vector<std::pair<std::string, std::string>>& items,
                       const std::string& more = "isFinal=\"1\"") {
  std::string xml = "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"" + name + "\" access=\"" +
                    access + "\" responseStatus=\"device\" " + more + ">";
  for (const auto& [item, value] : items)
    xml +=
        "<comm:item name=\"" + item + "\" unit=\"noUnit\">" + (value.empty() ? "" : "<comm:floatVal>" + value + "</comm:floatVal>") + "</comm:item>";
  return Document::read(xml + "</comm:communicationResponse></comm:dtm>");
}

// A device that answers when the test says so.
class HandDevice : public Device {
 public:
  struct Asked {
    Document request;
    Answer answer;
  };
  explicit HandDevice(std::vector<Asked>& asked) : mAsked(asked) {}
  void request(const Document& request, Answer answer) override { mAsked.push_back({request, std::move(answer)}); }
  int underWay() const override { return static_cast<int>(mAsked.size()); }
  void cancelAll() override {}
  void setFault(std::string_view, std::string_view) override {}
  double busTimePerTransaction() const override { return 0.2; }
  std::optional<double> laboratoryValue(int) const override { return std::nullopt; }

 private:
  std::vector<Asked>& mAsked;
};

// Writes down everything that an observer is told of the road to the device and of the views.
class Diary : public HostObserver {
 public:
  std::vector<std::string> lines;
  std::vector<std::string> take() { return std::exchange(lines, {}); }

  void requestQueued(const Request& r) override { add("queued " + r.name); }
  void requestSent(const Request& r) override { add("sent " + r.name); }
  void requestAnswered(const Request& r, const Document& a) override { add("answered " + r.name + " <- " + told(a)); }
  void requestFinished(const Request& r, Outcome o) override {
    static const char* const kNames[] = {"done", "refused", "no answer", "cancelled", "withdrawn"};
    add("finished " + r.name + " " + kNames[static_cast<int>(o)]);
  }
  void requestRefused(const Request& r, const std::string& reason) override { add("refused " + r.name + ": " + reason); }
  void strayAnswer(const Document& a) override { add("stray " + told(a)); }
  void progress(const std::string& text, int done, int total) override {
    add("progress \"" + text + "\" " + std::to_string(done) + "/" + std::to_string(total));
  }
  void errorReported(const std::string& view, const std::string& prefix, int number, const std::string&) override {
    add("error of " + view + ": " + prefix + std::to_string(number));
  }
  void errorUnhandled(const std::string& view, int number, const std::string& description) override {
    add("unhandled of " + view + ": " + std::to_string(number) + " " + description);
  }
  void logged(const std::string&, char category, const std::string& text) override { add(std::string("log ") + category + " " + text); }
  void messageShown(const std::string& view, const std::string& title, const std::string& message) override {
    add(view + " shows " + title + "/" + message);
  }
  void questionAsked(const std::string& view, const std::string& title, const std::string& message, int answer) override {
    add(view + " asks " + title + "/" + message + " -> " + std::to_string(answer));
  }

 private:
  void add(std::string line) { lines.push_back(std::move(line)); }
};

// A component that writes down what the host does to it.
class PaperView : public HostObject<IPlaceable, ITaviView, ITaviDataUser, ITaviComponent, ILocalizable>, public MessengerEvents {
 public:
  explicit PaperView(int* alive = nullptr) : mAlive(alive) {
    if (mAlive) ++*mAlive;
  }
  ~PaperView() override {
    if (messenger) messenger->Unsubscribe(*this);
    if (mAlive) --*mAlive;
  }

  std::vector<std::string> calls;
  std::vector<std::string> take() { return std::exchange(calls, {}); }
  Ref<Messenger> messenger;
  Ref<IHostContainer> parent;
  Document lastDocument;
  std::string selectedKey;
  bool mayLeave = true;
  std::function<void(const std::string& call)> during;  // runs inside each call

  void Place(Desktop&, const Ref<IHostContainer>& container, const std::string& tag) override {
    parent = container;
    note("Place " + tag);
  }
  void Resize(int width, int height) override { note("Resize " + std::to_string(width) + " " + std::to_string(height)); }
  void Terminate() override {
    parent = nullptr;
    note("Terminate");
  }
  const ControlCollection& GetControls() override { return mControls; }
  Ref<Messenger> GetMessenger() override { return messenger; }
  std::string GetSelectedView() override { return selectedKey; }
  void SetSelectedView(const std::string& key) override {
    selectedKey = key;
    note("SetSelectedView " + key);
  }
  bool LeaveSelectedView() override {
    note("LeaveSelectedView");
    return mayLeave;
  }
  void RequestFocus() override { note("RequestFocus"); }
  void PrepareToRelease() override {
    note("PrepareToRelease");
    if (messenger) messenger->Unsubscribe(*this);
    messenger = nullptr;
  }
  void SetErrorData(const Document& doc) override { take("SetErrorData", doc); }
  void SetImportData(const Document& doc) override { take("SetImportData", doc); }
  void SetOfflineData(const Document& doc) override { take("SetOfflineData", doc); }
  void SetOnlineData(const Document& doc) override { take("SetOnlineData", doc); }
  void SetMessenger(const Ref<Messenger>& given) override {
    if (messenger) messenger->Unsubscribe(*this);
    messenger = given;
    messenger->Subscribe(*this);
    note("SetMessenger");
  }
  void Localize(const Ref<ITextTable>& texts) override { note("Localize " + texts->GetText("accept")); }
  void ViewSetCommunicationMode(int mode) override { note("mode " + std::to_string(mode)); }
  void ViewReceiveValue(const std::string& tag, const std::string& value) override { note("receive " + tag + " " + value); }
  void ViewSetUnits() override { note("units"); }
  void ViewGetChanges(int& mode) override { note("changes " + std::to_string(mode)); }

 private:
  void take(const std::string& call, const Document& doc) {
    lastDocument = doc;
    note(doc.root().name() == "data:dtm" ? call : call + " " + told(doc));
  }
  void note(const std::string& call) {
    calls.push_back(call);
    if (during) during(call);
  }
  ControlCollection mControls;
  int* mAlive;
};

class PaperSource : public ComponentSource {
 public:
  Ref<IObject> create(const std::string& className) override {
    if (className != "Paper") throw RuntimeError(RuntimeError::BadArgument, "no such component class: \"" + className + "\"");
    made.emplace_back(new PaperView(&alive));
    void* out = nullptr;
    made.back()->queryInterface(IObject::kId, &out);
    return Ref<IObject>::adopt(static_cast<IObject*>(out));
  }
  std::vector<Ref<PaperView>> made;
  int alive = 0;
};

class PaperPrompt : public UserPrompt {
 public:
  int ask(const std::string& title, const std::string& message, const Answers& told) override {
    lines.push_back("? " + title + "/" + message);
    answers = told;
    if (during) during();
    return answer;
  }
  void show(const std::string& title, const std::string& message) override { lines.push_back("! " + title + "/" + message); }
  std::vector<std::string> lines;
  std::function<void()> during;
  int answer = UserPrompt::kGoOn;
  Answers answers;  // of the last question
};

// A host of paper: its device answers by hand, its views only write down.
class HostTest : public ::testing::Test {
 protected:
  VirtualDesktop desktop;
  PaperSource source;
  PaperPrompt prompt;
  Diary diary;
  std::vector<HandDevice::Asked> asked;
  Host host{desktop, source, prompt, sourceData()};

  void SetUp() override {
    host.observers().add(diary);
    host.setDataSet(smallDataSet());
    host.connect(std::make_unique<HandDevice>(asked));
  }
  void TearDown() override {
    // What a test hooked in lives in its body only.
    prompt.during = nullptr;
    for (const Ref<PaperView>& each : source.made) each->during = nullptr;
  }
  // A view that is placed and open, with its calls so far taken.
  PaperView& view(const std::string& key = "drive") {
    const Ref<ViewSite> site = host.views().place("Paper");
    host.views().open(*site, key);
    source.made.back()->calls.clear();
    diary.lines.clear();
    return *source.made.back();
  }
  // The oldest request that the device has, answered.
  void reply(const Document& document) {
    const HandDevice::Asked first = asked.front();
    if (headOf(document).isFinal) asked.erase(asked.begin());
    first.answer(document);
  }
};

}  // namespace ostrand::test
