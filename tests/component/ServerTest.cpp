#include "component/Server.h"

#include <dlfcn.h>
#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>

#include "platform/base/File.h"
#include "platform/desktop/VirtualDesktop.h"
#include "platform/types/IClassFactory.h"
#include "platform/types/IPlaceable.h"
#include "platform/types/ITaviDeviceSpecific.h"
#include "platform/types/ITaviView.h"
#include "platform/types/Query.h"
#include "platform/types/Registry.h"

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path kLibrary = std::filesystem::path(OSTRAND_BINARY_DIR) / "libDTMGUI_Ostrand.so";
constexpr Guid kMeasurement = Guid::of("4d1c0f02-7a41-4b0e-8a53-1f6a5c3e2101");
constexpr Guid kNobody = Guid::of("00000000-1111-2222-3333-444444444444");

// As a host does it: the library at run time, its functions by name; the registration in a folder of its own.
struct ServerTest : testing::Test {
  void* library = nullptr;
  Result (*getClassObject)(const Guid&, const Guid&, void**) noexcept = nullptr;
  Result (*canUnloadNow)() noexcept = nullptr;
  Result (*registerServer)() noexcept = nullptr;
  Result (*unregisterServer)() noexcept = nullptr;
  std::filesystem::path folder = std::filesystem::temp_directory_path() / ("ostrand-server-" + std::to_string(::getpid()));
  std::filesystem::path registry = folder / "components.xml";

