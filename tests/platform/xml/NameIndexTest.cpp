#include "platform/xml/NameIndex.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/xml/Vocabulary.h"

namespace ostrand {
namespace {

constexpr const char* kNames[] = {"a", "b", "c", "channel1Unit", "channel2Unit", "it's", ""};

struct Lookup {
  Node (*find)(const Document&, std::string_view);
  const char* before;
  const char* kind;
};
constexpr Lookup kLookups[] = {
    {parameter, "./data:dtm/data:persistentData/data:parameters/data:parameter", "data:parameter"},
    {parameterAnywhere, "//data:parameter", "data:parameter"},
    {mapping, "./data:dtm/data:mappedParams/data:mappedParam", "data:mappedParam"},
    {group, "./data:dtm/data:requestGroups/data:requestGroup", "data:requestGroup"},
    {item, "comm:dtm/comm:communicationResponse/comm:item", "comm:item"},
    {itemAnywhere, "//comm:item", "comm:item"},
};

// The documented way from the list of a parameter's inclusions to its group.
std::string groupByPath(const Document& doc, const std::string& name) {
  const auto all = doc.selectAll("./data:dtm/data:requestGroups/data:requestGroup/data:includedParam[@name=\"" + name + "\"]");
  if (all.size() == 1) return std::string(all[0].parent().findAttribute("name").value_or(""));
  for (const Node& one : all)
    if (one.findAttribute("clone").value_or("0") == "0") return std::string(one.parent().findAttribute("name").value_or(""));
  return "";
}

void compare(const Document& doc) {
  for (const std::string name : kNames) {
    for (const Lookup& lookup : kLookups) {
      const std::string path = lookup.before + ("[@name=\"" + name + "\"]");
      ASSERT_TRUE(lookup.find(doc, name) == doc.select(path)) << path << "\n" << doc.xml(true);
    }
    ASSERT_EQ(homeGroup(doc, name), groupByPath(doc, name)) << name << "\n" << doc.xml(true);
  }
  ASSERT_TRUE(response(doc) == doc.select("comm:dtm/comm:communicationResponse")) << doc.xml(true);
  ASSERT_TRUE(responseAnywhere(doc) == doc.select("//comm:communicationResponse")) << doc.xml(true);
}

// The same questions to a document that has never been changed.
void compareWithFresh(const Document& doc) {
  if (!doc.root()) return;
  const Document fresh = Document::read(doc.xml());
  for (const std::string name : kNames) {
    for (const Lookup& lookup : kLookups) {
      const Node ours = lookup.find(doc, name), theirs = lookup.find(fresh, name);
      ASSERT_EQ(ours ? ours.xml() : "", theirs ? theirs.xml() : "") << lookup.before << name;
    }
    ASSERT_EQ(homeGroup(doc, name), homeGroup(fresh, name));
  }
  for (const char* path :
       {"(//data:parameter)[last()]", "//comm:item[last()]", "(//*)[last()]", "//data:includedParam[not(following::data:includedParam)]"}) {
    const Node ours = doc.select(path), theirs = fresh.select(path);
    ASSERT_EQ(ours ? ours.xml() : "", theirs ? theirs.xml() : "") << path;
  }
}

class RandomChanges {
 public:
  explicit RandomChanges(unsigned seed) : mRandom(seed) {
    mDocs.push_back(Document::read(
        "<data:dtm><data:persistentData><data:parameters><data:parameter name='a'/><data:parameter name='b'/><data:parameter name='a'/></data:parameters>"
        "</data:persistentData><data:mappedParams><data:mappedParam name='a'/></data:mappedParams><data:requestGroups><data:requestGroup name='a'>"
        "<data:includedParam name='a'/></data:requestGroup><data:requestGroup name='b'><data:includedParam name='a' clone='1'/></data:requestGroup>"
        "</data:requestGroups></data:dtm>"));
    mDocs.push_back(
        Document::read("<comm:dtm><comm:communicationResponse name='r'><comm:item name='a'><comm:floatVal>1</comm:floatVal></comm:item>"
                       "<comm:item name='b'/></comm:communicationResponse></comm:dtm>"));
    mDocs.push_back(Document::read("<data:dtm><x/></data:dtm>"));
  }

  const std::vector<Document>& documents() const { return mDocs; }

