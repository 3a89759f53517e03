#include <gmock/gmock.h>

#include <QLineEdit>
#include <QTableView>

#include "platform/controls/Chart.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/ListView.h"
#include "workbench/WindowBench.h"
#include "workbench/render/ChartCanvas.h"

namespace ostrand::test {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;

// With more records than rows the water, which comes last, finds none.
constexpr const char* kNoRowLeft = "lsvUsed has no row 0";

// The first recipe of the GYRE transmitter of the plant, its history read.
class RecipeTest : public WindowBench {
 protected:
  void SetUp() override {
    open();
    ASSERT_TRUE(show(device("hartGYRE"), "recipe1", "recipe1"));
    readPage();
  }
  void readPage() {
    press(Qt::Key_F5);
    settle();
  }
  ListView& list(const std::string& name) { return control<ListView>(name); }
  std::string cell(const std::string& name, int row, int column = 1) { return asText(list(name).get("Cell", std::array{row, column})); }
  std::string p(int index) { return control<CtrTextEdit>("ctePn(" + std::to_string(index) + ")").Text(); }
  ChartCanvas& canvas() { return dynamic_cast<ChartCanvas&>(*widget("pesgoValidation")); }
  void doubleClickMark(int row) {
    QTest::mouseDClick(&canvas(), Qt::LeftButton, Qt::NoModifier, canvas().placeOf({0, row - 1}).toPoint());
    settle();
  }
  // What the laboratory found, from cell to cell with the return key.
  void typeLaboratory(const std::vector<QString>& values) {
    auto& table = dynamic_cast<QTableView&>(*widget("lsvConsistency"));
    window->panel().ensureWidgetVisible(&table);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, table.visualRect(table.model()->index(0, 0)).center());
    pump();
    press(Qt::Key_Return);
    for (const QString& value : values) {
      auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
      ASSERT_TRUE(editor) << value.toStdString();
      editor->selectAll();
      QTest::keyClicks(editor, value);
      press(Qt::Key_Return);
    }
    press(Qt::Key_Escape);
    settle();
  }
  std::vector<LeftOut> applyAll() {
    Host& host = workbench->host();
    bool done = false;
    const std::vector<LeftOut> left = host.exchange().applyChanges(host.edits().collect(), [&] { done = true; });
    EXPECT_TRUE(until([&] { return done; }));
    settle();
    return left;
  }
};

TEST_F(RecipeTest, TwoMarksMoveTheCurveAndTheOtherActionBringsItBack) {
  for (int row = 1; row <= 3; ++row) EXPECT_NE(cell("lsvValidation", row, 2), "") << row;
  typeLaboratory({"7.4", "4.6"});
  EXPECT_EQ(cell("lsvConsistency", 1), "7.40");
  grab("recipe-history");
  const std::string slope = p(0), offset = p(1);
  const std::vector<float> before = control<Chart>("pesgoValidation").YData();
  clickOn("optAction(1)");
  doubleClickMark(1);
  EXPECT_EQ(p(0), slope) << "one point waits for the other";
  doubleClickMark(2);
  EXPECT_NE(p(0), slope);
  EXPECT_NE(p(1), offset);
  EXPECT_NE(control<Chart>("pesgoValidation").YData(), before);
  grab("recipe-two-points");
  clickOn("optAction(2)");
  EXPECT_EQ(p(0), slope);
  EXPECT_EQ(p(1), offset);
  EXPECT_EQ(control<Chart>("pesgoValidation").YData(), before);
  EXPECT_THAT(said(ConversationLog::Kind::Error), Each(HasSubstr(kNoRowLeft)));
}

TEST_F(RecipeTest, WhatTheLaboratoryFoundIsWrittenIntoItsRecord) {
  typeLaboratory({"4.5"});
  EXPECT_THAT(applyAll(), IsEmpty());
  EXPECT_EQ(cell("lsvConsistency", 1), "4.50");
  readPage();
  EXPECT_EQ(cell("lsvConsistency", 1), "4.50") << "the device has kept it";
  EXPECT_NE(cell("lsvConsistency", 2), "4.50") << "of this sample only";
  EXPECT_THAT(workbench->host().edits().collect(), IsEmpty());
  EXPECT_THAT(said(ConversationLog::Kind::Error), Each(HasSubstr(kNoRowLeft)));
}

TEST_F(RecipeTest, WhoMayNotWriteReadsTheHistory) {
  workbench->host().user().setLevel(1);
  ASSERT_TRUE(show(device("hartGYRE"), "recipe2", "recipe2"));
  EXPECT_EQ(cell("lsvValidation", 1, 2), "");
  asked.clear();
  readPage();
  EXPECT_NE(cell("lsvValidation", 1, 2), "");
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(RecipeTest, LocallyARecordIsLeftOut) {
  typeLaboratory({"4.5"});
  workbench->host().setCommunicationMode(CommunicationMode::LocalAcceptance);
  const std::vector<LeftOut> left = applyAll();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].name, "recipe1sample1");
}

}  // namespace
}  // namespace ostrand::test