  void SetUp() override {
    std::filesystem::create_directories(folder);
    ::setenv("OSTRAND_REGISTRY", registry.c_str(), 1);
    library = ::dlopen(kLibrary.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_TRUE(library) << ::dlerror();
    find(getClassObject, "DllGetClassObject");
    find(canUnloadNow, "DllCanUnloadNow");
    find(registerServer, "DllRegisterServer");
    find(unregisterServer, "DllUnregisterServer");
  }
  void TearDown() override {
    if (library) ::dlclose(library);
    std::filesystem::remove_all(folder);
    ::unsetenv("OSTRAND_REGISTRY");
  }
  template <class F>
  void find(F& function, const char* name) {
    void* const symbol = ::dlsym(library, name);
    ASSERT_TRUE(symbol) << name;
    std::memcpy(&function, &symbol, sizeof function);
  }

  Ref<IClassFactory> factory(const Guid& id = kMeasurement) {
    void* out = nullptr;
    EXPECT_EQ(getClassObject(id, IClassFactory::kId, &out), Result::Ok);
    return Ref<IClassFactory>::adopt(static_cast<IClassFactory*>(out));
  }
  template <class I>
  Ref<I> create(IClassFactory& from) {
    void* out = nullptr;
    EXPECT_EQ(from.createInstance(nullptr, I::kId, &out), Result::Ok);
    return Ref<I>::adopt(static_cast<I*>(out));
  }
};

// --- creation

TEST_F(ServerTest, GivesTheFactoryOfAClass) {
  void* out = nullptr;
  EXPECT_EQ(getClassObject(kMeasurement, IObject::kId, &out), Result::Ok);
  const Ref<IObject> object = Ref<IObject>::adopt(static_cast<IObject*>(out));
  EXPECT_TRUE(query<IClassFactory>(object.get()));
  EXPECT_EQ(object->queryInterface(IObject::kId, nullptr), Result::BadPointer);
}

TEST_F(ServerTest, TellsWhatItHasNot) {
  int mark = 0;
  void* out = &mark;
  EXPECT_EQ(getClassObject(kNobody, IClassFactory::kId, &out), Result::ClassNotAvailable);
  EXPECT_EQ(out, nullptr);
  out = &mark;
  EXPECT_EQ(getClassObject(kMeasurement, ITaviView::kId, &out), Result::NoInterface);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(getClassObject(kMeasurement, IClassFactory::kId, nullptr), Result::BadPointer);
  EXPECT_EQ(canUnloadNow(), Result::Ok) << "nothing is left behind";
}

TEST_F(ServerTest, AFactoryMakesComponents) {
  const Ref<IClassFactory> from = factory();
  const Ref<ITaviView> one = create<ITaviView>(*from);
  const Ref<ITaviView> two = create<ITaviView>(*from);
  ASSERT_TRUE(one && two);
  EXPECT_FALSE(one == two);
  EXPECT_TRUE(query<IPlaceable>(one.get()));
}

TEST_F(ServerTest, AFactoryTellsWhatItCannot) {
  const Ref<IClassFactory> from = factory();
  int mark = 0;
  void* out = &mark;
  EXPECT_EQ(from->createInstance(nullptr, ITaviDeviceSpecific::kId, &out), Result::NoInterface);
  EXPECT_EQ(out, nullptr);
  out = &mark;
  EXPECT_EQ(from->createInstance(from.get(), IObject::kId, &out), Result::NoAggregation);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(from->createInstance(nullptr, IObject::kId, nullptr), Result::BadPointer);
}

// --- life in memory

TEST_F(ServerTest, CannotBeUnloadedWhileSomethingLives) {
  EXPECT_EQ(canUnloadNow(), Result::Ok);
  Ref<IClassFactory> from = factory();
  EXPECT_EQ(canUnloadNow(), Result::False) << "a factory";
  Ref<ITaviView> view = create<ITaviView>(*from);
  from = nullptr;
  EXPECT_EQ(canUnloadNow(), Result::False) << "a component";
  Ref<IPlaceable> placeable = query<IPlaceable>(view.get());
  view = nullptr;
  EXPECT_EQ(canUnloadNow(), Result::False) << "its last reference";
  placeable = nullptr;
  EXPECT_EQ(canUnloadNow(), Result::Ok);
}

TEST_F(ServerTest, ALockKeepsItLoaded) {
  Ref<IClassFactory> from = factory();
  EXPECT_EQ(from->lockServer(true), Result::Ok);
  EXPECT_EQ(from->lockServer(true), Result::Ok);
  EXPECT_EQ(from->lockServer(false), Result::Ok);
  from = nullptr;
  EXPECT_EQ(canUnloadNow(), Result::False);
  from = factory();
  from->lockServer(false);
  from->lockServer(false);
  const Ref<ITaviView> view = create<ITaviView>(*from);
  from = nullptr;
  EXPECT_EQ(canUnloadNow(), Result::False) << "an unlock too many hides no component";
}

TEST_F(ServerTest, IsReallyUnloaded) {
  {
    VirtualDesktop desktop;
    const Ref<IClassFactory> from = factory();
    const Ref<IPlaceable> view = create<IPlaceable>(*from);
    view->Place(desktop, nullptr, "");
    view->Terminate();
  }
  EXPECT_EQ(canUnloadNow(), Result::Ok);
  EXPECT_EQ(::dlclose(library), 0);
  library = ::dlopen(kLibrary.c_str(), RTLD_NOW | RTLD_NOLOAD);
  EXPECT_FALSE(library) << "still in memory";
}

TEST_F(ServerTest, ExportsExactlyFourFunctions) {
  const std::string file = readWholeFile(kLibrary);
  const auto at = [&]<class T>(T, std::size_t offset) {
    T value;
    EXPECT_LE(offset + sizeof value, file.size());
    std::memcpy(&value, file.data() + offset, sizeof value);
    return value;
  };
  const auto header = at(Elf64_Ehdr{}, 0);
  ASSERT_EQ(std::memcmp(header.e_ident, ELFMAG, SELFMAG), 0);
  ASSERT_EQ(header.e_ident[EI_CLASS], ELFCLASS64);
  std::set<std::string> exported;
  for (int i = 0; i < header.e_shnum; ++i) {
    const auto section = at(Elf64_Shdr{}, header.e_shoff + static_cast<std::size_t>(i) * header.e_shentsize);
    if (section.sh_type != SHT_DYNSYM) continue;
    const auto names = at(Elf64_Shdr{}, header.e_shoff + std::size_t{section.sh_link} * header.e_shentsize);
    for (std::size_t offset = section.sh_offset; offset < section.sh_offset + section.sh_size; offset += section.sh_entsize) {
      const auto symbol = at(Elf64_Sym{}, offset);
      const auto visibility = ELF64_ST_VISIBILITY(symbol.st_other);
      if (symbol.st_shndx == SHN_UNDEF || ELF64_ST_BIND(symbol.st_info) == STB_LOCAL || (visibility != STV_DEFAULT && visibility != STV_PROTECTED))
        continue;
      exported.insert(file.data() + names.sh_offset + symbol.st_name);
    }
  }
  EXPECT_THAT(exported, ElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"));
}

// --- registration

TEST_F(ServerTest, RegistersEveryClassThatItMakes) {
  EXPECT_EQ(registerServer(), Result::Ok);
  const std::vector<RegisteredClass> classes = readRegistry(registry);
  ASSERT_FALSE(classes.empty());
  std::set<std::string> names, ids;
  for (const RegisteredClass& each : classes) {
    EXPECT_TRUE(names.insert(each.name).second) << each.name;
    EXPECT_TRUE(ids.insert(guidText(each.id)).second) << each.name;
    EXPECT_TRUE(std::filesystem::equivalent(each.library, kLibrary)) << each.library;
    EXPECT_FALSE(each.description.empty()) << each.name;
    EXPECT_EQ(each.description.find('\n'), std::string::npos) << each.name;
    VirtualDesktop desktop;
    const Ref<IClassFactory> from = factory(each.id);
    const Ref<IPlaceable> made = create<IPlaceable>(*from);
    ASSERT_TRUE(made) << each.name;
    made->Place(desktop, nullptr, "");
    made->Terminate();
  }
  EXPECT_TRUE(names.count("VwMeasurement") && names.count("VwMeasurementGYRE") && names.count("VwMeasurementQX5"));
  EXPECT_EQ(canUnloadNow(), Result::Ok);
}

TEST_F(ServerTest, RegisteredTwiceItStandsThereOnce) {
  EXPECT_EQ(registerServer(), Result::Ok);
  const std::string once = readWholeFile(registry);
  EXPECT_EQ(registerServer(), Result::Ok);
  EXPECT_EQ(readWholeFile(registry), once);
}

TEST_F(ServerTest, UnregistersItsOwnEntriesOnly) {
  const RegisteredClass other{"VwOther", kNobody, "/other/lib.so", "of somebody else"};
  addToRegistry(registry, other.library, {other});
  EXPECT_EQ(registerServer(), Result::Ok);
  EXPECT_GT(readRegistry(registry).size(), 3u);
  EXPECT_EQ(unregisterServer(), Result::Ok);
  const std::vector<RegisteredClass> left = readRegistry(registry);
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].name, "VwOther");
  EXPECT_EQ(unregisterServer(), Result::Ok) << "nothing to do is no failure";
}

