#include "host/Messages.h"

#include "host/HostBench.h"

namespace ostrand::test {

namespace {

const char* const kFragment =
    R"(<communicationRequest name="sampling" access="write"><item name="sampleStart" unit="noUnit"><integerVal>0</integerVal></item></communicationRequest>)";

TEST(Messages, WrapABareFragment) {
  const Document doc = readRequestText(kFragment, "");
  EXPECT_EQ(told(doc), "write sampling: sampleStart=0");
  EXPECT_EQ(doc.root().name(), "comm:dtm");
  ASSERT_EQ(itemsOf(doc).size(), 1u);
  EXPECT_EQ(itemsOf(doc)[0].element, "integerVal");
  EXPECT_EQ(itemsOf(doc)[0].unit, "noUnit");
}

TEST(Messages, TakeAWholeDocumentInAnyPrefix) {
  const std::string inner = "communicationRequest name=\"a\" access=\"read\"/>";
  EXPECT_EQ(told(readRequestText("<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><" + inner + "</dtm>", "")), "read a:");
  EXPECT_EQ(told(readRequestText("<q:dtm xmlns:q=\"x-schema:TAVCommunicationSchema.xml\"><q:" + inner + "</q:dtm>", "")), "read a:");
}

TEST(Messages, TheNameOfTheCallIsTheNameOfTheAnswer) { EXPECT_EQ(told(readRequestText(kFragment, "other")), "write other: sampleStart=0"); }

TEST(Messages, WhatIsNoRequestIsAnError) {
  for (const char* const text : {"", "no xml", "<a/>", "<dtm/>", "<communicationRequest name=\"a\" access=\"maybe\"/>",
                                 "<communicationRequest access=\"read\"/>", "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"/>"})
    EXPECT_EQ(refusalOf([&] { readRequestText(text, ""); }).number, RuntimeError::BadArgument) << text;
}

TEST(Messages, ABlankBeforeAValueIsTolerated) {
  const Document doc = readRequestText(
      R"(<communicationRequest name="f" access="write"><item name="formula1" unit="noUnit"> <integerVal>3</integerVal></item></communicationRequest>)",
      "");
  ASSERT_EQ(itemsOf(doc).size(), 1u);
  EXPECT_EQ(itemsOf(doc)[0].value, "3");
}

TEST(Messages, MadeUpAnswersAreFinalAndLocal) {
  const Document request = readRequestText(kFragment, "");
  EXPECT_EQ(told(makeLocalAnswer(request, {{"sampleStart", "noUnit", "integerVal", "0"}})), "write sampling local: sampleStart=0");
  EXPECT_EQ(told(makeErrorAnswer(request, "communicationError", {"sampleStart"})), "write sampling communicationError local: sampleStart");
  const AnswerHead head = headOf(makeErrorAnswer(request, "communicationError", {}));
  EXPECT_TRUE(head.valid && head.isFinal && head.local && head.write);
  EXPECT_EQ(head.errorCode, "communicationError");
}

TEST(Messages, WhatIsNoAnswerHasNoHead) {
  EXPECT_FALSE(headOf(Document()).valid);
  EXPECT_FALSE(headOf(Document::read("<noise/>")).valid);
  EXPECT_FALSE(headOf(readRequestText(kFragment, "")).valid);
}

}  // namespace

}  // namespace ostrand::test
