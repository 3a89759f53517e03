#include <map>
#include <random>
#include <set>

#include "calibration/CalibrationRoom.h"
#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand::test {
namespace {

constexpr double kHour = 3600;

// Watches one calibration view: what it asks for, what it was told, and what it reports.
class Watcher : public HostObserver {
 public:
  explicit Watcher(CalibrationRoom& room) : mRoom(room) { room.host.observers().add(*this); }

  std::map<std::string, std::string, std::less<>> told;  // item or parameter, the value that the view was told last
  std::map<std::string, int> messages;
  int requests = 0;
  int answers = 0;

  void requestQueued(const Request& request) override {
    if (!request.asker.empty()) ++requests, check(request);
  }
  void viewPlaced(const ViewSite&) override { told.clear(); }
  void viewHandedIn(const ViewSite&, DataPath path, const Document& document) override {
    const bool isAnswer = path == DataPath::Online;
    if (isAnswer) ++answers;
    if (path == DataPath::Error) return;
    std::set<std::string> seen;
    for (const Node& node : document.selectAll(isAnswer ? "//comm:item" : "//data:parameter")) {
      const std::string name(node.attribute("name"));
      if (!seen.insert(name).second) continue;
      const Node value = isAnswer ? node.firstChild() : node;
      if (value) told[name] = isAnswer ? value.text() : std::string(node.attribute("value"));
    }
  }
  void errorReported(const std::string&, const std::string& prefix, int number, const std::string& description) override {
    if (!isExpected(prefix, number, description)) ADD_FAILURE() << "reported: " << prefix << number << " " << description;
  }
  void errorUnhandled(const std::string&, int number, const std::string& description) override {
    ADD_FAILURE() << "unhandled: " << number << " " << description;
  }
  void messageShown(const std::string&, const std::string& title, const std::string& message) override {
    ++messages[title + "/" + message.substr(0, message.find('\r'))];
  }

 private:
  // A host that is busy or lost its device refuses, and says so. An answer that cannot be read is told too: by the walk, or by
  // the check of a sample on HART, which reads numbers.
  static bool isExpected(const std::string& prefix, int number, const std::string& description) {
    const bool isRefused = number == RuntimeError::PermissionDenied && description.starts_with("the request was refused: ");
    const bool isUnreadable = number == 13 || number == RuntimeError::NothingThere;
    for (const char* writer :
         {"BusHart IBusDependent_S", "BusProfibus ExecuteAction: ", "BusProfibus AskActionStatus: ", "BusProfibus ReadSampleData: ",
          "BusProfibus ReadRecipes: ", "VwCalibration Sample1Button_Click: ", "VwCalibration LabCalibrateBtn_Click: ",
          "VwCalibration cmdRecipeApplyButton_Click: ", "VwCalibration sendValues: ", "VwCalibration sendRecipes: "})
      if (prefix.starts_with(writer)) return isRefused;
    for (const char* reader :
         {"BusHart IBusDependent_CalibrationSetOnlineData: ", "VwCalibration ITaviDataUser_setOnlineData: ", "modView setOnlineData: "})
      if (prefix == reader) return isUnreadable;
    // In a sample that has failed there may be nothing to put the focus on.
    return prefix == "VwCalibration ITaviView_RequestFocus: " && number == RuntimeError::BadArgument;
  }

  void check(const Request& request) {
    static const std::set<std::string> kNames{"sampling", "laboratoryResults", "recipes"};
    EXPECT_TRUE(kNames.contains(request.name)) << request.name;
    int items = 0;
    for (Node item = request.document.root().firstChild().firstChild(); item; item = item.nextSibling(), ++items) {
      const std::string name(item.attribute("name"));
      EXPECT_TRUE(name == "actionStatus" || name == "executeAction" || mRoom.host.dataSet()->has(name)) << name;
      EXPECT_FALSE(item.attribute("unit").empty()) << name;
      const Node value = item.firstChild();
      if (!request.write) {
        EXPECT_TRUE(!value || value.text().empty()) << name;
        continue;
      }
      ASSERT_TRUE(value) << name;
      const auto number = parseNumber(value.text(), '.');
      EXPECT_TRUE(number) << name << "=" << value.text();
      EXPECT_TRUE(name != "executeAction" || (*number >= 3 && *number <= 6) || (*number >= 11 && *number <= 18)) << value.text();
      EXPECT_TRUE(name != "sampleStart" || *number == 0 || *number == 1) << value.text();
    }
    const int wanted = request.name == "laboratoryResults" && request.write ? (mRoom.isFjell ? 4 : 5) : 1;
    EXPECT_GE(items, wanted) << request.document.xml();
  }

