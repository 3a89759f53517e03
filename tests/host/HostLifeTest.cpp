#include "host/Host.h"
#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class HostLifeTest : public HostTest {};

TEST_F(HostLifeTest, AViewIsCalledInTheOrderOfItsLife) {
  const Ref<ViewSite> site = host.views().place("Paper", "measurement");
  PaperView& paper = *source.made.back();
  EXPECT_EQ(paper.take(), (Lines{"Place measurement", "SetMessenger", "Localize Accept"}));
  host.views().open(*site, "drive");
  EXPECT_EQ(paper.take(), (Lines{"SetSelectedView drive", "SetOfflineData", "mode 11", "RequestFocus"}));
  host.views().release(*site);
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
  const Ref<ViewSite> site = host.views().sites().front();
  host.views().release(*site);
  host.views().release(*site);
  site->select("x");
  site->handIn(DataPath::Offline, host.dataSet()->copy());
  site->requestFocus();
  site->resize(1, 1);
  EXPECT_TRUE(site->leave());
  EXPECT_EQ(site->selected(), "");
  EXPECT_FALSE(host.views().bringToFront(*site, "x"));
  EXPECT_EQ(refusalOf([&] { site->DTMGUIGetXmlPath(); }).number, RuntimeError::NothingThere);
  EXPECT_EQ(refusalOf([&] { site->DTMGUIDownload("<a/>", "", 1); }).number, RuntimeError::NothingThere);
}

TEST_F(HostLifeTest, TheHostEndsItsViews) {
  {
    PaperSource other;
    Host second(desktop, other, prompt, sourceData());
    second.views().place("Paper");
    second.views().place("Paper");
    other.made.clear();
    EXPECT_EQ(other.alive, 2);
  }
  int alive = 0;
  {
    PaperSource other;
    {
      Host second(desktop, other, prompt, sourceData());
      second.views().place("Paper");
    }
    other.made.clear();
    alive = other.alive;
  }
  EXPECT_EQ(alive, 0);
}

TEST_F(HostLifeTest, AnUnknownClassIsNamed) {
  const auto error = refusalOf([&] { host.views().place("VwNothing"); });
  EXPECT_EQ(error.number, RuntimeError::BadArgument);
  EXPECT_NE(error.description.find("VwNothing"), std::string::npos);
  EXPECT_TRUE(host.views().sites().empty());
}

TEST_F(HostLifeTest, SitesOfOneClassHaveDifferentNames) {
  EXPECT_EQ(host.views().place("Paper")->name(), "Paper");
  EXPECT_EQ(host.views().place("Paper")->name(), "Paper 2");
}

TEST_F(HostLifeTest, TheViewInFrontIsAskedBeforeAnotherComes) {
  PaperView& first = view("a");
  view("b");
  const Ref<ViewSite> second = host.views().sites().back();
  EXPECT_EQ(host.views().front(), host.views().sites().front().get());
  first.mayLeave = false;
  EXPECT_FALSE(host.views().bringToFront(*second, "c"));
  EXPECT_EQ(host.views().front(), host.views().sites().front().get());
  first.mayLeave = true;
  EXPECT_TRUE(host.views().bringToFront(*second, "c"));
  EXPECT_EQ(host.views().front(), second.get());
  EXPECT_EQ(second->selected(), "c");
}

TEST_F(HostLifeTest, AViewThatFailsCostsThatCallOnly) {
  PaperView& paper = view();
  paper.during = [](const std::string& call) {
    if (call == "SetSelectedView bad") throw RuntimeError(438, "broken view");
    if (call == "RequestFocus") throw std::logic_error("stranger");
  };
  host.views().bringToFront(*host.views().sites().front(), "bad");
  EXPECT_EQ(diary.lines, (Lines{"unhandled of Paper: 438 broken view", "unhandled of Paper: 440 stranger"}));
  paper.during = nullptr;
  EXPECT_TRUE(host.views().bringToFront(*host.views().sites().front(), "good"));
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
  EXPECT_EQ(refusalOf([&] { host.user().setLanguage("xx"); }).number, RuntimeError::BadArgument);
  EXPECT_EQ(host.user().session().language, "en");
  EXPECT_TRUE(paper.take().empty());
  host.user().setLanguage("probe");
  EXPECT_EQ(paper.take(), Lines{"Localize T:accept"});
}

