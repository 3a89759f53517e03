// Every member of every class, whatever state the component is in and whatever the host does meanwhile.

#include <map>
#include <random>
#include <set>

#include "component/Classes.h"
#include "diagnostics/DiagnosticsBench.h"
#include "platform/controls/ChoiceEdit.h"
#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand::test {
namespace {

struct Ended : Counted {
  explicit Ended(bool& flag) : mFlag(flag) {}
  ~Ended() override { mFlag = true; }
  bool& mFlag;
};

// A component of one class before a host that holds its only count.
class Stage {
 public:
  enum State { Made, Placed, Running };

  Stage(const ComponentClass& made, State state, const std::string& dataSet) : mDataSet(dataSet), mView(made.create()) {
    messenger->dropReports();
    mView->keep(Ref<Counted>(new Ended(ended)));
    if (state == Made) return;
    mView->Place(desktop, container, "");
    as<ITaviComponent>([&](ITaviComponent& component) { component.SetMessenger(messenger); });
    as<ILocalizable>([&](ILocalizable& localizable) { localizable.Localize(messenger->textTable); });
    as<ITaviDataUser>([&](ITaviDataUser& user) { user.SetOfflineData(data()); });
    if (state == Running)
      for (const char* name : {"cteLoopTest", "cteLoopTest(0)", "cmdLoopTest", "Sample1Button(0)"}) act(name);
  }
  ~Stage() {
    calls.onArrival = nullptr;
    leave();
  }

  // Drops the only count, after the usual farewell or without it.
  void leave(bool farewell = true) {
    const Ref<Component> last = std::exchange(mView, nullptr);
    if (!last || !farewell) return;
    as<ITaviView>([](ITaviView& view) { view.PrepareToRelease(); }, last.get());
    last->Terminate();
  }

  // Calls an interface, if the class has it, without another count of the component.
  template <class I, class F>
  void as(F&& call, Component* on = nullptr) {
    if (I* const wanted = dynamic_cast<I*>(on ? on : mView.get())) call(*wanted);
  }
  Component& component() { return *mView; }
  // The user's action on a control; what he may not do is refused.
  void act(std::string_view name) {
    for (Control* control : mView->controls())
      if (control->name() == name) return act(*control);
  }
  static void act(Control& control) {
    try {
      if (auto* const button = dynamic_cast<CommandButton*>(&control)) return button->click();
      if (auto* const box = dynamic_cast<CheckBox*>(&control)) return box->click();
      if (auto* const option = dynamic_cast<OptionButton*>(&control)) return option->click();
      if (auto* const text = dynamic_cast<CtrTextEdit*>(&control)) return text->type("5");
      if (auto* const combo = dynamic_cast<ChoiceEdit*>(&control)) return combo->choose("one");
    } catch (const RuntimeError&) {
    }
  }
  Document data() const { return Document::read(mDataSet); }

  bool ended = false;
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<HearingContainer> container{new HearingContainer(calls)};

