#include "platform/types/Registry.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/base/File.h"
#include "platform/base/RuntimeError.h"

namespace ostrand {
namespace {

namespace fs = std::filesystem;

constexpr Guid kFirst = Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ab");
constexpr Guid kSecond = Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ac");

class RegistryTest : public testing::Test {
 protected:
  void SetUp() override {
    folder = fs::path(testing::TempDir()) / ("ostrand-registry-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    file = folder / "components.xml";
  }
  void TearDown() override { fs::remove_all(folder); }
  std::vector<std::string> told() const {
    std::vector<std::string> lines;
    for (const auto& each : readRegistry(file)) lines.push_back(each.name + " " + each.library.string());
    return lines;
  }
  static int numberOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }
  fs::path folder, file;
};

TEST_F(RegistryTest, KeepsWhatWasAdded) {
  EXPECT_TRUE(told().empty());
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, "first \"view\" <&>"}, {"VwB", kSecond, {}, ""}});
  const auto entries = readRegistry(file);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].name, "VwA");
  EXPECT_EQ(entries[0].id, kFirst);
  EXPECT_EQ(entries[0].library, "/lib/a.so");
  EXPECT_EQ(entries[0].description, "first \"view\" <&>");
}

TEST_F(RegistryTest, ALibraryReplacesAndRemovesOnlyItsOwn) {
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, ""}, {"VwOld", Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ad"), {}, ""}});
  addToRegistry(file, "/lib/b.so", {{"VwB", kSecond, {}, ""}});
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, ""}});
  EXPECT_EQ(told(), (std::vector<std::string>{"VwB /lib/b.so", "VwA /lib/a.so"}));
  removeFromRegistry(file, "/lib/b.so");
  EXPECT_EQ(told(), std::vector<std::string>{"VwA /lib/a.so"});
  removeFromRegistry(file, "/lib/none.so");
  EXPECT_EQ(told(), std::vector<std::string>{"VwA /lib/a.so"});
}

TEST_F(RegistryTest, AClassMovesToWhoRegistersItLast) {
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, ""}});
  addToRegistry(file, "/lib/b.so", {{"VwA", kFirst, {}, ""}});
  EXPECT_EQ(told(), std::vector<std::string>{"VwA /lib/b.so"});
}

TEST_F(RegistryTest, MakesItsFolder) {
  file = folder / "deep" / "er" / "components.xml";
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, ""}});
  EXPECT_EQ(told().size(), 1u);
}

TEST_F(RegistryTest, ADamagedFileIsAnErrorAndStays) {
  const std::string good = "<class name='VwA' id='4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ab' library='/lib/a.so'/>";
  for (const std::string& text :
       {std::string(), std::string("<components><class name=\"VwA\" id=\"4d1c0f"), "<other>" + good + "</other>",
        std::string("<components><view/></components>"),
        std::string("<components><class id='4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ab' library='/lib/a.so'/></components>"),
        std::string("<components><class name='VwA' id='4d1c' library='/lib/a.so'/></components>"),
        std::string("<components><class name='VwA' id='4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ab' library='a.so'/></components>")}) {
    writeWholeFile(file, text);
    try {
      readRegistry(file);
      ADD_FAILURE() << text;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), RuntimeError::BadArgument);
      EXPECT_TRUE(error.description().starts_with(file.string() + ": the registration of the components is damaged")) << error.description();
    }
    EXPECT_EQ(numberOf([&] { addToRegistry(file, "/lib/a.so", {}); }), RuntimeError::BadArgument);
    EXPECT_EQ(numberOf([&] { removeFromRegistry(file, "/lib/a.so"); }), RuntimeError::BadArgument);
    EXPECT_EQ(readWholeFile(file), text);
  }
}

TEST_F(RegistryTest, AFileThatCannotBeWrittenStaysAsItWas) {
  addToRegistry(file, "/lib/a.so", {{"VwA", kFirst, {}, ""}});
  const std::string before = readWholeFile(file);
  fs::create_directory(folder / "components.xml.new");
  EXPECT_EQ(numberOf([&] { addToRegistry(file, "/lib/b.so", {{"VwB", kSecond, {}, ""}}); }), RuntimeError::PermissionDenied);
  EXPECT_EQ(readWholeFile(file), before);
  writeWholeFile(folder / "plain", "");
  EXPECT_EQ(numberOf([&] { addToRegistry(folder / "plain" / "components.xml", "/lib/b.so", {}); }), RuntimeError::PermissionDenied);
}

TEST_F(RegistryTest, ThePlaceIsToldByTheEnvironment) {
  const char* const names[] = {"OSTRAND_REGISTRY", "XDG_DATA_HOME", "HOME"};
  std::vector<std::optional<std::string>> before;
  for (const char* const name : names) before.push_back(std::getenv(name) ? std::optional<std::string>(std::getenv(name)) : std::nullopt);
  setenv("OSTRAND_REGISTRY", "/a/file.xml", 1);
  setenv("XDG_DATA_HOME", "/xdg", 1);
  setenv("HOME", "/home/user", 1);
  EXPECT_EQ(registryPath(), "/a/file.xml");
  setenv("OSTRAND_REGISTRY", "", 1);
  EXPECT_EQ(registryPath(), "/xdg/ostrand/components.xml");
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(registryPath(), "/home/user/.local/share/ostrand/components.xml");
  unsetenv("HOME");
  EXPECT_EQ(numberOf([] { registryPath(); }), RuntimeError::FileNotFound);
  for (std::size_t i = 0; i < before.size(); ++i) before[i] ? setenv(names[i], before[i]->c_str(), 1) : unsetenv(names[i]);
}

TEST_F(RegistryTest, IdsHaveOneForm) {
  EXPECT_EQ(guidText(kFirst), "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ab");
  EXPECT_EQ(readGuid("4D1C0F02-7A41-4B0E-8A53-1F6A5C3E21AB"), kFirst);
  for (const char* const text :
       {"", "4d1c0f02", "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21abc", "4d1c0f02a7a41-4b0e-8a53-1f6a5c3e21ab", "4d1c0f02-7a41-4b0e-8a53-1f6a5c3e21ag"})
    EXPECT_FALSE(readGuid(text)) << text;
}

}  // namespace
}  // namespace ostrand
