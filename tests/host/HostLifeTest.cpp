#include "host/Host.h"
#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class HostLifeTest : public HostTest {};

TEST_F(HostLifeTest, AViewIsCalledInTheOrderOfItsLife) {
  const Ref<ViewSite> site = host.place("Paper", "measurement");
  PaperView& paper = *source.made.back();
  EXPECT_EQ(paper.take(), (Lines{"Place measurement", "SetMessenger", "Localize Accept"}));
  host.open(*site, "drive");
  EXPECT_EQ(paper.take(), (Lines{"SetSelectedView drive", "SetOfflineData", "mode 11", "RequestFocus"}));
  host.release(*site);
  EXPECT_EQ(paper.take(), (Lines{"PrepareToRelease", "Terminate"}));
  EXPECT_FALSE(site->alive());
  source.made.clear();
  EXPECT_EQ(source.alive, 0);
}

TEST_F(HostLifeTest, TellsOfAnErrorThatNobodyHandled) {
  diary.take();
  desktop.schedule(1, [] { throw RuntimeError(RuntimeError::NothingThere, "gone"); });
  desktop.wait(2);
  EXPECT_THAT(diary.take(), testing::ElementsAre("unhandled of : 91 gone"));
}

TEST_F(HostLifeTest, AReleasedSiteDoesNothing) {
  view();
  const Ref<ViewSite> site = host.sites().front();
  host.release(*site);
  host.release(*site);
  site->select("x");
  site->handIn(DataPath::Offline, host.dataSet()->copy());
  site->requestFocus();
  site->resize(1, 1);
  EXPECT_TRUE(site->leave());
  EXPECT_EQ(site->selected(), "");
  EXPECT_FALSE(host.bringToFront(*site, "x"));
  EXPECT_EQ(refusalOf([&] { site->DTMGUIGetXmlPath(); }).number, RuntimeError::NothingThere);
  EXPECT_EQ(refusalOf([&] { site->DTMGUIDownload("<a/>", "", 1); }).number, RuntimeError::NothingThere);
}

TEST_F(HostLifeTest, TheHostEndsItsViews) {
  {
    PaperSource other;
    Host second(desktop, other, prompt, sourceData());
    second.place("Paper");
    second.place("Paper");
    other.made.clear();
    EXPECT_EQ(other.alive, 2);
  }
  int alive = 0;
  {
    PaperSource other;
    {
      Host second(desktop, other, prompt, sourceData());
      second.place("Paper");
    }
    other.made.clear();
    alive = other.alive;
  }
  EXPECT_EQ(alive, 0);
}

TEST_F(HostLifeTest, AnUnknownClassIsNamed) {
  const auto error = refusalOf([&] { host.place("VwNothing"); });
  EXPECT_EQ(error.number, RuntimeError::BadArgument);
  EXPECT_NE(error.description.find("VwNothing"), std::string::npos);
  EXPECT_TRUE(host.sites().empty());
}

TEST_F(HostLifeTest, SitesOfOneClassHaveDifferentNames) {
  EXPECT_EQ(host.place("Paper")->name(), "Paper");
  EXPECT_EQ(host.place("Paper")->name(), "Paper 2");
}

TEST_F(HostLifeTest, TheViewInFrontIsAskedBeforeAnotherComes) {
  PaperView& first = view("a");
  view("b");
  const Ref<ViewSite> second = host.sites().back();
  EXPECT_EQ(host.front(), host.sites().front().get());
  first.mayLeave = false;
  EXPECT_FALSE(host.bringToFront(*second, "c"));
  EXPECT_EQ(host.front(), host.sites().front().get());
  first.mayLeave = true;
  EXPECT_TRUE(host.bringToFront(*second, "c"));
  EXPECT_EQ(host.front(), second.get());
  EXPECT_EQ(second->selected(), "c");
}

TEST_F(HostLifeTest, AViewThatFailsCostsThatCallOnly) {
  PaperView& paper = view();
  paper.during = [](const std::string& call) {
    if (call == "SetSelectedView bad") throw RuntimeError(438, "broken view");
    if (call == "RequestFocus") throw std::logic_error("stranger");
  };
  host.bringToFront(*host.sites().front(), "bad");
  EXPECT_EQ(diary.lines, (Lines{"unhandled of Paper: 438 broken view", "unhandled of Paper: 440 stranger"}));
  paper.during = nullptr;
  EXPECT_TRUE(host.bringToFront(*host.sites().front(), "good"));
}

