#include "platform/xml/Vocabulary.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/base/RuntimeError.h"

namespace ostrand {
namespace {

Document dataSet(const std::string& parameters, const std::string& groups = "") {
  return Document::read(
      "<data:dtm><data:persistentData><data:parameters>" + parameters +
      "</data:parameters></data:persistentData><data:mappedParams><data:mappedParam name=\"m\"/></data:mappedParams><data:requestGroups>" + groups +
      "</data:requestGroups></data:dtm>");
}

Document answer(const std::string& items) {
  return Document::read("<comm:dtm><comm:communicationResponse name='r'>" + items + "</comm:communicationResponse></comm:dtm>");
}

TEST(Vocabulary, FindsByName) {
  const Document doc = dataSet("<data:parameter name='a' value='1'/><data:parameter name='b' value='2'/>", "<data:requestGroup name='g'/>");
  EXPECT_EQ(parameter(doc, "a").attribute("value"), "1");
  EXPECT_EQ(parameter(doc, "b").attribute("value"), "2");
  EXPECT_FALSE(parameter(doc, "c"));
  EXPECT_FALSE(parameter(doc, ""));
  EXPECT_FALSE(parameter(doc, "A"));
  EXPECT_TRUE(mapping(doc, "m"));
  EXPECT_FALSE(mapping(doc, "a"));
  EXPECT_TRUE(group(doc, "g"));
  EXPECT_FALSE(item(doc, "a"));
  EXPECT_EQ(item(answer("<comm:item name='i'><comm:floatVal>1</comm:floatVal></comm:item>"), "i").text(), "1");
}

TEST(Vocabulary, TheFirstOfDuplicatesCounts) {
  const Document doc = dataSet("<data:parameter name='a' n='1'/><data:parameter name='a' n='2'/><data:parameter name='a' n='3'/>");
  EXPECT_EQ(parameter(doc, "a").attribute("n"), "1");
  EXPECT_EQ(parameterAnywhere(doc, "a").attribute("n"), "1");
  parameter(doc, "a").remove();
  EXPECT_EQ(parameter(doc, "a").attribute("n"), "2");
}

TEST(Vocabulary, AnywhereIsAlsoBesideThePath) {
  const Document doc = Document::read(
      "<data:dtm><x><data:parameter name='a' n='x'/></x><data:persistentData><data:parameters><data:parameter name='a' n='path'><data:parameter name='in'/></data:parameter>"
      "</data:parameters></data:persistentData></data:dtm>");
  EXPECT_EQ(parameter(doc, "a").attribute("n"), "path");
  EXPECT_EQ(parameterAnywhere(doc, "a").attribute("n"), "x");
  EXPECT_TRUE(parameterAnywhere(doc, "in"));
  EXPECT_FALSE(parameter(doc, "in"));
  const Document bare = Document::read("<data:parameter name='a'/>");
  EXPECT_TRUE(parameterAnywhere(bare, "a"));
  EXPECT_FALSE(parameter(bare, "a"));
}

TEST(Vocabulary, AnEmptyNameIsANameToo) {
  const Document doc = dataSet("<data:parameter n='none'/><data:parameter name='' n='empty'/>");
  EXPECT_EQ(parameter(doc, "").attribute("n"), "empty");
}

TEST(Vocabulary, ADocumentWithoutTheExpectedRootHoldsNothing) {
  for (const char* text :
       {"<a/>", "<dtm><persistentData><parameters><parameter name='a'/></parameters></persistentData></dtm>",
        "<comm:dtm><data:persistentData><data:parameters><data:parameter name='a'/></data:parameters></data:persistentData></comm:dtm>"}) {
    const Document doc = Document::read(text);
    EXPECT_FALSE(parameter(doc, "a")) << text;
    EXPECT_FALSE(mapping(doc, "a"));
    EXPECT_FALSE(group(doc, "a"));
    EXPECT_FALSE(item(doc, "a"));
    EXPECT_FALSE(itemAnywhere(doc, "a"));
    EXPECT_FALSE(response(doc));
    EXPECT_FALSE(responseAnywhere(doc));
    EXPECT_EQ(homeGroup(doc, "a"), "");
  }
}

TEST(Vocabulary, AQuoteBreaksTheNameAsItBreaksThePath) {
  const Document doc = dataSet("<data:parameter name='say &quot;a&quot;'/><data:parameter name=\"it's\"/>");
  const Document none;
  for (const auto lookup : {parameter, parameterAnywhere, mapping, group, item, itemAnywhere}) {
    try {
      lookup(doc, "say \"a\"");
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), RuntimeError::BadArgument);
    }
    try {
      lookup(none, "a");
      ADD_FAILURE();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), RuntimeError::NothingThere);
    }
  }
  EXPECT_THROW(homeGroup(doc, "\""), RuntimeError);
  EXPECT_THROW(homeGroup(none, "a"), RuntimeError);
  EXPECT_THROW(response(none), RuntimeError);
  EXPECT_THROW(responseAnywhere(none), RuntimeError);
  EXPECT_TRUE(parameter(doc, "it's"));
}

