#include "host/DataSet.h"

#include <unistd.h>

#include <fstream>

#include "host/HostBench.h"
#include "platform/base/File.h"

namespace ostrand::test {

namespace {

class DataSetTest : public ::testing::Test {
 protected:
  VirtualDesktop desktop;
  std::filesystem::path folder;
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("ostrandDataSet" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::filesystem::path write(const std::string& name, const std::string& text) const {
    std::ofstream(folder / name) << text;
    return folder / name;
  }
};

TEST_F(DataSetTest, ToldErrorsNameTheFile) {
  const auto missing = refusalOf([&] { DataSet::open(folder / "none.xml"); });
  EXPECT_EQ(missing.number, RuntimeError::FileNotFound);
  EXPECT_NE(missing.description.find("none.xml"), std::string::npos);
  const auto noDocument = refusalOf([&] { DataSet::open(write("bad.xml", "<data:dtm>")); });
  EXPECT_EQ(noDocument.number, RuntimeError::BadArgument);
  EXPECT_NE(noDocument.description.find("bad.xml: not a document"), std::string::npos) << noDocument.description;
  for (const char* const text : {"<texts/>", "<data:dtm xmlns:data='x'/>"}) {
    const auto noDataSet = refusalOf([&] { DataSet::open(write("other.xml", text)); });
    EXPECT_EQ(noDataSet.number, RuntimeError::BadArgument);
    EXPECT_NE(noDataSet.description.find("other.xml: not a data set"), std::string::npos) << noDataSet.description;
  }
  EXPECT_EQ(refusalOf([&] { DataSet::open(folder); }).number, RuntimeError::PermissionDenied);
}

TEST_F(DataSetTest, TellsParametersAndGroups) {
  const DataSet set = smallDataSet();
  EXPECT_EQ(set.busCategory(), "HART");
  EXPECT_EQ(set.deviceType(), "test");
  EXPECT_EQ(set.parameters(), (std::vector<std::string>{"speed", "mode", "name", "start", "load"}));
  EXPECT_EQ(set.groups(), (std::vector<std::string>{"drive", "monitoringVariables", "labels"}));
  EXPECT_EQ(set.parametersOf("monitoringVariables"), (std::vector<std::string>{"load", "speed"}));
  EXPECT_EQ(set.homeGroup("speed"), "drive");
  EXPECT_EQ(set.value("speed"), "1.25");
  EXPECT_TRUE(set.synchronised("speed"));
  EXPECT_FALSE(set.synchronised("mode"));
  EXPECT_EQ(set.info("speed").unit, "N");
}

TEST_F(DataSetTest, WhatIsNotThereIsEmpty) {
  DataSet set = smallDataSet();
  for (const char* const name : {"none", "", "with\"quote"}) {
    EXPECT_FALSE(set.has(name));
    EXPECT_EQ(set.value(name), "");
    EXPECT_EQ(set.homeGroup(name), "");
    EXPECT_EQ(set.lastUpdate(name), "");
    EXPECT_TRUE(set.parametersOf(name).empty());
    set.edit(name, "1");
  }
  EXPECT_FALSE(set.changed());
  const DataSet bare(Document::read("<data:dtm xmlns:data='x'><data:persistentData/></data:dtm>"));
  EXPECT_TRUE(bare.parameters().empty());
  EXPECT_TRUE(bare.groups().empty());
  EXPECT_EQ(bare.busCategory(), "");
}

TEST_F(DataSetTest, AGroupIsReadWithoutWhatCanOnlyBeWritten) {
  const DataSet set = smallDataSet();
  const auto items = set.readItems("drive");
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].name, "speed");
  EXPECT_EQ(items[0].unit, "N");
  EXPECT_EQ(items[0].element, "floatVal");
  EXPECT_EQ(items[1].name, "mode");
  EXPECT_EQ(items[1].element, "integerVal");
}

TEST_F(DataSetTest, KeepsEditsBesideTheValue) {
  DataSet set = smallDataSet();
  set.edit("speed", "2");
  EXPECT_EQ(set.value("speed"), "1.25");
  EXPECT_EQ(set.current("speed"), "2");
  EXPECT_EQ(set.edited(), std::vector<std::string>{"speed"});
  EXPECT_TRUE(set.changed());
  set.edit("speed", "1.25");
  EXPECT_TRUE(set.edited().empty());
  set.edit("name", "B");
  set.discardEdit("name");
  EXPECT_EQ(set.current("name"), "A");
}

TEST_F(DataSetTest, TakesAnAnswerOver) {
  DataSet set = smallDataSet();
  set.edit("speed", "2");
  EXPECT_TRUE(set.takeAnswer(answer("drive", "read", {{"speed", "3.5"}, {"mode", "2"}, {"unknown", "1"}}), desktop.now(), nullptr).empty());
  EXPECT_EQ(set.value("speed"), "3.5");
  EXPECT_EQ(set.value("mode"), "2");
  EXPECT_TRUE(set.synchronised("mode"));
  EXPECT_EQ(set.lastUpdate("drive"), "05/01/2026 08:00:00");
  EXPECT_EQ(set.offlineValue("speed"), "2") << "reading takes nothing from the user";
  set.takeAnswer(answer("drive", "write", {{"speed", "2"}}), desktop.now(), nullptr);
  EXPECT_EQ(set.value("speed"), "2");
  EXPECT_EQ(set.offlineValue("speed"), "");
}

TEST_F(DataSetTest, OnlyTheLastGoodAnswerToAReadStampsTheGroup) {
  DataSet set = smallDataSet();
  const std::string before = set.lastUpdate("drive");
  set.takeAnswer(answer("drive", "read", {{"speed", "1"}}, "isFinal=\"0\""), desktop.now(), nullptr);
  set.takeAnswer(answer("drive", "read", {}, "isFinal=\"1\" errorCode=\"communicationError\""), desktop.now(), nullptr);
  set.takeAnswer(answer("drive", "write", {{"speed", "1"}}), desktop.now(), nullptr);
  set.takeAnswer(Document::read("<noise/>"), desktop.now(), nullptr);
  EXPECT_EQ(set.lastUpdate("drive"), before);
}

TEST_F(DataSetTest, PassesOverWhatTheHostMadeUp) {
  DataSet set = smallDataSet();
  const Document request = readRequestText("<communicationRequest name=\"drive\" access=\"read\"/>", "");
  set.takeAnswer(makeLocalAnswer(request, {{"speed", "N", "floatVal", "9"}}), desktop.now(), nullptr);
  EXPECT_EQ(set.value("speed"), "1.25");
  EXPECT_FALSE(set.changed());
}

TEST_F(DataSetTest, NamesValuesThatItCannotUse) {
  DataSet set = smallDataSet();
  EXPECT_EQ(set.takeAnswer(answer("drive", "read", {{"speed", "%&/"}, {"mode", "3"}}), desktop.now(), nullptr), std::vector<std::string>{"speed"});
  EXPECT_EQ(set.value("speed"), "1.25");
  EXPECT_EQ(set.value("mode"), "3");
  EXPECT_TRUE(set.takeAnswer(answer("drive", "read", {{"speed", "NaN"}}), desktop.now(), nullptr).empty());
  EXPECT_EQ(set.value("speed"), "NaN");
  EXPECT_TRUE(set.takeAnswer(answer("drive", "read", {{"speed", "\r\n\t2.5\r\n"}}), desktop.now(), nullptr).empty());
  EXPECT_EQ(set.value("speed"), "2.5") << "printed over many lines";
  const Document none = answer("drive", "read", {{"speed", "1"}});
  none.select("//comm:item/*").setText("");
  EXPECT_TRUE(set.takeAnswer(none, desktop.now(), nullptr).empty());
  EXPECT_EQ(set.value("speed"), "") << "the device has none yet";
  EXPECT_TRUE(set.synchronised("speed"));
}

TEST_F(DataSetTest, TellsAValueInItsOwnUnit) {
  const Ref<UnitService> units = UnitService::open(sourceData() / "units.xml");
  DataSet set = smallDataSet();
  const auto in = [&](const char* unit) {
    const std::string xml =
        "<comm:dtm xmlns:comm=\"x-schema:TAVCommunicationSchema.xml\"><comm:communicationResponse name=\"drive\" access=\"read\"><comm:item name=\"speed\" unit=\"" +
        std::string(unit) + "\"><comm:floatVal>0.002</comm:floatVal></comm:item></comm:communicationResponse></comm:dtm>";
    return set.takeAnswer(Document::read(xml), desktop.now(), units.get());
  };
  EXPECT_TRUE(in("kN").empty());
  EXPECT_EQ(set.value("speed"), "2");
  EXPECT_EQ(in("degC"), std::vector<std::string>{"speed"});
  EXPECT_EQ(set.value("speed"), "2");
}

TEST_F(DataSetTest, SavesWholeAndReadsBack) {
  DataSet set = smallDataSet();
  EXPECT_EQ(refusalOf([&] { set.save(); }).number, RuntimeError::FileNotFound);
  set.edit("name", "<&\">");
  set.saveAs(folder / "set.xml");
  EXPECT_FALSE(set.changed());
  DataSet again = DataSet::open(folder / "set.xml");
  EXPECT_EQ(again.offlineValue("name"), "<&\">");
  EXPECT_EQ(again.parameters(), set.parameters());
  again.edit("name", "C");
  again.save();
  EXPECT_EQ(DataSet::open(folder / "set.xml").offlineValue("name"), "C");
}

TEST_F(DataSetTest, AFailedSaveLeavesFileAndDataSet) {
  DataSet set = DataSet::open(write("set.xml", kSmallDataSet));
  set.edit("name", "B");
  std::filesystem::create_directory(folder / "set.xml.new");  // in the way of what is written beside
  EXPECT_EQ(refusalOf([&] { set.save(); }).number, RuntimeError::PermissionDenied);
  EXPECT_TRUE(set.changed());
  EXPECT_EQ(readWholeFile(folder / "set.xml"), kSmallDataSet);
  EXPECT_EQ(refusalOf([&] { set.saveAs(folder / "no" / "such.xml"); }).number, RuntimeError::PermissionDenied);
  EXPECT_EQ(set.file(), folder / "set.xml");
}

TEST_F(DataSetTest, AViewsCopyIsItsOwn) {
  const DataSet set = smallDataSet();
  const Document copy = set.copy();
  copy.root().child("data:persistentData").remove();
  EXPECT_EQ(set.parameters().size(), 5u);
}

}  // namespace

}  // namespace ostrand::test
