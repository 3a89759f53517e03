#include "host/Communication.h"

#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class CommunicationTest : public HostTest {
 protected:
  static std::string read(const std::string& name, const std::string& item) {
    return "<communicationRequest name=\"" + name + "\" access=\"read\"><item name=\"" + item +
           "\" unit=\"noUnit\"><floatVal/></item></communicationRequest>";
  }
  static std::string write(const std::string& name, const std::string& item, const std::string& value) {
    return "<communicationRequest name=\"" + name + "\" access=\"write\"><item name=\"" + item + "\" unit=\"noUnit\"><floatVal>" + value +
           "</floatVal></item></communicationRequest>";
  }
};

TEST_F(CommunicationTest, OneRequestIsUnderWayAtATime) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  paper.messenger->SendRequest(read("b", "mode"), "b");
  EXPECT_EQ(asked.size(), 1u);
  EXPECT_EQ(host.communication().waiting(), 1u);
  EXPECT_EQ(diary.take(), (Lines{"queued a", "sent a", "queued b"}));
  reply(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(diary.take(), (Lines{"answered a <- read a: speed=2", "sent b", "finished a done"}));
  EXPECT_EQ(paper.take(), Lines{"SetOnlineData read a: speed=2"});
  reply(answer("b", "read", {{"mode", "2"}}));
  EXPECT_TRUE(host.communication().idle());
}

TEST_F(CommunicationTest, EachAnswerGoesToTheDataSetFirstAndThenToTheViews) {
  PaperView& first = view();
  PaperView& second = view();
  std::string seen;
  first.during = [&](const std::string&) { seen = host.dataSet()->value("speed"); };
  first.messenger->SendRequest(read("drive", "speed"), "drive");
  reply(answer("drive", "read", {{"speed", "2"}}, "isFinal=\"0\""));
  EXPECT_EQ(seen, "2");
  EXPECT_FALSE(host.communication().idle());
  reply(answer("drive", "read", {{"mode", "3"}}));
  EXPECT_EQ(first.take(), (Lines{"SetOnlineData read drive more: speed=2", "SetOnlineData read drive: mode=3"}));
  EXPECT_EQ(second.take(), (Lines{"SetOnlineData read values more: speed=2", "SetOnlineData read values more: mode=3"})) << "it has asked nothing";
  EXPECT_FALSE(first.lastDocument == second.lastDocument) << "a view may change what it is handed";
}

TEST_F(CommunicationTest, AnErrorAnswerGoesTheErrorRoad) {
  PaperView& paper = view();
  paper.messenger->SendRequest(write("drive", "speed", "99"), "drive");
  reply(answer("drive", "write", {{"speed", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrParameterTooLarge\""));
  EXPECT_EQ(paper.take(), Lines{"SetErrorData write drive hartCmdErrParameterTooLarge: speed"});
  EXPECT_EQ(diary.lines.back(), "finished drive refused");
  EXPECT_EQ(host.dataSet()->value("speed"), "1.25");
}

TEST_F(CommunicationTest, ASilentDeviceIsGivenUp) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  paper.messenger->SendRequest(read("b", "mode"), "b");
  desktop.wait(1.9);
  EXPECT_TRUE(paper.take().empty());
  desktop.wait(0.2);
  EXPECT_EQ(paper.take(), Lines{"SetErrorData read a communicationError local: speed"});
  EXPECT_EQ(diary.take(), (Lines{"queued a", "sent a", "queued b", "sent b", "finished a no answer"}));
  // What comes too late is nobody's answer.
  asked.front().answer(answer("a", "read", {{"speed", "5"}}));
  EXPECT_EQ(diary.take(), Lines{"stray read a: speed=5"});
  EXPECT_TRUE(paper.take().empty());
  EXPECT_EQ(host.dataSet()->value("speed"), "1.25");
}

TEST_F(CommunicationTest, AnAnswerWithoutAnEndIsGivenUpToo) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  desktop.wait(1.5);
  reply(answer("a", "read", {{"speed", "2"}}, "isFinal=\"0\""));
  desktop.wait(1.5);
  EXPECT_EQ(diary.lines.back(), "answered a <- read a more: speed=2") << "patience begins anew with each answer";
  desktop.wait(0.6);
  EXPECT_EQ(diary.lines.back(), "finished a no answer");
  EXPECT_EQ(paper.take().back(), "SetErrorData read a communicationError local: speed");
}

TEST_F(CommunicationTest, NonsenseCountsAsNoAnswer) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  asked.front().answer(Document::read("<noise/>"));
  EXPECT_EQ(paper.take(), Lines{"SetErrorData read a communicationError local: speed"});
  EXPECT_EQ(diary.take(), (Lines{"queued a", "sent a", "answered a <- <noise>", "finished a no answer"}));
}

