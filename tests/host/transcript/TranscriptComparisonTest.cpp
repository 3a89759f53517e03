#include "host/transcript/TranscriptComparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {

namespace {

using testing::ElementsAre;

// A transcript of one input and what it put out, an output for each line.
TranscriptComparison compared(const std::string& text, const std::vector<std::string>& outputs, const HeededCalls& heeded = {}) {
  const Transcript transcript = Transcript::parse(text, "t");
  std::vector<PlayedBlock> played(transcript.blocks().size());
  for (const std::string& line : outputs) played.back().outputs.push_back({line, {}});
  played.back().heeded = heeded;
  return TranscriptComparison(transcript, played);
}

bool matches(const std::string& expected, const std::vector<std::string>& outputs) { return compared("> now\n" + expected, outputs).matches(); }

}  // namespace

TEST(TranscriptComparisonTest, DotsStandForAnyRun) {
  EXPECT_TRUE(matchesPattern("abc", "abc"));
  EXPECT_FALSE(matchesPattern("abc", "abcd"));
  EXPECT_TRUE(matchesPattern("a...c", "ac"));
  EXPECT_TRUE(matchesPattern("a...c", "abbbc"));
  EXPECT_FALSE(matchesPattern("a...c", "abbb"));
  EXPECT_TRUE(matchesPattern("...", ""));
  EXPECT_TRUE(matchesPattern("a...b...c", "a-b-b-c"));
  EXPECT_FALSE(matchesPattern("a...b...b", "a-b"));
  EXPECT_FALSE(matchesPattern("ab...ba", "aba"));
  EXPECT_TRUE(matchesPattern("Log 68 \"Sending ...\"", "Log 68 \"Sending ...\""));
}

TEST(TranscriptComparisonTest, DocumentsAreComparedByteForByte) {
  EXPECT_TRUE(matchesOutput({"S", "<a/>"}, {"S", "<a/>"}));
  EXPECT_FALSE(matchesOutput({"S", "<a/>"}, {"S", "<a />"}));
  EXPECT_FALSE(matchesOutput({"S", {}}, {"S", "<a/>"}));
  EXPECT_FALSE(matchesOutput({"S", "<a/>"}, {"S", {}}));
  EXPECT_TRUE(matchesOutput({"S", "<a>...</a>"}, {"S", "<a>\n<b/>\n</a>"}));
}

TEST(TranscriptComparisonTest, OutputsMustComeInOrder) {
  EXPECT_TRUE(matches("A\nB\n", {"A", "B"}));
  EXPECT_FALSE(matches("A\nB\n", {"B", "A"}));
  EXPECT_FALSE(matches("A\n", {"A", "A"}));
  EXPECT_FALSE(matches("A\nA\n", {"A"}));
  EXPECT_FALSE(matches("", {"A"}));
}

TEST(TranscriptComparisonTest, AMarkedLineMayComeMoreOften) {
  EXPECT_TRUE(matches("A +\n", {"A"}));
  EXPECT_TRUE(matches("A +\nB\n", {"A", "A", "A", "B"}));
  EXPECT_FALSE(matches("A +\nB\n", {"B"}));
  EXPECT_TRUE(matches("A... +\nAB\nC\n", {"Ax", "Ay", "AB", "C"}));
  EXPECT_TRUE(matches("A... +\nA...\n", {"A1", "A2", "A3"}));
  EXPECT_FALSE(matches("A... +\nA...\n", {"A1"}));
}

TEST(TranscriptComparisonTest, WhatIsNotHeededIsNotCompared) {
  HeededCalls heeded;
  heeded.ignore("Log");
  EXPECT_TRUE(compared("> now\nLog 67 \"x\"\nA\n", {"A"}, heeded).matches());
  heeded.heedOnly("Log", "68");
  EXPECT_FALSE(compared("> now\nLog 68 \"x\"\nA\n", {"A"}, heeded).matches());
  EXPECT_TRUE(compared("> now\nLog 67 \"x\"\nA\n", {"A"}, heeded).matches());
}

TEST(TranscriptComparisonTest, TheDiffNamesFileAndLines) {
  const TranscriptComparison comparison = compared("# one\n# two\n# three\n# four\n> now\nA\nB\nC\n", {"A", "X", "C", "D"});
  EXPECT_EQ(comparison.diff(),
            "--- t\n"
            "+++ t (played)\n"
            "@@ -4,5 +4,6 @@\n"
            " # four\n"
            " > now\n"
            " A\n"
            "-B\n"
            "+X\n"
            " C\n"
            "+D\n");
  EXPECT_EQ(compared("> now\nA\n", {"A"}).diff(), "");
}

TEST(TranscriptComparisonTest, ChangesFarApartAreHunksOfTheirOwn) {
  const Transcript transcript = Transcript::parse("> now\nA\n# 1\n# 2\n# 3\n# 4\n# 5\n# 6\n# 7\n> now\n", "t");
  std::vector<PlayedBlock> played(3);
  played[2].outputs.push_back({"B", {}});
  EXPECT_EQ(TranscriptComparison(transcript, played).diff(),
            "--- t\n"
            "+++ t (played)\n"
            "@@ -1,5 +1,4 @@\n"
            " > now\n"
            "-A\n"
            " # 1\n"
            " # 2\n"
            " # 3\n"
            "@@ -8,3 +7,4 @@\n"
            " # 6\n"
            " # 7\n"
            " > now\n"
            "+B\n");
}

TEST(TranscriptComparisonTest, AnUpdateKeepsWhatMatchesAndWhatIsNoOutput) {
  const TranscriptComparison comparison = compared("# head\n> now\n\nA...\n# between\nB\n| <old/>\n\n# tail\n", {"Abc", "X", "C"});
  EXPECT_EQ(comparison.updatedText(), "# head\n> now\n\nA...\n# between\nX\nC\n\n# tail\n");
  EXPECT_EQ(comparison.playedText(), "# head\n> now\nAbc\nX\nC\n\n# between\n\n# tail\n");
}

TEST(TranscriptComparisonTest, AnUpdatedFileMatches) {
  const std::vector<std::string> outputs = {"A", "A", "Log 68 \"... +\"", "B"};
  const std::string text = compared("> now\nZ\nA +\nY\n", outputs).updatedText();
  EXPECT_TRUE(compared(text, outputs).matches()) << text;
}

TEST(TranscriptComparisonTest, ErrorsThatNobodyExpectedAreTold) {
  const std::string expected = "> now\nReportError \"a: \" 91 \"...\"\n";
  EXPECT_THAT(compared(expected, {"ReportError \"a: \" 91 \"x\""}).unexpectedErrors(), ElementsAre());
  EXPECT_THAT(
      compared(expected, {"ReportError \"a: \" 91 \"x\"", "Log 67 \"\"", "ReportError \"b: \" 5 \"\"", "Unhandled 5 \"\""}).unexpectedErrors(),
      ElementsAre("ReportError \"b: \" 5 \"\"", "Unhandled 5 \"\""));
}

}  // namespace ostrand::test