TEST_F(HostLifeTest, ADataSetThatCannotBeOpenedChangesNothing) {
  PaperView& paper = view();
  EXPECT_EQ(refusalOf([&] { host.openDataSet("no/such/file.xml"); }).number, RuntimeError::FileNotFound);
  EXPECT_TRUE(paper.take().empty());
  EXPECT_EQ(host.dataSet()->deviceType(), "test");
  host.openDataSet(sourceData() / "devices/hartBlade.xml");
  EXPECT_EQ(paper.take(), Lines{"SetOfflineData"});
  EXPECT_EQ(host.dataSet()->deviceType(), "hartBlade");
}

TEST_F(HostLifeTest, ADeviceMayHaveATreeOfItsOwn) {
  const auto view = [&] { return host.treeDocument().selectText("/dtm/treeView/branch[@name='configuration']/@component").value_or(""); };
  host.openDataSet(sourceData() / "devices" / "hartFjell.xml");
  EXPECT_EQ(view(), "VwConfigurationFjell");
  host.openDataSet(sourceData() / "devices" / "hartBlade.xml");
  EXPECT_EQ(view(), "VwConfigurationH");
}

TEST_F(HostLifeTest, ALanguageThatIsMissingChangesNothing) {
  PaperView& paper = view();
  EXPECT_EQ(refusalOf([&] { host.setLanguage("xx"); }).number, RuntimeError::BadArgument);
  EXPECT_EQ(host.session().language, "en");
  EXPECT_TRUE(paper.take().empty());
  host.setLanguage("probe");
  EXPECT_EQ(paper.take(), Lines{"Localize T:accept"});
}

TEST_F(HostLifeTest, ALevelReachesAViewWithItsMessenger) {
  PaperView& paper = view();
  host.setUserLevel(2);
  EXPECT_EQ(paper.take(), Lines{"SetMessenger"});
  EXPECT_EQ(paper.messenger->GetUserLevel(), 2);
  EXPECT_EQ(paper.messenger->GetCommunicationMode(), 11);
  host.setCommunicationMode(CommunicationMode::Busy);
  paper.take();
  host.setUserLevel(3);
  EXPECT_EQ(paper.take(), (Lines{"SetMessenger", "mode 20"})) << "busy stays busy";
}

TEST_F(HostLifeTest, ANewViewHearsTheModeInForce) {
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  host.setCommunicationMode(CommunicationMode::Busy);
  const Ref<ViewSite> site = host.place("Paper");
  host.open(*site, "a", DataPath::Import);
  EXPECT_EQ(source.made.back()->take(), (Lines{"Place ", "SetMessenger", "Localize Accept", "SetSelectedView a", "SetImportData", "mode 10", "mode 20", "RequestFocus"}));
}

TEST_F(HostLifeTest, LiveValuesAreReadWhileTheirFrameIsInFront) {
  view("drive");
  desktop.wait(5);
  EXPECT_TRUE(asked.empty());
  host.bringToFront(*host.sites().front(), "monitoringVariables");
  desktop.wait(0.1);
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load speed");
  reply(answer("monitoringVariables", "read", {{"load", "8"}, {"speed", "2"}}));
  desktop.wait(0.9);
  EXPECT_TRUE(asked.empty()) << "a period between two readings";
  desktop.wait(0.2);
  ASSERT_EQ(asked.size(), 1u);
  reply(answer("monitoringVariables", "read", {{"load", "8"}}));
  host.bringToFront(*host.sites().front(), "drive");
  desktop.wait(5);
  EXPECT_TRUE(asked.empty());
}

