#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"
#include "simulator/Blade.h"
#include "simulator/Device.h"
#include "simulator/GyreCurves.h"
#include "simulator/ParameterTable.h"

namespace ostrand {
namespace {

// The files that a mill has, against each other and against the devices.

using Names = std::vector<std::string>;

const std::string kFolder = OSTRAND_SOURCE_DIR "/data/";

Document file(const std::string& name) { return Document::readFile(kFolder + name); }
Document dataSetOf(const DeviceKind& kind) { return file(std::string(kind.dataSet)); }

Names attributes(const Document& document, const std::string& path, const char* name = "name") {
  Names all;
  for (const Node& node : document.selectAll(path)) all.emplace_back(node.findAttribute(name).value_or(""));
  return all;
}

bool hasText(const std::string& key) {
  static const Names texts = attributes(file("texts/en.xml"), "/texts/text", "key");
  return std::find(texts.begin(), texts.end(), key) != texts.end();
}

std::string treeOf(const DeviceKind& kind) {
  const std::string own = "trees/" + std::string(kind.name) + ".xml";
  return std::filesystem::exists(kFolder + own) ? own : "tree.xml";
}

TEST(DataFolderTest, EveryLanguageHasTheSameKeysInTheSameOrder) {
  const Names keys = attributes(file("texts/en.xml"), "/texts/text", "key");
  EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size());
  for (const char* language : {"fi", "sv", "de"}) {
    const Document texts = file("texts/" + std::string(language) + ".xml");
    EXPECT_EQ(attributes(texts, "/texts/text", "key"), keys);
    EXPECT_EQ(attributes(texts, "//section/text", "key"), attributes(file("texts/en.xml"), "//section/text", "key"));
    for (const Node& text : texts.selectAll("/texts/text")) EXPECT_FALSE(text.text().empty()) << language << " " << text.attribute("key");
  }
}

TEST(DataFolderTest, EveryNameOfADeviceHasAText) {
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    Names names = attributes(dataSet, "//data:parameter | //data:requestGroup");
    const Names keys = attributes(dataSet, "//data:mappedItem", "key");
    names.insert(names.end(), keys.begin(), keys.end());
    const Names events = attributes(dataSet, "//data:parameter[starts-with(@name, 'eventLog') and @type='stringVal' and @value!='']", "value");
    EXPECT_EQ(events.empty(), !group(dataSet, "eventLog")) << kind.name;
    names.insert(names.end(), events.begin(), events.end());
    const Names frames = attributes(file(treeOf(kind)), "//branch | //node");
    names.insert(names.end(), frames.begin(), frames.end());
    for (const std::string& name : names) EXPECT_TRUE(hasText(name)) << kind.name << " " << name;
    // A mapping of status bits is a branch of the status tree.
    for (const std::string& name : attributes(dataSet, "//data:mappedParam[data:mappedItem/@category]")) EXPECT_TRUE(hasText(name)) << name;
    for (const std::string& category : attributes(dataSet, "//data:mappedItem[@category]", "category")) EXPECT_TRUE(hasText(category)) << category;
  }
}

TEST(DataFolderTest, EveryParameterHasOneHome) {
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    const Names parameters = attributes(dataSet, "//data:parameter");
    std::map<std::string, int> homes;
    for (const std::string& name : parameters) EXPECT_EQ(homes.emplace(name, 0).second, true) << kind.name << " " << name;
    for (const Node& included : dataSet.selectAll("//data:includedParam")) {
      const auto home = homes.find(std::string(included.attribute("name")));
      ASSERT_TRUE(home != homes.end()) << kind.name << " " << included.attribute("name");
      if (!included.findAttribute("clone")) ++home->second;
    }
    for (const auto& [name, count] : homes) EXPECT_EQ(count, 1) << kind.name << " " << name;
  }
}

// A device would refuse, or hold, what it says itself.
TEST(DataFolderTest, EveryValueIsWithinItsLimits) {
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    EXPECT_EQ(dataSet.selectText("//typeInfo:internalInfo/@deviceType"), kind.name);
    const simulator::ParameterTable table(dataSet);
    for (const std::string& name : attributes(dataSet, "//data:parameter[@access!='write' and @type!='stringVal' and @value!='']")) {
      const simulator::Parameter& p = *table.find(name);
      const bool isNumber = p.lowest && p.highest;
      EXPECT_EQ(p.codes.empty(), isNumber) << kind.name << " " << name;
      const bool isPossible = isNumber ? p.value.number >= *p.lowest && p.value.number <= *p.highest : !p.key(p.value).empty();
      EXPECT_TRUE(isPossible) << kind.name << " " << name;
    }
  }
}