TEST_F(CommunicationTest, ASecondLastAnswerIsNobodys) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  const auto first = asked.front();
  first.answer(answer("a", "read", {{"speed", "2"}}));
  first.answer(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(paper.take().size(), 1u);
  EXPECT_EQ(diary.lines.back(), "stray read a: speed=2");
}

TEST_F(CommunicationTest, ProgressFollowsTheSecondIntegerOrTheItems) {
  PaperView& paper = view();
  EXPECT_TRUE(paper.messenger->SendRequestWithStatus(read("a", "speed"), "readingSamples", 3, 6));
  EXPECT_EQ(diary.take(), (Lines{"queued a", "sent a", "progress \"readingSamples\" 0/6"}));
  reply(answer("a", "read", {{"speed", "2"}}, "isFinal=\"0\""));
  EXPECT_EQ(diary.lines.back(), "progress \"readingSamples\" 1/6");
  reply(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(diary.take().back(), "finished a done");
  EXPECT_TRUE(paper.messenger->SendRequestWithStatus(read("b", "speed"), "reading", 0, 0));
  EXPECT_EQ(diary.take().back(), "progress \"reading\" 0/1");
  reply(answer("b", "read", {{"speed", "2"}}));
  EXPECT_EQ(diary.take(), (Lines{"answered b <- read b: speed=2", "progress \"reading\" 1/1", "progress \"\" 0/0", "finished b done"}));
}

TEST_F(CommunicationTest, BusyRefusesAndFreeTakesAgain) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("before", "speed"), "before");
  host.setCommunicationMode(CommunicationMode::Busy);
  EXPECT_EQ(paper.messenger->GetCommunicationMode(), 20);
  EXPECT_FALSE(paper.messenger->SendRequestWithStatus(read("a", "speed"), "reading", 0, 0));
  EXPECT_EQ(diary.lines.back(), "refused a: the communication is busy");
  const auto refused = refusalOf([&] { paper.messenger->SendRequest(read("a", "speed"), "a"); });
  EXPECT_EQ(refused.number, RuntimeError::PermissionDenied);
  EXPECT_EQ(refused.description, "the request was refused: the communication is busy");
  EXPECT_EQ(refusalOf([&] { paper.messenger->ReadRequest(read("a", "speed"), 0); }).number, RuntimeError::PermissionDenied);
  EXPECT_EQ(refusalOf([&] { paper.parent->DTMGUIDownload(write("a", "speed", "1"), "a", 1); }).number, RuntimeError::PermissionDenied);
  reply(answer("before", "read", {{"speed", "2"}}));
  EXPECT_EQ(paper.take().back(), "SetOnlineData read before: speed=2") << "what was accepted goes on";
  host.setCommunicationMode(CommunicationMode::Free);
  EXPECT_TRUE(paper.messenger->SendRequestWithStatus(read("a", "speed"), "reading", 0, 0));
}

TEST_F(CommunicationTest, WithoutADeviceNothingCanBeAsked) {
  PaperView& paper = view();
  host.connect(nullptr);
  EXPECT_FALSE(paper.messenger->SendRequestWithStatus(read("a", "speed"), "reading", 0, 0));
  EXPECT_EQ(diary.lines.back(), "refused a: no device is connected");
}

TEST_F(CommunicationTest, LocalAcceptanceTakesAWriteIntoTheDataSet) {
  PaperView& paper = view();
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  paper.take();
  paper.parent->DTMGUIDownload(write("drive", "speed", "2.5"), "drive", 1);
  EXPECT_TRUE(asked.empty());
  EXPECT_TRUE(paper.take().empty()) << "the answer comes after the call";
  EXPECT_FALSE(host.communication().idle());
  desktop.wait(0);
  EXPECT_EQ(paper.take(), Lines{"SetOnlineData write values local more: speed=2.5"}) << "nothing that the device has said";
  EXPECT_TRUE(host.communication().idle());
  EXPECT_EQ(host.dataSet()->value("speed"), "1.25");
  EXPECT_EQ(host.dataSet()->offlineValue("speed"), "2.5");
  EXPECT_TRUE(host.dataSet()->accepted("speed"));
  EXPECT_TRUE(host.dataSet()->exchanged().empty());
  EXPECT_EQ(host.dataSet()->lastUpdate("drive"), "01/01/2020 00:00:00");
}

