#include "host/transcript/PlayerTest.h"

namespace ostrand::test {

using MemberCallTest = PlayerTest;

TEST_F(MemberCallTest, ACodeSettingRaisesWhatItRaises) {
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

TEST_F(MemberCallTest, ACallReadsAndSetsPropertiesWithTheirIndices) {
  expectPlayedOnView(
      "> call cmdButton.Tag\n\"nothing\"\n> call cmdButton.Tag \"x\"\n> call cmdButton.Tag\n\"x\"\n"
      "> call lsvList.Cell 1 2\n\"cell\"\n> call lsvList.Cell 1 2 \"other\"\n> call lsvList.Cell 1 2\n\"other\"\n"
      "> call lsvList.Header 1 \"first\"\n> call lsvList.Header 1\n\"first\"\n"
      "> call lsvList.Cell 9 1\nUnhandled 9 ...\n"
      "> call lsvList.Cell 1\nRejected ...\n"
      "> call cmdButton.Left 1 2\nRejected \"Left takes fewer arguments\"\n"
      "> call cmdButton.Left \"far\"\nUnhandled 13 ...\n"
      "> call chkBox.Value true\nLog 77 \"box on\"\n");
}

TEST_F(MemberCallTest, ACallReachesOperationsOfControlsAndOfTheViewItself) {
  expectPlayedOnView(
      "> call cteText(0).ValueIsValid\ntrue\n"
      "> call cteText(0).GetXmlItem true\nnode\n| <item name=\"text\" unit=\"noUnit\"><stringVal></stringVal></item>\n"
      "> call cteText(0).MarkEdited true\nSetParameterStatus ...\n> call cteText(0).Modified\ntrue\n"
      "> call cceCombo.SetAllItemsAllowed false\n> call cceCombo.ApplyItemFilter\n> call cteText(0).SetTextOption true\n"
      "> call lsvList.AddRow\n> call lsvList.Count\n2\n> call lsvList.Clear\n> call lsvList.Count\n0\n"
      "> call SetSelectedView \"second\"\n> call GetSelectedView\n\"second\"\n> call LeaveSelectedView\ntrue\n"
      "> call CtrMonitoring1.GetSelectedView\n...\n"
      "> call Jump\nRejected \"TestPanel has no Jump\"\n"
      "> call SetSelectedView 2\nRejected \"SetSelectedView takes other arguments\"\n"
      "> call lsvList.Jump\nRejected \"ListView has no Jump\"\n"
      "> call nobody.Text\nNoSuchControl \"nobody\"\n");
}

TEST_F(MemberCallTest, ACallIsNoActOfTheView) {
  expectPlayedOnView("> trace on\n> call cmdButton.Move 1 2 3 4\n> call cmdButton.Left\n1\n> call cmdButton.Caption \"x\"\n");
}

}  // namespace ostrand::test
