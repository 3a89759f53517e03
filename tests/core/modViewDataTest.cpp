// The walks that route the values of a document: import, offline and online.

#include "ViewBench.h"
#include "core/modView.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kImport = "modView setImportData: ";
constexpr const char* kOffline = " modView setOfflineData";
constexpr const char* kOnline = "modView setOnlineData: ";

struct DataWalkTest : ViewBench {
  // Every kind that takes data, and some that do not.
  static void everything(TestView& at, Form& form) {
    at.frame(form, "key", "date_group1")
        .row(at.make<Label>("label"), "ctr_text", at.make<CtrTextEdit>("text"), "ctr_text")
        .row(at.make<CtrComboEdit>("combo"), "ctr_combo")
        .row(at.make<CtrDateEdit>("date"), "ctr_date")
        .row(at.make<CtrTimeEdit>("time"), "ctr_time")
        .row(at.make<CtrOptionEdit>("option"), "ctr_option")
        .row(at.make<CtrCheckEdit>("check"), "ctr_check")
        .row(at.make<TextBox>("box"), "ctr_box")
        .row(at.make<CtrTextEdit>("unbound"), "text");
    form.nested(at.make<Nested<FakeNestedView>>("nested"), "nested");
    form.nested(at.make<Nested<FakeNestedBare>>("bare"), "bare");
  }
  static Document data() {
    std::string parameters;
    for (const auto& [name, value] :
         {std::pair{"text", "t"}, {"combo", "1"}, {"date", "2025-11-04"}, {"time", "10:00:00"}, {"option", "1"}, {"check", "1"}, {"box", "b"}})
      parameters += parameterXml(name, value);
    std::string included;
    for (const char* name : {"text", "combo", "date", "time", "option", "check"})
      included += std::string("<data:includedParam name=\"") + name + "\"/>";
    return dataSet(parameters, "<data:mappedParam name=\"combo\">" + choice("1", "one") + "</data:mappedParam>",
                   "<data:requestGroup name=\"group1\" lastUpdate=\"31/12/2020 23:59:59\">" + included + "</data:requestGroup>");
  }
  std::vector<std::string> heard() { return probe.calls.take(); }
};

// --- import

TEST_F(DataWalkTest, ImportHandsEachEditItsParameter) {
  placeWithHost(everything);
  probeOn();
  view->SetImportData(data());
  EXPECT_THAT(heard(), ElementsAre("ctrDateLabels(0).Caption = \"31/12/2020 23:59:59\"", "text.setImportData \"text\"",
                                   "combo.setImportData \"combo\"", "date.setImportData \"date\"", "time.setImportData \"time\"",
                                   "option.setImportData \"option\"", "check.setImportData \"check\"", "nested.SetImportData document"));
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "t");
  EXPECT_EQ(get<CtrTextEdit>("text").ContextTag(), "") << "neither the group nor the mapping is told";
  EXPECT_EQ(get<CtrComboEdit>("combo").Text(), "1");
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), testing::Contains("SetImportData"));
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(DataWalkTest, ImportReportsNestedFailuresAndGoesOn) {
  placeWithHost(everything);
  nested<FakeNestedView>("nested").calls.fail("SetImportData");
  messenger->announce(kImport, 440);
  probeOn();
  probe.calls.fail("combo.setImportData", 1, 7, "told");
  messenger->announce(kImport, 7);
  view->SetImportData(data());
  EXPECT_EQ(get<CtrDateEdit>("date").Text(), "11/4/2025");
}

// --- offline

TEST_F(DataWalkTest, OfflineTellsMappingGroupAndParameterInThisOrder) {
  placeWithHost(everything);
  probeOn();
  view->SetOfflineData(data());
  EXPECT_THAT(heard(), ElementsAre("ctrDateLabels(0).Caption = \"12/31/2020 11:59:59 PM\"", "text.ContextTag = \"group1\"",
                                   "text.setOfflineData \"text\"", "combo.SetMappings \"combo\"", "combo.ContextTag = \"group1\"",
                                   "combo.setOfflineData \"combo\"", "date.ContextTag = \"group1\"", "date.setOfflineData \"date\"",
                                   "time.ContextTag = \"group1\"", "time.setOfflineData \"time\"", "option.SetMappings nothing",
                                   "option.ContextTag = \"group1\"", "option.setOfflineData \"option\"", "check.SetMappings nothing",
                                   "check.ContextTag = \"group1\"", "check.setOfflineData \"check\"", "nested.SetOfflineData document"));
  EXPECT_EQ(get<CtrComboEdit>("combo").Text(), "one");
}