TEST(Vocabulary, FindsTheResponse) {
  const Document doc = answer("");
  EXPECT_EQ(response(doc).attribute("name"), "r");
  EXPECT_TRUE(responseAnywhere(doc) == response(doc));
  const Document deep = Document::read("<x><y/><comm:communicationResponse name='deep'/></x>");
  EXPECT_FALSE(response(deep));
  EXPECT_EQ(responseAnywhere(deep).attribute("name"), "deep");
  const Document second = Document::read("<comm:dtm><a/><comm:communicationResponse name='second'/></comm:dtm>");
  EXPECT_EQ(response(second).attribute("name"), "second");
  EXPECT_EQ(responseAnywhere(second).attribute("name"), "second");
  const Document nested =
      Document::read("<comm:communicationResponse name='out'><comm:communicationResponse name='in'/></comm:communicationResponse>");
  EXPECT_EQ(responseAnywhere(nested).attribute("name"), "out");
  const Document instruction = Document::read("<comm:dtm><?comm:communicationResponse x?><comm:communicationResponse name='r'/></comm:dtm>");
  EXPECT_EQ(response(instruction).attribute("name"), "r");
  response(doc).remove();
  EXPECT_FALSE(response(doc));
  EXPECT_FALSE(responseAnywhere(doc));
}

std::string included(const std::string& group, const std::string& clone) {
  return "<data:requestGroup name='" + group + "'><data:includedParam name='other'/><data:includedParam name='p'" +
         (clone.empty() ? "" : " clone='" + clone + "'") + "/></data:requestGroup>";
}

TEST(HomeGroup, IsTheOnlyGroupWhateverItsClone) {
  EXPECT_EQ(homeGroup(dataSet("", included("a", "")), "p"), "a");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "0")), "p"), "a");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1")), "p"), "a");
}

TEST(HomeGroup, OfSeveralIsTheFirstThatHoldsNoClone) {
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1") + included("b", "") + included("c", "")), "p"), "b");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1") + included("b", "0") + included("c", "")), "p"), "b");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "") + included("b", "0")), "p"), "a");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1") + included("b", "2") + included("c", "0")), "p"), "c");
}

TEST(HomeGroup, IsNoneForACloneInAllGroupsAndForAStranger) {
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1") + included("b", "1")), "p"), "");
  EXPECT_EQ(homeGroup(dataSet("", included("a", "1") + included("b", "")), "q"), "");
  EXPECT_EQ(homeGroup(dataSet(""), "p"), "");
}

TEST(HomeGroup, TwiceInOneGroupIsTwo) {
  const std::string twice =
      "<data:requestGroup name='a'><data:includedParam name='p' clone='1'/><data:includedParam name='p' clone='1'/></data:requestGroup>";
  EXPECT_EQ(homeGroup(dataSet("", twice), "p"), "");
}

TEST(HomeGroup, FollowsChanges) {
  const Document doc = dataSet("", included("a", "1") + included("b", ""));
  EXPECT_EQ(homeGroup(doc, "p"), "b");
  group(doc, "b").setAttribute("name", "new");
  EXPECT_EQ(homeGroup(doc, "p"), "new");
  group(doc, "new").remove();
  EXPECT_EQ(homeGroup(doc, "p"), "a");
}

}  // namespace
}  // namespace ostrand