 private:
  const std::string& mDataSet;
  Ref<Component> mView;
};

struct Entry {
  std::string name;
  std::function<void(Stage&)> call;
  std::function<void(Stage&)> before = [](Stage&) {};  // what the host does first
  bool reachesPanels = false;                          // a nested panel is entered by itself, and holds itself
};

// A data set in which every edit of the class finds its parameter.
std::string dataFor(const ComponentClass& made) {
  FakeCalls calls;
  VirtualDesktop desktop;
  const Ref<Component> component(made.create());
  component->Place(desktop, Ref<IHostContainer>(new FakeContainer(calls)), "");
  std::string parameters = parameterXml("statusSensorFailure", "0", "type=\"integerVal\"") + parameterXml("eventLogErrorEvent01", "x") +
                           parameterXml("live", "1", "type=\"floatVal\" unit=\"%\"");
  for (Control* control : component->controls())
    if (const std::string_view name = control->parameterName(); !name.empty())
      parameters += parameterXml(std::string(name), "1", "type=\"floatVal\" access=\"write\"");
  const auto group = [](const std::string& name, const std::string& parameter) {
    return "<data:requestGroup name=\"" + name + "\" lastUpdate=\"01/02/2025 03:04:05\"><data:includedParam name=\"" + parameter +
           "\"/></data:requestGroup>";
  };
  const std::string mappings =
      "<data:mappedParam name=\"failure\"><data:mappedItem value=\"1\" key=\"one\" category=\"failure\"/></data:mappedParam>"
      "<data:mappedParam name=\"pulpType\"><data:mappedItem value=\"1\" key=\"one\"/></data:mappedParam>";
  const Document data =
      dataSet(parameters, mappings,
              group("deviceStatus", "statusSensorFailure") + group("monitoringVariables", "live") + group("moduleSelection", "live"), "DPV1");
  component->Terminate();
  return data.xml();
}

std::vector<Entry> entriesOf(const ComponentClass& made) {
  std::vector<Entry> all;
  const auto view = [&](const std::string& name, std::function<void(ITaviView&)> call) {
    all.push_back({name, [call](Stage& stage) { stage.as<ITaviView>(call); }});
  };
  const auto data = [&](const std::string& name, void (ITaviDataUser::*member)(const Document&), std::function<Document(Stage&)> document) {
    all.push_back({name, [member, document](Stage& stage) {
                     const Document doc = document(stage);
                     stage.as<ITaviDataUser>([&](ITaviDataUser& user) { (user.*member)(doc); });
                   }});
  };
  const auto event = [&](const std::string& name, std::function<void(FakeMessenger&)> raise) {
    all.push_back({name, [raise](Stage& stage) {
                     const Ref<FakeMessenger> host = stage.messenger;
                     raise(*host);
                   }});
    all.back().reachesPanels = true;
  };

  all.push_back({"SetMessenger", [](Stage& stage) { stage.as<ITaviComponent>([&](ITaviComponent& each) { each.SetMessenger(stage.messenger); }); }});
  all.push_back({"SetMessenger of another", [](Stage& stage) {
                   const Ref<FakeMessenger> other(new FakeMessenger(stage.calls));
                   other->dropReports();
                   stage.as<ITaviComponent>([&](ITaviComponent& each) { each.SetMessenger(other); });
                 }});
  all.push_back({"SetMessenger of nobody", [](Stage& stage) { stage.as<ITaviComponent>([](ITaviComponent& each) { each.SetMessenger(nullptr); }); }});
  all.push_back({"Localize", [](Stage& stage) { stage.as<ILocalizable>([&](ILocalizable& each) { each.Localize(stage.messenger->textTable); }); }});
  all.push_back({"Localize without texts", [](Stage& stage) { stage.as<ILocalizable>([](ILocalizable& each) { each.Localize(nullptr); }); }});
  view("GetControls", [](ITaviView& each) { each.GetControls(); });
  view("GetMessenger", [](ITaviView& each) { each.GetMessenger(); });
  view("GetSelectedView", [](ITaviView& each) { each.GetSelectedView(); });
  for (const char* key :
       {"measurement", "unknown", "", "activeRecipe", "monitoringVariables", "identification", "transmitter", "simulation", "moduleSelection",
        "laboratoryResults", "sampling", "recipes", "deviceStatus", "loopTest", "eventLog", "resetingEventLog", "sensorLimits", "waterValues"})
    for (const std::string member : {"SetSelectedView ", "RequestFocus ", "LeaveSelectedView "}) {
      const std::string selected = key;
      const auto select = [selected](ITaviView& each) { each.SetSelectedView(selected); };
      const bool selects = member == "SetSelectedView ";
      view(
          member + key, selects ? std::function<void(ITaviView&)>(select) : [leaves = member == "LeaveSelectedView "](ITaviView& each) {
            leaves ? void(each.LeaveSelectedView()) : each.RequestFocus();
          });
      if (!selects) all.back().before = [select](Stage& stage) { stage.as<ITaviView>(select); };
    }
  view("PrepareToRelease", [](ITaviView& each) { each.PrepareToRelease(); });
  all.push_back({"Terminate", [](Stage& stage) { stage.component().Terminate(); }});
  all.push_back({"Resize", [](Stage& stage) { stage.component().Resize(9000, 6000); }});

  const auto theData = [](Stage& stage) { return stage.data(); };
  data("SetImportData", &ITaviDataUser::SetImportData, theData);
  data("SetOfflineData", &ITaviDataUser::SetOfflineData, theData);
  const auto nothing = [](Stage&) { return Document(); };
  data("SetImportData of nothing", &ITaviDataUser::SetImportData, nothing);
  data("SetOfflineData of nothing", &ITaviDataUser::SetOfflineData, nothing);
  data("SetOnlineData of nothing", &ITaviDataUser::SetOnlineData, nothing);
  data("SetErrorData of nothing", &ITaviDataUser::SetErrorData, nothing);
  for (const char* name : {"loopTest", "deviceStatus", "eventLog", "activeRecipe", "sampling", "laboratoryResults", "monitoringVariables"}) {
    const std::string items = itemXml("loopTestValue", "0", "floatVal") + itemXml("statusHARTPVOutOfLimits", "1", "integerVal") +
                              itemXml("eventLogErrorEvent01", "one") + itemXml("sample1Deviation", "5", "floatVal") +
                              itemXml("sample1ConsistencyAverage", "2", "floatVal") + itemXml("live", "3", "floatVal");
    const std::string head = "name=\"" + std::string(name) + "\" isFinal=\"1\" responseStatus=\"device\" access=\"write\"";
    data("SetOnlineData " + std::string(name), &ITaviDataUser::SetOnlineData, [=](Stage&) { return answer(head, items); });
    data("SetErrorData " + std::string(name), &ITaviDataUser::SetErrorData,
         [=](Stage&) { return answer(head + " errorCode=\"missingItems\"", items); });
  }
  for (const int mode : {10, 11, 20, 21}) event("mode " + std::to_string(mode), [mode](FakeMessenger& host) { host.raiseMode(mode); });
  event("ViewReceiveValue", [](FakeMessenger& host) { host.raiseReceiveValue("ctr_bladeType", "one"); });
  event("ViewSetUnits", [](FakeMessenger& host) { host.raiseUnits(); });
  event("ViewGetChanges", [](FakeMessenger& host) { host.raiseGetChanges(1); });
  for (const bool logo : {false, true})
    all.push_back({logo ? "GetDeviceLogo" : "GetDeviceImage", [logo](Stage& stage) {
                     stage.as<ITaviDeviceSpecific>([&](ITaviDeviceSpecific& each) { logo ? each.GetDeviceLogo("") : each.GetDeviceImage(""); });
                   }});

  // The user: every button, and the first edits of each kind.
  FakeCalls calls;
  VirtualDesktop desktop;
  const Ref<Component> component(made.create());
  component->Place(desktop, nullptr, "");
  std::map<Control::Kind, int> seen;
  for (Control* control : component->controls())
    if (dynamic_cast<CommandButton*>(control) || ++seen[control->kind()] <= 2) {
      all.push_back({"user of " + control->name(), [name = control->name()](Stage& stage) { stage.act(name); }});
      if (control->kind() > Control::Kind::NoData)
        all.push_back({"leaves " + control->name(), [name = control->name()](Stage& stage) {
                         stage.desktop.tabDown = true;
                         for (Control* each : stage.component().controls())
                           if (each->name() == name)
                             if (auto* const edit = dynamic_cast<EditControl*>(each)) return edit->leave();
                       }});
    }
  component->Terminate();
  return all;
}

class EveryEntryTest : public testing::TestWithParam<const ComponentClass*> {
 protected:
  const ComponentClass& made = *GetParam();
  const std::string data = dataFor(made);
  const std::vector<Entry> entries = entriesOf(made);

