#include <gtest/gtest.h>

#include <functional>

#include "platform/base/RuntimeError.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrDateLabel.h"
#include "platform/controls/CtrFocusTransfer.h"
#include "platform/controls/CtrModuleSelection.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrStatus.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/CtrTimeEdit.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/Slider.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "platform/types/Query.h"
#include "support/Documents.h"
#include "support/FakeMessenger.h"

// A control of a component that was never placed has no owner, no desktop and no locale. What it can do without, it does; what
// it cannot, it says by RuntimeError, which the procedure that called it reports.
namespace ostrand {
namespace {

using namespace test;

constexpr const char* kParameters[] = {
    R"(name="x" type="floatVal" value="20" unit="degC" decimals="1" minVal="0" maxVal="100")",
    R"(name="x" type="integerVal" value="2" offlineValue="3")",
    R"(name="x" type="stringVal" value="2026-01-05")",
    R"(name="x" type="stringVal" value="a text")",
};

void attempt(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError&) {
    // Its caller's trap reports it.
  }
}

struct UnplacedTest : testing::Test {
  FakeCalls calls;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};

  UnplacedTest() {
    messenger->dropReports();
    messenger->converter->userUnits["x"] = "degF";
  }

  void useControl(Control& control) {
    for (const char* name :
         {"Tag",      "ContextTag", "Enabled",   "TabStop",       "Visible",  "Left",  "Top",   "Width", "Height",    "BackColor", "Caption", "Text",
          "Modified", "Correct",    "KeepLocal", "ExplicitApply", "ReadOnly", "Error", "Value", "Count", "ListIndex", "Min",       "Max"}) {
      attempt([&] { control.set(name, {}, control.get(name, {})); });
      attempt([&] { control.set(name, {}, std::string("20")); });
      attempt([&] { control.set(name, {}, true); });
      attempt([&] { control.set(name, {}, 1); });
    }
    control.Tag("ctr_x");
    attempt([&] { control.Move(1, 2, 3, 4); });
    attempt([&] { control.ZOrder(0); });
    attempt([&] { control.SetFocus(); });
    attempt([&] { control.kind(); });
    for (const Node& node : {mappingNode(choice("2", "two") + choice("3", "three")), Node()}) attempt([&] { control.SetMappings(node); });
    for (const char* parameter : kParameters) {
      attempt([&] { control.setOfflineData(parameterNode(parameter)); });
      attempt([&] { control.setImportData(parameterNode(parameter)); });
      attempt([&] { control.SetOnlineData(itemNode("x", "floatVal", "21", "unit=\"degF\"")); });
      attempt([&] { control.setLocalData(itemNode("x", "stringVal", "22")); });
      attempt([&] { control.handleError("communicationError"); });
    }
    for (const auto& member : {&Control::setOfflineData, &Control::setImportData, &Control::SetOnlineData, &Control::setLocalData})
      attempt([&] { (control.*member)(Node()); });
    if (ITaviComponent* const component = control.component()) {
      attempt([&] { component->SetMessenger(messenger); });
      attempt([&] { component->SetMessenger(messenger); });
    }
    if (ILocalizable* const localizable = control.localizable()) attempt([&] { localizable->Localize(messenger->textTable); });
    if (ITaviDataEditor* const editor = control.dataEditor()) attempt([&] { editor->GetXmlItem(false); });
    messenger->raiseUnits();
    messenger->raiseGetChanges(1);
    control.detach();
  }

  void useEdit(EditControl& edit) {
    edit.SetMessenger(messenger);
    for (const char* parameter : kParameters) {
      attempt([&] { edit.setOfflineData(parameterNode(parameter)); });
      attempt([&] { edit.Text("7,5"); });
      attempt([&] { edit.MarkEdited(true); });
      attempt([&] { edit.ValueIsValid(); });
      attempt([&] { edit.HasParameter(); });
      attempt([&] { edit.GetXmlItem(); });
      attempt([&] { edit.MarkEdited(false); });
      attempt([&] { edit.restore(); });
      attempt([&] { edit.leave(); });
      attempt([&] { edit.storedText(); });
      attempt([&] { edit.displayText(); });
      attempt([&] { edit.Localize(nullptr); });
    }
    useControl(edit);
  }

  template <class T>
  void useChoice() {
    T edit("edit");
    edit.SetMappings(mappingNode(choice("0", "off") + choice("1", "on")));
    attempt([&] { edit.choose("on"); });
    attempt([&] { edit.label("on"); });
    useEdit(edit);
  }