  CalibrationRoom& mRoom;
};

// A user with a hand on everything, and a device with every fault.
class Soak {
 public:
  Soak(const char* device, unsigned seed) : room(device, seed), watcher(room), mRandom(seed) {
    room.user.answer = [this] { return pick(3) == 0 ? UserPrompt::kStop : UserPrompt::kGoOn; };
    room.user.meanwhile = [this] {
      if (pick(4) == 0) room.desktop.wait(pick(30) / 10.0);
    };
  }

  void run(double seconds) {
    schedule();
    room.desktop.wait(seconds);
    mEnded = true;
    room.desktop.wait(60);  // what was begun comes to its end
  }
  // The faults end, and one calibration goes through.
  void comeToRest() {
    room.device().setFault("none", "");
    room.user.meanwhile = nullptr;
    room.user.answer = [] { return UserPrompt::kGoOn; };
    room.host.user().setLanguage("en");
    room.desktop.setLocale("en");
    room.host.user().setLevel(3);
    room.host.setCommunicationMode(CommunicationMode::Free);
    room.host.setCommunicationMode(CommunicationMode::Download);
    room.settle();
  }

  CalibrationRoom room;
  Watcher watcher;
  int reached = 0;  // actions that found their control

 private:
  int pick(int n) { return static_cast<int>(mRandom() % static_cast<unsigned>(n)); }
  template <std::size_t N>
  const char* oneOf(const char* const (&texts)[N]) {
    return texts[pick(static_cast<int>(N))];
  }

  // Out of the event pump, so that it happens during waits, questions and messages too.
  void schedule() {
    room.desktop.schedule(pick(25) / 10.0, [this] {
      if (mEnded) return;
      schedule();
      if (mDepth >= 6) return;  // that many windows are open that nobody gets on
      ++mDepth;
      act();
      --mDepth;
      if (mDepth == 0) checkValues();
    });
  }

  void act() {
    const Ref<ViewSite> site = room.site;
    const int kind = pick(100);
    try {
      if (kind < 55) {
        useControl();
      } else if (kind < 65) {
        static const char* const kFrames[] = {"sampling", "laboratoryResults", "recipes", "calibration", "elsewhere"};
        room.host.views().bringToFront(*site, oneOf(kFrames));
      } else if (kind < 73) {
        disturbDevice();
      } else if (kind < 80) {
        room.host.setCommunicationMode(static_cast<CommunicationMode>(std::array{10, 11, 20, 21, 21, 11}[static_cast<std::size_t>(pick(6))]));
      } else if (kind < 84) {
        static const char* const kGroups[] = {"sampling", "laboratoryResults", "recipes", "rangeValues"};
        room.host.exchange().readGroup(oneOf(kGroups));
      } else if (kind < 87) {
        static const char* const kBlades[] = {"bladeTypeGS", "bladeTypeGL", "bladeTypeWS", "bladeTypeNobodyKnows", "\""};
        const char* const blade = oneOf(kBlades);
        if (*blade != '"') site->messenger().raise({ViewEvent::Kind::ReceiveValue, 0, "ctr_bladeType", blade});
      } else if (kind < 89) {
        static const char* const kLanguages[] = {"en", "fi", "sv", "de", "keys"};
        room.host.user().setLanguage(oneOf(kLanguages));
      } else if (kind < 91) {
        static const char* const kLocales[] = {"en", "fi", "sv", "de"};
        room.desktop.setLocale(oneOf(kLocales));
        room.host.user().setUnit("consistency", pick(2) ? "%Cs" : "% Cs");  // the views hear of it, and show their numbers anew
      } else if (kind < 93) {
        room.host.user().setLevel(2 + pick(3));
      } else if (kind < 95) {
        room.host.edits().discard();
      } else if (kind < 97) {
        room.host.edits().collect(1 + pick(2));
      } else if (kind < 98) {
        room.host.setDataSet(DataSet::open(room.host.dataSet()->file()));
      } else {
        room.enter(pick(2) ? "sampling" : "recipes");
      }
      ++reached;
    } catch (const RuntimeError& error) {
      // What a user cannot reach, and a choice that is not offered.
      EXPECT_TRUE(error.number() == RuntimeError::PermissionDenied || error.number() == RuntimeError::BadArgument)
          << error.number() << " " << error.description();
    }
  }

  void useControl() {
    std::vector<Control*> usable;
    for (Control* control : room.site->view()->GetControls())
      if (dynamic_cast<CommandButton*>(control) || dynamic_cast<EditControl*>(control)) usable.push_back(control);
    // Rather a button than one of the many edits.
    if (pick(2)) std::erase_if(usable, [](Control* control) { return !dynamic_cast<CommandButton*>(control) || !control->Visible(); });
    Control* const control = usable[static_cast<std::size_t>(pick(static_cast<int>(usable.size())))];
    if (auto* const button = dynamic_cast<CommandButton*>(control)) {
      button->click();
    } else if (auto* const combo = dynamic_cast<CtrComboEdit*>(control)) {
      const auto& choices = combo->choices();
      combo->choose(choices.empty() ? "nothing" : std::string(choices[static_cast<std::size_t>(pick(static_cast<int>(choices.size())))].key));
    } else if (auto* const text = dynamic_cast<CtrTextEdit*>(control)) {
      static const char* const kTexts[] = {"1.2", "3,4", "0", "", "-1", "99999", "abc", "1.0", "3.45", "1e3", " 2", "nan", "2.5 %", "0.30"};
      text->type(oneOf(kTexts));
    }
  }

