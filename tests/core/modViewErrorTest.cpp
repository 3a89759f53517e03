// The walk of an error answer, the sync word, and the selection walk.

#include "ViewBench.h"
#include "core/modView.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kError = "modView setErrorData: ";

struct ErrorWalkTest : ViewBench {
  static void edits(TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("text"), "ctr_a")
        .row(at.make<CtrComboEdit>("combo"), "ctr_a")
        .row(at.make<CtrDateEdit>("date"), "ctr_a")
        .row(at.make<CtrTimeEdit>("time"), "ctr_a")
        .row(at.make<CtrOptionEdit>("option"), "ctr_a")
        .row(at.make<CtrCheckEdit>("check"), "ctr_a")
        .row(at.make<CtrTextEdit>("other"), "ctr_b")
        .row(at.make<CtrTextEdit>("unbound"), "a")
        .row(at.make<TextBox>("box"), "ctr_a");
  }
  static Document error(const std::string& key, const std::string& items = itemXml("a", "") + itemXml("testStatus", ""),
                        const std::string& name = "request") {
    return answer("name=\"" + name + "\"" + (key.empty() ? "" : " errorCode=\"" + key + "\""), items);
  }
  // The names of the edits that took the key.
  std::vector<std::string> struck(const std::string& key) {
    probeOn();
    probe.calls.take();
    view->SetErrorData(error(key));
    std::vector<std::string> names;
    for (const std::string& line : probe.calls.take())
      if (const auto at = line.find(".handleError \"" + key + "\""); at != line.npos) names.push_back(line.substr(0, at));
    desktop.setProbe(nullptr);
    return names;
  }
};

TEST_F(ErrorWalkTest, SomeKeysStrikeTheTextEditsOfTheItems) {
  placeWithHost(edits);
  for (const char* key : {"missingItems", "commandIsNotImplemented"}) EXPECT_THAT(struck(key), ElementsAre("text")) << key;
  EXPECT_EQ(get<CtrTextEdit>("text").Error(), "commandIsNotImplemented");
}

TEST_F(ErrorWalkTest, OthersStrikeTextComboDateAndOptionEdits) {
  placeWithHost(edits);
  for (const char* key :
       {"communicationError", "errCommunicationError", "hartCmdErrSuspiciousCalibration", "hartCmdErrRecipeNotCalibratedOrPulpTypeNotAllowed"})
    EXPECT_THAT(struck(key), ElementsAre("text", "combo", "date", "option")) << key;
}

TEST_F(ErrorWalkTest, AnyOtherKeyIsAMessageOnly) {
  placeWithHost(edits);
  for (const char* key : {"hartCmdErrCommandIsNotImplemented", "somethingElse", ""}) {
    take();
    EXPECT_THAT(struck(key), IsEmpty());
    EXPECT_THAT(take(), ElementsAre("ShowMessage \"T:error\" \"T:" + std::string(key) + "\\r\\n\\\"a\\\"\\r\\n\"")) << key;
  }
}

TEST_F(ErrorWalkTest, TheMessageListsTheItemsButTheTestStatus) {
  placeWithHost(edits);
  take();
  view->SetErrorData(error("missingItems", itemXml("b", "") + itemXml("testStatus", "") + itemXml("a", "") + "<comm:item/>"));
  EXPECT_THAT(take(), ElementsAre(R"(SetParameterStatus "b" "syncError")", R"(SetParameterStatus "a" "syncError")",
                                  R"(ShowMessage "T:error" "T:missingItems\r\n\"b\"\r\n\"a\"\r\n")"));
  view->SetErrorData(error("missingItems", ""));
  EXPECT_THAT(take(), ElementsAre(R"(ShowMessage "T:error" "T:missingItems\r\n")")) << "never empty";
}

TEST_F(ErrorWalkTest, SomeKeysAreLoggedOnly) {
  placeWithHost(edits);
  for (const char* key : {"hartCmdErrNoDataAvailable", "errTestDataNoDataError"}) {
    take();
    EXPECT_THAT(struck(key), IsEmpty());
    EXPECT_THAT(take(), ElementsAre(R"(Log 67 "Error: Graph error not reaching its graph request")")) << key;
  }
}

TEST_F(ErrorWalkTest, AnItemWithoutANameInItStrikesNobody) {
  placeWithHost(edits);
  probeOn();
  view->SetErrorData(error("communicationError", itemXml("", "")));
  EXPECT_THAT(probe.calls.take(), IsEmpty());
}

TEST_F(ErrorWalkTest, ATagThatHoldsTheAnswersNameOwnsTheRequest) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<CtrTextEdit>("text"), "ctr_recipe");
    form.nested(at.make<Nested<FakeNestedView>>("first"), "other");
    form.nested(at.make<Nested<FakeNestedUser>>("owner"), "recipe1");
    form.nested(at.make<Nested<FakeNestedView>>("last"), "last");
  });
  for (const char* name : {"first", "last"}) nested<FakeNestedView>(name).calls.take();
  nested<FakeNestedUser>("owner").calls.take();
  take();
  view->SetErrorData(error("communicationError", itemXml("recipe", ""), "recipe"));
  EXPECT_THAT(nested<FakeNestedView>("first").calls.take(), ElementsAre("SetErrorData")) << "a nested view before the owner gets it too";
  EXPECT_THAT(nested<FakeNestedUser>("owner").calls.take(), ElementsAre("SetErrorData")) << "a part of the tag is enough";
  EXPECT_THAT(nested<FakeNestedView>("last").calls.take(), IsEmpty());
  EXPECT_THAT(take(), IsEmpty()) << "no message";
  EXPECT_EQ(get<CtrTextEdit>("text").Error(), "") << "an edit's tag owns nothing";
}