  template <class T>
  void useTyped() {
    T edit("edit");
    for (const char* parameter : kParameters) {
      attempt([&] { edit.setOfflineData(parameterNode(parameter)); });
      for (const char* text : {"21", "70 degF", "5.1.2026", "08:00", "", "hot"}) attempt([&] { edit.type(text); });
    }
    useEdit(edit);
  }

  template <class T>
  void usePanel() {
    const Ref<T> panel(new T);
    const auto document =
        dataSet(parameterXml("x", "20", kParameters[0] + 9), {}, "<data:requestGroup name=\"\"><data:includedParam name=\"x\"/></data:requestGroup>");
    for (int round = 0; round < 2; ++round) {
      panel->SetMessenger(messenger);
      panel->Localize(messenger->textTable);
      panel->SetImportData(document);
      panel->SetOfflineData(document);
      panel->SetOnlineData(answer("name=\"\" access=\"read\"", itemXml("x", "21", "floatVal")));
      panel->SetErrorData(answer("name=\"\" errorCode=\"missingItems\"", itemXml("x", "21", "floatVal")));
      panel->SetOfflineData(Document());
      panel->SetOnlineData(Document());
      panel->SetErrorData(Document());
      messenger->raiseUnits();
      messenger->raiseGetChanges(1);
      panel->RequestFocus();
      panel->SetSelectedView("x");
      panel->GetSelectedView();
      panel->LeaveSelectedView();
      panel->GetControls();
      panel->GetMessenger();
      panel->Resize(100, 100);
      panel->PrepareToRelease();
      panel->Terminate();
    }
  }
};

TEST_F(UnplacedTest, EditsThatAreTyped) {
  useTyped<CtrTextEdit>();
  useTyped<CtrDateEdit>();
  useTyped<CtrTimeEdit>();
}

TEST_F(UnplacedTest, ATextNeedsNoDesktop) {
  CtrTextEdit edit("edit");
  edit.setOfflineData(parameterNode(kParameters[3]));
  EXPECT_EQ(edit.Text(), "a text");
  edit.Text("another");
  EXPECT_EQ(edit.GetXmlItem().child("stringVal").text(), "another");
  EXPECT_THROW(edit.setOfflineData(parameterNode(kParameters[0])), RuntimeError) << "how numbers are written is not known yet";
}

TEST_F(UnplacedTest, RelationsOfEdits) {
  CtrTextEdit lower("lower"), upper("upper");
  for (CtrTextEdit* edit : {&lower, &upper}) attempt([&] { edit->setOfflineData(parameterNode(kParameters[0])); });
  attempt([&] { upper.AddValueRelation(lower, "max", 1); });
  attempt([&] { lower.type("30"); });
  attempt([&] { upper.ClearValueRelations(); });
}

TEST_F(UnplacedTest, EditsThatAreChosen) {
  useChoice<CtrComboEdit>();
  useChoice<CtrOptionEdit>();
  useChoice<CtrCheckEdit>();
  CtrCheckEdit box("box");
  attempt([&] { box.click(); });
  attempt([&] { box.Value(); });
  CtrComboEdit combo("combo");
  attempt([&] { combo.SetAllItemsAllowed(true); });
  attempt([&] { combo.SetItemAllowed("on", false); });
  attempt([&] { combo.ApplyItemFilter(); });
}

TEST_F(UnplacedTest, PlainControls) {
  Label label("label");
  Frame frame("frame");
  PictureBox picture("picture");
  CtrDateLabel date("date");
  CtrFocusTransfer transfer("transfer");
  for (Control* control : std::initializer_list<Control*>{&label, &frame, &picture, &date, &transfer}) useControl(*control);

  TextBox text("text");
  attempt([&] { text.type("a"); });
  useControl(text);
  CheckBox box("box");
  attempt([&] { box.click(); });
  useControl(box);
  CommandButton button("button");
  attempt([&] { button.click(); });
  useControl(button);
  OptionButton option("option");
  attempt([&] { option.click(); });
  useControl(option);
  Slider slider("slider");
  attempt([&] { slider.slide(5); });
  useControl(slider);
  Timer timer("timer");
  attempt([&] { timer.start(1); });
  attempt([&] { timer.stop(); });
  useControl(timer);
  ListView list("list");
  attempt([&] { list.AddColumn("column", 100); });
  attempt([&] { list.AddRow(); });
  attempt([&] { list.Cell(1, 1, "text"); });
  attempt([&] { list.RemoveRow(1); });
  attempt([&] { list.Clear(); });
  useControl(list);
}

TEST_F(UnplacedTest, FinishedPanels) {
  usePanel<CtrMonitoring>();
  usePanel<CtrModuleSelection>();
  usePanel<CtrStatus>();
}

}  // namespace
}  // namespace ostrand
