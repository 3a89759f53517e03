#include <gtest/gtest.h>

#include "platform/xml/Vocabulary.h"

namespace ostrand {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t kLarge = 8u << 20;
#else
constexpr std::size_t kLarge = 200u << 20;
#endif

constexpr int kDeep = 100000;

std::string nested(const std::string& name) {
  std::string text;
  for (int i = 0; i < kDeep; ++i) text += "<" + name + ">";
  text += "<data:parameter name='a'>bottom</data:parameter>";
  for (int i = 0; i < kDeep; ++i) text += "</" + name + ">";
  return text;
}

TEST(DeepDocument, IsReadLookedUpSelectedWrittenAndForgotten) {
  for (const bool renames : {false, true}) {
    const std::string open = renames ? "<c:dtm xmlns:c='x-schema:TAVCommunicationSchema.xml'>" : "<comm:dtm>";
    const Document doc = Document::read(open + nested(renames ? "c:x" : "comm:x") + (renames ? "</c:dtm>" : "</comm:dtm>"));
    EXPECT_EQ(doc.root().name(), "comm:dtm");
    EXPECT_TRUE(parameterAnywhere(doc, "a"));
    EXPECT_FALSE(parameter(doc, "a"));
    EXPECT_FALSE(itemAnywhere(doc, "a"));
    EXPECT_EQ(homeGroup(doc, "a"), "");
    EXPECT_EQ(doc.root().text(), "bottom");
    EXPECT_TRUE(doc.select("//data:parameter[@name = \"a\"]") == parameterAnywhere(doc, "a"));
    EXPECT_EQ(doc.selectAll("//comm:x").size(), static_cast<std::size_t>(kDeep));
    EXPECT_GT(doc.xml().size(), static_cast<std::size_t>(kDeep) * 15);
    EXPECT_EQ(Document::read(doc.xml()).xml(), doc.xml());
  }
}

TEST(DeepDocument, CanBeChangedLikeAnyOther) {
  const Document doc = Document::read("<comm:dtm>" + nested("comm:x") + "</comm:dtm>");
  const Node bottom = parameterAnywhere(doc, "a");
  bottom.setAttribute("name", "b");
  EXPECT_TRUE(parameterAnywhere(doc, "b") == bottom);
  const Node branch = doc.root().firstChild();
  const Node copy = branch.clone();
  branch.remove();
  EXPECT_FALSE(parameterAnywhere(doc, "b"));
  EXPECT_FALSE(doc.select("(//data:parameter)[last()]"));
  doc.root().append(copy);
  EXPECT_EQ(parameterAnywhere(doc, "b").text(), "bottom");
  EXPECT_TRUE(doc.select("(//data:parameter)[last()]") == parameterAnywhere(doc, "b"));
  const Document other = Document::read("<r/>");
  other.root().append(copy);
  EXPECT_TRUE(parameterAnywhere(other, "b"));
  EXPECT_FALSE(parameterAnywhere(doc, "b"));
  other.root().setText("");
  EXPECT_FALSE(parameterAnywhere(other, "b"));
}

TEST(LargeDocument, IsReadAndLookedUpLikeASmallOne) {
  const auto parameterText = [](std::size_t i) {
    return "<data:parameter name=\"parameter" + std::to_string(i) + "\" type=\"floatVal\" value=\"" + std::to_string(i) +
           "\" offlineValue=\"\" unit=\"noUnit\" decimals=\"2\" minVal=\"0\" maxVal=\"100\" access=\"readWrite\" synchronised=\"0\">" +
           std::string(140, ' ') + "</data:parameter>\n";
  };
  std::string text = "<data:dtm><data:persistentData><data:parameters>\n";
  text.reserve(kLarge + 1000);
  std::size_t count = 0;
  while (text.size() < kLarge) text += parameterText(count++);
  text += "</data:parameters></data:persistentData></data:dtm>";

  const Document doc = Document::read(std::move(text));
  const std::string last = "parameter" + std::to_string(count - 1);
  EXPECT_EQ(parameter(doc, "parameter0").attribute("value"), "0");
  EXPECT_EQ(parameter(doc, last).attribute("value"), std::to_string(count - 1));
  EXPECT_TRUE(parameterAnywhere(doc, last) == parameter(doc, last));
  EXPECT_FALSE(parameter(doc, "parameter" + std::to_string(count)));
  EXPECT_TRUE(doc.select("//data:parameter[@name = \"" + last + "\"]") == parameter(doc, last));
  parameter(doc, last).remove();
  EXPECT_FALSE(parameterAnywhere(doc, last));
}

}  // namespace
}  // namespace ostrand