TEST_F(CommunicationTest, LocalAcceptanceAnswersReadsFromTheDataSet) {
  PaperView& paper = view();
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  paper.take();
  paper.messenger->ReadRequest("<communicationRequest name=\"drive\" access=\"read\"/>", 0);
  desktop.wait(0);
  EXPECT_EQ(paper.take(), Lines{"SetOnlineData read drive local: speed=1.25 mode=1"});
  paper.messenger->ReadRequest("<communicationRequest name=\"x\" access=\"read\"><item name=\"speed\"/><item name=\"none\"/></communicationRequest>",
                               0);
  desktop.wait(0);
  EXPECT_EQ(paper.take(), (Lines{"SetOnlineData read x local more: speed=1.25", "SetErrorData read x missingItems local: none"}));
}

TEST_F(CommunicationTest, LocalAcceptanceRefusesWhatOnlyTheDeviceCanDo) {
  PaperView& paper = view();
  host.setCommunicationMode(CommunicationMode::LocalAcceptance);
  EXPECT_FALSE(paper.messenger->SendRequestWithStatus(write("sampling", "start", "1"), "sampling", 0, 0)) << "it starts something";
  EXPECT_FALSE(paper.messenger->SendRequestWithStatus(write("x", "none", "1"), "", 0, 0));
  EXPECT_FALSE(paper.messenger->SendRequestWithStatus("<communicationRequest name=\"commit\" access=\"write\"/>", "", 0, 0));
  EXPECT_EQ(host.dataSet()->edited().size(), 0u);
}

TEST_F(CommunicationTest, CancelTakesBackWhatWaitsAndTellsTheView) {
  PaperView& paper = view();
  for (const char* const name : {"a", "b", "c"}) paper.messenger->SendRequest(read(name, "speed"), name);
  host.communication().cancelWaiting();
  EXPECT_EQ(paper.take(), (Lines{"SetErrorData read b communicationError local: speed", "SetErrorData read c communicationError local: speed"}));
  reply(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(paper.take(), Lines{"SetOnlineData read a: speed=2"});
  EXPECT_TRUE(asked.empty());
}

TEST_F(CommunicationTest, AnotherDeviceEndsWhatWasForTheOneBefore) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  std::vector<HandDevice::Asked> others;
  const auto old = asked.front();
  host.connect(std::make_unique<HandDevice>(others));
  EXPECT_EQ(diary.lines.back(), "finished a cancelled");
  old.answer(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(diary.lines.back(), "stray read a: speed=2");
  paper.messenger->SendRequest(read("b", "speed"), "b");
  EXPECT_EQ(others.size(), 1u);
}

TEST_F(CommunicationTest, AViewMayAskAgainFromInsideItsAnswer) {
  PaperView& paper = view();
  paper.during = [&](const std::string& call) {
    if (call.starts_with("SetOnlineData read a")) paper.messenger->SendRequest(read("b", "mode"), "b");
  };
  paper.messenger->SendRequest(read("a", "speed"), "a");
  reply(answer("a", "read", {{"speed", "2"}}));
  ASSERT_EQ(asked.size(), 1u);
  reply(answer("b", "read", {{"mode", "2"}}));
  EXPECT_EQ(paper.take().back(), "SetOnlineData read b: mode=2");
}

TEST_F(CommunicationTest, TheBusGoesOnWhileTheUserIsAsked) {
  PaperView& paper = view();
  paper.messenger->SendRequest(read("a", "speed"), "a");
  paper.messenger->SendRequest(read("b", "mode"), "b");
  prompt.during = [&] { reply(answer("b", "read", {{"mode", "2"}})); };
  paper.during = [&](const std::string& call) {
    if (call.starts_with("SetOnlineData read a")) paper.messenger->AskUser("title", "message");
  };
  reply(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(paper.take(), (Lines{"SetOnlineData read a: speed=2", "SetOnlineData read b: mode=2"}));
}

TEST_F(CommunicationTest, AViewReleasedInsideAnAnswerGetsNoMore) {
  PaperView& first = view();
  PaperView& second = view();
  first.during = [&](const std::string& call) {
    if (call.starts_with("SetOnlineData"))
      while (host.views().sites().size() > 0) host.views().release(*host.views().sites().front());
  };
  first.messenger->SendRequest(read("a", "speed"), "a");
  reply(answer("a", "read", {{"speed", "2"}}));
  EXPECT_EQ(first.take(), (Lines{"SetOnlineData read a: speed=2", "PrepareToRelease", "Terminate"}));
  EXPECT_EQ(second.take(), (Lines{"PrepareToRelease", "Terminate"}));
}

}  // namespace

}  // namespace ostrand::test