TEST_F(DataWalkTest, OnlyATextEditKeepsTheGroupThatItHas) {
  placeWithHost(everything);
  for (const char* name : {"text", "combo", "date", "time", "option", "check"}) get<Control>(name).ContextTag("mine");
  view->SetOfflineData(data());
  EXPECT_EQ(get<Control>("text").ContextTag(), "mine");
  for (const char* name : {"combo", "date", "time", "option", "check"}) EXPECT_EQ(get<Control>(name).ContextTag(), "group1") << name;
}

TEST_F(DataWalkTest, AMissedParameterCallsTheEditWithNothing) {
  placeWithHost(everything);
  view->SetOfflineData(data());
  probeOn();
  view->SetOfflineData(dataSet(""));
  EXPECT_THAT(heard(), testing::IsSupersetOf({"text.setOfflineData nothing", "date.setOfflineData nothing", "combo.setOfflineData nothing"}));
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "");
  EXPECT_EQ(get<Control>("date").ContextTag(), "");
  EXPECT_EQ(view->ctrDateLabels(0).Caption(), "12/31/2020 11:59:59 PM") << "without its group a date label keeps its stamp";
}

TEST_F(DataWalkTest, AStampThatIsNoDateIsTracedAndShownEmpty) {
  placeWithHost(everything);
  std::string trace;
  desktop.onDebugOutput = [&](const std::string& text) { trace = text; };
  view->ctrDateLabels(0).Caption("before");
  view->SetOfflineData(dataSet("", "", "<data:requestGroup name=\"group1\" lastUpdate=\"never\"/>"));
  EXPECT_EQ(view->ctrDateLabels(0).Caption(), "");
  EXPECT_THAT(trace, StartsWith("DTM GUI modTools LocalizeDatafileDate error 13: "));
  view->ctrDateLabels(0).Caption("before");
  view->SetOfflineData(dataSet("", "", "<data:requestGroup name=\"group1\"/>"));
  EXPECT_EQ(view->ctrDateLabels(0).Caption(), "before") << "without a stamp";
}

TEST_F(DataWalkTest, OfflinePassesOverNestedFailuresInSilence) {
  placeWithHost(everything);
  nested<FakeNestedView>("nested").calls.fail("SetOfflineData");
  view->SetOfflineData(data());
}

TEST_F(DataWalkTest, OfflineReportsEachFailureAndGoesOn) {
  placeWithHost(everything);
  probeOn();
  probe.calls.fail("combo.SetMappings", 1, 7, "told");
  probe.calls.fail("combo.ContextTag =", 1, 8, "told");
  messenger->announce(kOffline, 7);
  messenger->announce(kOffline, 8);
  view->SetOfflineData(data());
  EXPECT_EQ(get<CtrComboEdit>("combo").Text(), "1") << "the value is there all the same";
  EXPECT_EQ(get<CtrCheckEdit>("check").Text(), "1");
}

TEST_F(DataWalkTest, AnEmptyDocumentIsReportedForEachControl) {
  placeWithHost([](TestView& at, Form& form) { at.frame(form, "key", "date_group1").row(at.make<CtrTextEdit>("text"), "ctr_text"); });
  messenger->announce(kImport, 91);
  messenger->announce(kImport, 91);
  view->SetImportData(Document());
  for (int i = 0; i < 3; ++i) messenger->announce(kOffline, 91);
  view->SetOfflineData(Document());
  for (int i = 0; i < 3; ++i) messenger->announce(kOnline, 91);
  messenger->announce(kOnline, 91);
  view->SetOnlineData(Document());
}

TEST_F(DataWalkTest, AQuoteInATagBreaksThePath) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_group1").row(at.make<CtrTextEdit>("text"), "ctr_a\"b").row(at.make<CtrTextEdit>("b"), "ctr_text");
  });
  messenger->announce(kImport, 5);
  view->SetImportData(data());
  EXPECT_EQ(get<CtrTextEdit>("b").Text(), "t");
}

// --- mappings

