#include <QAbstractItemModel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

#include "platform/controls/ListView.h"
#include "workbench/render/StateSymbol.h"
#include "workbench/render/RenderBench.h"

namespace ostrand::test {

namespace {

class ListsTest : public PanelBench {
 protected:
  ListsTest() {
    view = TestView::place(desktop, [this](TestView& at, Form& form) {
      list = &at.make<ListView>("list");
      at.frame(form, "key", "date_key").fill(*list, "list");
    });
    list->AddColumn("name", 3000);
    list->AddColumn("value", 1500, ListView::Content::Number);
    list->Header(1, "Name");
    list->Header(2, "Value");
    for (int row = 1; row <= 3; ++row) {
      list->AddRow();
      list->Cell(row, 1, "row " + std::to_string(row));
      list->Cell(row, 2, std::to_string(row) + ".5");
    }
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }
  QTableView& table() { return *widget<QTableView>(*list); }
  QVariant cell(int row, int column, int role = Qt::DisplayRole) { return table().model()->index(row - 1, column - 1).data(role); }
  QPoint middle(int row) { return table().visualRect(table().model()->index(row - 1, 0)).center(); }

  Ref<TestView> view;
  ListView* list = nullptr;
};

}  // namespace

TEST_F(ListsTest, CellsHeadersAndColoursAreShown) {
  EXPECT_EQ(table().model()->headerData(1, Qt::Horizontal).toString(), "Value");
  EXPECT_EQ(cell(2, 2).toString(), "2.5");
  list->CellColor(2, 2, Color::errorText());
  settle();
  EXPECT_EQ(cell(2, 2, Qt::ForegroundRole).value<QBrush>().color(), panel.theme().error);
  EXPECT_TRUE(cell(2, 2, Qt::TextAlignmentRole).toInt() & Qt::AlignRight) << "numbers stand on the right";
  EXPECT_FALSE(cell(2, 1, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
}

TEST_F(ListsTest, OnlyTheCellThatChangedIsPaintedAgain) {
  int cells = 0;
  QObject::connect(table().model(), &QAbstractItemModel::dataChanged, &table(),
                   [&](const QModelIndex& from, const QModelIndex& to) { cells += (to.row() - from.row() + 1) * (to.column() - from.column() + 1); });
  list->Cell(3, 2, "4.5");
  settle();
  EXPECT_EQ(cells, 1);
}

// The name of each cell that is read of the list from here on.
class CellReadings : public ControlProbe {
 public:
  explicit CellReadings(Desktop& desktop) : mDesktop(desktop) { mDesktop.setProbe(this); }
  ~CellReadings() { mDesktop.setProbe(nullptr); }
  void operation(Control&, std::string_view, const std::string&) override {}
  void setting(Control&, std::string_view, const std::string&) override {}
  void reading(Control&, std::string_view property) override {
    if (property.starts_with("Cell(")) cells.emplace_back(property);
  }
  std::vector<std::string> cells;

 private:
  Desktop& mDesktop;
};

TEST_F(ListsTest, OnlyTheRowsThatChangedAreRead) {
  CellReadings readings(desktop);
  list->Cell(3, 2, "4.5");
  settle();
  EXPECT_EQ(readings.cells, (std::vector<std::string>{"Cell(3,1)", "Cell(3,2)"}));
  readings.cells.clear();
  list->SelectedRow(2);
  settle();
  EXPECT_TRUE(readings.cells.empty());
  list->AddRow();
  settle();
  EXPECT_EQ(readings.cells, (std::vector<std::string>{"Cell(4,1)", "Cell(4,2)"}));
  readings.cells.clear();
  list->Header(2, "Another");
  settle();
  EXPECT_TRUE(readings.cells.empty());
  EXPECT_EQ(table().model()->headerData(1, Qt::Horizontal).toString(), "Another");
  panel.setTheme(Theme::make(Theme::Kind::Dark));
  settle();
  EXPECT_EQ(readings.cells.size(), 8u) << "the colours are others";
  EXPECT_EQ(cell(2, 2, Qt::ForegroundRole).value<QBrush>().color(), panel.theme().color(Color::text()));
}

TEST_F(ListsTest, RowsComeAndGo) {
  list->AddRow();
  list->Cell(4, 1, "new");
  settle();
  EXPECT_EQ(cell(4, 1).toString(), "new");
  list->RemoveRow(1);
  settle();
  EXPECT_EQ(table().model()->rowCount(), 3);
  EXPECT_EQ(cell(1, 1).toString(), "row 2");
  list->Clear();
  settle();
  EXPECT_EQ(table().model()->rowCount(), 0);
}

TEST_F(ListsTest, ARowIsClickedWithMouseAndKeys) {
  std::vector<int> clicked;
  list->ItemClick.connect([&](int row) { clicked.push_back(row); });
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, middle(2));
  settle();
  QTest::keyClick(&table(), Qt::Key_Down);
  settle();
  EXPECT_EQ(clicked, (std::vector<int>{2, 3}));
  EXPECT_EQ(list->SelectedRow(), 3);
  EXPECT_EQ(table().currentIndex().row(), 2);
}

TEST_F(ListsTest, ABoxIsTickedOnceThereAreBoxes) {
  EXPECT_FALSE(cell(1, 1, Qt::CheckStateRole).isValid());
  list->CheckBoxes(true);
  settle();
  std::vector<int> ticked;
  list->ItemCheck.connect([&](int row) { ticked.push_back(row); });
  const QRect first = table().visualRect(table().model()->index(0, 0));
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(first.left() + 22, first.center().y()));
  settle();
  EXPECT_TRUE(list->Checked(1));
  EXPECT_EQ(ticked, std::vector<int>{1});
  EXPECT_EQ(cell(1, 1, Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_F(ListsTest, AnEditInPlaceIsToldAndTheRowBearsWhatBecomesOfIt) {
  list->LabelEdit(true);
  settle();
  std::string told;
  list->AfterLabelEdit.connect([&](int row, std::string& text) {
    told = std::to_string(row) + " " + text;
    text = "normalised";
  });
  table().setFocus();
  table().setCurrentIndex(table().model()->index(1, 0));
  QTest::keyClick(&table(), Qt::Key_F2);
  auto* editor = table().findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, "other");
  QTest::keyClick(editor, Qt::Key_Return);
  settle();
  EXPECT_EQ(told, "2 other");
  EXPECT_EQ(cell(2, 1).toString(), "normalised");
}

TEST_F(ListsTest, EnterAndTabGoFromOneEditInPlaceToTheNext) {
  list->LabelEdit(true);
  settle();
  std::vector<std::string> told;
  list->AfterLabelEdit.connect([&](int row, std::string& text) { told.push_back(std::to_string(row) + " " + text); });
  QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, middle(1));
  settle();
  const auto typeAndPress = [&](const char* text, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr) << text;
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, key, modifiers);
    settle();
  };
  QTest::keyClick(&table(), Qt::Key_Return);
  typeAndPress("1", Qt::Key_Return);
  typeAndPress("2", Qt::Key_Tab);
  typeAndPress("3", Qt::Key_Backtab, Qt::ShiftModifier);
  typeAndPress("4", Qt::Key_Escape);
  EXPECT_EQ(told, (std::vector<std::string>{"1 1", "2 2", "3 3"}));
  EXPECT_EQ(list->SelectedRow(), 2);
}

