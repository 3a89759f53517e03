#include "platform/controls/Members.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

using Text = std::string;

constexpr Member<Text> kMembers[] = {
    {"Length", "", [](Text& at, const MemberArguments&) -> MemberAnswer { return static_cast<int>(at.size()); }},
    {"Repeat", "i",
     [](Text& at, const MemberArguments& v) -> MemberAnswer {
       const Text once = at;
       for (int i = 1; i < asInt(v[0]); ++i) at += once;
       return {};
     }},
    {"Put", "tb",
     [](Text& at, const MemberArguments& v) -> MemberAnswer {
       at = asBool(v[1]) ? asText(v[0]) + at : at + asText(v[0]);
       return {};
     }},
    {"Put", "t",
     [](Text& at, const MemberArguments& v) -> MemberAnswer {
       at = asText(v[0]);
       return {};
     }},
};

struct MembersTest : testing::Test {
  Text text = "ab";
  std::function<MemberAnswer()> find(std::string_view name, const MemberArguments& arguments = {}) {
    return findMember<Text>(kMembers, &text, name, arguments);
  }
};

TEST_F(MembersTest, AreCalledByName) {
  find("Repeat", {2})();
  EXPECT_EQ(text, "abab");
  EXPECT_EQ(std::get<Value>(find("Length")()), Value(4));
}

TEST_F(MembersTest, OfOneNameTheArgumentsTell) {
  find("Put", {Text("c"), true})();
  EXPECT_EQ(text, "cab");
  find("Put", {Text("d")})();
  EXPECT_EQ(text, "d");
}

TEST_F(MembersTest, FoundIsNotYetCalled) {
  const auto put = find("Put", {Text("c")});
  EXPECT_EQ(text, "ab");
  put();
  EXPECT_EQ(text, "c");
}

TEST_F(MembersTest, AnUnknownNameIsNothing) {
  EXPECT_FALSE(find("Forget"));
  EXPECT_FALSE(findMember<Text>(kMembers, nullptr, "Length", {}));
}

TEST_F(MembersTest, OtherArgumentsAreAnError) {
  for (const MemberArguments& arguments : {MemberArguments{}, {Text("2")}, {true}, {2, 2}}) try {
      find("Repeat", arguments);
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), RuntimeError::NoSuchMember);
      EXPECT_EQ(error.description(), "Repeat takes other arguments");
    }
}

}  // namespace
}  // namespace ostrand
