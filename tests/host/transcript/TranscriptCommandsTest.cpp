#include "host/transcript/PlayerTest.h"

namespace ostrand::test {

using TranscriptCommandsTest = PlayerTest;

TEST_F(TranscriptCommandsTest, AnInputThatNobodyUnderstandsNamesFileAndLine) {
  EXPECT_EQ(refused("jump"), "file:2: no such input: jump");
  EXPECT_EQ(refused("click"), "file:2: it should be: click CONTROL");
  EXPECT_EQ(refused("messenger now"), "file:2: it should be: messenger");
  EXPECT_EQ(refused("during AskUser jump"), "file:2: no such input: jump");
  EXPECT_EQ(refused("now\n| <a/>"), "file:2: now takes no document");
  EXPECT_EQ(made, 0) << "nothing is played of a malformed transcript";
}

TEST_F(TranscriptCommandsTest, EveryInputIsCheckedForItsForm) {
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
                                  "picture face",
                                  "file",
                                  "call",
                                  "call a.Text x"})
    EXPECT_TRUE(refused(input).starts_with("file:2: ")) << input;
}

}  // namespace ostrand::test
