#include "host/transcript/PlayerTest.h"
#include "platform/base/File.h"

namespace ostrand::test {

using HostInputsTest = PlayerTest;

TEST_F(HostInputsTest, TheHostAnswersAsItIsTold) {
  components.actions["ask"] = [](TestView& view) {
    Messenger& host = *view.mMessenger;
    host.AskUser("t", "m");
    host.SendRequestWithStatus("<a>\n</a>", "reading", 2, 1);
    host.ReadRequest("<b/>", 0);
    host.AddChange("n", "c", "1", "2", "u", "t", "g");
    host.SetProgress("", 0, 0);
    host.SetStatusLine("Failed", "a");
    host.FocusOut();
    host.Log(67, std::to_string(host.GetUserLevel()) + " " + std::to_string(host.GetCommunicationMode()) + " " + toText(host.GetMaximizeAllowed()) +
                     " " + toText(static_cast<bool>(host.GetTreeDocument())));
    std::uint8_t address = 0, second = 0;
    const bool ok = host.GetAddressService()->GetBusAddress(address, second);
    host.Log(67, std::to_string(address) + " " + toText(ok));
    host.GetAddressService()->SetBusAddress(42, 0);
  };
  expectPlayedOnView(
      "> set cmdButton.Tag ask\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 4\n"
      "SendRequestWithStatus \"reading\" 2 1 -> true\n| <a>\n| </a>\n"
      "ReadRequest 0\n| <b/>\n"
      "AddChange \"n\" \"c\" \"1\" \"2\" \"u\" \"t\" \"g\"\n"
      "SetProgress \"\" 0 0\nSetStatusLine \"Failed\" \"a\"\nFocusOut\n"
      "Log 67 \"3 11 true false\"\nLog 67 \"0 true\"\nSetBusAddress 42 0 -> true\n"
      "> answer 5 6\n> accept false\n> level 1\n> mode 20\n> maximize false\n> address 7 bad\n"
      "> tree\n| <dtm/>\n"
      "> ignore ReadRequest AddChange SetProgress SetStatusLine FocusOut\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 5\n"
      "SendRequestWithStatus \"reading\" 2 1 -> false\n| <a>\n| </a>\n"
      "Log 67 \"1 20 false true\"\nLog 67 \"7 false\"\nSetBusAddress 42 0 -> false\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 6\nSendRequestWithStatus \"reading\" 2 1 -> true\n| <a>\n| </a>\nLog ... +\nSetBusAddress 42 0 -> false\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 4\nSendRequestWithStatus ...\n| ...\nLog ... +\nSetBusAddress 42 0 -> false\n");
}

TEST_F(HostInputsTest, ACallThatFailsIsToldWithItsDocument) {
  components.actions["send"] = [](TestView& view) {
    Procedure proc(view, "send");
    proc.step([&] { proc.messenger().SendRequest("<a/>", "x"); });
    proc.step([&] { proc.messenger().SendRequest("<b/>", "x"); });
    proc.step([&] { proc.messenger().Log(67, proc.messenger().GetTextTable()->GetText("key")); });
  };
  expectPlayedOnView(
      "> set cmdButton.Tag send\n"
      "> fail SendRequest 2 7 \"a \\\"b\\\"\"\n"
      "> fail GetText\n"
      "> click cmdButton\n"
      "SendRequest \"x\"\n| <a/>\n"
      "SendRequest \"x\" -> failed\n| <b/>\n"
      "ReportError \"TestView send: \" 7 \"a \\\"b\\\"\"\n"
      "ReportError \"TestView send: \" 440 \"told to fail\"\n"
      "> click cmdButton\nSendRequest \"x\"\n| <a/>\nSendRequest \"x\"\n| <b/>\nLog 67 \"key\"\n");
}

TEST_F(HostInputsTest, AMemberOfAControlCanFailToo) {
  expectPlayedOnView(
      "> fail cteText(0).SetFocus\n> select first\n> focus\nReportError \"TestView ITaviView_RequestFocus: \" 440 \"told to fail\"\n"
      "> focus\n> focused\n\"cteText(0)\"\n"
      "> fail @box.Value 1 5 \"no\"\n> click chkBox\nUnhandled 5 \"no\"\n");
}

TEST_F(HostInputsTest, TheParentOffersWhatItIsToldTo) {
  components.actions["parent"] = [](TestView& view) {
    Procedure proc(view, "parent");
    proc.step([&] {
      if (const auto status = query<INotifyStatus>(view.parent().get())) status->NotifyStatus("busy", 0, 0);
    });
    proc.step([&] { view.parent()->DTMGUIDownload("<a/>", "x", 1); });
  };
  expectPlayedOnView(
      "> set cmdButton.Tag parent\n> click cmdButton\nNotifyStatus \"busy\" 0 0\nDTMGUIDownload \"x\" 1\n| <a/>\n"
      "> parent NotifyStatus off\n> parent DTMGUIDownload off\n"
      "> click cmdButton\nReportError \"TestView parent: \" 438 ...\n"
      "> parent NotifyStatus on\n> fail NotifyStatus\n> fail DTMGUIDownload\n"
      "> parent DTMGUIDownload on\n"
      "> click cmdButton\n"
      "NotifyStatus \"busy\" 0 0 -> failed\nReportError ... 440 ...\nDTMGUIDownload \"x\" 1 -> failed\n| <a/>\nReportError ... 440 ...\n");
}

TEST_F(HostInputsTest, AnInputComesInBetween) {
  components.actions["ask"] = [](TestView& view) {
    const int answer = view.mMessenger->AskUser("t", "m");
    view.mMessenger->Log(67, std::to_string(answer));
  };
  expectPlayedOnView(
      "> set cmdButton.Tag ask\n"
      "> answer 5 4\n"
      "> during AskUser click chkBox\n"
      "> during AskUser during AskUser click chkBox\n"
      "> during Log online\n| <comm:dtm/>\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 5\nLog 77 \"box on\"\nReportError ... +\nLog 67 \"5\"\n"
      "> click cmdButton\n"
      "AskUser \"t\" \"m\" -> 4\nLog 77 \"box off\"\nLog 67 \"4\"\n"
      "> click cmdButton\nAskUser \"t\" \"m\" -> 4\nLog 67 \"4\"\n");
}

TEST_F(HostInputsTest, AWaitTakesNoTimeAndWaitsNest) {
  components.actions["wait"] = [](TestView& view) {
    view.desktop().wait(1.5);
    view.mMessenger->Log(67, "waited");
  };
  expectPlayedOnView(
      "> set cmdButton.Tag wait\n"
      "> trace on\n"
      "> during wait click cmdButton\n"
      "> click cmdButton\n"
      "wait 1.5\nwait 1.5\nLog 67 \"waited\"\nLog 67 \"waited\"\n"
      "> now\n2026-01-05 08:00:01.500\n"
      "> trace off\n> fail wait\n> click cmdButton\nUnhandled 440 \"told to fail\"\n"
      "> advance 0.25\n> now\n2026-01-05 08:00:01.750\n");
}

TEST_F(HostInputsTest, TimersRunWhenTheClockMoves) {
  components.actions["timer"] = [](TestView& view) {
    view.desktop().schedule(1, [&view] { view.mMessenger->Log(67, "one"); });
    view.desktop().schedule(2, [] { throw RuntimeError(9, "two"); });
    view.desktop().schedule(2, [&view] { view.mMessenger->Log(67, "three"); });
  };
  expectPlayedOnView(
      "> set cmdButton.Tag timer\n> click cmdButton\n"
      "> advance 1\nLog 67 \"one\"\n"
      "> advance 1\nUnhandled 9 \"two\"\nLog 67 \"three\"\n"
      "> now\n2026-01-05 08:00:02.000\n");
}

TEST_F(HostInputsTest, EventsReachEveryViewAndForwardedValuesTheOthers) {
  components.actions["forward"] = [](TestView& view) { view.mMessenger->ForwardValue("tag", "value"); };
  components.listens = true;
  expectPlayed(
      "> create TestPanel as one\n> messenger\n> create TestPanel as two\n> messenger\n"
      "> receive a b\nLog 77 \"one hears a b\"\nLog 77 \"two hears a b\"\n"
      "> set cmdButton.Tag forward\n> click cmdButton\nForwardValue \"tag\" \"value\"\nLog 77 \"one hears tag value\"\n"
      "> view one\n> set cmdButton.Tag forward\n> click cmdButton\nForwardValue \"tag\" \"value\"\nLog 77 \"two hears tag value\"\n"
      "> receive throw 1\nUnhandled 13 \"one\"\nUnhandled 13 \"two\"\n"
      "> terminate\n"
      "> show\nRejected \"there is no view\"\n"
      "> view two\n> receive a b\nLog 77 \"two hears a b\"\n");
}

TEST_F(HostInputsTest, FilesOfDialogsAndTheRelationsAreTheTranscriptsOwn) {
  components.actions["save"] = [](TestView& view) {
    const auto file = view.desktop().saveDialog({"title", "filter", "par", "a.par"});
    if (file) writeWholeFile(*file, "saved");
  };
  components.actions["open"] = [](TestView& view) {
    const auto file = view.desktop().openDialog({"title", "filter", "par", "a.par"});
    view.mMessenger->Log(67, file ? readWholeFile(*file) : "nothing");
  };
  components.actions["relations"] = [](TestView& view) {
    view.mMessenger->Log(67, readWholeFile(view.parent()->DTMGUIGetXmlPath() + "Relations_ostrand.xml"));
  };
  expectPlayedOnView(
      "> set cmdButton.Tag open\n> click cmdButton\nOpenDialog \"title\" \"filter\" \"par\" \"a.par\" -> cancel\nLog 67 \"nothing\"\n"
      "> dialog x.par\n> click cmdButton\nOpenDialog ... -> \"x.par\"\nUnhandled 53 \"files/x.par: no such file\"\n"
      "> set cmdButton.Tag save\n> dialog x.par\n> dialog cancel\n"
      "> click cmdButton\nSaveDialog \"title\" \"filter\" \"par\" \"a.par\" -> \"x.par\"\n"
      "> click cmdButton\nSaveDialog \"title\" \"filter\" \"par\" \"a.par\" -> cancel\n"
      "> dialog ../../y.par\n> click cmdButton\nSaveDialog ... -> \"../../y.par\"\n"
      "> set cmdButton.Tag open\n> dialog x.par\n> click cmdButton\nOpenDialog ... -> \"x.par\"\nLog 67 \"saved\"\n"
      "> fail OpenDialog\n> click cmdButton\nOpenDialog ... -> failed\nUnhandled 440 \"told to fail\"\n"
      "> set cmdButton.Tag relations\n"
      "> relations\n| <relations/>\n> click cmdButton\nLog 67 \"<relations/>\"\n"
      "> relations none\n> click cmdButton\nUnhandled 53 \"host/Relations_ostrand.xml: no such file\"\n");
}

}  // namespace ostrand::test
