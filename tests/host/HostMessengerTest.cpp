#include "host/HostMessenger.h"

#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class Listener : public MessengerEvents {
 public:
  std::function<void()> work;
  int heard = 0;
  void ViewSetUnits() override {
    ++heard;
    if (work) work();
  }
};

class HostMessengerTest : public HostTest {};

TEST_F(HostMessengerTest, AForwardedValueGoesToTheOtherViewsOnly) {
  PaperView& first = view();
  PaperView& second = view();
  PaperView& third = view();
  first.take();
  first.messenger->ForwardValue("ctr_bladeType", "bladeTypeWS");
  EXPECT_TRUE(first.take().empty());
  EXPECT_EQ(second.take(), Lines{"receive ctr_bladeType bladeTypeWS"});
  EXPECT_EQ(third.take(), Lines{"receive ctr_bladeType bladeTypeWS"});
}

TEST_F(HostMessengerTest, ListenersAreCalledInOrderOverASnapshot) {
  PaperView& paper = view();
  Messenger& messenger = *paper.messenger;
  std::string order;
  Listener a, b, c, late;
  a.work = [&] {
    order += "a";
    messenger.Unsubscribe(b);
    messenger.Subscribe(late);
  };
  b.work = [&] { order += "b"; };
  c.work = [&] { order += "c"; };
  late.work = [&] { order += "l"; };
  for (Listener* each : {&a, &b, &c}) messenger.Subscribe(*each);
  host.user().setUnit("torque", "kNm");
  EXPECT_EQ(order, "ac");
  for (Listener* each : {&a, &c, &late}) messenger.Unsubscribe(*each);
  EXPECT_EQ(late.heard, 0);
}

TEST_F(HostMessengerTest, AnErrorOfAHandlerCostsThatHandlerOnly) {
  PaperView& paper = view();
  Listener bad, good;
  bad.work = [] { throw RuntimeError(91, "gone"); };
  paper.messenger->Subscribe(bad);
  paper.messenger->Subscribe(good);
  host.user().setUnit("torque", "kNm");
  EXPECT_EQ(diary.lines, Lines{"unhandled of Paper: 91 gone"});
  EXPECT_EQ(good.heard, 1);
  paper.messenger->Unsubscribe(bad);
  paper.messenger->Unsubscribe(good);
}

TEST_F(HostMessengerTest, AsksInTheLanguageOfTheUser) {
  PaperView& paper = view();
  host.user().setLanguage("fi");
  prompt.answer = UserPrompt::kStop;
  EXPECT_EQ(paper.messenger->AskUser("measurement", "a text as it stands"), 5);
  paper.messenger->ShowMessage("measurement", "accept");
  EXPECT_EQ(prompt.lines, (Lines{"? Mittaus/a text as it stands", "! Mittaus/" + host.user().textTable()->GetText("accept")}));
  EXPECT_EQ(diary.lines, (Lines{"Paper asks measurement/a text as it stands -> 5", "Paper shows measurement/accept"}));
}

TEST_F(HostMessengerTest, GivesTheServicesOfTheHost) {
  PaperView& paper = view();
  Messenger& messenger = *paper.messenger;
  EXPECT_EQ(messenger.GetUserLevel(), 3);
  EXPECT_EQ(messenger.GetCommunicationMode(), 11);
  EXPECT_TRUE(messenger.GetMaximizeAllowed());
  EXPECT_EQ(messenger.GetTextTable()->GetText("accept"), "Accept");
  EXPECT_EQ(messenger.GetTreeDocument().root().name(), "dtm");
  double result = 0;
  EXPECT_TRUE(messenger.GetUnitConverter()->ConvertValue(1, "kN", "N", result));
  std::uint8_t address = 0, second = 0;
  EXPECT_TRUE(messenger.GetAddressService()->SetBusAddress(42, 0));
  EXPECT_FALSE(messenger.GetAddressService()->SetBusAddress(127, 0));
  EXPECT_TRUE(messenger.GetAddressService()->GetBusAddress(address, second));
  EXPECT_EQ(address, 42);
  EXPECT_EQ(paper.parent->DTMGUIGetXmlPath(), (sourceData() / "").string());
}

TEST_F(HostMessengerTest, ATextThatIsNoRequestIsTheCallersError) {
  PaperView& paper = view();
  EXPECT_EQ(refusalOf([&] { paper.messenger->SendRequest("<not", "a"); }).number, RuntimeError::BadArgument);
  EXPECT_EQ(refusalOf([&] { paper.messenger->SendRequestWithStatus("<not/>", "a", 0, 0); }).number, RuntimeError::BadArgument);
  EXPECT_EQ(refusalOf([&] { paper.parent->DTMGUIDownload("", "a", 1); }).number, RuntimeError::BadArgument);
  EXPECT_TRUE(asked.empty());
}

TEST_F(HostMessengerTest, ChangesAreTakenOnlyWhileTheyAreCollected) {
  PaperView& paper = view();
  EXPECT_EQ(paper.messenger->AddChange("speed", "Speed", "1", "2", "N", "floatVal", "drive"), 0);
  paper.during = [&](const std::string& call) {
    if (!call.starts_with("changes")) return;
    EXPECT_EQ(paper.messenger->AddChange("speed", "Speed", "1", "2", "N", "floatVal", "drive"), 1);
    EXPECT_EQ(paper.messenger->AddChange("mode", "Mode", "1", "3", "noUnit", "integerVal", "drive"), 2);
  };
  const auto changes = host.edits().collect();
  ASSERT_EQ(changes.size(), 2u);
  EXPECT_EQ(changes[1].view, "Paper");
  EXPECT_EQ(changes[1].name, "mode");
  EXPECT_EQ(changes[1].newText, "3");
}

TEST_F(HostMessengerTest, AMessengerOutlivesItsViewWithoutAHost) {
  PaperView& paper = view();
  const Ref<Messenger> kept = paper.messenger;
  host.views().release(*host.views().sites().front());
  EXPECT_EQ(refusalOf([&] { kept->GetUserLevel(); }).number, RuntimeError::NothingThere);
  EXPECT_EQ(refusalOf([&] { kept->AskUser("a", "b"); }).number, RuntimeError::NothingThere);
  kept->ReportError("late: ", 5, "");
  kept->Log(67, "late");
  EXPECT_TRUE(diary.lines.empty());
}

}  // namespace

}  // namespace ostrand::test
