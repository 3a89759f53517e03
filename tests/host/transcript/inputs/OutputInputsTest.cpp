#include "host/transcript/PlayerTest.h"

namespace ostrand::test {

using OutputInputsTest = PlayerTest;

TEST_F(OutputInputsTest, TheTraceTellsTheViewsOwnControlsOnly) {
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

TEST_F(OutputInputsTest, HeededCallsComeBack) {
  components.actions["log"] = [](TestView& view) {
    view.mMessenger->ShowMessage("warning", "a");
    view.mMessenger->ShowMessage("error", "b");
  };
  expectPlayedOnView(
      "> set cmdButton.Tag log\n> ignore ShowMessage\n> click cmdButton\n"
      "> heed ShowMessage \"err\"\n> click cmdButton\nShowMessage \"error\" \"b\"\n"
      "> heed ShowMessage\n> click cmdButton\nShowMessage \"warning\" \"a\"\nShowMessage \"error\" \"b\"\n");
}

TEST_F(OutputInputsTest, AnErrorDuringAnIgnoredCallGoesItsWay) {
  components.actions["log"] = [](TestView& view) { view.mMessenger->Log(67, "x"); };
  expectPlayedOnView("> set cmdButton.Tag log\n> ignore Log\n> fail Log\n> click cmdButton\nUnhandled 440 \"told to fail\"\n");
}

}  // namespace ostrand::test
