#include "platform/base/RuntimeError.h"
#include "platform/controls/CtrTextEdit.h"
#include "support/ControlBench.h"

namespace ostrand {
namespace {

using namespace test;

struct ValueRelationTest : testing::Test {
  FakeCalls calls;
  VirtualDesktop desktop;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};
  Ref<TestView> view = TestView::place(desktop, [](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("lower"), "ctr_lower")
        .row(at.make<CtrTextEdit>("upper"), "ctr_upper")
        .row(at.make<CtrTextEdit>("other"), "ctr_other");
  });
  CtrTextEdit& lower = view->get<CtrTextEdit>("lower");
  CtrTextEdit& upper = view->get<CtrTextEdit>("upper");
  CtrTextEdit& other = view->get<CtrTextEdit>("other");

  ValueRelationTest() {
    load(lower, "2");
    load(upper, "4");
    load(other, "10");
  }
  static void load(CtrTextEdit& edit, const std::string& value) {
    edit.setOfflineData(parameterNode("name=\"any\" type=\"floatVal\" unit=\"Nm\" value=\"" + value + "\""));
  }
};

TEST_F(ValueRelationTest, TheUpperStaysAboveTheLowerByTheMargin) {
  upper.AddValueRelation(lower, "max", 0);
  EXPECT_TRUE(upper.Correct());
  upper.type("2");
  EXPECT_TRUE(upper.Correct()) << "just the margin";
  upper.type("1.9");
  EXPECT_FALSE(upper.Correct());
  EXPECT_TRUE(lower.Correct()) << "the lower one is not blamed";
  upper.AddValueRelation(lower, "max", 1);
  upper.type("2.9");
  EXPECT_FALSE(upper.Correct()) << "told again, the margin is replaced";
  upper.type("3");
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, AMarginIsHeldAtOnce) {
  upper.AddValueRelation(lower, "max", 3);
  EXPECT_FALSE(upper.Correct());
  upper.AddValueRelation(lower, "max", 2);
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, EveryChangeOfTheLowerIsFelt) {
  upper.AddValueRelation(lower, "max", 0);
  lower.type("5");
  EXPECT_FALSE(upper.Correct());
  lower.restore();
  EXPECT_TRUE(upper.Correct());
  lower.SetOnlineData(itemNode("any", "floatVal", "6"));
  EXPECT_FALSE(upper.Correct());
  load(lower, "1");
  EXPECT_TRUE(upper.Correct());
  lower.Text("9");
  EXPECT_FALSE(upper.Correct());
  lower.Text("");
  EXPECT_TRUE(upper.Correct()) << "what is no number bounds nothing";
}

TEST_F(ValueRelationTest, UnitsOnTheScreenDoNotMatter) {
  upper.SetMessenger(messenger);
  messenger->converter->userUnits["upper"] = "ftlbf";
  messenger->raiseUnits();
  EXPECT_EQ(upper.displayUnit(), "ftlbf");
  upper.AddValueRelation(lower, "max", 1);
  upper.type("2.3");  // 3.12 Nm
  EXPECT_TRUE(upper.Correct());
  upper.type("2.2");  // 2.98 Nm
  EXPECT_FALSE(upper.Correct());
}

TEST_F(ValueRelationTest, CanBeClearedAtEitherEnd) {
  upper.AddValueRelation(lower, "max", 5);
  EXPECT_FALSE(upper.Correct());
  lower.ClearValueRelations();
  EXPECT_TRUE(upper.Correct());
  upper.AddValueRelation(lower, "max", 5);
  upper.AddValueRelation(other, "max", 0);
  upper.ClearValueRelations();
  EXPECT_TRUE(upper.Correct());
  lower.type("100");
  EXPECT_TRUE(upper.Correct());
  upper.ClearValueRelations();
}

TEST_F(ValueRelationTest, AnUnknownRelationIsAnError) {
  EXPECT_THROW(upper.AddValueRelation(lower, "min", 0), RuntimeError);
  EXPECT_TRUE(upper.Correct());
}

TEST_F(ValueRelationTest, EitherEndMayEndFirst) {
  VirtualDesktop own;
  auto made = TestView::place(own, [](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<CtrTextEdit>("a"), "ctr_a").row(at.make<CtrTextEdit>("b"), "ctr_b");
  });
  made->get<CtrTextEdit>("a").AddValueRelation(lower, "max", 0);
  upper.AddValueRelation(made->get<CtrTextEdit>("b"), "max", 0);
  load(made->get<CtrTextEdit>("b"), "9");
  EXPECT_FALSE(upper.Correct());
  made = nullptr;
  lower.type("3");
  upper.type("5");
  EXPECT_TRUE(upper.Correct());
}

}  // namespace
}  // namespace ostrand
