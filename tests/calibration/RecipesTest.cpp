#include <filesystem>

#include "calibration/CalibrationBench.h"
#include "platform/base/File.h"
#include "support/RecordingProbe.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecipesTest : public testing::TestWithParam<Way> {
 protected:
  const Way way = GetParam();
  const int recipes = way == Way::Fjell ? 4 : 8;
  CalibrationBench bench{way};

  std::vector<CtrTextEdit*> texts(int recipe) {
    if (way == Way::Fjell) return {&bench.slope(recipe), &bench.offset(recipe)};
    return {&bench.filler(recipe), &bench.slope(recipe), &bench.offset(recipe)};
  }
  std::string poll() const { return "ReadRequest read recipes: actionStatus"; }
  // The names of the items of a write, in their order.
  static std::string row(int recipe, Way way) {
    const std::string name = " recipe" + std::to_string(recipe);
    return name + "PulpType" + (way == Way::Fjell ? "" : name + "Filler") + name + "LinearizationSlopeP1" + name + "LinearizationOffsetP2";
  }
  // A click, and the names of what it wrote; an empty text if it wrote nothing.
  std::string applied() {
    bench.calls.take();
    bench.apply().click();
    std::string written;
    bool polled = false;
    for (const std::string& line : bench.lines()) {
      if (line == poll())
        polled = true;
      else
        written += line;
    }
    EXPECT_EQ(polled, way == Way::Profibus && written != kCheckTheValues);
    // Without the values.
    for (std::size_t at = written.find('='); at != written.npos; at = written.find('='))
      written.erase(at, std::min(written.find(' ', at), written.size()) - at);
    return written;
  }
};

INSTANTIATE_TEST_SUITE_P(Ways, RecipesTest, testing::Values(Way::Hart, Way::Profibus, Way::Fjell),
                         [](const auto& each) { return nameOf(each.param); });

TEST_P(RecipesTest, TheTableHoldsARowForEachRecipe) {
  for (int n = 1; n <= recipes; ++n) {
    const std::string recipe = "recipe" + std::to_string(n);
    EXPECT_EQ(bench.get("lblRecipes(" + std::to_string(n - 1) + ")").Tag(), recipe);
    EXPECT_EQ(bench.pulpType(n).Tag(), "ctr_" + recipe + "PulpType");
    EXPECT_TRUE(way == Way::Fjell || bench.filler(n).Tag() == "ctr_" + recipe + "Filler");
    EXPECT_EQ(bench.slope(n).Tag(), "ctr_" + recipe + "LinearizationSlopeP1");
    EXPECT_EQ(bench.offset(n).Tag(), "ctr_" + recipe + "LinearizationOffsetP2");
  }
  std::vector<std::string> heads = {"pulpType", "filler", "linearizationSlopeP1", "linearizationOffsetP2"};
  if (way == Way::Fjell) heads.erase(heads.begin() + 1);
  for (std::size_t i = 0; i < heads.size(); ++i)
    EXPECT_EQ(bench.get("lblRecipes(" + std::to_string(recipes + static_cast<int>(i)) + ")").Tag(), heads[i]);
  EXPECT_THROW(bench.pulpType(recipes + 1), RuntimeError);
  EXPECT_EQ(bench.apply().Tag(), "accept");
  EXPECT_EQ(bench.apply().Caption(), "Accept");
  bench.view->SetSelectedView("recipes");
  bench.view->RequestFocus();
  EXPECT_EQ(bench.view->focused(), &bench.pulpType(1));
}

TEST_P(RecipesTest, WithNothingModifiedNothingIsWritten) {
  const LocalTime before = bench.desktop.now();
  EXPECT_EQ(applied(), "");
  EXPECT_EQ(bench.desktop.now() - before, std::chrono::seconds(way == Way::Profibus ? 1 : 0));
}

