// The shape of the tree, read from its own sources.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/File.h"

namespace ostrand {
namespace {

namespace fs = std::filesystem;

const fs::path kTree = OSTRAND_SOURCE_DIR;

// The floors from the ground up. What each may include stands in CMakeLists.txt, and the compiler sees nothing else of the
// tree; here it is only that nothing points up.
constexpr const char* kFloors[] = {
    "platform/base", "platform/xml", "platform/types", "platform/trap", "platform/desktop", "platform/controls", "core", "bus", "views",
    "calibration",   "diagnostics",  "anyedit",        "recipe",        "component",        "simulator",         "host", "cli", "workbench"};
// What a host knows only through the entry points of the component server.
constexpr const char* kBehindTheEntryPoints[] = {"core", "bus", "views", "calibration", "diagnostics", "anyedit", "recipe", "component"};

// Third parties, each with the only floors that may know it.
const std::vector<std::pair<std::regex, std::set<std::string>>> kThirdParties{
    {std::regex("pugixml\\.hpp"), {"platform/xml"}},
    {std::regex("CLI/.*"), {"cli", "workbench"}},
    {std::regex("Q[A-Z].*|qcustomplot\\.h|Qt.*"), {"workbench"}},
};

struct Source {
  fs::path path;
  std::string text;
  std::string shortName() const { return path.lexically_relative(kTree).generic_string(); }
};

bool isSource(const fs::path& path) {
  static const std::set<std::string> kEndings{".h", ".cpp", ".map"};
  return kEndings.count(path.extension().string()) > 0;
}

std::vector<Source> sourcesBelow(const fs::path& folder, bool (*wanted)(const fs::path&) = isSource) {
  std::vector<Source> sources;
  if (!fs::is_directory(folder)) return sources;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file() && wanted(entry.path())) sources.push_back({entry.path(), readWholeFile(entry.path())});
  return sources;
}

std::vector<std::string> includesOf(const std::string& text, char open) {
  constexpr std::string_view kInclude = "#include ";
  std::vector<std::string> names;
  for (std::size_t at = text.find(kInclude); at != text.npos; at = text.find(kInclude, at + 1)) {
    const std::size_t name = at + kInclude.size();
    if ((at > 0 && text[at - 1] != '\n') || text[name] != open) continue;
    names.push_back(text.substr(name + 1, text.find(open == '<' ? '>' : '"', name + 1) - name - 1));
  }
  return names;
}

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// Where `word` stands in the text as a whole word.
std::vector<std::size_t> placesOf(std::string_view word, std::string_view text) {
  std::vector<std::size_t> places;
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
    const std::size_t behind = at + word.size();
    if ((at == 0 || !isWordCharacter(text[at - 1])) && (behind == text.size() || !isWordCharacter(text[behind]))) places.push_back(at);
  }
  return places;
}

fs::path folderOf(std::string_view floor) { return fs::exists(kTree / "src" / floor) ? kTree / "src" / floor : kTree / floor; }

// Where the compiler looks for what a floor includes.
fs::path viewOf(const std::string& floor) {
  const std::map<std::string, std::string> kTargets{
      {"simulator", "ostrand_simulator"}, {"host", "ostrand_host"}, {"cli", "ostrand"}, {"workbench", "ostrand_workbench"}};
  const auto target = kTargets.find(floor);
  std::string name = target == kTargets.end() ? "floor_" + floor : target->second;
  std::replace(name.begin(), name.end(), '/', '_');
  return fs::path(OSTRAND_BINARY_DIR) / "floors" / name;
}

TEST(ArchitectureTest, NoFloorSeesOneAboveIt) {
  for (std::size_t i = 0; i < std::size(kFloors); ++i) {
    const fs::path view = viewOf(kFloors[i]);
    // A floor that the build was told to leave out has no view.
    if (std::string_view(kFloors[i]) == "workbench" && !fs::exists(view)) continue;
    EXPECT_TRUE(fs::exists(view / kFloors[i])) << kFloors[i] << " does not see itself";
    for (std::size_t above = i + 1; above < std::size(kFloors); ++above)
      EXPECT_FALSE(fs::exists(view / kFloors[above])) << kFloors[i] << " sees " << kFloors[above];
  }
}

TEST(ArchitectureTest, TheHostNeverSeesAView) {
  for (const char* program : {"simulator", "host", "cli", "workbench"})
    for (const char* floor : kBehindTheEntryPoints) EXPECT_FALSE(fs::exists(viewOf(program) / floor)) << program << " sees " << floor;
}

TEST(ArchitectureTest, NobodyIncludesAWayOutOfItsFloor) {
  int seen = 0;
  for (const char* floor : kFloors)
    for (const Source& source : sourcesBelow(folderOf(floor)))
      for (const std::string& include : includesOf(source.text, '"')) {
        ++seen;
        EXPECT_EQ(include.find(".."), include.npos) << source.shortName() << " includes " << include;
        EXPECT_FALSE(fs::path(include).is_absolute()) << source.shortName() << " includes " << include;
      }
  EXPECT_GT(seen, 200);
}