TEST_F(HostLifeTest, LiveReadingIsNeverInTheWay) {
  PaperView& paper = view("monitoringVariables");
  desktop.wait(0);
  reply(answer("monitoringVariables", "read", {{"load", "8"}}));
  paper.messenger->SendRequest("<communicationRequest name=\"slow\" access=\"read\"><item name=\"speed\"/></communicationRequest>", "slow");
  desktop.wait(1.5);
  EXPECT_EQ(asked.size(), 1u);
  EXPECT_EQ(host.communication().waiting(), 0u);
  reply(answer("slow", "read", {{"speed", "2"}}));
  host.setCommunicationMode(CommunicationMode::Busy);
  diary.take();
  desktop.wait(3);
  EXPECT_TRUE(diary.take().empty());
  host.setCommunicationMode(CommunicationMode::Free);
  desktop.wait(1.1);
  EXPECT_EQ(asked.size(), 1u);
  reply(answer("monitoringVariables", "read", {{"load", "8"}}));
  host.setLiveReading(false);
  desktop.wait(5);
  EXPECT_TRUE(asked.empty());
}

TEST_F(HostLifeTest, LiveReadingLeavesAloneWhatIsEdited) {
  PaperView& paper = view("monitoringVariables");
  desktop.wait(0);
  reply(answer("monitoringVariables", "read", {{"load", "8"}}));
  const auto nextAsked = [&](const char* word) {
    paper.messenger->SetParameterStatus("speed", word);
    desktop.wait(1.1);
    const std::string request = asked.empty() ? "" : told(asked.back().request);
    reply(answer("monitoringVariables", "read", {{"load", "8"}}));
    return request;
  };
  EXPECT_EQ(nextAsked("edited"), "read monitoringVariables: load");
  EXPECT_EQ(nextAsked("sync"), "read monitoringVariables: load") << "no word about an edit";
  EXPECT_EQ(nextAsked("editedError"), "read monitoringVariables: load");
  EXPECT_EQ(nextAsked("original"), "read monitoringVariables: load speed");
  EXPECT_EQ(nextAsked("corrected"), "read monitoringVariables: load");
  host.release(*host.sites().front());
  PaperView& other = view("monitoringVariables");
  (void)other;
  desktop.wait(1.1);
  ASSERT_FALSE(asked.empty());
  EXPECT_EQ(told(asked.back().request), "read monitoringVariables: load speed") << "an edit ends with its view";
}

TEST_F(HostLifeTest, LiveReadingGoesOnAfterADeviceThatDidNotAnswer) {
  PaperView& paper = view("monitoringVariables");
  const Lines failure = {"SetErrorData read monitoringVariables communicationError local: load speed"};
  desktop.wait(12);
  EXPECT_GT(asked.size(), 3u);
  EXPECT_EQ(paper.take(), failure) << "told once, not again and again";
  const auto good = answer("monitoringVariables", "read", {{"load", "8"}});
  asked.back().answer(good);
  EXPECT_EQ(paper.take().size(), 1u);
  desktop.wait(12);
  EXPECT_EQ(paper.take(), failure) << "and again after it has worked";
}