TEST_P(RecipesTest, OneChangedFieldSendsItsWholeRow) {
  for (int recipe = 1; recipe <= recipes; ++recipe) {
    for (std::size_t field = 0; field <= texts(recipe).size(); ++field) {
      bench.view->SetOfflineData(dataSetOf(way));
      if (field == 0)
        bench.pulpType(recipe).choose(bench.pulpType(recipe).Text() == "pulpTypeTmp" ? "pulpTypeCtmp" : "pulpTypeTmp");
      else
        texts(recipe)[field - 1]->type("1.3");
      EXPECT_EQ(applied(), "DTMGUIDownload write recipes:" + row(recipe, way)) << recipe << " " << field;
    }
  }
}

TEST_P(RecipesTest, ChangedRowsTravelInTheirOrder) {
  bench.slope(recipes).type("1.3");
  bench.offset(2).type("0.5");
  EXPECT_EQ(applied(), "DTMGUIDownload write recipes:" + row(2, way) + row(recipes, way));
}

TEST_P(RecipesTest, TheWholeTextOfTheRequest) {
  bench.pulpType(2).choose("pulpTypeTmp");
  for (CtrTextEdit* text : texts(2)) text->type("1.5");
  bench.calls.take();
  bench.apply().click();
  EXPECT_EQ(bench.calls.lines.front(),
            std::string(R"(DTMGUIDownload "recipes" 1 | <communicationRequest name="recipes" access="write">)") +
                R"(<item name="recipe2PulpType" unit="noUnit"><integerVal>6</integerVal></item>)" +
                (way == Way::Fjell ? "" : R"(<item name="recipe2Filler" unit="%"><floatVal>1.5</floatVal></item>)") +
                R"(<item name="recipe2LinearizationSlopeP1" unit="noUnit"><floatVal>1.500</floatVal></item>)" +
                R"(<item name="recipe2LinearizationOffsetP2" unit="%Cs"><floatVal>1.50</floatVal></item></communicationRequest>)");
}

TEST_P(RecipesTest, AWrongOrEmptyFieldOfAChangedRowStopsTheWrite) {
  for (std::size_t field = 0; field <= texts(1).size(); ++field) {
    EditControl* const edit = field == 0 ? static_cast<EditControl*>(&bench.pulpType(1)) : texts(1)[field - 1];
    EditControl* const other = field == 0 ? static_cast<EditControl*>(&bench.slope(1)) : &bench.pulpType(1);
    bench.view->SetOfflineData(dataSetOf(way));
    other->MarkEdited(true);
    edit->Text("");
    edit->Modified(false);
    edit->Correct(true);
    EXPECT_EQ(applied(), kCheckTheValues) << edit->name() << " empty, and not modified";
    bench.view->SetOfflineData(dataSetOf(way));
    other->MarkEdited(true);
    edit->Correct(false);
    EXPECT_EQ(applied(), kCheckTheValues) << edit->name() << " wrong";
    edit->Correct(true);
  }
}

TEST_P(RecipesTest, ARowThatNobodyTouchedIsNotLookedAt) {
  bench.slope(1).Text("");
  bench.slope(1).Correct(false);
  EXPECT_FALSE(bench.slope(1).Modified());
  bench.slope(2).type("1.3");
  EXPECT_EQ(applied(), "DTMGUIDownload write recipes:" + row(2, way));
}

TEST_P(RecipesTest, OneWrongRowKeepsAllBack) {
  bench.slope(1).type("1.3");
  bench.slope(3).type("999");
  EXPECT_FALSE(bench.slope(3).Correct());
  EXPECT_EQ(applied(), kCheckTheValues);
  bench.slope(3).type("1.1");
  EXPECT_EQ(applied(), "DTMGUIDownload write recipes:" + row(1, way) + row(3, way));
}

TEST_P(RecipesTest, BehindAWrongRowNothingIsLookedAt) {
  bench.slope(1).type("999");
  bench.slope(2).type("1.3");
  RecordingProbe probe;
  probe.readings = true;
  bench.desktop.setProbe(&probe);
  bench.apply().click();
  bench.desktop.setProbe(nullptr);
  EXPECT_THAT(probe.calls.take(), testing::Not(testing::Contains(bench.slope(2).name() + ".Modified?")));
}

