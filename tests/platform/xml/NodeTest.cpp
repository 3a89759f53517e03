#include "platform/xml/Node.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/base/RuntimeError.h"
#include "platform/xml/Document.h"

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

std::vector<std::string> namesOf(const std::vector<Node>& nodes) {
  std::vector<std::string> names;
  for (const Node& node : nodes) names.emplace_back(node.findAttribute("n").value_or("?"));
  return names;
}

TEST(Node, AnEmptyHandleIsNothingThere) {
  const Node none;
  const Document doc = Document::read("<a/>");
  EXPECT_FALSE(none);
  EXPECT_TRUE(none == Node(nullptr));
  for (const auto& call : std::vector<std::function<void()>>{[&] { none.name(); },
                                                             [&] { none.text(); },
                                                             [&] { none.attribute("x"); },
                                                             [&] { none.findAttribute("x"); },
                                                             [&] { none.xml(); },
                                                             [&] { none.parent(); },
                                                             [&] { none.firstChild(); },
                                                             [&] { none.nextSibling(); },
                                                             [&] { none.child("x"); },
                                                             [&] { none.select("x"); },
                                                             [&] { none.selectAll("x"); },
                                                             [&] { none.selectText("x"); },
                                                             [&] { none.setText("x"); },
                                                             [&] { none.setAttribute("x", "y"); },
                                                             [&] { none.clone(); },
                                                             [&] { none.append(doc.root()); },
                                                             [&] { doc.root().append(none); },
                                                             [&] { none.insertBefore(doc.root(), none); },
                                                             [&] { none.appendElement("x"); },
                                                             [&] { none.remove(); }})
    EXPECT_EQ(errorOf(call), RuntimeError::NothingThere);
}

TEST(Node, AMissingAttributeIsNothingThere) {
  const Document doc = Document::read("<a x=''/>");
  EXPECT_EQ(doc.root().attribute("x"), "");
  EXPECT_EQ(errorOf([&] { doc.root().attribute("y"); }), RuntimeError::NothingThere);
  EXPECT_EQ(doc.root().findAttribute("y"), std::nullopt);
}

TEST(Node, WalksElementsOnly) {
  const Document doc = Document::read("<a>text<!-- c --><?b pi?><b/>more<c/><![CDATA[x]]></a>");
  const Node b = doc.root().firstChild();
  EXPECT_EQ(b.name(), "b");
  EXPECT_EQ(b.nextSibling().name(), "c");
  EXPECT_FALSE(b.nextSibling().nextSibling());
  EXPECT_FALSE(b.firstChild());
  EXPECT_TRUE(b.parent() == doc.root());
  EXPECT_FALSE(doc.root().parent());
  EXPECT_FALSE(doc.root().nextSibling());
  EXPECT_TRUE(doc.root().child("b") == b);
  EXPECT_FALSE(doc.root().child("d"));
}

TEST(Node, TextIsThatOfAllElementsInside) {
  EXPECT_EQ(Document::read("<a>1<b>2<c>3</c></b>4<!-- no --><?no no?><![CDATA[5]]><d/>6</a>").root().text(), "123456");
  EXPECT_EQ(Document::read("<a><b/></a>").root().text(), "");
}

TEST(Node, XmlIsOneLineWithoutADeclaration) {
  const Document doc = Document::read("<?xml version=\"1.0\"?>\n<a>\n <b x='1'>t</b>\n</a>");
  EXPECT_EQ(doc.root().xml(), "<a><b x=\"1\">t</b></a>");
  EXPECT_EQ(doc.root().firstChild().xml(), "<b x=\"1\">t</b>");
}