// What a slot costs is what the whole selection is added up from.
TEST(DataFolderTest, EveryChoiceOfAModuleHasItsBytes) {
  const Document dataSet = file("devices/profibusBlade.xml");
  const Names slots = attributes(dataSet, "//data:requestGroup[@name='moduleSelection']/data:includedParam");
  EXPECT_EQ(slots.size(), 4u);
  for (const std::string& slot : slots) {
    const std::string own = "//data:mappedParam[@name='" + slot + "']/data:mappedItem";
    const std::string path = dataSet.select(own) ? own : "//data:mappedParam[@name='module']/data:mappedItem";
    Names bytes = attributes(dataSet, path, "bytes");
    ASSERT_GE(bytes.size(), 2u) << slot;
    EXPECT_EQ(bytes.front(), "0") << slot << ": a slot can be left empty";
    for (std::size_t i = 1; i < bytes.size(); ++i) EXPECT_GT(parseNumber(bytes[i], '.').value_or(0), 0) << slot;
  }
}

TEST(DataFolderTest, EveryFrameHasItsGroup) {
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    const Document tree = file(treeOf(kind));
    EXPECT_FALSE(attributes(tree, "/dtm/treeView/branch/node").empty());
    for (const std::string& component : attributes(tree, "//branch", "component"))
      EXPECT_TRUE(component.starts_with("Vw") || component.starts_with("Ctr")) << kind.name;
    for (const std::string& frame : attributes(tree, "//node")) {
      // One acts only; the other's value is the host's.
      if (frame == "resetingEventLog" || frame == "paAddress") continue;
      EXPECT_TRUE(group(dataSet, frame)) << kind.name << " " << frame;
    }
  }
}

TEST(DataFolderTest, TheRelationsAllowWhatTheDeviceAllows) {
  const Document relations = file("Relations_ostrand.xml");
  for (const DeviceKind& kind : deviceKinds()) {
    const Document dataSet = dataSetOf(kind);
    const Names blades = attributes(dataSet, "//data:mappedParam[@name='bladeType']/data:mappedItem", "key");
    const Names pulps = attributes(dataSet, "//data:mappedParam[@name='pulpType']/data:mappedItem", "key");
    if (!group(dataSet, "recipe1")) {
      EXPECT_EQ(pulps.size(), group(dataSet, "recipes") ? 10u : 0u) << kind.name;
    }
    for (const std::string& blade : blades) {
      const Names allowed = attributes(relations, "//bladeType[@name=\"" + blade + "\"]/*");
      EXPECT_FALSE(allowed.empty()) << blade;
      EXPECT_EQ(simulator::Blade::of(blade).key, blade);
      for (const std::string& pulp : allowed) EXPECT_TRUE(std::find(pulps.begin(), pulps.end(), pulp) != pulps.end()) << blade << " " << pulp;
      for (const std::string& pulp : pulps)
        EXPECT_EQ(std::find(allowed.begin(), allowed.end(), pulp) != allowed.end(), simulator::Blade::of(blade).allows(pulp)) << blade << " " << pulp;
    }
    EXPECT_TRUE(blades.empty() || attributes(relations, "//bladeType") == blades);
  }
}

// The views draw what the device measures by.
TEST(DataFolderTest, TheTreeHasTheCurvesOfTheDevice) {
  const Document tree = file("trees/hartGYRE.xml");
  const Document dataSet = file("devices/hartGYRE.xml");
  const Names sensors = attributes(dataSet, "//data:mappedParam[@name='sensorType']/data:mappedItem", "key");
  const Names pulps = attributes(dataSet, "//data:mappedParam[@name='pulpType']/data:mappedItem", "key");
  const std::vector<Node> nodes = tree.selectAll("/dtm/relations/parameterA/parameterB");
  ASSERT_EQ(nodes.size(), simulator::gyreCurves().size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const auto& [sensor, revision, pulp, curve] = simulator::gyreCurves()[i];
    const auto number = [&](const char* name) { return parseNumber(nodes[i].attribute(name), '.').value_or(1e9); };
    const Node parent = nodes[i].parent();
    EXPECT_EQ(parent.attribute("value"), sensor);
    EXPECT_EQ(parent.findAttribute("revision").value_or(""), revision);
    EXPECT_EQ(nodes[i].attribute("value"), pulp);
    EXPECT_TRUE(std::find(sensors.begin(), sensors.end(), sensor) != sensors.end()) << sensor;
    EXPECT_TRUE(std::find(pulps.begin(), pulps.end(), pulp) != pulps.end()) << pulp;
    const char* const factors[] = {"x0", "x1", "x2", "x3"};
    for (std::size_t power = 0; power < 4; ++power) EXPECT_EQ(number(factors[power]), curve.factors[power]) << sensor << " " << pulp;
    EXPECT_EQ(number("min"), curve.lowest);
    EXPECT_EQ(number("max"), curve.highest);
    constexpr double kNone = -99999;
    EXPECT_EQ(number("minA"), curve.lines ? curve.lines->belowSlope : kNone);
    EXPECT_EQ(number("minB"), curve.lines ? curve.lines->belowOffset : kNone);
    EXPECT_EQ(number("maxA"), curve.lines ? curve.lines->aboveSlope : kNone);
    EXPECT_EQ(number("maxB"), curve.lines ? curve.lines->aboveOffset : kNone);
    EXPECT_GE(number("maxC"), curve.consistency(simulator::GyreCurve::kHighestTorque) * 0.999) << sensor << " " << pulp;
  }
}

}  // namespace
}  // namespace ostrand
