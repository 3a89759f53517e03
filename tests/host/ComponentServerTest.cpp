#include "host/ComponentServer.h"

#include <cstdlib>

#include "host/HostBench.h"
#include "platform/base/File.h"
#include "platform/types/IClassFactory.h"

namespace ostrand::test {

namespace {

namespace fs = std::filesystem;

// With a registration of its own for each test.
class ComponentServerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = fs::path(::testing::TempDir()) / ("ostrand-server-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder);
    fs::create_directories(folder);
    registry = folder / "components.xml";
    if (const char* const before = std::getenv("OSTRAND_REGISTRY")) mBefore = before;
    setenv("OSTRAND_REGISTRY", registry.c_str(), 1);
  }
  void TearDown() override {
    if (mBefore)
      setenv("OSTRAND_REGISTRY", mBefore->c_str(), 1);
    else
      unsetenv("OSTRAND_REGISTRY");
    fs::permissions(folder, fs::perms::owner_all);
    fs::remove_all(folder);
  }
  fs::path folder, registry;
  const fs::path own = fs::path(OSTRAND_BINARY_DIR) / ownLibraryName();
  const fs::path none = "no/such/library.so";

 private:
  std::optional<std::string> mBefore;
};

TEST_F(ComponentServerTest, CreatesByNameAndRegistersItsOwnLibraryFirst) {
  ComponentServer server(own);
  const Ref<IObject> view = server.create("VwMeasurement");
  EXPECT_TRUE(query<IPlaceable>(view.get()));
  EXPECT_TRUE(query<ITaviView>(view.get()));
  const auto entries = readRegistry(registry);
  ASSERT_GE(entries.size(), 3u);
  for (const auto& each : entries) {
    EXPECT_EQ(each.library, fs::canonical(own));
    EXPECT_FALSE(each.description.empty());
    EXPECT_TRUE(server.create(each.name)) << each.name;
  }
}

TEST_F(ComponentServerTest, FindsALibraryThroughTheRegistrationAlone) {
  ServerLibrary(own).registerClasses();
  ComponentServer server(none);
  EXPECT_TRUE(server.create("VwMeasurement"));
}

TEST_F(ComponentServerTest, AnUnknownClassIsNamed) {
  for (const fs::path& library : {own, none}) {
    ComponentServer server(library);
    const auto error = refusalOf([&] { server.create("CtrDeviceSpecificFjell"); });
    EXPECT_EQ(error.number, RuntimeError::BadArgument);
    EXPECT_NE(error.description.find("\"CtrDeviceSpecificFjell\""), std::string::npos);
  }
}

TEST_F(ComponentServerTest, AClassThatIsNewInTheLibraryIsFound) {
  addToRegistry(registry, fs::canonical(own), {{"VwMeasurement", Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2101"), {}, ""}});
  ComponentServer server(own);
  fs::last_write_time(registry, fs::last_write_time(own) + std::chrono::seconds(1));
  EXPECT_NE(refusalOf([&] { server.create("VwMeasurementGYRE"); }).description.find("no such component class"), std::string::npos);
  EXPECT_EQ(readRegistry(registry).size(), 1u) << "nothing is new there";
  fs::last_write_time(registry, fs::last_write_time(own) - std::chrono::seconds(1));
  EXPECT_TRUE(server.create("VwMeasurementGYRE"));
}

TEST_F(ComponentServerTest, AClassThatTheLibraryHasLostIsNamed) {
  addToRegistry(registry, fs::canonical(own), {{"VwGone", Guid::of("00000000-1111-2222-3333-444444444444"), {}, ""}});
  ComponentServer server(own);
  EXPECT_NE(refusalOf([&] { server.create("VwGone"); }).description.find("does not have it"), std::string::npos);
}

TEST_F(ComponentServerTest, AnotherCopyOfTheLibraryGivesWayToThePrograms) {
  addToRegistry(registry, "/elsewhere" / ownLibraryName(), {{"VwMeasurement", Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2101"), {}, ""}});
  ComponentServer server(own);
  EXPECT_TRUE(server.create("VwMeasurement"));
  EXPECT_EQ(readRegistry(registry).front().library, fs::canonical(own));
}

TEST_F(ComponentServerTest, LibrariesThatAreNoneAreToldApart) {
  EXPECT_EQ(refusalOf([&] { ServerLibrary library(folder / "none.so"); }).number, RuntimeError::FileNotFound);
  writeWholeFile(folder / "text.so", "no library");
  const auto text = refusalOf([&] { ServerLibrary library(folder / "text.so"); });
  EXPECT_EQ(text.number, RuntimeError::BadArgument);
  EXPECT_NE(text.description.find("cannot be loaded"), std::string::npos);
  const auto plain = refusalOf([&] { ServerLibrary library(fs::path(OSTRAND_BINARY_DIR) / "libDTMGUI_Controls.so"); });
  EXPECT_EQ(plain.number, RuntimeError::BadArgument);
  EXPECT_NE(plain.description.find("does not export DllGetClassObject"), std::string::npos);
  addToRegistry(registry, folder / "none.so", {{"VwLost", Guid::of("00000000-1111-2222-3333-444444444444"), {}, ""}});
  ComponentServer server(none);
  EXPECT_EQ(refusalOf([&] { server.create("VwLost"); }).number, RuntimeError::FileNotFound);
}

TEST_F(ComponentServerTest, ADamagedRegistrationIsToldAndKept) {
  writeWholeFile(registry, "<components><class na");
  ComponentServer server(own);
  const auto error = refusalOf([&] { server.create("VwMeasurement"); });
  EXPECT_EQ(error.number, RuntimeError::BadArgument);
  EXPECT_NE(error.description.find("is damaged"), std::string::npos);
  EXPECT_EQ(refusalOf([&] { ServerLibrary(own).registerClasses(); }).number, RuntimeError::BadArgument);
  EXPECT_EQ(readWholeFile(registry), "<components><class na");
}

TEST_F(ComponentServerTest, ARegistrationThatCannotBeWrittenIsTold) {
  fs::create_directory(folder / "components.xml.new");  // in the way of the new file
  ComponentServer server(own);
  const auto error = refusalOf([&] { server.create("VwMeasurement"); });
  EXPECT_EQ(error.number, RuntimeError::PermissionDenied);
  EXPECT_NE(error.description.find(registry.string()), std::string::npos);
}

TEST_F(ComponentServerTest, UnregistersOnlyItsOwn) {
  addToRegistry(registry, "/elsewhere/other.so", {{"VwOther", Guid::of("00000000-1111-2222-3333-444444444444"), {}, ""}});
  const ServerLibrary library(own);
  library.registerClasses();
  library.unregisterClasses();
  ASSERT_EQ(readRegistry(registry).size(), 1u);
  EXPECT_EQ(readRegistry(registry)[0].name, "VwOther");
}

TEST_F(ComponentServerTest, ALibraryStaysWhileItsComponentsLive) {
  ServerLibrary library(own);
  EXPECT_TRUE(library.canUnload());
  Ref<IObject> view;
  ServerLibrary(own).registerClasses();
  ComponentServer server(own);
  view = server.create("VwMeasurement");
  EXPECT_FALSE(library.canUnload());
  server.unloadUnused();
  EXPECT_TRUE(query<ITaviView>(view.get()));
  view = nullptr;
  EXPECT_TRUE(library.canUnload());
  server.unloadUnused();
  EXPECT_TRUE(server.create("VwMeasurement")) << "it is loaded anew";
}

TEST_F(ComponentServerTest, NoClassIsAggregatedOrOfAnUnknownInterface) {
  ServerLibrary library(own);
  Ref<IObject> component;
  EXPECT_EQ(library.create(Guid::of("00000000-1111-2222-3333-444444444444"), component), Result::ClassNotAvailable);
  EXPECT_FALSE(component);
}

}  // namespace

}  // namespace ostrand::test
