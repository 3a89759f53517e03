#include "platform/controls/Choices.h"

#include <gtest/gtest.h>

#include "support/Documents.h"

namespace ostrand {
namespace {

using namespace test;

TEST(Choices, KeepTheOrderOfTheMapping) {
  const Choices choices(mappingNode(choice("2", "two") + "<data:other value=\"9\" key=\"nine\"/>" + choice("1", "one") + "<data:mappedItem/>"));
  ASSERT_EQ(choices.size(), 3u);
  EXPECT_EQ(choices[0].key, "two");
  EXPECT_EQ(choices[1].value, "1");
  EXPECT_EQ(choices[2].key, "");
  EXPECT_TRUE(Choices(Node()).empty());
}

TEST(Choices, AreFoundByTextFirstAndThenByNumber) {
  const Choices choices(mappingNode(choice("2.0", "float") + choice("2", "integer") + choice("on", "word") + choice("3", "three")));
  EXPECT_EQ(choices.byValue("2")->key, "integer");
  EXPECT_EQ(choices.byValue("2.0")->key, "float");
  EXPECT_EQ(choices.byValue("3.000")->key, "three");
  EXPECT_EQ(choices.byValue("\n\t3\n")->key, "three");
  EXPECT_EQ(choices.byValue("on")->key, "word");
  EXPECT_EQ(choices.byValue("3.1"), nullptr);
  EXPECT_EQ(choices.byValue("off"), nullptr);
  EXPECT_EQ(choices.byValue(""), nullptr);
  EXPECT_EQ(choices.byKey("word")->value, "on");
  EXPECT_EQ(choices.byKey("on"), nullptr);
}

TEST(Choices, TheSameOnesKeepTheirFilter) {
  Choices choices(mappingNode(choice("1", "one") + choice("2", "two")));
  choices.begin()->offered = false;
  EXPECT_FALSE(choices.read(mappingNode(choice("1", "one") + choice("2", "two"))));
  EXPECT_FALSE(choices[0].offered);
  for (const std::string& other :
       {choice("1", "one"), choice("1", "one") + choice("2", "two") + choice("3", "three"), choice("1", "one") + choice("2", "zwei")}) {
    EXPECT_TRUE(choices.read(mappingNode(other)));
    EXPECT_TRUE(choices[0].offered);
  }
  EXPECT_TRUE(choices.read(Node()));
  EXPECT_TRUE(choices.empty());
  EXPECT_FALSE(choices.read(Node()));
}

}  // namespace
}  // namespace ostrand
