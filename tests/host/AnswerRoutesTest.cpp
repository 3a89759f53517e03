#include "host/AnswerRoutes.h"

#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class AnswerRoutesTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    host.openDataSet(sourceData() / "devices" / "profibusBlade.xml");
  }
  void ask(PaperView& paper, const std::string& name, const std::string& access = "read") {
    paper.messenger->SendRequest("<communicationRequest name=\"" + name + "\" access=\"" + access +
                                     "\"><item name=\"activeRecipe\" unit=\"noUnit\"><integerVal>2</integerVal></item></communicationRequest>",
                                 name);
  }
};

TEST_F(AnswerRoutesTest, TheOthersGetTheValuesAndNoVerdict) {
  PaperView& asker = view();
  PaperView& other = view();
  ask(asker, "laboratoryResults");
  reply(answer("laboratoryResults", "read",
               {{"activeRecipe", "2"}, {"actionStatusOK", "1"}, {"sample1Quality", "0"}, {"sample1Deviation", "0.1"}, {"foreign", "1"}}));
  EXPECT_EQ(asker.take(),
            Lines{"SetOnlineData read laboratoryResults: activeRecipe=2 actionStatusOK=1 sample1Quality=0 sample1Deviation=0.1 foreign=1"});
  EXPECT_EQ(other.take(), Lines{"SetOnlineData read values more: activeRecipe=2"});
  ask(asker, "activeRecipe");
  reply(answer("activeRecipe", "read", {{"actionStatusOK", "1"}}));
  EXPECT_EQ(asker.take().size(), 1u);
  EXPECT_TRUE(other.take().empty()) << "there is nothing for it";
}

TEST_F(AnswerRoutesTest, AnErrorIsToldToWhoAsked) {
  PaperView& asker = view();
  PaperView& other = view();
  ask(asker, "activeRecipe", "write");
  reply(answer("activeRecipe", "write", {{"activeRecipe", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrInvalidSelection\""));
  EXPECT_EQ(asker.take(), Lines{"SetErrorData write activeRecipe hartCmdErrInvalidSelection: activeRecipe"});
  EXPECT_TRUE(other.take().empty());
}

TEST_F(AnswerRoutesTest, AReadingOfATestValueProvesNothing) {
  PaperView& paper = view();
  host.exchange().readParameters({"damping", "loopTestValue"});
  host.exchange().submit(
      "",
      "<communicationRequest name=\"loopTest\" access=\"read\"><item name=\"loopTestValue\" unit=\"mA\"><floatVal/></item></communicationRequest>",
      {}, {}, 0, 0);
  while (!asked.empty()) reply(answer(host.communication().underWay()->name, "read", {{"loopTestValue", "0"}}));
  for (const std::string& line : paper.take()) EXPECT_EQ(line.find("loopTestValue"), line.npos) << line;
}

TEST_F(AnswerRoutesTest, ReadingAPageIsNoCalibration) {
  PaperView& paper = view();
  for (const char* const group : {"laboratoryResults", "temperatureCalibration", "activeRecipe"}) {
    host.exchange().readGroup(group);
    reply(answer(group, "read", {{"activeRecipe", "2"}}));
  }
  EXPECT_EQ(paper.take(),
            (Lines{"SetOnlineData read laboratoryResults more: activeRecipe=2", "SetOnlineData read temperatureCalibration more: activeRecipe=2",
                   "SetOnlineData read activeRecipe: activeRecipe=2"}));
  EXPECT_NE(host.dataSet()->lastUpdate("laboratoryResults").substr(0, 10), "17/12/2025") << "the group has been read all the same";
}

}  // namespace

}  // namespace ostrand::test
