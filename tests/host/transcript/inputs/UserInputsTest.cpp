#include "host/transcript/PlayerTest.h"

namespace ostrand::test {

using UserInputsTest = PlayerTest;

TEST_F(UserInputsTest, TheUserReachesEachKindOfControl) {
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
      "> choose cgmMenu copy\nRejected \"cgmMenu does not offer copy\"\n"
      "> click picChart\nRejected \"it does not take the action click\"\n"
      "> type chkBox \"x\"\nRejected \"chkBox is a CheckBox and does not take this action\"\n");
}

TEST_F(UserInputsTest, AListIsCheckedAndEditedInPlace) {
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

TEST_F(UserInputsTest, WhatIsHiddenDisabledOrReadOnlyCannotBeReached) {
  expectPlayedOnView(
      "> set chkBox.Enabled false\n"
      "> click chkBox\nRejected \"chkBox is disabled\"\n"
      "> set chkBox.Enabled true\n"
      "> set chkBox.Visible false\n"
      "> click chkBox\nRejected \"chkBox is hidden\"\n"
      "> set cteText(0).ReadOnly true\n"
      "> type cteText(0) \"x\"\nRejected \"cteText(0) is read only\"\n");
}

TEST_F(UserInputsTest, TheFocusIsSetTracedAndLost) {
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

}  // namespace ostrand::test
