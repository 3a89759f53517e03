// The shape of the tree, read from its own sources.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
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

// Who may include whom beside itself, floor by floor. A floor is a folder below src/ or of the tree.
struct Floor {
  const char* name;
  std::vector<std::string> mayInclude;
};

// clang-format off
const std::vector<Floor> kFloors{
    {"platform",    {}},
    {"core",        {"platform"}},
    {"bus",         {"platform", "core"}},
    {"views",       {"platform", "core", "bus", "formula"}},
    {"calibration", {"platform", "core", "bus"}},
    {"anyedit",     {"platform", "core", "bus"}},
    {"recipe",      {"platform", "core", "bus", "anyedit"}},
    {"diagnostics", {"platform", "core", "bus"}},
    {"formula",     {"platform", "core", "bus"}},
    {"component",   {"platform", "core", "bus", "views", "calibration", "anyedit", "recipe", "diagnostics", "formula"}},
    {"simulator",   {"platform/base", "platform/xml", "platform/desktop"}},
    {"host",        {"platform", "simulator"}},
    {"cli",         {"platform", "simulator", "host"}},
    {"workbench",   {"platform", "simulator", "host"}},
};
// Inside the ground floor: who of it may include whom.
const std::vector<Floor> kGround{
    {"platform/base",     {}},
    {"platform/types",    {"platform/base", "platform/xml"}},
    {"platform/xml",      {"platform/base"}},
    {"platform/trap",     {"platform/base", "platform/types", "platform/xml"}},
    {"platform/desktop",  {"platform/base"}},
    {"platform/controls", {"platform/base", "platform/types", "platform/xml", "platform/trap", "platform/desktop"}},
};
// The rooms of the workbench; each may know the floors below, too.
const std::vector<Floor> kRooms{
    {"workbench/words",        {}},
    {"workbench/render",       {}},
    {"workbench/desktop",      {"workbench/words"}},
    {"workbench/conversation", {"workbench/words", "workbench/render"}},
    {"workbench/plant",        {"workbench/words", "workbench/render", "workbench/desktop", "workbench/conversation"}},
    {"workbench/dialogs",      {"workbench/words", "workbench/render", "workbench/plant"}},
    {"workbench/window",       {"workbench/words", "workbench/render", "workbench/conversation", "workbench/plant", "workbench/dialogs"}},
    {"workbench/tour",         {"workbench/words", "workbench/render", "workbench/plant", "workbench/dialogs", "workbench/window"}},
};
// clang-format on

// Third parties, each with the only floors that may know it.
const std::vector<std::pair<std::regex, std::set<std::string>>> kThirdParties{
    {std::regex("pugixml\\.hpp"), {"platform"}},
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

fs::path folderOf(const std::string& floor) {
  return fs::exists(kTree / "src" / floor) || floor.starts_with("platform") ? kTree / "src" / floor : kTree / floor;
}

bool isBelow(std::string_view include, std::string_view folder) { return include.starts_with(folder) && include.substr(folder.size()).starts_with('/'); }

// Gives the number of includes that were looked at.
int checkIncludes(const Floor& floor) {
  int seen = 0;
  for (const Source& source : sourcesBelow(folderOf(floor.name)))
    for (const std::string& include : includesOf(source.text, '"')) {
      ++seen;
      if (include.find('/') == include.npos) {
        EXPECT_TRUE(fs::exists(source.path.parent_path() / include)) << source.shortName() << " includes " << include << ": no such file beside it";
        continue;
      }
      const bool allowed = isBelow(include, floor.name) || std::any_of(floor.mayInclude.begin(), floor.mayInclude.end(), [&](const std::string& folder) { return isBelow(include, folder); });
      EXPECT_TRUE(allowed) << source.shortName() << " must not include " << include;
    }
  return seen;
}

TEST(ArchitectureTest, EveryFloorIncludesOnlyWhatItMay) {
  int seen = 0;
  for (const Floor& floor : kFloors) seen += checkIncludes(floor);
  EXPECT_GT(seen, 200);
}

TEST(ArchitectureTest, TheRoomsOfTheWorkbenchHaveTheirOrderToo) {
  std::set<std::string> known;
  for (Floor room : kRooms) {
    known.insert(std::string(room.name));
    for (const char* const below : {"platform", "simulator", "host"}) room.mayInclude.push_back(below);
    EXPECT_GT(checkIncludes(room), 0) << room.name;
  }
  for (const auto& entry : fs::directory_iterator(kTree / "workbench"))
    if (entry.is_directory()) EXPECT_TRUE(known.count("workbench/" + entry.path().filename().string())) << entry.path();
}

TEST(ArchitectureTest, TheGroundFloorHasItsOrderToo) {
  for (const Floor& floor : kGround) checkIncludes(floor);
}

TEST(ArchitectureTest, EveryFolderOfSourcesIsAFloor) {
  std::set<std::string> known;
  for (const Floor& floor : kFloors) known.insert(floor.name);
  for (const auto& entry : fs::directory_iterator(kTree / "src")) EXPECT_TRUE(known.count(entry.path().filename().string())) << entry.path();
}

TEST(ArchitectureTest, TheHostNeverSeesAView) {
  for (const char* program : {"host", "cli", "workbench"})
    for (const Source& source : sourcesBelow(kTree / program))
      for (const std::string& include : includesOf(source.text, '"'))
        for (const char* floor : {"core", "bus", "views", "calibration", "anyedit", "recipe", "diagnostics", "formula", "component"})
          EXPECT_FALSE(isBelow(include, floor)) << source.shortName() << " must not include " << include;
}

TEST(ArchitectureTest, ThirdPartiesStayWhereTheyBelong) {
  for (const Floor& floor : kFloors)
    for (const Source& source : sourcesBelow(folderOf(floor.name)))
      for (const std::string& include : includesOf(source.text, '<'))
        for (const auto& [pattern, floors] : kThirdParties)
          if (std::regex_match(include, pattern)) {
            EXPECT_TRUE(floors.count(floor.name)) << source.shortName() << " must not include <" << include << ">";
          }
}

TEST(ArchitectureTest, NumbersAndTimeGoThroughTheirOneDoor) {
  // Streams, the C library's readers and the process's locale would follow the user's locale; threads and sleeps
  // would pass by the desktop's clock.
  constexpr const char* kForbidden[] = {"strtod",       "strtof",        "atof",          "stod",   "stof",        "setlocale", "imbue",
                                        "stringstream", "ostringstream", "istringstream", "sscanf", "this_thread", "sleep_for"};
  for (const Floor& floor : kFloors) {
    if (std::string_view(floor.name) == "workbench" || std::string_view(floor.name) == "cli") continue;
    for (const Source& source : sourcesBelow(folderOf(floor.name))) {
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