struct MappingSearchTest : ViewBench {
  std::vector<std::string> search(std::initializer_list<const char*> tags, std::initializer_list<const char*> mappings) {
    const std::vector<std::string> list(tags.begin(), tags.end());
    placeWithHost([&](TestView& at, Form& form) {
      FrameForm frame = at.frame(form, "key", "date_key");
      for (std::size_t i = 0; i < list.size(); ++i) frame.row(at.make<CtrComboEdit>("c" + std::to_string(i)), list[i]);
    });
    probeOn();
    std::string xml;
    for (const char* name : mappings) xml += "<data:mappedParam name=\"" + std::string(name) + "\"/>";
    view->SetOfflineData(dataSet("", xml));
    std::vector<std::string> lines = take();
    for (const std::string& line : probe.calls.take())
      if (line.find("SetMappings") != line.npos) lines.push_back(line);
    return lines;
  }
};

TEST_F(MappingSearchTest, TheWholeNameComesFirstAndInSilence) {
  EXPECT_THAT(search({"ctr_failSafeType"}, {"type", "failSafeType"}), ElementsAre("c0.SetMappings \"failSafeType\""));
}

TEST_F(MappingSearchTest, ThenTheTailsFromTheEndOn) {
  EXPECT_THAT(
      search({"ctr_channel1FailSafeAlarmCurrent"}, {"failSafeAlarmCurrent", "alarmCurrent"}),
      ElementsAre(R"(Log 77 "Parsing ctr_channel1FailSafeAlarmCurrent")", R"(Log 77 "alarmCurrent working")", "c0.SetMappings \"alarmCurrent\""));
}

TEST_F(MappingSearchTest, ADigitBeginsATailToo) {
  EXPECT_THAT(search({"ctr_channel1FailSafe"}, {"1FailSafe"}),
              ElementsAre(R"(Log 77 "Parsing ctr_channel1FailSafe")", R"(Log 77 "1FailSafe working")", "c0.SetMappings \"1FailSafe\""));
}

TEST_F(MappingSearchTest, TheWholeNameIsTriedInLowerCaseAtLast) {
  EXPECT_THAT(search({"ctr_FailSafe"}, {"failSafe"}),
              ElementsAre(R"(Log 77 "Parsing ctr_FailSafe")", R"(Log 77 "failSafe working")", "c0.SetMappings \"failSafe\""));
}

TEST_F(MappingSearchTest, WithoutAnyNothingIsHandedOn) {
  EXPECT_THAT(search({"ctr_failSafeType"}, {"other", "e"}), ElementsAre(R"(Log 77 "Parsing ctr_failSafeType")", "c0.SetMappings nothing"))
      << "a tail of one character is none";
}

TEST_F(MappingSearchTest, ATailBehindAnUnderscoreIsCutOff) {
  EXPECT_THAT(search({"ctr_failSafeType_2"}, {"safeType"}),
              ElementsAre(R"(Log 77 "Parsing ctr_failSafeType_2")", R"(Log 77 "safeType working")", "c0.SetMappings \"safeType\""));
}

TEST_F(MappingSearchTest, TheCutStaysForTheControlsThatFollow) {
  EXPECT_THAT(search({"ctr_a_2", "ctr_failSafeType", "ctr_failSafeTypeXY"}, {"safeType"}),
              ElementsAre(R"(Log 77 "Parsing ctr_a_2")", R"(Log 77 "Parsing ctr_failSafeType")", R"(Log 77 "Parsing ctr_failSafeTypeXY")",
                          R"(Log 77 "safeType working")", "c0.SetMappings nothing", "c1.SetMappings nothing", "c2.SetMappings \"safeType\""));
}

TEST_F(MappingSearchTest, TheCutBeginsAnewWithEachWalk) {
  search({"ctr_failSafeType", "ctr_a_2"}, {"safeType"});
  view->SetOfflineData(dataSet("", "<data:mappedParam name=\"safeType\"/>"));
  EXPECT_THAT(probe.calls.take(), testing::Contains("c0.SetMappings \"safeType\""));
}

TEST_F(MappingSearchTest, AFailingLogIsReportedAndTheSearchGoesOn) {
  calls.fail("Log");
  calls.fail("Log", 2);
  messenger->announce(kOffline, 440);
  messenger->announce(kOffline, 440);
  EXPECT_THAT(search({"ctr_failSafeType"}, {"type"}), testing::Contains("c0.SetMappings \"type\""));
}

