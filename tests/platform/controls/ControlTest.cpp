#include "platform/controls/Control.h"

#include "platform/controls/CtrCheckEdit.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/CtrDateEdit.h"
#include "platform/controls/CtrDateLabel.h"
#include "platform/controls/CtrFocusTransfer.h"
#include "platform/controls/CtrMonitoring.h"
#include "platform/controls/CtrOptionEdit.h"
#include "platform/controls/CtrTextEdit.h"
#include "platform/controls/CtrTimeEdit.h"
#include "support/ControlBench.h"
#include "support/RecordingProbe.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using Kind = Control::Kind;

// --- kinds

TEST(ControlKindTest, EachClassIsOfItsKind) {
  EXPECT_EQ(Label("x").kind(), Kind::Label);
  EXPECT_EQ(TextBox("x").kind(), Kind::TextBox);
  EXPECT_EQ(Frame("x").kind(), Kind::Frame);
  EXPECT_EQ(CheckBox("x").kind(), Kind::CheckBox);
  EXPECT_EQ(OptionButton("x").kind(), Kind::OptionButton);
  EXPECT_EQ(CommandButton("x").kind(), Kind::CommandButton);
  EXPECT_EQ(ListView("x").kind(), Kind::ListView);
  EXPECT_EQ(PictureBox("x").kind(), Kind::PictureBox);
  EXPECT_EQ(Timer("x").kind(), Kind::NoData);
  EXPECT_EQ(Slider("x").kind(), Kind::NoData);
  EXPECT_EQ(CtrFocusTransfer("x").kind(), Kind::NoData);
  EXPECT_EQ(CtrTextEdit("x").kind(), Kind::TextEdit);
  EXPECT_EQ(CtrComboEdit("x").kind(), Kind::ComboEdit);
  EXPECT_EQ(CtrDateEdit("x").kind(), Kind::DateEdit);
  EXPECT_EQ(CtrTimeEdit("x").kind(), Kind::TimeEdit);
  EXPECT_EQ(CtrOptionEdit("x").kind(), Kind::OptionEdit);
  EXPECT_EQ(CtrCheckEdit("x").kind(), Kind::CheckEdit);
  EXPECT_EQ(CtrDateLabel("x").kind(), Kind::DateLabel);
  EXPECT_EQ(Nested<CtrMonitoring>("x").kind(), Kind::Nested);
}

// Of one class by its type, of another by its name.
class Named : public PictureBox {
 public:
  explicit Named(std::string_view className) : PictureBox("named"), mClassName(className) {}
  std::string_view className() const override { return mClassName; }

 private:
  std::string_view mClassName;
};
class DerivedTextEdit : public CtrTextEdit {
 public:
  using CtrTextEdit::CtrTextEdit;
  std::string_view className() const override { return "CtrSpecialEdit"; }
};

TEST(ControlKindTest, TheClassNameAloneIsEnough) {
  for (const auto& [name, kind] : {std::pair{"CtrTextEdit", Kind::TextEdit},
                                   {"CtrComboEdit", Kind::ComboEdit},
                                   {"CtrDateEdit", Kind::DateEdit},
                                   {"CtrTimeEdit", Kind::TimeEdit},
                                   {"CtrOptionEdit", Kind::OptionEdit},
                                   {"CtrCheckEdit", Kind::CheckEdit},
                                   {"CtrDateLabel", Kind::DateLabel},
                                   {"ctrTextEdit", Kind::PictureBox},
                                   {"Label", Kind::PictureBox}})
    EXPECT_EQ(Named(name).kind(), kind) << name;
}

TEST(ControlKindTest, TheTypeAloneIsEnough) { EXPECT_EQ(DerivedTextEdit("x").kind(), Kind::TextEdit); }

TEST(ControlKindTest, TheParameterNameIsBehindTheFirstFourCharacters) {
  Label label("x");
  for (const auto& [tag, name] :
       {std::pair{"ctr_damping", "damping"}, {"ctr_", ""}, {"damping", ""}, {"CTR_damping", ""}, {"xctr_a", ""}, {"", ""}}) {
    label.Tag(tag);
    EXPECT_EQ(label.parameterName(), name) << tag;
  }
}

// --- the probe

struct ProbeTest : ControlBench<CtrTextEdit> {
  RecordingProbe probe;
  ProbeTest() { desktop.setProbe(&probe); }
  ~ProbeTest() override { desktop.setProbe(nullptr); }
};

