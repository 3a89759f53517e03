#include "platform/base/Ref.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

struct Thing : Counted {
  explicit Thing(int& alive) : mAlive(alive) { ++mAlive; }
  ~Thing() override { --mAlive; }
  int& mAlive;
};
struct SpecialThing : Thing {
  using Thing::Thing;
};

TEST(Ref, TheLastOneEndsTheObject) {
  int alive = 0;
  {
    Ref<Thing> a(new Thing(alive));
    Ref<Thing> b = a;
    EXPECT_TRUE(a == b);
    a = nullptr;
    EXPECT_FALSE(a);
    EXPECT_EQ(alive, 1);
    Ref<Thing> c = std::move(b);
    EXPECT_FALSE(b);
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(c);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, MayBeSetToItself) {
  int alive = 0;
  Ref<Thing> a(new Thing(alive));
  Ref<Thing>& same = a;
  a = same;
  EXPECT_EQ(alive, 1);
  a = std::move(same);
  EXPECT_EQ(alive, 1);
  EXPECT_TRUE(a);
}

TEST(Ref, ConvertsToTheBase) {
  int alive = 0;
  Ref<SpecialThing> special(new SpecialThing(alive));
  Ref<Thing> base = special;
  special = nullptr;
  EXPECT_EQ(alive, 1);
  base = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(Ref, AdoptsACountThatIsHeldAlready) {
  int alive = 0;
  Thing* thing = new Thing(alive);
  thing->addRef();
  {
    const Ref<Thing> adopted = Ref<Thing>::adopt(thing);
    EXPECT_EQ(adopted.get(), thing);
  }
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace ostrand
