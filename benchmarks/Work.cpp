#include "benchmarks/Work.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "platform/base/File.h"
#include "platform/base/NumberText.h"

namespace ostrand::bench {

namespace {

// Short rounds, so that most of them run without a break; of the long works fewer.
constexpr std::size_t kFewestRounds = 7;
constexpr std::size_t kMostRounds = 25;
constexpr double kSecondsPerRound = 0.003;
constexpr double kSecondsPerRow = 1;

double secondsOf(const Work& work, int calls) {
  Meter meter;
  for (int i = 0; i < calls; ++i) work.once(meter);
  return meter.seconds() / calls;
}

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// What stands behind `key` in the first line that begins with it.
std::string_view lineOf(std::string_view text, std::string_view key) {
  const std::size_t at = text.find(key);
  if (at == text.npos) return {};
  const std::string_view behind = text.substr(at + key.size());
  return behind.substr(0, behind.find('\n'));
}

}  // namespace

std::vector<double> timed(const std::vector<Work>& works) {
  std::vector<int> calls;
  double round = 0;
  for (const Work& work : works) {
    secondsOf(work, 1);  // warms up
    const double once = secondsOf(work, 1);
    calls.push_back(std::max(static_cast<int>(kSecondsPerRound / once), 1));
    round += once * calls.back();
  }
  const auto count = std::clamp(static_cast<std::size_t>(kSecondsPerRow / round), kFewestRounds, kMostRounds);
  std::vector<std::vector<double>> rounds(works.size());
  while (rounds[0].size() < count)
    for (std::size_t i = 0; i < works.size(); ++i) rounds[i].push_back(secondsOf(works[i], calls[i]));
  std::vector<double> medians;
  for (const auto& of : rounds) medians.push_back(medianOf(of));
  return medians;
}

void counted(const Work& work) {
  Meter meter;
  work.once(meter);  // warms up, as for the clock
  CALLGRIND_ZERO_STATS;
  work.once(meter);
  CALLGRIND_DUMP_STATS_AT(work.name.c_str());
}

std::map<std::string, double> readCounts(const std::string& folder) {
  std::map<std::string, double> counts;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string text = readWholeFile(entry.path());
    const std::string_view name = lineOf(text, "\ndesc: Trigger: Client Request: ");
    const std::string_view total = lineOf(text, "\ntotals: ");
    if (const auto count = parseNumber(total, '.'); count && !name.empty()) counts[std::string(name)] = *count;
  }
  return counts;
}

}  // namespace ostrand::bench