TEST_F(ProbeTest, HearsOfEveryOperationOnAnEdit) {
  const Node parameter = parameterNode(R"(name="x" type="floatVal" value="1")");
  edit().Move(1, 2, 3, 4);
  edit().ZOrder(0);
  edit().SetFocus();
  edit().setImportData(parameter);
  edit().setOfflineData(parameter);
  edit().setOfflineData(Node());
  edit().SetOnlineData(itemNode("x", "floatVal", "2"));
  edit().setLocalData(Node());
  edit().handleError("missingItems");
  edit().SetTextOption(true);
  edit().MarkEdited(false);
  edit().ValueIsValid();
  edit().HasParameter();
  edit().GetXmlItem(true);
  edit().GetXmlItem();
  edit().AddValueRelation(edit(), "max", 0.5);
  edit().ClearValueRelations();
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("ctlX.Move 1 2 3 4", "ctlX.ZOrder 0", "ctlX.SetFocus", "ctlX.setImportData \"x\"", "ctlX.setOfflineData \"x\"",
                          "ctlX.setOfflineData nothing", "ctlX.SetOnlineData \"x\"", "ctlX.setLocalData nothing", "ctlX.handleError \"missingItems\"",
                          "ctlX.SetTextOption true", "ctlX.MarkEdited false", "ctlX.ValueIsValid", "ctlX.HasParameter", "ctlX.GetXmlItem true",
                          "ctlX.GetXmlItem", "ctlX.AddValueRelation ctlX \"max\" 0.5", "ctlX.ClearValueRelations"));
}

TEST_F(ProbeTest, HearsOfEveryPropertyOfAnEdit) {
  edit().Tag("ctr_y");
  edit().ContextTag("g");
  edit().Enabled(false);
  edit().TabStop(false);
  edit().Visible(false);
  edit().Left(1);
  edit().Top(2);
  edit().Width(3);
  edit().Height(4);
  edit().BackColor(Color::window());
  edit().Text("t");
  edit().Modified(true);
  edit().KeepLocal(true);
  edit().ExplicitApply(true);
  edit().ReadOnly(true);
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("ctlX.Tag = \"ctr_y\"", "ctlX.ContextTag = \"g\"", "ctlX.Enabled = false", "ctlX.TabStop = false", "ctlX.Visible = false",
                          "ctlX.Left = 1", "ctlX.Top = 2", "ctlX.Width = 3", "ctlX.Height = 4", "ctlX.BackColor = 16777215", "ctlX.Text = \"t\"",
                          "ctlX.Modified = true", "ctlX.KeepLocal = true", "ctlX.ExplicitApply = true", "ctlX.ReadOnly = true"));
  probe.readings = true;
  edit().Tag(), edit().ContextTag(), edit().Enabled(), edit().TabStop(), edit().Visible(), edit().Left(), edit().Top(), edit().Width(),
      edit().Height();
  edit().BackColor(), edit().Text(), edit().Modified(), edit().Correct(), edit().KeepLocal(), edit().ExplicitApply(), edit().ReadOnly(),
      edit().Error();
  EXPECT_THAT(probe.calls.take(), ElementsAre("ctlX.Tag?", "ctlX.ContextTag?", "ctlX.Enabled?", "ctlX.TabStop?", "ctlX.Visible?", "ctlX.Left?",
                                              "ctlX.Top?", "ctlX.Width?", "ctlX.Height?", "ctlX.BackColor?", "ctlX.Text?", "ctlX.Modified?",
                                              "ctlX.Correct?", "ctlX.KeepLocal?", "ctlX.ExplicitApply?", "ctlX.ReadOnly?", "ctlX.Error?"));
}

TEST_F(ProbeTest, DoesNotHearOfTheUserNorOfWhoShowsTheControl) {
  probe.readings = true;
  edit().type("4");
  edit().leave();
  edit().restore();
  edit().get("Text", {});
  edit().displayText();
  EXPECT_THAT(probe.calls.take(), ElementsAre());
}