  void disturbDevice() {
    struct Fault {
      const char *name, *argument;
    };
    static const Fault kFaults[] = {{"silent", ""},
                                    {"silent", "sampling"},
                                    {"refuse", "laboratoryResults"},
                                    {"refuse", "recipes communicationError"},
                                    {"refuse", "sampling"},
                                    {"nan", "sample1Deviation"},
                                    {"nan", "sample2ConsistencyAverage"},
                                    {"value", "sample1ConsistencyAverage 3,4"},
                                    {"value", "recipe1PulpType 99"},
                                    {"value", "calibrationType 1"},
                                    {"slow", "10"},
                                    {"twice", ""},
                                    {"foreign", "laboratoryResults"},
                                    {"unfinished", ""},
                                    {"garbage", ""},
                                    {"failure", "sensor"},
                                    {"unsteady", "20"},
                                    {"writeProtected", ""}};
    if (pick(2)) return room.device().setFault("none", "");
    const Fault& fault = kFaults[static_cast<std::size_t>(pick(static_cast<int>(std::size(kFaults))))];
    room.device().setFault(fault.name, fault.argument);
  }

  // What nobody has edited stands on the screen as the view was told it last, and a sample shows one of its buttons at most.
  void checkValues() {
    for (const int sample : {1, 2}) EXPECT_FALSE(room.take(sample).Visible() && room.stop(sample).Visible()) << sample;
    for (Control* control : room.site->view()->GetControls()) {
      auto* const edit = dynamic_cast<EditControl*>(control);
      if (!edit || edit->Modified()) continue;
      // The laboratory's values are emptied and closed by code.
      if (edit->Tag().starts_with("ctr_laboratoryValue")) {
        EXPECT_TRUE(edit->Enabled() || edit->Text() == "0" || edit->Text() == edit->storedText()) << edit->name();
        continue;
      }
      const auto found = watcher.told.find(edit->parameterName());
      if (found == watcher.told.end()) continue;
      EXPECT_EQ(edit->stored(), found->second) << edit->name();
      EXPECT_EQ(edit->Text(), edit->storedText()) << edit->name();
    }
  }

  std::mt19937 mRandom;
  int mDepth = 0;
  bool mEnded = false;
};

class CalibrationSoakTest : public testing::TestWithParam<std::tuple<const char*, unsigned>> {};

INSTANTIATE_TEST_SUITE_P(Devices, CalibrationSoakTest,
                         testing::Combine(testing::Values("hartBlade", "profibusBlade", "hartFjell"), testing::Values(1u, 2u, 3u)),
                         [](const auto& each) { return std::string(std::get<0>(each.param)) + std::to_string(std::get<1>(each.param)); });

TEST_P(CalibrationSoakTest, AnHourOfEverything) {
  const auto& [device, seed] = GetParam();
  const ServerLibrary library(std::filesystem::path(OSTRAND_BINARY_DIR) / ownLibraryName());
  {
    Soak soak(device, seed);
    CalibrationRoom& room = soak.room;
    soak.run(kHour);
    soak.comeToRest();
    // The view that has been through it all still answers.
    room.host.views().bringToFront(*room.site, "laboratoryResults");
    room.calibrationType().choose("useBothSamples");
    for (const int sample : {1, 2}) room.laboratoryValue(sample).type("1.5");
    room.laboratoryRecipe().choose("recipe1");
    if (!room.isFjell) room.get<CtrTextEdit>("cte_laboratoryResults(0)").type("2");
    const int before = soak.watcher.requests;
    room.accept().click();
    EXPECT_GT(soak.watcher.requests, before);
    room.settle();
    room.host.exchange().readGroup("recipes");
    room.settle();
    EXPECT_EQ(room.slope(1).stored(), room.host.dataSet()->value("recipe1LinearizationSlopeP1"));
    // Else the hour was spent with little.
    EXPECT_GT(soak.watcher.requests, 100);
    EXPECT_GT(soak.watcher.answers, 100);
    EXPECT_GT(soak.reached, 1500);
    EXPECT_GT(soak.watcher.messages["laboratoryResults/calibrationWasSuccessfullPleaseUpdateRecipesView"], 0);
    EXPECT_FALSE(library.canUnload());
    room.host.views().release(*room.site);
    room.site = nullptr;
    EXPECT_TRUE(library.canUnload()) << "a component lives on";
  }
}

}  // namespace
}  // namespace ostrand::test