TEST(ArchitectureTest, EveryFolderOfSourcesIsAFloor) {
  const auto isFloor = [](const std::string& name) { return std::find(std::begin(kFloors), std::end(kFloors), name) != std::end(kFloors); };
  for (const auto& entry : fs::directory_iterator(kTree / "src"))
    EXPECT_TRUE(isFloor(entry.path().filename().string()) || entry.path().filename() == "platform") << entry.path();
  for (const auto& entry : fs::directory_iterator(kTree / "src/platform"))
    EXPECT_TRUE(isFloor("platform/" + entry.path().filename().string())) << entry.path();
}

TEST(ArchitectureTest, ThirdPartiesStayWhereTheyBelong) {
  for (const char* floor : kFloors)
    for (const Source& source : sourcesBelow(folderOf(floor)))
      for (const std::string& include : includesOf(source.text, '<'))
        for (const auto& [pattern, floors] : kThirdParties)
          if (std::regex_match(include, pattern)) {
            EXPECT_TRUE(floors.count(floor)) << source.shortName() << " must not include <" << include << ">";
          }
}

TEST(ArchitectureTest, NumbersAndTimeGoThroughTheirOneDoor) {
  // Streams, the C library's readers and the process's locale would follow the user's locale; threads and sleeps
  // would pass by the desktop's clock.
  constexpr const char* kForbidden[] = {"strtod",       "strtof",        "atof",          "stod",   "stof",        "setlocale", "imbue",
                                        "stringstream", "ostringstream", "istringstream", "sscanf", "this_thread", "sleep_for"};
  for (const std::string_view floor : kFloors) {
    if (floor == "workbench" || floor == "cli") continue;
    for (const Source& source : sourcesBelow(folderOf(floor))) {
      if (source.path.stem() == "RealDesktop") continue;
      for (const char* word : kForbidden) EXPECT_TRUE(placesOf(word, source.text).empty()) << source.shortName() << " uses " << word;
    }
  }
}

bool isPublicText(const fs::path& path) {
  static const std::set<std::string> kEndings{".h", ".cpp", ".map", ".md", ".txt", ".xml", ".transcript", ".cmake", ".sh"};
  return kEndings.count(path.extension().string()) > 0 || !path.has_extension();
}

std::vector<Source> publicTexts() {
  std::vector<Source> all;
  for (const auto& entry : fs::directory_iterator(kTree)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(".") || name.starts_with("build") || name == "out" || name == "compile_commands.json") continue;
    if (entry.is_directory())
      for (Source& source : sourcesBelow(entry.path(), isPublicText)) all.push_back(std::move(source));
    else if (isPublicText(entry.path()))
      all.push_back({entry.path(), readWholeFile(entry.path())});
  }
  return all;
}

TEST(ArchitectureTest, TheSourcesSpeakForThemselves) {
  const std::vector<Source> all = publicTexts();
  ASSERT_GT(all.size(), 50u);
  // Written apart, so that this file passes its own test.
  const std::string kDocument = std::string("pecifi") + "cation", kChapter = std::string("Pa") + "rt";
  for (const Source& source : all) {
    for (const std::string& word : {"s" + kDocument, "S" + kDocument})
      for (const std::size_t at : placesOf(word, source.text)) {
        // A state of a device is called so too: "Out of ...".
        const bool isState = at >= 6 && source.text.compare(at - 6, 6, "ut of ") == 0;
        EXPECT_TRUE(isState) << source.shortName() << " says \"" << word << "\"";
      }
    // The same word before a number such as 1.2.
    for (const std::size_t at : placesOf(kChapter, source.text)) {
      std::size_t digits = at + kChapter.size() + 1;
      while (digits < source.text.size() && std::isdigit(static_cast<unsigned char>(source.text[digits]))) ++digits;
      const bool isNumber = digits > at + kChapter.size() + 1 && source.text.compare(digits, 1, ".") == 0;
      EXPECT_FALSE(isNumber) << source.shortName() << " says \"" << source.text.substr(at, digits - at + 2) << "\"";
    }
  }
}

TEST(ArchitectureTest, NoFileIsLong) {
  constexpr long kMostLines = 600;
  for (const char* folder : {"src", "host", "simulator", "cli", "workbench", "tests", "benchmarks", "bench", "fuzz"})
    for (const Source& source : sourcesBelow(kTree / folder)) {
      const long lines = std::count(source.text.begin(), source.text.end(), '\n');
      EXPECT_LE(lines, kMostLines) << source.shortName();
    }
}

TEST(ArchitectureTest, HeadersAreIncludedOnce) {
  for (const char* folder : {"src", "host", "simulator", "cli", "workbench", "tests"})
    for (const Source& source : sourcesBelow(kTree / folder))
      if (source.path.extension() == ".h") {
        EXPECT_NE(source.text.find("#pragma once"), std::string::npos) << source.shortName();
      }
}

}  // namespace
}  // namespace ostrand