TEST_F(ListsTest, WhatIsEditedOrWrongBearsAMark) {
  constexpr int kState = Qt::UserRole + 1;
  list->LabelEdit(true);
  list->CellColor(1, 1, Color::editedText());
  list->CellColor(2, 1, Color::errorText());
  settle();
  EXPECT_EQ(cell(1, 1, kState).toInt(), static_cast<int>(ValueState::Edited));
  EXPECT_EQ(cell(2, 1, kState).toInt(), static_cast<int>(ValueState::Wrong));
  EXPECT_FALSE(cell(3, 1, kState).isValid());
}

TEST_F(ListsTest, TablesOfAStripActAsOne) {
  ListView* lists[2] = {};
  const Ref<TestView> strip = TestView::place(desktop, [&](TestView& at, Form& form) {
    for (ListView*& each : lists) each = &at.make<ListView>(&each == lists ? "left" : "right");
    at.frame(form, "key", "date_key").strip({{lists[0], 1}, {lists[1], 1}});
  });
  for (ListView* each : lists) {
    each->AddColumn("", 1000);
    for (int row = 0; row < 60; ++row) each->AddRow();
  }
  panel.setView(Ref<ITaviView>(strip.get()));
  settle();
  QTableView& left = *widget<QTableView>(*lists[0]);
  QTableView& right = *widget<QTableView>(*lists[1]);
  EXPECT_EQ(left.geometry().right() + 1, right.geometry().left());
  EXPECT_EQ(left.viewport()->height(), right.viewport()->height());
  EXPECT_TRUE(left.verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff);
  right.verticalScrollBar()->setValue(20);
  EXPECT_EQ(left.verticalScrollBar()->value(), 20);
  QTest::mouseClick(left.viewport(), Qt::LeftButton, Qt::NoModifier, left.visualRect(left.model()->index(22, 0)).center());
  settle();
  EXPECT_EQ(lists[0]->SelectedRow(), 23);
  EXPECT_EQ(right.currentIndex().row(), 22);
  lists[1]->SelectedRow(30);
  settle();
  EXPECT_EQ(left.currentIndex().row(), 29);
  panel.setView(nullptr);
}

TEST_F(ListsTest, TheColumnsTakeTheWholeWidth) {
  EXPECT_NEAR(table().columnWidth(0) + table().columnWidth(1), table().viewport()->width(), 1);
  EXPECT_GT(table().columnWidth(0), table().columnWidth(1));
}

TEST_F(ListsTest, TheTabKeyLeavesTheList) {
  ASSERT_TRUE(panel.enter());
  QTest::keyClick(&table(), Qt::Key_Tab);
  EXPECT_EQ(tabbedOut, std::vector<bool>{true});
}

}  // namespace ostrand::test
