#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QWheelEvent>

#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "workbench/render/RenderBench.h"
#include "workbench/render/StateSymbol.h"

namespace ostrand::test {

namespace {

// A frame with one of each edit and a button, and a data set behind it.
class EditsTest : public PanelBench {
 protected:
  EditsTest() {
    view = TestView::place(desktop, [this](TestView& at, Form& form) {
      number = &at.make<CtrTextEdit>("number");
      other = &at.make<CtrTextEdit>("other");
      combo = &at.make<CtrComboEdit>("combo");
      date = &at.make<CtrDateEdit>("date");
      check = &at.make<CtrCheckEdit>("check");
      button = &at.make<CommandButton>("button");
      at.frame(form, "key", "date_key")
          .row(at.make<Label>("lbl1"), "first", *number, "ctr_number")
          .row(at.make<Label>("lbl2"), "second", *other, "ctr_other")
          .row(at.make<Label>("lbl3"), "third", *combo, "ctr_combo")
          .row(at.make<Label>("lbl4"), "fourth", *date, "ctr_date")
          .row(at.make<Label>("lbl5"), "fifth", *check, "ctr_check")
          .button(*button, "accept", "Accept");
    });
    number->setOfflineData(parameterNode("name=\"number\" type=\"floatVal\" value=\"4.25\" unit=\"s\" decimals=\"2\" minVal=\"0\" maxVal=\"99\""));
    other->setOfflineData(parameterNode("name=\"other\" type=\"stringVal\" value=\"QC\""));
    combo->SetMappings(mappingNode(choice("1", "recipe1") + choice("2", "recipe2") + choice("3", "recipe3")));
    combo->setOfflineData(parameterNode("name=\"combo\" type=\"integerVal\" value=\"1\""));
    date->setOfflineData(parameterNode("name=\"date\" type=\"stringVal\" value=\"2026-01-05\""));
    check->setOfflineData(parameterNode("name=\"check\" type=\"integerVal\" value=\"0\""));
    button->Click.connect([this] { ++clicks; });
    panel.setView(Ref<ITaviView>(view.get()));
    settle();
  }

  QLineEdit& field(const Control& control) { return *widget<QLineEdit>(control); }
  // Marks all, and types instead.
  void type(const Control& control, const QString& text) {
    field(control).setFocus(Qt::MouseFocusReason);
    field(control).selectAll();
    QTest::keyClicks(&field(control), text);
  }
  void wheel(QWidget& over) {
    QWheelEvent event(QPointF(5, 5), over.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&over, &event);
    settle();
  }