TEST(Node, SelectsByPath) {
  const Document doc = Document::read("<a><b n='1'/><c><b n='2' t='x'>in</b></c><b n='3'/></a>");
  EXPECT_EQ(namesOf(doc.selectAll("//b")), (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(namesOf(doc.selectAll("//c/b | /a/b")), (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(doc.select("//b[@n='3' or @n='2']").attribute("n"), "2");
  EXPECT_EQ(doc.root().child("c").select("./b").attribute("n"), "2");
  EXPECT_FALSE(doc.select("//d"));
  EXPECT_THAT(doc.selectAll("//d"), IsEmpty());
  EXPECT_EQ(doc.selectText("//b/@t"), "x");
  EXPECT_EQ(doc.selectText("//c"), "in");
  EXPECT_EQ(doc.selectText("//b[3]"), std::nullopt);
  EXPECT_EQ(doc.selectText("//c/b/text()"), "in");
  EXPECT_EQ(doc.selectText("//@nothing"), std::nullopt);
}

TEST(Node, SelectsNothingButElements) {
  const Document doc = Document::read("<a x='1'>text<!-- c --><b/></a>");
  for (const char* path : {"/", "/a/@x", "/a/text()", "//comment()", "/a/node()"}) EXPECT_FALSE(doc.select(path)) << path;
  EXPECT_EQ(doc.selectAll("/a/node()").size(), 1u);
  // A piece of text goes when the text is set, so nobody holds one.
  doc.root().setText("other");
  EXPECT_EQ(doc.selectText("/a/text()"), "other");
}

TEST(Node, APathThatCannotBeReadIsABadArgument) {
  const Document doc = Document::read("<a/>");
  for (const char* path : {"", "//", "a[", "a[@x=\"1]", "a[@name=\"it\"s\"]", "count(//a)", "1 + 1", "$x", "unknown()"})
    EXPECT_EQ(errorOf([&] { doc.select(path); }), RuntimeError::BadArgument) << path;
  EXPECT_EQ(errorOf([&] { doc.root().selectAll("a["); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { doc.selectText("a["); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { doc.select(std::string(5000, '(') + "a" + std::string(5000, ')')); }), RuntimeError::BadArgument);
}

TEST(Node, SetTextReplacesAllThatWasInside) {
  const Document doc = Document::read("<a>1<b>2</b><!-- 3 --><![CDATA[4]]></a>");
  const Node b = doc.root().firstChild();
  doc.root().setText("<new> & text");
  EXPECT_EQ(doc.xml(), "<a>&lt;new&gt; &amp; text</a>");
  EXPECT_EQ(b.text(), "2");
  doc.root().setText("");
  EXPECT_EQ(doc.xml(), "<a/>");
  doc.root().setText("a\r\nb\rc");
  EXPECT_EQ(Document::read(doc.xml()).root().text(), "a\r\nb\rc");
  doc.root().setText("  ");
  EXPECT_EQ(Document::read(doc.xml()).root().text(), "  ");
}

TEST(Node, SetAttributeChangesOrAdds) {
  const Document doc = Document::read("<a x='1'/>");
  doc.root().setAttribute("x", "\"2\" < 3 &\n\t'");
  doc.root().setAttribute("y", "");
  EXPECT_EQ(doc.root().attribute("x"), "\"2\" < 3 &\n\t'");
  EXPECT_EQ(Document::read(doc.xml()).root().attribute("x"), "\"2\" < 3 &\n\t'");
  EXPECT_EQ(doc.root().findAttribute("y"), "");
}

TEST(Node, AppendsInsertsAndMoves) {
  const Document doc = Document::read("<a><b/><c/></a>");
  const Node a = doc.root(), b = a.child("b"), c = a.child("c");
  const Node d = a.appendElement("d");
  EXPECT_TRUE(a.insertBefore(d, b) == d);
  EXPECT_EQ(doc.xml(), "<a><d/><b/><c/></a>");
  a.append(b);
  EXPECT_EQ(doc.xml(), "<a><d/><c/><b/></a>");
  c.append(d);
  EXPECT_EQ(doc.xml(), "<a><c><d/></c><b/></a>");
  EXPECT_TRUE(d.parent() == c);
  a.insertBefore(d, {});
  EXPECT_EQ(doc.xml(), "<a><c/><b/><d/></a>");
}

TEST(Node, BeforeItselfIsWhereItStands) {
  const Document doc = Document::read("<a><b/><c/></a>");
  const Node b = doc.root().child("b");
  EXPECT_TRUE(doc.root().insertBefore(b, b) == b);
  EXPECT_EQ(doc.xml(), "<a><b/><c/></a>");
}

TEST(Node, RefusesImpossiblePlaces) {
  const Document doc = Document::read("<a><b><c/></b><d/></a>");
  const Document other = Document::read("<x><y/></x>");
  const Node a = doc.root(), b = a.child("b"), c = b.child("c"), d = a.child("d");
  EXPECT_EQ(errorOf([&] { c.append(b); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { b.append(b); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { a.insertBefore(d, c); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { a.insertBefore(d, other.root().firstChild()); }), RuntimeError::BadArgument);
  EXPECT_EQ(errorOf([&] { b.insertBefore(d, d); }), 0) << "already before itself, wherever that is";
  EXPECT_EQ(doc.xml(), "<a><b><c/></b><d/></a>");
}

TEST(Node, ACloneStandsInNoDocument) {
  const Document doc = Document::read("<a><b n='1'><c>t</c></b></a>");
  const Node clone = doc.root().child("b").clone();
  EXPECT_EQ(clone.xml(), "<b n=\"1\"><c>t</c></b>");
  EXPECT_FALSE(clone.parent());
  EXPECT_FALSE(clone.nextSibling());
  clone.setAttribute("n", "2");
  EXPECT_EQ(doc.xml(), "<a><b n=\"1\"><c>t</c></b></a>");
  EXPECT_EQ(doc.selectAll("//b").size(), 1u);
  EXPECT_TRUE(doc.root().append(clone) == clone);
  EXPECT_EQ(namesOf(doc.selectAll("//b")), (std::vector<std::string>{"1", "2"}));
}

TEST(Node, ARemovedOneStaysGoodAndIsSeenByNobody) {
  const Document doc = Document::read("<a><b n='1'><c/></b><b n='2'/></a>");
  const Node b = doc.select("//b");
  const Node c = b.child("c");
  b.remove();
  b.remove();
  EXPECT_EQ(doc.xml(), "<a><b n=\"2\"/></a>");
  EXPECT_EQ(doc.xml(true), "<a>\n  <b n=\"2\" />\n</a>\n");
  EXPECT_EQ(namesOf(doc.selectAll("//b")), std::vector<std::string>{"2"});
  EXPECT_FALSE(doc.select("//c"));
  EXPECT_EQ(doc.selectText("//b/@n"), "2");
  EXPECT_EQ(b.attribute("n"), "1");
  EXPECT_TRUE(b.child("c") == c);
  EXPECT_TRUE(c.parent() == b);
  EXPECT_FALSE(b.parent());
  EXPECT_FALSE(b.nextSibling());
  EXPECT_FALSE(doc.root().nextSibling());
  EXPECT_EQ(b.selectText("./@n"), "1");
  b.appendElement("d").setText("still in use");
  EXPECT_EQ(b.xml(), "<b n=\"1\"><c/><d>still in use</d></b>");
  c.remove();
  EXPECT_EQ(b.xml(), "<b n=\"1\"><d>still in use</d></b>");
}

TEST(Node, ARemovedOneIsNotCountedByAnyPath) {
  const Document doc = Document::read("<a><b n='1'/><x><b n='2' l='k'/></x><b n='3'/></a>");
  const Node last = doc.select("//b[@n='3']");
  last.remove();
  doc.select("//b[@n='1']").clone();
  EXPECT_EQ(namesOf(doc.selectAll("(//b)[last()]")), std::vector<std::string>{"2"});
  EXPECT_EQ(doc.select("(//b)[position() = last()]").attribute("n"), "2");
  EXPECT_EQ(doc.selectText("(//b)[last()]/@l"), "k");
  EXPECT_TRUE(doc.select("/a[count(//b) = 2]"));
  EXPECT_TRUE(doc.select("/*[last()]") == doc.root());
  EXPECT_FALSE(doc.select("/a[//b[@n='3']]"));
  EXPECT_TRUE(doc.select("//x[not(following::b)]"));
  EXPECT_FALSE(doc.select("//b[@n='3']/../../a"));
  EXPECT_FALSE(doc.select("/a/following-sibling::*"));
  EXPECT_FALSE(doc.select("//b[@n='3']/ancestor::*"));
  EXPECT_EQ(doc.selectAll("/*").size(), 1u);
  EXPECT_EQ(doc.selectAll("//*").size(), 4u);
  EXPECT_EQ(doc.selectText("//*[@n='3']"), std::nullopt);
  // Words of a path inside a literal mean nothing.
  EXPECT_FALSE(doc.select("//b[@n='last()/..']"));
}

TEST(Node, ADetachedOneSeesTheDocumentAndItsOwnBranch) {
  const Document doc = Document::read("<a><b n='1'><c n='in'/></b><b n='2'/></a>");
  const Node b = doc.root().child("b");
  doc.select("//b[@n='2']").remove();
  b.remove();
  const Node other = doc.root().appendElement("z").clone();
  EXPECT_EQ(namesOf(b.selectAll("./c")), std::vector<std::string>{"in"});
  EXPECT_EQ(namesOf(b.selectAll(".//*[last()]")), std::vector<std::string>{"in"});
  EXPECT_EQ(b.selectAll("//b").size(), 1u);
  EXPECT_TRUE(b.select("//b") == b);
  EXPECT_TRUE(b.child("c").select("..") == b);
  EXPECT_TRUE(b.select("/a") == doc.root());
  EXPECT_FALSE(other.select("//b"));
}

TEST(Node, MovingToAnotherDocumentCopiesThereAndParksHere) {
  const Document from = Document::read("<a><b n='1'><c>t</c></b></a>");
  const Document to = Document::read("<x><y/></x>");
  const Node b = from.root().child("b");
  const Node moved = to.root().insertBefore(b, to.root().child("y"));
  EXPECT_EQ(to.xml(), "<x><b n=\"1\"><c>t</c></b><y/></x>");
  EXPECT_EQ(from.xml(), "<a/>");
  EXPECT_FALSE(moved == b);
  moved.setAttribute("n", "2");
  EXPECT_EQ(b.attribute("n"), "1");
  // From nowhere to another document.
  EXPECT_EQ(to.root().append(b).xml(), "<b n=\"1\"><c>t</c></b>");
  EXPECT_EQ(to.xml(), "<x><b n=\"2\"><c>t</c></b><y/><b n=\"1\"><c>t</c></b></x>");
}

TEST(Node, KeepsItsTreeAlive) {
  Node b;
  {
    const Document doc = Document::read("<a><b>a text that is longer than a small buffer</b></a>");
    b = doc.root().child("b");
  }
  EXPECT_EQ(b.text(), "a text that is longer than a small buffer");
  EXPECT_EQ(b.parent().xml(), "<a><b>a text that is longer than a small buffer</b></a>");
  b.remove();
  EXPECT_EQ(b.xml(), "<b>a text that is longer than a small buffer</b>");
}

TEST(Node, ADocumentCanLoseItsRoot) {
  const Document doc = Document::read("<a><b/></a>");
  const Node a = doc.root();
  a.remove();
  EXPECT_FALSE(doc.root());
  EXPECT_EQ(doc.xml(), "");
  EXPECT_FALSE(doc.select("//b"));
  EXPECT_EQ(a.xml(), "<a><b/></a>");
}

}  // namespace
}  // namespace ostrand
