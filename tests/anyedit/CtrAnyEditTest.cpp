#include "anyedit/CtrAnyEdit.h"

#include "AnyEditBench.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct CtrAnyEditTest : AnyEditBench {};

TEST_F(CtrAnyEditTest, OffersWhatTheWalksAskFor) {
  EXPECT_TRUE(control().dataUser());
  EXPECT_TRUE(control().component());
  EXPECT_TRUE(control().localizable());
  EXPECT_TRUE(control().dataEditor());
  EXPECT_FALSE(control().view());
  EXPECT_EQ(control().kind(), ControlKind::Nested);
}

TEST_F(CtrAnyEditTest, IsTwoHiddenMarksOfItsOwnHeight) {
  std::vector<std::string> marks;
  for (Control* const control : any().controls()) {
    const auto& label = dynamic_cast<const Label&>(*control);
    marks.push_back(label.name() + " " + label.Caption() + " '" + label.Tag() + (label.Visible() ? "' shown" : "' hidden"));
  }
  EXPECT_THAT(marks, ElementsAre("lblError ! '' hidden", "lblModified * '' hidden"));
  const Control& mark = *any().controls().front();
  const int left = mark.Left(), top = mark.Top(), width = mark.Width();
  any().Resize(900, 555);
  EXPECT_EQ(mark.Height(), 555);
  EXPECT_EQ(mark.Left(), left);
  EXPECT_EQ(mark.Top(), top);
  EXPECT_EQ(mark.Width(), width);
}

TEST_F(CtrAnyEditTest, TheTagIsThatOfItsControlInWhateverMoment) {
  any().AddAny("ctr_a");
  const Document data = dataSet(torque("a", "1"));
  any().SetOfflineData(data);
  control().Tag("sample2");
  any().SetOnlineData(read("a", "2"));
  EXPECT_TRUE(parameterAnywhere(data, "sample2a"));
  EXPECT_FALSE(parameterAnywhere(data, "sample1a"));
}

TEST_F(CtrAnyEditTest, TheHostHearsOfTheComponentAroundIt) {
  any().AddAny("a");
  any().SetOfflineData(dataSet(torque("a", "1")));
  take();
  any().VerifyEdit("a", "2");
  EXPECT_THAT(take(), ElementsAre("SetStatusLine \"Checking  2 of  a\" \"a\"", "SetParameterStatus \"recipe1\" \"edited\""));
}