TEST_F(HostLifeTest, ALevelReachesAViewWithItsMessenger) {
  PaperView& paper = view();
  host.user().setLevel(2);
  EXPECT_EQ(paper.take(), Lines{"SetMessenger"});
  EXPECT_EQ(paper.messenger->GetUserLevel(), 2);
  EXPECT_EQ(paper.messenger->GetCommunicationMode(), 11);
  host.setCommunicationMode(CommunicationMode::Busy);
  paper.take();
  host.user().setLevel(3);
  EXPECT_EQ(paper.take(), (Lines{"SetMessenger", "mode 20"})) << "busy stays busy";
}

TEST_F(HostLifeTest, ANewViewHearsTheModeInForce) {
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  host.setCommunicationMode(CommunicationMode::Busy);
  const Ref<ViewSite> site = host.views().place("Paper");
  host.views().open(*site, "a", DataPath::Import);
  EXPECT_EQ(source.made.back()->take(),
            (Lines{"Place ", "SetMessenger", "Localize Accept", "SetSelectedView a", "SetImportData", "mode 10", "mode 20", "RequestFocus"}));
}

TEST_F(HostLifeTest, LiveValuesAreReadWhileTheirFrameIsInFront) {
  view("drive");
  desktop.wait(5);
  EXPECT_TRUE(asked.empty());
  host.views().bringToFront(*host.views().sites().front(), "monitoringVariables");
  desktop.wait(0.1);
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load speed");
  reply(answer("monitoringVariables", "read", {{"load", "8"}, {"speed", "2"}}));
  desktop.wait(0.9);
  EXPECT_TRUE(asked.empty()) << "a period between two readings";
  desktop.wait(0.2);
  ASSERT_EQ(asked.size(), 1u);
  reply(answer("monitoringVariables", "read", {{"load", "8"}}));
  host.views().bringToFront(*host.views().sites().front(), "drive");
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
  host.views().setLiveReading(false);
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
  host.views().release(*host.views().sites().front());
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

TEST_F(HostLifeTest, AViewThatIsReleasedWhileItIsAskedToLeaveMayStillStopItsTest) {
  PaperView& paper = view();
  const Ref<ViewSite> site = host.views().sites().front();
  const Ref<Messenger> kept = paper.messenger;
  const char* const stop =
      "<communicationRequest name=\"drive\" access=\"write\"><item name=\"speed\" unit=\"N\"><floatVal>0</floatVal></item></communicationRequest>";
  paper.during = [&](const std::string& call) {
    if (call != "LeaveSelectedView") return;
    host.views().release(*site);
    kept->SendRequest(stop, "drive");
  };
  site->leave();
  ASSERT_EQ(asked.size(), 1u);
  EXPECT_EQ(told(asked[0].request), "write drive: speed=0");
  EXPECT_EQ(refusalOf([&] { kept->SendRequest(stop, "drive"); }).number, RuntimeError::NothingThere) << "not after that";
}

TEST_F(HostLifeTest, RefusesADataFolderWithADamagedFileOnly) {
  Host bare(desktop, source, prompt, "no/such/folder");
  EXPECT_EQ(bare.user().session().language, "keys");
  EXPECT_TRUE(bare.user().units()->quantities().empty());
  EXPECT_FALSE(bare.treeDocument());
  EXPECT_EQ(bare.user().textTable()->GetText("accept"), "accept");
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
  second.views().place("Paper");
  EXPECT_EQ(tapped, "Paper");
  EXPECT_EQ(other.made.back()->parent->DTMGUIGetXmlPath(), "tapped");
}

}  // namespace

}  // namespace ostrand::test
