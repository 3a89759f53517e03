#include "host/TextTables.h"

#include <unistd.h>

#include "host/HostBench.h"
#include "platform/base/File.h"

namespace ostrand::test {

namespace {

TEST(TextTables, FindTheLanguagesOfTheFolder) {
  std::vector<std::string> codes;
  for (const auto& each : TextTables(sourceData() / "texts").languages()) codes.push_back(each.code + " " + each.name);
  EXPECT_EQ(codes, (std::vector<std::string>{"de Deutsch", "en English", "fi Suomi", "sv Svenska"}));
  EXPECT_TRUE(TextTables("no/such/folder").languages().empty());
}

TEST(TextTables, AKeyWithoutATextGivesItself) {
  TextTables tables(sourceData() / "texts");
  const Ref<ITextTable> en = tables.table("en");
  EXPECT_EQ(en->GetText("accept"), "Accept");
  EXPECT_EQ(en->GetLabel("accept"), "Accept");
  EXPECT_EQ(en->GetText("no such key"), "no such key");
  EXPECT_EQ(en->GetSectionText("degC", "unit"), "°C");
  EXPECT_EQ(en->GetSectionText("noUnit", "unit"), "");
  EXPECT_EQ(en->GetSectionText("degC", "no such section"), "degC");
  EXPECT_EQ(en->GetSectionText("no such key", "unit"), "no such key");
  EXPECT_EQ(tables.table("fi")->GetText("measurement"), "Mittaus");
}

TEST(TextTables, HaveTwoLanguagesOfTheirOwn) {
  TextTables tables("no/such/folder");
  EXPECT_EQ(tables.table("keys")->GetText("accept"), "accept");
  EXPECT_EQ(tables.table("keys")->GetSectionText("degC", "unit"), "degC");
  const Ref<ITextTable> probe = tables.table("probe");
  EXPECT_EQ(probe->GetText("a"), "T:a");
  EXPECT_EQ(probe->GetLabel("a"), "L:a");
  EXPECT_EQ(probe->GetSectionText("a", "unit"), "S:a:unit");
  EXPECT_FALSE(tables.fileTable("probe"));
}

TEST(TextTables, SayWhichLanguagesThereAre) {
  TextTables tables(sourceData() / "texts");
  for (const char* const code : {"xx", "", "../texts/en"}) {
    const auto error = refusalOf([&] { tables.table(code); });
    EXPECT_EQ(error.number, RuntimeError::BadArgument);
    EXPECT_NE(error.description.find("de, en, fi, sv, keys, probe"), std::string::npos) << error.description;
  }
}

TEST(TextTables, ADamagedLanguageLeavesTheOthers) {
  const auto folder = std::filesystem::temp_directory_path() / ("ostrandTexts" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  writeWholeFile(folder / "aa.xml", "<texts language='aa'><text");
  writeWholeFile(folder / "bb.xml", "<units/>");
  writeWholeFile(folder / "cc.xml", "<texts name='See'><text key='k'>v</text></texts>");
  TextTables tables(folder);
  EXPECT_EQ(tables.languages().size(), 3u);
  for (const char* const code : {"aa", "bb"}) {
    const auto error = refusalOf([&] { tables.table(code); });
    EXPECT_EQ(error.number, RuntimeError::BadArgument);
    EXPECT_TRUE(error.description.starts_with((folder / code).string() + ".xml: ")) << error.description;
  }
  EXPECT_EQ(tables.table("cc")->GetText("k"), "v");
  std::filesystem::remove_all(folder);
}

}  // namespace

}  // namespace ostrand::test