// --- online

TEST_F(DataWalkTest, OnlineHandsEachEditItsItem) {
  placeWithHost(everything);
  view->SetOfflineData(data());
  probeOn();
  view->SetOnlineData(
      answer("name=\"group1\" access=\"read\" responseStatus=\"ok\"", itemXml("text", "new") + itemXml("box", "shown") + itemXml("check", "0")));
  EXPECT_THAT(heard(), ElementsAre("ctrDateLabels(0).Caption = \"1/5/2026 8:00:00 AM\"", "text.SetOnlineData \"text\"", "combo.SetOnlineData nothing",
                                   "date.SetOnlineData nothing", "time.SetOnlineData nothing", "option.SetOnlineData nothing",
                                   "check.SetOnlineData \"check\"", "box.Text = \"shown\"", "nested.SetOnlineData document"));
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "new");
  EXPECT_THAT(nested<FakeNestedView>("nested").calls.take(), testing::Contains("SetOnlineData"));
}

TEST_F(DataWalkTest, ALocalAnswerIsLocalForTextEditsOnly) {
  placeWithHost(everything);
  probeOn();
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"local\"", itemXml("text", "t") + itemXml("combo", "1")));
  EXPECT_THAT(heard(), testing::IsSupersetOf({"text.setLocalData \"text\"", "combo.SetOnlineData \"combo\"", "date.SetOnlineData nothing"}));
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"Local\"", itemXml("text", "t")));
  EXPECT_THAT(heard(), testing::Contains("text.SetOnlineData \"text\""));
}

TEST_F(DataWalkTest, AMissingResponseStatusIsReportedForEachTextEdit) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key")
        .row(at.make<CtrTextEdit>("a"), "ctr_a")
        .row(at.make<CtrTextEdit>("b"), "ctr_b")
        .row(at.make<CtrComboEdit>("c"), "ctr_c");
  });
  messenger->announce(kOnline, 91);
  messenger->announce(kOnline, 91);
  view->SetOnlineData(answer("name=\"x\"", itemXml("a", "1") + itemXml("b", "2") + itemXml("c", "3")));
  EXPECT_EQ(get<CtrTextEdit>("a").Text(), "1");
  EXPECT_EQ(get<CtrTextEdit>("b").Text(), "2");
  EXPECT_EQ(get<CtrComboEdit>("c").Text(), "3");
}

TEST_F(DataWalkTest, ATextBoxShowsTextsOnly) {
  placeWithHost(everything);
  const char* kAttributes = "name=\"x\" responseStatus=\"ok\"";
  view->SetOnlineData(answer(kAttributes, itemXml("box", "text")));
  view->SetOnlineData(answer(kAttributes, itemXml("box", "1", "floatVal")));
  view->SetOnlineData(answer(kAttributes));
  EXPECT_EQ(get<TextBox>("box").Text(), "text");
  view->SetOnlineData(answer(kAttributes, itemXml("box", "")));
  EXPECT_EQ(get<TextBox>("box").Text(), "");
}

TEST_F(DataWalkTest, ADateLabelFollowsAnswersOfItsOwnGroupOnly) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "k1", "date_group1");
    at.frame(form, "k2", "date_group2");
    at.frame(form, "k3", "xxxx_group1");
  });
  desktop.setLocale("sv");
  view->SetOnlineData(answer("name=\"group1\" responseStatus=\"ok\""));
  EXPECT_EQ(view->ctrDateLabels(0).Caption(), "2026-01-05 08:00:00");
  EXPECT_EQ(view->ctrDateLabels(1).Caption(), "");
  EXPECT_EQ(view->ctrDateLabels(2).Caption(), "");
  view->SetOnlineData(answer("name=\"group\" responseStatus=\"ok\""));
  view->SetOnlineData(answer("name=\"group22\" responseStatus=\"ok\""));
  EXPECT_EQ(view->ctrDateLabels(1).Caption(), "");
}

TEST_F(DataWalkTest, OnlineReportsNestedFailures) {
  placeWithHost(everything);
  nested<FakeNestedView>("nested").calls.fail("SetOnlineData");
  messenger->announce(kOnline, 440);
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"ok\""));
}