TEST_F(CtrAnyEditTest, TheWalksOfAViewReachIt) {
  any().AddAny("a");
  view->SetMessenger(messenger);
  view->Localize(messenger->textTable);
  view->SetOfflineData(dataSet(torque("a", "1")));
  view->SetOnlineData(read("a", "2"));
  view->SetImportData(dataSet(parameterXml("sample1a", "3")));
  EXPECT_THAT(take(), ElementsAre("SetParameterStatus \"recipe1\" \"edited\"", "SetParameterStatus \"recipe1\" \"original\"", "Change a 1.000",
                                  "SetParameterStatus \"recipe1\" \"edited\"", "SetParameterStatus \"recipe1\" \"original\"",
                                  "SetParameterStatus \"recipe1\" \"sync\"", "Change a 2.000", "SetParameterStatus \"recipe1\" \"edited\"",
                                  "Change a 3.000"));
  messenger->raiseGetChanges(1);
  EXPECT_THAT(take(), ElementsAre("AddChange \"sample1\" \"L:sample1\" \"2.000\" \"3.000\" \"\" \"stringVal\" \"\""));
  // Its tag holds the name of the answer: it owns the request, and does nothing.
  view->SetErrorData(answer("name=\"sample1\" errorCode=\"communicationError\""));
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(CtrAnyEditTest, WithoutAUnitServiceTheUnitOfTheDataStands) {
  any().AddAny("a");
  units("a", "kNm");
  any().SetOfflineData(dataSet(torque("a", "2")));
  EXPECT_EQ(any().Text("a"), "0.002");
  messenger->converter = nullptr;
  take();
  messenger->raiseUnits();
  EXPECT_THAT(take(), ElementsAre("SetStatusLine \"Failed\" \"a\"", "Change a 0.002"));
  any().SetImportData(dataSet(parameterXml("sample1a", "3")));
  EXPECT_EQ(any().Text("a"), "3.000");
  any().SetOfflineData(dataSet(torque("a", "4")));
  EXPECT_EQ(any().Text("a"), "4.000");
  EXPECT_EQ(any().ToolTipText("a"), "0..10 Nm");
}

TEST_F(CtrAnyEditTest, ByItselfItHasNobodyAroundIt) {
  const Ref<CtrAnyEdit> alone(new CtrAnyEdit);
  alone->Place(desktop, nullptr, "sample1");
  alone->SetMessenger(messenger);
  alone->AddAny("a");
  alone->SetOfflineData(dataSet(torque("a", "1", "synchronised=\"0\"")));
  EXPECT_THAT(take(), ElementsAre("SetParameterStatus \"\" \"edited\""));
  alone->Terminate();
}

TEST_F(CtrAnyEditTest, WorksBeforeThereIsAHost) {
  const Ref<CtrAnyEdit> alone(new CtrAnyEdit);
  alone->Place(desktop, nullptr, "sample1");
  alone->AddAny("a");
  alone->SetOfflineData(dataSet(torque("a", "1.5")));
  alone->VerifyEdit("a", "11");
  EXPECT_EQ(alone->Text("a"), "11");
  EXPECT_FALSE(alone->Correct("a"));
  EXPECT_FALSE(alone->Modified("")) << "the marks follow a host";
  EXPECT_TRUE(alone->Correct(""));
  EXPECT_EQ(alone->Text("unknown"), "") << "and the error is dropped";
}

TEST_F(CtrAnyEditTest, AListenerMayUseEveryMember) {
  for (const char* tag : {"a", "b"}) any().AddAny(tag);
  std::vector<std::string> seen;
  any().Change.connect([&](const std::string& name, const std::string& text) {
    seen.push_back(name + "=" + text + " b=" + any().Text("b"));
    if (name != "a") return;
    any().VerifyEdit("b", "3");
    any().Text("a", "7");
    for (int i = 0; i < 100; ++i) any().AddAny("more" + std::to_string(i));
  });
  any().SetOfflineData(dataSet(torque("a", "1") + torque("b", "2")));
  EXPECT_THAT(seen, ElementsAre("a=1.000 b=", "b=2.000 b=2.000")) << "items that join meanwhile are not visited";
  EXPECT_EQ(any().Text("a"), "7.000");
}

TEST_F(CtrAnyEditTest, AListenerMayEndItInEveryPath) {
  const std::vector<std::function<void()>> paths = {
      [&] { any().SetOfflineData(dataSet(torque("a", "1") + torque("b", "2"))); },
      [&] { any().SetOnlineData(answer("name=\"x\"", itemXml("a", "1", "floatVal") + itemXml("b", "2", "floatVal"))); },
      [&] { any().SetImportData(dataSet(torque("sample1a", "1") + torque("sample1b", "2"))); },
      [&] { units("a", "kNm"); },
  };
  for (const auto& path : paths) {
    for (const char* tag : {"a", "b"}) any().AddAny(tag);
    any().SetOfflineData(dataSet(torque("a", "1") + torque("b", "2")));
    any().Change.connect([&](const std::string&, const std::string&) {
      view->Terminate();
      view = nullptr;
    });
    take();
    path();
    EXPECT_EQ(std::count_if(calls.lines.begin(), calls.lines.end(), [](const std::string& line) { return line.starts_with("Change"); }), 1);
    EXPECT_EQ(view, nullptr);
    EXPECT_EQ(messenger->listeners(), 0u);
    place();
  }
}

TEST_F(CtrAnyEditTest, EveryCallMayEndIt) {
  // All paths, with a call of every name. Ends the view inside the n-th call; false if there are not so many.
  const auto playUntil = [&](int n) {
    for (const char* tag : {"b", "a", "whole"}) any().AddAny(tag);
    messenger->converter->userUnits = {{"a", "kNm"}};
    const Ref<TestView> pin = view;
    CtrAnyEdit& subject = any();
    int left = n;
    calls.onArrival = [&](const std::string&) {
      if (--left != 0) return;
      view->Terminate();
      view = nullptr;
    };
    subject.Localize(messenger->textTable);
    // Without limits: the user is told of each.
    subject.SetOfflineData(dataSet(torque("b", "2") + parameterXml("a", "1", "type=\"floatVal\" unit=\"Nm\" synchronised=\"0\"") +
                                   parameterXml("whole", "1", "type=\"intVal\"")));
    subject.SetOnlineData(
        answer("name=\"x\"", "<comm:item name=\"a\" unit=\"ftlbf\"><comm:floatVal>2</comm:floatVal></comm:item>" + itemXml("whole", "2", "intVal")));
    subject.SetImportData(dataSet(parameterXml("sample1a", "3") + parameterXml("sample1b", "4")));
    subject.VerifyEdit("a", "x");
    subject.VerifyEdit("a", "5");
    subject.VerifyEdit("whole", "5.5");
    units("a", "ftlbf");
    int mode = 1;
    subject.ViewGetChanges(mode);
    subject.GetXmlItem(true);
    calls.onArrival = nullptr;
    return view == nullptr;
  };
  int calledIn = 0;
  while (playUntil(calledIn + 1)) {
    ++calledIn;
    EXPECT_EQ(messenger->listeners(), 0u) << "inside call " << calledIn;
    place();
  }
  EXPECT_GT(calledIn, 50);
}

TEST_F(CtrAnyEditTest, WhatIsTypedUnderACheckHasItsOwnVerdict) {
  any().AddAny("a");
  units("a", "kNm");
  any().SetOfflineData(dataSet(torque("a", "1")));
  calls.during("ConvertValue", [&] { any().VerifyEdit("a", "99"); });
  any().VerifyEdit("a", "0.002");
  EXPECT_EQ(any().Text("a"), "99");
  EXPECT_FALSE(any().Correct("a"));
  EXPECT_EQ(any().editWord(), EditWord::kEditedError);
}

TEST_F(CtrAnyEditTest, AMessengerThatIsLeftIsHeardNoMore) {
  any().AddAny("a");
  any().SetMessenger(nullptr);
  EXPECT_EQ(messenger->listeners(), 0u);
  any().SetMessenger(messenger);
  any().SetMessenger(messenger);
  EXPECT_EQ(messenger->listeners(), 1u);
}

TEST_F(CtrAnyEditTest, AnItemsDocumentOutlivesTheControl) {
  any().AddAny("a");
  any().SetOfflineData(dataSet(torque("a", "1")));
  const Node items = any().GetXmlItem(false);
  view->Terminate();
  view = nullptr;
  EXPECT_EQ(items.xml(), "<items><item name=\"a\" unit=\"Nm\"><floatVal>1.000</floatVal></item></items>");
}

TEST_F(CtrAnyEditTest, ItsMembersAreFoundByName) {
  EXPECT_FALSE(any().member("Nothing", {}));
  any().member("AddAny", {std::string("ctr_a")})();
  any().member("VerifyEdit", {std::string("a"), std::string("5")})();
  EXPECT_EQ(any().member("Text", {std::string("a")})(), MemberAnswer(Value(std::string("5"))));
  EXPECT_THROW(any().member("Text", {}), RuntimeError);
}

TEST_F(CtrAnyEditTest, ItsEventIsHeardByName) {
  std::vector<std::string> heard;
  any().listenToEvents([&](std::string_view event, const MemberArguments& arguments) {
    heard.push_back(std::string(event) + " " + toText(arguments.at(0)) + " " + toText(arguments.at(1)));
  });
  any().AddAny("a");
  any().SetOfflineData(dataSet(torque("a", "1")));
  EXPECT_THAT(heard, ElementsAre("Change \"a\" \"1.000\""));
}

}  // namespace
}  // namespace ostrand