TEST_F(HostLifeTest, ChangesGoOutByGroup) {
  PaperView& paper = view();
  const std::vector<Change> changes = {{"v", "speed", "", "1.25", "2", "N", "floatVal", "drive"},
                                       {"v", "name", "", "A", "B", "noUnit", "stringVal", "labels"},
                                       {"v", "mode", "", "1", "3", "noUnit", "integerVal", "drive"},
                                       {"v", "recipe1", "", "1 2", "1 3", "", "stringVal", "recipe1"}};
  bool finished = false;
  const auto left = host.applyChanges(changes, [&] { finished = true; });
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].name, "recipe1");
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write drive: speed=2 mode=3");
  reply(answer("drive", "write", {{"speed", "2"}, {"mode", "3"}}));
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write labels: name=B");
  EXPECT_FALSE(finished);
  reply(answer("labels", "write", {{"name", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrAccessRestricted\""));
  EXPECT_TRUE(finished);
  EXPECT_EQ(host.dataSet()->value("mode"), "3");
  ASSERT_EQ(host.transfer().failures().size(), 1u);
  EXPECT_EQ(host.transfer().failures()[0].item, "name");
  EXPECT_EQ(host.transfer().failures()[0].errorCode, "hartCmdErrAccessRestricted");
  EXPECT_EQ(paper.take(), (Lines{"SetOnlineData write drive: speed=2 mode=3", "SetErrorData write labels hartCmdErrAccessRestricted: name"}));
}

TEST_F(HostLifeTest, WithLocalAcceptanceChangesGoIntoTheDataSet) {
  view();
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  host.applyChanges({{"v", "speed", "", "1.25", "2", "N", "floatVal", "drive"}});
  EXPECT_TRUE(asked.empty());
  EXPECT_EQ(host.dataSet()->edited(), Lines{"speed"});
  host.discardEdits();
  EXPECT_TRUE(host.dataSet()->edited().empty());
  EXPECT_EQ(source.made.back()->take().back(), "SetOfflineData");
}

TEST_F(HostLifeTest, DiscardingBringsBackWhatTheDeviceHasSaid) {
  PaperView& paper = view();
  host.dataSet()->edit("speed", "3");
  host.discardEdits();
  EXPECT_EQ(paper.take(), Lines{"SetOfflineData"});
  const DataSet handed(paper.lastDocument);
  EXPECT_EQ(handed.value("speed"), "1.25");
  EXPECT_EQ(handed.offlineValue("speed"), "");
  EXPECT_EQ(handed.value("mode"), "") << "the device has never given it";
  EXPECT_TRUE(handed.synchronised("mode")) << "nor is it there to be written";
  EXPECT_EQ(host.dataSet()->value("mode"), "1") << "the data set keeps it";
}

TEST_F(HostLifeTest, TypedEditsAreKeptForTheFile) {
  PaperView& paper = view();
  paper.during = [&](const std::string& call) {
    if (!call.starts_with("changes")) return;
    paper.messenger->AddChange("speed", "Speed", "1.25", "2", "N", "floatVal", "drive");
    paper.messenger->AddChange("loopTestValue", "Test", "", "12", "mA", "floatVal", "loopTest");
  };
  const std::vector<LeftOut> left = host.keepTypedEdits();
  EXPECT_EQ(host.dataSet()->edited(), Lines{"speed"});
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].name, "loopTestValue");
  EXPECT_TRUE(asked.empty());
}

TEST_F(HostLifeTest, AViewThatIsReleasedWhileItIsAskedToLeaveMayStillStopItsTest) {
  PaperView& paper = view();
  const Ref<ViewSite> site = host.sites().front();
  const Ref<Messenger> kept = paper.messenger;
  const char* const stop = "<communicationRequest name=\"drive\" access=\"write\"><item name=\"speed\" unit=\"N\"><floatVal>0</floatVal></item></communicationRequest>";
  paper.during = [&](const std::string& call) {
    if (call != "LeaveSelectedView") return;
    host.release(*site);
    kept->SendRequest(stop, "drive");
  };
  site->leave();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write drive: speed=0");
  EXPECT_EQ(refusalOf([&] { kept->SendRequest(stop, "drive"); }).number, RuntimeError::NothingThere) << "not after that";
}

TEST_F(HostLifeTest, RefusesADataFolderWithADamagedFileOnly) {
  Host bare(desktop, source, prompt, "no/such/folder");
  EXPECT_EQ(bare.session().language, "keys");
  EXPECT_TRUE(bare.units()->quantities().empty());
  EXPECT_FALSE(bare.treeDocument());
  EXPECT_EQ(bare.textTable()->GetText("accept"), "accept");
}

TEST_F(HostLifeTest, WhoeverTapsStandsBetweenViewAndHost) {
  class Deaf : public HostObject<IHostContainer> {
    void DTMGUIDownload(const std::string&, const std::string&, int) override {}
    std::string DTMGUIGetXmlPath() override { return "tapped"; }
  };
  std::string tapped;
  PaperSource other;
  Host second(desktop, other, prompt, sourceData(),
              {[&](ViewSite& site, Ref<Messenger> messenger) {
                 tapped = site.name();
                 return messenger;
               },
               [](ViewSite&, Ref<IHostContainer>) { return Ref<IHostContainer>(new Deaf); }});
  second.place("Paper");
  EXPECT_EQ(tapped, "Paper");
  EXPECT_EQ(other.made.back()->parent->DTMGUIGetXmlPath(), "tapped");
}

}  // namespace

}  // namespace ostrand::test
