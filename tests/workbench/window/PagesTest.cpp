#include <gmock/gmock.h>

#include "support/FakeNested.h"
#include "workbench/WindowBench.h"

namespace ostrand::test {
namespace {

using testing::Contains;
using testing::Not;

// The device has a view without frames, whose group is called as the view.
class PagesTest : public WindowBench {
 protected:
  void SetUp() override {
    edit("tree.xml", "<branch name=\"advanced\" component=\"VwAdvanced\">", "<branch name=\"advanced\"/><branch name=\"later\">");
    edit("devices/hartBlade.xml", "requestGroup name=\"specialGrade\"", "requestGroup name=\"advanced\"");
    catalog.own["VwAdvanced"] = [this] { return frameless = new FakeNestedView; };
    open();
  }
  void edit(const std::string& file, const std::string& from, const std::string& to) {
    std::string text = readWholeFile(data / file);
    const std::size_t at = text.find(from);
    ASSERT_NE(at, text.npos) << from;
    writeWholeFile(data / file, text.replace(at, from.size(), to));
  }
  PlantTree::Page page() { return {&workbench->current(), "advanced", "advanced"}; }

  FakeNestedView* frameless = nullptr;
};

TEST_F(PagesTest, AViewWithoutFramesIsAPageByItself) {
  QTreeWidgetItem* const item = window->tree().itemOf(page());
  ASSERT_TRUE(item);
  EXPECT_TRUE(item->flags() & Qt::ItemIsEnabled);
  EXPECT_EQ(item->childCount(), 0);
  EXPECT_THAT(window->tree().pages(workbench->current()), Contains(page()));
  EXPECT_THAT(window->tree().pages(workbench->current()), Not(Contains(PlantTree::Page{&workbench->current(), "later", "later"})));
}

TEST_F(PagesTest, ItIsOpenedAndMarkedAndLeft) {
  window->tree().setFocus();
  window->tree().setCurrentItem(window->tree().itemOf(page()));
  press(Qt::Key_Return);
  settle();
  ASSERT_TRUE(frameless);
  EXPECT_EQ(frameless->tag(), "advanced");
  EXPECT_EQ(window->page(), page());
  EXPECT_TRUE(window->tree().itemOf(page())->font(0).bold());
  ASSERT_TRUE(show("measurement", "activeRecipe"));
  EXPECT_FALSE(window->tree().itemOf(page())->font(0).bold());
  ASSERT_TRUE(show("advanced", "advanced"));
  EXPECT_EQ(window->page(), page()) << "the view that is there already comes back";
}

TEST_F(PagesTest, ReadingThePageReadsItsGroup) {
  ASSERT_TRUE(show("advanced", "advanced"));
  const auto answers = [&] { return std::ranges::count(frameless->calls.lines, "SetOnlineData"); };
  const auto before = answers();
  press(Qt::Key_F5);
  settle();
  EXPECT_GT(answers(), before) << "the items of the group come";
}

TEST(ViewClassesTest, ARecipeOfAGyreTransmitterIsAPageOfItsOwn) {
  const ViewClasses gyre{"gyre", "HART"}, blade{"blade", "HART"};
  for (const char* const branch : {"recipe1", "recipe2", "recipe3", "recipe4"}) {
    EXPECT_EQ(gyre.of(branch), "CtrRecipe") << branch;
    EXPECT_EQ(blade.of(branch), "") << branch;
  }
  EXPECT_EQ(gyre.of("measurement"), "VwMeasurementGYRE");
  EXPECT_EQ(gyre.of("recipes"), "");
  EXPECT_EQ(gyre.of("4"), "");
  EXPECT_EQ(gyre.of(""), "");
}

}  // namespace
}  // namespace ostrand::test