TEST_F(ErrorWalkTest, ANestedViewGetsTheDocumentAndTheMessageIsShownToo) {
  placeWithHost([](TestView& at, Form& form) {
    form.nested(at.make<Nested<FakeNestedView>>("view"), "live");
    form.nested(at.make<Nested<FakeNestedUser>>("user"), "data");
    form.nested(at.make<Nested<FakeNestedBare>>("bare"), "request");
  });
  nested<FakeNestedView>("view").calls.take();
  nested<FakeNestedUser>("user").calls.take();
  view->SetErrorData(error("some", ""));
  EXPECT_THAT(nested<FakeNestedView>("view").calls.take(), ElementsAre("SetErrorData"));
  EXPECT_THAT(nested<FakeNestedUser>("user").calls.take(), IsEmpty());
  EXPECT_THAT(take(), ElementsAre(R"(ShowMessage "T:error" "T:some\r\n")"));
}

TEST_F(ErrorWalkTest, AnEmptyNameIsContainedInEveryTag) {
  placeWithHost([](TestView& at, Form& form) { form.nested(at.make<Nested<FakeNestedUser>>("user"), "data"); });
  nested<FakeNestedUser>("user").calls.take();
  messenger->announce(kError, 91);
  view->SetErrorData(Document::read("<comm:dtm><comm:communicationResponse errorCode=\"some\"/></comm:dtm>"));
  EXPECT_THAT(nested<FakeNestedUser>("user").calls.take(), ElementsAre("SetErrorData"));
  EXPECT_THAT(take(), ElementsAre(R"(ReportError "modView setErrorData: " 91)"));
}

TEST_F(ErrorWalkTest, AFailingOwnerStillEndsTheWalk) {
  placeWithHost([](TestView& at, Form& form) { form.nested(at.make<Nested<FakeNestedUser>>("user"), "request"); });
  nested<FakeNestedUser>("user").calls.fail("SetErrorData");
  messenger->announce(kError, 440);
  view->SetErrorData(error("some"));
  EXPECT_THAT(take(), ElementsAre(R"(ReportError "modView setErrorData: " 440)"));
}

TEST_F(ErrorWalkTest, EachFailureIsReportedAndTheRestIsDone) {
  placeWithHost(edits);
  take();
  probeOn();
  probe.calls.fail("text.handleError", 1, 7, "told");
  messenger->announce(kError, 7);
  calls.fail("GetTextTable");
  messenger->announce(kError, 440);
  messenger->announce(kError, 91);
  messenger->announce(kError, 91);
  view->SetErrorData(error("communicationError"));
  EXPECT_EQ(get<CtrComboEdit>("combo").Error(), "communicationError");
  EXPECT_THAT(take(), testing::Contains(R"(ShowMessage "" "\r\n\"a\"\r\n")"));
  calls.fail("ShowMessage");
  messenger->announce(kError, 440);
  view->SetErrorData(error("some"));
}

TEST_F(ErrorWalkTest, ATagThatTheHostRewritesMeanwhileCounts) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("a"), "ctr_a")
        .row(at.make<CtrTextEdit>("b"), "ctr_b")
        .row(at.make<CtrTextEdit>("c"), "ctr_c");
  });
  calls.during("SetParameterStatus", [&] {
    get<CtrTextEdit>("b").Tag("ctr_a");  // behind the one that is struck, and for the same item
    get<CtrTextEdit>("c").Tag("ctr_d");  // for one of the next items
  });
  probeOn();
  view->SetErrorData(error("missingItems", itemXml("a", "") + itemXml("b", "") + itemXml("c", "") + itemXml("d", "")));
  EXPECT_THAT(probe.calls.take(), ElementsAre("a.handleError \"missingItems\"", "b.Tag = \"ctr_a\"", "c.Tag = \"ctr_d\"",
                                              "b.handleError \"missingItems\"", "c.handleError \"missingItems\""));
}

TEST_F(ErrorWalkTest, EachItemOfANameStrikesItsControls) {
  placeWithHost(edits);
  probeOn();
  view->SetErrorData(error("missingItems", itemXml("a", "") + itemXml("nobody", "") + itemXml("b", "") + itemXml("a", "")));
  EXPECT_THAT(probe.calls.take(),
              ElementsAre("text.handleError \"missingItems\"", "other.handleError \"missingItems\"", "text.handleError \"missingItems\""));
}

TEST_F(ErrorWalkTest, AClassThatCannotBeToldCostsOneControl) {
  messenger->announce("modView setMessenger: ", 438);
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<Untellable>("what"), "ctr_a").row(at.make<CtrTextEdit>("text"), "ctr_a");
  });
  messenger->announce(kError, 438);
  view->SetErrorData(error("missingItems", itemXml("a", "") + itemXml("b", "")));
  EXPECT_EQ(get<CtrTextEdit>("text").Error(), "missingItems");
}

TEST(ForwardSyncChangesTest, ReportsAFailureOfTheHost) {
  FakeCalls calls;
  const Ref<FakeMessenger> messenger(new FakeMessenger(calls));
  std::string word = "notRead";
  modView::forwardSyncChanges("eventLog", true, word, messenger);
  EXPECT_EQ(word, "sync");
  calls.fail("SetParameterStatus");
  messenger->announce("modView forwardSyncChanges", 440);
  modView::forwardSyncChanges("eventLog", false, word, messenger);
  EXPECT_EQ(word, "syncError");
  modView::forwardSyncChanges("eventLog", true, word, nullptr);
  EXPECT_EQ(word, "reSync");
}

}  // namespace
}  // namespace ostrand
