#include "host/transcript/PlayerTest.h"
#include "platform/base/File.h"

namespace ostrand::test {

using TranscriptPlayerTest = PlayerTest;

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

TEST_F(TranscriptPlayerTest, AnErrorThatLeavesAHandlerIsUnhandled) {
  components.actions["throw"] = [](TestView&) { throw RuntimeError(91, "nothing there"); };
  components.actions["odd"] = [](TestView&) { throw std::runtime_error("odd"); };
  components.actions["refused"] = [](TestView&) { throw RuntimeError(RuntimeError::PermissionDenied, "disabled"); };
  expectPlayedOnView(
      "> set cmdButton.Tag throw\n> click cmdButton\nUnhandled 91 \"nothing there\"\n"
      "> set cmdButton.Tag odd\n> click cmdButton\nUnhandled 440 \"odd\"\n"
      "> set cmdButton.Tag refused\n> click cmdButton\nUnhandled 70 \"disabled\"\n");
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

}  // namespace ostrand::test