  Ref<TestView> view;
  CtrTextEdit* number = nullptr;
  CtrTextEdit* other = nullptr;
  CtrComboEdit* combo = nullptr;
  CtrDateEdit* date = nullptr;
  CtrCheckEdit* check = nullptr;
  CommandButton* button = nullptr;
  int clicks = 0;
};

}  // namespace

TEST_F(EditsTest, EnterAppliesANumberWithPointOrComma) {
  type(*number, "12.5");
  EXPECT_EQ(number->Text(), "4.25") << "only typed so far";
  EXPECT_TRUE(panel.hasTyping());
  QTest::keyClick(&field(*number), Qt::Key_Return);
  settle();
  EXPECT_EQ(number->Text(), "12.50");
  EXPECT_EQ(field(*number).text(), "12.50");
  EXPECT_TRUE(field(*number).hasFocus());

  type(*number, "7,75");
  QTest::keyClick(&field(*number), Qt::Key_Enter);
  settle();
  EXPECT_EQ(number->Text(), "7.75");
  EXPECT_EQ(field(*number).property("state"), "edited");
}

TEST_F(EditsTest, LeavingByTheMouseApplies) {
  type(*number, "9");
  QTest::mouseClick(&field(*other), Qt::LeftButton);
  settle();
  EXPECT_EQ(number->Text(), "9.00");
  EXPECT_EQ(view->focused(), other);
}

// What the screen shows of a value is not the value: only what is typed over it may become an edit.
TEST_F(EditsTest, PassingThroughAFieldWithoutTypingChangesNothing) {
  number->setOfflineData(parameterNode("name=\"number\" type=\"floatVal\" value=\"4.256\" unit=\"s\" decimals=\"2\""));
  settle();
  int heard = 0;
  number->Change.connect([&](const std::string&) { ++heard; });
  QTest::mouseClick(&field(*number), Qt::LeftButton);
  field(*number).selectAll();
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Return}) QTest::keyClick(&field(*number), key);
  QTest::keyClick(&field(*number), Qt::Key_C, Qt::ControlModifier);
  EXPECT_FALSE(panel.hasTyping());
  QTest::keyClick(&field(*number), Qt::Key_Tab);
  settle();
  EXPECT_FALSE(field(*number).hasFocus());
  QTest::keyClick(&field(*other), Qt::Key_Backtab, Qt::ShiftModifier);
  settle();
  QTest::mouseClick(&field(*other), Qt::LeftButton);
  settle();
  EXPECT_FALSE(number->Modified());
  EXPECT_EQ(number->GetXmlItem().child("floatVal").text(), "4.256");
  EXPECT_EQ(heard, 0);

  type(*number, "4.26");
  QTest::keyClick(&field(*number), Qt::Key_Tab);
  settle();
  EXPECT_TRUE(number->Modified()) << "typed over it";
  EXPECT_EQ(number->GetXmlItem().child("floatVal").text(), "4.26");
}

TEST_F(EditsTest, AWrongNumberStaysAsTypedAndIsMarked) {
  type(*number, "100.5");
  QTest::keyClick(&field(*number), Qt::Key_Return);
  settle();
  EXPECT_FALSE(number->Correct());
  EXPECT_EQ(field(*number).text(), "100.50");
  EXPECT_EQ(field(*number).property("state"), "wrong");
}

TEST_F(EditsTest, EscapeRestoresWhatIsStored) {
  type(*number, "12");
  QTest::keyClick(&field(*number), Qt::Key_Escape);
  settle();
  EXPECT_EQ(field(*number).text(), "4.25") << "typed only";

  type(*number, "12");
  QTest::keyClick(&field(*number), Qt::Key_Return);
  QTest::keyClick(&field(*number), Qt::Key_Escape);
  settle();
  EXPECT_EQ(number->Text(), "4.25") << "applied already";
  EXPECT_FALSE(number->Modified());
  EXPECT_EQ(field(*number).text(), "4.25");
}

