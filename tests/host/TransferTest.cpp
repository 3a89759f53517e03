#include "host/Transfer.h"

#include "host/HostBench.h"

namespace ostrand::test {

namespace {

using Lines = std::vector<std::string>;

class TransferTest : public HostTest {
 protected:
  Lines failed() {
    Lines lines;
    for (const auto& each : host.exchange().transfer().failures()) lines.push_back(each.group + " " + each.item + " " + each.errorCode + each.reason);
    return lines;
  }
  int finished = 0;
  std::function<void()> done = [this] { ++finished; };
};

TEST_F(TransferTest, ReadsAllGroupsOneAfterTheOther) {
  host.exchange().readAll(done);
  EXPECT_EQ(host.exchange().transfer().total(), 3);
  EXPECT_TRUE(host.exchange().transfer().running());
  EXPECT_EQ(told(asked[0].request), "read drive: speed mode");
  reply(answer("drive", "read", {{"speed", "2"}, {"mode", "2"}}));
  EXPECT_EQ(host.exchange().transfer().done(), 1);
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load speed");
  reply(answer("monitoringVariables", "read", {{"load", "2"}, {"speed", "2"}}));
  reply(answer("labels", "read", {{"name", "B"}}));
  EXPECT_EQ(finished, 1);
  EXPECT_FALSE(host.exchange().transfer().running());
  EXPECT_TRUE(failed().empty());
  EXPECT_EQ(host.dataSet()->value("name"), "B");
}

TEST_F(TransferTest, TellsItemByItemWhatFailedAndTriesThatAgain) {
  host.exchange().readAll(done);
  reply(answer("drive", "read", {{"speed", "2"}}, "isFinal=\"0\""));
  reply(answer("drive", "read", {{"mode", ""}}, "isFinal=\"1\" errorCode=\"missingItems\""));
  desktop.wait(3);  // the next group stays without an answer
  asked.erase(asked.begin());
  reply(answer("labels", "read", {}));
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(failed(), (Lines{"drive mode missingItems", "monitoringVariables load communicationError", "monitoringVariables speed communicationError",
                             "labels name missingItems"}));
  host.exchange().transfer().retry(done);
  EXPECT_EQ(told(asked[0].request), "read drive: mode");
  reply(answer("drive", "read", {{"mode", "4"}}));
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load speed");
  reply(answer("monitoringVariables", "read", {{"load", "2"}, {"speed", "2"}}));
  reply(answer("labels", "read", {{"name", "B"}}));
  EXPECT_EQ(finished, 2);
  EXPECT_TRUE(failed().empty());
  host.exchange().transfer().retry(done);
  EXPECT_EQ(finished, 3);
  EXPECT_TRUE(asked.empty());
}

TEST_F(TransferTest, AnErrorWithoutNamesIsAboutAllThatIsOpen) {
  host.exchange().readGroup("drive", done);
  reply(answer("drive", "read", {{"speed", "2"}}, "isFinal=\"0\""));
  reply(answer("drive", "read", {}, "isFinal=\"1\" errorCode=\"communicationError\""));
  EXPECT_EQ(failed(), Lines{"drive mode communicationError"});
}

TEST_F(TransferTest, ARefusedWriteTookNothingOver) {
  host.dataSet()->edit("speed", "9");
  host.exchange().writeParameters({"mode", "speed"}, done);
  EXPECT_EQ(told(asked[0].request), "write drive: mode=1 speed=9");
  reply(answer("drive", "write", {{"mode", "1"}}, "isFinal=\"0\""));
  reply(answer("drive", "write", {{"speed", ""}}, "isFinal=\"1\" errorCode=\"hartCmdErrParameterTooLarge\""));
  EXPECT_EQ(failed(), (Lines{"drive speed hartCmdErrParameterTooLarge", "drive mode hartCmdErrParameterTooLarge"}));
}

TEST_F(TransferTest, SaysWhyTheHostRefused) {
  host.setCommunicationMode(CommunicationMode::Busy);
  host.exchange().readGroup("labels", done);
  EXPECT_EQ(failed(), Lines{"labels name the communication is busy"});
  EXPECT_EQ(finished, 1);
}

TEST_F(TransferTest, CancelledGroupsHaveFailed) {
  host.exchange().readAll(done);
  host.communication().cancelWaiting();
  EXPECT_EQ(finished, 0);
  reply(answer("drive", "read", {{"speed", "2"}, {"mode", "2"}}));
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(failed().size(), 3u);
}

TEST_F(TransferTest, ANewRunForgetsTheOneBefore) {
  host.exchange().readGroup("drive", done);
  host.exchange().readGroup("labels", done);
  reply(answer("drive", "read", {{"speed", "2"}}));
  EXPECT_EQ(finished, 0);
  reply(answer("labels", "read", {{"name", "B"}}));
  EXPECT_EQ(finished, 1);
  EXPECT_TRUE(failed().empty());
}

TEST_F(TransferTest, NothingToReadFinishesAtOnce) {
  host.exchange().readGroup("no such group", done);
  EXPECT_EQ(finished, 1);
  EXPECT_TRUE(asked.empty());
}

TEST_F(TransferTest, ParametersAreReadInTheirHomeGroups) {
  host.exchange().readParameters({"load", "speed"});
  EXPECT_EQ(told(asked[0].request), "read drive: speed");
  reply(answer("drive", "read", {{"speed", "2"}}));
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load");
}

TEST_F(TransferTest, AComparisonChangesNothing) {
  PaperView& paper = view();
  host.dataSet()->edit("mode", "3");
  host.exchange().comparison().start(done);
  reply(answer("drive", "read", {{"speed", "1.249"}, {"mode", "1"}}));
  EXPECT_EQ(told(asked[0].request), "read monitoringVariables: load") << "each parameter once";
  reply(answer("monitoringVariables", "read", {{"load", ""}}, "isFinal=\"1\" errorCode=\"missingItems\""));
  reply(answer("labels", "read", {{"name", "A"}}));
  ASSERT_EQ(finished, 1);
  Lines rows;
  for (const auto& row : host.exchange().comparison().rows())
    rows.push_back(row.parameter + " " + row.dataSet + " " + row.device + (row.same ? " same" : " differs") + row.errorCode);
  // One decimal is shown: 1.25 rounds to 1.3, 1.249 to 1.2.
  EXPECT_EQ(rows, (Lines{"speed 1.25 1.249 differs", "mode 3 1 differs", "load 7  differsmissingItems", "name A A same"}));
  EXPECT_EQ(host.dataSet()->value("speed"), "1.25");
  EXPECT_EQ(host.dataSet()->edited(), Lines{"mode"});
  EXPECT_TRUE(paper.take().empty());
}

TEST_F(TransferTest, ValuesAreTheSameWithinTheDecimalsThatAreShown) {
  ParameterInfo number;
  number.type = "floatVal";
  number.decimals = 2;
  EXPECT_TRUE(sameShown(number, "1.2", "1.2000001"));
  EXPECT_FALSE(sameShown(number, "1.2", "1.21"));
  EXPECT_FALSE(sameShown(number, "1.2", "NaN"));
  EXPECT_FALSE(sameShown(number, "1.2", ""));
  number.decimals.reset();
  EXPECT_FALSE(sameShown(number, "1.2", "1.2000001"));
  EXPECT_TRUE(sameShown(number, "1.20", "1.2"));
  EXPECT_FALSE(sameShown(ParameterInfo(), "1.20", "1.2")) << "texts as they stand";
}

}  // namespace

}  // namespace ostrand::test
