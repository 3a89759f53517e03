#include "host/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/base/RuntimeError.h"

namespace ostrand::test {

namespace {

using testing::ElementsAre;

std::string wrong(const std::string& text) {
  try {
    Transcript::parse(text, "a.transcript");
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "nothing wrong";
}

std::vector<std::string> texts(const std::vector<TranscriptWord>& words) {
  std::vector<std::string> texts;
  for (const TranscriptWord& word : words) texts.push_back((word.quoted ? "'" : "") + word.text);
  return texts;
}

}  // namespace

TEST(TranscriptTest, TellsInputsOutputsCommentsAndBlankLinesApart) {
  const Transcript transcript = Transcript::parse("# a comment\n\n> create VwX tag=a\nLog 67 \"x\"\n\nFocusOut\n> now\n", "x");
  ASSERT_EQ(transcript.blocks().size(), 3u);
  EXPECT_FALSE(transcript.blocks()[0].input);
  EXPECT_EQ(transcript.blocks()[1].input->text, "create VwX tag=a");
  EXPECT_EQ(transcript.blocks()[1].input->command(), "create");
  ASSERT_EQ(transcript.blocks()[1].expected.size(), 2u);
  EXPECT_EQ(transcript.blocks()[1].expected[1].line, "FocusOut");
  EXPECT_EQ(transcript.blocks()[1].expected[1].first, 5u);
  EXPECT_TRUE(transcript.blocks()[2].expected.empty());
}

TEST(TranscriptTest, FurtherLinesBelongToTheLineAbove) {
  const Transcript transcript = Transcript::parse("> online\n| <a>\n|\n|   </a>\\r\nSendRequest \"x\"\n| <b/>\n", "x");
  EXPECT_EQ(transcript.blocks()[1].input->document, "<a>\n\n  </a>\r");
  EXPECT_EQ(transcript.blocks()[1].input->last, 3u);
  EXPECT_EQ(transcript.blocks()[1].expected[0].xml, "<b/>");
  EXPECT_EQ(transcript.blocks()[1].expected[0].last, 5u);
}

TEST(TranscriptTest, ADocumentThatWasAskedForIsAnOutput) {
  const Transcript transcript = Transcript::parse("> document 1\n| <a>\n| </a>\n", "x");
  EXPECT_FALSE(transcript.blocks()[1].input->document);
  ASSERT_EQ(transcript.blocks()[1].expected.size(), 1u);
  EXPECT_EQ(transcript.blocks()[1].expected[0].xml, "<a>\n</a>");
}

TEST(TranscriptTest, DocumentLinesReadBackAsTheyWere) {
  const std::string xml = "<a b=\"\\\">\r\n\n  <c/>\r</a>";
  const Output output{"SendRequest \"x\"", xml};
  std::string text = "> now\n";
  for (const std::string& line : output.lines()) text += line + "\n";
  EXPECT_EQ(Transcript::parse(text, "x").blocks()[1].expected[0], output);
}

TEST(TranscriptTest, LinesOfAnotherSystemAndAByteOrderMarkAreRead) {
  const Transcript transcript = Transcript::parse("\xEF\xBB\xBF> now\r\n2026\r\n", "x");
  EXPECT_EQ(transcript.blocks()[1].input->text, "now");
  EXPECT_EQ(transcript.blocks()[1].expected[0].line, "2026");
}

TEST(TranscriptTest, AMalformedLineIsNamed) {
  EXPECT_EQ(wrong("# fine\n>now\n"), "a.transcript:2: an input begins with \"> \"");
  EXPECT_EQ(wrong(">\n"), "a.transcript:1: an input needs a command");
  EXPECT_EQ(wrong(">   \n"), "a.transcript:1: an input needs a command");
  EXPECT_EQ(wrong("> type x \"abc\n"), "a.transcript:1: a text in double quotes has no end");
  EXPECT_EQ(wrong("> type x \"abc\\\n"), "a.transcript:1: a text in double quotes has no end");
  EXPECT_EQ(wrong("> type x \"a\\qb\"\n"), "a.transcript:1: no such escape: \\q");
  EXPECT_EQ(wrong("> type x \"a\"b\n"), "a.transcript:1: a text must be followed by a blank");
  EXPECT_EQ(wrong("> online\n|<a/>\n"), "a.transcript:2: a further line begins with \"| \"");
  EXPECT_EQ(wrong("\n| <a/>\n"), "a.transcript:2: there is no line above that this one belongs to");
  EXPECT_EQ(wrong("> online\n# a comment\n| <a/>\n"), "a.transcript:3: there is no line above that this one belongs to");
  EXPECT_EQ(wrong("an output may look as it likes: \" \\q >\n"), "nothing wrong");
}

TEST(TranscriptWordsTest, WordsAreBareOrQuoted) {
  EXPECT_THAT(texts(readWords("type  cteX(1)\t\"a \\\"b\\\" \\\\ \\n\\r\\t\"")), ElementsAre("type", "cteX(1)", "'a \"b\" \\ \n\r\t"));
  EXPECT_THAT(texts(readWords("create X tag=\"a b\" as Y")), ElementsAre("create", "X", "tag=a b", "as", "Y"));
  EXPECT_THAT(texts(readWords("document 1 //a[@name=\"x\"]")), ElementsAre("document", "1", "//a[@name=\"x\"]"));
  EXPECT_THAT(texts(readWords("type x \"\"")), ElementsAre("type", "x", "'"));
  EXPECT_THAT(texts(readInput("document 1 //a[@b = \"c\"]")), ElementsAre("document", "1", "//a[@b = \"c\"]"));
  EXPECT_THAT(texts(readInput("document 1 \"//a\"")), ElementsAre("document", "1", "'//a"));
  EXPECT_THAT(texts(readInput("during wait type x \"a b\"")), ElementsAre("during", "wait", "type x \"a b\""));
}

}  // namespace ostrand::test