TEST_F(EditsTest, TheUndoKeyTakesBackTypingFirstAndThenTheEdit) {
  type(*number, "12");
  QTest::keyClick(&field(*number), Qt::Key_Return);
  settle();
  type(*number, "13");
  while (panel.hasTyping()) {
    QTest::keyClick(&field(*number), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(number->Text(), "12.00");
    if (!field(*number).isUndoAvailable()) break;
  }
  settle();
  EXPECT_EQ(field(*number).text(), "12.00");
  QTest::keyClick(&field(*number), Qt::Key_Z, Qt::ControlModifier);
  settle();
  EXPECT_EQ(number->Text(), "4.25");

  combo->choose("recipe2");
  QTest::keyClick(widget(*combo), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(combo->Text(), "recipe1");
}

TEST_F(EditsTest, AnAnswerDoesNotOverwriteWhatTheUserTypes) {
  type(*number, "12");
  number->SetOnlineData(itemNode("number", "floatVal", "5.5"));
  settle();
  EXPECT_EQ(field(*number).text(), "12");
  QTest::keyClick(&field(*number), Qt::Key_Escape);
  settle();
  EXPECT_EQ(field(*number).text(), "5.50");
}

TEST_F(EditsTest, CommitAppliesWhatIsTyped) {
  type(*number, "12");
  panel.commit();
  EXPECT_EQ(number->Text(), "12.00");
  EXPECT_FALSE(panel.hasTyping());
}

TEST_F(EditsTest, ADateIsTypedToo) {
  type(*date, "2026-02-28");
  QTest::keyClick(&field(*date), Qt::Key_Return);
  settle();
  EXPECT_TRUE(date->Modified());
  EXPECT_TRUE(date->Correct());
  type(*date, "some day");
  QTest::keyClick(&field(*date), Qt::Key_Return);
  settle();
  EXPECT_FALSE(date->Correct());
  EXPECT_EQ(field(*date).text(), "some day");
}

TEST_F(EditsTest, AChoiceIsMadeWithTheKeys) {
  auto& box = *widget<QComboBox>(*combo);
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Down);
  settle();
  EXPECT_EQ(combo->Text(), "recipe2");
  EXPECT_TRUE(combo->Modified());
  QTest::keyClick(&box, Qt::Key_Escape);
  settle();
  EXPECT_EQ(combo->Text(), "recipe1");
  EXPECT_EQ(box.currentIndex(), 0);
}

TEST_F(EditsTest, TheFilterOfAComboShortensItsListAndKeepsAValueThatIsNotOffered) {
  combo->SetAllItemsAllowed(false);
  combo->SetItemAllowed("recipe3", true);
  combo->ApplyItemFilter();
  settle();
  auto& box = *widget<QComboBox>(*combo);
  EXPECT_EQ(box.count(), 1);
  EXPECT_EQ(box.currentIndex(), -1);
  EXPECT_EQ(box.placeholderText(), "recipe1");
}

TEST_F(EditsTest, ABoxIsClickedWithMouseAndSpace) {
  QTest::keyClick(widget(*check), Qt::Key_Space);
  settle();
  EXPECT_TRUE(check->Value());
  QTest::mouseClick(widget(*check), Qt::LeftButton, Qt::NoModifier, QPoint(8, widget(*check)->height() / 2));
  settle();
  EXPECT_FALSE(check->Value());
}

TEST_F(EditsTest, TheWheelChangesOnlyWhatHasTheFocus) {
  auto& box = *widget<QComboBox>(*combo);
  field(*number).setFocus();
  wheel(box);
  EXPECT_EQ(combo->Text(), "recipe1");
  box.setFocus();
  wheel(box);
  EXPECT_EQ(combo->Text(), "recipe2");
}

TEST_F(EditsTest, AButtonIsPressedWithMouseSpaceAndEnter) {
  QTest::mouseClick(widget(*button), Qt::LeftButton);
  QTest::keyClick(widget(*button), Qt::Key_Space);
  QTest::keyClick(widget(*button), Qt::Key_Return);
  EXPECT_EQ(clicks, 3);
  EXPECT_EQ(widget(*button)->property("role"), "primary");
}

TEST_F(EditsTest, AClickOnTheButtonFindsWhatWasTypedBefore) {
  std::string seen;
  button->Click.connect([&] { seen = number->Text(); });
  type(*number, "33");
  QTest::mouseClick(widget(*button), Qt::LeftButton);
  EXPECT_EQ(seen, "33.00");
}

TEST_F(EditsTest, ADisabledControlTakesNothingAndSaysWhy) {
  panel.whyDisabled = [](const Control& control) { return QString::fromStdString("because of " + control.name()); };
  button->Enabled(false);
  number->Enabled(false);
  settle();
  QTest::mouseClick(widget(*button), Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
  EXPECT_FALSE(field(*number).isEnabled());
  EXPECT_TRUE(panel.explanation(*number).contains("because of number"));
  EXPECT_TRUE(panel.explanation(*button).contains("because of button"));
  EXPECT_FALSE(panel.explanation(*combo).contains("because"));
}

TEST_F(EditsTest, ADisabledButtonHasTheFocusAgainWhenItIsEnabled) {
  widget(*button)->setFocus();
  ASSERT_EQ(view->focused(), button);
  button->Enabled(false);
  settle();
  EXPECT_EQ(focusedControl(), "") << "it does not jump to a neighbour";
  button->Enabled(true);
  settle();
  EXPECT_EQ(focusedControl(), "button");
}

TEST_F(EditsTest, AnActionThatIsNotAcceptedIsToldAndOneThatFailsToo) {
  button->Click.connect([] { throw RuntimeError(RuntimeError::NothingThere, "no strategy"); });
  QTest::mouseClick(widget(*button), Qt::LeftButton);
  EXPECT_EQ(unhandled, std::vector<std::string>{"no strategy"});
  EXPECT_TRUE(refused.empty());

  type(*number, "12");
  number->Enabled(false);
  panel.commit();  // before the screen has followed
  EXPECT_EQ(refused.size(), 1u);
  settle();
  EXPECT_EQ(field(*number).text(), "4.25") << "back to the model's value";
}

TEST_F(EditsTest, TheTooltipTellsLimitsParameterRawValueAndLastRead) {
  QString text = panel.explanation(*number);
  EXPECT_TRUE(text.contains("Not read yet")) << text.toStdString();
  EXPECT_TRUE(text.contains("Limits: 0.00 – 99.00 s")) << text.toStdString();
  EXPECT_TRUE(text.contains("Parameter: number"));
  EXPECT_TRUE(text.contains("Raw value: 4.25 s"));
  EXPECT_TRUE(text.contains("Last read: never"));
  number->SetOnlineData(itemNode("number", "floatVal", "5.5"));
  text = panel.explanation(*number);
  EXPECT_TRUE(text.contains("Read from the device"));
  EXPECT_TRUE(text.contains("Last read: 1/5/2026 8:00:00 AM")) << text.toStdString();
  panel.setTexts(nullptr, "fi");
  EXPECT_TRUE(panel.explanation(*number).contains("Rajat: "));
}

TEST_F(EditsTest, EveryStateOfAValueIsTold) {
  const auto state = [&] { return statesOf(*number).value; };
  EXPECT_EQ(state(), ValueState::NotRead);
  number->SetOnlineData(itemNode("number", "floatVal", "5.5"));
  EXPECT_EQ(state(), ValueState::Read);
  number->type("6");
  EXPECT_EQ(state(), ValueState::Edited);
  number->type("600");
  EXPECT_EQ(state(), ValueState::Wrong);
  number->type("7");
  EXPECT_EQ(state(), ValueState::Corrected);
  number->restore();
  number->handleError("communicationError");
  EXPECT_EQ(state(), ValueState::ReadFailed);
  EXPECT_FALSE(statesOf(*number).access);
  number->KeepLocal(true);
  EXPECT_FALSE(statesOf(*number).access) << "there is nothing to hold back";
  number->type("8");
  EXPECT_EQ(statesOf(*number).access, ValueState::HeldBack);
  number->ReadOnly(true);
  EXPECT_EQ(statesOf(*number).access, ValueState::ReadOnly);
}

TEST_F(EditsTest, OnlyWhatHasChangedIsTouched) {
  int edits = 0;
  QObject::connect(&field(*other), &QLineEdit::textChanged, &field(*other), [&] { ++edits; });
  for (int i = 0; i < 20; ++i) number->SetOnlineData(itemNode("number", "floatVal", std::to_string(i)));
  int numberChanges = 0;
  QObject::connect(&field(*number), &QLineEdit::textChanged, &field(*number), [&] { ++numberChanges; });
  settle();
  EXPECT_EQ(edits, 0);
  EXPECT_EQ(numberChanges, 1) << "once per turn of the event loop";
  EXPECT_EQ(field(*number).text(), "19.00");
}

TEST_F(EditsTest, AHiddenControlIsNotOnTheScreen) {
  date->Visible(false);
  settle();
  EXPECT_EQ(widget(*date), nullptr);
  date->Visible(true);
  settle();
  ASSERT_NE(widget(*date), nullptr);
  EXPECT_TRUE(widget(*date)->isVisible());
}

}  // namespace ostrand::test
