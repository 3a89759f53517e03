#include "host/transcript/Replay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/HostBench.h"
#include "host/transcript/PlayerBench.h"
#include "host/transcript/ScratchFolder.h"
#include "platform/base/File.h"

namespace ostrand::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ReplayTest : public testing::Test {
 protected:
  std::filesystem::path write(const std::string& name, const std::string& text) {
    const std::filesystem::path file = folder.path() / name;
    std::filesystem::create_directories(file.parent_path());
    writeWholeFile(file, text);
    return file;
  }

  ScratchFolder folder;
  TestComponents components;
  Replay replay{components, sourceData()};
};

constexpr const char* kFails = "> create TestPanel\n> messenger\n> fail cteText(0).SetFocus\n> select first\n> focus\n";

}  // namespace

TEST_F(ReplayTest, AFileMatchesDiffersOrIsMalformed) {
  EXPECT_EQ(replay.compare(write("good.transcript", "> now\n2026-01-05 ...\n")).outcome, Replay::Outcome::Matches);

  const std::filesystem::path differing = write("differing.transcript", "> now\nnever\n");
  const Replay::Result differs = replay.compare(differing);
  EXPECT_EQ(differs.outcome, Replay::Outcome::Differs);
  EXPECT_EQ(differs.text,
            "--- " + differing.string() + "\n+++ " + differing.string() + " (played)\n@@ -1,2 +1,2 @@\n > now\n-never\n+2026-01-05 08:00:00.000\n");

  const std::filesystem::path bad = write("bad.transcript", "# fine\n> jump\n");
  const Replay::Result malformed = replay.compare(bad);
  EXPECT_EQ(malformed.outcome, Replay::Outcome::Malformed);
  EXPECT_EQ(malformed.text, bad.string() + ":2: no such input: jump\n");

  const Replay::Result absent = replay.compare(folder.path() / "absent.transcript");
  EXPECT_EQ(absent.outcome, Replay::Outcome::Malformed);
  EXPECT_THAT(absent.text, HasSubstr("absent.transcript"));
}

TEST_F(ReplayTest, AnUpdateWritesWhatWasPlayed) {
  const std::filesystem::path file = write("a.transcript", "# head\n> now\nnever\n\n> front\n");
  const Replay::Result result = replay.update(file, false);
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches);
  EXPECT_TRUE(result.written);
  EXPECT_EQ(readWholeFile(file), "# head\n> now\n2026-01-05 08:00:00.000\n\n> front\nRejected \"there is no view\"\n");
  EXPECT_FALSE(replay.update(file, false).written) << "it is right already";
}

TEST_F(ReplayTest, AnUpdateRefusesErrorsThatTheFileDidNotExpect) {
  const std::filesystem::path file = write("a.transcript", kFails);
  const Replay::Result refused = replay.update(file, false);
  EXPECT_EQ(refused.outcome, Replay::Outcome::Differs);
  EXPECT_FALSE(refused.written);
  EXPECT_THAT(refused.text, HasSubstr("ReportError \"TestView ITaviView_RequestFocus: \" 440 \"told to fail\""));
  EXPECT_EQ(readWholeFile(file), kFails);

  EXPECT_TRUE(replay.update(file, true).written);
  EXPECT_EQ(readWholeFile(file), std::string(kFails) + "ReportError \"TestView ITaviView_RequestFocus: \" 440 \"told to fail\"\n");
  EXPECT_EQ(replay.compare(file).outcome, Replay::Outcome::Matches);
}

TEST_F(ReplayTest, AnErrorThatTheFileExpectsStaysInAnUpdate) {
  const std::filesystem::path file = write("a.transcript", std::string(kFails) + "ReportError \"TestView ...\n> now\n");
  EXPECT_TRUE(replay.update(file, false).written);
  EXPECT_EQ(readWholeFile(file), std::string(kFails) + "ReportError \"TestView ...\n> now\n2026-01-05 08:00:00.000\n");
}

TEST_F(ReplayTest, AnUpdateThatCannotBeWrittenLeavesTheFile) {
  const std::filesystem::path file = write("a.transcript", "> now\n");
  std::filesystem::create_directory(file.string() + ".new");
  const Replay::Result result = replay.update(file, false);
  EXPECT_EQ(result.outcome, Replay::Outcome::Malformed);
  EXPECT_THAT(result.text, HasSubstr("cannot be written"));
  EXPECT_EQ(readWholeFile(file), "> now\n");
}

TEST_F(ReplayTest, APrintComparesNothing) {
  const Replay::Result result = replay.print(write("a.transcript", "# head\n> now\nnever\n"));
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches);
  EXPECT_EQ(result.text, "# head\n> now\n2026-01-05 08:00:00.000\n");
}

TEST_F(ReplayTest, FilesAreFoundBesideTheTranscriptOrInTheDataFolder) {
  write("own.xml", "<own/>");
  const Replay::Result result =
      replay.compare(write("a.transcript",
                           "> create TestPanel\n> ignore ReportError Log\n> messenger\n"
                           "> offline own.xml\n> document 1\n| <own/>\n"
                           "> offline devices/hartBlade.xml\n> document 2 //data:parameter[@name='tag']/@value\n\"QC-1201\"\n"
                           "> online broken.xml\nRejected \"no such file: broken.xml\"\n"));
  EXPECT_EQ(result.outcome, Replay::Outcome::Matches) << result.text;
}

TEST_F(ReplayTest, FoldersAreSearchedInOrder) {
  const auto b = write("sub/b.transcript", ""), a = write("sub/deep/a.transcript", ""), c = write("c.transcript", "");
  write("sub/other.txt", "");
  EXPECT_THAT(Replay::filesOf({c.string(), (folder.path() / "sub").string()}), ElementsAre(c, b, a));
  EXPECT_EQ(refusalOf([&] { Replay::filesOf({(folder.path() / "nowhere").string()}); }).number, RuntimeError::FileNotFound);
}

TEST_F(ReplayTest, TwoReplaysGiveTheSame) {
  const std::filesystem::path file = write(
      "a.transcript",
      "> device hartBlade seed=7\n> create TestPanel\n> messenger\n> localize probe\n> offline devices/hartBlade.xml\n> show\n> run 3\n> now\n");
  EXPECT_EQ(replay.print(file).text, replay.print(file).text);
}

}  // namespace ostrand::test
