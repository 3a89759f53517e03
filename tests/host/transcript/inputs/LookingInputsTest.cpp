#include "host/transcript/PlayerTest.h"
#include "platform/base/File.h"

namespace ostrand::test {

using LookingInputsTest = PlayerTest;

TEST_F(LookingInputsTest, TheFrontIsShownAsText) {
  expectPlayedOnView(
      "> select second\n"
      "> front\n\"second\"\n> selected\n\"second\"\n"
      "> show\n"
      "frmViews(1)       frame  \"second\"\n"
      "lblTitle(1)       label  \"\"\n"
      "ctrDateLabels(1)  stamp  \"\"\n"
      "lsvList           list   1 row\n"
      "picChart          chart  0 marks, 0 lines\n"
      "cgmMenu           menu                     hidden\n"
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

TEST_F(LookingInputsTest, AChartIsToldByItsAxesItsSeriesAndItsPoints) {
  expectPlayedOnView(
      "> call picChart.XMaximum \"1.5\"\n> call picChart.YLabel \"Lab / %Cs\"\n> call picChart.SeriesLabel 1 \"Basic tuning\"\n"
      "> call picChart.AnnotationX \"0.75\"\n"
      "> chart picChart\n"
      "title \"\" \"\"\n"
      "x 0 1.5 0 \"\"\n"
      "y 0 1 0 \"Lab / %Cs\"\n"
      "series 0 marks 0x000000 \"\"\n"
      "series 1 line 0x000000 \"Basic tuning\"\n"
      "series 2 line 0x000000 \"\"\n"
      "series 3 line 0x000000 \"\"\n"
      "series 4 line 0x000000 \"\"\n"
      "annotation 0.75 0 \"\"\n"
      "> call picChart.XValue 0 3 \"0.5\"\n> call picChart.YValue 0 3 \"4.25\"\n> call picChart.PointType 0 3 9\n"
      "> call picChart.XValue 0 16 \"1\"\n> call picChart.XValue 1 49 \"1\"\n> call picChart.YValue 1 49 \"-2\"\n"
      "> chart picChart 0\n3 0.5 4.25 0x000000 9\n"
      "> chart picChart 0 16 3\n16 1 none 0x000000 0\n3 0.5 4.25 0x000000 9\n"
      "> chart picChart 1\n49 1 -2\n"
      "> chart picChart 2\n"
      "> set picChart.AnnotationText \"No curve\"\n> select second\n"
      "> show\n...\n...\n...\n...\npicChart ... 1 mark, 1 line \"No curve\"\n...\n"
      "> chart lsvList\nRejected \"lsvList is no chart\"\n"
      "> chart picChart 5\nRejected ...\n"
      "> chart picChart 0 50\nRejected \"picChart has no point 50\"\n"
      "> chart picNone\nNoSuchControl \"picNone\"\n");
}

TEST_F(LookingInputsTest, DocumentsAreLookedAtAsTheViewLeftThem) {
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

TEST_F(LookingInputsTest, APictureIsToldByItsSizeAndADigest) {
  expectPlayed(
      "> create TestPicture\n"
      "> picture image\n640 480 \"cbf29ce484222325\"\n"
      "> picture logo a\n16 8 \"af63dc4c8601ec8c\"\n"
      "> front\nRejected \"TestPicture has no controls\"\n"
      "> offline devices/hartBlade.xml\nRejected \"TestPicture has no ITaviDataUser\"\n"
      "> terminate\n");
}

TEST_F(LookingInputsTest, AFileIsShownAsTheViewHasWrittenIt) {
  components.actions["save"] = [](TestView& view) {
    const auto file = view.desktop().saveDialog({"title", "filter", "par", "a.par"});
    if (file) writeWholeFile(*file, "one\r\n\ttwo\n");
  };
  expectPlayedOnView(
      "> file x.par\nRejected \"no such file: x.par\"\n"
      "> set cmdButton.Tag save\n> dialog x.par\n> click cmdButton\nSaveDialog ... -> \"x.par\"\n"
      "> file x.par\n| one\\r\n| \ttwo\n"
      "> file units.xml\nRejected \"no such file: units.xml\"\n");
}

}  // namespace ostrand::test