  void step() {
    const Document& doc = mDocs[below(mDocs.size())];
    const Node node = any(doc);
    switch (below(12)) {
      case 0: node.append(any(mDocs[below(mDocs.size())]).clone()); break;
      case 1: {
        const Node added = node.appendElement(kKinds[below(std::size(kKinds))]);
        if (below(4)) added.setAttribute("name", name());
        break;
      }
      case 2: {
        const Node before = anyChild(node);
        const Node copy = any(doc).clone();
        if (below(2)) copy.setAttribute("name", name());
        mHeld.push_back(node.insertBefore(copy, before));
        break;
      }
      case 3:
      case 4: node.setAttribute("name", name()); break;
      case 5: node.setAttribute(below(2) ? "clone" : "value", std::to_string(below(2))); break;
      case 6:
      case 7:
        if (node == doc.root()) break;
        mHeld.push_back(node);
        node.remove();
        break;
      case 8: move(node, any(mDocs[below(mDocs.size())])); break;
      case 9: move(node, any(doc)); break;
      case 10:
        if (below(6) == 0) node.setText("text");
        break;
      case 11:
        // What somebody holds comes back, renamed or not.
        if (mHeld.empty()) break;
        move(node, mHeld[below(mHeld.size())]);
        break;
    }
    if (mHeld.size() > 40) mHeld.erase(mHeld.begin(), mHeld.begin() + 20);
    // Small enough to be quick, and never without a place for what matters.
    for (const Document& each : mDocs)
      while (each.selectAll("//*").size() > 60) anyChild(each.root()).remove();
    if (!mDocs[0].select("./data:dtm/data:persistentData/data:parameters"))
      mDocs[0].root().appendElement("data:persistentData").appendElement("data:parameters");
    if (!mDocs[0].select("./data:dtm/data:requestGroups")) mDocs[0].root().appendElement("data:requestGroups");
    if (!mDocs[1].select("comm:dtm/comm:communicationResponse")) mDocs[1].root().appendElement("comm:communicationResponse");
  }

 private:
  static constexpr const char* kKinds[] = {"data:parameter",    "data:mappedParam",
                                           "data:requestGroup", "data:includedParam",
                                           "comm:item",         "comm:communicationResponse",
                                           "data:mappedParams", "data:parameters",
                                           "comm:floatVal",     "x"};

  std::size_t below(std::size_t limit) { return mRandom() % limit; }
  std::string name() { return kNames[below(std::size(kNames))]; }

  Node any(const Document& doc) {
    const std::vector<Node> all = doc.selectAll("//*");
    return all[below(all.size())];
  }

  Node anyChild(const Node& node) {
    const std::vector<Node> children = node.selectAll("*");
    return children.empty() ? Node() : children[below(children.size())];
  }

  void move(const Node& parent, const Node& child) {
    for (const Document& doc : mDocs)
      if (doc.root() == child) return;
    for (Node up = parent; up; up = up.parent())
      if (up == child) return;
    const Node before = anyChild(parent);
    parent.insertBefore(child, below(2) ? before : Node());
  }

  std::mt19937 mRandom;
  std::vector<Document> mDocs;
  std::vector<Node> mHeld;
};

TEST(NameIndex, AgreesWithThePathsAfterEveryChange) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    RandomChanges changes(seed);
    for (int step = 0; step < 400; ++step) {
      changes.step();
      for (const Document& doc : changes.documents()) compare(doc);
      if (step % 20 == 0)
        for (const Document& doc : changes.documents()) compareWithFresh(doc);
      if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed << ", step " << step;
    }
  }
}

TEST(NameIndex, AgreesWhenItIsAskedOnlyNowAndThen) {
  for (unsigned seed = 100; seed < 140; ++seed) {
    RandomChanges changes(seed);
    for (int step = 0; step < 100; ++step) {
      changes.step();
      if (step % 17 == 0)
        for (const Document& doc : changes.documents()) compare(doc);
      if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed << ", step " << step;
    }
  }
}

TEST(NameIndex, HoldsManyNamesWhileTheyComeAndGo) {
  Document doc = Document::read("<data:dtm><data:persistentData><data:parameters/></data:persistentData></data:dtm>");
  const Node parameters = doc.select("//data:parameters");
  const auto nameOf = [](int i) { return "parameter" + std::to_string(i); };
  EXPECT_FALSE(parameter(doc, "parameter0"));
  for (int i = 0; i < 3000; ++i) parameters.appendElement("data:parameter").setAttribute("name", nameOf(i));
  for (int i = 0; i < 3000; ++i) ASSERT_EQ(parameter(doc, nameOf(i)).attribute("name"), nameOf(i));
  for (int i = 0; i < 3000; i += 3) parameter(doc, nameOf(i)).remove();
  for (int i = 1; i < 3000; i += 3) parameter(doc, nameOf(i)).setAttribute("name", nameOf(i + 10000));
  for (int i = 0; i < 3000; ++i) {
    ASSERT_EQ(static_cast<bool>(parameter(doc, nameOf(i))), i % 3 == 2) << i;
    ASSERT_EQ(static_cast<bool>(parameterAnywhere(doc, nameOf(i + 10000))), i % 3 == 1) << i;
  }
}