TEST_F(DataWalkTest, AnAnswerWithoutAResponseIsReportedAndWalkedAllTheSame) {
  placeWithHost([](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<CtrComboEdit>("c"), "ctr_c"); });
  probeOn();
  messenger->announce(kOnline, 91);
  view->SetOnlineData(Document::read("<comm:dtm/>"));
  EXPECT_THAT(heard(), ElementsAre("c.SetOnlineData nothing"));
}

// Of a kind by its class name alone.
struct NamedDateLabel : Label {
  using Label::Label;
  std::string_view className() const override { return "CtrDateLabel"; }
};
struct NamedPicture : PictureBox {
  using PictureBox::PictureBox;
  std::string_view className() const override { return "CtrDateLabel"; }
};

TEST_F(DataWalkTest, TheClassNameAloneMakesADateLabel) {
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_key").row(at.make<NamedPicture>("picture"), "date_group1").row(at.make<NamedDateLabel>("label"), "date_group1");
  });
  messenger->announce(kImport, 438);
  view->SetImportData(data());
  EXPECT_EQ(get<Label>("label").Caption(), "31/12/2020 23:59:59");
}

TEST_F(DataWalkTest, AClassThatCannotBeToldCostsOneControlInEachWalk) {
  messenger->announce("modView setMessenger: ", 438);
  placeWithHost([](TestView& at, Form& form) {
    at.frame(form, "key", "date_group1").row(at.make<Untellable>("what"), "ctr_text").row(at.make<CtrTextEdit>("text"), "ctr_text");
  });
  messenger->announce(kImport, 438);
  view->SetImportData(data());
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "t");
  messenger->announce(kOffline, 438);
  view->SetOfflineData(dataSet(parameterXml("text", "u")));
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "u");
  messenger->announce(kOnline, 438);
  view->SetOnlineData(answer("name=\"x\" responseStatus=\"ok\"", itemXml("text", "v")));
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "v");
}

// The names are too long to be kept inside a string: what is borrowed would be freed.
constexpr const char* kLong = "aParameterWithANameOfManyCharacters";
const std::string kOther(100, 'x');

TEST_F(DataWalkTest, ATagThatTheHostRewritesMeanwhileIsTakenWithTheNextWalk) {
  placeWithHost(
      [](TestView& at, Form& form) { at.frame(form, "key", "date_key").row(at.make<CtrComboEdit>("combo"), (std::string("ctr_") + kLong).c_str()); });
  probeOn();
  const Document doc = dataSet(parameterXml(kLong, "1"), "",
                               std::string("<data:requestGroup name=\"g\"><data:includedParam name=\"") + kLong + "\"/></data:requestGroup>");
  calls.during("Log", [&] { get<CtrComboEdit>("combo").Tag("ctr_" + kOther); });
  view->SetOfflineData(doc);
  EXPECT_THAT(heard(), ElementsAre("combo.Tag = \"ctr_" + kOther + "\"", "combo.SetMappings nothing", "combo.ContextTag = \"g\"",
                                   std::string("combo.setOfflineData \"") + kLong + "\""));
  view->SetOfflineData(doc);
  EXPECT_THAT(heard(), ElementsAre("combo.SetMappings nothing", "combo.ContextTag = \"\"", "combo.setOfflineData nothing"));
}

TEST_F(DataWalkTest, AHostMayGiveItsDocumentUpMeanwhile) {
  placeWithHost(everything);
  Document given = data();
  get<CtrTextEdit>("text").Change.connect([&](const std::string&) { given = Document(); });
  view->SetImportData(given);
  EXPECT_EQ(get<CtrComboEdit>("combo").Text(), "1");
}

TEST_F(DataWalkTest, TagsMayBeRewrittenBetweenTheWalks) {
  placeWithHost(everything);
  view->SetImportData(data());
  get<CtrTextEdit>("text").Tag("ctr_box");
  view->SetImportData(data());
  EXPECT_EQ(get<CtrTextEdit>("text").Text(), "b");
}

TEST_F(DataWalkTest, TheViewMayBeReleasedInTheMiddleOfAWalk) {
  placeWithHost(everything);
  const int ended = TestView::ended;
  get<CtrTextEdit>("text").Change.connect([&](const std::string&) {
    view->Terminate();
    view = nullptr;
  });
  TestView* const raw = view.get();
  raw->SetOfflineData(data());
  EXPECT_EQ(TestView::ended, ended + 1);
}

}  // namespace
}  // namespace ostrand
