#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml/Vocabulary.h"

namespace ostrand {
namespace {

using testing::HasSubstr;

constexpr const char* kPlain =
    R"(<comm:dtm xmlns:comm="x-schema:TAVCommunicationSchema.xml"><comm:communicationResponse name="r"><comm:item name="i"><comm:floatVal>1.5</comm:floatVal></comm:item></comm:communicationResponse></comm:dtm>)";

TEST(Prefixes, ADocumentInTheUsualOnesStaysAsItIs) { EXPECT_EQ(Document::read(kPlain).xml(), kPlain); }

TEST(Prefixes, OtherPrefixesAndADefaultNamespaceReadTheSame) {
  for (
      const char* text :
      {R"(<c:dtm xmlns:c="x-schema:TAVCommunicationSchema.xml"><c:communicationResponse name="r"><c:item name="i"><c:floatVal>1.5</c:floatVal></c:item></c:communicationResponse></c:dtm>)",
       R"(<dtm xmlns="x-schema:TAVCommunicationSchema.xml"><communicationResponse name="r"><item name="i"><floatVal>1.5</floatVal></item></communicationResponse></dtm>)",
       R"(<dtm xmlns="x-schema&#58;TAVCommunicationSchema.xml"><communicationResponse name="r"><item name="i"><floatVal>1.5</floatVal></item></communicationResponse></dtm>)",
       R"(<data:dtm xmlns:data="x-schema:TAVCommunicationSchema.xml"><data:communicationResponse name="r"><data:item name="i"><data:floatVal>1.5</data:floatVal></data:item></data:communicationResponse></data:dtm>)"}) {
    const Document doc = Document::read(text);
    EXPECT_EQ(doc.xml(), kPlain) << text;
    EXPECT_EQ(item(doc, "i").child("comm:floatVal").text(), "1.5") << text;
    EXPECT_EQ(doc.selectText("comm:dtm/comm:communicationResponse/@name"), "r") << text;
  }
}

TEST(Prefixes, BothSpellingsInOneDocument) {
  const Document doc = Document::read(
      R"(<dtm xmlns="x-schema:TAVCommunicationSchema.xml" xmlns:comm="x-schema:TAVCommunicationSchema.xml"><comm:communicationResponse><item name="a"/></comm:communicationResponse></dtm>)");
  EXPECT_TRUE(item(doc, "a"));
  EXPECT_EQ(
      doc.xml(),
      R"(<comm:dtm xmlns:comm="x-schema:TAVCommunicationSchema.xml"><comm:communicationResponse><comm:item name="a"/></comm:communicationResponse></comm:dtm>)");
}

TEST(Prefixes, DeclarationsBelowTheRootHoldInTheirElementOnly) {
  const Document doc = Document::read(
      R"(<dtm xmlns="x-schema:TAVCommunicationSchema.xml"><communicationResponse><item name="a"><x xmlns="other"><y/></x></item><item name="b"/></communicationResponse></dtm>)");
  EXPECT_TRUE(item(doc, "a"));
  EXPECT_TRUE(item(doc, "b"));
  EXPECT_TRUE(doc.select("//x/y"));
  EXPECT_FALSE(doc.select("//comm:x"));
}

TEST(Prefixes, ADefaultNamespaceMayBeTakenBack) {
  const Document doc = Document::read(R"(<dtm xmlns="x-schema:TAVCommunicationSchema.xml"><a xmlns=""><b/></a><c/></dtm>)");
  EXPECT_TRUE(doc.select("/comm:dtm/a/b"));
  EXPECT_TRUE(doc.select("/comm:dtm/comm:c"));
}

TEST(Prefixes, NestedDeclarationsOfOnePrefix) {
  const Document doc = Document::read(
      R"(<p:dtm xmlns:p="x-schema:TAVCommunicationSchema.xml"><p:a xmlns:p="other"><p:b xmlns:p="x-schema:TAVCommunicationSchema.xml"/><p:c/></p:a><p:d/></p:dtm>)");
  EXPECT_TRUE(doc.select("/comm:dtm/p:a/comm:b"));
  EXPECT_TRUE(doc.select("/comm:dtm/p:a/p:c"));
  EXPECT_TRUE(doc.select("/comm:dtm/comm:d"));
  EXPECT_EQ(Document::read(doc.xml()).xml(), doc.xml());
}

TEST(Prefixes, CommOfAForeignNamespaceIsNotOurs) {
  const Document doc =
      Document::read(R"(<comm:dtm xmlns:comm="urn:other"><comm:communicationResponse><comm:item name="i"/></comm:communicationResponse></comm:dtm>)");
  EXPECT_FALSE(item(doc, "i"));
  EXPECT_FALSE(response(doc));
  EXPECT_FALSE(doc.select("//comm:item"));
  EXPECT_EQ(doc.root().attribute("xmlns:foreign-comm"), "urn:other");
}

TEST(Prefixes, OursBesideAForeignCommInAnyOrder) {
  for (const char* declarations : {R"(xmlns:c="x-schema:TAVCommunicationSchema.xml" xmlns:comm="urn:other")",
                                   R"(xmlns:comm="urn:other" xmlns:c="x-schema:TAVCommunicationSchema.xml")"}) {
    const Document doc = Document::read("<c:dtm " + std::string(declarations) +
                                        "><c:communicationResponse><comm:x/><c:item name='i'/></c:communicationResponse></c:dtm>");
    EXPECT_TRUE(item(doc, "i")) << declarations;
    EXPECT_EQ(doc.root().findAttribute("xmlns:comm"), "x-schema:TAVCommunicationSchema.xml") << declarations;
    EXPECT_EQ(doc.root().findAttribute("xmlns:foreign-comm"), "urn:other") << declarations;
    EXPECT_TRUE(doc.select("//foreign-comm:x"));
    EXPECT_FALSE(doc.select("//comm:x"));
    EXPECT_EQ(Document::read(doc.xml()).xml(), doc.xml());
  }
}

TEST(Prefixes, AForeignCommInsideHoldsForItsElementOnly) {
  const Document doc = Document::read(
      R"(<comm:dtm xmlns:comm="x-schema:TAVCommunicationSchema.xml"><comm:communicationResponse><comm:item xmlns:comm="urn:other" name="i"/><comm:item name="i" x="1"/></comm:communicationResponse></comm:dtm>)");
  EXPECT_EQ(item(doc, "i").findAttribute("x"), "1");
}

TEST(Prefixes, WithoutDeclarationsTheyAreReadByName) {
  const Document doc = Document::read("<comm:dtm><comm:communicationResponse><comm:item name='i'/></comm:communicationResponse></comm:dtm>");
  EXPECT_TRUE(item(doc, "i"));
  const Document data = Document::read(
      "<data:dtm><data:mappedParams><data:mappedParam name='m'/></data:mappedParams><typeInfo:internalInfo busCategory='HART'/></data:dtm>");
  EXPECT_TRUE(mapping(data, "m"));
  EXPECT_EQ(data.selectText("//typeInfo:internalInfo/@busCategory"), "HART");
}

TEST(Prefixes, AnyNamespaceBoundToDataAndTypeInfoIsThem) {
  const Document doc = Document::read(
      R"(<data:dtm xmlns:data="urn:x" xmlns:typeInfo="urn:y"><data:mappedParams><data:mappedParam name="m"/></data:mappedParams><typeInfo:internalInfo busCategory="DPV1"/></data:dtm>)");
  EXPECT_TRUE(mapping(doc, "m"));
  EXPECT_TRUE(doc.select("//typeInfo:internalInfo"));
}

TEST(Prefixes, OfAttributesFollowTheirNamespaceToo) {
  const Document doc = Document::read(R"(<c:a xmlns:c="x-schema:TAVCommunicationSchema.xml" c:x="1" x="2" other:x="3" xml:lang="fi"/>)");
  EXPECT_EQ(doc.root().findAttribute("comm:x"), "1");
  EXPECT_EQ(doc.root().findAttribute("x"), "2");
  EXPECT_EQ(doc.root().findAttribute("other:x"), "3");
  EXPECT_EQ(doc.root().findAttribute("xml:lang"), "fi");
}

TEST(Prefixes, TheWordInATextIsNoDeclaration) {
  const Document doc =
      Document::read(R"(<comm:dtm xmlns:comm="x-schema:TAVCommunicationSchema.xml"><!-- xmlns:comm="x" --><comm:a>xmlns="y"</comm:a></comm:dtm>)");
  EXPECT_TRUE(doc.select("/comm:dtm/comm:a"));
}

TEST(Prefixes, ARequestOfOursIsACommunicationDocument) {
  const Document doc = Document::read(
      "<?xml version=\"1.0\"?><dtm xmlns=\"x-schema:TAVCommunicationSchema.xml\"><communicationRequest name=\"activeRecipe\" access=\"write\"><item name=\"formula1\" unit=\"noUnit\"> "
      "<integerVal>1</integerVal></item></communicationRequest></dtm>");
  EXPECT_EQ(doc.selectText("comm:dtm/comm:communicationRequest/comm:item/comm:integerVal"), "1");
}

TEST(Prefixes, DeepDeclarationsCostOneLookEach) {
  std::string open, close;
  for (int i = 0; i < 20000; ++i) {
    open += "<a xmlns:p" + std::to_string(i) + "=\"urn:x\">";
    close += "</a>";
  }
  const Document doc = Document::read("<c:r xmlns:c=\"x-schema:TAVCommunicationSchema.xml\">" + open + "<c:item name='i'/>" + close + "</c:r>");
  EXPECT_TRUE(itemAnywhere(doc, "i"));
}

}  // namespace
}  // namespace ostrand
