#include <gmock/gmock.h>

#include <QClipboard>
#include <QTreeView>

#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using Kind = ConversationLog::Kind;

class ConversationTest : public testing::Test {
 protected:
  ConversationTest() { panel.setTheme(Theme::make(Theme::Kind::Light)); }

  ConversationLog log;
  ConversationPanel panel{log};
};

TEST_F(ConversationTest, ALineOpensIntoItsDocument) {
  log.add({{}, Kind::Request, "VwA", "SendRequest \"x\"", "<dtm><a n=\"1\"><b/></a></dtm>", {}});
  const QModelIndex line = log.index(0, 0);
  ASSERT_TRUE(log.hasChildren(line));
  std::vector<std::string> lines;
  for (int row = 0; row < log.rowCount(line); ++row) lines.push_back(log.index(row, ConversationLog::Text, line).data().toString().toStdString());
  EXPECT_THAT(lines, ElementsAre("<dtm>", "  <a n=\"1\">", "    <b/>", "  </a>", "</dtm>"));
  EXPECT_EQ(log.index(2, 0, line).parent(), line);
}

TEST_F(ConversationTest, ATextThatIsNoDocumentStandsAsItIs) { EXPECT_EQ(laidOut("no <document"), QStringList{QStringLiteral("no <document")}); }

TEST_F(ConversationTest, KindsAndSearchChooseLines) {
  log.add({{}, Kind::Request, "VwA", "SendRequest \"sampling\"", "<item name=\"torque\"/>", {}});
  log.add({{}, Kind::Status, "VwA", "SetParameterStatus \"a\" \"sync\"", {}, {}});
  EXPECT_EQ(panel.shownLines(), 2);
  panel.setKindShown(Kind::Status, false);
  EXPECT_EQ(panel.shownLines(), 1);
  panel.setKindShown(Kind::Status, true);
  panel.search(QStringLiteral("TORQUE"));
  EXPECT_EQ(panel.shownLines(), 1) << "the documents are searched too";
  panel.search({});
  EXPECT_EQ(panel.shownLines(), 2);
}

TEST_F(ConversationTest, TheChosenLinesAreCopiedWithTheirDocuments) {
  log.add({{}, Kind::Request, "VwA", "SendRequest \"x\"", "<dtm/>", {}});
  log.add({{}, Kind::Host, "VwA", "focus", {}, {}});
  panel.list().selectionModel()->select(panel.list().model()->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  panel.copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("00:00:00 Request SendRequest \"x\"\n<dtm/>"));
}

TEST_F(ConversationTest, AnAnswerComesBehindItsCall) {
  const auto call = log.add({{}, Kind::Message, "VwA", "AskUser \"a\" \"b\"", {}, {}});
  log.add({{}, Kind::Data, "VwA", "online \"x\"", {}, {}});
  log.append(call, " -> 4");
  EXPECT_EQ(log.line(0).text, "AskUser \"a\" \"b\" -> 4");
}

TEST_F(ConversationTest, TheOldestLinesGoAndNumbersStay) {
  ConversationLog::Number last = 0;
  for (int i = 0; i < 20001; ++i) last = log.add({{}, Kind::Log, {}, std::to_string(i), {}, {}});
  EXPECT_LT(log.size(), 20001u);
  log.append(last, "!");
  EXPECT_EQ(log.line(log.size() - 1).text, "20000!");
  log.append(1, "gone");
  EXPECT_EQ(log.line(0).text, std::to_string(20001 - log.size()));
}

}  // namespace
}  // namespace ostrand::test