TEST_F(ProbeTest, AFailingOperationDoesNotHappen) {
  edit().setOfflineData(parameterNode(R"(name="x" type="floatVal" value="1")"));
  const auto fails = [&](const char* call, const std::function<void()>& body) {
    probe.calls.fail(call, 1, 7, "told");
    EXPECT_THROW(body(), RuntimeError) << call;
  };
  fails("ctlX.setOfflineData", [&] { edit().setOfflineData(Node()); });
  fails("ctlX.SetOnlineData", [&] { edit().SetOnlineData(itemNode("x", "floatVal", "2")); });
  fails("ctlX.Text =", [&] { edit().Text("3"); });
  fails("ctlX.Tag =", [&] { edit().Tag("t"); });
  fails("ctlX.Move", [&] { edit().Move(0, 0, 0, 0); });
  fails("ctlX.SetFocus", [&] { edit().SetFocus(); });
  fails("ctlX.handleError", [&] { edit().handleError("e"); });
  fails("ctlX.MarkEdited", [&] { edit().MarkEdited(true); });
  fails("ctlX.Correct?", [&] { edit().Correct(); });
  EXPECT_EQ(edit().Text(), "1");
  EXPECT_EQ(edit().Tag(), "ctr_x");
  EXPECT_NE(edit().Width(), 0);
  EXPECT_EQ(view->focused(), nullptr);
  EXPECT_EQ(edit().Error(), "");
  EXPECT_FALSE(edit().Modified());
}

struct OtherProbeTest : testing::Test {
  VirtualDesktop desktop;
  RecordingProbe probe;
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    OptionButton& option = at.make<OptionButton>("opt");
    PictureBox& holder = at.make<PictureBox>("pic");
    at.frame(form, "key", "date_key")
        .row(at.make<CtrComboEdit>("combo"), "ctr_combo")
        .row(at.make<CheckBox>("box"), "box")
        .row(at.make<Slider>("slider"), "")
        .row(at.make<TextBox>("text"), "")
        .row(at.make<Label>("label"), "")
        .group(holder, {{&option, "o"}})
        .fill(at.make<ListView>("list"), "");
  });
  OtherProbeTest() {
    probe.readings = true;
    desktop.setProbe(&probe);
  }
  ~OtherProbeTest() override { desktop.setProbe(nullptr); }
};

TEST_F(OtherProbeTest, HearsOfTheOtherControlsToo) {
  auto& combo = view->get<CtrComboEdit>("combo");
  combo.SetMappings(mappingNode(choice("1", "a")));
  combo.SetAllItemsAllowed(false);
  combo.SetItemAllowed("a", true);
  combo.ApplyItemFilter();
  auto& box = view->get<CheckBox>("box");
  box.Value(true), box.Value();
  auto& slider = view->get<Slider>("slider");
  slider.Value(5), slider.Value(), slider.Min(), slider.Max();
  auto& text = view->get<TextBox>("text");
  text.Text("t"), text.Text();
  auto& label = view->get<Label>("label");
  label.Caption("c"), label.Caption();
  auto& option = view->get<OptionButton>("opt");
  option.Value(true), option.Value();
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("combo.SetMappings \"any\"", "combo.SetAllItemsAllowed false", "combo.SetItemAllowed \"a\" true", "combo.ApplyItemFilter",
                          "box.Value = true", "box.Value?", "slider.Value = 5", "slider.Value?", "slider.Min?", "slider.Max?", "text.Text = \"t\"",
                          "text.Text?", "label.Caption = \"c\"", "label.Caption?", "opt.Value = true", "opt.Value?"));
}

TEST_F(OtherProbeTest, HearsOfEveryCellOfATable) {
  auto& list = view->get<ListView>("list");
  list.AddColumn("k", 10);
  list.AddRow();
  list.Header(1, "h"), list.Header(1);
  list.HeaderTag(1, "t"), list.HeaderTag(1);
  list.ColumnWidth(1, 9), list.ColumnWidth(1);
  list.Cell(1, 1, "x"), list.Cell(1, 1);
  list.CellColor(1, 1, Color::errorText()), list.CellColor(1, 1);
  list.CheckBoxes(true), list.CheckBoxes();
  list.LabelEdit(true), list.LabelEdit();
  list.Checked(1, true), list.Checked(1);
  list.SelectedRow(1), list.SelectedRow(), list.Count();
  list.RemoveRow(1);
  list.Clear();
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("list.AddColumn \"k\" 10", "list.AddRow", "list.Header(1) = \"h\"", "list.Header(1)?", "list.HeaderTag(1) = \"t\"",
                          "list.HeaderTag(1)?", "list.ColumnWidth(1) = 9", "list.ColumnWidth(1)?", "list.Cell(1,1) = \"x\"", "list.Cell(1,1)?",
                          "list.Color(1,1) = 16711680", "list.Color(1,1)?", "list.CheckBoxes = true", "list.CheckBoxes?", "list.LabelEdit = true",
                          "list.LabelEdit?", "list.Checked(1) = true", "list.Checked(1)?", "list.SelectedRow = 1", "list.SelectedRow?", "list.Count?",
                          "list.RemoveRow 1", "list.Clear"));
}

}  // namespace
}  // namespace ostrand