TEST(NameIndex, ManyOfOneNameAreReadInOrder) {
  std::string items;
  for (int i = 0; i < 200000; ++i) items += "<comm:item name='a' n='" + std::to_string(i) + "'/>";
  const Document doc = Document::read("<comm:dtm><comm:communicationResponse>" + items + "</comm:communicationResponse></comm:dtm>");
  for (int i = 0; i < 5; ++i) {
    ASSERT_EQ(item(doc, "a").attribute("n"), std::to_string(i));
    ASSERT_TRUE(itemAnywhere(doc, "a") == item(doc, "a"));
    item(doc, "a").remove();
  }
}

// Two names in many places: long chains, changed at any place of theirs.
class FewNames {
 public:
  explicit FewNames(unsigned seed) : mRandom(seed) {
    std::string text = "<comm:dtm><comm:communicationResponse>";
    for (int i = 0; i < 60; ++i) text += std::string("<comm:item name='") + (mRandom() % 5 ? "a" : "b") + "'><comm:item name='a'/></comm:item>";
    doc = Document::read(text + "</comm:communicationResponse></comm:dtm>");
  }

  void step() {
    const std::vector<Node> all = doc.selectAll("//comm:item | //comm:communicationResponse");
    const auto any = [&] { return all[mRandom() % all.size()]; };
    const Node node = any();
    switch (mRandom() % 5) {
      case 0: node.setAttribute("name", mRandom() % 2 ? "a" : "b"); break;
      case 1:
        if (all.size() > 60 && node.name() == "comm:item") node.remove();
        break;
      case 2: node.append(any().clone()); break;
      default:
        if (node.name() == "comm:item" && all.size() < 200) node.parent().insertBefore(any().clone(), node);
        break;
    }
  }
  // Every element of every name, in its turn.
  void drain() {
    for (const std::string name : {"a", "b"}) {
      for (const Lookup& lookup : kLookups)
        while (true) {
          const Node first = lookup.find(doc, name);
          ASSERT_TRUE(first == doc.select(lookup.before + ("[@name=\"" + name + "\"]"))) << lookup.before;
          if (!first) break;
          first.remove();
        }
    }
  }

  Document doc;

 private:
  std::mt19937 mRandom;
};

TEST(NameIndex, ManyOfOneNameStayInOrderThroughEveryChange) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    FewNames names(seed);
    item(names.doc, "a"), itemAnywhere(names.doc, "a");
    for (int step = 0; step < 300; ++step) {
      names.step();
      ASSERT_TRUE(item(names.doc, "a") == names.doc.select("comm:dtm/comm:communicationResponse/comm:item[@name=\"a\"]"))
          << "seed " << seed << ", step " << step;
      ASSERT_TRUE(itemAnywhere(names.doc, "b") == names.doc.select("//comm:item[@name=\"b\"]")) << "seed " << seed << ", step " << step;
    }
    names.drain();
    if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed;
  }
}

TEST(NameIndex, WritingValuesLeavesItAlone) {
  const Document doc = Document::read(
      "<data:dtm><data:persistentData><data:parameters><data:parameter name='a' value='1'/></data:parameters></data:persistentData></data:dtm>");
  ASSERT_TRUE(parameter(doc, "a"));
  NameIndex& index = doc.tree()->parameters;
  ASSERT_TRUE(index.built());
  const std::size_t memory = index.memory();
  for (int i = 0; i < 1000; ++i) parameter(doc, "a").setAttribute("value", std::to_string(i));
  EXPECT_TRUE(index.built());
  EXPECT_EQ(index.memory(), memory);
}

TEST(NameIndex, IsNotRebuiltForAChange) {
  const Document doc = Document::read(
      "<data:dtm><data:persistentData><data:parameters><data:parameter name='a'><x><y/></x></data:parameter></data:parameters></data:persistentData><data:requestGroups>"
      "<data:requestGroup name='g'><data:includedParam name='a'/></data:requestGroup></data:requestGroups></data:dtm>");
  ASSERT_TRUE(parameter(doc, "a"));
  ASSERT_TRUE(parameterAnywhere(doc, "a"));
  ASSERT_EQ(homeGroup(doc, "a"), "g");
  const Node copy = parameter(doc, "a").clone();
  copy.setAttribute("name", "b");
  doc.select("//data:parameters").append(copy);
  group(doc, "g").setAttribute("name", "h");
  const Node groupCopy = group(doc, "h").clone();
  doc.select("//data:requestGroups").append(groupCopy);
  parameter(doc, "a").remove();
  for (const NameIndex* index : {&doc.tree()->parameters, &doc.tree()->parametersAnywhere, &doc.tree()->includedParams, &doc.tree()->groups})
    EXPECT_TRUE(index->built());
  EXPECT_FALSE(parameter(doc, "a"));
  EXPECT_TRUE(parameterAnywhere(doc, "b"));
  EXPECT_EQ(homeGroup(doc, "a"), "h");
}

}  // namespace
}  // namespace ostrand
