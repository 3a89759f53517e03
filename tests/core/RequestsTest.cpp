#include "core/Requests.h"

#include <gtest/gtest.h>

namespace ostrand::Requests {
namespace {

TEST(RequestsTest, TheFramesAreTheseByteForByte) {
  EXPECT_EQ(fragment("activeRecipe", "write", "<item/>"),
            "<communicationRequest name=\"activeRecipe\" access=\"write\"><item/></communicationRequest>");
  EXPECT_EQ(document("sampling", "read", "<item/>"),
            "<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"sampling\" access=\"read\">"
            "<item/></communicationRequest></dtm>");
}

TEST(RequestsTest, TheItemsAreTheseByteForByte) {
  EXPECT_EQ(readItem("sampleTime", "noUnit", "stringVal"), "<item name=\"sampleTime\" unit=\"noUnit\"><stringVal/></item>");
  EXPECT_EQ(readItem("sampleConsistency", "%Cs", "floatVal"), "<item name=\"sampleConsistency\" unit=\"%Cs\"><floatVal/></item>");
  EXPECT_EQ(readItem("actionStatus"), "<item name=\"actionStatus\" unit=\"noUnit\"/>");
  EXPECT_EQ(writeInteger("sampleStart", 1), "<item name=\"sampleStart\" unit=\"noUnit\"><integerVal>1</integerVal></item>");
}

}  // namespace
}  // namespace ostrand::Requests
