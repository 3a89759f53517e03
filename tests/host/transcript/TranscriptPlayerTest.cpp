#include "host/transcript/TranscriptPlayer.h"

#include <gtest/gtest.h>

#include "host/HostBench.h"
#include "host/transcript/PlayerBench.h"
#include "platform/base/File.h"

namespace ostrand::test {

namespace {

class TranscriptPlayerTest : public testing::Test {
 protected:
  // Plays the inputs of a text and expects its outputs.
  void expectPlayed(const std::string& text) {
    const Transcript transcript = Transcript::parse(text, "played");
    TranscriptPlayer player(components, sourceData());
    const TranscriptComparison comparison(transcript, player.play(transcript));
    EXPECT_EQ(comparison.diff(), "");
  }
  // The same behind the start of a view that logs to the host.
  void expectPlayedOnView(const std::string& text) { expectPlayed("> create TestPanel\n> messenger\n" + text); }

  std::string refused(const std::string& input) {
    const Transcript transcript = Transcript::parse("> create TestPanel\n> " + input + "\n", "file");
    return refusalOf([&] { TranscriptPlayer(components, sourceData()).play(transcript); }).description;
  }

  void TearDown() override { EXPECT_EQ(TestView::ended, endedBefore + made) << "a view is still alive"; }

  TestComponents components;
  int endedBefore = TestView::ended;
  int& made = components.made;
};

}  // namespace

// --- what an input looks like

TEST_F(TranscriptPlayerTest, AnInputThatNobodyUnderstandsNamesFileAndLine) {
  EXPECT_EQ(refused("jump"), "file:2: no such input: jump");
  EXPECT_EQ(refused("click"), "file:2: it should be: click CONTROL");
  EXPECT_EQ(refused("messenger now"), "file:2: it should be: messenger");
  EXPECT_EQ(refused("during AskUser jump"), "file:2: no such input: jump");
  EXPECT_EQ(refused("now\n| <a/>"), "file:2: now takes no document");
  EXPECT_EQ(made, 0) << "nothing is played of a malformed transcript";
}

TEST_F(TranscriptPlayerTest, EveryInputIsCheckedForItsForm) {
  for (const char* const input : {"create",
                                  "create X y",
                                  "create X tag=a b",
                                  "create X as",
                                  "view",
                                  "localize",
                                  "select",
                                  "focus x",
                                  "leave x",
                                  "import",
                                  "offline a b",
                                  "online a\n| <a/>",
                                  "error",
                                  "release x",
                                  "terminate x",
                                  "resize 10",
                                  "resize 10 x",
                                  "type a",
                                  "choose a",
                                  "check a",
                                  "check a x",
                                  "uncheck a 1 2",
                                  "edit a 1",
                                  "slide a x",
                                  "leave-field",
                                  "leave-field a control",
                                  "hotspot a 1",
                                  "hotspot a 1 2 twice",
                                  "menu",
                                  "level x",
                                  "level 99999999999",
                                  "mode",
                                  "receive a",
                                  "unit a",
                                  "units x",
                                  "changes",
                                  "answer",
                                  "answer x",
                                  "accept",
                                  "accept 1",
                                  "fail",
                                  "fail a 0",
                                  "fail a 1 2",
                                  "fail a 1 x \"\"",
                                  "during a",
                                  "parent Log on",
                                  "parent NotifyStatus maybe",
                                  "maximize 1",
                                  "address",
                                  "address 1 good",
                                  "address 256",
                                  "tree",
                                  "relations",
                                  "relations a\n| <a/>",
                                  "dialog",
                                  "locale",
                                  "advance",
                                  "advance -1",
                                  "advance x",
                                  "device",
                                  "device a b",
                                  "device a seed=x",
                                  "run x",
                                  "fault",
                                  "get",
                                  "get x",
                                  "set a.Text",
                                  "set a b",
                                  "front x",
                                  "selected x",
                                  "focused x",
                                  "show x",
                                  "trace",
                                  "trace maybe",
                                  "ignore",
                                  "heed",
                                  "heed \"x\"",
                                  "document",
                                  "document x",
                                  "now x",
                                  "picture",
                                  "picture face"})
    EXPECT_TRUE(refused(input).starts_with("file:2: ")) << input;
}

TEST_F(TranscriptPlayerTest, WhatCannotBeCarriedOutIsRejectedAndTheTranscriptGoesOn) {
  expectPlayed(
      "> click a\nRejected \"there is no view\"\n"
      "> create Nothing\nNoSuchClass \"Nothing\"\n"
      "> view x\nRejected \"there is no view x\"\n"
      "> run\nRejected \"there is no device\"\n"
      "> locale xx\nRejected \"no such locale: xx\"\n"
      "> tree nothing.xml\nRejected \"no such file: nothing.xml\"\n"
      "> create TestPanel\n"
      "> picture logo\nRejected \"TestPanel has no ITaviDeviceSpecific\"\n"
      "> device hartBlade\nRejected \"a device comes before the first view\"\n"
      "> localize xx\nRejected ...\n"
      "> online\n| <broken\nRejected ...\n"
      "> click nobody(1)\nNoSuchControl \"nobody(1)\"\n"
      "> document 1\nRejected \"there is no document 1\"\n");
}

// --- the user

TEST_F(TranscriptPlayerTest, TheUserReachesEachKindOfControl) {
  expectPlayedOnView(
      "> ignore SetParameterStatus\n"
      "> offline\n"
      "| <data:dtm><data:persistentData><data:parameters>\n"
      "| <data:parameter name=\"text\" type=\"stringVal\" value=\"a\"/>\n"
      "| <data:parameter name=\"combo\" type=\"integerVal\" value=\"1\"/>\n"
      "| <data:parameter name=\"option\" type=\"integerVal\" value=\"1\"/>\n"
      "| <data:parameter name=\"check\" type=\"integerVal\" value=\"0\"/>\n"
      "| <data:parameter name=\"date\" type=\"stringVal\" value=\"2026-01-05\"/>\n"
      "| </data:parameters></data:persistentData><data:mappedParams>\n"
      "| <data:mappedParam name=\"combo\"><data:mappedItem value=\"1\" key=\"one\"/><data:mappedItem value=\"2\" key=\"two\"/></data:mappedParam>\n"
      "| <data:mappedParam name=\"option\"><data:mappedItem value=\"1\" key=\"one\"/><data:mappedItem value=\"2\" key=\"two\"/></data:mappedParam>\n"
      "| </data:mappedParams></data:dtm>\n"
      "Log 77 \"Parsing ctr_check\"\n"
      "> type cteText(0) \"b \\\"c\\\"\"\n"
      "> choose cceCombo two\n"
      "> choose cceCombo three\nRejected \"cceCombo does not offer \\\"three\\\"\"\n"
      "> choose coeOption two\n"
      "> click cckCheck\n"
      "> type cdeDate \"2/3/2026\"\n"
      "> get cteText(0).Text @ctr_combo.Text coeOption.Text cckCheck.Value cdeDate.Text\n"
      "\"b \\\"c\\\"\"\n\"two\"\n\"two\"\ntrue\n\"2/3/2026\"\n"
      "> click chkBox\nLog 77 \"box on\"\n"
      "> slide sldSlider 7\nLog 77 \"slider at 7\"\n"
      "> slide sldSlider 101\nRejected \"sldSlider cannot stand at 101\"\n"
      "> hotspot picChart 0 3 double\nLog 77 \"hotspot 0 3 twice\"\n"
      "> hotspot picChart 1 2\nLog 77 \"hotspot 1 2\"\n"
      "> menu picChart\nRejected \"the chart is covered\"\n"
      "> click picChart\nRejected \"it does not take the action click\"\n"
      "> type chkBox \"x\"\nRejected \"chkBox is a CheckBox and does not take this action\"\n");
}

TEST_F(TranscriptPlayerTest, AListIsCheckedAndEditedInPlace) {
  expectPlayedOnView(
      "> check lsvList 1\nRejected \"lsvList has no boxes\"\n"
      "> edit lsvList 1 \"x\"\nRejected \"lsvList cannot be edited in place\"\n"
      "> click cmdButton\n"
      "> get lsvList.Count lsvList.Cell(1,2) lsvList.Color(1,2) lsvList.HeaderTag(2) lsvList.ColumnWidth(1) lsvList.Checked(1)\n"
      "1\n\"cell\"\n16711680\n\"value\"\n1000\nfalse\n"
      "> get lsvList.Cell(2,1) lsvList.Text chkBox.Tag\n"
      "Rejected \"lsvList has no row 2\"\nRejected \"ListView has no Text\"\n\"box\"\n");
  components.actions["boxes"] = [](TestView& view) {
    auto& list = dynamic_cast<ListView&>(*findControl(view.controls(), "lsvList"));
    list.CheckBoxes(true);
    list.LabelEdit(true);
  };
  expectPlayedOnView(
      "> set cmdButton.Tag boxes\n"
      "> click cmdButton\n"
      "> check lsvList 1\nLog 77 \"row 1 on\"\n"
      "> check lsvList 1\n"
      "> uncheck lsvList 1\nLog 77 \"row 1 off\"\n"
      "> check lsvList 2\nRejected \"lsvList has no row 2\"\n"
      "> edit lsvList 1 \"new\"\nLog 77 \"row 1: new\"\n");
}

TEST_F(TranscriptPlayerTest, WhatIsHiddenDisabledOrReadOnlyCannotBeReached) {
  expectPlayedOnView(
      "> set chkBox.Enabled false\n"
      "> click chkBox\nRejected \"chkBox is disabled\"\n"
      "> set chkBox.Enabled true\n"
      "> set chkBox.Visible false\n"
      "> click chkBox\nRejected \"chkBox is hidden\"\n"
      "> set cteText(0).ReadOnly true\n"
      "> type cteText(0) \"x\"\nRejected \"cteText(0) is read only\"\n");
}

TEST_F(TranscriptPlayerTest, ACodeSettingRaisesWhatItRaises) {
  expectPlayedOnView(
      "> trace on\n"
      "> set chkBox.Value true\nLog 77 \"box on\"\n"
      "> set chkBox.Value true\n"
      "> set lsvList.Cell(1,1) \"42\"\n"
      "> get lsvList.Cell(1,1)\n\"42\"\n"
      "> set sldSlider.Value 5\nLog 77 \"slider at 5\"\n"
      "> set sldSlider.Value x\nRejected \"\\\"x\\\" is no number\"\n"
      "> set cteText(0).Correct true\nRejected \"CtrTextEdit has no Correct\"\n"
      "> set nobody.Text x\nNoSuchControl \"nobody\"\n");
}

TEST_F(TranscriptPlayerTest, AnErrorThatLeavesAHandlerIsUnhandled) {
  components.actions["throw"] = [](TestView&) { throw RuntimeError(91, "nothing there"); };
  components.actions["odd"] = [](TestView&) { throw std::runtime_error("odd"); };
  components.actions["refused"] = [](TestView&) { throw RuntimeError(RuntimeError::PermissionDenied, "disabled"); };
  expectPlayedOnView(
      "> set cmdButton.Tag throw\n> click cmdButton\nUnhandled 91 \"nothing there\"\n"
      "> set cmdButton.Tag odd\n> click cmdButton\nUnhandled 440 \"odd\"\n"
      "> set cmdButton.Tag refused\n> click cmdButton\nUnhandled 70 \"disabled\"\n");
}

TEST_F(TranscriptPlayerTest, TheFocusIsSetTracedAndLost) {
  expectPlayedOnView(
      "> select first\n"
      "> focused\n\"\"\n"
      "> trace on\n"
      "> focus\ncteText(0).SetFocus\n"
      "> focused\n\"cteText(0)\"\n"
      "> leave-field cteText(0) tab\n"
      "> focus\ncteText(0).SetFocus\n"
      "> leave-field cteText(0) tab shift\nFocusOut\n"
      "> focused\n\"\"\n"
      "> leave-field cteText(0) tab shift\nFocusOut\n"
      "> select monitoringVariables\nCtrMonitoring1.SetSelectedView ...\nCtrMonitoring1.GetSelectedView\nCtrMonitoring1.ZOrder 0\n"
      "> focus\nCtrMonitoring1.RequestFocus\n"
      "> focused\n\"CtrMonitoring1.lsvMonitoring\"\n");
}

// --- the host

TEST_F(TranscriptPlayerTest, TheHostAnswersAsItIsTold) {
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

TEST_F(TranscriptPlayerTest, ACallThatFailsIsToldWithItsDocument) {
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

TEST_F(TranscriptPlayerTest, AMemberOfAControlCanFailToo) {
  expectPlayedOnView(
      "> fail cteText(0).SetFocus\n> select first\n> focus\nReportError \"TestView ITaviView_RequestFocus: \" 440 \"told to fail\"\n"
      "> focus\n> focused\n\"cteText(0)\"\n"
      "> fail @box.Value 1 5 \"no\"\n> click chkBox\nUnhandled 5 \"no\"\n");
}

TEST_F(TranscriptPlayerTest, TheParentOffersWhatItIsToldTo) {
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

TEST_F(TranscriptPlayerTest, AnInputComesInBetween) {
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

TEST_F(TranscriptPlayerTest, AWaitTakesNoTimeAndWaitsNest) {
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

TEST_F(TranscriptPlayerTest, TimersRunWhenTheClockMoves) {
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

TEST_F(TranscriptPlayerTest, EventsReachEveryViewAndForwardedValuesTheOthers) {
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

TEST_F(TranscriptPlayerTest, AViewMayEndInsideItsOwnCall) {
  components.actions["ask"] = [](TestView& view) {
    const Ref<TestView> pin(&view);
    view.mMessenger->AskUser("t", "m");
  };
  expectPlayedOnView(
      "> set cmdButton.Tag ask\n> during AskUser terminate\n> click cmdButton\nAskUser \"t\" \"m\" -> 4\n"
      "> click cmdButton\nRejected \"there is no view\"\n");
}

TEST_F(TranscriptPlayerTest, FilesOfDialogsAndTheRelationsAreTheTranscriptsOwn) {
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

TEST_F(TranscriptPlayerTest, NoPathOfThisMachineIsToldWhereTheTemporaryFilesLieBesideTheTranscript) {
  components.actions["relations"] = [](TestView& view) {
    view.mMessenger->Log(67, readWholeFile(view.parent()->DTMGUIGetXmlPath() + "Relations_ostrand.xml"));
  };
  const Transcript transcript = Transcript::parse(
      "> create TestPanel\n> messenger\n> set cmdButton.Tag relations\n> relations none\n> click cmdButton\nUnhandled 53 \"host/Relations_ostrand.xml: no such file\"\n",
      (std::filesystem::temp_directory_path() / "played").string());
  const TranscriptComparison comparison(transcript, TranscriptPlayer(components, sourceData()).play(transcript));
  EXPECT_EQ(comparison.diff(), "");
}

// --- looking

TEST_F(TranscriptPlayerTest, TheTraceTellsTheViewsOwnControlsOnly) {
  expectPlayed(
      "> trace on\n"
      "> create TestPanel\n"
      "frmViews(0).BackColor 16777215\nfrmViews(1).BackColor 16777215\nfrmViews(0).Move ...\nfrmViews(1).Move ...\nCtrMonitoring1.Move ...\n"
      "ctrDateLabels(0).Move ...\nctrDateLabels(1).Move ...\n"
      "> trace off cteText(0)\n"
      "> select first\nfrmViews(0).ZOrder 0\n"
      "> focus\n"
      "> trace on cteText(0)\n"
      "> focus\ncteText(0).SetFocus\n"
      "> trace off\n> trace on @key\n"
      "> focus\n"
      "> select second\n"
      "> trace on frmViews(1)\n> select first\n> select second\nfrmViews(1).ZOrder 0\n"
      "> ignore frmViews(1).ZOrder\n> select second\n");
}

TEST_F(TranscriptPlayerTest, TheFrontIsShownAsText) {
  expectPlayedOnView(
      "> select second\n"
      "> front\n\"second\"\n> selected\n\"second\"\n"
      "> show\n"
      "frmViews(1)       frame    \"second\"\n"
      "lblTitle(1)       label    \"\"\n"
      "ctrDateLabels(1)  stamp    \"\"\n"
      "lsvList           list     1 row\n"
      "picChart          picture\n"
      "> select first\n> focus\n> ignore SetParameterStatus\n> type cteText(0) \"\xC3\xA4\"\n> focus\n"
      "> set cceCombo.Enabled false\n> set chkBox.Visible false\n"
      "> show\n"
      "frmViews(0)        frame   \"first\"\n"
      "lblTitle(0)        label   \"\"\n"
      "ctrDateLabels(0)   stamp   \"\"\n"
      "CtrFocusTransfer1  tab\n"
      "lblText            label   \"\"\n"
      "cteText(0)         edit    \"\xC3\xA4\"        edited, focused\n"
      "cceCombo           combo   \"\"         of 0, disabled, wrong\n"
      "cckCheck           check   false      wrong\n"
      "cdeDate            date    \"\"\n"
      "coeOption          choice  \"\"         hidden, wrong\n"
      "chkBox             check   \"\" false   hidden\n"
      "sldSlider          slider  0\n"
      "cmdButton          button  \"Nothing\"\n"
      "CtrFocusTransfer2  tab\n"
      "> get view.Keys\n\"first\"\n\"second\"\n\"monitoringVariables\"\n"
      "> select nothing\n> front\n\"first\"\n> selected\n\"\"\n");
}

TEST_F(TranscriptPlayerTest, DocumentsAreLookedAtAsTheViewLeftThem) {
  expectPlayedOnView(
      "> ignore ReportError\n"
      "> online\n| <comm:dtm><comm:communicationResponse name=\"n\"><comm:item name=\"i\">a "
      "\"b\"</comm:item></comm:communicationResponse></comm:dtm>\n"
      "> document 1 //comm:item[@name = \"i\"]\n\"a \\\"b\\\"\"\n"
      "> document 1 \"//comm:item/@name\"\n\"i\"\n"
      "> document 1 //comm:nothing\n"
      "> document 1 ][\nRejected ...\n"
      "> document 1\n| <comm:dtm><comm:communicationResponse name=\"n\"><comm:item name=\"i\">a "
      "\"b\"</comm:item></comm:communicationResponse></comm:dtm>\n");
}

TEST_F(TranscriptPlayerTest, APictureIsToldByItsSizeAndADigest) {
  expectPlayed(
      "> create TestPicture\n"
      "> picture image\n640 480 \"cbf29ce484222325\"\n"
      "> picture logo a\n16 8 \"af63dc4c8601ec8c\"\n"
      "> front\nRejected \"TestPicture has no ITaviView\"\n"
      "> offline devices/hartBlade.xml\nRejected \"TestPicture has no ITaviDataUser\"\n"
      "> terminate\n");
}

TEST_F(TranscriptPlayerTest, HeededCallsComeBack) {
  components.actions["log"] = [](TestView& view) {
    view.mMessenger->ShowMessage("warning", "a");
    view.mMessenger->ShowMessage("error", "b");
  };
  expectPlayedOnView(
      "> set cmdButton.Tag log\n> ignore ShowMessage\n> click cmdButton\n"
      "> heed ShowMessage \"err\"\n> click cmdButton\nShowMessage \"error\" \"b\"\n"
      "> heed ShowMessage\n> click cmdButton\nShowMessage \"warning\" \"a\"\nShowMessage \"error\" \"b\"\n");
}

TEST_F(TranscriptPlayerTest, AnErrorDuringAnIgnoredCallGoesItsWay) {
  components.actions["log"] = [](TestView& view) { view.mMessenger->Log(67, "x"); };
  expectPlayedOnView("> set cmdButton.Tag log\n> ignore Log\n> fail Log\n> click cmdButton\nUnhandled 440 \"told to fail\"\n");
}

}  // namespace ostrand::test