TEST_P(RecipesTest, TheFlagStandsWithThePulpTypesOnly) {
  bench.slope(1).type("1.3");
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  bench.apply().click();
  bench.desktop.setProbe(nullptr);
  std::vector<std::string> lines = probe.calls.take(), expected{bench.pulpType(1).name() + ".GetXmlItem true"};
  std::erase_if(lines, [](const std::string& line) { return line.find("GetXmlItem") == line.npos; });
  for (CtrTextEdit* text : texts(1)) expected.push_back(text->name() + ".GetXmlItem");
  EXPECT_EQ(lines, expected);
}

TEST_P(RecipesTest, TheDevicesAnswerEndsTheEdit) {
  bench.slope(1).type("1.3");
  bench.apply().click();
  EXPECT_TRUE(bench.slope(1).Modified()) << "the write alone changes nothing on the screen";
  bench.online("recipes", itemXml("recipe1LinearizationSlopeP1", "1.3", "floatVal"));
  EXPECT_FALSE(bench.slope(1).Modified());
  EXPECT_EQ(applied(), "");
}

TEST_P(RecipesTest, AWriteThatFailsIsReportedAndTheClickGoesOn) {
  bench.slope(1).type("1.3");
  bench.calls.take();
  bench.calls.fail("DTMGUIDownload");
  bench.announce("sendRecipes");
  bench.apply().click();
  EXPECT_EQ(bench.lines().size(), way == Way::Profibus ? 3u : 2u);
}

TEST_P(RecipesTest, AnItemThatFailsSendsNothing) {
  bench.slope(1).type("1.3");
  bench.calls.take();
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail(bench.offset(1).name() + ".GetXmlItem");
  bench.announce("sendRecipes");
  bench.apply().click();
  bench.desktop.setProbe(nullptr);
  EXPECT_THAT(bench.lines(), testing::Not(testing::Contains(testing::StartsWith("DTMGUIDownload"))));
}

TEST_P(RecipesTest, AnErrorOfTheClickIsReportedAndEndsIt) {
  const std::string procedure = bench.apply().name() + "_Click";
  bench.slope(1).type("1.3");
  bench.calls.take();
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail(bench.slope(1).name() + ".Correct?");
  bench.announce(procedure);
  bench.apply().click();
  bench.desktop.setProbe(nullptr);
  EXPECT_THAT(bench.lines(), ElementsAre("ReportError \"VwCalibration " + procedure + ": \" 440")) << "no message box, nothing sent";
  bench.slope(1).type("999");
  bench.calls.fail("ShowMessage");
  bench.announce(procedure);
  bench.apply().click();
}

TEST(RecipesBusTest, APollThatFailsIsReportedOnceMore) {
  CalibrationBench bench(Way::Profibus);
  bench.calls.fail("ReadRequest");
  bench.messenger->announce("BusProfibus AskActionStatus: ", 440);
  bench.announce("cmdRecipeApplyButton_Click");
  bench.apply().click();
}

