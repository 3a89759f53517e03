#include "platform/controls/Value.h"

#include <gtest/gtest.h>

#include "support/ErrorOf.h"

namespace ostrand {
namespace {

TEST(ValueTest, IsWrittenAsTranscriptsWriteIt) {
  EXPECT_EQ(toText(Value(true)), "true");
  EXPECT_EQ(toText(Value(false)), "false");
  EXPECT_EQ(toText(Value(-42)), "-42");
  EXPECT_EQ(toText(Value(std::string("a \"b\" \\ \r\n\t ä"))), R"("a \"b\" \\ \r\n\t ä")");
}

TEST(ValueTest, IsReadAsWhatASetterWants) {
  EXPECT_TRUE(asBool(true));
  EXPECT_TRUE(asBool(-1));
  EXPECT_FALSE(asBool(0));
  EXPECT_EQ(asInt(7), 7);
  EXPECT_EQ(asText(Value("x")), "x");
  for (const auto& wrong : {+[] { asBool(Value("true")); }, +[] { asInt(true); }, +[] { asText(7); }}) EXPECT_EQ(test::errorOf(wrong), 13);
}

}  // namespace
}  // namespace ostrand