TEST_F(ServerTest, WithoutARegistrationThereIsNothingToUnregister) {
  EXPECT_EQ(unregisterServer(), Result::Ok);
  EXPECT_FALSE(std::filesystem::exists(registry));
}

TEST_F(ServerTest, ADamagedRegistrationStandsAsItWas) {
  for (const char* text : {"<components><class name=\"half", "<other/>", "<components><class name=\"x\"/></components>", ""}) {
    writeWholeFile(registry, text);
    EXPECT_EQ(registerServer(), Result::RegistrationFailed) << text;
    EXPECT_EQ(unregisterServer(), Result::RegistrationFailed) << text;
    EXPECT_EQ(readWholeFile(registry), text);
  }
}

TEST_F(ServerTest, APlaceThatCannotBeWrittenIsAFailure) {
  const std::filesystem::path file = folder / "file";
  writeWholeFile(file, "in the way");
  ::setenv("OSTRAND_REGISTRY", (file / "components.xml").c_str(), 1);
  EXPECT_EQ(registerServer(), Result::RegistrationFailed);
  EXPECT_EQ(readWholeFile(file), "in the way");
  std::filesystem::create_directories(registry);
  ::setenv("OSTRAND_REGISTRY", registry.c_str(), 1);
  EXPECT_EQ(registerServer(), Result::RegistrationFailed) << "a folder of this name";
  EXPECT_THAT(std::vector<std::filesystem::path>(std::filesystem::directory_iterator(registry), {}), IsEmpty()) << "nothing is left beside it";
}

}  // namespace
}  // namespace ostrand