TEST(RecipesBusTest, ARefusedPulpTypeIsReadBackIntoItsControls) {
  CalibrationBench bench(Way::Profibus);
  const std::string before = bench.pulpType(3).Text();
  bench.pulpType(3).choose(before == "pulpTypeTmp" ? "pulpTypeCtmp" : "pulpTypeTmp");
  bench.apply().click();
  bench.lines();
  bench.online("recipes", itemXml("actionStatusInvalidPulpType", "1", "integerVal"));
  std::vector<std::string> expected{R"(ShowMessage "error" "actionStatusInvalidPulpType")"};
  std::string all = "ReadRequest read recipes:", items;
  for (int recipe = 1; recipe <= 8; ++recipe) {
    expected.push_back("SendRequest write recipes: executeAction=" + std::to_string(recipe + 10));
    all += " recipe" + std::to_string(recipe) + "PulpType";
    items += itemXml("recipe" + std::to_string(recipe) + "PulpType", recipe == 3 ? "2" : "1", "integerVal");
  }
  expected.push_back(all);
  EXPECT_EQ(bench.lines(), expected);
  EXPECT_TRUE(bench.pulpType(3).Modified());
  bench.online("recipes", items);
  EXPECT_EQ(bench.pulpType(3).Text(), "pulpTypeUnbleachedSoftwood");
  EXPECT_EQ(bench.pulpType(8).Text(), "pulpTypeBleachedSoftwood");
  EXPECT_FALSE(bench.pulpType(3).Modified());
  EXPECT_THAT(bench.lines(), IsEmpty()) << "an ordinary answer";
}

// --- pulp types by blade type

class PulpTypesTest : public testing::Test {
 protected:
  PulpTypesTest()
      : folder(std::filesystem::path(testing::TempDir()) /
               ("ostrand-relations-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()))) {
    std::filesystem::create_directories(folder);
    bench.parent->folder = (folder / "").string();
  }
  ~PulpTypesTest() override { std::filesystem::remove_all(folder); }

  void relations(const std::string& text) { writeWholeFile(folder / "Relations_ostrand.xml", text); }
  void receive(const std::string& blade, const std::string& tag = "ctr_bladeType") { bench.messenger->raiseReceiveValue(tag, blade); }
  // The keys that a list offers, without their common beginning.
  std::string offered(int recipe) {
    std::string keys;
    for (const Choice& choice : bench.pulpType(recipe).choices())
      if (choice.offered) keys += (keys.empty() ? "" : " ") + choice.key.substr(std::string("pulpType").size());
    return keys;
  }
  std::string offered() {
    for (int recipe = 2; recipe <= 8; ++recipe) EXPECT_EQ(offered(recipe), offered(1)) << recipe;
    return offered(1);
  }

  CalibrationBench bench{Way::Hart};
  const std::filesystem::path folder;
  const std::string all = "BleachedSoftwood UnbleachedSoftwood BleachedHardwood UnbleachedHardwood Groundwood Tmp Ctmp Deinked Broke SpecialGrade";
};

TEST_F(PulpTypesTest, TheBladeTypeChoosesForAllLists) {
  EXPECT_EQ(offered(), all);
  relations(
      "<r><bladeType name='A'><p name='pulpTypeTmp'/><p name='pulpTypeBroke'/></bladeType><bladeType name='B'><p name='pulpTypeCtmp'/></bladeType></r>");
  receive("A");
  EXPECT_EQ(offered(), "Tmp Broke");
  receive("B");
  EXPECT_EQ(offered(), "Ctmp") << "the choice before does not count";
  EXPECT_THAT(bench.lines(), IsEmpty());
}

TEST_F(PulpTypesTest, TheFileIsReadAnewEachTime) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  receive("A");
  relations("<r><bladeType name='A'><p name='pulpTypeBroke'/></bladeType></r>");
  receive("A");
  EXPECT_EQ(offered(), "Broke");
}

TEST_F(PulpTypesTest, AnUnknownBladeTypeLeavesTheLists) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  receive("A");
  for (const char* unknown : {"B", "", "a", "A "}) {
    receive(unknown);
    EXPECT_EQ(offered(), "Tmp") << unknown;
  }
}

TEST_F(PulpTypesTest, AFileThatDoesNotLoadLeavesTheLists) {
  receive("A");
  for (const char* text : {"", "<r><bladeType name='A'>", "no document", "<r/>"}) {
    relations(text);
    receive("A");
    EXPECT_EQ(offered(), all) << text;
  }
  std::filesystem::remove(folder / "Relations_ostrand.xml");
  std::filesystem::create_directory(folder / "Relations_ostrand.xml");
  receive("A");
  EXPECT_EQ(offered(), all);
  EXPECT_THAT(bench.lines(), IsEmpty()) << "in silence";
}