  void enter(const Entry& entry, Stage& stage) { EXPECT_NO_THROW(entry.call(stage)) << entry.name; }
  void prepare(const Entry& entry, Stage& stage) { EXPECT_NO_THROW(entry.before(stage)) << "before " << entry.name; }
  // In whatever order: the same ones at every run.
  void wander(Stage::State state) {
    std::mt19937 random(20);
    for (int walk = 0; walk < 60; ++walk) {
      Stage stage(made, state, data);
      std::string steps;
      for (int step = 0; step < 25; ++step) {
        const Entry& entry = entries[random() % entries.size()];
        steps += " / " + entry.name;
        SCOPED_TRACE(steps);
        prepare(entry, stage);
        enter(entry, stage);
      }
    }
  }
  // The host drops its last count inside the first and the last call of each name that the entry makes.
  void dropInside(Stage::State state) {
    for (const Entry& entry : entries) {
      std::map<std::string, std::set<int>> moments;
      {
        Stage stage(made, state, data);
        prepare(entry, stage);
        int count = 0;
        stage.calls.onArrival = [&](const std::string& call) {
          std::set<int>& own = moments[call];
          if (own.size() == 2) own.erase(std::prev(own.end()));
          own.insert(++count);
        };
        entry.call(stage);
        stage.calls.onArrival = nullptr;
      }
      for (const auto& [call, at] : moments)
        for (const int moment : at)
          for (const bool farewell : {true, false}) {
            SCOPED_TRACE(entry.name + ", inside call " + std::to_string(moment) + ", " + call + (farewell ? "" : ", without a farewell"));
            Stage stage(made, state, data);
            prepare(entry, stage);
            int count = 0;
            stage.calls.onArrival = [&](const std::string&) {
              if (++count == moment) stage.leave(farewell);
              if (!entry.reachesPanels) {
                EXPECT_FALSE(stage.ended) << "it is still at work";
              }
            };
            enter(entry, stage);
            stage.calls.onArrival = nullptr;
            EXPECT_TRUE(stage.ended) << "somebody still holds it";
            EXPECT_EQ(stage.messenger->listeners(), 0u) << "somebody still listens";
            EXPECT_EQ(stage.messenger->count(), 1u) << "somebody still holds the messenger";
          }
    }
  }
};

std::vector<const ComponentClass*> everyClass() {
  std::vector<const ComponentClass*> all;
  for (const ComponentClass& each : componentClasses()) all.push_back(&each);
  return all;
}

INSTANTIATE_TEST_SUITE_P(Classes, EveryEntryTest, testing::ValuesIn(everyClass()), [](const auto& each) { return std::string(each.param->name); });

TEST_P(EveryEntryTest, IsTakenBeforeTheComponentIsPlaced) {
  for (const Entry& entry : entries) {
    Stage stage(made, Stage::Made, data);
    prepare(entry, stage);
    enter(entry, stage);
    Stage known(made, Stage::Made, data);
    known.as<ITaviComponent>([&](ITaviComponent& each) { each.SetMessenger(known.messenger); });
    enter(entry, known);
  }
}

TEST_P(EveryEntryTest, IsTakenBeforeTheComponentIsPlacedInAnyOrder) { wander(Stage::Made); }

TEST_P(EveryEntryTest, IsTakenInAnyOrder) { wander(Stage::Placed); }

TEST_P(EveryEntryTest, OutlivesAHostThatDropsItsLastCount) { dropInside(Stage::Placed); }

TEST_P(EveryEntryTest, OutlivesAHostThatDropsItsLastCountWhileSomethingRuns) { dropInside(Stage::Running); }

}  // namespace
}  // namespace ostrand::test