TEST_F(PulpTypesTest, OnlyChildElementsWithANameCount) {
  relations(
      "<r><group><bladeType name='A'>text<!-- p name='x' --><p/><p name='pulpTypeTmp'><q name='pulpTypeCtmp'/></p><other name='pulpTypeBroke'/><p name='pulpTypeOfNobody'/>"
      "</bladeType></group><bladeType name='A'><p name='pulpTypeDeinked'/></bladeType></r>");
  receive("A");
  EXPECT_EQ(offered(), "Tmp Broke");
}

TEST_F(PulpTypesTest, ABladeTypeWithoutPulpTypesLeavesNone) {
  relations("<r><bladeType name='A'/></r>");
  receive("A");
  EXPECT_EQ(offered(), "");
  EXPECT_FALSE(bench.pulpType(1).Correct()) << "what stands there is no longer offered";
  EXPECT_NE(bench.pulpType(1).Text(), "");
}

TEST_F(PulpTypesTest, AnyOtherTagIsPassedOver) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  for (const char* tag : {"bladeType", "ctr_bladetype", "ctr_bladeType2", ""}) receive("A", tag);
  EXPECT_EQ(offered(), all);
}

TEST_F(PulpTypesTest, AListAfterTheOther) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/><p name='pulpTypeBroke'/></bladeType></r>");
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  receive("A");
  bench.desktop.setProbe(nullptr);
  std::vector<std::string> expected;
  for (const char* call :
       {"SetAllItemsAllowed false", "SetItemAllowed \"pulpTypeTmp\" true", "SetItemAllowed \"pulpTypeBroke\" true", "ApplyItemFilter"})
    for (int i = 0; i < 8; ++i) expected.push_back("ccePulpType(" + std::to_string(i) + ")." + call);
  EXPECT_EQ(probe.calls.take(), expected);
}

TEST_F(PulpTypesTest, OtherErrorsAreReported) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  bench.announce("mMessenger_ViewReceiveValue", 5);
  receive("A\"");
  EXPECT_EQ(offered(), all) << "a quote breaks the path";
  bench.calls.fail("DTMGUIGetXmlPath");
  bench.announce("mMessenger_ViewReceiveValue");
  receive("A");
  EXPECT_EQ(offered(), all);
  RecordingProbe probe;
  bench.desktop.setProbe(&probe);
  probe.calls.fail("ccePulpType(0).SetAllItemsAllowed");
  bench.announce("mMessenger_ViewReceiveValue");
  receive("A");
  bench.desktop.setProbe(nullptr);
  EXPECT_EQ(offered(1), all) << "one list costs itself only";
  EXPECT_EQ(offered(2), "Tmp");
}

TEST_F(PulpTypesTest, TheFilterOutlivesAnotherDataSetWithTheSameChoices) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  receive("A");
  bench.view->SetOfflineData(dataSetOf(Way::Hart));
  EXPECT_EQ(offered(), "Tmp");
}

TEST_F(PulpTypesTest, AReleasedViewHearsNothing) {
  relations("<r><bladeType name='A'><p name='pulpTypeTmp'/></bladeType></r>");
  bench.view->PrepareToRelease();
  receive("A");
  EXPECT_EQ(offered(), all);
}

TEST(PulpTypesFjellTest, TheLowConsistencyBladeHasNoSuchHandler) {
  CalibrationBench bench(Way::Fjell);
  const auto offered = [&] { return bench.pulpType(1).get("Count", {}); };
  const Value before = offered();
  int asked = 0;
  bench.calls.during("DTMGUIGetXmlPath", [&] { ++asked; });
  bench.messenger->raiseReceiveValue("ctr_bladeType", "bladeTypeWS");
  EXPECT_EQ(toText(offered()), toText(before));
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace ostrand::test
